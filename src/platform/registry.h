// The class registry: read a value, write a value, list sub-keys.
// Key paths use "\" and are compared without regard to case; the value name "" is the default value.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

enum class RegistryRoot { ClassesRoot, CurrentUser, LocalMachine };

class Registry {
public:
    virtual ~Registry() = default;
    /// Text of a value, or nothing if the key or the value does not exist.
    [[nodiscard]] virtual std::optional<std::string> ReadValue(RegistryRoot root, std::string_view key,
                                                               std::string_view name) const = 0;
    /// Stores a text value and creates the key if needed. Returns 0, or the system's error number.
    virtual int WriteValue(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) = 0;
    /// Names of the direct sub-keys in the order of creation; empty if the key does not exist.
    [[nodiscard]] virtual std::vector<std::string> SubKeys(RegistryRoot root, std::string_view key) const = 0;
};

/// A registry in memory.
class MemoryRegistry : public Registry {
public:
    MemoryRegistry();
    ~MemoryRegistry() override;
    MemoryRegistry(const MemoryRegistry&) = delete;
    MemoryRegistry& operator=(const MemoryRegistry&) = delete;
    [[nodiscard]] std::optional<std::string> ReadValue(RegistryRoot root, std::string_view key,
                                                       std::string_view name) const override;
    int WriteValue(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) override;
    [[nodiscard]] std::vector<std::string> SubKeys(RegistryRoot root, std::string_view key) const override;

private:
    struct Tree;
    std::unique_ptr<Tree> tree_;
};

/// The program's substitute on systems without a registry: a small text file in the user's configuration directory with
/// one "ROOT\key\...<TAB>name<TAB>value" line per value.
class FileRegistry final : public MemoryRegistry {
public:
    /// Reads `path` immediately. A missing file counts as empty, and damaged lines are skipped. `files` must outlive
    /// this object.
    FileRegistry(Files& files, std::string path);
    int WriteValue(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) override;

private:
    void TakeLine(std::string_view line);
    Files& files_;
    std::string path_;
    std::vector<std::string> lines_;  // the lines of the file
};
