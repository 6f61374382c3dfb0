#include "shell/vb_text.h"

#include <cstring>

void ThrowInvalidCall() {
    throw VbError{5, "Invalid procedure call or argument"};
}

void ThrowSubscriptOutOfRange() {
    throw VbError{9, "Subscript out of range"};
}

Pos InStr(Pos start, std::string_view text, std::string_view find) {
    if (start < 1)
        ThrowInvalidCall();
    const auto found = text.find(find, static_cast<std::size_t>(start) - 1);
    return found == std::string_view::npos ? 0 : static_cast<Pos>(found) + 1;
}

Pos InStrRev(std::string_view text, std::string_view find, Pos start) {
    if (start == -1)
        start = Len(text);
    if (start < 1 || Len(find) > start)
        return 0;
    if (find == vbCrLf && start <= Len(text)) {
        // This search is frequent, and memrchr compares many characters at a time.
        for (const char* end = text.data() + start;;) {
            const void* hit = memrchr(text.data(), '\n', static_cast<std::size_t>(end - text.data()));
            if (!hit)
                return 0;
            end = static_cast<const char*>(hit);
            if (end > text.data() && end[-1] == '\r')
                return static_cast<Pos>(end - text.data());
        }
    }
    const auto found = text.rfind(find, static_cast<std::size_t>(start) - find.size());
    return found == std::string_view::npos ? 0 : static_cast<Pos>(found) + 1;
}

std::string_view LTrim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view RTrim(std::string_view text) {
    const auto last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string Replace(std::string_view text, std::string_view find, std::string_view by) {
    std::string result;
    result.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t hit; (hit = text.find(find, from)) != std::string_view::npos; from = hit + find.size())
        result.append(text, from, hit - from).append(by);
    return result.append(text, from);
}
