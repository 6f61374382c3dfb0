// The classes and type libraries of a Windows machine, from registry texts: the files of a Wine prefix and those that a
// registry editor exported. It reads nothing before the first question. Then it notes where in the texts each class and
// library is; values are decoded when they are asked for.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/registry.h"

/// Later texts win over earlier ones, as if they were imported one after the other.
struct RegistryTexts {
    std::vector<std::string> exported;  // files of a registry editor
    std::string winePrefix;             // a directory; its registrations win, as their files are at hand
    bool operator==(const RegistryTexts&) const = default;
    [[nodiscard]] bool IsEmpty() const { return exported.empty() && winePrefix.empty(); }
};

class ClassRegistry final : public Registry {
public:
    /// `files` must outlive the registry.
    ClassRegistry(const Files& files, RegistryTexts texts);
    ~ClassRegistry() override;

    /// Among the classes, those for 32 bits come first, then those of the user, as for a program of 32 bits.
    [[nodiscard]] std::optional<std::string> ReadValue(RegistryRoot root, std::string_view key,
                                                       std::string_view name) const override;
    /// Never writes: these files belong to other programs.
    int WriteValue(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) override;
    [[nodiscard]] std::vector<std::string> SubKeys(RegistryRoot root, std::string_view key) const override;

    /// Names of the classes whose TypeLib is `typeLibID`, in the order of the texts.
    [[nodiscard]] std::vector<std::string> ClassesOf(std::string_view typeLibID) const;
    /// True for a prefix of 64 bits, which has the files of programs of 32 bits in a directory of their own.
    [[nodiscard]] bool Is64Bit() const;
    /// Files that could not be read or that are no registry texts.
    [[nodiscard]] std::vector<std::string> Unreadable() const;

    [[nodiscard]] const RegistryTexts& Texts() const { return texts_; }
    [[nodiscard]] bool IsRead() const { return index_ != nullptr; }
    /// Forgets what was read if a file has changed since.
    void ForgetIfChanged();

private:
    struct Index;
    [[nodiscard]] Index& TheIndex() const;

    const Files& files_;
    RegistryTexts texts_;
    mutable std::unique_ptr<Index> index_;
};

/// A class or library identifier in the form "{...}" in lower case, whatever its case and with or without braces.
[[nodiscard]] std::string NormalisedGuid(std::string_view guid);
