#include "libraries/library_loader.h"

#include "libraries/library_problems.h"
#include "libraries/library_version.h"
#include "model/clsProjekt.h"
#include "model/clsTypeLib.h"
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
    for (const auto& library : projekt_.OwnedLibraries()) {
        search_.Find(*library);
        if (library->file.IsFound() && !library->isProject)
            Load(*library);
    }
    NoteLibraryProblems(projekt_, search_);
}

ImportedLibraryFinder LibraryLoader::Finder() {
    return [this](const typelib::ImportedLibrary& imported) { return Imported(imported); };
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
        library.picture =
            PictureFileOf(projekt_.TheFiles().ReadBytes(search_.PictureFile(library), kMaxLibraryFileBytes).bytes,
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
const TypeLibrary* LibraryLoader::Imported(const typelib::ImportedLibrary& imported) {
    const auto [known, isNew] = imported_.try_emplace(NormalisedGuid(imported.id), nullptr);
    if (!isNew)
        return known->second;
    clsTypeLib other(std::pmr::get_default_resource());
    other.TypeLibID = imported.id;
    other.Version = VersionText(imported.major, imported.minor);
    other.LineFile = imported.file;
    search_.Find(other);
    if (other.file.IsFound())
        known->second = &Read(other.file.path, other.file.resource).library;
    return known->second;
}
