#include "libraries/library_problems.h"

#include "libraries/library_search.h"
#include "libraries/library_version.h"
#include "model/clsProjekt.h"
#include "model/clsTypeLib.h"

namespace {

constexpr std::string_view kBroken = "clsTypeLib: ReadInterfaces";

// Which library was not found: the sentence that its problem begins with.
std::string MissingText(const clsTypeLib& library, const std::string& file) {
    if (library.isProject)
        return "Project not found: " + library.LineFile;
    std::string text = "Library not found: " + std::string(library.myNameOrg());
    if (!file.empty())
        text += ", " + file;
    text += ", " + library.TypeLibID;
    if (!library.Version.empty())
        text += " version " + library.Version;
    return text + ".";
}

std::string OtherVersionText(const clsTypeLib& library) {
    return "Library " + std::string(library.myNameOrg()) + ": version " + library.Version + " was not found; version " +
           library.file.version + " is used.";
}

bool HasWrongVersion(const clsTypeLib& library) {
    const auto asked = VersionOf(library.Version);
    const auto found = VersionOf(library.file.version);
    return library.file.IsFound() && asked && found && FitOf(*found, *asked) == VersionFit::Other;
}

}  // namespace

std::string FileNameOf(const clsTypeLib& library) {
    std::string name = library.LineFile;
    for (int part = 0; part < 2; ++part) {
        const std::size_t separator = name.find_last_of("\\/");
        if (separator == std::string::npos)
            break;
        if (name.find_first_not_of("0123456789", separator + 1) != std::string::npos)
            return name.substr(separator + 1);
        name.resize(separator);
    }
    return name;
}

std::string MissingLibraryText(const clsTypeLib& library, std::string_view cost) {
    const std::string file = FileNameOf(library);
    std::string text = MissingText(library, file);
    if (library.isProject)
        return text;
    if (!cost.empty())
        text.append(" ").append(cost);
    return text + " Copy " + (file.empty() ? "its file" : "the file " + file) +
           " into the project's folder or into a folder of LibraryFolders.";
}

bool IsProblemOf(const clsTypeLib& library, std::string_view tag, std::string_view text, std::string_view subject) {
    if (tag == kMissingLibrary)
        return library.file.IsMissing() && subject == library.LineFile &&
               text.starts_with(MissingText(library, FileNameOf(library)));
    return tag == kOtherVersion && HasWrongVersion(library) && subject == library.file.path &&
           text == OtherVersionText(library);
}

void NoteCost(clsProjekt& projekt, const clsTypeLib& library, std::string_view cost) {
    projekt.problems.Rephrase(kMissingLibrary, library.LineFile, MissingText(library, FileNameOf(library)),
                              MissingLibraryText(library, cost));
}

void NoteLibraryProblems(clsProjekt& projekt, const LibrarySearch& search) {
    const bool isHint = !search.Sources().isConfigured;
    const auto add = [&](std::string_view tag, std::string text, const std::string& subject) {
        projekt.problems.Add({std::string(tag), std::move(text), subject, {}, isHint});
    };
    for (const auto& library : projekt.OwnedLibraries()) {
        if (library->file.IsMissing())
            add(kMissingLibrary, MissingLibraryText(*library), library->LineFile);
        else if (HasWrongVersion(*library))
            add(kOtherVersion, OtherVersionText(*library), library->file.path);
    }
    if (!projekt.OwnedLibraries().empty())
        for (const std::string& file : search.TheRegistry().Unreadable())
            add(kUnreadableRegistry, "The registry file cannot be read.", file);
}

void NoteBrokenLibrary(clsProjekt& projekt, const clsTypeLib& library, std::string what) {
    projekt.problems.Add({std::string(kBroken),
                          "Library " + std::string(library.myNameOrg()) + " is damaged: " + std::move(what),
                          library.file.path});
}
