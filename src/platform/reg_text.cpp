#include "platform/reg_text.h"

#include <algorithm>
#include <charconv>

#include "platform/ascii.h"
#include "platform/unicode.h"

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string_view TakeLine(std::string_view& rest) {
    const std::size_t end = std::min(rest.find(kLineEnd), rest.size());
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(std::min(end + kLineEnd.size(), rest.size()));
    return line;
}

// The number of up to `digits` digits at the start of `text`, which are removed; nothing if there is none.
std::optional<unsigned> TakeNumber(std::string_view& text, std::size_t digits, int base) {
    unsigned number = 0;
    const char* const end = text.data() + std::min(digits, text.size());
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    if (error != std::errc())
        return {};
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return number;
}

// Decodes what follows a "\" and removes it.
void AppendWineEscape(std::string& into, std::string_view& rest) {
    constexpr std::string_view kLetters = "abefnrtv";
    constexpr std::string_view kMeanings = "\a\b\x1b\f\n\r\t\v";
    const char letter = rest.front();
    if (letter >= '0' && letter <= '7') {
        AppendUtf8(into, TakeNumber(rest, 3, 8).value_or(0));
        return;
    }
    rest.remove_prefix(1);
    if (letter == 'x')
        AppendUtf8(into, TakeNumber(rest, 4, 16).value_or('x'));
    else if (const std::size_t nr = kLetters.find(letter); nr != std::string_view::npos)
        into += kMeanings[nr];
    else
        into += letter;
}

// An editor escapes "\" and quotes; the one of Wine also line ends and NUL.
void AppendEditorEscape(std::string& into, std::string_view& rest) {
    const char letter = rest.front();
    rest.remove_prefix(1);
    if (letter == '\\' || letter == '"')
        into += letter;
    else if (letter == 'n' || letter == 'r' || letter == '0')
        into += letter == 'n' ? '\n' : letter == 'r' ? '\r' : '\0';
    else
        into.append(1, '\\').append(1, letter);
}

// Decodes `rest` up to the character `end`, which is removed as well, or up to its own end.
std::string TakeEscaped(std::string_view& rest, char end, RegFormat format) {
    std::string text;
    while (!rest.empty()) {
        const auto stop = std::find_if(rest.begin(), rest.end(), [end](char c) { return c == '\\' || c == end; });
        const auto plain = static_cast<std::size_t>(stop - rest.begin());
        text.append(rest.substr(0, plain));
        rest.remove_prefix(plain);
        if (rest.empty())
            break;
        const char c = rest.front();
        rest.remove_prefix(1);
        if (c == end)
            break;
        if (rest.empty())
            break;
        if (format == RegFormat::Wine)
            AppendWineEscape(text, rest);
        else
            AppendEditorEscape(text, rest);
    }
    return text;
}

// Position after the quoted text that begins at `at`, which holds the opening quote.
std::size_t AfterQuoted(std::string_view text, std::size_t at) {
    ++at;
    while (at < text.size()) {
        at = text.find_first_of("\\\"", at);
        if (at == std::string_view::npos)
            break;
        if (text[at] == '"')
            return at + 1;
        at += 2;  // with the escaped character
    }
    return text.size();
}

// Whether an odd number of "\" is before a character.
bool IsEscaped(std::string_view text, std::size_t at) {
    std::size_t from = at;
    while (from > 0 && text[from - 1] == '\\')
        --from;
    return (at - from) % 2 == 1;
}

// The path in a key line of Wine, "[Software\\Classes] 1795243313", or of an editor, "[HKEY_CLASSES_ROOT\CLSID]".
void SetKey(RegKey& key, std::string_view line, RegFormat format) {
    line.remove_prefix(1);
    key.isDeletion = false;
    if (format == RegFormat::Wine) {
        std::size_t end = line.find(']');
        while (end != std::string_view::npos && IsEscaped(line, end))
            end = line.find(']', end + 1);
        key.path = line.substr(0, end);
        return;
    }
    // A key can contain brackets: the last one ends it.
    line = line.substr(0, line.rfind(']'));
    key.isDeletion = line.starts_with('-');
    key.path = line.substr(key.isDeletion ? 1 : 0);
}

std::string FromUtf16(std::string_view bytes) {
    std::string text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
        AppendUtf8(text, static_cast<char32_t>(static_cast<unsigned char>(bytes[at]) |
                                               static_cast<unsigned char>(bytes[at + 1]) << 8));
    return text;
}

// "43,00,3a,\", continued on the next line after blanks.
std::string TakeHexBytes(std::string_view& rest) {
    std::string bytes;
    while (!rest.empty()) {
        if (const std::optional<unsigned> byte = TakeNumber(rest, 2, 16)) {
            bytes += static_cast<char>(*byte);
            continue;
        }
        if (rest.starts_with("\\\r\n"))
            rest.remove_prefix(3);
        else if (rest.front() == ',' || ascii::IsBlank(rest.front()))
            rest.remove_prefix(1);
        else
            break;
    }
    return bytes;
}

// The number in "(2):" and the like, or `usual` for ":" alone; nothing if neither follows.
std::optional<unsigned> TakeType(std::string_view& rest, unsigned usual) {
    if (rest.starts_with('(')) {
        rest.remove_prefix(1);
        const std::optional<unsigned> type = TakeNumber(rest, 8, 16);
        if (!type || !rest.starts_with("):"))
            return {};
        rest.remove_prefix(2);
        return type;
    }
    if (!rest.starts_with(':'))
        return {};
    rest.remove_prefix(1);
    return usual;
}

std::optional<std::string> TakeHexText(std::string_view& rest, RegFormat format) {
    constexpr unsigned kBinary = 3;
    const unsigned type = TakeType(rest, kBinary).value_or(0);
    const std::string bytes = TakeHexBytes(rest);
    if (type != 1 && type != 2 && type != 7)
        return {};
    return format == RegFormat::Editor4 ? bytes : FromUtf16(bytes);
}

std::optional<std::string> TakeData(std::string_view& rest, RegFormat format) {
    const auto take = [&rest](std::string_view word) {
        const bool follows = ascii::SameText(rest.substr(0, word.size()), word);
        if (follows)
            rest.remove_prefix(word.size());
        return follows;
    };
    if (take("dword:")) {
        const std::optional<unsigned> number = TakeNumber(rest, 8, 16);
        return number ? std::optional(std::to_string(*number)) : std::nullopt;
    }
    if (take("hex"))
        return TakeHexText(rest, format);
    if (take("str") && !TakeType(rest, 1))
        return {};
    if (!rest.starts_with('"'))
        return {};
    rest.remove_prefix(1);
    return TakeEscaped(rest, '"', format);
}

}  // namespace

std::string DecodedPath(const RegKey& key, RegFormat format) {
    if (format != RegFormat::Wine)
        return std::string(key.path);
    std::string path;
    for (std::string_view rest = key.path; !rest.empty();) {
        if (rest.starts_with("\\\\")) {  // by far the most frequent escape
            path += '\\';
            rest.remove_prefix(2);
        } else if (rest.front() == '\\' && rest.size() > 1) {
            rest.remove_prefix(1);
            AppendWineEscape(path, rest);
        } else {
            path += rest.front();
            rest.remove_prefix(1);
        }
    }
    return path;
}

RegFormat RegFormatOf(std::string_view text) {
    const std::string_view line = ascii::TrimRight(TakeLine(text));
    if (line == "WINE REGISTRY Version 2")
        return RegFormat::Wine;
    if (line == "REGEDIT4")
        return RegFormat::Editor4;
    return line == "Windows Registry Editor Version 5.00" ? RegFormat::Editor5 : RegFormat::None;
}

// In a text of an editor a line that begins with "[" can be part of a quoted value.
std::size_t RegKeys::EndOfValues(std::size_t at) const {
    if (format_ == RegFormat::Wine) {
        if (text_.substr(at).starts_with('['))
            return at;
        const std::size_t end = text_.find("\r\n[", at);
        return end == std::string_view::npos ? text_.size() : end + kLineEnd.size();
    }
    while (at < text_.size() && text_[at] != '[') {
        if (text_[at] == '"')
            at = AfterQuoted(text_, at);
        else if (text_[at] == '@')
            ++at;
        if (at < text_.size() && text_[at] == '=' && at + 1 < text_.size() && text_[at + 1] == '"')
            at = AfterQuoted(text_, at + 1);
        const std::size_t end = text_.find(kLineEnd, at);
        at = end == std::string_view::npos ? text_.size() : end + kLineEnd.size();
    }
    return at;
}

bool RegKeys::Next(RegKey& key) {
    at_ = EndOfValues(at_);
    if (at_ >= text_.size())
        return false;
    key.begin = at_;
    std::string_view rest = text_.substr(at_);
    SetKey(key, TakeLine(rest), format_);
    const std::size_t values = text_.size() - rest.size();
    at_ = EndOfValues(values);
    key.values = text_.substr(values, at_ - values);
    return true;
}

bool RegValues::Next(RegValue& value) {
    while (!rest_.empty()) {
        value.name.clear();
        bool isValue = true;
        if (rest_.starts_with('"')) {
            rest_.remove_prefix(1);
            value.name = TakeEscaped(rest_, '"', format_);
        } else if (rest_.starts_with('@')) {
            rest_.remove_prefix(1);
        } else {
            isValue = false;
        }
        isValue = isValue && rest_.starts_with('=');
        if (isValue) {
            rest_.remove_prefix(1);
            value.text = TakeData(rest_, format_);
            if (value.text)
                value.text->resize(std::min(value.text->find('\0'), value.text->size()));
        }
        TakeLine(rest_);
        if (isValue)
            return true;
    }
    return false;
}
