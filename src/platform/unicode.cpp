#include "platform/unicode.h"

#include <locale.h>
#include <cwctype>

namespace {

/// A locale whose wide characters are Unicode; null if the system has none.
locale_t UnicodeLocale() {
    static const locale_t locale = [] {
        for (const char* name : {"C.UTF-8", "C.utf8", "en_US.UTF-8"})
            if (const locale_t found = newlocale(LC_CTYPE_MASK, name, nullptr))
                return found;
        return locale_t{};
    }();
    return locale;
}

}  // namespace

std::optional<char32_t> TakeUtf8(std::string_view text, std::size_t& pos) {
    const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char lead = byteAt(pos++);
    if (lead < 0x80)
        return lead;
    const int more = lead >= 0xF0 && lead <= 0xF4 ? 3 : lead >= 0xE0 && lead < 0xF0 ? 2 : lead >= 0xC2 && lead < 0xE0;
    if (more == 0 || text.size() - pos < static_cast<std::size_t>(more))
        return {};
    char32_t codePoint = lead & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
        const unsigned char next = byteAt(pos + static_cast<std::size_t>(i));
        if ((next & 0xC0) != 0x80)
            return {};
        codePoint = codePoint << 6 | (next & 0x3F);
    }
    const bool isOverlong = (more == 2 && codePoint < 0x800) || (more == 3 && codePoint < 0x10000);
    const bool isSurrogate = codePoint >= 0xD800 && codePoint < 0xE000;
    if (isOverlong || isSurrogate || codePoint > 0x10FFFF)
        return {};
    pos += static_cast<std::size_t>(more);
    return codePoint;
}

void AppendUtf8(std::string& text, char32_t codePoint) {
    if ((codePoint >= 0xD800 && codePoint < 0xE000) || codePoint > 0x10FFFF)
        codePoint = kReplacementCharacter;
    const auto push = [&](char32_t byte) { text.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
    if (codePoint < 0x80) {
        push(codePoint);
        return;
    }
    if (codePoint < 0x800) {
        push(0xC0 | codePoint >> 6);
    } else {
        if (codePoint < 0x10000) {
            push(0xE0 | codePoint >> 12);
        } else {
            push(0xF0 | codePoint >> 18);
            push(0x80 | (codePoint >> 12 & 0x3F));
        }
        push(0x80 | (codePoint >> 6 & 0x3F));
    }
    push(0x80 | (codePoint & 0x3F));
}

char32_t LowerCodePoint(char32_t codePoint) {
    if (codePoint < 0x80)
        return codePoint >= U'A' && codePoint <= U'Z' ? codePoint + 32 : codePoint;
    const locale_t locale = UnicodeLocale();
    return locale ? static_cast<char32_t>(towlower_l(static_cast<wint_t>(codePoint), locale)) : codePoint;
}
