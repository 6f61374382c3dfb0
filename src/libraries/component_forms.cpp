#include "libraries/component_forms.h"

#include <algorithm>

#include "model/clsProjekt.h"
#include "platform/ascii.h"
#include "shell/words.h"

namespace {

// The place of a text, in any letter case; npos if it is missing.
std::size_t FindNoCase(std::string_view text, std::string_view part) {
    const auto found = std::search(text.begin(), text.end(), part.begin(), part.end(),
                                   [](char a, char b) { return ascii::Lower(a) == ascii::Lower(b); });
    return found == text.end() ? std::string_view::npos : static_cast<std::size_t>(found - text.begin());
}

}  // namespace

bool Who_Uses_ProjectObject(const clsModul& modul, const clsTypeLib& component) {
    if (!modul.text || component.TypeLibID.empty())
        return false;
    // The lines are at the very start of the file, so the first place counts.
    const std::string_view text = modul.text->ModulTextOrg();
    const std::string_view header = text.substr(0, static_cast<std::size_t>(modul.BeginnVarBereich));
    const std::size_t at = FindNoCase(header, component.TypeLibID);
    if (at == std::string_view::npos)
        return false;
    const std::size_t lineBreak = header.rfind('\n', at);
    std::string_view line = header.substr(lineBreak + 1, at - lineBreak - 1);
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return ascii::SameText(modMain::GetWortNrAusString(line, 1), "object");
}

std::vector<const clsTypeLib*> Ref_ProjectObjects(const clsProjekt& projekt, const clsModul& modul) {
    std::vector<const clsTypeLib*> found;
    if (modul.ModulTyp != ModuleKind::UserControl)
        for (const clsTypeLib* component : projekt.myProjectObjects)
            if (Who_Uses_ProjectObject(modul, *component))
                found.push_back(component);
    return found;
}

std::vector<clsModul*> Who_Uses_Me(const clsProjekt& projekt, const clsTypeLib& component) {
    std::vector<clsModul*> found;
    for (const auto* modules : {&projekt.Modules, &projekt.Formulare, &projekt.Klassenmodule})
        for (clsModul* modul : *modules)
            if (Who_Uses_ProjectObject(*modul, component))
                found.push_back(modul);
    return found;
}
