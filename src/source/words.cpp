#include "source/words.h"

#include "shell/operations.h"

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

}  // namespace

Pos Suche_GanzesWort_Im_Code(const ModuleText& text, Pos start, std::string_view word) {
    const std::string_view lower = text.ModulText();
    return Forward(lower, start, word, [&](Pos hit) {
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
