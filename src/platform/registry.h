// The class registry as the program sees it: read a value, write a value, list sub-keys.
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
    /// Text of a value, or nothing when key or value is absent.
    [[nodiscard]] virtual std::optional<std::string> ReadValue(RegistryRoot root, std::string_view key,
                                                               std::string_view name) const = 0;
    /// Stores a text value, creating the key when needed. Returns 0, or the system's error number.
    virtual int WriteValue(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) = 0;
    /// Names of the direct sub-keys, in the order found; empty when the key is absent.
    [[nodiscard]] virtual std::vector<std::string> SubKeys(RegistryRoot root, std::string_view key) const = 0;
};

/// Holds everything in memory.
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

/// The program's own record on systems without a registry: a small text file in the user's configuration
/// directory, one "ROOT\key\...<TAB>name<TAB>value" line a value.
class FileRegistry final : public MemoryRegistry {
public:
    /// Reads `path` at once; a missing or torn file counts as empty. `files` must outlive this object.
    FileRegistry(Files& files, std::string path);
    int WriteValue(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) override;

private:
    void TakeLine(std::string_view line);
    Files& files_;
    std::string path_;
    std::vector<std::string> lines_;  // the record as it stands
};
