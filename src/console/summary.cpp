#include "console/summary.h"

#include <cstdio>

#include "findings/object_counts.h"
#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "shell/clsText.h"

std::string SummaryText(const clsProjekt& projekt, double milliseconds, double callMilliseconds) {
    ModuleCounts objects;
    for (const clsModul* modul : projekt.AllModules())
        objects.Add(*modul);
    std::string text = ActiveCodePage().ToUtf8(projekt.MyName) + "\n";
    const auto line = [&text](Text label, const std::string& value) {
        const std::string shown = Utf8TextNr(label);
        // Labels are padded by characters; each umlaut takes two bytes.
        std::size_t width = 0;
        for (const char c : shown)
            width += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        text += "  " + shown + std::string(width < 18 ? 18 - width : 1, ' ') + value + "\n";
    };
    const auto number = [&line](Text label, int value) {
        char digits[24];
        std::snprintf(digits, sizeof digits, "%9d", value);
        line(label, digits);
    };
    number(Text::Modules, projekt.Modules.Count());
    number(Text::CountForms, projekt.Formulare.Count());
    number(Text::CountClassModules, projekt.Klassenmodule.Count());
    number(Text::CountUserControls, projekt.UserControls.Count());
    number(Text::Procedures, objects.procedures);
    number(Text::Variables, objects.variables);
    number(Text::CountTypes, objects.types);
    number(Text::CountEnums, objects.enums);
    number(Text::CountControls, objects.controls);
    number(Text::CodeLines, projekt.AnzCodeZeilen);
    number(Text::CommentLines, projekt.AnzCommentZeilen);
    number(Text::BlankLines, projekt.AnzBlankZeilen);
    const auto time = [&line](Text label, double value) {
        char seconds[40];
        std::snprintf(seconds, sizeof seconds, "%9.3f s", value / 1000);
        line(label, seconds);
    };
    if (callMilliseconds >= 0) {
        const CallCounts calls = CountCalls(projekt);
        number(Text::CountReallyCalls, calls.really);
        number(Text::CountMayBeCalls, calls.mayBe);
        number(Text::CountUses, calls.uses);
        number(Text::CountDead, calls.dead);
        number(Text::CountUndead, calls.undead);
    }
    time(Text::TimeForStructure, milliseconds);
    if (callMilliseconds >= 0)
        time(Text::TimeForCalls, callMilliseconds);
    return text;
}
