// Where the program's files come from. A path may hold "\" or "/", "..", any letter case and bytes of the
// active code page; this is the only place that knows how such a path meets the real file system.
// Texts come back as bytes with CR LF at every line end, whatever the file had.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

enum class FileError { None, NotFound, IsDirectory, NotReadable, TooLarge, NotWritable };

/// One plain English sentence for people, such as "The file does not exist.".
[[nodiscard]] std::string_view Describe(FileError error);

/// Time of the last change, in nanoseconds since 1970; 0 when it is not known.
using FileTime = std::int64_t;

struct FileText {
    std::string text;  // bytes, every line end CR LF; a byte order mark is taken off
    FileTime dateLastModified = 0;
    FileError error = FileError::None;  // anything but None leaves `text` empty
    bool convertedFromUtf16 = false;    // the file had a UTF-16 mark; `text` is UTF-8 or the active code page
    bool hadOnlyLineFeeds = false;      // every line of the file ended in a lone LF
};

// What does not change the files may be asked on several threads at a time.
class Files {
public:
    virtual ~Files() = default;

    /// True for an existing regular file; a directory is no file.
    [[nodiscard]] virtual bool FileExists(std::string_view path) const = 0;
    /// Reads a whole text file.
    [[nodiscard]] virtual FileText ReadText(std::string_view path) const = 0;
    /// Time of the last change, or 0.
    [[nodiscard]] virtual FileTime DateLastModified(std::string_view path) const = 0;
    /// Replaces the file by `bytes` as they stand: written beside it under another name and renamed, so that
    /// a crash never leaves half a file. Creates the file, not its directory.
    virtual FileError WriteWhole(std::string_view path, std::string_view bytes) = 0;
    /// Appends `bytes` to an existing file; NotFound when there is none.
    virtual FileError Append(std::string_view path, std::string_view bytes) = 0;
    /// Creates the directory and its parents; None when it stands already.
    virtual FileError MakeDirectory(std::string_view path) = 0;
    /// The path as the operating system spells it, with the letter case found on disk; parts that do not
    /// exist stay as given, with the system's separator.
    [[nodiscard]] virtual std::string SystemPath(std::string_view path) const = 0;
};

/// The files of this machine.
class DiskFiles final : public Files {
public:
    DiskFiles();
    ~DiskFiles() override;
    [[nodiscard]] bool FileExists(std::string_view path) const override;
    [[nodiscard]] FileText ReadText(std::string_view path) const override;
    [[nodiscard]] FileTime DateLastModified(std::string_view path) const override;
    FileError WriteWhole(std::string_view path, std::string_view bytes) override;
    FileError Append(std::string_view path, std::string_view bytes) override;
    FileError MakeDirectory(std::string_view path) override;
    [[nodiscard]] std::string SystemPath(std::string_view path) const override;

private:
    struct Directories;  // listings read so far, for paths whose letter case is not the disk's
    std::unique_ptr<Directories> directories_;
};

/// Files held in memory, for tests; paths are matched without regard to case and kind of separator.
class MemoryFiles final : public Files {
public:
    MemoryFiles() = default;
    MemoryFiles(std::initializer_list<std::pair<const std::string, std::string>> files);
    [[nodiscard]] bool FileExists(std::string_view path) const override;
    [[nodiscard]] FileText ReadText(std::string_view path) const override;
    [[nodiscard]] FileTime DateLastModified(std::string_view path) const override;
    FileError WriteWhole(std::string_view path, std::string_view bytes) override;
    FileError Append(std::string_view path, std::string_view bytes) override;
    FileError MakeDirectory(std::string_view path) override;
    [[nodiscard]] std::string SystemPath(std::string_view path) const override;

    /// The bytes of a file as they stand, or an empty text.
    [[nodiscard]] std::string Bytes(std::string_view path) const;

private:
    struct Entry {
        std::string path;  // as first spelled, with "/"
        std::string bytes;
        FileTime changed = 0;
    };
    std::map<std::string, Entry> files_;  // by path in lower case, without ".."
    FileTime clock_ = 0;                  // steps with each write
    [[nodiscard]] bool IsDirectory(std::string_view path) const;
};
