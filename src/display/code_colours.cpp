#include "display/code_colours.h"

#include <algorithm>
#include <cstring>

#include "display/library_text.h"
#include "display/shown_text.h"
#include "findings/dead_objects.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"
#include "shell/settings.h"
#include "source/lines.h"
#include "source/module_text.h"

namespace {

constexpr std::int32_t kRed = 255;

Colour ByAccess(const CodeObject& object) {
    return object.Zugriff == Access::Private ? Colour::Private : Colour::Public;
}

Colour InOrOut(const CodeObject& target, const clsModul& caller) {
    return target.Modul == &caller ? Colour::CallIn : Colour::CallOut;
}

// A place that uses a type, or what a declaration names.
Colour ColourOfUse(const CodeObject& target, const clsModul& modul) {
    if (target.Class() == ObjectClass::Modul)
        return &target == &modul ? Colour::CallIn : Colour::CallOut;
    return InOrOut(target, modul);
}

void SelectTarget(CodePaint& paint, const clsCall& call, Colour what) {
    paint.Select(call.CallPos, Len(call.Parent->MyName()), what);
}

/// Paints each run of characters with one of the flags.
void SelectFlagged(const ModuleText& text, CodePaint& paint, CharFlag flag, Colour what) {
    const std::uint8_t* map = const_cast<ModuleText&>(text).MapForPass();
    const Pos end = std::min(paint.First() + paint.Length(), text.CharCount() + 1);
    for (Pos pos = paint.First(); pos < end;) {
        if (!(map[pos] & flag)) {
            ++pos;
            continue;
        }
        const Pos from = pos;
        while (pos < end && (map[pos] & flag))
            ++pos;
        // The tokeniser marks the closing quote of each literal as well, which the compiler does not leave out.
        const bool isClosingQuote = flag == NotCompile && pos == from + 1 && (map[from] & IsString);
        if (!isClosingQuote)
            paint.Select(from, pos - from, what);
    }
}

void SelectTextKinds(const ModuleText& text, CodePaint& paint) {
    SelectFlagged(text, paint, IsComment, Colour::Comment);
    SelectFlagged(text, paint, IsString, Colour::String);
    SelectFlagged(text, paint, NotCompile, Colour::NotCompiled);
}

void SelectDeclarations(const clsModul& modul, CodePaint& paint) {
    const auto select = [&](const CodeObject& object, Pos pos, Colour what) {
        paint.Select(pos, Len(object.MyName()), what);
    };
    for (const clsVariable* variable : modul.MyVars)
        if (variable->MyName() != "me")
            select(*variable, variable->DeclareStart, ByAccess(*variable));
    const auto selectWithMembers = [&](const auto& owners) {
        for (const auto* owner : owners) {
            select(*owner, owner->NamePos, ByAccess(*owner));
            for (const clsVariable* member : owner->MyVars)
                select(*member, member->DeclareStart, ByAccess(*owner));
        }
    };
    selectWithMembers(modul.myTypes);
    selectWithMembers(modul.myEnums);
    for (const clsProzedur* prozedur : modul.MyProcs)
        if (IsAmongDeclarations(*prozedur))
            select(*prozedur, prozedur->NamePos, ByAccess(*prozedur));
}

CodeText Stretch(const ModuleText& text, Pos first, Pos ende) {
    CodeText shown;
    shown.first = std::max<Pos>(first, 1);
    if (ende > shown.first)
        shown.text = text.Get_StringOrg(shown.first, ende);
    shown.page = &PageOf(text.ModulTextOrg());
    shown.firstLine = LineOf(text.ModulTextOrg(), shown.first);
    return shown;
}

std::optional<CodeRange> NameInPage(const CodeObject& object, const CodeText& page) {
    const clsProzedur* const prozedur =
        object.Class() == ObjectClass::Variable ? static_cast<const clsVariable&>(object).Prozedur : nullptr;
    const CodeObject* const named = prozedur ? static_cast<const CodeObject*>(prozedur) : &object;
    for (const NamedObject& place : page.objects)
        if (place.object == named)
            return place.name;
    return {};
}

}  // namespace

std::int32_t ColourOf(Colour what, const Settings& settings) {
    switch (what) {
        case Colour::None:
            return 0;
        case Colour::Comment:
            return settings.ColComment;
        case Colour::String:
            return settings.ColString;
        case Colour::NotCompiled:
            return settings.ColCondCompile;
        case Colour::Public:
            return settings.ColPublics;
        case Colour::Private:
            return settings.ColPrivates;
        case Colour::CallLocal:
            return settings.ColCallLocal;
        case Colour::CallIn:
            return settings.ColCallIn;
        case Colour::CallOut:
            return settings.ColCallOut;
        case Colour::CallMayBe:
            return settings.ColCallMayBe;
        case Colour::FunctionResult:
            return kRed;
    }
    return 0;
}

std::optional<CodeRange> CodeText::Shown(Pos posInModule, Pos length) const {
    if (posInModule < first || posInModule - first >= Len(text))
        return {};
    const Pos start = posInModule - first;
    return CodeRange{start, std::min(length, Len(text) - start)};
}

void CodePaint::Select(Pos pos, Pos length, Colour what) {
    const Pos start = std::max<Pos>(pos - first_, 0);
    const Pos end = std::min(pos - first_ + length, Length());
    if (pos > 0 && start < end)
        std::memset(cells_.data() + start, static_cast<int>(what), static_cast<std::size_t>(end - start));
}

std::vector<CodeSpan> CodePaint::Spans() const {
    std::vector<CodeSpan> spans;
    for (Pos start = 0; start < Length();) {
        const char cell = cells_[static_cast<std::size_t>(start)];
        const Pos end =
            static_cast<Pos>(std::min(cells_.find_first_not_of(cell, static_cast<std::size_t>(start)), cells_.size()));
        if (cell != 0)
            spans.push_back({start, end - start, static_cast<Colour>(cell)});
        start = end;
    }
    return spans;
}

bool IsAmongDeclarations(const clsProzedur& prozedur) {
    const bool isEventDeclaration = prozedur.IsEvent && prozedur.DeclareEnd <= prozedur.Modul->BeginnProcBereich;
    return prozedur.isDeclare || prozedur.IsUserEvent || isEventDeclaration;
}

Colour ColourOfCall(const clsCall& call, const clsModul& caller) {
    const CodeObject& target = *call.Parent;
    if (call.Type() == CallType::Use) {
        const bool isFromOutside =
            target.Class() == ObjectClass::Modul || target.Class() == ObjectClass::TypeLib || !target.Modul;
        return isFromOutside ? Colour::CallOut : InOrOut(target, caller);
    }
    if (call.Type() == CallType::MayBe)
        return Colour::CallMayBe;
    if (target.Zugriff == Access::Argument || target.Zugriff == Access::Procedure)
        return Colour::CallLocal;
    return ColourOfUse(target, caller);
}

CodeText ShowMe(const clsModul& modul) {
    if (modul.myLibrary)
        return LibraryText(*modul.myLibrary);
    if (!modul.text)
        return {};
    // Without procedures their section begins at the last character, which belongs to the declarations then.
    const bool hasProcs = modul.BeginnProcBereich < modul.text->CharCount();
    CodeText shown = Stretch(*modul.text, modul.BeginnVarBereich, modul.BeginnProcBereich + (hasProcs ? 0 : 1));
    CodePaint paint(shown.first, Len(shown.text));
    SelectTextKinds(*modul.text, paint);
    SelectDeclarations(modul, paint);
    ShowUses(modul, paint);
    shown.spans = paint.Spans();
    return shown;
}

void ShowUses(const clsModul& modul, CodePaint& paint) {
    for (const clsCall* call : modul.CallsInDeclarations())
        SelectTarget(paint, *call, ColourOfUse(*call->Parent, modul));
}

CodeText ShowWhole(const clsModul& modul, LocalUses& locals, bool withHeader) {
    if (modul.myLibrary || !modul.text)
        return ShowMe(modul);
    const ModuleText& text = *modul.text;
    CodeText shown = Stretch(text, withHeader ? 1 : HeaderEnd(modul), text.CharCount() + 1);
    CodePaint paint(shown.first, Len(shown.text));
    SelectTextKinds(text, paint);
    SelectDeclarations(modul, paint);
    ShowUses(modul, paint);
    for (const clsProzedur* prozedur : modul.MyProcs)
        if (!IsAmongDeclarations(*prozedur)) {
            shown.localsChecked = shown.localsChecked || !locals.Known(*prozedur);
            ShowCalls(*prozedur, locals.Look(*prozedur), paint);
        }
    shown.spans = paint.Spans();
    return shown;
}

CodeText ShowMe(const clsProzedur& prozedur, LocalUses& locals) {
    const clsModul& modul = *prozedur.Modul;
    if (modul.myLibrary)
        return LibraryText(*modul.myLibrary);
    if (!modul.text)
        return {};
    const Pos first = CommentAbove(modul.text->ModulTextOrg(), prozedur.DeclareStart);
    CodeText shown = Stretch(*modul.text, first, prozedur.DeclareEnd);
    shown.comment = prozedur.DeclareStart - shown.first;
    shown.localsChecked = !prozedur.isDeclare && !locals.Known(prozedur);
    CodePaint paint(shown.first, Len(shown.text));
    SelectTextKinds(*modul.text, paint);
    ShowCalls(prozedur, locals.Look(prozedur), paint);
    shown.spans = paint.Spans();
    shown.shade = prozedur.IsDeath >= 1 ? Shade::Grey : Shade::Plain;
    return shown;
}

void ShowCalls(const clsProzedur& prozedur, const std::vector<LocalUse>& locals, CodePaint& paint) {
    const clsModul& modul = *prozedur.Modul;
    for (const clsVariable* variable : prozedur.MyVars)
        paint.Select(variable->DeclareStart, Len(variable->MyName()), Colour::CallLocal);
    for (const clsCall* call : prozedur.CallsAll())
        SelectTarget(paint, *call, ColourOfCall(*call, modul));
    for (const LocalUse& use : locals) {
        const bool isResult = use.variable->MyName() == prozedur.MyName();
        paint.Select(use.pos, Len(use.variable->MyName()), isResult ? Colour::FunctionResult : Colour::CallLocal);
    }
    for (const clsCall* call : prozedur.UsesAll())
        if (call->Type() == CallType::Use)
            SelectTarget(paint, *call, ColourOfCall(*call, modul));
}

std::optional<CodeRange> NameMarkieren(const CodeObject& object, const CodeText& shown) {
    if (LibraryOf(object))
        return NameInPage(object, shown);
    Pos pos = 0;
    switch (object.Class()) {
        case ObjectClass::Prozedur:
            pos = static_cast<const clsProzedur&>(object).NamePos;
            break;
        case ObjectClass::Type:
            pos = static_cast<const clsType&>(object).NamePos;
            break;
        case ObjectClass::Enum:
            pos = static_cast<const clsEnum&>(object).NamePos;
            break;
        case ObjectClass::Variable:
        case ObjectClass::Control:
            pos = object.DeclareStart;
            break;
        case ObjectClass::Modul:
        case ObjectClass::TypeLib:
            break;
    }
    return shown.Shown(pos, Len(object.MyName()));
}
