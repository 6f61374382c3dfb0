#include "platform/registry.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <unordered_map>
#include <utility>

#include "platform/ascii.h"

namespace {

struct Key {
    struct Entry {
        std::string name;  // as spelled first
        std::string value;
    };

    std::string name;
    std::vector<Entry> values;
    std::vector<std::unique_ptr<Key>> subKeys;          // in the order of creation
    std::unordered_map<std::string, Key*> byLowerName;  // index of subKeys: there may be thousands of classes

    [[nodiscard]] Entry* Find(std::string_view valueName) {
        for (Entry& entry : values)
            if (ascii::SameText(entry.name, valueName))
                return &entry;
        return nullptr;
    }
};

/// Removes the first name from a key path. Leading, trailing and doubled "\" are ignored.
std::string_view TakeName(std::string_view& path) {
    path.remove_prefix(std::min(path.find_first_not_of('\\'), path.size()));
    const std::string_view name = path.substr(0, path.find('\\'));
    path.remove_prefix(name.size());
    return name;
}

// In the order of RegistryRoot.
constexpr std::array<std::string_view, 3> kRootNames{"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER", "HKEY_LOCAL_MACHINE"};

// The file has one value per line with tabs between the columns; special characters are escaped as in "%09".
constexpr std::string_view kEscaped = "%\t\r\n";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

std::string Escaped(std::string_view text) {
    std::string line;
    for (const char c : text) {
        if (kEscaped.find(c) == std::string_view::npos) {
            line += c;
            continue;
        }
        line += '%';
        line += kHexDigits[static_cast<std::size_t>(c) >> 4];
        line += kHexDigits[static_cast<std::size_t>(c) & 15];
    }
    return line;
}

std::string Unescaped(std::string_view line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const std::size_t high = i + 2 < line.size() ? kHexDigits.find(line[i + 1]) : std::string_view::npos;
        const std::size_t low = i + 2 < line.size() ? kHexDigits.find(line[i + 2]) : std::string_view::npos;
        if (line[i] != '%' || high == std::string_view::npos || low == std::string_view::npos) {
            text += line[i];
            continue;
        }
        text += static_cast<char>(high << 4 | low);
        i += 2;
    }
    return text;
}

}  // namespace

struct MemoryRegistry::Tree {
    std::array<Key, 3> roots;

    Key& Root(RegistryRoot root) { return roots[static_cast<std::size_t>(root)]; }

    Key* Find(RegistryRoot root, std::string_view path) {
        Key* key = &Root(root);
        for (std::string_view name = TakeName(path); key && !name.empty(); name = TakeName(path)) {
            const auto found = key->byLowerName.find(ascii::LowerCase(name));
            key = found == key->byLowerName.end() ? nullptr : found->second;
        }
        return key;
    }

    Key& FindOrMake(RegistryRoot root, std::string_view path) {
        Key* key = &Root(root);
        for (std::string_view name = TakeName(path); !name.empty(); name = TakeName(path)) {
            Key*& subKey = key->byLowerName[ascii::LowerCase(name)];
            if (!subKey) {
                key->subKeys.push_back(std::make_unique<Key>());
                subKey = key->subKeys.back().get();
                subKey->name = name;
            }
            key = subKey;
        }
        return *key;
    }
};

MemoryRegistry::MemoryRegistry() : tree_(std::make_unique<Tree>()) {}
MemoryRegistry::~MemoryRegistry() = default;

std::optional<std::string> MemoryRegistry::ReadValue(RegistryRoot root, std::string_view key,
                                                     std::string_view name) const {
    Key* const found = tree_->Find(root, key);
    const Key::Entry* const entry = found ? found->Find(name) : nullptr;
    return entry ? std::optional(entry->value) : std::nullopt;
}

int MemoryRegistry::WriteValue(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) {
    Key& target = tree_->FindOrMake(root, key);
    if (Key::Entry* const entry = target.Find(name))
        entry->value = value;
    else
        target.values.push_back({std::string(name), std::string(value)});
    return 0;
}

std::vector<std::string> MemoryRegistry::SubKeys(RegistryRoot root, std::string_view key) const {
    std::vector<std::string> names;
    if (Key* const found = tree_->Find(root, key))
        for (const std::unique_ptr<Key>& subKey : found->subKeys)
            names.push_back(subKey->name);
    return names;
}

namespace {

std::string LineOf(RegistryRoot root, std::string_view key, std::string_view name) {
    std::string line(kRootNames[static_cast<std::size_t>(root)]);
    while (true) {
        const std::string_view keyName = TakeName(key);
        if (keyName.empty())
            break;
        line += '\\' + Escaped(keyName);
    }
    return line + '\t' + Escaped(name) + '\t';
}

int NumberOf(FileError error) {
    switch (error) {
        case FileError::None:
            return 0;
        case FileError::NotFound:
            return ENOENT;
        case FileError::IsDirectory:
            return EISDIR;
        default:
            return EACCES;
    }
}

}  // namespace

FileRegistry::FileRegistry(Files& files, std::string path) : files_(files), path_(std::move(path)) {
    const std::string text = files_.ReadText(path_).text;
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find("\r\n"), rest.size());
        TakeLine(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 2, rest.size()));
    }
}

void FileRegistry::TakeLine(std::string_view line) {
    const std::size_t nameAt = line.find('\t');
    const std::size_t valueAt = nameAt == std::string_view::npos ? nameAt : line.find('\t', nameAt + 1);
    if (valueAt == std::string_view::npos)
        return;
    std::string_view key = line.substr(0, nameAt);
    const std::string_view rootName = TakeName(key);
    const auto root = std::find(kRootNames.begin(), kRootNames.end(), rootName);
    if (root == kRootNames.end())
        return;
    MemoryRegistry::WriteValue(static_cast<RegistryRoot>(root - kRootNames.begin()), Unescaped(key),
                               Unescaped(line.substr(nameAt + 1, valueAt - nameAt - 1)),
                               Unescaped(line.substr(valueAt + 1)));
    lines_.emplace_back(line);
}

int FileRegistry::WriteValue(RegistryRoot root, std::string_view key, std::string_view name, std::string_view value) {
    const std::string head = LineOf(root, key, name);
    auto place = std::find_if(lines_.begin(), lines_.end(), [&](const std::string& line) {
        return ascii::SameText(std::string_view(line).substr(0, head.size()), head);
    });
    if (place == lines_.end())
        place = lines_.emplace(place);
    *place = head + Escaped(value);

    std::string text;
    for (const std::string& line : lines_)
        text += line + "\r\n";
    const std::size_t nameLength = path_.size() - std::min(path_.find_last_of("\\/") + 1, path_.size());
    if (nameLength < path_.size())
        files_.MakeDirectory(std::string_view(path_).substr(0, path_.size() - nameLength));
    const int error = NumberOf(files_.WriteWhole(path_, text));
    return error != 0 ? error : MemoryRegistry::WriteValue(root, key, name, value);
}
