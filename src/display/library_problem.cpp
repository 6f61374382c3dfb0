#include "display/library_problem.h"

#include <algorithm>

#include "display/fixed_texts.h"
#include "display/problem_entries.h"
#include "display/shown_text.h"
#include "libraries/library_problems.h"
#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "shell/clsText.h"

namespace {

std::string Utf8(std::string_view bytes) {
    return ActiveCodePage().ToUtf8(bytes);
}

// "Tree, TREE.OCX, {831FDD16-...} 2.0"
std::string NameAndFile(const clsTypeLib& library) {
    std::string text(library.myNameOrg());
    if (const std::string file = FileNameOf(library); !file.empty())
        text += ", " + file;
    return Utf8(text + ", " + library.TypeLibID + " " + library.Version);
}

std::string MissingText(const clsTypeLib& library) {
    if (library.isProject)
        return Filled(Text::ProjectNotFoundNamed, {Utf8(ShownPath(library.LineFile))});
    return Filled(Text::LibraryNotFoundNamed, {NameAndFile(library)}) + ". " + Utf8TextNr(Text::NeededBy) + ": " +
           NeedText(library) + ". " + RemedyText(library);
}

std::string OtherVersionText(const clsTypeLib& library) {
    return Filled(Text::OtherVersionUsed,
                  {Utf8(std::string(library.myNameOrg()) + " " + library.Version), Utf8(library.file.version)});
}

// Empty for problems of other kinds.
std::string LibraryText(const clsProjekt& projekt, const ProblemEntry& entry) {
    const ProblemPlace& place = entry.places.front();
    if (place.tag == kUnreadableRegistry)
        return Utf8TextNr(Text::RegistryFileUnreadable);
    for (const auto& library : projekt.OwnedLibraries())
        if (IsProblemOf(*library, place.tag, entry.text, place.path))
            return place.tag == kMissingLibrary ? MissingText(*library) : OtherVersionText(*library);
    return {};
}

}  // namespace

std::string NeedText(const clsTypeLib& library) {
    const LibraryNeed& need = library.need;
    if (need.IsNone())
        return Utf8TextNr(Text::NoUseByName);
    std::string text;
    const auto add = [&text](Text label, int number) {
        if (number > 0)
            text += (text.empty() ? "" : ", ") + Utf8TextNr(label) + ": " + Utf8Number(number);
    };
    add(Text::CountControls, need.controls);
    add(Text::Variables, need.variables);
    add(Text::CountCalls, need.calls);
    add(Text::Modules, need.modules);
    return text;
}

std::string RemedyText(const clsTypeLib& library) {
    if (library.isProject)
        return {};
    const std::string file = FileNameOf(library);
    return Filled(Text::CopyLibrary, {Utf8(file.empty() ? library.TypeLibID : file)});
}

std::string ShownProblem(const clsProjekt* projekt, const ProblemEntry& entry) {
    std::string text = projekt ? LibraryText(*projekt, entry) : std::string();
    return text.empty() ? ShownText(entry.text) : text;
}
