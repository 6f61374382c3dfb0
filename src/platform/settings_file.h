// A sectioned key=value file in the classic form. Values are texts; section names and keys are compared
// without regard to case, the first of several equal keys counts. Writing keeps comments, unknown keys,
// their order and spelling.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

class SettingsFile {
public:
    /// Nothing is read or written before the first call that needs it. `files` must outlive this object.
    SettingsFile(Files& files, std::string path);

    /// Value of a key, trimmed of blanks and of one pair of surrounding quotes, and cut to `maxLength`
    /// characters; `fallback` when section or key is absent. An unreadable file counts as empty.
    [[nodiscard]] std::string ReadString(std::string_view section, std::string_view key, std::string_view fallback,
                                         std::size_t maxLength = 256);
    /// Changes or adds a key in memory; Save writes it out. Line breaks in `value` become blanks.
    void WriteString(std::string_view section, std::string_view key, std::string_view value);
    /// Writes the whole file, with the line ends it had. Returns false when that failed; the old file then still
    /// stands. A file that is there and could not be read is not overwritten.
    bool Save();

    [[nodiscard]] const std::string& Path() const { return path_; }

private:
    void Load();
    [[nodiscard]] std::size_t FindLine(std::string_view section, std::string_view key) const;

    Files& files_;
    std::string path_;
    bool loaded_ = false;
    FileError loadError_ = FileError::None;
    std::string_view lineEnd_ = "\r\n";
    std::vector<std::string> lines_;
};

/// Where the settings file `fileName` belongs: beside the program when that directory can be written to,
/// else in the user's configuration directory, which is created when needed.
/// @param programDirectory  directory of the running program, with or without a trailing separator
[[nodiscard]] std::string SettingsPath(std::string_view programDirectory, std::string_view fileName);

/// The leading number of a text with "," taken for ".": "10,5" gives 10.5, "x" and "" give 0.
[[nodiscard]] double LeadingNumber(std::string_view text);
