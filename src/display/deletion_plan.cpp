#include "display/deletion_plan.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "display/call_places.h"
#include "display/node_objects.h"
#include "display/tree_checks.h"
#include "findings/start_up.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "project/object_cut.h"
#include "source/lines.h"
#include "source/module_text.h"

namespace {

bool IsIn(const std::vector<Stretch>& stretches, Pos pos) {
    return std::any_of(stretches.begin(), stretches.end(),
                       [pos](const Stretch& stretch) { return stretch.start <= pos && pos < stretch.End(); });
}

/// Objects that go together, with what is cut out of the modules for them.
class GoingObjects {
public:
    explicit GoingObjects(const std::vector<const CodeObject*>& objects) {
        for (const CodeObject* object : objects) {
            ObjectCut cut = DeleteMe(*object);
            std::vector<Stretch>& own = ofModules_[object->Modul];
            own.insert(own.end(), cut.stretches.begin(), cut.stretches.end());
            cuts_.emplace(object, std::move(cut));
        }
    }
    GoingObjects(const GoingObjects&) = delete;
    GoingObjects& operator=(const GoingObjects&) = delete;
    // The texts in lower case are only read here.
    ~GoingObjects() {
        for (const auto& [modul, stretches] : ofModules_)
            if (modul && modul->text)
                modul->text->ReleaseModulText();
    }

    [[nodiscard]] const ObjectCut& CutOf(const CodeObject& object) const { return cuts_.at(&object); }
    /// Whether a place of a module is cut out.
    [[nodiscard]] bool Covers(const clsModul& modul, Pos pos) const {
        const auto found = ofModules_.find(&modul);
        return found != ofModules_.end() && IsIn(found->second, pos);
    }

private:
    std::unordered_map<const CodeObject*, ObjectCut> cuts_;
    std::unordered_map<const clsModul*, std::vector<Stretch>> ofModules_;
};

/// Leaves out what is still named in a place that stays, and what only that names, and so on.
std::vector<const CodeObject*> NamedNowhereElse(const clsProjekt& projekt, std::vector<const CodeObject*> objects) {
    for (;;) {
        const GoingObjects going(objects);
        const auto isNamed = [&](const CodeObject* object) {
            bool named = going.CutOf(*object).whyNot != Text::None;
            ForEachEdgeTo(projekt, *object, [&](const clsCall& call) {
                named = named || !going.Covers(call.CallerModule(), call.CallPos);
            });
            return named;
        };
        if (std::erase_if(objects, isNamed) == 0)
            return objects;
    }
}

template <class Chosen>
std::vector<const CodeObject*> DeadWhere(const clsProjekt& projekt, const Chosen& isChosen) {
    std::vector<const CodeObject*> dead;
    const CodeObject* const startUp = StartUpProcedure(projekt);
    const auto add = [&](const auto& objects) {
        for (const CodeObject* object : objects)
            if (object->IsDeath == 1 && object != startUp && isChosen(*object))
                dead.push_back(object);
    };
    for (const clsModul* modul : projekt.AllModules()) {
        add(modul->myTypes);
        add(modul->myEnums);
        for (const clsVariable* variable : modul->MyVars)
            if (variable->IsDeath == 1 && CanBeDeleted(*variable) && isChosen(*variable))
                dead.push_back(variable);
        add(modul->MyProcs);
    }
    return NamedNowhereElse(projekt, std::move(dead));
}

void AddOnce(std::vector<std::string>& names, std::string name) {
    if (std::find(names.begin(), names.end(), name) == names.end())
        names.push_back(std::move(name));
}

int LinesOf(const CodeObject& object, const ObjectCut& cut) {
    const std::string_view text = object.Modul->text->ModulTextOrg();
    int lines = 0;
    for (const Stretch& stretch : cut.stretches)
        lines += LineOf(Mid(text, stretch.start, stretch.length), stretch.length);
    return lines;
}

}  // namespace

bool CanBeDeleted(const CodeObject& object) {
    if (object.myLibrary || object.Class() == ObjectClass::TypeLib)
        return false;
    if (object.Class() != ObjectClass::Variable)
        return true;
    const auto& variable = static_cast<const clsVariable&>(object);
    return !variable.MyEnum && !variable.MyType && !variable.isFormInstance && !variable.isResult &&
           variable.Zugriff != Access::Argument && variable.MyName() != "me";
}

std::vector<const CodeObject*> ObjectsToDelete(const CodeObject& object) {
    if (object.Class() != ObjectClass::Modul)
        return {&object};
    const auto& modul = static_cast<const clsModul&>(object);
    std::vector<const CodeObject*> objects;
    for (const clsVariable* variable : modul.MyVars)
        if (CanBeDeleted(*variable))
            objects.push_back(variable);
    for (const clsProzedur* prozedur : modul.MyProcs)
        objects.push_back(prozedur);
    return objects;
}

std::vector<const CodeObject*> DeadBelow(const clsProjekt& projekt, const BaumNode& node) {
    std::unordered_set<const CodeObject*> below;
    std::vector<const BaumNode*> open{&node};
    while (!open.empty()) {
        const BaumNode& next = *open.back();
        open.pop_back();
        if (next.Kind() == NodeKind::Object)
            if (const CodeObject* object = ObjectOfNode(projekt, next.Id()))
                below.insert(object);
        open.insert(open.end(), next.ChildNodes().begin(), next.ChildNodes().end());
    }
    return DeadWhere(projekt, [&below](const CodeObject& object) {
        return below.contains(&object) || below.contains(object.Modul);
    });
}

std::vector<const CodeObject*> DeadAmong(const clsProjekt& projekt, const CheckedObjects& checked) {
    return DeadWhere(projekt, [&checked](const CodeObject& object) { return checked.Covers(object); });
}

std::vector<DeletionRow> DeletionRows(const clsProjekt& projekt, const LocalUses& locals,
                                      const std::vector<const CodeObject*>& objects) {
    const GoingObjects going(objects);
    std::vector<DeletionRow> rows;
    for (const CodeObject* object : objects) {
        const ObjectCut& cut = going.CutOf(*object);
        DeletionRow row;
        row.key = NodeKeyOf(*object);
        row.path = object->CodePathOrg();
        row.image = object->GetImageKey();
        row.whyNot = cut.whyNot;
        if (row.whyNot == Text::None)
            row.lines = LinesOf(*object, cut);
        for (const CallPlace& place : ReferencesTo(projekt, locals, *object))
            if (going.Covers(place.Modul(), place.pos))
                row.losesCallers = row.losesCallers || place.owner != object;
            else
                AddOnce(place.type == CallType::MayBe ? row.possible : row.certain, place.owner->CodePathOrg());
        if (object->Class() == ObjectClass::Control)
            for (const clsControl* control : object->Modul->MyControls)
                if (control->NameKey() != object->NameKey() && IsIn(cut.stretches, control->DeclareStart))
                    row.inside.emplace_back(control->myNameOrg());
        rows.push_back(std::move(row));
    }
    return rows;
}
