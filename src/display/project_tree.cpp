#include "display/project_tree.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>

#include "display/baum.h"
#include "display/node_objects.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "model/group_keys.h"
#include "shell/clsText.h"
#include "shell/operations.h"

namespace {

constexpr std::array<TreeGroupKind, kTreeGroups> kKinds{{
    {kGroupControls, "Controls...", "control"},
    {kGroupPrivateType, "Private Type...", "type"},
    {kGroupPublicType, "Public Type...", "type"},
    {kGroupPrivateEnum, "Private Enum...", "enum"},
    {kGroupPublicEnum, "Public Enum...", "enum"},
    {kGroupPrivateVariable, "Private Variable...", "variable"},
    {kGroupPublicVariable, "Public Variable...", "variable"},
    {kGroupPrivateProperty, "Private Property...", "procedure"},
    {kGroupPublicProperty, "Public Property...", "procedure"},
    {kGroupPrivateFunction, "Private Function...", "procedure"},
    {kGroupPublicFunction, "Public Function...", "procedure"},
    {kGroupPrivateSub, "Private Sub...", "procedure"},
    {kGroupPublicSub, "Public Sub...", "procedure"},
}};

struct RootKind {
    std::string_view key;
    std::string_view text;
};
constexpr std::array<RootKind, 6> kRoots{{{"component[]", "COMPONENT"},
                                          {"reference[]", "REFERENCE"},
                                          {"form[]", "FORM"},
                                          {"module[]", "MODULE"},
                                          {"class[]", "CLASS"},
                                          {"usercontrol[]", "USERCONTROL"}}};

void AddRoot(const RootKind& kind, Baum& tree) {
    BaumNode* root = tree.Add(nullptr, std::string(kind.key), std::string(kind.text), "OrdnerZu", NodeKind::Root);
    if (!root)
        return;
    tree.SetExpandedImage(*root, "OrdnerAuf");
    tree.SetSorted(*root, true);
    tree.SetBold(*root, true);
}

void AddRoots(const clsProjekt& projekt, Baum& tree) {
    const std::array<int, 6> counts{projekt.myProjectObjects.Count(), projekt.myProjectReferences.Count(),
                                    projekt.Formulare.Count(),        projekt.Modules.Count(),
                                    projekt.Klassenmodule.Count(),    projekt.UserControls.Count()};
    for (std::size_t i = 0; i < kRoots.size(); ++i)
        if (counts[i] > 0)
            AddRoot(kRoots[i], tree);
}

// Null if the tree has a node for the object.
BaumNode* AddObject(BaumNode* parent, const CodeObject& object, Baum& tree) {
    BaumNode* made = tree.Add(parent, NodeKeyOf(object), NodeText(object), object.GetImageKey());
    if (made && object.myLibrary)  // objects of the project get their colour when they are marked
        tree.SetForeColor(*made, NodeColourOf(object));
    return made;
}

void AddMembers(const clsCollection<clsVariable>& members, BaumNode* owner, Baum& tree) {
    for (const clsVariable* member : members)
        AddObject(owner, *member, tree);
}

std::string_view ImageOfLocal(const clsVariable& variable) {
    if (variable.Zugriff == Access::Argument)
        return "argument";
    return variable.DatenTyp().starts_with("const ") ? "const" : "variable";
}

void AddLocals(const clsProzedur& prozedur, BaumNode* owner, Baum& tree) {
    for (const clsVariable* variable : prozedur.MyVars)
        tree.Add(owner, NodeKeyOf(*variable), std::string(variable->myNameOrg()), ImageOfLocal(*variable));
}

// Adds one module with its groups and objects to a tree.
class clsModulAnzeige {
public:
    clsModulAnzeige(const clsModul& modul, Baum& tree, bool withLocals)
        : modul_(modul), tree_(tree), withLocals_(withLocals), nodeKey_(modul.CodePath()) {}

    /// The root, or the node of the library, must be there.
    void Anzeigen() {
        BaumNode* const parent = modul_.myLibrary
                                     ? tree_.Item(modul_.myLibrary->MyName())
                                     : tree_.Item(std::string(TextOf(modul_.ModulTyp)) + "[]", NodeKind::Root);
        if (!parent)
            return;
        if (BaumNode* made = tree_.Add(parent, nodeKey_, std::string(modul_.myNameOrg()), TextOf(modul_.ModulTyp)))
            tree_.SetForeColor(*made, NodeColourOf(modul_));
        if (BaumNode* group = Group(TreeGroup::Controls, modul_.MyControls.Count()))
            for (const clsControl* control : modul_.MyControls)
                Entry(group, *control);
        WithMembers(TreeGroup::PrivateType, modul_.Private_Type);
        WithMembers(TreeGroup::PublicType, modul_.Public_Type);
        WithMembers(TreeGroup::PrivateEnum, modul_.Private_Enum);
        WithMembers(TreeGroup::PublicEnum, modul_.Public_Enum);
        Variables(TreeGroup::PrivateVariable, modul_.Private_Variablen, modul_.ModulTyp != ModuleKind::Module);
        Variables(TreeGroup::PublicVariable, modul_.Public_Variablen, false);
        Procedures(TreeGroup::PrivateProperty, modul_.Private_Property);
        Procedures(TreeGroup::PublicProperty, modul_.Public_Property);
        Procedures(TreeGroup::PrivateFunction, modul_.Private_Function);
        Procedures(TreeGroup::PublicFunction, modul_.Public_Function);
        Procedures(TreeGroup::PrivateSub, modul_.Private_Sub);
        Procedures(TreeGroup::PublicSub, modul_.Public_Sub);
        Procedures(TreeGroup::PublicSub, modul_.MyEvents);
    }

private:
    /// The node of a group with `count` objects; null when there are none.
    BaumNode* Group(TreeGroup group, int count) {
        BaumNode* node = count > 0 ? tree_.Item(nodeKey_) : nullptr;
        if (!node)
            return nullptr;
        const TreeGroupKind& kind = KindOf(group);
        const std::string key = nodeKey_ + std::string(kind.suffix);
        BaumNode* made = tree_.Add(node, key, std::string(kind.text), kind.image, NodeKind::Group);
        if (!made)
            return tree_.Item(key, NodeKind::Group);
        tree_.SetSorted(*made, true);
        tree_.SetBold(*made, true);
        return made;
    }

    /// The object's node, whether it is new or not.
    BaumNode* Entry(BaumNode* parent, const CodeObject& object) {
        BaumNode* made = AddObject(parent, object, tree_);
        return made ? made : tree_.Item(NodeKeyOf(object));
    }

    void Procedures(TreeGroup group, const clsCollection<clsProzedur>& procedures) {
        BaumNode* parent = Group(group, procedures.Count());
        if (!parent)
            return;
        for (const clsProzedur* prozedur : procedures) {
            BaumNode* node = Entry(parent, *prozedur);
            if (withLocals_)
                AddLocals(*prozedur, node, tree_);
        }
    }

    void Variables(TreeGroup group, const clsCollection<clsVariable>& variables, bool leavesOutMe) {
        // Me has no node, and a group for it alone would be empty.
        BaumNode* parent = Group(group, variables.Count() - (leavesOutMe && variables.Contains("me") ? 1 : 0));
        if (!parent)
            return;
        for (const clsVariable* variable : variables)
            if (!leavesOutMe || variable->MyName() != "me")
                Entry(parent, *variable);
    }

    template <class Owner>
    void WithMembers(TreeGroup group, const clsCollection<Owner>& owners) {
        if (BaumNode* parent = Group(group, owners.Count()))
            for (const Owner* owner : owners)
                AddMembers(owner->MyVars, Entry(parent, *owner), tree_);
    }

    const clsModul& modul_;
    Baum& tree_;
    const bool withLocals_;
    const std::string nodeKey_;
};

template <class Block>
void AddBlocks(BaumNode* library, const TreeGroupKind& kind, const clsCollection<Block>& blocks, Baum& tree) {
    if (blocks.Count() == 0)
        return;
    BaumNode* const group = tree.Add(library, library->Key() + std::string(kind.suffix), std::string(kind.text),
                                     kind.image, NodeKind::Group);
    if (!group)
        return;
    tree.SetSorted(*group, true);
    tree.SetBold(*group, true);
    for (const Block* block : blocks)
        if (BaumNode* node = AddObject(group, *block, tree))
            AddMembers(block->MyVars, node, tree);
}

void AddLibrary(const clsTypeLib& library, Baum& tree, bool withLocals) {
    BaumNode* root = tree.Item(std::string(TextOf(library.LibTyp)) + "[]", NodeKind::Root);
    BaumNode* const node =
        root ? tree.Add(root, std::string(library.MyName()), std::string(library.myNameOrg()), LibraryImage(library))
             : nullptr;
    if (!node)
        return;
    tree.SetSorted(*node, true);
    for (const clsModul* modul : library.myCoClasses)
        clsModulAnzeige(*modul, tree, withLocals).Anzeigen();
    AddBlocks(node, kLibraryEnums, library.myEnums, tree);
    AddBlocks(node, kLibraryTypes, library.myTypes, tree);
}

void AddLibraries(const clsCollection<clsTypeLib>& libraries, std::string_view label, Baum& tree, bool withLocals) {
    gProgress().Label(label);
    for (const clsTypeLib* library : libraries) {
        DoEvents();
        AddLibrary(*library, tree, withLocals);
    }
}

void AddModules(const clsCollection<clsModul>& modules, std::string_view label, Baum& tree, bool withLocals) {
    if (gAbort)
        return;
    gProgress().Label(label);
    for (const clsModul* modul : modules) {
        if (gAbort)
            return;
        DoEvents();
        clsModulAnzeige(*modul, tree, withLocals).Anzeigen();
        gProgress().Progressiere_mal();
    }
}

}  // namespace

const TreeGroupKind& KindOf(TreeGroup group) {
    return kKinds[static_cast<std::size_t>(group)];
}

std::string NodeText(const CodeObject& object) {
    std::string text(object.myNameOrg());
    if (object.Class() == ObjectClass::Prozedur) {
        const auto& prozedur = static_cast<const clsProzedur&>(object);
        text += prozedur.IsProperty() ? prozedur.AccessorSuffix() : "()";
    }
    return text;
}

NodeColour NodeColourOf(const CodeObject& object) {
    const LibraryDetail* const detail = object.myLibrary ? &object.myLibrary->DetailOf(object) : nullptr;
    const bool isHidden = detail && (detail->isHidden || detail->isRestricted);
    return object.IsDeath > 0 || isHidden ? NodeColour::Grey : NodeColour::Ordinary;
}

std::string_view LibraryImage(const clsTypeLib& library) {
    if (library.picture.empty())
        return library.LibTyp == LibraryKind::Reference ? "Library" : "Object";
    static std::set<std::string> keys;  // trees can outlive a library
    return *keys.insert(library.TypeLibID).first;
}

void ModulStruktur_Anzeigen(const clsModul& modul, Baum& tree, bool withLocals) {
    clsModulAnzeige(modul, tree, withLocals).Anzeigen();
}

void ProjektStruktur_Anzeigen(const clsProjekt& projekt, Baum& tree, bool withLocals) {
    gProgress().Caption(gText.TextNr(Text::BuildingTree));
    gProgress().Label(gText.TextNr(Text::BuildingTree));
    gProgress().Range(0, std::max(1, projekt.CountAllModules()));
    const Baum::Filling filling(tree);
    AddRoots(projekt, tree);
    AddLibraries(projekt.myProjectObjects, "Components...", tree, withLocals);
    AddLibraries(projekt.myProjectReferences, "References...", tree, withLocals);
    AddModules(projekt.Formulare, "Forms...", tree, withLocals);
    AddModules(projekt.Modules, "Modules...", tree, withLocals);
    AddModules(projekt.Klassenmodule, "Classes...", tree, withLocals);
    AddModules(projekt.UserControls, "User Controls...", tree, withLocals);
}
