#include "platform/text_bytes.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

#include "platform/code_page.h"
#include "platform/unicode.h"
#include "platform/vector_code.h"

namespace {

// The loops over whole texts have no early exit and no branch, so that the compiler vectorises them.

/// True if each CR is followed by a LF and each LF preceded by a CR.
WIDE_VECTORS bool HasOnlyCrLf(std::string_view text) {
    if (text.empty())
        return true;
    if (text.front() == '\n' || text.back() == '\r')
        return false;
    constexpr std::size_t kBlock = 16384;
    const std::size_t pairs = text.size() - 1;
    for (std::size_t begin = 0; begin < pairs; begin += kBlock) {
        const std::size_t count = std::min(kBlock, pairs - begin);
        const char* const at = text.data() + begin;
        unsigned char mismatch = 0;
        for (std::size_t i = 0; i < count; ++i)
            mismatch |= static_cast<unsigned char>((at[i] == '\r') ^ (at[i + 1] == '\n'));
        if (mismatch)
            return false;
    }
    return true;
}

struct LineEnds {
    std::size_t cr = 0;
    std::size_t lf = 0;
    std::size_t crLf = 0;
};

/// The number of i from 0 to `size` - 1 for which `isCounted` is true.
template <class IsCounted>
std::size_t CountWhere(std::size_t size, const IsCounted& isCounted) {
    constexpr std::size_t kBlock = 240;  // a byte can count up to this size
    std::size_t count = 0;
    for (std::size_t begin = 0; begin < size; begin += kBlock) {
        const std::size_t end = std::min(begin + kBlock, size);
        unsigned char inBlock = 0;
        for (std::size_t i = begin; i < end; ++i)
            inBlock = static_cast<unsigned char>(inBlock + isCounted(i));
        count += inBlock;
    }
    return count;
}

/// @param text  not empty
LineEnds CountLineEnds(std::string_view text) {
    const char* const at = text.data();
    return {CountWhere(text.size(), [at](std::size_t i) { return at[i] == '\r'; }),
            CountWhere(text.size(), [at](std::size_t i) { return at[i] == '\n'; }),
            CountWhere(text.size() - 1, [at](std::size_t i) { return (at[i] == '\r') & (at[i + 1] == '\n'); })};
}

void WriteWithCrLf(std::string_view text, char* into) {
    const char* at = text.data();
    const char* const end = at + text.size();
    const auto find = [end](const char* from, char c) {
        const void* found = std::memchr(from, c, static_cast<std::size_t>(end - from));
        return found ? static_cast<const char*>(found) : end;
    };
    const char* nextCr = find(at, '\r');
    const char* nextLf = find(at, '\n');
    for (;;) {
        const char* const lineEnd = std::min(nextCr, nextLf);
        into = std::copy(at, lineEnd, into);
        if (lineEnd == end)
            return;
        *into++ = '\r';
        *into++ = '\n';
        const bool isCrLf = lineEnd == nextCr && lineEnd + 1 == nextLf && nextLf != end;
        at = lineEnd + (isCrLf ? 2 : 1);
        if (nextCr < at)
            nextCr = find(at, '\r');
        if (nextLf < at)
            nextLf = find(at, '\n');
    }
}

enum class Mark { None, Utf8, Utf16Little, Utf16Big };

Mark MarkOf(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return Mark::Utf8;
    if (bytes.starts_with("\xFF\xFE"))
        return Mark::Utf16Little;
    return bytes.starts_with("\xFE\xFF") ? Mark::Utf16Big : Mark::None;
}

/// Converts UTF-16 bytes that follow their mark to UTF-8; half a surrogate pair or half a unit becomes `torn`.
std::string Utf8FromUtf16(std::string_view bytes, bool isBigEndian, char32_t torn) {
    const auto unitAt = [&](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const auto second = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<char32_t>(isBigEndian ? first << 8 | second : second << 8 | first);
    };
    std::string utf8;
    utf8.reserve(bytes.size() / 2);
    std::size_t at = 0;
    while (at + 1 < bytes.size()) {
        const char32_t unit = unitAt(at);
        at += 2;
        if (unit < 0x80) {
            utf8 += static_cast<char>(unit);
            continue;
        }
        if (unit < 0xD800 || unit > 0xDFFF) {
            AppendUtf8(utf8, unit);
            continue;
        }
        const char32_t low = unit <= 0xDBFF && at + 1 < bytes.size() ? unitAt(at) : 0;
        if (low >= 0xDC00 && low <= 0xDFFF) {
            AppendUtf8(utf8, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
            at += 2;
        } else {
            AppendUtf8(utf8, torn);
        }
    }
    if (at < bytes.size())
        AppendUtf8(utf8, torn);
    return utf8;
}

std::string TextFromUtf16(std::string_view bytes, bool isBigEndian) {
    if (std::optional<std::string> text = ActiveCodePage().FromUtf8Whole(Utf8FromUtf16(bytes, isBigEndian, U'?')))
        return *std::move(text);
    return Utf8FromUtf16(bytes, isBigEndian, kReplacementCharacter);
}

/// @param memory  holds `bytes` and may be moved from; null if it may not
void SetTextFrom(FileText& file, std::string_view bytes, std::string* memory) {
    std::string decoded;
    const Mark mark = MarkOf(bytes);
    if (mark == Mark::Utf8) {
        bytes.remove_prefix(3);
        memory = nullptr;
    } else if (mark != Mark::None) {
        decoded = TextFromUtf16(bytes.substr(2), mark == Mark::Utf16Big);
        bytes = decoded;
        memory = &decoded;
        file.convertedFromUtf16 = true;
    }

    if (HasOnlyCrLf(bytes)) {
        if (memory)
            file.text = std::move(*memory);
        else
            file.text = bytes;
        return;
    }
    const LineEnds ends = CountLineEnds(bytes);
    const std::size_t size = bytes.size() + ends.cr + ends.lf - 2 * ends.crLf;
    if (size > kMaxTextBytes) {
        file.error = FileError::TooLarge;
        return;
    }
    file.hadOnlyLineFeeds = ends.cr == 0;
    file.text.resize(size);
    WriteWithCrLf(bytes, file.text.data());
}

}  // namespace

void SetText(FileText& file, std::string_view bytes) {
    SetTextFrom(file, bytes, nullptr);
}

void SetText(FileText& file, std::string&& bytes) {
    std::string memory = std::move(bytes);
    SetTextFrom(file, memory, &memory);
}
