// Code pages: how bytes of a source become lower case, and how they become UTF-8 at the edge of the program.
// The tables come from the system's iconv. Inside the analysis a byte is a character.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

class CodePage {
public:
    /// "auto": texts that are valid UTF-8 with bytes above 127 are shown as UTF-8, all others as Windows-1252.
    /// Lower case is always that of Windows-1252, as a single byte does not tell which text it is from.
    CodePage();
    /// `setting` is "auto" or a number such as "1251" or "932"; anything else, or a page that the system
    /// does not know, gives "auto".
    explicit CodePage(std::string_view setting);

    /// The setting in force: "auto" or the number.
    [[nodiscard]] const std::string& Setting() const { return setting_; }

    /// Lower case of one byte. Multi-byte pages change ASCII letters only, so lengths always stay.
    [[nodiscard]] unsigned char Lower(unsigned char c) const { return lower_[c]; }
    [[nodiscard]] const std::array<unsigned char, 256>& LowerTable() const { return lower_; }
    /// Lower case of a text, of the same length.
    [[nodiscard]] std::string LowerCase(std::string_view text) const;
    /// The same into a buffer of text.size() bytes, which may be `text` itself.
    void LowerCase(std::string_view text, char* into) const;

    /// UTF-8 of `bytes`; a byte that the page does not know becomes U+FFFD. Always valid UTF-8.
    [[nodiscard]] std::string ToUtf8(std::string_view bytes) const;
    /// Bytes in this page of a UTF-8 text; what the page cannot say becomes "?". In "auto" a text that
    /// Windows-1252 cannot say whole stays UTF-8.
    [[nodiscard]] std::string FromUtf8(std::string_view utf8) const;
    /// The same, or nothing when the page cannot say the whole text. "auto" also refuses a text whose bytes
    /// would then be taken for UTF-8.
    [[nodiscard]] std::optional<std::string> FromUtf8Whole(std::string_view utf8) const;

    /// True for a byte that begins a double-byte character; such a character may end in "\".
    [[nodiscard]] bool IsLeadByte(unsigned char c) const { return isLead_[c]; }

private:
    struct Tables;
    enum class Kind { Auto, SingleByte, DoubleByte, Utf8 };

    std::string setting_ = "auto";
    Kind kind_ = Kind::Auto;
    const Tables* tables_;  // built once a page, for good
    std::array<unsigned char, 256> lower_{};
    std::array<bool, 256> isLead_{};
};

/// True for well-formed UTF-8 (no overlong forms, no surrogates), pure ASCII included.
[[nodiscard]] bool IsValidUtf8(std::string_view text);

/// The page in force for the whole program. Changing it does not touch texts that were read before.
[[nodiscard]] const CodePage& ActiveCodePage();
void SetActiveCodePage(CodePage page);

/// Lower case by the page in force.
[[nodiscard]] std::string LowerCase(std::string_view text);
