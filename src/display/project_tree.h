// The project tree: kinds of module, modules, groups by access and kind, code objects. Every node's key leads back to
// its object. The fill only adds what is missing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "display/baum.h"
#include "model/clsCollection.h"

class CodeObject;
class clsEnum;
class clsModul;
class clsProjekt;
class clsProzedur;
class clsType;
class clsTypeLib;
class clsVariable;

/// The groups of a module in the order of the tree.
enum class TreeGroup : std::uint8_t {
    Controls,
    PrivateType,
    PublicType,
    PrivateEnum,
    PublicEnum,
    PrivateVariable,
    PublicVariable,
    PrivateProperty,
    PublicProperty,
    PrivateFunction,
    PublicFunction,
    PrivateSub,
    PublicSub,
};
inline constexpr std::size_t kTreeGroups = 13;

struct TreeGroupKind {
    std::string_view suffix;  // of the key, after that of the module
    std::string_view text;
    std::string_view image;
};
[[nodiscard]] const TreeGroupKind& KindOf(TreeGroup group);

/// The text of an object's node: the name, with "()" after subs and functions and the accessor after properties.
[[nodiscard]] std::string NodeText(const CodeObject& object);
/// The icon of a library: its own if the image list has one for the component.
[[nodiscard]] std::string_view LibraryImage(const clsTypeLib& library);

/// Whether the image list has a picture under `key`, beyond those of the program itself. Without a port it has none.
[[nodiscard]] bool ImageList1_Exist(std::string_view key);
std::function<bool(std::string_view)> SetImageList1(std::function<bool(std::string_view)> exist);

/// Fills the tree with the whole project, with progress. A cancel keeps the nodes added so far.
/// @param withLocals  whether procedures have their arguments and locals below them
void ProjektStruktur_Anzeigen(clsProjekt& projekt, Baum& tree, bool withLocals);
void Anzeigen_Gruppen(const clsProjekt& projekt, Baum& tree);
void Anzeigen_Objekte(const clsProjekt& projekt, Baum& tree);
void Anzeigen_Referenzen(const clsProjekt& projekt, Baum& tree);
void Anzeigen_Formulare(const clsProjekt& projekt, Baum& tree, bool withLocals);
void Anzeigen_Module(const clsProjekt& projekt, Baum& tree, bool withLocals);
void Anzeigen_Klassenmodule(const clsProjekt& projekt, Baum& tree, bool withLocals);
void Anzeigen_UserControls(const clsProjekt& projekt, Baum& tree, bool withLocals);

/// The arguments and locals of a procedure below its node.
void Anzeigen_Variablen(const clsProzedur& prozedur, Baum& tree);
/// The members below the node of a type or enumeration.
void Anzeigen_Elemente(const clsType& type, Baum& tree);
void Anzeigen_Elemente(const clsEnum& einEnum, Baum& tree);

/// Presents one module in a tree; made for the moment of its use.
class clsModulAnzeige {
public:
    clsModulAnzeige(Baum& tree, bool withLocals) : tree_(tree), withLocals_(withLocals) {}

    /// Must come first. Makes the keys of all groups.
    void MyModul(const clsModul& modul);
    [[nodiscard]] const std::string& GroupKey(TreeGroup group) const { return keys_[static_cast<std::size_t>(group)]; }

    /// The module's node below its root, which must be there.
    void Anzeigen();
    /// All groups with their objects.
    void Anzeigen_Struktur();

    // The groups of one kind, and what belongs into them.
    void Anzeigen_ControlGruppen();
    void Anzeigen_Controls();
    void Anzeigen_TypeGruppen();
    void Anzeigen_Type();
    void Anzeigen_EnumGruppen();
    void Anzeigen_Enum();
    void Anzeigen_VariableGruppen();
    void Anzeigen_Variable();
    void Anzeigen_PropertyGruppen();
    void Anzeigen_Property();
    void Anzeigen_FunctionGruppen();
    void Anzeigen_Function();
    void Anzeigen_SubGruppen();
    void Anzeigen_Sub();

private:
    [[nodiscard]] bool LeavesOutMe() const;
    void Gruppe(TreeGroup group, int count);
    BaumNode* Entry(BaumNode* parent, const CodeObject& object);
    void Procedures(TreeGroup group, const clsCollection<clsProzedur>& procedures);
    void Variables(TreeGroup group, const clsCollection<clsVariable>& variables);
    template <class Owner>
    void WithMembers(TreeGroup group, const clsCollection<Owner>& owners);

    Baum& tree_;
    bool withLocals_;
    const clsModul* modul_ = nullptr;
    std::string nodeKey_;  // of the module's node
    std::array<std::string, kTreeGroups> keys_;
};
