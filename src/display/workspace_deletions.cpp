// What the workspace does about deletions.
#include "display/baum.h"
#include "display/node_objects.h"
#include "display/workspace.h"
#include "findings/dead_objects.h"
#include "findings/library_use.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "project/refresh.h"
#include "shell/operations.h"
#include "source/module_text.h"

// The nodes of what stays keep their places in the tree.
void Workspace::Exchange(const std::string& name, const std::function<void()>& change) {
    EdgesGo();
    ports_.run(name, false, change);
    if (!projekt_->callsKnown)
        Tote_Untote_Kennzeichnen(*projekt_);
    NoteCostsOfMissingLibraries(*projekt_);
    RefillTree();
}

std::vector<DeletionRow> Workspace::RowsToDelete(const std::string& key) {
    const CodeObject* const object = projekt_ ? ObjectOfNode(*projekt_, key) : nullptr;
    if (!object)
        return {};
    if (object->Class() == ObjectClass::Variable)
        if (const clsProzedur* prozedur = static_cast<const clsVariable*>(object)->Prozedur)
            code_.LookAtLocals(*prozedur);
    return DeletionRows(*projekt_, code_.Locals(), ObjectsToDelete(*object));
}

std::vector<DeletionRow> Workspace::DeadRows() const {
    if (!CallsRead())
        return {};
    const BaumNode* const node = tree_.Selected();
    if (checked_.Empty() && !node)
        return {};
    return DeletionRows(*projekt_, code_.Locals(),
                        checked_.Empty() ? DeadBelow(*projekt_, *node) : DeadAmong(*projekt_, checked_));
}

Deletions::Deleted Workspace::Delete(const std::vector<DeletionRow>& rows) {
    std::vector<const CodeObject*> objects;
    for (const DeletionRow& row : rows)
        if (const CodeObject* object = ObjectOfNode(*projekt_, row.key))
            objects.push_back(object);
    Deletions::Deleted deleted;
    Exchange("DeleteNode", [&] { deleted = deletions_.Delete(*projekt_, objects); });
    return deleted;
}

bool Workspace::UndoDeletions(const std::vector<int>& numbers) {
    bool undone = false;
    Exchange("DeleteNode", [&] { undone = deletions_.Undo(*projekt_, numbers); });
    return undone;
}

std::optional<Workspace::Shown> Workspace::ShowDeleted(int nr) {
    const Deletion* const deletion = projekt_ ? deletions_.Find(nr) : nullptr;
    if (!deletion)
        return {};
    for (const auto& modul : projekt_->OwnedModules())
        if (modul->FullPath == deletion->path)
            return ShowInModule(*modul, deletions_.PositionOf(*deletion));
    return {};
}

std::optional<Workspace::Shown> Workspace::ShowInModule(const clsModul& modul, Pos pos) {
    code_.ShowWhole(true, code_.HasHeader() || pos < modul.BeginnVarBereich);
    std::optional<Shown> shown = Activate(modul.CodePath());
    if (shown)
        shown->code.select = code_.Text().Shown(pos, 0).value_or(CodeRange{Len(code_.Text().text), 0});
    return shown;
}

bool Workspace::MayReadAgain(const ChangedFiles& changed) {
    if (!changed.Has(FileChange::Edited))
        return false;
    std::vector<std::string> edited;
    for (const ChangedFile& file : changed.files)
        if (file.what == FileChange::Edited)
            edited.push_back(file.path);
    if (!ports_.askReadAgain || !ports_.askReadAgain(edited))
        return false;
    for (const std::string& path : edited)
        deletions_.Forget(*projekt_, path);
    return true;
}
