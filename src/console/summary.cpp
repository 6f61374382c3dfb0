#include "console/summary.h"

#include <cstdio>

#include "console/labelled_lines.h"
#include "findings/object_counts.h"
#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "shell/clsText.h"

std::string SummaryText(const clsProjekt& projekt, double milliseconds, double callMilliseconds) {
    ModuleCounts objects;
    for (const clsModul* modul : projekt.AllModules())
        objects.Add(*modul);
    std::string text = projekt.TheNames().Page().ToUtf8(projekt.MyName) + "\n";
    const auto line = [&text](Text label, const std::string& value) {
        AddLabelledLine(text, "  " + Utf8TextNr(label), value, 20);
    };
    const auto number = [&line](Text label, int value) { line(label, RightAligned(value)); };
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
