// A path is first tried as spelled, with "/" for "\"; this takes one system call and nearly always succeeds. Otherwise
// each name of the path is looked up without regard to letter case in directory listings, which are cached. A listing
// is read again before a name is reported as missing, and if the file that it names no longer exists.

#include "platform/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <limits>
#include <mutex>
#include <optional>
#include <unordered_map>

#include "platform/path_names.h"
#include "platform/text_bytes.h"

namespace {

constexpr std::size_t kBufferBytes = std::size_t{256} * 1024;

class FileHandle {
public:
    FileHandle(const char* path, int flags, mode_t mode = 0)
        : number_(open(path, flags | O_CLOEXEC | O_NOCTTY, mode)) {}
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    ~FileHandle() {
        if (number_ >= 0)
            close(number_);
    }
    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    [[nodiscard]] int Number() const { return number_; }

    /// Closes the file before the destructor does; false if not all data was written.
    [[nodiscard]] bool Close() { return close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

bool MeansMissing(int error) {
    return error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG || error == ELOOP;
}

bool MeansForbidden(int error) {
    return error == EACCES || error == EPERM;
}

// Takes the status of a file that was opened for reading. Returns 0, or why it is not read.
int CheckForReading(const FileHandle& handle, std::uintmax_t most, struct stat& status) {
    if (!handle.IsOpen() || fstat(handle.Number(), &status) != 0)
        return errno;
    if (!S_ISREG(status.st_mode))
        return S_ISDIR(status.st_mode) ? EISDIR : EIO;
    return static_cast<std::uintmax_t>(status.st_size) > most ? EFBIG : 0;
}

// Without O_NONBLOCK, opening a pipe would wait for its writer.
constexpr int kReading = O_RDONLY | O_NONBLOCK;

FileError ReadErrorOf(int error) {
    if (MeansMissing(error))
        return FileError::NotFound;
    if (error == EISDIR)
        return FileError::IsDirectory;
    if (MeansForbidden(error))
        return FileError::NoPermission;
    return error == EFBIG || error == EOVERFLOW ? FileError::TooLarge : FileError::NotReadable;
}

FileError WriteErrorOf(int error) {
    if (error == EISDIR)
        return FileError::IsDirectory;
    if (MeansForbidden(error) || error == EROFS)
        return FileError::NoPermission;
    if (error == ENOSPC || error == EDQUOT)
        return FileError::NoSpace;
    return MeansMissing(error) ? FileError::NotFound : FileError::NotWritable;
}

FileTime TimeOf(const struct stat& status) {
    return FileTime{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
}

/// Reads until `size` bytes have arrived or the file ends. Returns the count, or nothing after an error.
/// @param expected  number of bytes that the file should still hold; if exactly that many arrive, the read that would
///                  only confirm the end of the file is skipped
std::optional<std::size_t> ReadUpTo(int file, char* into, std::size_t size, std::size_t expected) {
    std::size_t count = 0;
    while (count < size) {
        const std::size_t asked = size - count;
        const ssize_t got = read(file, into + count, asked);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return {};
        count += static_cast<std::size_t>(got);
        if (got == 0 || (count == expected && static_cast<std::size_t>(got) < asked))
            break;
    }
    return count;
}

bool WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool Exists(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0;
}

std::string Joined(const std::string& directory, std::string_view name) {
    std::string path = directory;
    if (!path.empty() && path.back() != '/')
        path += '/';
    return path += name;
}

}  // namespace

struct DiskFiles::Directories {
    struct Listing {
        std::unordered_map<std::string, std::string> names;  // spelled as on disk, by NameKey
        unsigned readIn = 0;                                 // the operation that read it
    };
    /// Which part of a path exists on this disk.
    struct Found {
        std::string path;         // the existing part, followed by the rest
        std::size_t missing = 0;  // number of names in the rest
    };

    std::mutex mutex;  // guards the listings
    std::unordered_map<std::string, Listing> listings;
    unsigned operation = 0;

    static void Read(const std::string& directory, Listing& listing);
    std::optional<std::string> NameOnDisk(const std::string& directory, const std::string& name);
    Found Walk(const PathParts& parts);
    Found Resolve(std::string_view path);

    /// Calls `attempt(systemPath)`, which returns 0 or an errno, with the path as spelled; if there is no such file,
    /// calls it again with the path found on disk.
    template <class Attempt>
    int Try(std::string_view path, const Attempt& attempt);
};

void DiskFiles::Directories::Read(const std::string& directory, Listing& listing) {
    listing.names.clear();
    DIR* const stream = opendir(directory.empty() ? "." : directory.c_str());
    if (!stream)
        return;
    while (const dirent* entry = readdir(stream)) {
        const std::string name = entry->d_name;
        // Of names that differ only in letter case the first in byte order is used, so the result does not depend on
        // the order of the directory.
        const auto [known, isNew] = listing.names.emplace(NameKey(name), name);
        if (!isNew && name < known->second)
            known->second = name;
    }
    closedir(stream);
}

std::optional<std::string> DiskFiles::Directories::NameOnDisk(const std::string& directory, const std::string& name) {
    const std::string key = NameKey(name);
    Listing& listing = listings[directory];
    auto found = listing.names.find(key);
    if (listing.readIn != operation) {
        if (found == listing.names.end() || !Exists(Joined(directory, found->second))) {
            Read(directory, listing);
            listing.readIn = operation;
            found = listing.names.find(key);
        }
    }
    if (found == listing.names.end())
        return {};
    return found->second;
}

DiskFiles::Directories::Found DiskFiles::Directories::Walk(const PathParts& parts) {
    // Most directories are spelled correctly, so the search for the longest existing path starts at the end.
    PathParts spelled = parts;
    while (!spelled.names.empty() && !Exists(JoinPath(spelled)))
        spelled.names.pop_back();
    Found found{spelled.names.empty() && !parts.isAbsolute ? "" : JoinPath(spelled), 0};

    for (std::size_t i = spelled.names.size(); i < parts.names.size(); ++i) {
        const std::string& name = parts.names[i];
        std::string next = Joined(found.path, name);
        if (found.missing == 0 && !Exists(next)) {
            if (const std::optional<std::string> onDisk = NameOnDisk(found.path, name))
                next = Joined(found.path, *onDisk);
            else
                found.missing = 1;
        } else if (found.missing > 0) {
            ++found.missing;
        }
        // A new file gets a UTF-8 name, which this system displays correctly.
        found.path = found.missing == 0 ? std::move(next) : Joined(found.path, NameInUtf8(name));
    }
    if (found.path.empty())
        found.path += '.';
    return found;
}

DiskFiles::Directories::Found DiskFiles::Directories::Resolve(std::string_view path) {
    const std::lock_guard lock(mutex);
    ++operation;
    const std::string spelled = WithSlashes(path);
    if (spelled.empty() || Exists(spelled))
        return {spelled, spelled.empty()};
    const PathParts asSpelled = SplitPath(path);
    Found best = Walk(asSpelled);
    // The name before ".." need not exist. If it is a link, ".." may refer to the parent of the link or of its target.
    for (const PathParts& parts : {WithoutParents(asSpelled), WithoutParents(SplitDoubleBytePath(path))}) {
        if (best.missing == 0)
            break;
        if (parts == asSpelled)
            continue;
        if (Found other = Walk(parts); other.missing < best.missing)
            best = std::move(other);
    }
    if (best.missing > 0)
        for (const PathParts& parts : PartsInOtherPages(path))
            if (Found other = Walk(parts); other.missing < best.missing)
                best = std::move(other);
    return best;
}

template <class Attempt>
int DiskFiles::Directories::Try(std::string_view path, const Attempt& attempt) {
    const std::string spelled = WithSlashes(path);
    const int error = attempt(spelled);
    if ((error != ENOENT && error != ENOTDIR) || spelled.ends_with('/'))
        return error;
    const Found found = Resolve(path);
    return found.missing == 0 ? attempt(found.path) : error;
}

DiskFiles::DiskFiles() : directories_(std::make_unique<Directories>()) {}

DiskFiles::~DiskFiles() = default;

bool DiskFiles::FileExists(std::string_view path) const {
    struct stat status {};
    const int error = directories_->Try(
        path, [&](const std::string& systemPath) { return stat(systemPath.c_str(), &status) == 0 ? 0 : errno; });
    return error == 0 && S_ISREG(status.st_mode);
}

FileTime DiskFiles::DateLastModified(std::string_view path) const {
    struct stat status {};
    const int error = directories_->Try(
        path, [&](const std::string& systemPath) { return stat(systemPath.c_str(), &status) == 0 ? 0 : errno; });
    return error == 0 ? TimeOf(status) : 0;
}

FileText DiskFiles::ReadText(std::string_view path) const {
    // Most files fit into this buffer, and it stays in the processor's cache.
    thread_local const std::unique_ptr<char[]> buffer = std::make_unique_for_overwrite<char[]>(kBufferBytes);
    FileText file;
    const int error = directories_->Try(path, [&](const std::string& systemPath) {
        const FileHandle handle(systemPath.c_str(), kReading);
        struct stat status {};
        if (const int why = CheckForReading(handle, kMaxTextBytes, status); why != 0)
            return why;

        const auto expected = static_cast<std::size_t>(status.st_size);
        std::optional<std::size_t> count = ReadUpTo(handle.Number(), buffer.get(), kBufferBytes, expected);
        if (!count)
            return errno;
        if (*count < kBufferBytes) {
            SetText(file, std::string_view(buffer.get(), *count));
        } else {
            std::string bytes(buffer.get(), *count);
            // A file can hold more than its reported size: it grows meanwhile, or the system generates its content on
            // reading.
            for (bool isEnd = false; !isEnd;) {
                const std::size_t have = bytes.size();
                bytes.resize(std::max(expected + 1, have + kBufferBytes));
                const std::size_t room = bytes.size() - have;
                count = ReadUpTo(handle.Number(), bytes.data() + have, room, expected - std::min(expected, have));
                if (!count)
                    return errno;
                bytes.resize(have + *count);
                if (bytes.size() > kMaxTextBytes)
                    return EFBIG;
                isEnd = *count < room;
            }
            SetText(file, std::move(bytes));
        }
        file.dateLastModified = TimeOf(status);
        return 0;
    });
    if (error != 0)
        file.error = ReadErrorOf(error);
    return file;
}

FileBytes DiskFiles::ReadBytes(std::string_view path, std::size_t most) const {
    return ReadPart(path, most, 0, most);
}

FileBytes DiskFiles::ReadStretch(std::string_view path, std::size_t from, std::size_t length) const {
    return ReadPart(path, std::numeric_limits<std::size_t>::max(), from, length);
}

// A stretch of a file that has at most `most` bytes.
FileBytes DiskFiles::ReadPart(std::string_view path, std::size_t most, std::size_t from, std::size_t length) const {
    FileBytes file;
    const int error = directories_->Try(path, [&](const std::string& systemPath) {
        const FileHandle handle(systemPath.c_str(), kReading);
        struct stat status {};
        if (const int why = CheckForReading(handle, most, status); why != 0)
            return why;
        const auto size = static_cast<std::size_t>(status.st_size);
        if (from >= size)
            return 0;
        if (from > 0 && lseek(handle.Number(), static_cast<off_t>(from), SEEK_SET) < 0)
            return errno;
        const std::size_t expected = std::min(length, size - from);
        file.bytes.resize(expected);
        const std::optional<std::size_t> count = ReadUpTo(handle.Number(), file.bytes.data(), expected, expected);
        if (!count)
            return errno;
        file.bytes.resize(*count);
        return 0;
    });
    if (error != 0)
        file = {{}, ReadErrorOf(error)};
    return file;
}

FileError DiskFiles::WriteWhole(std::string_view path, std::string_view bytes) {
    std::string target = directories_->Resolve(path).path;
    struct stat old {};
    const bool replaces = stat(target.c_str(), &old) == 0;
    if (!replaces && (target.empty() || WithSlashes(path).ends_with('/')))
        return FileError::NotFound;
    if (replaces) {
        if (!S_ISREG(old.st_mode))
            return S_ISDIR(old.st_mode) ? FileError::IsDirectory : FileError::NotWritable;
        if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)  // renaming alone does not check this
            return WriteErrorOf(errno);
        // A link is kept, and its target is replaced.
        if (char* const real = realpath(target.c_str(), nullptr)) {
            target = real;
            std::free(real);
        }
    }

    const std::size_t slash = target.rfind('/');
    const std::string directory = slash == std::string::npos ? std::string() : target.substr(0, slash + 1);
    static unsigned counter = 0;
    const std::string temporary =
        directory + ".ostrivane-" + std::to_string(getpid()) + '-' + std::to_string(++counter) + ".tmp";
    FileHandle handle(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
    if (!handle.IsOpen())
        return WriteErrorOf(errno);
    if (replaces) {
        // Only root may keep another owner. The mode is set last because a change of owner clears bits of it.
        (void)!fchown(handle.Number(), old.st_uid, old.st_gid);
        (void)!fchmod(handle.Number(), old.st_mode & 07777);
    }
    // A power failure must not lose an existing file; for a new file the wait for the disk is not worthwhile.
    const bool isWritten = WriteAll(handle.Number(), bytes) && (!replaces || fsync(handle.Number()) == 0);
    int error = isWritten ? 0 : errno;
    if (!handle.Close() && error == 0)
        error = errno;
    if (error == 0 && rename(temporary.c_str(), target.c_str()) != 0)
        error = errno;
    if (error == 0)
        return FileError::None;
    unlink(temporary.c_str());
    return WriteErrorOf(error);
}

FileError DiskFiles::Append(std::string_view path, std::string_view bytes) {
    const int error = directories_->Try(path, [&](const std::string& systemPath) {
        FileHandle handle(systemPath.c_str(), O_WRONLY | O_APPEND | O_NONBLOCK);
        struct stat status {};
        if (!handle.IsOpen() || fstat(handle.Number(), &status) != 0)
            return errno;
        if (!S_ISREG(status.st_mode))
            return EIO;
        return WriteAll(handle.Number(), bytes) && handle.Close() ? 0 : errno;
    });
    return error == 0 ? FileError::None : WriteErrorOf(error);
}

FileError DiskFiles::MakeDirectory(std::string_view path) {
    const std::string target = directories_->Resolve(path).path;
    if (target.empty())
        return FileError::NotFound;
    for (std::size_t end = 0; end != std::string::npos;) {
        end = target.find('/', end + 1);
        const std::string part = target.substr(0, end);
        if (mkdir(part.c_str(), 0777) == 0)
            continue;
        // A parent that exists already gives EROFS on a read-only disk and EACCES in a closed directory.
        const int error = errno;
        struct stat status {};
        if (stat(part.c_str(), &status) != 0)
            return WriteErrorOf(error);
        if (!S_ISDIR(status.st_mode))
            return FileError::NotWritable;
    }
    return FileError::None;
}

std::vector<std::string> DiskFiles::NamesIn(std::string_view directory) const {
    std::vector<std::string> names;
    // A separator at the end would forbid to look for another spelling.
    while (directory.size() > 1 && (directory.back() == '/' || directory.back() == '\\'))
        directory.remove_suffix(1);
    directories_->Try(directory, [&](const std::string& systemPath) {
        DIR* const stream = opendir(systemPath.c_str());
        if (!stream)
            return errno;
        while (const dirent* entry = readdir(stream))
            if (const std::string_view name = entry->d_name; name != "." && name != "..")
                names.emplace_back(name);
        closedir(stream);
        return 0;
    });
    return names;
}

std::string DiskFiles::SystemPath(std::string_view path) const {
    return directories_->Resolve(path).path;
}
