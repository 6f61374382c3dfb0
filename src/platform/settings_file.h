// A classic INI file with sections of key=value lines. All values are texts. Section names and keys are compared
// without regard to case, and the first of several equal keys counts. Writing keeps comments, unknown keys, and their
// order and spelling.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

class SettingsFile {
public:
    /// Neither reads nor writes before the first call that needs the file. `files` must outlive this object.
    SettingsFile(Files& files, std::string path);

    /// Value of a key without surrounding blanks and one pair of surrounding quotes, cut to `maxLength` characters;
    /// `fallback` if the section or the key does not exist. An unreadable file counts as empty.
    [[nodiscard]] std::string ReadString(std::string_view section, std::string_view key, std::string_view fallback,
                                         std::size_t maxLength = 256);
    /// Changes or adds a key in memory; Save writes the file. Line breaks in `value` become blanks.
    void WriteString(std::string_view section, std::string_view key, std::string_view value);
    /// Writes the whole file with its former line ends. Returns false on failure, which leaves the old file unchanged.
    /// An existing file that could not be read is not overwritten.
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

/// The path of the settings file `fileName`: beside the program if that directory is writable, otherwise in the user's
/// configuration directory, which is created if needed.
/// @param programDirectory  directory of the running program, with or without a trailing separator
[[nodiscard]] std::string SettingsPath(std::string_view programDirectory, std::string_view fileName);

/// The leading number of a text; "," is read as ".": "10,5" gives 10.5, "x" and "" give 0.
[[nodiscard]] double LeadingNumber(std::string_view text);
