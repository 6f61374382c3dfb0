#include "console/summary.h"

#include <cstdio>

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"

ProjectCounts CountObjects(const clsProjekt& projekt) {
    ProjectCounts counts;
    counts.modules = projekt.Modules.Count();
    counts.forms = projekt.Formulare.Count();
    counts.classes = projekt.Klassenmodule.Count();
    counts.userControls = projekt.UserControls.Count();
    for (const clsModul* modul : projekt.AllModules()) {
        counts.procedures += modul->MyProcs.Count();
        counts.variables += modul->MyVars.Count();
        counts.types += modul->myTypes.Count();
        counts.enums += modul->myEnums.Count();
        counts.controls += modul->MyControls.Count();
        for (const clsType* type : modul->myTypes)
            counts.variables += type->MyVars.Count();
        for (const clsEnum* einEnum : modul->myEnums)
            counts.variables += einEnum->MyVars.Count();
        for (const clsProzedur* prozedur : modul->MyProcs)
            counts.variables += prozedur->MyVars.Count();
    }
    return counts;
}

CallCounts CountCalls(const clsProjekt& projekt) {
    CallCounts counts;
    projekt.calls.ForEach([&](const clsCall& call) {
        ++(call.Type() == CallType::Really  ? counts.really
           : call.Type() == CallType::MayBe ? counts.mayBe
                                            : counts.uses);
    });
    const auto count = [&](const CodeObject& object) {
        counts.dead += object.IsDeath == 1;
        counts.undead += object.IsDeath == 2;
    };
    for (const clsModul* modul : projekt.AllModules()) {
        for (const clsProzedur* prozedur : modul->MyProcs)
            count(*prozedur);
        for (const clsVariable* variable : modul->MyVars)
            count(*variable);
        for (const clsType* type : modul->myTypes) {
            count(*type);
            for (const clsVariable* member : type->MyVars)
                count(*member);
        }
        // MyVars of a module includes the members of its enumerations.
        for (const clsEnum* einEnum : modul->myEnums)
            count(*einEnum);
    }
    return counts;
}

std::string SummaryText(const clsProjekt& projekt, bool german, double milliseconds, double callMilliseconds) {
    const ProjectCounts counts = CountObjects(projekt);
    std::string text = ActiveCodePage().ToUtf8(projekt.MyName) + "\n";
    const auto line = [&](const char* english, const char* deutsch, const std::string& value) {
        std::string label = german ? deutsch : english;
        // Labels are padded by characters; each umlaut takes two bytes.
        std::size_t width = 0;
        for (const char c : label)
            width += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        text += "  " + label + std::string(width < 18 ? 18 - width : 1, ' ') + value + "\n";
    };
    const auto number = [&](const char* english, const char* deutsch, int value) {
        char digits[24];
        std::snprintf(digits, sizeof digits, "%9d", value);
        line(english, deutsch, digits);
    };
    number("Modules", "Module", counts.modules);
    number("Forms", "Formulare", counts.forms);
    number("Class modules", "Klassenmodule", counts.classes);
    number("User controls", "User Controls", counts.userControls);
    number("Procedures", "Prozeduren", counts.procedures);
    number("Variables", "Variablen", counts.variables);
    number("Types", "Strukturen", counts.types);
    number("Enumerations", "Enums", counts.enums);
    number("Controls", "Steuerelemente", counts.controls);
    number("Code lines", "Codezeilen", projekt.AnzCodeZeilen);
    number("Comment lines", "Kommentarzeilen", projekt.AnzCommentZeilen);
    number("Blank lines", "Leerzeilen", projekt.AnzBlankZeilen);
    const auto time = [&](const char* english, const char* deutsch, double value) {
        char seconds[40];
        std::snprintf(seconds, sizeof seconds, "%9.3f s", value / 1000);
        line(english, deutsch, seconds);
    };
    if (callMilliseconds >= 0) {
        const CallCounts calls = CountCalls(projekt);
        number("Really calls", "Really-Aufrufe", calls.really);
        number("May be calls", "MayBe-Aufrufe", calls.mayBe);
        number("Uses", "Verwendungen", calls.uses);
        number("Dead objects", "Tote Objekte", calls.dead);
        number("Undead objects", "Untote Objekte", calls.undead);
    }
    time("Time for structure", "Zeit für Struktur", milliseconds);
    if (callMilliseconds >= 0)
        time("Time for calls", "Zeit für Aufrufe", callMilliseconds);
    return text;
}
