#include "display/project_tree.h"

#include <algorithm>
#include <utility>

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "model/group_keys.h"
#include "shell/clsText.h"
#include "shell/operations.h"
#include "shell/timing.h"

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

std::function<bool(std::string_view)> gImageList1;

void AddRoot(const RootKind& kind, Baum& tree) {
    BaumNode* root = tree.Add(nullptr, std::string(kind.key), std::string(kind.text), "OrdnerZu", NodeKind::Root);
    if (!root)
        return;
    tree.SetExpandedImage(*root, "OrdnerAuf");
    tree.SetSorted(*root, true);
    tree.SetBold(*root, true);
}

// A library has no contents to show yet: the classes, enumerations and types of one that does go below this node.
void AddLibrary(const clsTypeLib& library, Baum& tree) {
    BaumNode* root = tree.Item(std::string(TextOf(library.LibTyp)) + "[]", NodeKind::Root);
    if (!root)
        return;
    BaumNode* node =
        tree.Add(root, std::string(library.MyName()), std::string(library.myNameOrg()), LibraryImage(library));
    if (node)
        tree.SetSorted(*node, true);
}

void AddModules(const clsCollection<clsModul>& modules, std::string_view label, Baum& tree, bool withLocals) {
    if (gAbort)
        return;
    gProgress().Label(label);
    for (const clsModul* modul : modules) {
        if (gAbort)
            return;
        DoEvents();
        clsModulAnzeige anzeige(tree, withLocals);
        anzeige.MyModul(*modul);
        anzeige.Anzeigen();
        anzeige.Anzeigen_Struktur();
        gProgress().Progressiere_mal();
    }
}

void AddLibraries(const clsCollection<clsTypeLib>& libraries, std::string_view label, Baum& tree) {
    gProgress().Label(label);
    for (const clsTypeLib* library : libraries)
        AddLibrary(*library, tree);
}

void AddMembers(const clsCollection<clsVariable>& members, BaumNode* owner, Baum& tree) {
    for (const clsVariable* member : members)
        tree.Add(owner, member->CodePath(), std::string(member->myNameOrg()), member->GetImageKey());
}

template <class Owner>
void AddMembersOf(const Owner& owner, Baum& tree) {
    if (BaumNode* node = tree.Item(owner.CodePath()))
        AddMembers(owner.MyVars, node, tree);
}

std::string_view ImageOfLocal(const clsVariable& variable) {
    if (variable.Zugriff == Access::Argument)
        return "argument";
    return variable.DatenTyp().starts_with("const ") ? "const" : "variable";
}

void AddLocals(const clsProzedur& prozedur, BaumNode* owner, Baum& tree) {
    for (const clsVariable* variable : prozedur.MyVars)
        tree.Add(owner, variable->CodePath(), std::string(variable->myNameOrg()), ImageOfLocal(*variable));
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

std::string_view LibraryImage(const clsTypeLib& library) {
    if (library.LibTyp == LibraryKind::Reference)
        return "Library";
    return ImageList1_Exist(library.TypeLibID) ? std::string_view(library.TypeLibID) : "Object";
}

bool ImageList1_Exist(std::string_view key) {
    return gImageList1 && gImageList1(key);
}

std::function<bool(std::string_view)> SetImageList1(std::function<bool(std::string_view)> exist) {
    return std::exchange(gImageList1, std::move(exist));
}

void ProjektStruktur_Anzeigen(clsProjekt& projekt, Baum& tree, bool withLocals) {
    gProgress().Caption(gText.TextNr(Text::BuildingTree));
    gProgress().Range(0, std::max(1, projekt.CountAllModules()));
    clsQueryTimer timer;
    timer.Calibrieren();
    timer.Start();
    {
        const Baum::Filling filling(tree);
        Anzeigen_Gruppen(projekt, tree);
        Anzeigen_Objekte(projekt, tree);
        Anzeigen_Referenzen(projekt, tree);
        Anzeigen_Formulare(projekt, tree, withLocals);
        Anzeigen_Module(projekt, tree, withLocals);
        Anzeigen_Klassenmodule(projekt, tree, withLocals);
        Anzeigen_UserControls(projekt, tree, withLocals);
    }
    timer.Halt();
    projekt.TimeForTree = timer.Get_TotalStr();
}

void Anzeigen_Gruppen(const clsProjekt& projekt, Baum& tree) {
    const std::array<int, 6> counts{projekt.myProjectObjects.Count(), projekt.myProjectReferences.Count(),
                                    projekt.Formulare.Count(),        projekt.Modules.Count(),
                                    projekt.Klassenmodule.Count(),    projekt.UserControls.Count()};
    for (std::size_t i = 0; i < kRoots.size(); ++i)
        if (counts[i] > 0)
            AddRoot(kRoots[i], tree);
}

void Anzeigen_Objekte(const clsProjekt& projekt, Baum& tree) {
    AddLibraries(projekt.myProjectObjects, "Components...", tree);
}

void Anzeigen_Referenzen(const clsProjekt& projekt, Baum& tree) {
    AddLibraries(projekt.myProjectReferences, "References...", tree);
}

void Anzeigen_Formulare(const clsProjekt& projekt, Baum& tree, bool withLocals) {
    AddModules(projekt.Formulare, "Forms...", tree, withLocals);
}

void Anzeigen_Module(const clsProjekt& projekt, Baum& tree, bool withLocals) {
    AddModules(projekt.Modules, "Modules...", tree, withLocals);
}

void Anzeigen_Klassenmodule(const clsProjekt& projekt, Baum& tree, bool withLocals) {
    AddModules(projekt.Klassenmodule, "Classes...", tree, withLocals);
}

void Anzeigen_UserControls(const clsProjekt& projekt, Baum& tree, bool withLocals) {
    AddModules(projekt.UserControls, "User Controls...", tree, withLocals);
}

void Anzeigen_Variablen(const clsProzedur& prozedur, Baum& tree) {
    if (BaumNode* node = tree.Item(prozedur.CodePath()))
        AddLocals(prozedur, node, tree);
}

void Anzeigen_Elemente(const clsType& type, Baum& tree) {
    AddMembersOf(type, tree);
}

void Anzeigen_Elemente(const clsEnum& einEnum, Baum& tree) {
    AddMembersOf(einEnum, tree);
}

void clsModulAnzeige::MyModul(const clsModul& modul) {
    modul_ = &modul;
    nodeKey_ = modul.myLibrary ? modul.CodePath() : std::string(modul.MyName());
    const std::string prefix = modul.myLibrary ? JoinPath(modul.myLibrary->MyName(), modul.MyName()) : nodeKey_;
    for (std::size_t i = 0; i < kTreeGroups; ++i)
        keys_[i] = prefix + std::string(kKinds[i].suffix);
}

void clsModulAnzeige::Anzeigen() {
    BaumNode* parent = modul_->myLibrary ? tree_.Item(modul_->myLibrary->MyName())
                                         : tree_.Item(std::string(TextOf(modul_->ModulTyp)) + "[]", NodeKind::Root);
    if (parent)
        tree_.Add(parent, nodeKey_, std::string(modul_->myNameOrg()), TextOf(modul_->ModulTyp));
}

void clsModulAnzeige::Anzeigen_Struktur() {
    Anzeigen_ControlGruppen();
    Anzeigen_Controls();
    Anzeigen_TypeGruppen();
    Anzeigen_Type();
    Anzeigen_EnumGruppen();
    Anzeigen_Enum();
    Anzeigen_VariableGruppen();
    Anzeigen_Variable();
    Anzeigen_PropertyGruppen();
    Anzeigen_Property();
    Anzeigen_FunctionGruppen();
    Anzeigen_Function();
    Anzeigen_SubGruppen();
    Anzeigen_Sub();
}

void clsModulAnzeige::Anzeigen_ControlGruppen() {
    Gruppe(TreeGroup::Controls, modul_->MyControls.Count());
}

void clsModulAnzeige::Anzeigen_Controls() {
    if (BaumNode* parent = tree_.Item(GroupKey(TreeGroup::Controls), NodeKind::Group))
        for (const clsControl* control : modul_->MyControls)
            Entry(parent, *control);
}

void clsModulAnzeige::Anzeigen_TypeGruppen() {
    Gruppe(TreeGroup::PrivateType, modul_->Private_Type.Count());
    Gruppe(TreeGroup::PublicType, modul_->Public_Type.Count());
}

void clsModulAnzeige::Anzeigen_Type() {
    WithMembers(TreeGroup::PrivateType, modul_->Private_Type);
    WithMembers(TreeGroup::PublicType, modul_->Public_Type);
}

void clsModulAnzeige::Anzeigen_EnumGruppen() {
    Gruppe(TreeGroup::PrivateEnum, modul_->Private_Enum.Count());
    Gruppe(TreeGroup::PublicEnum, modul_->Public_Enum.Count());
}

void clsModulAnzeige::Anzeigen_Enum() {
    WithMembers(TreeGroup::PrivateEnum, modul_->Private_Enum);
    WithMembers(TreeGroup::PublicEnum, modul_->Public_Enum);
}

void clsModulAnzeige::Anzeigen_VariableGruppen() {
    // Me has no node, and a group for it alone would be empty.
    const auto& variables = modul_->Private_Variablen;
    Gruppe(TreeGroup::PrivateVariable, variables.Count() - (LeavesOutMe() && variables.Contains("me") ? 1 : 0));
    Gruppe(TreeGroup::PublicVariable, modul_->Public_Variablen.Count());
}

void clsModulAnzeige::Anzeigen_Variable() {
    Variables(TreeGroup::PrivateVariable, modul_->Private_Variablen);
    Variables(TreeGroup::PublicVariable, modul_->Public_Variablen);
}

void clsModulAnzeige::Anzeigen_PropertyGruppen() {
    Gruppe(TreeGroup::PrivateProperty, modul_->Private_Property.Count());
    Gruppe(TreeGroup::PublicProperty, modul_->Public_Property.Count());
}

void clsModulAnzeige::Anzeigen_Property() {
    Procedures(TreeGroup::PrivateProperty, modul_->Private_Property);
    Procedures(TreeGroup::PublicProperty, modul_->Public_Property);
}

void clsModulAnzeige::Anzeigen_FunctionGruppen() {
    Gruppe(TreeGroup::PrivateFunction, modul_->Private_Function.Count());
    Gruppe(TreeGroup::PublicFunction, modul_->Public_Function.Count());
}

void clsModulAnzeige::Anzeigen_Function() {
    Procedures(TreeGroup::PrivateFunction, modul_->Private_Function);
    Procedures(TreeGroup::PublicFunction, modul_->Public_Function);
}

void clsModulAnzeige::Anzeigen_SubGruppen() {
    Gruppe(TreeGroup::PrivateSub, modul_->Private_Sub.Count());
    Gruppe(TreeGroup::PublicSub, modul_->Public_Sub.Count());
}

void clsModulAnzeige::Anzeigen_Sub() {
    Procedures(TreeGroup::PrivateSub, modul_->Private_Sub);
    Procedures(TreeGroup::PublicSub, modul_->Public_Sub);
}

bool clsModulAnzeige::LeavesOutMe() const {
    return modul_->ModulTyp != ModuleKind::Module;
}

void clsModulAnzeige::Gruppe(TreeGroup group, int count) {
    BaumNode* node = count > 0 ? tree_.Item(nodeKey_) : nullptr;
    if (!node)
        return;
    const TreeGroupKind& kind = KindOf(group);
    if (BaumNode* made = tree_.Add(node, GroupKey(group), std::string(kind.text), kind.image, NodeKind::Group)) {
        tree_.SetSorted(*made, true);
        tree_.SetBold(*made, true);
    }
}

// The new node; null if there is one with this key.
BaumNode* clsModulAnzeige::Entry(BaumNode* parent, const CodeObject& object) {
    return tree_.Add(parent, object.CodePath(), NodeText(object), object.GetImageKey());
}

void clsModulAnzeige::Procedures(TreeGroup group, const clsCollection<clsProzedur>& procedures) {
    BaumNode* parent = procedures.Count() > 0 ? tree_.Item(GroupKey(group), NodeKind::Group) : nullptr;
    if (!parent)
        return;
    for (const clsProzedur* prozedur : procedures) {
        BaumNode* node = Entry(parent, *prozedur);
        if (!withLocals_)
            continue;
        if (!node)
            node = tree_.Item(prozedur->CodePath());
        AddLocals(*prozedur, node, tree_);
    }
}

void clsModulAnzeige::Variables(TreeGroup group, const clsCollection<clsVariable>& variables) {
    BaumNode* parent = variables.Count() > 0 ? tree_.Item(GroupKey(group), NodeKind::Group) : nullptr;
    if (!parent)
        return;
    const bool leavesOutMe = group == TreeGroup::PrivateVariable && LeavesOutMe();
    for (const clsVariable* variable : variables)
        if (!leavesOutMe || variable->MyName() != "me")
            Entry(parent, *variable);
}

template <class Owner>
void clsModulAnzeige::WithMembers(TreeGroup group, const clsCollection<Owner>& owners) {
    BaumNode* parent = owners.Count() > 0 ? tree_.Item(GroupKey(group), NodeKind::Group) : nullptr;
    if (!parent)
        return;
    for (const Owner* owner : owners) {
        BaumNode* node = Entry(parent, *owner);
        if (!node)
            node = tree_.Item(owner->CodePath());
        AddMembers(owner->MyVars, node, tree_);
    }
}
