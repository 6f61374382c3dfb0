// A fill walks over edges, of which a module can have thousands; it remembers the neighbours seen by their addresses,
// so that all costly steps happen once for each neighbour.
#include "display/dependency_trees.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>

#include "calls/edges.h"
#include "display/baum.h"
#include "display/node_objects.h"
#include "display/project_tree.h"
#include "display/tree_checks.h"
#include "display/tree_marks.h"
#include "libraries/component_forms.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"

namespace {

BaumNode* ObtainRoot(Baum& tree, std::string_view key) {
    if (BaumNode* there = tree.Item(key, NodeKind::Root))
        return there;
    std::string text(key);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    BaumNode* root = tree.Add(nullptr, std::string(key), std::move(text), "OrdnerZu", NodeKind::Root);
    tree.SetExpandedImage(*root, "OrdnerAuf");
    tree.SetSorted(*root, true);
    tree.SetBold(*root, true);
    tree.SetExpanded(*root, true);
    return root;
}

BaumNode* ObtainLibrary(const clsTypeLib& library, Baum& tree) {
    if (BaumNode* there = tree.Item(library.MyName()))
        return there;
    return tree.Add(ObtainRoot(tree, TextOf(library.LibTyp)), std::string(library.MyName()),
                    std::string(library.myNameOrg()), LibraryImage(library));
}

BaumNode* ObtainModule(const clsModul& modul, Baum& tree) {
    std::string key = modul.CodePath();
    if (BaumNode* there = tree.Item(key))
        return there;
    BaumNode* parent =
        modul.myLibrary ? ObtainLibrary(*modul.myLibrary, tree) : ObtainRoot(tree, TextOf(modul.ModulTyp));
    BaumNode* node = tree.Add(parent, std::move(key), std::string(modul.myNameOrg()), modul.GetImageKey());
    tree.SetForeColor(*node, NodeColourOf(modul));
    return node;
}

bool IsPublic(const CodeObject& object) {
    return object.Zugriff == Access::Public;
}

// The group of an object of a module, or nothing for an object below another one.
std::optional<TreeGroup> GroupOf(const CodeObject& object) {
    const bool isPublic = IsPublic(object);
    switch (object.Class()) {
        case ObjectClass::Control:
            return TreeGroup::Controls;
        case ObjectClass::Type:
            return isPublic ? TreeGroup::PublicType : TreeGroup::PrivateType;
        case ObjectClass::Enum:
            return isPublic ? TreeGroup::PublicEnum : TreeGroup::PrivateEnum;
        case ObjectClass::Variable:
            return isPublic ? TreeGroup::PublicVariable : TreeGroup::PrivateVariable;
        case ObjectClass::Prozedur: {
            const auto& prozedur = static_cast<const clsProzedur&>(object);
            if (prozedur.ProzedurTyp == ProcKind::Sub)
                return isPublic ? TreeGroup::PublicSub : TreeGroup::PrivateSub;
            if (prozedur.ProzedurTyp == ProcKind::Function)
                return isPublic ? TreeGroup::PublicFunction : TreeGroup::PrivateFunction;
            return isPublic ? TreeGroup::PublicProperty : TreeGroup::PrivateProperty;
        }
        default:
            return std::nullopt;
    }
}

BaumNode* ObtainGroup(const CodeObject& object, TreeGroup group, Baum& tree) {
    BaumNode* modul = ObtainModule(*object.Modul, tree);
    const TreeGroupKind& kind = KindOf(group);
    std::string key = modul->Key() + std::string(kind.suffix);
    if (BaumNode* there = tree.Item(key, NodeKind::Group))
        return there;
    const bool isProperty = group == TreeGroup::PublicProperty || group == TreeGroup::PrivateProperty;
    BaumNode* node =
        tree.Add(modul, std::move(key), std::string(kind.text), isProperty ? "property" : kind.image, NodeKind::Group);
    tree.SetSorted(*node, true);
    tree.SetExpanded(*node, true);
    tree.SetBold(*node, true);
    const bool isPrivate = object.Zugriff == Access::Private;
    tree.SetForeColor(*node, isPrivate ? NodeColour::PrivateGroup : NodeColour::PublicGroup);
    return node;
}

BaumNode* ObtainLibraryGroup(const CodeObject& object, Baum& tree) {
    BaumNode* library = ObtainLibrary(*object.myLibrary, tree);
    const TreeGroupKind& kind = object.Class() == ObjectClass::Enum ? kLibraryEnums : kLibraryTypes;
    std::string key = library->Key() + std::string(kind.suffix);
    if (BaumNode* there = tree.Item(key, NodeKind::Group))
        return there;
    BaumNode* node = tree.Add(library, std::move(key), std::string(kind.text), kind.image, NodeKind::Group);
    tree.SetSorted(*node, true);
    tree.SetExpanded(*node, true);
    tree.SetBold(*node, true);
    tree.SetForeColor(*node, NodeColour::PublicGroup);
    return node;
}

BaumNode* ObtainNode(const CodeObject& object, Baum& tree);

// The parent of an object's node.
BaumNode* ObtainParent(const CodeObject& object, Baum& tree) {
    if (object.Class() == ObjectClass::Variable) {
        const auto& variable = static_cast<const clsVariable&>(object);
        if (variable.Prozedur)
            return ObtainNode(*variable.Prozedur, tree);
        if (variable.MyType)
            return ObtainNode(*variable.MyType, tree);
        if (variable.MyEnum)
            return ObtainNode(*variable.MyEnum, tree);
    }
    const std::optional<TreeGroup> group = GroupOf(object);
    if (group && object.Modul)
        return ObtainGroup(object, *group, tree);
    return object.myLibrary ? ObtainLibraryGroup(object, tree) : nullptr;
}

BaumNode* ObtainNode(const CodeObject& object, Baum& tree) {
    if (object.Class() == ObjectClass::TypeLib)
        return ObtainLibrary(static_cast<const clsTypeLib&>(object), tree);
    if (object.Class() == ObjectClass::Modul)
        return ObtainModule(static_cast<const clsModul&>(object), tree);
    if (object.Class() == ObjectClass::Variable && static_cast<const clsVariable&>(object).isFormInstance)
        return ObtainModule(*object.Modul, tree);
    std::string key = NodeKeyOf(object);
    if (BaumNode* there = tree.Item(key))
        return there;
    BaumNode* parent = ObtainParent(object, tree);
    if (!parent)
        return nullptr;
    BaumNode* node = tree.Add(parent, std::move(key), NodeText(object), object.GetImageKey());
    if (!node)  // an object without a name has the path of its parent
        return parent;
    tree.SetForeColor(*node, NodeColourOf(object));
    return node;
}

// Shows objects as neighbours, and remembers those already shown.
class Fill {
public:
    /// @param opens  whether the modules shown are opened
    Fill(const clsProjekt& projekt, const CheckedObjects& checked, Baum& tree, bool opens)
        : projekt_(projekt), checked_(checked), tree_(tree), filling_(tree), opens_(opens) {
        tree.Clear();
    }

    void CalledBy(const CodeObject& object, CallType type) {
        if (object.Class() == ObjectClass::Modul)
            return CalledByOfModule(static_cast<const clsModul&>(object), type);
        if (object.Class() != ObjectClass::TypeLib)
            Callers(object.CalledByAll(), type);
        if (object.Class() == ObjectClass::Type)
            CalledByOfMembers(static_cast<const clsType&>(object), type);
        else if (object.Class() == ObjectClass::Enum)
            CalledByOfMembers(static_cast<const clsEnum&>(object), type);
    }

    void Calls(const CodeObject& object, CallType type) {
        switch (object.Class()) {
            case ObjectClass::Prozedur:
                return CallsOfProcedure(static_cast<const clsProzedur&>(object), type);
            case ObjectClass::Modul:
                return CallsOfModule(static_cast<const clsModul&>(object), type);
            default:
                return;
        }
    }

    void Uses(const CodeObject& object) {
        if (object.Class() == ObjectClass::Prozedur)
            Targets(static_cast<const clsProzedur&>(object).UsesAll(), CallType::Use);
    }

    void UsedBy(const CodeObject& object) { Callers(object.UsedByAll(), CallType::Use); }

    void UsedByOfLibrary(const clsTypeLib& library) {
        UsedBy(library);
        if (library.LibTyp == LibraryKind::Component)
            for (const clsModul* modul : Who_Uses_Me(projekt_, library))
                Show(*modul);
    }

private:
    void CalledByOfModule(const clsModul& modul, CallType type) {
        Callers(modul.CalledByAll(), type);
        if (modul.ModulTyp == ModuleKind::Form)
            if (const clsVariable* instance = projekt_.FormVars.Item(modul.NameKey()))
                CalledBy(*instance, type);
        for (const clsProzedur* prozedur : modul.MyProcs)
            CalledBy(*prozedur, type);
        for (const clsVariable* variable : modul.MyVars)
            CalledBy(*variable, type);
        for (const clsType* einType : modul.myTypes)
            CalledBy(*einType, type);
        for (const clsEnum* einEnum : modul.myEnums)
            CalledBy(*einEnum, type);
        if (type == CallType::Really)
            UsedBy(modul);
    }

    template <class Owner>
    void CalledByOfMembers(const Owner& owner, CallType type) {
        for (const clsVariable* member : owner.MyVars)
            CalledBy(*member, type);
        if (type == CallType::Really)
            UsedBy(owner);
    }

    void CallsOfProcedure(const clsProzedur& prozedur, CallType type) {
        if (type == CallType::Really)
            Uses(prozedur);
        Targets(prozedur.CallsAll(), type);
    }

    void CallsOfModule(const clsModul& modul, CallType type) {
        for (const clsProzedur* prozedur : modul.MyProcs)
            CallsOfProcedure(*prozedur, type);
        if (type == CallType::Really)
            for (const clsTypeLib* component : Ref_ProjectObjects(projekt_, modul))
                Show(*component);
        Targets(modul.CallsInDeclarations(), type);
        if (type == CallType::MayBe)
            return;
        Targets(modul.CallsInDeclarations(), CallType::Use);
    }

    void Callers(const IncomingEdges& edges, CallType type) {
        for (const clsCall* call : edges) {
            if (call->Type() != type)
                continue;
            if (call->CallProcedure())
                Show(*call->CallProcedure());
            else if (call->CallModule())
                Show(*call->CallModule());
        }
    }

    void Targets(const OutgoingEdges& edges, CallType type) {
        for (const clsCall* call : edges)
            if (call->Type() == type && call->Parent->Zugriff != Access::Argument &&
                call->Parent->Zugriff != Access::Procedure)
                Show(*call->Parent);
    }

    void Show(const CodeObject& neighbour) {
        if (&neighbour == last_ || !seen_.insert(&neighbour).second)
            return;
        last_ = &neighbour;
        if (checked_.Covers(neighbour))
            return;
        const BaumNode* node = ObtainNode(neighbour, tree_);
        if (!node || !opens_)
            return;
        const clsModul* modul =
            neighbour.Class() == ObjectClass::Modul ? static_cast<const clsModul*>(&neighbour) : neighbour.Modul;
        if (modul)
            if (BaumNode* of = tree_.Item(modul->CodePath()))
                tree_.SetExpanded(*of, true);
        if (neighbour.myLibrary)
            if (BaumNode* of = tree_.Item(neighbour.myLibrary->MyName()))
                tree_.SetExpanded(*of, true);
    }

    const clsProjekt& projekt_;
    const CheckedObjects& checked_;
    Baum& tree_;
    const Baum::Filling filling_;
    bool opens_;
    std::unordered_set<const CodeObject*> seen_;
    const CodeObject* last_ = nullptr;
};

const CodeObject& ProcedureOrItself(const CodeObject& object) {
    if (object.Class() == ObjectClass::Variable)
        if (const clsProzedur* prozedur = static_cast<const clsVariable&>(object).Prozedur)
            return *prozedur;
    return object;
}

CallType CertaintyOf(bool mayBe) {
    return mayBe ? CallType::MayBe : CallType::Really;
}

template <class Objects, class Question>
bool AnyOf(const Objects& objects, Question question) {
    for (const auto* object : objects)
        if (question(*object))
            return true;
    return false;
}

// The state of the buttons: checks everything that the object's trees would show.
bool HasCallers(const clsProjekt& projekt, const CodeObject& object, CallType type) {
    if (Is_CalledBy(object, type) || (type == CallType::Really && Is_UsedBy(object, CallType::Use)))
        return true;
    const auto hasCallers = [&](const CodeObject& part) { return HasCallers(projekt, part, type); };
    switch (object.Class()) {
        case ObjectClass::Type:
            return AnyOf(static_cast<const clsType&>(object).MyVars, hasCallers);
        case ObjectClass::Enum:
            return AnyOf(static_cast<const clsEnum&>(object).MyVars, hasCallers);
        case ObjectClass::Modul: {
            const auto& modul = static_cast<const clsModul&>(object);
            const clsVariable* instance =
                modul.ModulTyp == ModuleKind::Form ? projekt.FormVars.Item(modul.NameKey()) : nullptr;
            return (instance && hasCallers(*instance)) || AnyOf(modul.MyProcs, hasCallers) ||
                   AnyOf(modul.MyVars, hasCallers) || AnyOf(modul.myTypes, hasCallers) ||
                   AnyOf(modul.myEnums, hasCallers);
        }
        case ObjectClass::TypeLib: {
            const auto& library = static_cast<const clsTypeLib&>(object);
            return type == CallType::Really && library.LibTyp == LibraryKind::Component &&
                   !Who_Uses_Me(projekt, library).empty();
        }
        default:
            return false;
    }
}

bool HasCallees(const clsProjekt& projekt, const CodeObject& object, CallType type) {
    const bool really = type == CallType::Really;
    switch (object.Class()) {
        case ObjectClass::Prozedur:
            return Is_Calls(static_cast<const clsProzedur&>(object), type);
        case ObjectClass::Modul: {
            const auto& modul = static_cast<const clsModul&>(object);
            for (const clsCall* call : modul.CallsInDeclarations())
                if ((call->Type() != CallType::MayBe) == really)
                    return true;
            if (really && !Ref_ProjectObjects(projekt, modul).empty())
                return true;
            return AnyOf(modul.MyProcs, [&](const clsProzedur& prozedur) {
                return Is_Calls(prozedur, type) || (really && prozedur.UsesAll().Count() > 0);
            });
        }
        default:
            return false;
    }
}

}  // namespace

void Show_Dependencies_AllCalledBy(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current,
                                   Baum& calledBy, bool mayBe) {
    const Baum::Filling whole(calledBy);
    Fill fill(projekt, checked, calledBy, true);
    if (!current)
        return;
    const CodeObject& object = ProcedureOrItself(*current);
    if (object.Class() == ObjectClass::TypeLib)
        fill.UsedByOfLibrary(static_cast<const clsTypeLib&>(object));
    else
        fill.CalledBy(object, CertaintyOf(mayBe));
    if (object.Class() == ObjectClass::Modul)
        Collapse_Module(calledBy);
}

void Show_Dependencies_AllCalls(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current,
                                Baum& calls, bool mayBe) {
    const Baum::Filling whole(calls);
    Fill fill(projekt, checked, calls, true);
    if (!current)
        return;
    const CodeObject& object = ProcedureOrItself(*current);
    fill.Calls(object, CertaintyOf(mayBe));
    if (object.Class() == ObjectClass::Modul)
        Collapse_Module(calls);
}

void Show_Dependencies_Group(const clsProjekt& projekt, const CheckedObjects& checked, Baum& calledBy, Baum& calls,
                             bool mayBeCalledBy, bool mayBeCalls) {
    Fill callers(projekt, checked, calledBy, false);
    Fill callees(projekt, checked, calls, false);
    for (const CodeObject* object : checked.Objects()) {
        if (object->Class() == ObjectClass::TypeLib)
            continue;
        callers.CalledBy(*object, CertaintyOf(mayBeCalledBy));
        callees.Calls(*object, CertaintyOf(mayBeCalls));
    }
}

void Collapse_Module(Baum& tree) {
    for (const std::string_view key : {"module", "form", "class", "usercontrol"})
        if (const BaumNode* root = tree.Item(key, NodeKind::Root))
            for (BaumNode* modul : root->ChildNodes())
                tree.SetExpanded(*modul, false);
}

DependencyButtons Activate_Dependencies(const clsProjekt& projekt, const CodeObject* current) {
    if (!current)
        return {};
    const CodeObject& object = ProcedureOrItself(*current);
    return {.CalledByReally = HasCallers(projekt, object, CallType::Really),
            .CalledByMaybe = HasCallers(projekt, object, CallType::MayBe),
            .CallsReally = HasCallees(projekt, object, CallType::Really),
            .CallsMaybe = HasCallees(projekt, object, CallType::MayBe)};
}

BaumNode* Drop_Module(const clsProjekt& projekt, Baum& tree, std::string_view key) {
    for (const clsTypeLib* component : projekt.myProjectObjects)
        if (component->MyName() == key) {
            BaumNode* first = nullptr;
            for (const clsModul* modul : Who_Uses_Me(projekt, *component)) {
                BaumNode* const node = ObtainModule(*modul, tree);
                first = first ? first : node;
            }
            return first;
        }
    const clsModul* modul = projekt.GetModuleFromCodePath(key);
    return modul ? ObtainModule(*modul, tree) : nullptr;
}
