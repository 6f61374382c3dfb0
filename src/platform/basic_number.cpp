#include "platform/basic_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "platform/ascii.h"

namespace {

constexpr unsigned kNoDigit = 99;

unsigned DigitOf(char c) {
    const char lower = ascii::Lower(c);
    if (ascii::IsDigit(lower))
        return static_cast<unsigned>(lower - '0');
    return lower >= 'a' && lower <= 'f' ? static_cast<unsigned>(lower - 'a' + 10) : kNoDigit;
}

/// Position of the first character from `at` on that is not a decimal digit.
std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && ascii::IsDigit(text[at]))
        ++at;
    return at;
}

/// A value up to FFFF is a 16-bit number unless a "&" follows it; all others have 32 bits. The number is negative if
/// its top bit is set.
NumberRead ReadBasedNumber(std::string_view text) {
    const char letter = text.size() > 2 ? ascii::Lower(text[1]) : '\0';
    if (letter != 'h' && letter != 'o')
        return {};
    const unsigned base = letter == 'h' ? 16 : 8;
    constexpr std::uint64_t kTooMuch = std::uint64_t{1} << 40;
    std::uint64_t value = 0;
    std::size_t end = 2;
    for (; end < text.size() && DigitOf(text[end]) < base; ++end)
        value = std::min(value * base + DigitOf(text[end]), kTooMuch);
    if (end == 2)
        return {};
    const bool isLong = end < text.size() && text[end] == '&';
    NumberRead read{end + isLong, 0, value > 0xFFFFFFFF};
    if (!isLong && value <= 0xFFFF)
        read.number = static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
    else
        read.number = static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
    return read;
}

}  // namespace

NumberRead ReadNumber(std::string_view text) {
    if (text.starts_with('&'))
        return ReadBasedNumber(text);
    std::size_t end = SkipDigits(text, 0);
    std::size_t digits = end;
    if (end < text.size() && text[end] == '.') {
        const std::size_t begin = end + 1;
        end = SkipDigits(text, begin);
        digits += end - begin;
    }
    if (digits == 0)
        return {};
    // "1e3" has an exponent; "1eqv 1" is a number followed by an operator.
    bool isTiny = false;
    if (end < text.size() && ascii::Lower(text[end]) == 'e') {
        const bool hasSign = end + 1 < text.size() && (text[end + 1] == '+' || text[end + 1] == '-');
        const std::size_t begin = end + 1 + hasSign;
        if (const std::size_t exponentEnd = SkipDigits(text, begin); exponentEnd > begin) {
            isTiny = hasSign && text[end + 1] == '-';
            end = exponentEnd;
        }
    }
    NumberRead read{end, 0, false};
    const std::errc error = std::from_chars(text.data(), text.data() + end, read.number).ec;
    read.overflows = error == std::errc::result_out_of_range && !isTiny;
    return read;
}

std::optional<double> NumberOfText(std::string_view text) {
    text = ascii::Trim(text);
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    const NumberRead read = ReadNumber(text);
    if (read.length == 0 || read.length != text.size() || read.overflows)
        return {};
    return isNegative ? -read.number : read.number;
}

std::string TextOfNumber(double number) {
    if (number == 0)
        return "0";  // never "-0"
    std::array<char, 40> buffer;
    char* const begin = buffer.data();
    char* const end = std::to_chars(begin, begin + buffer.size(), number, std::chars_format::general, 15).ptr;
    std::replace(begin, end, 'e', 'E');
    return {begin, end};
}
