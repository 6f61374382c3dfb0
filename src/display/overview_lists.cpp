#include "display/overview_lists.h"

#include <algorithm>

#include "display/object_search.h"
#include "display/shown_text.h"
#include "findings/module_statistics.h"
#include "findings/object_counts.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "shell/words.h"

namespace {

class List {
public:
    void Module(const clsModul& modul, int lines) {
        // A file that is not there has not said the name of its module.
        const std::string name = modul.myNameOrg().empty() ? Utf8Of(nullptr, modMain::DirOrFileName(modul.FullPath, 0))
                                                           : Utf8Of(&modul, modul.myNameOrg());
        rows_.push_back({modul.CodePath(), name, ObjectKind(modul), Utf8Of(nullptr, ShownPath(modul.FullPath)), lines});
    }
    void Modules(const clsCollection<clsModul>& modules) {
        for (const clsModul* modul : modules)
            Module(*modul, modul->AnzLineCode);
    }
    void Sorted(const clsProjekt& projekt, int clsModul::*lines) {
        for (const clsModul* modul : projekt.AllModules())
            Module(*modul, modul->*lines);
        std::ranges::stable_sort(rows_, std::greater<>(), &ListedObject::lines);
    }
    void Object(const CodeObject& object) {
        const std::string_view owned = object.Class() == ObjectClass::Variable ? OwnerName(object) : "";
        std::string name = Utf8Of(object.Modul, owned);
        name.append(owned.empty() ? "" : ".").append(Utf8Of(object.Modul, object.myNameOrg()));
        rows_.push_back({object.CodePath(), std::move(name), ObjectKind(object),
                         object.Modul ? Utf8Of(object.Modul, object.Modul->myNameOrg()) : std::string(),
                         LinesOf(object)});
    }
    void Marked(const clsProjekt& projekt, int mark) {
        ForEachMarked(projekt, [&](const CodeObject& object) {
            if (object.IsDeath == mark)
                Object(object);
        });
    }
    void Libraries(const clsProjekt& projekt, bool onlyMissing) {
        for (const auto& library : projekt.OwnedLibraries())
            if (!onlyMissing || library->file.IsMissing())
                rows_.push_back(
                    {std::string(library->MyName()),
                     Utf8Of(nullptr, library->Description.empty() ? library->myNameOrg() : library->Description),
                     ObjectKind(*library), Utf8Of(nullptr, ShownPath(library->InprocServer32)), 0});
    }
    [[nodiscard]] std::vector<ListedObject> Take() { return std::move(rows_); }

private:
    static std::string_view OwnerName(const CodeObject& object) {
        const auto& variable = static_cast<const clsVariable&>(object);
        return variable.MyType   ? variable.MyType->myNameOrg()
               : variable.MyEnum ? variable.MyEnum->myNameOrg()
                                 : std::string_view();
    }

    std::vector<ListedObject> rows_;
};

}  // namespace

std::vector<ListedObject> ListOf(const clsProjekt& projekt, OverviewList list) {
    List rows;
    switch (list) {
        case OverviewList::AllModules:
            for (const clsModul* modul : projekt.AllModules())
                rows.Module(*modul, modul->AnzLineCode);
            break;
        case OverviewList::StandardModules:
            rows.Modules(projekt.Modules);
            break;
        case OverviewList::Forms:
            rows.Modules(projekt.Formulare);
            break;
        case OverviewList::ClassModules:
            rows.Modules(projekt.Klassenmodule);
            break;
        case OverviewList::UserControls:
            rows.Modules(projekt.UserControls);
            break;
        case OverviewList::FilesMissing:
            for (const auto& modul : projekt.OwnedModules())
                if (modul->fileError != FileError::None)
                    rows.Module(*modul, 0);
            break;
        case OverviewList::CodeLines:
            rows.Sorted(projekt, &clsModul::AnzLineCode);
            break;
        case OverviewList::CommentLines:
            rows.Sorted(projekt, &clsModul::AnzLineComment);
            break;
        case OverviewList::BlankLines:
            rows.Sorted(projekt, &clsModul::AnzLineBlank);
            break;
        case OverviewList::Procedures:
            for (const clsModul* modul : projekt.AllModules())
                for (const clsProzedur* prozedur : modul->MyProcs)
                    rows.Object(*prozedur);
            break;
        case OverviewList::Dead:
        case OverviewList::Undead:
            rows.Marked(projekt, list == OverviewList::Dead ? 1 : 2);
            break;
        case OverviewList::Libraries:
        case OverviewList::LibrariesMissing:
            rows.Libraries(projekt, list == OverviewList::LibrariesMissing);
            break;
        case OverviewList::Changes:
            break;
    }
    return rows.Take();
}
