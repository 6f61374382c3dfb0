// The keys of one class or library, such as "clsid\{...}", are a family. Registry texts list a key with all below it in
// one piece, so that a family is one range of a text, rarely a few. A question reads the lines of one family.

#include "platform/class_registry.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "platform/ascii.h"
#include "platform/reg_text.h"

namespace {

// The branches of a registry, each stored separately. Those of classes are in the order of look-up.
enum class Branch : std::uint8_t { UserClasses32, MachineClasses32, UserClasses, MachineClasses, User, Machine };
constexpr std::size_t kBranches = 6;
constexpr std::array kClassBranches{Branch::UserClasses32, Branch::MachineClasses32, Branch::UserClasses,
                                    Branch::MachineClasses};

// A key path in lower case below its branch.
struct Place {
    Branch branch = Branch::Machine;
    std::string_view path;
};

/// Removes `names` and the "\" after them from the start of `path`, if it begins with them.
bool TakeNames(std::string_view& path, std::string_view names) {
    if (!path.starts_with(names) || (path.size() > names.size() && path[names.size()] != '\\'))
        return false;
    path.remove_prefix(std::min(names.size() + 1, path.size()));
    return true;
}

Place ClassesPlace(bool isUser, bool is32, std::string_view path) {
    is32 = is32 || TakeNames(path, "wow6432node");
    const Branch user = is32 ? Branch::UserClasses32 : Branch::UserClasses;
    const Branch machine = is32 ? Branch::MachineClasses32 : Branch::MachineClasses;
    return {isUser ? user : machine, path};
}

/// @param path  in lower case, below the root of the machine or of a user
Place PlaceBelow(bool isUser, std::string_view path) {
    if (TakeNames(path, "software\\classes"))
        return ClassesPlace(isUser, false, path);
    // On a system of 64 bits this is a link to the classes for 32 bits.
    if (TakeNames(path, "software\\wow6432node\\classes"))
        return ClassesPlace(isUser, true, path);
    return {isUser ? Branch::User : Branch::Machine, path};
}

/// @param path  in lower case with the name of its root, as an editor writes it
std::optional<Place> PlaceOfFullPath(std::string_view path) {
    if (TakeNames(path, "hkey_classes_root") || TakeNames(path, "hkcr"))
        return ClassesPlace(false, false, path);
    if (TakeNames(path, "hkey_local_machine") || TakeNames(path, "hklm"))
        return PlaceBelow(false, path);
    if (TakeNames(path, "hkey_current_user") || TakeNames(path, "hkcu"))
        return PlaceBelow(true, path);
    if (!TakeNames(path, "hkey_users") && !TakeNames(path, "hku"))
        return {};
    const std::string_view user = path.substr(0, path.find('\\'));
    path.remove_prefix(std::min(user.size() + 1, path.size()));
    return user.ends_with("_classes") ? ClassesPlace(true, false, path) : PlaceBelow(true, path);
}

/// The first `count` names of a path.
std::string_view FirstNames(std::string_view path, int count) {
    std::size_t end = std::string_view::npos;
    for (std::size_t from = 0; count > 0; --count, from = end + 1) {
        end = path.find('\\', from);
        if (end == std::string_view::npos)
            return path;
    }
    return path.substr(0, end);
}

/// The path in lower case, without the "\" that may surround and double its separators.
std::string TidyPath(std::string_view path) {
    std::string tidy;
    for (const char c : path)
        if (c != '\\' || (!tidy.empty() && tidy.back() != '\\'))
            tidy += ascii::Lower(c);
    if (tidy.ends_with('\\'))
        tidy.pop_back();
    return tidy;
}

/// The part of `path` below `parent`; nothing if it is not below it.
std::optional<std::string_view> Below(std::string_view path, std::string_view parent) {
    if (parent.empty())
        return path.empty() ? std::nullopt : std::optional(path);
    if (path.size() <= parent.size() + 1 || !TakeNames(path, parent))
        return {};
    return path;
}

bool IsClassBranch(Branch branch) {
    return branch != Branch::User && branch != Branch::Machine;
}

std::string FileIn(const std::string& directory, std::string_view name) {
    return std::string(directory).append(directory.ends_with('/') ? "" : "/").append(name);
}

// A registry text in memory, and what its keys are relative to.
struct Text {
    std::string text;
    RegFormat format = RegFormat::None;
    bool isUser = false;  // of a file of Wine

    /// @param lower  the key's path in lower case
    [[nodiscard]] std::optional<Place> PlaceOf(std::string_view lower) const {
        return format == RegFormat::Wine ? PlaceBelow(isUser, lower) : PlaceOfFullPath(lower);
    }
};

/// The family of a key. Program identifiers, file types and interfaces are one: they are rarely asked for.
std::string_view FamilyPathOf(Branch branch, std::string_view path) {
    const std::string_view first = FirstNames(path, 1);
    if (IsClassBranch(branch) && first != "clsid" && first != "typelib")
        return {};
    return FirstNames(path, 2);
}

/// Whether the keys below `path` are in other families than its own.
bool HasFamiliesBelow(Branch branch, std::string_view path) {
    return path.empty() || (FamilyPathOf(branch, path) == path && path.find('\\') == std::string_view::npos);
}

/// Whether a key is right below another, as its text spells them. A name with an escape is not seen through.
bool IsBelowAsSpelled(std::string_view path, std::string_view parent, RegFormat format) {
    const std::string_view separator = format == RegFormat::Wine ? "\\\\" : "\\";
    if (parent.empty() || !path.starts_with(parent) || !path.substr(parent.size()).starts_with(separator))
        return false;
    return path.find('\\', parent.size() + separator.size()) == std::string_view::npos;
}

bool EndsLike(std::string_view path, std::string_view name) {
    return path.size() > name.size() && ascii::SameText(path.substr(path.size() - name.size()), name);
}

/// Position after the values of a key in its text.
std::size_t EndOf(const RegKey& key, std::string_view text) {
    return static_cast<std::size_t>(key.values.data() + key.values.size() - text.data());
}

void LowerInto(std::string& lower, std::string_view text) {
    lower.resize(text.size());
    std::transform(text.begin(), text.end(), lower.begin(), ascii::Lower);
}

}  // namespace

struct ClassRegistry::Index {
    // A range of a text with keys of one family only.
    struct Range {
        std::uint32_t text = 0;
        std::size_t begin = 0, end = 0;
        std::uint32_t number = 0;  // counts the ranges in the order of the texts
    };
    struct Family {
        Branch branch = Branch::Machine;
        std::string path;  // lower case
        std::vector<Range> ranges;
        bool hasDeletions = false;
    };
    struct KeyRead {
        std::string_view path;     // lower case, below the branch
        std::string_view spelled;  // the end of it, as the text spells it
        const RegKey& key;
        RegFormat format;
    };

    std::vector<std::unique_ptr<Text>> texts;
    std::vector<Family> families;  // in the order of the texts
    std::array<std::unordered_map<std::string, std::size_t>, kBranches> byPath;
    // Ranges up to this number were deleted together with other families.
    std::array<std::unordered_map<std::string, std::uint32_t>, kBranches> deleted;
    std::unordered_map<std::string, std::vector<std::string>> classesByTypeLib;
    std::vector<std::pair<std::string, FileTime>> files;
    std::vector<std::string> unreadable;
    std::uint32_t ranges = 0;
    bool is64Bit = false;

    void ReadFile(const Files& from, const std::string& path, bool mustExist);
    void AddKeys(std::uint32_t textNr);
    /// Number of the family, which is made if there is none.
    std::size_t FamilyOf(Branch branch, std::string_view path);
    void NoteClass(const Place& place, std::string_view spelled, std::string_view valueLines, RegFormat format);
    [[nodiscard]] std::uint32_t DeletedUpTo(const Family& family) const;

    /// Calls `use` with each key of a family, in the order of the texts, until it returns false.
    template <class Use>
    void ForEachKey(const Family& family, const Use& use) const;
    [[nodiscard]] std::optional<std::string> Value(Branch branch, const std::string& path, std::string_view name) const;
    /// Adds the names below `path` that `seen` does not have yet; "seen" has them in lower case.
    void AddSubKeys(Branch branch, const std::string& path, std::vector<std::string>& names,
                    std::unordered_set<std::string>& seen) const;
};

void ClassRegistry::Index::ReadFile(const Files& from, const std::string& path, bool mustExist) {
    FileText file = from.ReadText(path);
    files.emplace_back(path, file.dateLastModified);
    auto text = std::make_unique<Text>();
    text->format = RegFormatOf(file.text);
    if (file.error != FileError::None || text->format == RegFormat::None) {
        if (mustExist || file.error != FileError::NotFound)
            unreadable.push_back(path);
        return;
    }
    text->text = std::move(file.text);
    // The head of a file of Wine: ";; All keys relative to REGISTRY\\User\\S-1-5-21-0-0-0-1000" and "#arch=win64".
    const std::string_view head =
        std::string_view(text->text).substr(0, std::min(text->text.find("\r\n["), text->text.size()));
    text->isUser = head.find("REGISTRY\\\\User") != std::string_view::npos;
    is64Bit = is64Bit || (text->format == RegFormat::Wine && head.find("#arch=win64") != std::string_view::npos);
    texts.push_back(std::move(text));
    AddKeys(static_cast<std::uint32_t>(texts.size() - 1));
}

void ClassRegistry::Index::AddKeys(std::uint32_t textNr) {
    const Text& text = *texts[textNr];
    RegKeys keys(text.text, text.format);
    RegKey key;
    std::string lower;
    bool isFirst = true;  // of its range
    std::size_t family = 0;
    std::string lastPath;
    std::string_view familyKey;  // as the text spells it, if the family's own key began the range
    while (keys.Next(key)) {
        // Most keys follow that of their family and say nothing that is noted here.
        if (!key.isDeletion && IsBelowAsSpelled(key.path, familyKey, text.format) && !EndsLike(key.path, "typelib")) {
            families[family].ranges.back().end = EndOf(key, text.text);
            continue;
        }
        const std::string path = DecodedPath(key, text.format);
        LowerInto(lower, path);
        const std::optional<Place> place = text.PlaceOf(lower);
        if (!place) {
            isFirst = true;
            familyKey = {};
            continue;
        }
        const std::string_view familyPath = FamilyPathOf(place->branch, place->path);
        if (key.isDeletion && HasFamiliesBelow(place->branch, place->path))
            deleted[static_cast<std::size_t>(place->branch)][std::string(place->path)] = ++ranges;
        if (!isFirst && families[family].branch == place->branch && lastPath == familyPath) {
            families[family].ranges.back().end = EndOf(key, text.text);
        } else {
            family = FamilyOf(place->branch, familyPath);
            families[family].ranges.push_back({textNr, key.begin, EndOf(key, text.text), ++ranges});
            lastPath = familyPath;
            isFirst = false;
            const bool isWhole = place->path == familyPath && !HasFamiliesBelow(place->branch, place->path);
            familyKey = isWhole ? key.path : std::string_view();
        }
        families[family].hasDeletions |= key.isDeletion;
        if (!key.isDeletion)
            NoteClass(*place, path, key.values, text.format);
    }
}

std::size_t ClassRegistry::Index::FamilyOf(Branch branch, std::string_view path) {
    const auto [found, isNew] =
        byPath[static_cast<std::size_t>(branch)].try_emplace(std::string(path), families.size());
    if (isNew)
        families.push_back({branch, found->first, {}, false});
    return found->second;
}

/// @param spelled  the key's path as its text spells it; place.path is the end of it
void ClassRegistry::Index::NoteClass(const Place& place, std::string_view spelled, std::string_view valueLines,
                                     RegFormat format) {
    constexpr std::string_view kClasses = "clsid\\";
    constexpr std::string_view kTypeLib = "\\typelib";
    if (!IsClassBranch(place.branch) || !place.path.ends_with(kTypeLib) || !place.path.starts_with(kClasses) ||
        place.path.size() <= kClasses.size() + kTypeLib.size())
        return;
    std::string_view name = spelled.substr(spelled.size() - place.path.size() + kClasses.size());
    name.remove_suffix(kTypeLib.size());
    if (name.find('\\') != std::string_view::npos)
        return;
    RegValues values(valueLines, format);
    RegValue value;
    while (values.Next(value))
        if (value.name.empty() && value.text)
            classesByTypeLib[NormalisedGuid(*value.text)].emplace_back(name);
}

std::uint32_t ClassRegistry::Index::DeletedUpTo(const Family& family) const {
    const auto& ofBranch = deleted[static_cast<std::size_t>(family.branch)];
    std::uint32_t number = 0;
    if (ofBranch.empty())
        return number;
    for (const std::string& path : {std::string(), std::string(FirstNames(family.path, 1))})
        if (const auto found = ofBranch.find(path); found != ofBranch.end())
            number = std::max(number, found->second);
    return number;
}

template <class Use>
void ClassRegistry::Index::ForEachKey(const Family& family, const Use& use) const {
    const std::uint32_t deletedUpTo = DeletedUpTo(family);
    RegKey key;
    std::string lower;
    for (const Range& range : family.ranges) {
        if (range.number < deletedUpTo)
            continue;
        const Text& text = *texts[range.text];
        RegKeys keys(std::string_view(text.text).substr(range.begin, range.end - range.begin), text.format);
        while (keys.Next(key)) {
            const std::string path = DecodedPath(key, text.format);
            LowerInto(lower, path);
            const std::optional<Place> place = text.PlaceOf(lower);
            if (place && !use(KeyRead{place->path, std::string_view(path).substr(path.size() - place->path.size()), key,
                                      text.format}))
                return;
        }
    }
}

std::optional<std::string> ClassRegistry::Index::Value(Branch branch, const std::string& path,
                                                       std::string_view name) const {
    const auto& ofBranch = byPath[static_cast<std::size_t>(branch)];
    const auto family = ofBranch.find(std::string(FamilyPathOf(branch, path)));
    std::optional<std::string> found;
    if (family == ofBranch.end())
        return found;
    ForEachKey(families[family->second], [&](const KeyRead& read) {
        if (read.key.isDeletion) {
            if (read.path == path || Below(path, read.path))
                found.reset();
            return true;
        }
        if (read.path != path)
            return true;
        RegValues values(read.key.values, read.format);
        RegValue value;
        while (values.Next(value))
            if (ascii::SameText(value.name, name))
                found = std::move(value.text);
        return true;
    });
    return found;
}

void ClassRegistry::Index::AddSubKeys(Branch branch, const std::string& path, std::vector<std::string>& names,
                                      std::unordered_set<std::string>& seen) const {
    std::vector<std::string> own;
    std::unordered_set<std::string> there;
    const auto addFamily = [&](const Family& family, bool oneKeyIsEnough) {
        ForEachKey(family, [&](const KeyRead& read) {
            const std::optional<std::string_view> below = Below(read.path, path);
            // What was deleted with whole families is not read here.
            if (read.key.isDeletion && !HasFamiliesBelow(branch, read.path) &&
                (read.path == path || Below(path, read.path)))
                there.clear();
            if (!below || below->starts_with('\\'))
                return true;
            std::string name(FirstNames(*below, 1));
            if (read.key.isDeletion) {
                if (name == *below)
                    there.erase(name);
            } else if (there.insert(name).second) {
                own.emplace_back(read.spelled.substr(read.spelled.size() - below->size(), name.size()));
            }
            return !oneKeyIsEnough;
        });
    };
    const auto& ofBranch = byPath[static_cast<std::size_t>(branch)];
    if (const auto found = ofBranch.find(std::string(FamilyPathOf(branch, path))); found != ofBranch.end())
        addFamily(families[found->second], false);
    if (HasFamiliesBelow(branch, path)) {
        there.reserve(families.size());  // a registry has tens of thousands of classes
        seen.reserve(families.size());
        own.reserve(families.size());
        for (const Family& family : families)
            if (family.branch == branch && Below(family.path, path))
                addFamily(family, !family.hasDeletions);
    }
    for (std::string& name : own)
        if (const std::string lower = ascii::LowerCase(name); there.contains(lower) && seen.insert(lower).second)
            names.push_back(std::move(name));
}

ClassRegistry::ClassRegistry(const Files& files, RegistryTexts texts) : files_(files), texts_(std::move(texts)) {}

ClassRegistry::~ClassRegistry() = default;

ClassRegistry::Index& ClassRegistry::TheIndex() const {
    if (index_)
        return *index_;
    index_ = std::make_unique<Index>();
    for (const std::string& file : texts_.exported)
        index_->ReadFile(files_, file, true);
    if (!texts_.winePrefix.empty()) {
        // The defaults of new users come first, as the user's own values win.
        index_->ReadFile(files_, FileIn(texts_.winePrefix, "userdef.reg"), false);
        index_->ReadFile(files_, FileIn(texts_.winePrefix, "system.reg"), true);
        index_->ReadFile(files_, FileIn(texts_.winePrefix, "user.reg"), false);
    }
    return *index_;
}

void ClassRegistry::ForgetIfChanged() {
    if (index_ && std::any_of(index_->files.begin(), index_->files.end(),
                              [this](const auto& file) { return files_.DateLastModified(file.first) != file.second; }))
        index_.reset();
}

std::optional<std::string> ClassRegistry::ReadValue(RegistryRoot root, std::string_view key,
                                                    std::string_view name) const {
    const std::string path = TidyPath(key);
    if (root == RegistryRoot::ClassesRoot) {
        for (const Branch branch : kClassBranches)
            if (std::optional<std::string> value = TheIndex().Value(branch, path, name))
                return value;
        return {};
    }
    const Place place = PlaceBelow(root == RegistryRoot::CurrentUser, path);
    return TheIndex().Value(place.branch, std::string(place.path), name);
}

int ClassRegistry::WriteValue(RegistryRoot, std::string_view, std::string_view, std::string_view) {
    return EROFS;
}

std::vector<std::string> ClassRegistry::SubKeys(RegistryRoot root, std::string_view key) const {
    const std::string path = TidyPath(key);
    std::vector<std::string> names;
    std::unordered_set<std::string> seen;
    if (root == RegistryRoot::ClassesRoot) {
        for (const Branch branch : kClassBranches)
            TheIndex().AddSubKeys(branch, path, names, seen);
        return names;
    }
    const Place place = PlaceBelow(root == RegistryRoot::CurrentUser, path);
    TheIndex().AddSubKeys(place.branch, std::string(place.path), names, seen);
    return names;
}

std::vector<std::string> ClassRegistry::ClassesOf(std::string_view typeLibID) const {
    const std::string id = NormalisedGuid(typeLibID);
    const auto found = TheIndex().classesByTypeLib.find(id);
    std::vector<std::string> classes;
    if (found == TheIndex().classesByTypeLib.end())
        return classes;
    std::unordered_set<std::string> seen;
    for (const std::string& name : found->second) {
        // A later text may have changed or deleted it.
        const auto now = ReadValue(RegistryRoot::ClassesRoot, "CLSID\\" + name + "\\TypeLib", "");
        if (now && NormalisedGuid(*now) == id && seen.insert(ascii::LowerCase(name)).second)
            classes.push_back(name);
    }
    return classes;
}

bool ClassRegistry::Is64Bit() const {
    return TheIndex().is64Bit;
}

std::vector<std::string> ClassRegistry::Unreadable() const {
    return TheIndex().unreadable;
}

std::string NormalisedGuid(std::string_view guid) {
    guid = ascii::Trim(guid);
    if (guid.starts_with('{'))
        guid.remove_prefix(1);
    if (guid.ends_with('}'))
        guid.remove_suffix(1);
    return '{' + ascii::LowerCase(guid) + '}';
}
