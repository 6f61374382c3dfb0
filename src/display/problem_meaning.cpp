#include "display/problem_meaning.h"

#include "shell/vb_text.h"

std::string_view ProblemKind(std::string_view tag) {
    return RTrim(tag.substr(0, tag.find('(')));
}

int ProblemMeaningNr(std::string_view tag) {
    enum Text { ModuleMissing = 131, ConditionFalse, ReportIncomplete, NoEffect, NoProject, StepMissing };
    struct Meaning {
        std::string_view tagBegins;
        Text text;
    };
    static constexpr Meaning kMeanings[] = {
        {"clsModul: Read_MyCodeName", ModuleMissing},
        {"modMain: IF_is_TRUE", ConditionFalse},
        {"clsModul: AnalyseErgebnis", ReportIncomplete},
        {"modMain: AnalyseErgebnis", ReportIncomplete},
        {"clsProjekt: Projekt_Laden", NoProject},
        {"clsProjekt: Get_ProjektName", NoProject},
        {"modMain: GetText", NoEffect},
        {"modMain: Optionen", NoEffect},
        {"modMain: SizeSave", NoEffect},
        {"frm", NoEffect},
    };
    for (const Meaning& meaning : kMeanings)
        if (tag.starts_with(meaning.tagBegins))
            return meaning.text;
    return StepMissing;
}
