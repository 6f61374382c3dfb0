#include "console/library_inventory.h"

#include "findings/library_use.h"
#include "model/clsProjekt.h"
#include "shell/csv.h"

namespace {

std::string UseText(const LibraryUse& use, bool isFound) {
    if (!use.IsUsed())
        return isFound ? "no use found" : "no use found by its name";
    std::string text = "used by " + Counted(use.modules, "module", "modules");
    text += " at " + Counted(use.places, "place", "places");
    if (use.controls > 0)
        text += ", " + Counted(use.controls, "control", "controls");
    if (use.variables > 0)
        text += ", " + Counted(use.variables, "variable", "variables");
    return text;
}

std::string_view StateOf(const clsTypeLib& library) {
    if (!library.file.IsSought())
        return "not sought";
    return library.file.IsFound() ? "found" : "missing";
}

std::string PlaceText(const clsTypeLib& library, const LibraryPlace& place) {
    return std::string(TextOf(place.step)) + ": " + (place.place.empty() ? "" : library.Utf8(place.place) + ", ") +
           std::string(TextOf(place.outcome));
}

// Where a library was sought in vain.
std::string SoughtText(const clsTypeLib& library) {
    std::string text;
    if (!library.file.IsFound())
        for (const LibraryPlace& place : library.file.places)
            text += (text.empty() ? "" : "; ") + PlaceText(library, place);
    return text;
}

std::string Page(const clsTypeLib& library, const LibraryUse& use) {
    std::string page = library.Utf8(library.myNameOrg());
    if (!library.Description.empty())
        page += " - " + library.Utf8(library.Description);
    page += "\n";
    const auto line = [&page](std::string_view label, const std::string& value) {
        page.append("  ").append(label).append(12 - label.size(), ' ').append(value).append("\n");
    };
    line("kind", std::string(TextOf(library.LibTyp)) + (library.isProject ? " (project)" : ""));
    if (!library.isProject)
        line("identifier", library.Utf8(library.TypeLibID) + " version " + library.Utf8(library.Version));
    if (library.file.IsFound()) {
        line("file", library.Utf8(library.file.path));
        if (!library.format.empty())
            line("contents",
                 Counted(use.classes, "class", "classes") + ", " + Counted(use.members, "member", "members"));
    } else {
        line("file", std::string(StateOf(library)));
        for (const LibraryPlace& place : library.file.places)
            line("", PlaceText(library, place));
    }
    line("use", UseText(use, library.file.IsFound()));
    return page;
}

}  // namespace

std::string LibraryInventory(const clsProjekt& projekt) {
    const std::vector<LibraryUse> uses = UsesOfLibraries(projekt);
    std::string text;
    for (std::size_t i = 0; i < uses.size(); ++i)
        text += Page(*projekt.OwnedLibraries()[i], uses[i]);
    return text.empty() ? "The project names no library.\n" : text;
}

std::string LibraryTable(const clsProjekt& projekt) {
    const std::vector<LibraryUse> uses = UsesOfLibraries(projekt);
    std::string table =
        "name,description,version,identifier,kind,state,file,classes,members,modules,places,controls,variables,"
        "sought\r\n";
    for (std::size_t i = 0; i < uses.size(); ++i) {
        const clsTypeLib& library = *projekt.OwnedLibraries()[i];
        const LibraryUse& use = uses[i];
        for (const std::string& text :
             {library.Utf8(library.myNameOrg()), library.Utf8(library.Description), library.Utf8(library.Version),
              library.Utf8(library.TypeLibID), std::string(TextOf(library.LibTyp)), std::string(StateOf(library)),
              library.Utf8(library.file.path)})
            table += CsvCell(text) + ",";
        for (const int number : {use.classes, use.members, use.modules, use.places, use.controls})
            table += std::to_string(number) + ",";
        table += std::to_string(use.variables) + "," + CsvCell(SoughtText(library)) + "\r\n";
    }
    return table;
}
