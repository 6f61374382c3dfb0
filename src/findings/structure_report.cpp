#include "findings/structure_report.h"

#include "findings/report_text.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "shell/errors.h"

namespace {

// Writes the members of a type, enum or procedure, each after an empty line.
void Members(ReportText& report, const clsCollection<clsVariable>& members) {
    for (const clsVariable* member : members) {
        report.BlankLines(1);
        report.Line("  - ", member->myNameOrg(), " as ", member->DatenTyp());
    }
}

}  // namespace

std::string StructureReport(const clsModul& modul) {
    ReportText report;
    for (const clsType* type : modul.myTypes) {
        report.BlankLines(3);
        report.Line(type->myNameOrg(), "\t", TextOf(type->Zugriff), " Type");
        Members(report, type->MyVars);
    }
    for (const clsEnum* einEnum : modul.myEnums) {
        report.BlankLines(3);
        report.Line(einEnum->myNameOrg(), "\t", TextOf(einEnum->Zugriff), " Enum");
        Members(report, einEnum->MyVars);
    }
    for (const clsVariable* variable : modul.MyVars) {
        if (variable->MyName() == "me")
            continue;
        report.BlankLines(3);
        report.Line(variable->myNameOrg(), "\t", TextOf(variable->Zugriff), " Variable", " as ", variable->DatenTyp());
    }
    for (const clsControl* control : modul.MyControls) {
        if (control->MyName() == "me")
            continue;
        report.BlankLines(3);
        report.Line(control->myNameOrg(), "\t", TextOf(control->Zugriff), " as ", control->DatenTyp());
    }
    for (const clsProzedur* prozedur : modul.MyProcs) {
        report.BlankLines(3);
        const ProcKind typ = prozedur->ProzedurTyp;
        const bool hasType = typ != ProcKind::Sub && typ != ProcKind::OtherProperty && typ != ProcKind::Other;
        report.Line(prozedur->myNameOrg(), "\t", TextOf(prozedur->Zugriff), " ", prozedur->ProzedurTypText(),
                    hasType ? " as " : "", hasType ? prozedur->DatenTyp() : "");
        Members(report, prozedur->MyVars);
    }
    return report.Take();
}

std::string StructureReportPath(const clsModul& modul) {
    return modul.FullPath + " Structure.txt";
}

bool AnalyseErgebnisStructure(const clsProjekt& projekt, const clsModul& modul, const std::string& path) {
    const FileError error = projekt.TheFiles().WriteWhole(path, StructureReport(modul));
    if (error != FileError::None)
        ShowFileError("clsModul: AnalyseErgebnisStructure", error, path);
    return error == FileError::None;
}

bool AnalyseErgebnisStructure(const clsProjekt& projekt, const ReportPath& path) {
    bool isWhole = true;
    for (const clsModul* modul : projekt.ModulesInReportOrder())
        isWhole &= AnalyseErgebnisStructure(projekt, *modul, path(*modul));
    return isWhole;
}
