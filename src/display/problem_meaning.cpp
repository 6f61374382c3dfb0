#include "display/problem_meaning.h"

#include "libraries/library_problems.h"
#include "shell/vb_text.h"

std::string_view ProblemKind(std::string_view tag) {
    return RTrim(tag.substr(0, tag.find('(')));
}

bool Interrupts(std::string_view tag) {
    return ProblemMeaning(tag) != Text::ConditionFalse;
}

Text ProblemMeaning(std::string_view tag) {
    struct Meaning {
        std::string_view tagBegins;
        Text text;
    };
    static constexpr Meaning kMeanings[] = {
        {"clsModul: Read_MyCodeName", Text::ModuleMissing},
        {"modMain: IF_is_TRUE", Text::ConditionFalse},
        {"clsModul: AnalyseErgebnis", Text::ReportIncomplete},
        {"modMain: AnalyseErgebnis", Text::ReportIncomplete},
        {kMissingLibrary, Text::LibraryMissing},
        {kOtherVersion, Text::LibraryOtherVersion},
        {kUnreadableRegistry, Text::RegistryUnreadable},
        {"clsProjekt: ChangedModule_Regenerieren", Text::ModuleStays},
        {"clsProjekt: Projekt_Laden", Text::NoResults},
        {"modMain: GetText", Text::NoEffect},
        {"modMain: Optionen", Text::NoEffect},
        {"modMain: SizeSave", Text::NoEffect},
        {"frm", Text::NoEffect},
    };
    for (const Meaning& meaning : kMeanings)
        if (tag.starts_with(meaning.tagBegins))
            return meaning.text;
    return Text::StepMissing;
}
