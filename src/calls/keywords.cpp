#include "calls/keywords.h"

#include <array>
#include <utility>

namespace {

constexpr std::pair<std::string_view, Keyword> kKeywords[] = {
    {"as", Keyword::As},          {"new", Keyword::New},          {"if", Keyword::If},
    {"elseif", Keyword::ElseIf},  {"while", Keyword::While},      {"until", Keyword::Until},
    {"case", Keyword::Case},      {"for", Keyword::For},          {"with", Keyword::With},
    {"then", Keyword::Then},      {"set", Keyword::Set},          {"open", Keyword::Open},
    {"get", Keyword::Get},        {"print", Keyword::Print},      {"call", Keyword::Call},
    {"to", Keyword::To},          {"and", Keyword::And},          {"or", Keyword::Or},
    {"xor", Keyword::Xor},        {"not", Keyword::Not},          {"load", Keyword::Load},
    {"unload", Keyword::Unload},  {"end", Keyword::End},          {"else", Keyword::Other},
    {"select", Keyword::Other},   {"do", Keyword::Other},         {"loop", Keyword::Other},
    {"resume", Keyword::Other},   {"next", Keyword::Other},       {"exit", Keyword::Other},
    {"dim", Keyword::Other},      {"redim", Keyword::Other},      {"preserve", Keyword::Other},
    {"goto", Keyword::Other},     {"raiseevent", Keyword::Other}, {"sub", Keyword::Other},
    {"function", Keyword::Other}, {"property", Keyword::Other},   {"let", Keyword::Other},
    {"true", Keyword::Other},     {"false", Keyword::Other},      {"nothing", Keyword::Other},
    {"is", Keyword::Other},       {"each", Keyword::Other},       {"step", Keyword::Other},
    {"input", Keyword::Other},    {"output", Keyword::Other},
};

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

void NumberKeywords(Names& names) {
    for (const auto& [word, keyword] : kKeywords)
        names.Intern(word).SetTag(static_cast<std::uint8_t>(keyword));
}

bool IsNumericAtAll(std::string_view word) {
    if (!word.empty() && (word[0] == '+' || word[0] == '-'))
        word.remove_prefix(1);
    if (word.size() > 2 && word[0] == '&' && (word[1] == 'h' || word[1] == 'o')) {
        for (const char c : word.substr(2))
            if (!IsDigit(c) && !(word[1] == 'h' && c >= 'a' && c <= 'f'))
                return false;
        return true;
    }
    std::size_t digits = 0;
    std::size_t at = 0;
    for (bool point = false; at < word.size() && (IsDigit(word[at]) || (word[at] == '.' && !point)); ++at) {
        point |= word[at] == '.';
        digits += IsDigit(word[at]);
    }
    if (digits == 0)
        return false;
    if (at < word.size() && (word[at] == 'e' || word[at] == 'd')) {
        ++at;
        if (at < word.size() && (word[at] == '+' || word[at] == '-'))
            ++at;
        const std::size_t exponent = at;
        while (at < word.size() && IsDigit(word[at]))
            ++at;
        if (at == exponent)
            return false;
    }
    return at == word.size();
}
