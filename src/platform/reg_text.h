// Reads the text of a registry file: one of a Wine prefix (system.reg, user.reg) or one that a registry editor has
// exported. Nothing is kept but the text; keys and values are decoded when they are asked for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

enum class RegFormat : std::uint8_t { None, Wine, Editor4, Editor5 };

/// By the first line of the text.
[[nodiscard]] RegFormat RegFormatOf(std::string_view text);

struct RegKey {
    std::string_view path;    // as the text spells it, with the escapes of Wine
    bool isDeletion = false;  // "[-key]": it goes with all below it
    std::size_t begin = 0;    // of its line
    std::string_view values;  // the lines that follow
};

struct RegValue {
    std::string name;                 // empty for the default value
    std::optional<std::string> text;  // nothing for a deletion and for types without a text; numbers in decimal; of
                                      // a list the first entry
};

/// The path of a key: names separated by "\", without escapes.
[[nodiscard]] std::string DecodedPath(const RegKey& key, RegFormat format);

/// Walks through the keys of a text with CR LF line ends.
class RegKeys {
public:
    /// `text` must outlive this object; it may also be a part of a text that begins at a key.
    RegKeys(std::string_view text, RegFormat format) : text_(text), format_(format) {}
    /// Moves on to the next key; false at the end.
    [[nodiscard]] bool Next(RegKey& key);

private:
    [[nodiscard]] std::size_t EndOfValues(std::size_t at) const;

    std::string_view text_;
    RegFormat format_;
    std::size_t at_ = 0;
};

/// Walks through the values of a key. Lines that are none, such as comments and damaged ones, are skipped.
class RegValues {
public:
    RegValues(std::string_view lines, RegFormat format) : rest_(lines), format_(format) {}
    [[nodiscard]] bool Next(RegValue& value);

private:
    std::string_view rest_;
    RegFormat format_;
};
