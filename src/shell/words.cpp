#include "shell/words.h"

namespace modMain {

namespace {

constexpr bool IsWordSeparator(char c) {
    return std::string_view(" (),.-+*/=':\"").find(c) != std::string_view::npos;
}

}  // namespace

std::string GetWortNrAusString(std::string_view text, int nr) {
    if (const auto apostrophe = text.find('\''); apostrophe != std::string_view::npos)
        text = text.substr(0, apostrophe + 1);
    std::string word;
    if (text.empty())
        return word;
    int counter = IsWordSeparator(text[0]) ? 0 : 1;
    bool previousSeparates = false;
    for (const char c : text) {
        if (IsWordSeparator(c)) {
            previousSeparates = true;
            continue;
        }
        if (previousSeparates && ++counter > nr)
            break;
        if (counter == nr)
            word += c;
        previousSeparates = false;
    }
    return word;
}

std::string_view GetStringContent(std::string_view text) {
    const auto first = text.find(gQuote);
    if (first == std::string_view::npos)
        return {};
    const auto second = text.find(gQuote, first + 1);
    return second == std::string_view::npos ? std::string_view() : text.substr(first + 1, second - first - 1);
}

std::string_view DirOrFileName(std::string_view path, int mode) {
    const auto separator = path.find_last_of("\\/");
    const auto nameStart = separator == std::string_view::npos ? 0 : separator + 1;
    return mode == 1 ? path.substr(0, nameStart) : path.substr(nameStart);
}

}  // namespace modMain
