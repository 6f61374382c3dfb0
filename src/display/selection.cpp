#include "display/selection.h"

#include <algorithm>

#include "display/library_text.h"
#include "display/shown_text.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "source/lines.h"
#include "source/module_text.h"

namespace {

std::string PathOf(const CodeObject* object) {
    return object ? object->CodePath() : std::string();
}

template <class T>
T* As(CodeObject* object) {
    return static_cast<T*>(object);
}

bool IsLocal(const CodeObject& object) {
    return object.Zugriff == Access::Argument || object.Zugriff == Access::Procedure;
}

// Whether an edge to `target` counts as an edge to `object`.
bool StandsFor(const CodeObject& target, const CodeObject& object) {
    if (&target == &object)
        return true;
    if (object.Class() == ObjectClass::Modul)
        return target.Modul == &object && !IsLocal(target);
    if (target.Class() != ObjectClass::Variable)
        return false;
    const auto& variable = static_cast<const clsVariable&>(target);
    return variable.MyType == &object || variable.MyEnum == &object;
}

bool IsNameAt(const CodeObject& object, Pos namePos, Pos pos) {
    return namePos > 0 && pos >= namePos && pos < namePos + Len(object.MyName());
}

// The first object that an edge with a place at `pos` reaches, for certain or possibly.
CodeObject* HitAt(const OutgoingEdges& edges, Pos pos, bool isPossible = false) {
    for (const clsCall* call : edges)
        if ((call->Type() == CallType::MayBe) == isPossible && IsNameAt(*call->Parent, call->CallPos, pos))
            return call->Parent;
    return nullptr;
}

CodeObject* DeclaredAt(const clsCollection<clsVariable>& variables, Pos pos) {
    for (clsVariable* variable : variables)
        if (IsNameAt(*variable, variable->DeclareStart, pos))
            return variable;
    return nullptr;
}

template <class Block>
CodeObject* DeclaredWithMembersAt(const clsCollection<Block>& blocks, Pos pos) {
    for (Block* block : blocks) {
        if (IsNameAt(*block, block->NamePos, pos))
            return block;
        if (pos >= block->DeclareStart && pos <= block->DeclareEnd)
            return DeclaredAt(block->MyVars, pos);
    }
    return nullptr;
}

CodeObject* DeclaredAt(const clsModul& modul, Pos pos) {
    if (CodeObject* const found = DeclaredWithMembersAt(modul.myTypes, pos))
        return found;
    if (CodeObject* const found = DeclaredWithMembersAt(modul.myEnums, pos))
        return found;
    for (clsProzedur* prozedur : modul.MyProcs)
        if (IsNameAt(*prozedur, prozedur->NamePos, pos))
            return prozedur;
    return DeclaredAt(modul.MyVars, pos);
}

// What the page of a library names at a place.
const CodeObject* NamedAt(const CodeText& page, Pos selStart) {
    for (const NamedObject& place : page.objects)
        if (selStart >= place.name.start && selStart < place.name.start + place.name.length)
            return place.object;
    return nullptr;
}

template <class Block>
Block* BlockAt(const clsCollection<Block>& blocks, Pos pos) {
    for (Block* block : blocks)
        if (pos >= block->DeclareStart && pos <= block->DeclareEnd)
            return block;
    return nullptr;
}

// The procedure in whose code a place lies: the owner of the text shown, or one of the module that owns it.
clsProzedur* BodyAt(const CodeObject& owner, Pos pos) {
    if (owner.Class() == ObjectClass::Prozedur) {
        auto& prozedur = const_cast<clsProzedur&>(static_cast<const clsProzedur&>(owner));
        return pos >= prozedur.DeclareStart ? &prozedur : nullptr;
    }
    clsProzedur* const prozedur =
        owner.Class() == ObjectClass::Modul ? BlockAt(static_cast<const clsModul&>(owner).MyProcs, pos) : nullptr;
    return prozedur && !IsAmongDeclarations(*prozedur) ? prozedur : nullptr;
}

}  // namespace

void Set_GlobalObjects_fromNode(const clsProjekt& projekt, Selection& selection, const NodeId& node) {
    const std::string path = ObjectPathOf(node);
    CodeObject* const object = ObjectOfNode(projekt, node);
    Selection now;
    now.CurObject = object;
    now.CalledObject = selection.CalledObject;
    if (!object) {
        now.CurModule = projekt.GetModuleFromCodePath(path);
    } else {
        now.CurModule = object->Modul;
        now.CurLib = object->myLibrary;
        switch (object->Class()) {
            case ObjectClass::Modul:
                now.CurModule = As<clsModul>(object);
                break;
            case ObjectClass::TypeLib:
                now.CurLib = As<clsTypeLib>(object);
                break;
            case ObjectClass::Prozedur:
                now.CurProc = As<clsProzedur>(object);
                break;
            case ObjectClass::Variable:
                now.CurVar = As<clsVariable>(object);
                now.CurProc = now.CurVar->Prozedur;
                break;
            case ObjectClass::Type:
                now.CurType = As<clsType>(object);
                break;
            case ObjectClass::Enum:
                now.CurEnum = As<clsEnum>(object);
                break;
            case ObjectClass::Control:
                now.CurControl = As<clsControl>(object);
                break;
        }
    }
    selection = now;
}

void SetCalledObject(const clsProjekt& projekt, Selection& selection, const NodeId& node) {
    selection.CalledObject = ObjectOfNode(projekt, node);
}

LastCodePaths Set_LastObjects(const Selection& selection) {
    return {PathOf(selection.CurObject), PathOf(selection.CurModule), PathOf(selection.CurProc),
            PathOf(selection.CurVar),    PathOf(selection.CurType),   PathOf(selection.CurEnum),
            PathOf(selection.CurControl)};
}

bool NeedsDependencies(const Selection& selection, const LastCodePaths& last) {
    const bool isLocal = selection.CurVar && selection.CurProc;
    const bool wasLocal = !last.CurVar.empty() && !last.CurProc.empty();
    return PathOf(isLocal ? selection.CurProc : selection.CurObject) != (wasLocal ? last.CurProc : last.CurObject);
}

std::string CodePath_Anzeigen(const Selection& selection) {
    if (!selection.CurObject)
        return {};
    std::string line = selection.CurObject->CodePathOrg();
    const auto add = [&line](std::string_view part) {
        if (!part.empty())
            line.append("   ").append(part);
    };
    switch (selection.CurObject->Class()) {
        case ObjectClass::Modul:
            add(ShownPath(static_cast<const clsModul*>(selection.CurObject)->FullPath));
            break;
        case ObjectClass::Prozedur: {
            const auto& prozedur = static_cast<const clsProzedur&>(*selection.CurObject);
            add(prozedur.IsProperty() ? KindAndName(TextOf(prozedur.Zugriff), "property")
                                      : KindAndName(TextOf(prozedur.Zugriff), prozedur.ProzedurTypText()));
            break;
        }
        case ObjectClass::Type:
            add(KindAndName(TextOf(selection.CurObject->Zugriff), "type"));
            break;
        case ObjectClass::Enum:
            add(KindAndName(TextOf(selection.CurObject->Zugriff), "enum"));
            break;
        case ObjectClass::Variable:
        case ObjectClass::Control:
            add(ShownTypeOf(*selection.CurObject));
            break;
        case ObjectClass::TypeLib:
            add(ShownPath(static_cast<const clsTypeLib*>(selection.CurObject)->InprocServer32));
            break;
    }
    return line;
}

Colour ColourOfPlace(const CodeObject& target, CallType type, const clsModul& caller) {
    if (type == CallType::MayBe)
        return Colour::CallMayBe;
    if (IsLocal(target))
        return Colour::CallLocal;
    const bool isInside = target.Modul == &caller || &target == &caller;
    return isInside ? Colour::CallIn : Colour::CallOut;
}

bool Reaches(const clsCall& call, const CodeObject& object, CallType type) {
    const bool isOfType = call.Type() == type || (type == CallType::Really && call.Type() == CallType::Use);
    return isOfType && StandsFor(*call.Parent, object);
}

std::vector<CodeSpan> SelectCallMe(const CodeObject& object, CallType type, const CodeObject& caller,
                                   const CodeText& shown, const std::vector<LocalUse>& locals) {
    std::vector<CodeSpan> places;
    const bool isProzedur = caller.Class() == ObjectClass::Prozedur;
    const clsModul& modul = isProzedur ? *caller.Modul : static_cast<const clsModul&>(caller);
    const auto collect = [&](const OutgoingEdges& edges) {
        for (const clsCall* call : edges) {
            if (!Reaches(*call, object, type))
                continue;
            if (const auto place = shown.Shown(call->CallPos, Len(call->Parent->MyName())))
                places.push_back({place->start, place->length, ColourOfPlace(*call->Parent, call->Type(), modul)});
        }
    };
    if (isProzedur) {
        collect(static_cast<const clsProzedur&>(caller).CallsAll());
        for (const LocalUse& use : locals)
            if (const auto place = shown.Shown(use.pos, Len(object.MyName()));
                place && use.variable == &object && type == CallType::Really)
                places.push_back({place->start, place->length, Colour::CallLocal});
        collect(static_cast<const clsProzedur&>(caller).UsesAll());
    } else {
        collect(modul.CallsInDeclarations());
    }
    std::sort(places.begin(), places.end(), [](const CodeSpan& a, const CodeSpan& b) { return a.start < b.start; });
    // A name can be called and used at one place.
    places.erase(std::unique(places.begin(), places.end(),
                             [](const CodeSpan& a, const CodeSpan& b) { return a.start == b.start; }),
                 places.end());
    return places;
}

clsProzedur* Get_ProcNachPos(const clsModul& modul, Pos posInModule) {
    return BlockAt(modul.MyProcs, posInModule);
}

CodeObject* GetTypeNachZeichenPos(const clsModul& modul, Pos posInModule) {
    if (clsType* type = BlockAt(modul.myTypes, posInModule))
        return type;
    return BlockAt(modul.myEnums, posInModule);
}

CodeObject* SelChanged(const clsProzedur& prozedur, const std::vector<LocalUse>& locals, Pos selStart) {
    const Pos pos = prozedur.DeclareStart + selStart;
    if (CodeObject* hit = HitAt(prozedur.CallsAll(), pos))
        return hit;
    for (const LocalUse& use : locals)
        if (IsNameAt(*use.variable, use.pos, pos))
            return use.variable;
    if (CodeObject* hit = HitAt(prozedur.UsesAll(), pos))
        return hit;
    return DeclaredAt(prozedur.MyVars, pos);
}

CodeObject* SelChanged(const clsModul& modul, Pos selStart, const clsType* curType) {
    const Pos pos = modul.BeginnVarBereich + selStart;
    if (CodeObject* hit = HitAt(modul.CallsInDeclarations(), pos))
        return hit;
    if (curType && curType->Modul == &modul && pos >= curType->DeclareStart && pos <= curType->DeclareEnd)
        return nullptr;
    if (CodeObject* type = GetTypeNachZeichenPos(modul, pos))
        return type;
    if (clsProzedur* prozedur = Get_ProcNachPos(modul, pos))
        return prozedur;
    return DeclaredAt(modul.MyVars, pos);
}

bool CodePane::IsShown(const CodeObject& owner) const {
    return !shownPath_.empty() && shownPath_ == owner.CodePath();
}

bool CodePane::ShowText(const clsProjekt& projekt, const CodeObject& owner, CodeText text) {
    text_ = std::move(text);
    if (text_.shade == Shade::Grey && !projekt.callsKnown)
        text_.shade = Shade::Faint;
    shownPath_ = owner.CodePath();
    // Users stay in one module for a while: the map of the former module is freed, as it is quickly made again.
    std::string modul = owner.Modul ? owner.Modul->CodePath() : shownPath_;
    if (modul != modulWithMap_) {
        const clsModul* const before = modulWithMap_.empty() ? nullptr : projekt.GetModuleFromCodePath(modulWithMap_);
        if (before && before->text)
            before->text->ReleaseModulText();
        modulWithMap_ = std::move(modul);
    }
    return true;
}

bool CodePane::ShowDeclarations(const clsProjekt& projekt, const clsModul& modul) {
    return !IsShown(modul) &&
           ShowText(projekt, modul, whole_ ? ::ShowWhole(modul, locals_, withHeader_) : ShowMe(modul));
}

bool CodePane::ShowOwner(const clsProjekt& projekt, const CodeObject& owner) {
    if (owner.Class() == ObjectClass::Modul)
        return ShowDeclarations(projekt, static_cast<const clsModul&>(owner));
    const auto& prozedur = static_cast<const clsProzedur&>(owner);
    if (whole_ || IsAmongDeclarations(prozedur))
        return ShowDeclarations(projekt, *prozedur.Modul);
    return !IsShown(prozedur) && ShowText(projekt, prozedur, ShowMe(prozedur, locals_));
}

const LocalUses& CodePane::LookAtLocals(const clsProzedur& prozedur) {
    if (!locals_.Known(prozedur)) {
        locals_.Look(prozedur);
        if (prozedur.Modul->text && prozedur.Modul->CodePath() != modulWithMap_)
            prozedur.Modul->text->ReleaseModulText();
    }
    return locals_;
}

// Those of the procedure shown; none for declarations.
const std::vector<LocalUse>& CodePane::LocalsOf(const CodeObject& owner) const {
    static const std::vector<LocalUse> none;
    const std::vector<LocalUse>* const known =
        owner.Class() == ObjectClass::Prozedur ? locals_.Known(static_cast<const clsProzedur&>(owner)) : nullptr;
    return known ? *known : none;
}

void CodePane::Reset() {
    Clear();
    locals_ = {};
    modulWithMap_.clear();
}

void CodePane::Clear() {
    text_ = {};
    shownPath_.clear();
}

CodePane::Change CodePane::Show_Structure(const clsProjekt& projekt, const Selection& selection) {
    Change change;
    CodeObject* const object = selection.CurObject;
    if (!object) {
        if (!selection.CurModule) {
            Clear();
            change.newText = true;
        }
        return change;
    }
    if (const clsTypeLib* const library = LibraryOf(*object)) {
        change.newText = !IsShown(*library) && ShowText(projekt, *library, LibraryText(*library));
        change.select = NameMarkieren(*object, text_);
        return change;
    }
    switch (object->Class()) {
        case ObjectClass::TypeLib:
            return change;
        case ObjectClass::Modul:
            change.newText = ShowDeclarations(projekt, static_cast<const clsModul&>(*object));
            return change;
        case ObjectClass::Prozedur:
            change.newText = ShowOwner(projekt, *object);
            break;
        case ObjectClass::Variable: {
            auto& variable = static_cast<clsVariable&>(*object);
            CodeObject* const owner = variable.Prozedur ? static_cast<CodeObject*>(variable.Prozedur) : variable.Modul;
            if (!owner)
                return change;
            change.newText = ShowOwner(projekt, *owner);
            change.places = SelectCallMe(variable, CallType::Really, *owner, text_, LocalsOf(*owner));
            break;
        }
        case ObjectClass::Type:
        case ObjectClass::Enum:
        case ObjectClass::Control:
            if (!object->Modul)
                return change;
            change.newText = ShowDeclarations(projekt, *object->Modul);
            break;
    }
    change.select = NameMarkieren(*object, text_);
    return change;
}

CodePane::Change CodePane::SelectCallsOfObject(const clsProjekt& projekt, const CodeObject& object,
                                               const clsProzedur& caller, CallType type) {
    Change change;
    change.newText = ShowOwner(projekt, caller);
    change.places = SelectCallMe(object, type, caller, text_, LocalsOf(caller));
    return change;
}

CodePane::Change CodePane::ShowPlace(const clsProjekt& projekt, const std::vector<CallPlace>& places, std::size_t at) {
    Change change;
    change.newText = ShowOwner(projekt, *places[at].owner);
    for (const CallPlace& place : places)
        if (&place.Modul() == &places[at].Modul())
            if (const auto shown = text_.Shown(place.pos, place.Length()))
                change.places.push_back({shown->start, shown->length, place.What()});
    // An object can be called and used at one place, and a place can name several members of one name.
    change.places.erase(std::unique(change.places.begin(), change.places.end(),
                                    [](const CodeSpan& a, const CodeSpan& b) { return a.start == b.start; }),
                        change.places.end());
    const auto current = std::find_if(change.places.begin(), change.places.end(), [&](const CodeSpan& place) {
        return text_.InModule(place.start) == places[at].pos;
    });
    change.currentPlace = static_cast<int>(current - change.places.begin()) + 1;
    return change;
}

void CodePane::ShowWhole(bool whole, bool withHeader) {
    whole_ = whole;
    withHeader_ = withHeader;
    Forget();
}

CodeObject* CodePane::Owner(const clsProjekt& projekt) const {
    return shownPath_.empty() ? nullptr : ObjectOfNode(projekt, shownPath_);
}

int CodePane::HeaderLines(const clsProjekt& projekt) const {
    const CodeObject* const owner = whole_ ? Owner(projekt) : nullptr;
    if (!owner || owner->Class() != ObjectClass::Modul || !static_cast<const clsModul*>(owner)->text)
        return 0;
    const auto& modul = static_cast<const clsModul&>(*owner);
    return LineOf(modul.text->ModulTextOrg(), HeaderEnd(modul)) - 1;
}

std::vector<const clsProzedur*> CodePane::Procedures(const clsProjekt& projekt) const {
    const CodeObject* const owner = Owner(projekt);
    std::vector<const clsProzedur*> procedures;
    if (owner && owner->Class() == ObjectClass::Prozedur)
        procedures.push_back(static_cast<const clsProzedur*>(owner));
    else if (owner && whole_ && owner->Class() == ObjectClass::Modul)
        for (const clsProzedur* prozedur : static_cast<const clsModul*>(owner)->MyProcs)
            procedures.push_back(prozedur);
    return procedures;
}

const CodeObject* CodePane::ObjectClicked(const clsProjekt& projekt, const Selection& selection, Pos selStart,
                                          Pos selLength) const {
    const CodeObject* const owner = Owner(projekt);
    if (owner && owner->Class() == ObjectClass::TypeLib)
        return NamedAt(text_, selStart);
    if (!owner || (owner->Class() != ObjectClass::Prozedur && owner->Class() != ObjectClass::Modul))
        return nullptr;
    const Pos pos = text_.InModule(selStart);
    if (const clsProzedur* const prozedur = BodyAt(*owner, pos))
        return selLength == 0 ? SelChanged(*prozedur, LocalsOf(*prozedur), pos - prozedur->DeclareStart) : nullptr;
    if (owner->Class() != ObjectClass::Modul)
        return nullptr;
    const auto& modul = static_cast<const clsModul&>(*owner);
    return SelChanged(modul, pos - modul.BeginnVarBereich, selection.CurType);
}

const CodeObject* CodePane::ObjectAt(const clsProjekt& projekt, Pos selStart) const {
    CodeObject* const owner = Owner(projekt);
    if (!owner)
        return nullptr;
    if (owner->Class() == ObjectClass::TypeLib)
        return NamedAt(text_, selStart);
    const Pos pos = text_.InModule(selStart);
    if (clsProzedur* const prozedur = BodyAt(*owner, pos)) {
        CodeObject* const named = SelChanged(*prozedur, LocalsOf(*prozedur), pos - prozedur->DeclareStart);
        if (IsNameAt(*prozedur, prozedur->NamePos, pos))
            return prozedur;
        return named ? named : HitAt(prozedur->CallsAll(), pos, true);
    }
    if (owner->Class() != ObjectClass::Modul)
        return nullptr;
    const auto& modul = static_cast<const clsModul&>(*owner);
    CodeObject* const used = HitAt(modul.CallsInDeclarations(), pos);
    return used ? used : DeclaredAt(modul, pos);
}

PropertyRows Anzeigen_TextPos(const CodeText& shown, Pos selStart, Pos selLength) {
    const auto row = [](std::string_view label, std::string value) {
        return PropertyRow{{Text::None, std::string(label)}, {Text::None, std::move(value), true}};
    };
    const auto place = [&](Pos start) {
        return std::to_string(start - shown.comment) + " (" + std::to_string(shown.InModule(start)) + ")";
    };
    const int line = std::max(shown.firstLine, 1) - 1 + LineOf(shown.text, selStart + 1);
    return {{{Text::Line, "Zeile"}, {Text::None, std::to_string(line)}},
            row("SelStart", place(selStart)),
            row("SelEnd", place(selStart + selLength)),
            row("SelLength", std::to_string(selLength))};
}

void NavigationList::AddNavCodeKey(const NodeId& node) {
    if (node == Current().node)
        return;
    records_.resize(++index_);
    records_.push_back({node});
}

void NavigationList::NoteSelection(Pos selStart, Pos selLength) {
    records_[index_].SelStart = selStart;
    records_[index_].SelLength = selLength;
}

void NavigationList::ForgetSelections() {
    for (Record& record : records_)
        record = {record.node};
}

const NavigationList::Record* NavigationList::NavCodeKey_Prev() {
    return NavPrevEnabled() ? &records_[--index_] : nullptr;
}

const NavigationList::Record* NavigationList::NavCodeKey_Next() {
    return NavNextEnabled() ? &records_[++index_] : nullptr;
}

void NavigationList::Clear() {
    records_.assign(1, {});
    index_ = 0;
}
