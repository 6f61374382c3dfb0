#include "source/words.h"

#include "shell/operations.h"
#include "source/statement.h"

using modMain::IstSonderZeichen;
using modMain::IstSonderZeichenAusserAusrufUndGleich;

namespace {

bool RightIsBorder(std::string_view text, Pos hit, std::string_view word) {
    return IstSonderZeichen(CharAt(text, hit + Len(word)));
}

bool LeftIsBorder(std::string_view text, Pos hit) {
    const char left = CharAt(text, hit - 1);
    return left != '!' && IstSonderZeichen(left);
}

// Visits the hits of `find` forward from `start` until `accept` returns true.
template <class Accept>
Pos Forward(std::string_view text, Pos start, std::string_view find, Accept accept) {
    if (start < 1 || find.empty())
        return 0;
    Pos hit = InStr(start, text, find);
    while (hit != 0 && !accept(hit))
        hit = InStr(hit + 1, text, find);
    return hit;
}

// Same, backward; the search continues from the position of the last hit itself.
template <class Accept>
Pos Backward(std::string_view text, Pos start, std::string_view find, Accept accept) {
    if (start < 1 || find.empty())
        return 0;
    Pos hit = InStrRev(text, find, std::min(start, Len(text)));
    while (hit != 0 && !accept(hit))
        // Otherwise a word of one letter would find the same hit again.
        hit = hit > 1 ? InStrRev(text, find, std::min(hit, hit + Len(find) - 2)) : 0;
    return hit;
}

}  // namespace

Pos Suche_GanzesWort_Im_Text(const ModuleText& text, Pos start, std::string_view word) {
    const std::string_view lower = text.ModulText();
    return Forward(lower, start, word, [&](Pos hit) {
        return IstSonderZeichen(CharAt(lower, hit - 1)) && RightIsBorder(lower, hit, word);
    });
}

Pos Suche_GanzesWort_Im_Code(const ModuleText& text, Pos start, std::string_view word) {
    const std::string_view lower = text.ModulText();
    return Forward(lower, start, word, [&](Pos hit) {
        return (hit == 1 || LeftIsBorder(lower, hit)) && RightIsBorder(lower, hit, word) && !text.PosNotCode(hit);
    });
}

Pos Suche_GanzesWort_Im_Code_Rev(const ModuleText& text, Pos start, std::string_view word) {
    const std::string_view lower = text.ModulText();
    return Backward(lower, start, word, [&](Pos hit) {
        return (hit == 1 || LeftIsBorder(lower, hit)) && RightIsBorder(lower, hit, word) && !text.PosNotCode(hit);
    });
}

Pos Suche_CallWort_Im_Code(const ModuleText& text, Pos start, std::string_view word) {
    DoEvents();
    const std::string_view lower = text.ModulText();
    return Forward(lower, start, word, [&](Pos hit) {
        const char left = CharAt(lower, hit - 1);
        const bool leftFits =
            hit == 1 || IstSonderZeichenAusserAusrufUndGleich(left) || (left == '=' && CharAt(lower, hit - 2) == ':');
        return leftFits && RightIsBorder(lower, hit, word) && !text.PosNotCode(hit);
    });
}

Pos Suche_CallWort_Im_Code_Type(const ModuleText& text, Pos start, std::string_view word) {
    DoEvents();
    const std::string_view lower = text.ModulText();
    const std::string find = std::string(word) + ".";
    const Pos hit = Forward(lower, start, find,
                            [&](Pos at) { return at < 2 || (RightIsBorder(lower, at, word) && !text.PosNotCode(at)); });
    return hit < 2 ? 0 : hit + 1;
}

Pos Suche_CallWort_Im_Code_Rev(const ModuleText& text, Pos start, std::string_view word) {
    const std::string_view lower = text.ModulText();
    return Backward(lower, start, word, [&](Pos hit) {
        return LeftIsBorder(lower, hit) && RightIsBorder(lower, hit, word) && !text.PosNotCode(hit);
    });
}

CallWord Suche_CallWort(const ModuleText& text, std::string_view word, Pos start) {
    CallWord found;
    found.pos = Suche_CallWort_Im_Code(text, start, word);
    if (found.pos == 0)
        return found;
    clsStatement statement(text);
    statement.Initialisieren(found.pos);
    found.fullName = statement.Get_Prop_With_Parents(Len(word));
    if (found.fullName.starts_with('.')) {
        found.withName = Get_WithObject(text, found.pos, found.withPos);
        found.fullName = found.withName + found.fullName;
    }
    return found;
}

std::string Get_WithObject(const ModuleText& text, Pos pos, Pos& withPos) {
    withPos = 0;
    Pos hit = Suche_CallWort_Im_Code_Rev(text, pos, "with");
    while (hit > 1) {
        clsStatement statement(text);
        statement.Initialisieren(hit);
        if (statement.SplitNr() == 1 && statement.SplitCount() >= 2) {
            withPos = statement.StatementPos() + statement.SplitPos(2) - 1;
            return std::string(statement.SplitStr(2));
        }
        hit = Suche_CallWort_Im_Code_Rev(text, hit - 1, "with");
    }
    return {};
}
