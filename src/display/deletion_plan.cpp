#include "display/deletion_plan.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

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

/// @param stretches  rising
bool IsIn(const std::vector<Stretch>& stretches, Pos pos) {
    const auto next = std::ranges::upper_bound(stretches, pos, {}, &Stretch::start);
    return next != stretches.begin() && pos < next[-1].End();
}

/// Objects that go together, with what is cut out of the modules for them.
class GoingObjects {
public:
    explicit GoingObjects(const std::vector<const CodeObject*>& objects) {
        for (const CodeObject* object : objects) {
            ObjectCut cut = DeleteMe(*object);
            std::vector<Part>& parts = ofModules_[object->Modul];
            for (const Stretch& stretch : cut.stretches)
                parts.push_back({stretch, object});
            cuts_.emplace(object, std::move(cut));
        }
        for (auto& [modul, parts] : ofModules_)
            parts = Outer(std::move(parts));
    }
    GoingObjects(const GoingObjects&) = delete;
    GoingObjects& operator=(const GoingObjects&) = delete;
    // The texts in lower case are only read here.
    ~GoingObjects() {
        for (const auto& [modul, parts] : ofModules_)
            if (modul && modul->text)
                modul->text->ReleaseModulText();
    }

    [[nodiscard]] const ObjectCut& CutOf(const CodeObject& object) const { return cuts_.at(&object); }
    /// The object with which a place of a module is cut out, the outer one of several; null for none.
    [[nodiscard]] const CodeObject* At(const clsModul& modul, Pos pos) const {
        const auto found = ofModules_.find(&modul);
        if (found == ofModules_.end())
            return nullptr;
        const std::vector<Part>& parts = found->second;
        const auto next = std::ranges::upper_bound(parts, pos, {}, [](const Part& part) { return part.stretch.start; });
        return next != parts.begin() && pos < next[-1].stretch.End() ? next[-1].object : nullptr;
    }

private:
    struct Part {
        Stretch stretch;
        const CodeObject* object;
    };
    // In their order, without those inside of others, so that their ends rise as well.
    static std::vector<Part> Outer(std::vector<Part> parts) {
        std::ranges::stable_sort(parts, [](const Part& a, const Part& b) {
            return a.stretch.start != b.stretch.start ? a.stretch.start < b.stretch.start
                                                      : a.stretch.End() > b.stretch.End();
        });
        std::vector<Part> outer;
        for (const Part& part : parts)
            if (outer.empty() || part.stretch.End() > outer.back().stretch.End())
                outer.push_back(part);
        return outer;
    }

    std::unordered_map<const CodeObject*, ObjectCut> cuts_;
    std::unordered_map<const clsModul*, std::vector<Part>> ofModules_;  // what is cut out
};

/// Leaves out what is still named in a place that stays, and what only that names, and so on.
std::vector<const CodeObject*> NamedNowhereElse(const clsProjekt& projekt, std::vector<const CodeObject*> objects) {
    const GoingObjects going(objects);
    std::unordered_map<const CodeObject*, std::vector<const CodeObject*>> namedIn;
    std::unordered_set<const CodeObject*> staying;
    std::vector<const CodeObject*> open;  // that stay, with names in them not looked at
    const auto stay = [&](const CodeObject* object) {
        if (staying.insert(object).second)
            open.push_back(object);
    };
    for (const CodeObject* object : objects) {
        if (going.CutOf(*object).whyNot != Text::None)
            stay(object);
        ForEachEdgeTo(projekt, *object, [&](const clsCall& call) {
            if (const CodeObject* around = going.At(call.CallerModule(), call.CallPos))
                namedIn[around].push_back(object);
            else
                stay(object);
        });
    }
    while (!open.empty()) {
        const CodeObject* const object = open.back();
        open.pop_back();
        std::ranges::for_each(namedIn[object], stay);
    }
    std::erase_if(objects, [&staying](const CodeObject* object) { return staying.contains(object); });
    return objects;
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

/// A list of names without repetitions.
class NamesOnce {
public:
    explicit NamesOnce(std::vector<std::string>& names) : names_(names) {}
    void Add(std::string name) {
        if (known_.insert(name).second)
            names_.push_back(std::move(name));
    }

private:
    std::vector<std::string>& names_;
    std::unordered_set<std::string> known_;
};

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
        NamesOnce certain(row.certain), possible(row.possible);
        for (const CallPlace& place : ReferencesTo(projekt, locals, *object))
            if (going.At(place.Modul(), place.pos))
                row.losesCallers = row.losesCallers || place.owner != object;
            else
                (place.type == CallType::MayBe ? possible : certain).Add(place.owner->CodePathOrg());
        if (object->Class() == ObjectClass::Control)
            for (const clsControl* control : object->Modul->MyControls)
                if (control->NameKey() != object->NameKey() && IsIn(cut.stretches, control->DeclareStart))
                    row.inside.emplace_back(control->myNameOrg());
        rows.push_back(std::move(row));
    }
    return rows;
}
