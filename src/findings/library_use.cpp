#include "findings/library_use.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "calls/resolve.h"
#include "libraries/component_forms.h"
#include "libraries/library_problems.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"

namespace {

LibraryUse ContentsOf(const clsTypeLib& library) {
    LibraryUse use;
    use.classes = library.myCoClasses.Count();
    for (const clsModul* oneClass : library.myCoClasses)
        use.members += oneClass->MyProcs.Count() + oneClass->MyEvents.Count() + oneClass->MyVars.Count();
    for (const clsEnum* einEnum : library.myEnums)
        use.members += einEnum->MyVars.Count();
    for (const clsType* type : library.myTypes)
        use.members += type->MyVars.Count();
    return use;
}

// The word before the first point of a type; empty without a point.
std::string_view QualifierOf(std::string_view type) {
    const std::size_t point = type.find('.');
    return point == std::string_view::npos ? std::string_view() : type.substr(0, point);
}

// What is declared with types of one library that is not known.
struct Dependents {
    std::set<const clsModul*> modules;
    std::set<const clsModul*> formsWithControls;
    std::vector<const CodeObject*> objects;
    int controls = 0;
};

class UseCounter {
public:
    explicit UseCounter(const clsProjekt& projekt) : projekt_(projekt), modules_(projekt.OwnedLibraries().size()) {
        for (const auto& library : projekt_.OwnedLibraries()) {
            numbers_[library.get()] = uses_.size();
            uses_.push_back(ContentsOf(*library));
        }
    }

    void CountPlaces() {
        projekt_.calls.ForEach([this](const clsCall& call) {
            const CodeObject& target = *call.Parent;
            const CodeObject* library = target.Class() == ObjectClass::TypeLib ? &target : target.myLibrary;
            if (library)
                Place(*library, call.CallerModule());
        });
    }

    void CountDeclarations() {
        for (const clsModul* modul : projekt_.AllModules())
            for (const CodeObject* object : modul->Owned())
                Declaration(*modul, *object);
        for (const auto& [qualifier, dependents] : unknown_)
            if (const clsTypeLib* library = MissingLibrary(qualifier, dependents))
                Depends(*library, dependents);
    }

    std::vector<LibraryUse> Take() {
        for (std::size_t i = 0; i < uses_.size(); ++i)
            uses_[i].modules = static_cast<int>(modules_[i].size());
        return std::move(uses_);
    }

private:
    void Place(const CodeObject& library, const clsModul& modul) {
        const std::size_t nr = numbers_.at(&library);
        ++uses_[nr].places;
        modules_[nr].insert(&modul);
    }

    void Declaration(const clsModul& modul, const CodeObject& object) {
        if (object.Class() == ObjectClass::Control) {
            const auto& control = static_cast<const clsControl&>(object);
            const clsModul* type = modMain::Get_Typ_VonControl(projekt_, control);
            if (type && type->myLibrary) {
                const std::size_t nr = numbers_.at(type->myLibrary);
                ++uses_[nr].controls;
                modules_[nr].insert(&modul);
            } else if (!type) {
                Unknown(modul, object, control.DatenTyp());
            }
        } else if (object.Class() == ObjectClass::Variable) {
            Unknown(modul, object, static_cast<const clsVariable&>(object).DatenTyp());
        } else if (object.Class() == ObjectClass::Prozedur) {
            for (const clsVariable* variable : static_cast<const clsProzedur&>(object).MyVars)
                Unknown(modul, *variable, variable->DatenTyp());
        }
    }

    // Notes an object whose type has a qualifier that names neither the project nor a library that was found.
    void Unknown(const clsModul& modul, const CodeObject& object, std::string_view type) {
        const std::string_view qualifier = QualifierOf(type);
        if (qualifier.empty() || qualifier == "vb" || qualifier == "vba" || IsKnown(qualifier))
            return;
        Dependents& dependents = unknown_[std::string(qualifier)];
        dependents.modules.insert(&modul);
        dependents.objects.push_back(&object);
        if (object.Class() == ObjectClass::Control) {
            ++dependents.controls;
            dependents.formsWithControls.insert(&modul);
        }
    }

    [[nodiscard]] bool IsKnown(std::string_view qualifier) const {
        if (LowerCase(projekt_.MyName) == qualifier)
            return true;
        return std::ranges::any_of(projekt_.OwnedLibraries(), [&](const auto& library) {
            return library->file.IsFound() && library->MyName() == qualifier;
        });
    }

    [[nodiscard]] const clsTypeLib* MissingLibrary(std::string_view qualifier, const Dependents& dependents) const {
        std::vector<const clsTypeLib*> candidates;
        for (const auto& library : projekt_.OwnedLibraries()) {
            if (library->file.IsFound() || library->isProject)
                continue;
            if (library->MyName() == qualifier)
                return library.get();
            const bool isComponent = library->LibTyp == LibraryKind::Component;
            if (isComponent == (dependents.controls > 0) &&
                std::ranges::all_of(dependents.formsWithControls,
                                    [&](const clsModul* form) { return Who_Uses_ProjectObject(*form, *library); }))
                candidates.push_back(library.get());
        }
        const bool isOnlyOne = dependents.controls > 0 || std::ranges::count_if(unknown_, [](const auto& other) {
                                                              return other.second.controls == 0;
                                                          }) == 1;
        return candidates.size() == 1 && isOnlyOne ? candidates[0] : nullptr;
    }

    void Depends(const clsTypeLib& library, const Dependents& dependents) {
        const std::size_t nr = numbers_.at(&library);
        LibraryUse& use = uses_[nr];
        use.controls += dependents.controls;
        use.variables += static_cast<int>(dependents.objects.size()) - dependents.controls;
        for (const CodeObject* object : dependents.objects)
            use.places += object->CalledByAll().Count();
        modules_[nr].insert(dependents.modules.begin(), dependents.modules.end());
    }

    const clsProjekt& projekt_;
    std::map<const CodeObject*, std::size_t> numbers_;
    std::vector<LibraryUse> uses_;
    std::vector<std::set<const clsModul*>> modules_;
    std::map<std::string, Dependents> unknown_;  // by qualifier
};

// "It is needed by 3 controls, 1 variable and 14 calls in 2 modules."
std::string CostText(const LibraryUse& use) {
    if (!use.IsUsed())
        return "No use of it was found by its name.";
    std::vector<std::string> parts;
    if (use.controls > 0)
        parts.push_back(Counted(use.controls, "control", "controls"));
    if (use.variables > 0)
        parts.push_back(Counted(use.variables, "variable", "variables"));
    if (use.places > 0)
        parts.push_back(Counted(use.places, "call", "calls"));
    std::string text = "It is needed by " + parts[0];
    for (std::size_t i = 1; i < parts.size(); ++i)
        text += (i + 1 < parts.size() ? ", " : " and ") + parts[i];
    return text + " in " + Counted(use.modules, "module", "modules") + ".";
}

}  // namespace

std::string Counted(int number, std::string_view one, std::string_view many) {
    return std::to_string(number).append(" ").append(number == 1 ? one : many);
}

std::vector<LibraryUse> UsesOfLibraries(const clsProjekt& projekt) {
    UseCounter counter(projekt);
    counter.CountPlaces();
    counter.CountDeclarations();
    return counter.Take();
}

void NoteCostsOfMissingLibraries(clsProjekt& projekt) {
    const auto isMissing = [](const auto& library) { return library->file.IsMissing(); };
    if (std::ranges::none_of(projekt.OwnedLibraries(), isMissing))
        return;
    UseCounter counter(projekt);
    counter.CountDeclarations();
    std::vector<LibraryUse> uses = counter.Take();
    for (std::size_t nr = 0; nr < uses.size(); ++nr)
        if (const auto& library = projekt.OwnedLibraries()[nr]; isMissing(library)) {
            if (!projekt.callsKnown)
                uses[nr].places = 0;  // those of a reading that was cancelled
            library->need = {uses[nr].controls, uses[nr].variables, uses[nr].places, uses[nr].modules};
            NoteCost(projekt, *library, CostText(uses[nr]));
        }
}
