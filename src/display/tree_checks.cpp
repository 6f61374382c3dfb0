#include "display/tree_checks.h"

#include <algorithm>
#include <array>
#include <vector>

#include "display/baum.h"
#include "display/node_objects.h"
#include "display/project_tree.h"
#include "model/clsProjekt.h"

namespace {

// By the number of the kind, from 1.
constexpr std::array<std::string_view, 6> kTypKeys{"form[]",        "module[]",    "class[]",
                                                   "usercontrol[]", "component[]", "reference[]"};

int TypOf(std::string_view key) {
    for (std::size_t i = 0; i < kTypKeys.size(); ++i)
        if (kTypKeys[i] == key)
            return static_cast<int>(i) + 1;
    return 0;
}

template <class Object>
void CheckEach(const clsCollection<Object>& objects, Baum& tree, bool checked) {
    for (const Object* object : objects)
        if (BaumNode* node = tree.Item(object->CodePath()))
            tree.SetChecked(*node, checked);
}

void CheckAllBelow(Baum& tree, const BaumNode& node) {
    std::vector<BaumNode*> open = node.ChildNodes();
    while (!open.empty()) {
        BaumNode& below = *open.back();
        open.pop_back();
        tree.SetChecked(below, node.Checked());
        open.insert(open.end(), below.ChildNodes().begin(), below.ChildNodes().end());
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

void CheckedObjects::Add(CodeObject& object, std::string path) {
    if (std::ranges::find(paths_, path) != paths_.end())
        return;
    objects_.push_back(&object);
    paths_.push_back(std::move(path));
}

void CheckedObjects::Remove(std::string_view path) {
    const auto found = std::ranges::find(paths_, path);
    if (found == paths_.end())
        return;
    objects_.erase(objects_.begin() + (found - paths_.begin()));
    paths_.erase(found);
}

void CheckedObjects::Clear() {
    objects_.clear();
    paths_.clear();
}

void CheckedObjects::Renew(const clsProjekt& projekt) {
    CheckedObjects found;
    for (const std::string& path : paths_)
        if (CodeObject* const object = projekt.GetObjectFromCodePath(path))
            found.Add(*object, path);
    *this = std::move(found);
}

bool CheckedObjects::Covers(const CodeObject& object) const {
    if (paths_.empty())
        return false;
    return std::ranges::find(paths_, object.CodePath()) != paths_.end() ||
           (object.Modul && std::ranges::find(paths_, object.Modul->CodePath()) != paths_.end());
}

CheckAnswer NodeCheck(const clsProjekt& projekt, Baum& tree, BaumNode& node, ContentMode content,
                      CheckedObjects& checked) {
    CodeObject* object = nullptr;
    {
        const Baum::Filling filling(tree);
        if (node.Kind() == NodeKind::Root) {
            Check_ModulTyp(projekt, tree, TypOf(node.Key()), node.Checked());
        } else {
            object = node.Kind() == NodeKind::Object ? ObjectOfNode(projekt, node.Id()) : nullptr;
            if (object && object->Class() == ObjectClass::TypeLib)
                CheckAllBelow(tree, node);
        }
        CheckAbove(tree, node);
    }
    if (content == ContentMode::Chart)
        return {CheckEffect::ShowChart, nullptr};
    if (object && node.Checked())
        checked.Add(*object, node.Key());
    else if (object)
        checked.Remove(node.Key());
    return {CheckEffect::ShowGroup, object};
}

void Check_ModulTyp(const clsProjekt& projekt, Baum& tree, int typ, bool checked) {
    const Baum::Filling filling(tree);
    switch (typ) {
        case 1:
            return CheckEach(projekt.Formulare, tree, checked);
        case 2:
            return CheckEach(projekt.Modules, tree, checked);
        case 3:
            return CheckEach(projekt.Klassenmodule, tree, checked);
        case 4:
            return CheckEach(projekt.UserControls, tree, checked);
        case 5:
            return CheckEach(projekt.myProjectObjects, tree, checked);
        case 6:
            return CheckEach(projekt.myProjectReferences, tree, checked);
        default:
            return;
    }
}

void Check_All_Modules(const clsProjekt& projekt, Baum& tree, bool checked) {
    const Baum::Filling filling(tree);
    for (std::size_t i = 0; i < kTypKeys.size(); ++i)
        if (BaumNode* node = tree.Item(kTypKeys[i], NodeKind::Root)) {
            tree.SetChecked(*node, checked);
            Check_ModulTyp(projekt, tree, static_cast<int>(i) + 1, checked);
        }
}
