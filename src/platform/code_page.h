// Code pages: lower-case conversion of source bytes, and conversion between source bytes and UTF-8. The tables come
// from the system's iconv. Inside the analysis one byte is one character.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

class CodePage {
public:
    /// "auto": a text that is valid UTF-8 and has bytes above 127 is shown as UTF-8, any other as Windows-1252. Lower
    /// case always follows Windows-1252, because one byte alone does not show its encoding.
    CodePage();
    /// `setting` is "auto" or a number such as "1251" or "932". Any other text, and a page that the system does not
    /// know, selects "auto".
    explicit CodePage(std::string_view setting);

    /// The page "auto", which lasts as long as the program.
    [[nodiscard]] static const CodePage& Auto();

    /// The setting: "auto" or the number.
    [[nodiscard]] const std::string& Setting() const { return setting_; }

    /// Lower case of one byte. In multi-byte pages only ASCII letters change, so the length of a text never does.
    [[nodiscard]] unsigned char Lower(unsigned char c) const { return lower_[c]; }
    [[nodiscard]] const std::array<unsigned char, 256>& LowerTable() const { return lower_; }
    /// Lower case of a text; the length is unchanged.
    [[nodiscard]] std::string LowerCase(std::string_view text) const;
    /// Same, written to a buffer of text.size() bytes, which may be `text` itself.
    void LowerCase(std::string_view text, char* into) const;

    /// Converts `bytes` to UTF-8; a byte that the page does not define becomes U+FFFD. The result is always valid
    /// UTF-8.
    [[nodiscard]] std::string ToUtf8(std::string_view bytes) const;
    /// Converts a UTF-8 text to bytes of this page; a character that the page lacks becomes "?". With "auto", a text
    /// that Windows-1252 cannot represent completely stays UTF-8.
    [[nodiscard]] std::string FromUtf8(std::string_view utf8) const;
    /// Same, or nothing if the page cannot represent the whole text. "auto" also rejects a text whose bytes would later
    /// be read as UTF-8.
    [[nodiscard]] std::optional<std::string> FromUtf8Whole(std::string_view utf8) const;

    /// True for a byte that begins a double-byte character. The second byte of such a character may be "\".
    [[nodiscard]] bool IsLeadByte(unsigned char c) const { return isLead_[c]; }

private:
    struct Tables;
    enum class Kind { Auto, SingleByte, DoubleByte, Utf8 };

    std::string setting_ = "auto";
    Kind kind_ = Kind::Auto;
    const Tables* tables_;  // created once per page, never freed
    std::array<unsigned char, 256> lower_{};
    std::array<bool, 256> isLead_{};
};

/// A page in which sources are written, with the name that users know it by.
struct CodePageName {
    std::string_view number;  // as CodePage takes it
    std::string_view name;    // "Windows-1251"
};
/// The pages of Windows in which Visual Basic saves, the most common first.
[[nodiscard]] std::span<const CodePageName> SupportedCodePages();
/// The name of a page; for any other than the supported ones the number.
[[nodiscard]] std::string_view NameOfCodePage(std::string_view number);
/// The setting for a name from a user: "auto", a number, or a name such as "windows-1256", "cp1256", "UTF-8" or
/// "Shift-JIS". Nothing for a page that does not exist on this system.
[[nodiscard]] std::optional<std::string> CodePageNamed(std::string_view name);

/// True for well-formed UTF-8 (no overlong forms, no surrogates); pure ASCII is well-formed.
[[nodiscard]] bool IsValidUtf8(std::string_view text);

/// The active page of the whole program: for texts of no project, and for whatever the window and the console show of
/// the open one. Changing it does not affect texts that were read before.
[[nodiscard]] const CodePage& ActiveCodePage();
void SetActiveCodePage(CodePage page);

/// Lower case in the active page.
[[nodiscard]] std::string LowerCase(std::string_view text);
