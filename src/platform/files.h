// Access to files. A path may use "\" or "/", "..", any letter case and bytes of a code page; only this module maps
// such a path to the real file system. A name of bytes above 127 is looked for in the active page, then in all others.
// Texts are returned as bytes with CR LF at every line end, whatever the file contains.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

enum class FileError { None, NotFound, IsDirectory, NoPermission, NotReadable, TooLarge, NoSpace, NotWritable };

/// A plain English sentence to show to users, such as "The file does not exist.".
[[nodiscard]] std::string_view Describe(FileError error);

/// Time of the last change in nanoseconds since 1970; 0 if unknown.
using FileTime = std::int64_t;

struct FileText {
    std::string text;  // bytes, every line end CR LF, without the byte order mark
    FileTime dateLastModified = 0;
    FileError error = FileError::None;  // any value but None leaves `text` empty
    bool convertedFromUtf16 = false;    // the file had a UTF-16 mark; `text` is UTF-8 or in the active code page
    bool hadOnlyLineFeeds = false;      // every line of the file ended in a lone LF
};

struct FileBytes {
    std::string bytes;
    FileError error = FileError::None;  // any value but None leaves `bytes` empty
};

// The const functions may be called from several threads at once.
class Files {
public:
    virtual ~Files() = default;

    /// True for an existing regular file, false for a directory.
    [[nodiscard]] virtual bool FileExists(std::string_view path) const = 0;
    /// Reads a whole text file.
    [[nodiscard]] virtual FileText ReadText(std::string_view path) const = 0;
    /// Reads a whole file as it is. A file of more than `most` bytes is not read: it is TooLarge.
    [[nodiscard]] virtual FileBytes ReadBytes(std::string_view path, std::size_t most) const = 0;
    /// Reads `length` bytes from a position on, or as many as there are.
    [[nodiscard]] virtual FileBytes ReadStretch(std::string_view path, std::size_t from, std::size_t length) const;
    /// Time of the last change, or 0.
    [[nodiscard]] virtual FileTime DateLastModified(std::string_view path) const = 0;
    /// Replaces the content of the file by `bytes`. Writes a temporary file beside it and renames that, so that a crash
    /// never leaves half a file. Creates the file, but not its directory.
    virtual FileError WriteWhole(std::string_view path, std::string_view bytes) = 0;
    /// Appends `bytes` to an existing file; returns NotFound if the file does not exist.
    virtual FileError Append(std::string_view path, std::string_view bytes) = 0;
    /// Creates the directory and its parents; returns None if the directory exists already.
    virtual FileError MakeDirectory(std::string_view path) = 0;
    /// Names of the files and directories in a directory, in no order; none if it does not exist.
    [[nodiscard]] virtual std::vector<std::string> NamesIn(std::string_view directory) const = 0;
    /// The path as the operating system spells it, with the letter case found on disk. Parts that do not exist keep
    /// their spelling, with the system's separator.
    [[nodiscard]] virtual std::string SystemPath(std::string_view path) const = 0;
};

/// The files of this machine.
class DiskFiles final : public Files {
public:
    DiskFiles();
    ~DiskFiles() override;
    [[nodiscard]] bool FileExists(std::string_view path) const override;
    [[nodiscard]] FileText ReadText(std::string_view path) const override;
    [[nodiscard]] FileBytes ReadBytes(std::string_view path, std::size_t most) const override;
    [[nodiscard]] FileBytes ReadStretch(std::string_view path, std::size_t from, std::size_t length) const override;
    [[nodiscard]] FileTime DateLastModified(std::string_view path) const override;
    FileError WriteWhole(std::string_view path, std::string_view bytes) override;
    FileError Append(std::string_view path, std::string_view bytes) override;
    FileError MakeDirectory(std::string_view path) override;
    [[nodiscard]] std::vector<std::string> NamesIn(std::string_view directory) const override;
    [[nodiscard]] std::string SystemPath(std::string_view path) const override;

private:
    [[nodiscard]] FileBytes ReadPart(std::string_view path, std::size_t most, std::size_t from,
                                     std::size_t length) const;

    struct Directories;  // cached listings, for paths whose letter case differs from the disk's
    std::unique_ptr<Directories> directories_;
};

/// Files in memory, for tests; paths match without regard to letter case and kind of separator.
class MemoryFiles : public Files {
public:
    MemoryFiles() = default;
    MemoryFiles(std::initializer_list<std::pair<const std::string, std::string>> files);
    [[nodiscard]] bool FileExists(std::string_view path) const override;
    [[nodiscard]] FileText ReadText(std::string_view path) const override;
    [[nodiscard]] FileBytes ReadBytes(std::string_view path, std::size_t most) const override;
    [[nodiscard]] FileTime DateLastModified(std::string_view path) const override;
    FileError WriteWhole(std::string_view path, std::string_view bytes) override;
    FileError Append(std::string_view path, std::string_view bytes) override;
    FileError MakeDirectory(std::string_view path) override;
    [[nodiscard]] std::vector<std::string> NamesIn(std::string_view directory) const override;
    [[nodiscard]] std::string SystemPath(std::string_view path) const override;

    void Remove(std::string_view path);
    /// The bytes of a file, or an empty text if it does not exist.
    [[nodiscard]] std::string Bytes(std::string_view path) const;

private:
    struct Entry {
        std::string path;  // as spelled first, with "/"
        std::string bytes;
        FileTime changed = 0;
    };
    std::map<std::string, Entry> files_;  // by path in lower case, with ".." resolved
    FileTime clock_ = 0;                  // advances with each write
    [[nodiscard]] const Entry* Find(std::string_view path) const;
    [[nodiscard]] bool IsDirectory(std::string_view path) const;
};
