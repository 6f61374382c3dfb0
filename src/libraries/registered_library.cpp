#include "libraries/registered_library.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "model/clsTypeLib.h"
#include "platform/class_registry.h"
#include "platform/settings_file.h"

namespace {

constexpr RegistryRoot kClasses = RegistryRoot::ClassesRoot;

std::optional<int> LanguageOf(std::string_view name) {
    unsigned number = 0;
    const auto [stop, error] = std::from_chars(name.data(), name.data() + name.size(), number, 16);
    if (error != std::errc() || stop != name.data() + name.size() || number > 0xFFFFF)
        return {};
    return static_cast<int>(number);
}

// 0 for the language itself; the higher, the worse.
int LanguageRank(int offered, int asked) {
    constexpr int kPrimary = 0x3FF;
    if (offered == asked)
        return 0;
    if (offered == (asked & kPrimary))
        return 1;
    return offered == 0 ? 2 : 3;
}

std::string KeyBelow(const std::string& key, std::string_view name) {
    return std::string(key).append(1, '\\').append(name);
}

// The path below one version of a library; empty if there is none.
std::string PathBelow(const Registry& registry, const std::string& key, int lcid) {
    struct Language {
        int rank;
        std::string key;
    };
    std::vector<Language> languages;
    for (const std::string& name : registry.SubKeys(kClasses, key))
        if (const std::optional<int> language = LanguageOf(name))
            languages.push_back({LanguageRank(*language, lcid), KeyBelow(key, name)});
    std::stable_sort(languages.begin(), languages.end(),
                     [](const Language& a, const Language& b) { return a.rank < b.rank; });
    for (const Language& language : languages)
        for (const char* const system : {"\\win32", "\\win64"})
            if (auto path = registry.ReadValue(kClasses, language.key + system, ""); path && !path->empty())
                return *std::move(path);
    return {};
}

}  // namespace

std::optional<RegisteredLibrary> FindRegistered(const Registry& registry, const clsTypeLib& library) {
    struct Entry {
        LibraryVersion version;
        std::string key;
    };
    const std::string libraryKey = "TypeLib\\" + NormalisedGuid(library.TypeLibID);
    std::vector<Entry> entries;
    for (const std::string& name : registry.SubKeys(kClasses, libraryKey))
        if (const std::optional<LibraryVersion> version = VersionOf(name))
            entries.push_back({*version, KeyBelow(libraryKey, name)});
    const LibraryVersion asked = VersionOf(library.Version).value_or(LibraryVersion());
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const Entry& a, const Entry& b) { return IsBetter(a.version, b.version, asked); });
    for (const Entry& entry : entries)
        if (std::string path = PathBelow(registry, entry.key, library.lcid); !path.empty())
            return RegisteredLibrary{entry.version, std::move(path),
                                     registry.ReadValue(kClasses, entry.key, "").value_or("")};
    return {};
}

void Get_CLSID(const ClassRegistry& registry, clsTypeLib& library) {
    const auto valueOf = [&](const std::string& name, const char* key) {
        return registry.ReadValue(kClasses, "CLSID\\" + name + '\\' + key, "").value_or("");
    };
    const std::vector<std::string> classes = registry.ClassesOf(library.TypeLibID);
    if (classes.empty())
        return;
    const auto withPicture = std::find_if(classes.begin(), classes.end(), [&](const std::string& name) {
        return !valueOf(name, "ToolboxBitmap32").empty();
    });
    library.CLSID = withPicture == classes.end() ? classes.front() : *withPicture;
    library.ToolboxBitmap32 = valueOf(library.CLSID, "ToolboxBitmap32");
    library.ProgID = valueOf(library.CLSID, "ProgID");
    library.VersionIndependentProgID = valueOf(library.CLSID, "VersionIndependentProgID");
    if (const auto comma = library.ToolboxBitmap32.rfind(','); comma != std::string::npos)
        library.IconIndex = static_cast<int>(
            std::clamp(LeadingNumber(std::string_view(library.ToolboxBitmap32).substr(comma + 1)), 0.0, 65535.0));
    if (const std::string file = valueOf(library.CLSID, "InprocServer32"); !file.empty())
        library.InprocServer32 = file;
}
