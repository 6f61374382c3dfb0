#include "platform/settings_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <optional>
#include <utility>

#include "platform/ascii.h"

namespace {

/// The name in "[name]", or nothing if the line is not a section head.
std::optional<std::string_view> SectionOf(std::string_view line) {
    line = ascii::TrimLeft(line);
    const std::size_t end = line.find(']');
    if (!line.starts_with('[') || end == std::string_view::npos)
        return {};
    return ascii::Trim(line.substr(1, end - 1));
}

/// Splits "key = value"; nothing for comments and for lines without "=".
std::optional<std::pair<std::string_view, std::string_view>> KeyAndValueOf(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || ascii::TrimLeft(line).starts_with(';'))
        return {};
    return std::pair(ascii::Trim(line.substr(0, equals)), ascii::Trim(line.substr(equals + 1)));
}

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
}

}  // namespace

SettingsFile::SettingsFile(Files& files, std::string path) : files_(files), path_(std::move(path)) {}

void SettingsFile::Load() {
    if (std::exchange(loaded_, true))
        return;
    const FileText file = files_.ReadText(path_);
    loadError_ = file.error;
    if (file.hadOnlyLineFeeds)
        lineEnd_ = "\n";
    std::string_view rest = file.text;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find("\r\n"), rest.size());
        lines_.emplace_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 2, rest.size()));
    }
}

/// Index of the key's line in lines_, or lines_.size().
std::size_t SettingsFile::FindLine(std::string_view section, std::string_view key) const {
    bool isInside = false;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (const auto name = SectionOf(lines_[i])) {
            isInside = ascii::SameText(*name, section);
        } else if (isInside) {
            if (const auto entry = KeyAndValueOf(lines_[i]); entry && ascii::SameText(entry->first, key))
                return i;
        }
    }
    return lines_.size();
}

std::string SettingsFile::ReadString(std::string_view section, std::string_view key, std::string_view fallback,
                                     std::size_t maxLength) {
    Load();
    const std::size_t line = FindLine(section, key);
    if (line == lines_.size())
        return std::string(fallback);
    std::string_view value = KeyAndValueOf(lines_[line])->second;
    if (IsQuoted(value))
        value = ascii::Trim(value.substr(1, value.size() - 2));
    return std::string(ascii::TrimRight(value.substr(0, maxLength)));
}

void SettingsFile::WriteString(std::string_view section, std::string_view key, std::string_view value) {
    Load();
    std::string text(ascii::Trim(value));
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    if (IsQuoted(text))  // reading removes one pair of quotes
        text = '"' + text + '"';

    if (const std::size_t line = FindLine(section, key); line != lines_.size()) {
        const std::string head = lines_[line].substr(0, lines_[line].find('=') + 1);
        lines_[line] = head + text;
        return;
    }
    const std::string added = std::string(key) + '=' + text;
    const auto isSection = [&](const std::string& line) {
        const auto name = SectionOf(line);
        return name && ascii::SameText(*name, section);
    };
    auto place = std::find_if(lines_.begin(), lines_.end(), isSection);
    if (place == lines_.end()) {
        lines_.push_back('[' + std::string(section) + ']');
        lines_.push_back(added);
        return;
    }
    // At the end of the section, but before the blank lines that separate it from the next one.
    place = std::find_if(place + 1, lines_.end(), [](const std::string& line) { return SectionOf(line).has_value(); });
    while (ascii::Trim(*(place - 1)).empty())
        --place;
    lines_.insert(place, added);
}

bool SettingsFile::Save() {
    Load();
    if (loadError_ != FileError::None && loadError_ != FileError::NotFound)
        return false;
    std::string bytes;
    for (const std::string& line : lines_) {
        bytes += line;
        bytes += lineEnd_;
    }
    const FileError error = files_.WriteWhole(path_, bytes);
    if (error == FileError::None)
        loadError_ = error;
    return error == FileError::None;
}

std::string SettingsPath(std::string_view programDirectory, std::string_view fileName) {
    DiskFiles disk;
    while (programDirectory.size() > 1 && (programDirectory.back() == '/' || programDirectory.back() == '\\'))
        programDirectory.remove_suffix(1);
    const std::string beside = disk.SystemPath(programDirectory);
    const auto fileIn = [&](const std::string& directory) {
        return directory + (directory.ends_with('/') ? "" : "/") + std::string(fileName);
    };
    if (faccessat(AT_FDCWD, beside.c_str(), W_OK | X_OK, AT_EACCESS) == 0)
        return fileIn(beside);

    std::string configuration;
    if (const char* const given = std::getenv("XDG_CONFIG_HOME"); given && given[0] == '/')
        configuration = given;
    else if (const char* const home = std::getenv("HOME"); home && home[0] == '/')
        configuration = std::string(home) + "/.config";
    else
        return fileIn(beside);
    configuration += "/ostrivane";
    disk.MakeDirectory(configuration);
    return fileIn(configuration);
}

double LeadingNumber(std::string_view text) {
    std::string number(ascii::TrimLeft(text));
    std::replace(number.begin(), number.end(), ',', '.');
    const char* begin = number.c_str();
    if (*begin == '+')
        ++begin;
    // Rejects words such as "inf" and "nan".
    const char* const first = begin == number.c_str() && *begin == '-' ? begin + 1 : begin;
    double value = 0;
    if (ascii::IsDigit(first[0]) || (first[0] == '.' && ascii::IsDigit(first[1])))
        std::from_chars(begin, number.c_str() + number.size(), value);
    return value;
}
