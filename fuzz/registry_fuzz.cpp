// The input is a registry text: one that an editor exported, and the one of a Wine prefix.

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "fuzz_driver.h"
#include "platform/ascii.h"
#include "platform/class_registry.h"
#include "platform/reg_text.h"
#include "platform/windows_paths.h"

namespace {

constexpr RegistryRoot kClasses = RegistryRoot::ClassesRoot;
constexpr std::string_view kRoot = "hkey_classes_root\\";

using Values = std::map<std::string, std::optional<std::string>>;

// The keys of the classes after an import, read in the plainest way. Nothing if the text has other branches, or paths
// that nobody asks for.
std::optional<std::map<std::string, Values>> PlainlyRead(std::string_view text, RegFormat format) {
    std::map<std::string, Values> keys;
    RegKeys all(text, format);
    RegKey key;
    while (all.Next(key)) {
        const std::string path = ascii::LowerCase(DecodedPath(key, format));
        if (!path.starts_with(kRoot) || path.find("\\\\") != std::string::npos || path.ends_with('\\') ||
            path.find("wow6432node") != std::string::npos)
            return {};
        if (key.isDeletion) {
            std::erase_if(keys,
                          [&](const auto& one) { return one.first == path || one.first.starts_with(path + '\\'); });
            continue;
        }
        // The keys above it come with it, and stay when it is deleted.
        for (std::size_t end = path.find('\\', kRoot.size()); end != std::string::npos; end = path.find('\\', end + 1))
            keys[path.substr(0, end)];
        Values& values = keys[path];
        RegValues lines(key.values, format);
        RegValue value;
        while (lines.Next(value))
            values[ascii::LowerCase(value.name)] = value.text;
    }
    return keys;
}

void RequireAsPlainlyRead(const ClassRegistry& registry, std::string_view text, RegFormat format) {
    const auto keys = PlainlyRead(text, format);
    if (!keys)
        return;
    std::set<std::string> classes;
    for (const auto& [path, values] : *keys) {
        const std::string key = path.substr(kRoot.size());
        for (const auto& [name, value] : values)
            Require(registry.ReadValue(kClasses, key, name) == value, "a value is that of the last line about it");
        if (key.starts_with("clsid\\"))
            classes.insert(key.substr(6, key.find('\\', 6) - 6));
    }
    std::set<std::string> listed;
    for (const std::string& name : registry.SubKeys(kClasses, "CLSID"))
        Require(listed.insert(ascii::LowerCase(name)).second, "a class is listed once");
    Require(listed == classes, "the classes are those with keys");
}

void AskAll(const ClassRegistry& registry) {
    const WindowsPaths paths(registry);
    for (const std::string& name : registry.SubKeys(kClasses, "CLSID")) {
        Require(!name.empty(), "a class has a name");
        for (const std::string& key : registry.SubKeys(kClasses, "CLSID\\" + name))
            if (const auto value = registry.ReadValue(kClasses, "CLSID\\" + name + "\\" + key, ""))
                for (const std::string& place : paths.PlacesOf(*value))
                    Require(place.find('\\') == std::string::npos, "a place is a path of this system");
        const auto library = registry.ReadValue(kClasses, "CLSID\\" + name + "\\TypeLib", "");
        const std::vector<std::string> classes = library ? registry.ClassesOf(*library) : std::vector<std::string>();
        Require(!library || std::any_of(classes.begin(), classes.end(),
                                        [&](const std::string& one) { return ascii::SameText(one, name); }),
                "a class is among those of its library");
    }
    for (const RegistryRoot root : {kClasses, RegistryRoot::CurrentUser, RegistryRoot::LocalMachine})
        for (const std::string& name : registry.SubKeys(root, ""))
            Require(!name.empty(), "a key has a name");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const MemoryFiles files{{"a.reg", bytes}, {"w/system.reg", bytes}};
    const ClassRegistry once(files, {{"a.reg"}, {}});
    AskAll(once);
    const std::string text = files.ReadText("a.reg").text;
    if (const RegFormat format = RegFormatOf(text); format == RegFormat::Editor4 || format == RegFormat::Editor5) {
        RequireAsPlainlyRead(once, text, format);
        const ClassRegistry twice(files, {{"a.reg", "a.reg"}, {}});
        RequireAsPlainlyRead(twice, text, format);
    }
    AskAll(ClassRegistry(files, {{}, "w"}));
    return 0;
}
