#include "libraries/library_search.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "libraries/registered_library.h"
#include "model/clsTypeLib.h"
#include "platform/ascii.h"
#include "platform/files.h"
#include "platform/path_names.h"
#include "shell/settings.h"
#include "shell/vb_text.h"

namespace {

constexpr int kMostParents = 40;

std::string FileIn(const std::string& folder, std::string_view name) {
    const bool isComplete = folder.empty() || folder.ends_with('/') || folder.ends_with('\\');
    return std::string(folder).append(isComplete ? "" : "/").append(name);
}

std::size_t LastSeparator(std::string_view path) {
    return path.find_last_of("\\/");
}

std::string_view FileNameOf(std::string_view path) {
    return path.substr(LastSeparator(path) + 1);
}

// A path that may end in the number of a resource, as in "vbscript.dll\2".
struct NumberedPath {
    std::string_view file;
    int resource = 0;
};

NumberedPath WithoutNumber(std::string_view path) {
    const std::string_view last = FileNameOf(path);
    const std::size_t before = path.size() - last.size();
    int number = 0;
    const auto [stop, error] = std::from_chars(last.data(), last.data() + last.size(), number);
    if (before < 2 || last.empty() || last.front() == '-' || error != std::errc() || stop != last.data() + last.size())
        return {path};
    return {path.substr(0, before - 1), number};
}

// The folder of the project and those above it up to the root of its repository; without one only the first.
std::vector<std::string> FoldersOf(const Files& files, std::string_view projectPath) {
    const PathParts own = SplitPath(projectPath.substr(0, LastSeparator(projectPath) + 1));
    std::vector<std::string> folders;
    PathParts folder = own;
    for (int level = 0; level <= kMostParents; ++level) {
        folders.push_back(JoinPath(WithoutParents(folder)));
        // The folder of a linked work tree has a file of that name.
        if (files.FileExists(FileIn(folders.back(), ".git/HEAD")) || files.FileExists(FileIn(folders.back(), ".git")))
            return folders;
        if (folders.back() == "/")
            break;
        folder.names.emplace_back("..");
    }
    folders.resize(1);
    return folders;
}

}  // namespace

LibrarySources LibrarySourcesOf(const Settings& settings, const Files& files) {
    LibrarySources sources{{settings.RegistryFiles, FindWinePrefix(files, settings.WinePrefix)},
                           settings.LibraryFolders};
    sources.isConfigured = !settings.RegistryFiles.empty() || !settings.LibraryFolders.empty() ||
                           (!settings.WinePrefix.empty() && !sources.registry.winePrefix.empty());
    return sources;
}

// The search for one library: tries places until one has a file that serves.
class LibrarySearch::Attempt {
public:
    Attempt(const LibrarySearch& search, clsTypeLib& library)
        : search_(search), library_(library), asked_(VersionOf(library.Version)) {
        library_.file = {};
    }

    [[nodiscard]] bool IsDone() const { return done_; }

    void Note(LibraryStep step, LibraryOutcome outcome, std::string place) {
        library_.file.places.push_back({step, outcome, std::move(place)});
    }

    /// Tries the files that one place stands for, and notes the place once.
    /// @param known  the version, if something else than the file says it
    void Try(LibraryStep step, std::string place, const std::vector<std::string>& files,
             const std::optional<LibraryVersion>& known = {}) {
        LibraryOutcome outcome = LibraryOutcome::Missing;
        for (const std::string& file : files) {
            const NumberedPath numbered = WithoutNumber(file);
            for (const NumberedPath& path : {NumberedPath{file}, numbered}) {
                if (done_ || !search_.FileExists(path.file))
                    continue;
                const LibraryOutcome now = Take(std::string(path.file), path.resource, known);
                if (outcome != LibraryOutcome::WrongVersion)
                    outcome = now;
                if (numbered.resource == 0)
                    break;
            }
            if (done_)
                break;
        }
        Note(step, outcome, done_ ? library_.file.path : std::move(place));
    }

    /// If no place has a version that serves, another is better than none.
    void TakeOtherVersion() {
        if (!done_ && other_.IsFound())
            Set(std::move(other_));
    }

private:
    LibraryOutcome Take(const std::string& file, int resource, std::optional<LibraryVersion> version) {
        if (search_.identify) {
            const std::optional<LibraryIdentity> identity = search_.identify(file, resource);
            if (!identity || NormalisedGuid(identity->typeLibID) != NormalisedGuid(library_.TypeLibID))
                return LibraryOutcome::OtherLibrary;
            version = VersionOf(identity->version);
        }
        LibraryFile found;
        found.path = search_.files_.SystemPath(file);
        found.resource = resource;
        found.version = version ? TextOf(*version) : std::string();
        if (asked_ && version && FitOf(*version, *asked_) == VersionFit::Other) {
            const std::optional<LibraryVersion> before = VersionOf(other_.version);
            if (!other_.IsFound() || (before && IsBetter(*version, *before, *asked_)))
                other_ = std::move(found);
            return LibraryOutcome::WrongVersion;
        }
        Set(std::move(found));
        done_ = true;
        return LibraryOutcome::Found;
    }

    void Set(LibraryFile found) {
        found.places = std::move(library_.file.places);
        library_.file = std::move(found);
        library_.InprocServer32 = library_.file.path;
    }

    const LibrarySearch& search_;
    clsTypeLib& library_;
    std::optional<LibraryVersion> asked_;
    LibraryFile other_;  // the best of the wrong versions
    bool done_ = false;
};

LibrarySearch::LibrarySearch(const Files& files, LibrarySources sources)
    : files_(files), sources_(std::move(sources)), registry_(files, sources_.registry), paths_(registry_) {}

void LibrarySearch::Begin(std::string_view projectPath) {
    registry_.ForgetIfChanged();
    folders_.clear();
    projectFolders_ = FoldersOf(files_, projectPath);
}

bool LibrarySearch::FileExists(std::string_view path) const {
    const std::size_t name = LastSeparator(path) + 1;
    const std::string folder(path.substr(0, name));
    auto found = folders_.find(folder);
    if (found == folders_.end()) {
        found = folders_.try_emplace(folder).first;
        for (const std::string& one : files_.NamesIn(folder.empty() ? "." : folder))
            found->second.insert(NameKey(one));
    }
    return found->second.contains(NameKey(path.substr(name))) && files_.FileExists(path);
}

std::string LibrarySearch::InProjectFolder(std::string_view path) const {
    return FileIn(projectFolders_.empty() ? "." : projectFolders_.front(), path);
}

// A path of another machine often holds its system directory, whatever it is called there.
std::vector<std::string> LibrarySearch::PlacesOfLine(const clsTypeLib& library) const {
    const std::string path = paths_.Plain(library.LineFile);
    std::vector<std::string> places;
    if (HasDrive(path))
        places = paths_.PlacesOf(path);
    else if (path.starts_with('/'))
        places.push_back(path);
    else if (!path.empty() && !path.starts_with("\\\\"))
        places.push_back(InProjectFolder(path));
    const std::string_view name = path;
    const std::string_view file = WithoutNumber(name).file;
    for (std::string& place : paths_.SystemPlacesOf(name.substr(LastSeparator(file) + 1)))
        places.push_back(std::move(place));
    return places;
}

std::string LibrarySearch::PictureFile(const clsTypeLib& library) const {
    const std::string_view registered = library.ToolboxBitmap32;
    for (const std::string& place : paths_.PlacesOf(Trim(registered.substr(0, registered.rfind(',')))))
        if (FileExists(place))
            return files_.SystemPath(place);
    return library.file.path;
}

void LibrarySearch::FindProject(clsTypeLib& library) const {
    library.file = {};
    const std::string path = paths_.Plain(library.LineFile);
    const std::vector<std::string> places =
        HasDrive(path) ? paths_.PlacesOf(path) : std::vector<std::string>{InProjectFolder(path)};
    for (const std::string& place : places)
        if (!library.file.IsFound() && FileExists(place))
            library.file.path = files_.SystemPath(place);
    if (library.file.IsFound())
        library.InprocServer32 = library.file.path;
    library.file.places.push_back({LibraryStep::ProjectLine,
                                   library.file.IsFound() ? LibraryOutcome::Found : LibraryOutcome::Missing,
                                   library.file.IsFound() ? library.file.path : library.LineFile});
}

void LibrarySearch::Find(clsTypeLib& library) const {
    if (library.isProject) {
        FindProject(library);
        return;
    }
    Attempt attempt(*this, library);
    std::vector<std::string> names;
    const auto addName = [&names](std::string_view path) {
        const std::string_view file = WithoutNumber(path).file;
        std::string name(path.substr(LastSeparator(file) + 1));
        const bool isKnown = std::any_of(names.begin(), names.end(),
                                         [&](const std::string& known) { return ascii::SameText(known, name); });
        if (!name.empty() && !isKnown)
            names.push_back(std::move(name));
    };
    addName(paths_.Plain(library.LineFile));

    if (!registry_.Texts().IsEmpty())
        Get_CLSID(registry_, library);
    const std::optional<RegisteredLibrary> registered =
        registry_.Texts().IsEmpty() ? std::nullopt : FindRegistered(registry_, library);
    if (registered) {
        attempt.Try(LibraryStep::Registry, registered->path, paths_.PlacesOf(registered->path), registered->version);
        if (library.Description.empty())
            library.Description = registered->description;
        addName(paths_.Plain(registered->path));
    } else if (!library.CLSID.empty() && library.InprocServer32 != library.LineFile) {
        // Only classes of the library are registered.
        attempt.Try(LibraryStep::Registry, library.InprocServer32, paths_.PlacesOf(library.InprocServer32));
        addName(paths_.Plain(library.InprocServer32));
    } else {
        attempt.Note(LibraryStep::Registry, LibraryOutcome::NotRegistered, {});
    }

    if (!attempt.IsDone() && !library.LineFile.empty())
        attempt.Try(LibraryStep::ProjectLine, library.LineFile, PlacesOfLine(library));
    const auto tryFolders = [&](LibraryStep step, const std::vector<std::string>& folders) {
        for (const std::string& folder : folders) {
            if (attempt.IsDone())
                return;
            std::vector<std::string> files;
            files.reserve(names.size());
            for (const std::string& name : names)
                files.push_back(FileIn(folder, name));
            attempt.Try(step, folder, files);
        }
    };
    tryFolders(LibraryStep::ProjectFolder, projectFolders_);
    tryFolders(LibraryStep::LibraryFolder, sources_.folders);
    attempt.TakeOtherVersion();
}
