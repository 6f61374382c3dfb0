#include "display/tree_checks.h"

#include <array>
#include <string_view>

#include "display/baum_walk.h"
#include "display/node_objects.h"
#include "model/clsModul.h"

namespace {

// By the number of the kind, from 1.
constexpr std::array<std::string_view, 6> kTypKeys{"form[]",        "module[]",    "class[]",
                                                   "usercontrol[]", "component[]", "reference[]"};

constexpr int kFirstLibraryTyp = 5;

int TypOf(std::string_view key) {
    for (std::size_t i = 0; i < kTypKeys.size(); ++i)
        if (kTypKeys[i] == key)
            return static_cast<int>(i) + 1;
    return 0;
}

void CheckAllBelow(Baum& tree, const BaumNode& node, bool checked) {
    std::vector<BaumNode*> open = node.ChildNodes();
    while (!open.empty()) {
        BaumNode& below = *open.back();
        open.pop_back();
        tree.SetChecked(below, checked);
        open.insert(open.end(), below.ChildNodes().begin(), below.ChildNodes().end());
    }
}

// The contents of a library: its classes, and the groups with its enumerations and records.
void CheckLibrary(Baum& tree, const BaumNode& library, bool checked) {
    if (!checked)
        return CheckAllBelow(tree, library, false);
    for (BaumNode* below : library.ChildNodes()) {
        tree.SetChecked(*below, true);
        if (below->Kind() == NodeKind::Group)
            for (BaumNode* block : below->ChildNodes())
                tree.SetChecked(*block, true);
    }
}

bool AllSiblingsChecked(const BaumNode& node) {
    for (const BaumNode* sibling = node.FirstSibling(); sibling; sibling = sibling->Next())
        if (!sibling->Checked())
            return false;
    return true;
}

void CheckAbove(Baum& tree, const BaumNode& node) {
    BaumNode* parent = node.Parent();
    if (!parent)
        return;
    tree.SetChecked(*parent, AllSiblingsChecked(node));
    if (BaumNode* grandparent = parent->Parent())
        tree.SetChecked(*grandparent, parent->Checked());
}

}  // namespace

void CheckedObjects::Add(CodeObject& object) {
    if (known_.insert(&object).second)
        objects_.push_back(&object);
}

bool CheckedObjects::Covers(const CodeObject& object) const {
    const CodeObject* const modul = object.Modul;
    return known_.contains(&object) || (modul && known_.contains(modul));
}

CheckedObjects CheckedIn(const clsProjekt& projekt, const Baum& tree) {
    CheckedObjects checked;
    ForEachNode(tree, [&](const BaumNode& node) {
        if (!node.Checked() || node.Kind() != NodeKind::Object)
            return;
        if (CodeObject* const object = ObjectOfNode(projekt, node.Id()))
            checked.Add(*object);
    });
    return checked;
}

void NodeCheck(const clsProjekt& projekt, Baum& tree, BaumNode& node) {
    const Baum::Filling filling(tree);
    if (node.Kind() == NodeKind::Root) {
        Check_ModulTyp(tree, TypOf(node.Key()), node.Checked());
    } else if (node.Kind() == NodeKind::Object) {
        const CodeObject* const object = ObjectOfNode(projekt, node.Id());
        if (object && object->Class() == ObjectClass::TypeLib)
            CheckLibrary(tree, node, node.Checked());
    }
    CheckAbove(tree, node);
}

void Check_ModulTyp(Baum& tree, int typ, bool checked) {
    const bool isKind = typ >= 1 && typ <= static_cast<int>(kTypKeys.size());
    const BaumNode* const root =
        isKind ? tree.Item(kTypKeys[static_cast<std::size_t>(typ) - 1], NodeKind::Root) : nullptr;
    if (!root)
        return;
    const Baum::Filling filling(tree);
    // What is left on below would stay in the group, out of sight in a folded module.
    if (!checked)
        return CheckAllBelow(tree, *root, false);
    const bool areLibraries = typ >= kFirstLibraryTyp;
    for (BaumNode* modul : root->ChildNodes()) {
        tree.SetChecked(*modul, true);
        if (areLibraries)
            CheckLibrary(tree, *modul, true);
    }
}

void Check_All_Modules(Baum& tree, bool checked) {
    const Baum::Filling filling(tree);
    for (std::size_t i = 0; i < kTypKeys.size(); ++i)
        if (BaumNode* node = tree.Item(kTypKeys[i], NodeKind::Root)) {
            tree.SetChecked(*node, checked);
            Check_ModulTyp(tree, static_cast<int>(i) + 1, checked);
        }
}
