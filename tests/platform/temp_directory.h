// A directory on disk that is deleted after the test, and operations on real files for tests.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

class TempDirectory {
public:
    TempDirectory() {
        path_ = (std::filesystem::temp_directory_path() / "ostrivane-test-XXXXXX").string();
        if (!mkdtemp(path_.data()))
            throw std::runtime_error("no directory for a test");
        chmod(path_.c_str(), 0755);
    }
    TempDirectory& operator=(TempDirectory&&) = delete;
    ~TempDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] std::string Path(std::string_view name = "") const { return path_ + "/" + std::string(name); }

    /// Writes a file, creates its directories, and returns its path.
    std::string Write(std::string_view name, std::string_view bytes) const {
        std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
        std::ofstream(Path(name), std::ios::binary) << bytes;
        return Path(name);
    }
    [[nodiscard]] std::string Bytes(std::string_view name) const {
        std::ifstream file(Path(name), std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }
    [[nodiscard]] int FileCount() const {
        return static_cast<int>(std::distance(std::filesystem::directory_iterator(path_), {}));
    }

private:
    std::string path_;
};

/// Enforces file permissions for its lifetime, even if the tests run as root.
class WithoutRootRights {
public:
    WithoutRootRights() : changed_(geteuid() == 0 && seteuid(65534) == 0) {}
    WithoutRootRights& operator=(WithoutRootRights&&) = delete;
    ~WithoutRootRights() {
        if (changed_ && seteuid(0) != 0)
            std::abort();
    }

private:
    bool changed_;
};

/// Sets or removes an environment variable for its lifetime.
class WithEnvironment {
public:
    WithEnvironment(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name))
            old_ = old;
        Set(value);
    }
    WithEnvironment& operator=(WithEnvironment&&) = delete;
    ~WithEnvironment() { Set(old_ ? old_->c_str() : nullptr); }

private:
    void Set(const char* value) const { value ? setenv(name_, value, 1) : unsetenv(name_); }

    const char* name_;
    std::optional<std::string> old_;
};
