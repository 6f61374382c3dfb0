#include "libraries/library_loader.h"

#include "libraries/library_problems.h"
#include "libraries/library_version.h"
#include "model/clsProjekt.h"
#include "model/clsTypeLib.h"
#include "platform/pe_resources.h"
#include "platform/picture_resource.h"
#include "platform/type_library_file.h"

namespace {

std::string VersionText(int major, int minor) {
    return TextOf(LibraryVersion{major, minor});
}

}  // namespace

LibraryLoader::LibraryLoader(clsProjekt& projekt, LibrarySearch& search) : projekt_(projekt), search_(search) {
    search_.identify = [this](const std::string& file, int resource) -> std::optional<LibraryIdentity> {
        const TypeLibrary& library = Read(file, resource).library;
        if (library.id.empty())
            return {};
        return LibraryIdentity{library.id, VersionText(library.major, library.minor)};
    };
}

LibraryLoader::~LibraryLoader() {
    search_.identify = {};
}

void LibraryLoader::LoadAll() {
    // One may import another that the project names further down.
    for (const auto& library : projekt_.OwnedLibraries())
        search_.Find(*library);
    for (const auto& library : projekt_.OwnedLibraries())
        if (library->file.IsFound() && !library->isProject)
            Load(*library);
    NoteLibraryProblems(projekt_, search_);
}

ImportedLibraryFinder LibraryLoader::Finder() {
    return [this](const typelib::ImportedLibrary& imported) { return Imported(imported).library; };
}

std::string LibraryLoader::FileOf(const typelib::ImportedLibrary& imported) {
    return Imported(imported).file;
}

void LibraryLoader::Load(clsTypeLib& library) {
    const TypeLibrary& read = Read(library.file.path, library.file.resource).library;
    const CodePage& page = projekt_.TheNames().Page();
    if (!read.name.empty())
        library.SetName(projekt_.TheNames().Intern(page.FromUtf8(read.name)));
    if (!read.description.empty())
        library.Description = page.FromUtf8(read.description);
    library.format = TextOf(read.format);
    ReadInterfaces(projekt_, library, ContentsOf(read, Finder()));
    if (library.LibTyp == LibraryKind::Component && library.IconIndex > 0)
        library.picture = PictureFileOf(
            ReadForResources(projekt_.TheFiles(), search_.PictureFile(library), kMaxLibraryFileBytes).bytes,
            static_cast<std::uint32_t>(library.IconIndex));
    if (!read.problems.empty())
        NoteBrokenLibrary(projekt_, library, read.problems.front());
}

const LibraryInFile& LibraryLoader::Read(const std::string& file, int resource) {
    auto& known = read_[{file, resource}];
    if (!known)
        known = std::make_unique<const LibraryInFile>(
            ReadLibraryFile(projekt_.TheFiles(), resource == 0 ? file : file + '\\' + std::to_string(resource)));
    return *known;
}

// A library takes types from others that the project need not name, such as that of fonts and pictures.
const LibraryLoader::Import& LibraryLoader::Imported(const typelib::ImportedLibrary& imported) {
    clsTypeLib other(projekt_.TheNames());
    other.TypeLibID = imported.id;
    other.Version = VersionText(imported.major, imported.minor);
    other.LineFile = imported.file;
    const auto [known, isNew] = imported_.try_emplace(NormalisedGuid(other.TypeLibID) + other.Version);
    if (!isNew)
        return known->second;
    other.file = FileOfProject(other);
    if (!other.file.IsFound())
        search_.Find(other);
    if (other.file.IsFound())
        known->second = {&Read(other.file.path, other.file.resource).library, other.file.path};
    return known->second;
}

// The places of its line in the project file lead to a library that nothing else does.
LibraryFile LibraryLoader::FileOfProject(const clsTypeLib& asked) const {
    const std::optional<LibraryVersion> version = VersionOf(asked.Version);
    for (const auto& library : projekt_.OwnedLibraries()) {
        const std::optional<LibraryVersion> offered = VersionOf(library->file.version);
        if (library->file.IsFound() && offered && version && FitOf(*offered, *version) != VersionFit::Other &&
            NormalisedGuid(library->TypeLibID) == NormalisedGuid(asked.TypeLibID))
            return library->file;
    }
    return {};
}
