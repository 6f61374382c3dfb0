// The numbered texts of the user interface: one plain file a language, one text a line.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"
#include "shell/text_numbers.h"

class clsText {
public:
    std::string Language = "english";  // "english" or "german"

    /// Reads Languages\<Language>.txt below `programDirectory` (which ends with its separator). An empty
    /// Language becomes "english". A missing file leaves the old table; a shorter file leaves its tail.
    void SetLanguage(const Files& files, const std::string& programDirectory);

    /// In the bytes of the file; an empty text when the file has no such line.
    [[nodiscard]] const std::string& TextNr(Text text) const;

private:
    std::vector<std::string> lines_{std::string()};  // row 0 stays empty
};

extern clsText gText;

/// UTF-8 of a text of the language file, which is Windows-1252 whatever the code page of the sources is.
[[nodiscard]] std::string Utf8TextNr(Text text);
