#include "platform/library_reading.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::size_t kMaxProblems = 20;

struct LanguagePage {
    std::uint32_t language;
    std::string_view page;
};

std::string_view PageOf(std::uint32_t lcid) {
    constexpr std::uint32_t kPrimaryLanguage = 0x3FF;
    // Languages that have a page of their own in one of their countries only.
    static constexpr std::array kOfLocale = {LanguagePage{0x404, "950"}, LanguagePage{0xC04, "950"},
                                             LanguagePage{0x1404, "950"}, LanguagePage{0xC1A, "1251"}};
    static constexpr std::array kOfLanguage = {
        LanguagePage{0x01, "1256"}, LanguagePage{0x02, "1251"}, LanguagePage{0x04, "936"},  LanguagePage{0x05, "1250"},
        LanguagePage{0x08, "1253"}, LanguagePage{0x0D, "1255"}, LanguagePage{0x0E, "1250"}, LanguagePage{0x11, "932"},
        LanguagePage{0x12, "949"},  LanguagePage{0x15, "1250"}, LanguagePage{0x18, "1250"}, LanguagePage{0x19, "1251"},
        LanguagePage{0x1A, "1250"}, LanguagePage{0x1B, "1250"}, LanguagePage{0x1C, "1250"}, LanguagePage{0x1E, "874"},
        LanguagePage{0x1F, "1254"}, LanguagePage{0x22, "1251"}, LanguagePage{0x23, "1251"}, LanguagePage{0x24, "1250"},
        LanguagePage{0x25, "1257"}, LanguagePage{0x26, "1257"}, LanguagePage{0x27, "1257"}, LanguagePage{0x2A, "1258"},
        LanguagePage{0x2F, "1251"}};
    for (const LanguagePage& known : kOfLocale)
        if (known.language == lcid)
            return known.page;
    for (const LanguagePage& known : kOfLanguage)
        if (known.language == (lcid & kPrimaryLanguage))
            return known.page;
    return "1252";
}

}  // namespace

std::string GuidText(const ByteView& bytes, std::size_t at) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr std::size_t kTextLength = 38;
    // Order of the bytes in the text; -1 is a hyphen.
    constexpr std::array kOrder = {3, 2, 1, 0, -1, 5, 4, -1, 7, 6, -1, 8, 9, -1, 10, 11, 12, 13, 14, 15};
    std::string text;
    text.reserve(kTextLength);
    text += '{';
    for (const int place : kOrder) {
        if (place < 0) {
            text += '-';
            continue;
        }
        const unsigned byte = bytes.U8(at + static_cast<std::size_t>(place));
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text += '}';
}

void LibraryReading::Broken(std::string what) {
    std::vector<std::string>& problems = library_.problems;
    if (problems.size() < kMaxProblems && std::find(problems.begin(), problems.end(), what) == problems.end())
        problems.push_back(std::move(what));
}

bool LibraryReading::Take(std::size_t& left, std::size_t bytes) {
    if (bytes > left) {
        left = 0;
        Broken("More refers to the tables of the library than a sound file of its size can hold.");
        return false;
    }
    left -= bytes;
    return true;
}

void LibraryReading::SetLanguage(std::uint32_t lcid) {
    page_ = CodePage(PageOf(lcid));
}

std::string LibraryReading::Text(std::string_view bytes) {
    return TakeFromTable(bytes.size()) ? page_.ToUtf8(bytes) : std::string();
}

std::optional<typelib::TypeKind> TypeKindOf(unsigned number) {
    return number <= static_cast<unsigned>(typelib::TypeKind::Union)
               ? std::optional(static_cast<typelib::TypeKind>(number))
               : std::nullopt;
}

typelib::InvokeKind InvokeKindOf(unsigned number) {
    using typelib::InvokeKind;
    switch (number) {
        case 2:
            return InvokeKind::PropertyGet;
        case 4:
            return InvokeKind::PropertyPut;
        case 8:
            return InvokeKind::PropertyPutRef;
        default:
            return InvokeKind::Func;
    }
}
