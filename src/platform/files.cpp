#include "platform/files.h"
#include "platform/path_names.h"
#include "platform/text_bytes.h"

#include <algorithm>
#include <limits>

std::string_view Describe(FileError error) {
    switch (error) {
        case FileError::None:
            return "";
        case FileError::NotFound:
            return "The file does not exist.";
        case FileError::IsDirectory:
            return "This is a directory, not a file.";
        case FileError::NoPermission:
            return "Permission is denied.";
        case FileError::NotReadable:
            return "The file cannot be read.";
        case FileError::TooLarge:
            return "The file is too large: texts are limited to one gigabyte.";
        case FileError::NoSpace:
            return "No space is left on the disk.";
        case FileError::NotWritable:
            return "The file cannot be written.";
    }
    return "";
}

namespace {
/// A path that ends in "/" keeps it in its key; no file has such a key.
std::string KeyOf(std::string_view path) {
    const std::string spelled = WithSlashes(path);
    std::string key = NameKey(JoinPath(WithoutParents(SplitPath(spelled))));
    if (spelled.ends_with('/') && !key.ends_with('/'))
        key += '/';
    return key;
}
}  // namespace

MemoryFiles::MemoryFiles(std::initializer_list<std::pair<const std::string, std::string>> files) {
    for (const auto& [path, bytes] : files)
        WriteWhole(path, bytes);
}

const MemoryFiles::Entry* MemoryFiles::Find(std::string_view path) const {
    if (const auto found = files_.find(KeyOf(path)); found != files_.end())
        return &found->second;
    for (const PathParts& parts : PartsInOtherPages(path))
        if (const auto found = files_.find(NameKey(JoinPath(parts))); found != files_.end())
            return &found->second;
    return nullptr;
}

bool MemoryFiles::FileExists(std::string_view path) const {
    return Find(path) != nullptr;
}

FileText MemoryFiles::ReadText(std::string_view path) const {
    FileText file;
    if (const Entry* found = Find(path)) {
        SetText(file, std::string_view(found->bytes));
        file.dateLastModified = found->changed;
    } else {
        file.error = IsDirectory(path) ? FileError::IsDirectory : FileError::NotFound;
    }
    return file;
}

FileBytes Files::ReadStretch(std::string_view path, std::size_t from, std::size_t length) const {
    FileBytes file = ReadBytes(path, std::numeric_limits<std::size_t>::max());
    file.bytes = file.bytes.substr(std::min(from, file.bytes.size()), length);
    return file;
}

FileBytes MemoryFiles::ReadBytes(std::string_view path, std::size_t most) const {
    const auto found = files_.find(KeyOf(path));
    if (found == files_.end())
        return {{}, IsDirectory(path) ? FileError::IsDirectory : FileError::NotFound};
    const std::string& bytes = found->second.bytes;
    return bytes.size() > most ? FileBytes{{}, FileError::TooLarge} : FileBytes{bytes, FileError::None};
}

FileTime MemoryFiles::DateLastModified(std::string_view path) const {
    const Entry* found = Find(path);
    return found ? found->changed : 0;
}

FileError MemoryFiles::WriteWhole(std::string_view path, std::string_view bytes) {
    if (IsDirectory(path))
        return FileError::IsDirectory;
    if (const std::string spelled = WithSlashes(path); spelled.empty() || spelled.ends_with('/'))
        return FileError::NotFound;
    Entry& entry = files_[KeyOf(path)];
    if (entry.path.empty())
        entry.path = WithSlashes(path);
    entry.bytes = bytes;
    entry.changed = ++clock_;
    return FileError::None;
}

FileError MemoryFiles::Append(std::string_view path, std::string_view bytes) {
    const auto found = files_.find(KeyOf(path));
    if (found == files_.end())
        return IsDirectory(path) ? FileError::IsDirectory : FileError::NotFound;
    found->second.bytes += bytes;
    found->second.changed = ++clock_;
    return FileError::None;
}

FileError MemoryFiles::MakeDirectory(std::string_view path) {
    return FileExists(path) ? FileError::NotWritable : FileError::None;
}

std::vector<std::string> MemoryFiles::NamesIn(std::string_view directory) const {
    std::string inside = KeyOf(directory);
    if (inside == ".")
        inside.clear();
    else if (!inside.ends_with('/'))
        inside += '/';
    std::vector<std::string> names;
    for (auto file = files_.lower_bound(inside); file != files_.end() && file->first.starts_with(inside); ++file) {
        std::string name = file->first.substr(inside.size());
        name.resize(std::min(name.find('/'), name.size()));
        if (names.empty() || names.back() != name)
            names.push_back(std::move(name));
    }
    return names;
}

std::string MemoryFiles::SystemPath(std::string_view path) const {
    const Entry* found = Find(path);
    return found ? found->path : WithSlashes(path);
}

void MemoryFiles::Remove(std::string_view path) {
    files_.erase(KeyOf(path));
}

std::string MemoryFiles::Bytes(std::string_view path) const {
    const Entry* found = Find(path);
    return found ? found->bytes : std::string();
}

bool MemoryFiles::IsDirectory(std::string_view path) const {
    std::string inside = KeyOf(path);
    if (!inside.ends_with('/'))
        inside += '/';
    const auto next = files_.lower_bound(inside);
    return next != files_.end() && next->first.starts_with(inside);
}
