// The numbered texts of the user interface: one plain file per language, one text per line.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "shell/text_numbers.h"

class clsText {
public:
    std::string Language = "english";  // "english" or "german"

    /// Reads Languages\<Language>.txt below `programDirectory` (which ends with its separator). An empty Language
    /// becomes "english". A missing file leaves the former texts; a shorter file leaves the former texts after its last
    /// line.
    void SetLanguage(const Files& files, const std::string& programDirectory);

    /// In the encoding of the file, Windows-1252; an empty text if the file has no such line.
    [[nodiscard]] const std::string& TextNr(Text text) const;

private:
    std::vector<std::string> lines_{std::string()};  // row 0 stays empty
};

extern clsText gText;

/// UTF-8 of a text of the language file, which is Windows-1252 whatever the code page of the sources is.
[[nodiscard]] std::string Utf8TextNr(Text text);

/// A text with these parts in the places of its "%1", "%2" and so on. What a part contains is not filled again.
[[nodiscard]] std::string Filled(std::string_view text, std::initializer_list<std::string_view> parts);
/// The same with a text of the language file, in UTF-8.
[[nodiscard]] std::string Filled(Text text, std::initializer_list<std::string_view> parts);
