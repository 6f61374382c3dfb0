#include "display/call_places.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

#include "display/node_objects.h"
#include "display/project_tree.h"
#include "display/selection.h"
#include "display/shown_text.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "model/line_numbers.h"
#include "platform/code_page.h"
#include "source/module_text.h"

namespace {

using UseEdge = std::function<void(const clsCall&)>;

void ForEach(const IncomingEdges& edges, const UseEdge& use) {
    for (const clsCall* call : edges)
        use(*call);
}

template <class Owner>
void ForEachEdgeToBlock(const Owner& owner, const UseEdge& use, const clsCollection<clsVariable>* seen = nullptr) {
    ForEach(owner.CalledByAll(), use);
    for (const clsVariable* member : owner.MyVars)
        if (!seen || seen->Item(member->NameKey()) != member)
            ForEach(member->CalledByAll(), use);
    ForEach(owner.UsedByAll(), use);
}

void ForEachEdgeToModule(const clsProjekt& projekt, const clsModul& modul, const UseEdge& use) {
    ForEach(modul.CalledByAll(), use);
    if (modul.ModulTyp == ModuleKind::Form)
        if (const clsVariable* const instance = projekt.FormVars.Item(modul.NameKey()))
            ForEach(instance->CalledByAll(), use);
    for (const clsProzedur* prozedur : modul.MyProcs)
        ForEach(prozedur->CalledByAll(), use);
    for (const clsVariable* variable : modul.MyVars)
        ForEach(variable->CalledByAll(), use);
    for (const clsType* type : modul.myTypes)
        ForEachEdgeToBlock(*type, use);
    // The members of enumerations are among the module's variables.
    for (const clsEnum* einEnum : modul.myEnums)
        ForEachEdgeToBlock(*einEnum, use, &modul.MyVars);
    ForEach(modul.UsedByAll(), use);
}

const clsVariable* AsLocal(const CodeObject& object) {
    if (object.Class() != ObjectClass::Variable)
        return nullptr;
    const auto& variable = static_cast<const clsVariable&>(object);
    return variable.Prozedur ? &variable : nullptr;
}

std::vector<CallPlace> PlacesOfLocal(const LocalUses& locals, const clsVariable& variable) {
    std::vector<CallPlace> places;
    std::set<Pos> known;
    const auto add = [&](Pos pos, CallType type) {
        if (known.insert(pos).second)
            places.push_back({variable.Prozedur, &variable, pos, type});
    };
    for (const clsCall* call : variable.CalledByAll())
        add(call->CallPos, call->Type());
    if (const std::vector<LocalUse>* const uses = locals.Known(*variable.Prozedur))
        for (const LocalUse& use : *uses)
            if (use.variable == &variable)
                add(use.pos, CallType::Really);
    return places;
}

// In the order of AllModules, which is that of the kinds, and of the project file among those of one kind.
void SortByCode(std::vector<CallPlace>& places) {
    const auto rank = [](const CallPlace& place) {
        const clsModul& modul = place.Modul();
        return std::tuple(modul.ModulTyp, modul.number, place.pos);
    };
    std::ranges::stable_sort(places, {}, rank);
}

struct SourceLine {
    std::string_view text;  // without its indentation
    std::size_t name = 0;   // where the place is in it
};

SourceLine LineAround(std::string_view text, Pos pos) {
    const auto at = static_cast<std::size_t>(pos) - 1;
    const auto lineBreak = at == 0 ? std::string_view::npos : text.rfind('\n', at - 1);
    std::size_t begin = lineBreak == std::string_view::npos ? 0 : lineBreak + 1;
    begin = std::min(text.find_first_not_of(" \t", begin), at);
    std::string_view line = text.substr(begin, std::min(text.find_first_of("\r\n", at), text.size()) - begin);
    line = line.substr(0, line.find_last_not_of(" \t") + 1);
    return {line, at - begin};
}

bool IsAccessor(const CodeObject& object) {
    return object.Class() == ObjectClass::Prozedur && static_cast<const clsProzedur&>(object).IsProperty();
}

Text KindOf(CallType type) {
    return type == CallType::Really ? Text::Really : type == CallType::MayBe ? Text::MayBe : Text::Use;
}

}  // namespace

const clsModul& CallPlace::Modul() const {
    return owner->Class() == ObjectClass::Modul ? static_cast<const clsModul&>(*owner) : *owner->Modul;
}

Pos CallPlace::Length() const {
    return Len(target->MyName());
}

Colour CallPlace::What() const {
    return ColourOfPlace(*target, type, Modul());
}

void ForEachEdgeTo(const clsProjekt& projekt, const CodeObject& object, const UseEdge& use) {
    switch (object.Class()) {
        case ObjectClass::Modul:
            return ForEachEdgeToModule(projekt, static_cast<const clsModul&>(object), use);
        case ObjectClass::Type:
            return ForEachEdgeToBlock(static_cast<const clsType&>(object), use);
        case ObjectClass::Enum:
            return ForEachEdgeToBlock(static_cast<const clsEnum&>(object), use);
        case ObjectClass::TypeLib:
            return ForEach(object.UsedByAll(), use);
        default:
            return ForEach(object.CalledByAll(), use);
    }
}

void ForEachEdgeInto(const clsProjekt& projekt, const clsTypeLib& library, const UseEdge& use) {
    projekt.calls.ForEach([&](const clsCall& call) {
        if (call.Parent == &library || call.Parent->myLibrary == &library)
            use(call);
    });
}

std::vector<CallPlace> ReferencesTo(const clsProjekt& projekt, const LocalUses& locals, const CodeObject& object) {
    std::vector<CallPlace> places;
    const auto add = [&places](const clsCall& call) {
        places.push_back({&call.Caller(), call.Parent, call.CallPos, call.Type()});
    };
    if (const clsVariable* const local = AsLocal(object))
        places = PlacesOfLocal(locals, *local);
    else if (object.Class() == ObjectClass::TypeLib)
        ForEachEdgeInto(projekt, static_cast<const clsTypeLib&>(object), add);
    else
        ForEachEdgeTo(projekt, object, add);
    SortByCode(places);
    return places;
}

std::vector<CallPlace> PlacesIn(const clsModul& caller, const CodeObject& object, CallType type) {
    std::vector<CallPlace> places;
    const auto collect = [&](const CodeObject& owner, const OutgoingEdges& edges) {
        for (const clsCall* call : edges)
            if (Reaches(*call, object, type))
                places.push_back({&owner, call->Parent, call->CallPos, call->Type()});
    };
    collect(caller, caller.CallsInDeclarations());
    for (const clsProzedur* prozedur : caller.MyProcs) {
        collect(*prozedur, prozedur->CallsAll());
        collect(*prozedur, prozedur->UsesAll());
    }
    std::stable_sort(places.begin(), places.end(),
                     [](const CallPlace& a, const CallPlace& b) { return a.pos < b.pos; });
    // A name can be called and used at one place.
    places.erase(std::unique(places.begin(), places.end(),
                             [](const CallPlace& a, const CallPlace& b) { return a.pos == b.pos; }),
                 places.end());
    return places;
}

std::vector<ReferenceRow> RowsOf(const std::vector<CallPlace>& places, const CodeObject& object) {
    std::vector<ReferenceRow> rows;
    rows.reserve(places.size());
    LineNumbers lines;
    const clsModul* modul = nullptr;
    const CodePage* page = nullptr;
    const CodeObject* owner = nullptr;
    for (const CallPlace& place : places) {
        if (&place.Modul() != modul) {
            modul = &place.Modul();
            page = modul->text ? &PageOf(modul->text->ModulTextOrg()) : &ActiveCodePage();
        }
        ReferenceRow row;
        if (std::exchange(owner, place.owner) != place.owner) {
            row.key = NodeKeyOf(*place.owner);
            row.where = page->ToUtf8(place.owner->CodePathOrg());
        } else {
            row.key = rows.back().key;
            row.where = rows.back().where;
        }
        row.image = place.owner->GetImageKey();
        row.kind = KindOf(place.type);
        const std::string_view text = modul->text ? modul->text->ModulTextOrg() : std::string_view();
        if (place.pos > 0 && place.pos <= Len(text)) {
            row.line = lines.Of(*modul, place.pos);
            const SourceLine line = LineAround(text, place.pos);
            row.text = page->ToUtf8(line.text);
            row.nameStart = page->ToUtf8(line.text.substr(0, line.name)).size();
            const auto length = static_cast<std::size_t>(place.Length());
            row.nameLength = page->ToUtf8(line.text.substr(std::min(line.name, line.text.size()), length)).size();
        }
        if (place.target != &object && IsAccessor(*place.target))
            row.member = page->ToUtf8(NodeText(*place.target));
        rows.push_back(std::move(row));
    }
    return rows;
}

bool PlaceWalk::GoTo(int at) {
    if (at < 0 || at >= Count())
        return false;
    at_ = at;
    return true;
}

void PlaceWalk::Step(int by) {
    if (Count() == 0)
        return;
    const int from = at_ < 0 ? (by > 0 ? -1 : 0) : at_;
    at_ = (from + by + Count()) % Count();
}
