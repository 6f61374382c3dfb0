// A fill walks over edges, of which a module can have thousands; it remembers the neighbours seen by their addresses,
// so that all costly steps happen once for each neighbour.
#include "display/dependency_trees.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>

#include "calls/edges.h"
#include "display/baum.h"
#include "display/call_places.h"
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
#include "shell/clsText.h"

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

CallType CertaintyOf(bool mayBe) {
    return mayBe ? CallType::MayBe : CallType::Really;
}

// A use counts as certain.
bool IsOfType(const clsCall& call, CallType type) {
    return call.Type() == type || (type == CallType::Really && call.Type() == CallType::Use);
}

// Calls `use` for the edges that the tree of callees shows; the locals of a procedure are its own affair.
template <class Use>
void ForEachShown(const OutgoingEdges& edges, CallType type, Use use) {
    for (const clsCall* call : edges)
        if (IsOfType(*call, type) && call->Parent->Zugriff != Access::Argument &&
            call->Parent->Zugriff != Access::Procedure)
            use(*call);
}

template <class Use>
void ForEachEdgeFrom(const clsProzedur& prozedur, CallType type, Use use) {
    ForEachShown(prozedur.UsesAll(), type, use);
    ForEachShown(prozedur.CallsAll(), type, use);
}

// Whose neighbours unfold below them: only procedures call something, and those of libraries are not read.
const clsProzedur* AsUnfolding(const CodeObject& object) {
    const bool isProzedur = object.Class() == ObjectClass::Prozedur && !object.myLibrary;
    return isProzedur ? &static_cast<const clsProzedur&>(object) : nullptr;
}

// The objects that call a procedure, or that it calls, each once.
std::vector<const CodeObject*> NeighboursOf(const clsProzedur& prozedur, Neighbourhood shown) {
    std::vector<const CodeObject*> neighbours;
    std::unordered_set<const CodeObject*> seen;
    const auto add = [&](const CodeObject& neighbour) {
        if (seen.insert(&neighbour).second)
            neighbours.push_back(&neighbour);
    };
    const CallType type = CertaintyOf(shown.mayBe);
    if (!shown.callers)
        ForEachEdgeFrom(prozedur, type, [&](const clsCall& call) { add(*call.Parent); });
    else
        for (const clsCall* call : prozedur.CalledByAll())
            if (IsOfType(*call, type))
                add(call->Caller());
    return neighbours;
}

bool HasNeighbours(const clsProzedur& prozedur, Neighbourhood shown) {
    const CallType type = CertaintyOf(shown.mayBe);
    bool has = false;
    if (shown.callers)
        has = Is_CalledBy(prozedur, type);
    else
        ForEachEdgeFrom(prozedur, type, [&has](const clsCall&) { has = true; });
    return has;
}

// Shows objects as neighbours, and remembers those already shown.
class Fill {
public:
    /// @param opens  whether the modules shown are opened
    Fill(const clsProjekt& projekt, const CheckedObjects& checked, Baum& tree, bool opens, Neighbourhood shown)
        : projekt_(projekt), checked_(checked), tree_(tree), filling_(tree), opens_(opens), shown_(shown) {
        tree.Clear();
    }

    void Neighbours(const CodeObject& object) {
        const CallType type = CertaintyOf(shown_.mayBe);
        if (shown_.callers)
            CallersOf(object, type);
        else if (object.Class() == ObjectClass::Prozedur)
            CallsOfProcedure(static_cast<const clsProzedur&>(object), type);
        else if (object.Class() == ObjectClass::Modul)
            CallsOfModule(static_cast<const clsModul&>(object), type);
    }

    /// Edges shown, calls and uses, not neighbours; and the headers that name a component.
    [[nodiscard]] int Count() const { return static_cast<int>(counted_.size()) + headers_; }

private:
    void CallersOf(const CodeObject& object, CallType type) {
        const bool isLibrary = object.Class() == ObjectClass::TypeLib;
        ForEachEdgeTo(projekt_, object, [&](const clsCall& call) {
            // All that is known of a library is certain.
            if (IsOfType(call, isLibrary ? CallType::Really : type))
                Show(call.Caller(), call);
        });
        if (!isLibrary)
            return;
        const auto& library = static_cast<const clsTypeLib&>(object);
        if (library.LibTyp == LibraryKind::Component)
            for (const clsModul* modul : Who_Uses_Me(projekt_, library))
                ShowHeader(*modul);
    }

    void CallsOfProcedure(const clsProzedur& prozedur, CallType type) {
        ForEachEdgeFrom(prozedur, type, [this](const clsCall& call) { Show(*call.Parent, call); });
    }

    void CallsOfModule(const clsModul& modul, CallType type) {
        for (const clsProzedur* prozedur : modul.MyProcs)
            CallsOfProcedure(*prozedur, type);
        if (type == CallType::Really)
            for (const clsTypeLib* component : Ref_ProjectObjects(projekt_, modul))
                ShowHeader(*component);
        ForEachShown(modul.CallsInDeclarations(), type, [this](const clsCall& call) { Show(*call.Parent, call); });
    }

    void Show(const CodeObject& neighbour, const clsCall& call) {
        if (checked_.Covers(neighbour))
            return;
        counted_.insert(&call);
        Show(neighbour);
    }

    /// Of a form and a component, the one that is not the current object.
    void ShowHeader(const CodeObject& neighbour) {
        if (checked_.Covers(neighbour))
            return;
        ++headers_;
        Show(neighbour);
    }

    void Show(const CodeObject& neighbour) {
        if (checked_.Covers(neighbour))
            return;
        if (&neighbour == last_ || !seen_.insert(&neighbour).second)
            return;
        last_ = &neighbour;
        BaumNode* node = ObtainNode(neighbour, tree_);
        if (!node)
            return;
        const clsProzedur* const unfolding = AsUnfolding(neighbour);
        Baum::SetUnfolds(*node, unfolding && HasNeighbours(*unfolding, shown_));
        if (!opens_)
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
    Neighbourhood shown_;
    std::unordered_set<const CodeObject*> seen_;
    std::unordered_set<const clsCall*> counted_;
    int headers_ = 0;
    const CodeObject* last_ = nullptr;
};

const CodeObject& ProcedureOrItself(const CodeObject& object) {
    if (object.Class() == ObjectClass::Variable)
        if (const clsProzedur* prozedur = static_cast<const clsVariable&>(object).Prozedur)
            return *prozedur;
    return object;
}

// Whether an object is above a node, or is that whose neighbours the tree shows.
bool IsAbove(const clsProjekt& projekt, const BaumNode& node, const CodeObject& object) {
    for (const BaumNode* above = &node; above; above = above->Parent())
        if (above->Kind() == NodeKind::Object && ObjectOfNode(projekt, above->Id()) == &object)
            return true;
    return false;
}

// Below a neighbour there are no modules and groups, so the text names the module.
std::string TextBelow(const CodeObject& object) {
    return object.Class() == ObjectClass::Prozedur ? JoinPath(object.Modul->CodePathOrg(), NodeText(object))
                                                   : object.CodePathOrg();
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

namespace {

int ShowNeighbours(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current, Baum& tree,
                   Neighbourhood shown) {
    const Baum::Filling whole(tree);
    Fill fill(projekt, checked, tree, true, shown);
    if (!current)
        return 0;
    const CodeObject& object = ProcedureOrItself(*current);
    fill.Neighbours(object);
    if (object.Class() == ObjectClass::Modul)
        Collapse_Module(tree);
    return fill.Count();
}

}  // namespace

int Show_Dependencies_AllCalledBy(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current,
                                  Baum& calledBy, bool mayBe) {
    return ShowNeighbours(projekt, checked, current, calledBy, {true, mayBe});
}

int Show_Dependencies_AllCalls(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current,
                               Baum& calls, bool mayBe) {
    return ShowNeighbours(projekt, checked, current, calls, {false, mayBe});
}

EdgeCounts Show_Dependencies_Group(const clsProjekt& projekt, const CheckedObjects& checked, Baum& calledBy,
                                   Baum& calls, bool mayBeCalledBy, bool mayBeCalls) {
    Fill callers(projekt, checked, calledBy, false, {true, mayBeCalledBy});
    Fill callees(projekt, checked, calls, false, {false, mayBeCalls});
    for (const CodeObject* object : checked.Objects()) {
        if (object->Class() == ObjectClass::TypeLib)
            continue;
        callers.Neighbours(*object);
        callees.Neighbours(*object);
    }
    return {callers.Count(), callees.Count()};
}

void Unfold(const clsProjekt& projekt, const CheckedObjects& checked, const CodeObject* current, Baum& tree,
            BaumNode& node, Neighbourhood shown) {
    Baum::SetUnfolds(node, false);
    const CodeObject* const object = ObjectOfNode(projekt, node.Id());
    const clsProzedur* const prozedur = object ? AsUnfolding(*object) : nullptr;
    if (!prozedur)
        return;
    tree.SetSorted(node, true);
    for (const CodeObject* neighbour : NeighboursOf(*prozedur, shown)) {
        if (checked.Covers(*neighbour))
            continue;
        const bool isAbove = neighbour == current || IsAbove(projekt, node, *neighbour);
        std::string text = TextBelow(*neighbour);
        if (isAbove)
            text.append(" (").append(gText.TextNr(Text::ShownAbove)).append(")");
        BaumNode* const below =
            tree.Add(&node, NodeKeyBelow(node, *neighbour), std::move(text), neighbour->GetImageKey());
        if (!below)
            continue;
        tree.SetForeColor(*below, NodeColourOf(*neighbour));
        const clsProzedur* const further = isAbove ? nullptr : AsUnfolding(*neighbour);
        Baum::SetUnfolds(*below, further && HasNeighbours(*further, shown));
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
