#include "display/object_text.h"

#include <algorithm>
#include <unordered_set>

#include "calls/edges.h"
#include "display/call_places.h"
#include "display/handled_event.h"
#include "display/library_text.h"
#include "display/local_uses.h"
#include "display/object_search.h"
#include "display/properties.h"
#include "display/selection.h"
#include "display/shown_text.h"
#include "findings/start_up.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"
#include "shell/clsText.h"
#include "source/lines.h"
#include "source/module_text.h"

namespace {

constexpr std::size_t kLongestLine = 240;
constexpr std::size_t kNamedCallers = 5;
constexpr std::size_t kCallersFollowed = 10'000;

std::string Labelled(Text label, std::string_view value) {
    return Utf8TextNr(label).append(": ").append(value);
}

// Cut between two characters.
std::string Shortened(std::string text) {
    if (text.size() <= kLongestLine)
        return text;
    std::size_t end = kLongestLine;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    text.resize(end);
    return text.append("\u2026");
}

// The word for the object with its access before it.
std::string KindWithAccess(const CodeObject& object) {
    std::string kind = ObjectKind(object);
    switch (object.Class()) {
        case ObjectClass::Prozedur: {
            const auto& prozedur = static_cast<const clsProzedur&>(object);
            const bool isEvent = !prozedur.isDeclare && (prozedur.IsEvent || prozedur.IsUserEvent);
            return KindAndName(TextOf(prozedur.Zugriff), isEvent ? "event " + kind : kind);
        }
        case ObjectClass::Variable: {
            const auto& variable = static_cast<const clsVariable&>(object);
            if (variable.MyType || variable.MyEnum || (variable.Zugriff == Access::Argument && !variable.isResult))
                return kind;
            const std::string access =
                variable.Prozedur ? Utf8TextNr(Text::Local) : std::string(TextOf(variable.Zugriff));
            return KindAndName(access, variable.IsConst ? "const" : "variable");
        }
        case ObjectClass::Type:
        case ObjectClass::Enum:
            return KindAndName(TextOf(object.Zugriff), kind);
        default:
            return kind;
    }
}

// Declarations of procedures show their types.
std::string_view DataTypeOf(const CodeObject& object) {
    return object.Class() == ObjectClass::Prozedur ? std::string_view() : ShownTypeOf(object);
}

std::string DescriptionOf(const CodeObject& object) {
    std::string text;
    if (object.myLibrary)
        text = object.myLibrary->DetailOf(object).description;
    else if (object.Class() == ObjectClass::TypeLib)
        text = static_cast<const clsTypeLib&>(object).Description;
    return text.empty() ? text : Shortened(Labelled(Text::Description, Utf8Of(nullptr, text)));
}

// The default instance of a form: calls that name the form reach this variable, not the form's module.
const clsVariable* InstanceOf(const clsProjekt& projekt, const CodeObject& object) {
    return object.Class() == ObjectClass::Modul ? projekt.FormVars.Item(object.NameKey()) : nullptr;
}

struct Counts {
    int certain = 0;
    int possible = 0;

    void Add(const clsCall& call) { ++(call.Type() == CallType::MayBe ? possible : certain); }
    template <class Edges>
    void AddAll(const Edges& edges) {
        for (const clsCall* call : edges)
            Add(*call);
    }
    [[nodiscard]] bool Any() const { return certain + possible > 0; }
    [[nodiscard]] std::string Text() const {
        return Utf8Number(certain) + " " + Utf8TextNr(Text::Certain) + ", " + Utf8Number(possible) + " " +
               Utf8TextNr(Text::Possible);
    }
};

template <class Owner>
Counts CallsOfMembers(const Owner& owner) {
    Counts counts;
    for (const clsVariable* member : owner.MyVars)
        counts.AddAll(member->CalledByAll());
    return counts;
}

Counts CallersOf(const clsProjekt& projekt, const LocalUses& locals, const CodeObject& object) {
    if (object.Class() == ObjectClass::Type)
        return CallsOfMembers(static_cast<const clsType&>(object));
    if (object.Class() == ObjectClass::Enum)
        return CallsOfMembers(static_cast<const clsEnum&>(object));
    Counts counts;
    counts.AddAll(object.CalledByAll());
    if (object.Class() == ObjectClass::Variable)
        counts.certain += locals.CountOf(static_cast<const clsVariable&>(object));
    if (const clsVariable* const instance = InstanceOf(projekt, object))
        counts.AddAll(instance->CalledByAll());
    return counts;
}

std::string HandledText(const clsProjekt& projekt, const clsProzedur& prozedur) {
    const clsProzedur* const event = HandledEvent(projekt, prozedur);
    if (!event)
        return {};
    const std::string declaration = event->myLibrary ? LibraryDeclaration(*event) : DeclarationText(*event);
    return Shortened(Labelled(Text::HandlesEvent,
                              Utf8Of(event->Modul, KindAndName(event->Modul->CodePathOrg() + ":", declaration))));
}

std::string LinesOf(const CodeObject& object) {
    if (object.myLibrary)
        return {};
    if (object.Class() == ObjectClass::Modul) {
        const auto& modul = static_cast<const clsModul&>(object);
        return Labelled(Text::Lines, Utf8Number(modul.LineCount)) + ", " +
               Labelled(Text::CodeLines, Utf8Number(modul.AnzLineCode));
    }
    if (!object.Modul || !object.Modul->text || object.DeclareStart < 1)
        return {};
    const std::string_view text = object.Modul->text->ModulTextOrg();
    const int first = LineOf(text, object.DeclareStart);
    const bool isBlock = object.Class() == ObjectClass::Prozedur || object.Class() == ObjectClass::Type ||
                         object.Class() == ObjectClass::Enum;
    const int last = isBlock ? LineOf(text, std::max(object.DeclareEnd - 1, object.DeclareStart)) : first;
    if (first == last)
        return Labelled(Text::Line, std::to_string(first));
    return Labelled(Text::Lines, std::to_string(first) + "\u2013" + std::to_string(last) + " (" +
                                     Utf8Number(last - first + 1) + ")");
}

// The procedures that call one, each once, in the order of their calls.
std::vector<const clsProzedur*> CallingProcedures(const clsProzedur& prozedur) {
    std::vector<const clsProzedur*> callers;
    std::unordered_set<const clsProzedur*> known;
    for (const clsCall* call : prozedur.CalledByAll())
        if (call->CallProcedure() && known.insert(call->CallProcedure()).second)
            callers.push_back(call->CallProcedure());
    return callers;
}

// Whether no dead procedure is among the direct and indirect callers of an undead one: then it and its callers only
// call each other.
bool IsRing(const clsProzedur& prozedur) {
    std::vector<const clsProzedur*> open{&prozedur};
    std::unordered_set<const clsProzedur*> known{&prozedur};
    std::size_t followed = 0;
    while (!open.empty()) {
        const clsProzedur* const at = open.back();
        open.pop_back();
        for (const clsCall* call : at->CalledByAll()) {
            const clsProzedur* const caller = call->CallProcedure();
            if (!caller || caller->IsDeath != 2 || ++followed > kCallersFollowed)
                return false;
            if (known.insert(caller).second)
                open.push_back(caller);
        }
    }
    return true;
}

// The start-up procedure and what it reaches carry the marks of dead and undead ones, which this line puts right.
std::string StartUpText(const clsProjekt& projekt, const CodeObject& object) {
    const clsProzedur* const start = object.Class() == ObjectClass::Prozedur ? StartUpProcedure(projekt) : nullptr;
    if (start == &object)
        return Utf8TextNr(Text::StartUpProcedure);
    const bool isReached = start && object.IsDeath != 0 && LeadsTo(*start, static_cast<const clsProzedur&>(object));
    return isReached ? Utf8TextNr(Text::CalledFromStartUp) : std::string();
}

std::string WhyDead(const clsProjekt& projekt, const LocalUses& locals, const CodeObject& object) {
    if (object.Class() == ObjectClass::Variable) {
        const auto& variable = static_cast<const clsVariable&>(object);
        if (variable.Prozedur)
            return locals.Known(*variable.Prozedur) && locals.CountOf(variable) == 0 ? Utf8TextNr(Text::LocalUnused)
                                                                                     : std::string();
    }
    if (!projekt.callsKnown)
        return {};
    if (object.IsDeath == 1)
        return Utf8TextNr(Text::Dead);
    if (object.IsDeath != 2 || object.Class() != ObjectClass::Prozedur)
        return {};
    const auto& prozedur = static_cast<const clsProzedur&>(object);
    const bool isRing = IsRing(prozedur);
    std::string names;
    const std::vector<const clsProzedur*> callers = CallingProcedures(prozedur);
    for (std::size_t i = 0; i < std::min(callers.size(), kNamedCallers); ++i)
        names.append(i == 0 ? "" : ", ").append(Utf8Of(callers[i]->Modul, callers[i]->CodePathOrg()));
    if (callers.size() > kNamedCallers)
        names.append(", \u2026");
    return Labelled(isRing ? Text::UndeadRing : Text::UndeadCallers, names);
}

int UsesOf(const clsProjekt& projekt, const CodeObject& object) {
    if (object.Class() != ObjectClass::TypeLib)
        return object.UsedByAll().Count();
    int uses = 0;
    ForEachEdgeInto(projekt, static_cast<const clsTypeLib&>(object), [&uses](const clsCall&) { ++uses; });
    return uses;
}

// How many callers and calls there are. Before the calls were read there are none, which says nothing.
template <class Add>
void AddNeighbours(const clsProjekt& projekt, const LocalUses& locals, const CodeObject& object, const Add& add) {
    const bool isLocal =
        object.Class() == ObjectClass::Variable && static_cast<const clsVariable&>(object).Prozedur != nullptr;
    if (!projekt.callsKnown && !isLocal) {
        add(Labelled(object.CanBeUsed() ? Text::UsedBy : Text::CalledBy, Utf8TextNr(Text::CallsNotRead)));
        return;
    }
    const Counts callers = CallersOf(projekt, locals, object);
    if (!object.CanBeUsed() || callers.Any())
        add(Labelled(Text::CalledBy, callers.Text()));
    if (object.CanBeUsed())
        add(Labelled(Text::UsedBy, Utf8Number(UsesOf(projekt, object))));
    if (object.Class() != ObjectClass::Prozedur || object.myLibrary)
        return;
    const auto& prozedur = static_cast<const clsProzedur&>(object);
    Counts calls;
    calls.AddAll(prozedur.CallsAll());
    add(Labelled(Text::Calls, calls.Text()));
    if (prozedur.UsesAll().Count() > 0)
        add(Labelled(Text::Uses, Utf8Number(prozedur.UsesAll().Count())));
}

}  // namespace

std::vector<std::string> ObjectText(const clsProjekt& projekt, const LocalUses& locals, const CodeObject& object) {
    std::vector<std::string> lines;
    const auto add = [&lines](std::string line) {
        if (!line.empty())
            lines.push_back(std::move(line));
    };
    const clsModul* const modul =
        object.Class() == ObjectClass::Modul ? static_cast<const clsModul*>(&object) : object.Modul;
    const std::string_view path = object.Class() == ObjectClass::Variable ? object.myNameOrg() : std::string_view();
    add(KindAndName(KindWithAccess(object), Utf8Of(modul, path.empty() ? object.CodePathOrg() : std::string(path))));
    // A path is in the system's page, whatever the text of its file is in.
    add(Shortened(Utf8Of(object.Modul, object.myLibrary ? LibraryDeclaration(object) : DeclarationText(object))));
    if (const std::string owner = OwnerText(object); !owner.empty())
        add(Labelled(Text::BelongsTo, Utf8Of(modul, owner)));
    if (const std::string_view type = DataTypeOf(object); !type.empty())
        add(Labelled(Text::DataType, Shortened(Utf8Of(modul, type))));

    AddNeighbours(projekt, locals, object, add);
    add(DescriptionOf(object));
    if (object.Class() == ObjectClass::Prozedur)
        add(HandledText(projekt, static_cast<const clsProzedur&>(object)));
    add(LinesOf(object));
    add(WhyDead(projekt, locals, object));
    add(StartUpText(projekt, object));
    return lines;
}

std::string SpokenAbout(const clsProjekt& projekt, const LocalUses& locals, const CodeObject& object) {
    const bool isLocal =
        object.Class() == ObjectClass::Variable && static_cast<const clsVariable&>(object).Prozedur != nullptr;
    std::string about = KindWithAccess(object);
    if (isLocal ? !WhyDead(projekt, locals, object).empty() : object.IsDeath == 1 && projekt.callsKnown)
        about.append(", ").append(Utf8TextNr(Text::DeadWord));
    else if (!isLocal && object.IsDeath == 2 && projekt.callsKnown)
        about.append(", ").append(Utf8TextNr(Text::UndeadWord));
    return about;
}

std::string CallsText(const CodeObject& caller, const CodeObject& target, CallType type) {
    const bool isModul = caller.Class() == ObjectClass::Modul;
    const clsModul* const modul = isModul ? static_cast<const clsModul*>(&caller) : caller.Modul;
    if (!modul || !modul->text)
        return {};
    int count = 0;
    Pos first = 0;
    const auto look = [&](const OutgoingEdges& edges) {
        for (const clsCall* call : edges)
            if (Reaches(*call, target, type))
                first = ++count == 1 ? call->CallPos : std::min(first, call->CallPos);
    };
    const auto lookInside = [&](const clsProzedur& prozedur) {
        look(prozedur.CallsAll());
        look(prozedur.UsesAll());
    };
    if (isModul) {
        look(modul->CallsInDeclarations());
        for (const clsProzedur* prozedur : modul->MyProcs)
            lookInside(*prozedur);
    } else if (caller.Class() == ObjectClass::Prozedur) {
        lookInside(static_cast<const clsProzedur&>(caller));
    }
    if (count == 0)
        return {};
    return Utf8Number(count) + " " + Utf8TextNr(type == CallType::MayBe ? Text::Possible : Text::Certain) + ", " +
           Labelled(Text::FirstInLine, std::to_string(LineOf(modul->text->ModulTextOrg(), first)));
}
