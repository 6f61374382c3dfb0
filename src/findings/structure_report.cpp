#include "findings/structure_report.h"

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "shell/errors.h"

namespace {

class Report {
public:
    void BlankLines(int count) {
        while (count-- > 0)
            text_.append(vbCrLf);
    }
    template <class... Parts>
    void Line(Parts... parts) {
        (text_.append(std::string_view(parts)), ...);
        text_.append(vbCrLf);
    }
    // Members of a type, enum or procedure, each below an empty line.
    void Members(const clsCollection<clsVariable>& members) {
        for (const clsVariable* member : members) {
            BlankLines(1);
            Line("  - ", member->myNameOrg(), " as ", member->DatenTyp());
        }
    }
    [[nodiscard]] std::string Take() { return std::move(text_); }

private:
    std::string text_;
};

}  // namespace

std::string StructureReport(const clsModul& modul) {
    Report report;
    for (const clsType* type : modul.myTypes) {
        report.BlankLines(3);
        report.Line(type->myNameOrg(), "\t", type->Zugriff, " Type");
        report.Members(type->MyVars);
    }
    for (const clsEnum* einEnum : modul.myEnums) {
        report.BlankLines(3);
        report.Line(einEnum->myNameOrg(), "\t", einEnum->Zugriff, " Enum");
        report.Members(einEnum->MyVars);
    }
    for (const clsVariable* variable : modul.MyVars) {
        if (variable->MyName() == "me")
            continue;
        report.BlankLines(3);
        report.Line(variable->myNameOrg(), "\t", variable->Zugriff, " Variable", " as ", variable->DatenTyp());
    }
    for (const clsControl* control : modul.MyControls) {
        if (control->MyName() == "me")
            continue;
        report.BlankLines(3);
        report.Line(control->myNameOrg(), "\t", control->Zugriff, " as ", control->DatenTyp());
    }
    for (const clsProzedur* prozedur : modul.MyProcs) {
        report.BlankLines(3);
        const std::string_view typ = prozedur->ProzedurTyp();
        const bool hasType =
            typ == "function" || typ == "property get" || typ == "property let" || typ == "property set";
        report.Line(prozedur->myNameOrg(), "\t", prozedur->Zugriff, " ", typ, hasType ? " as " : "",
                    hasType ? prozedur->DatenTyp() : "");
        report.Members(prozedur->MyVars);
    }
    return report.Take();
}

std::string StructureReportPath(const clsModul& modul) {
    return modul.FullPath + " Structure.txt";
}

void AnalyseErgebnisStructure(const clsProjekt& projekt, const clsModul& modul, const std::string& path) {
    const ErrorSubject subject(modul.FullPath);
    if (const FileError error = projekt.TheFiles().WriteWhole(path, StructureReport(modul)); error != FileError::None)
        ShowError("clsModul: AnalyseErgebnisStructure", 75, std::string(Describe(error)) + " (" + path + ")");
}

void AnalyseErgebnisStructure(const clsProjekt& projekt, const ReportPath& path) {
    for (const auto* modules :
         {&projekt.Modules, &projekt.Klassenmodule, &projekt.Formulare, &projekt.UserControls})
        for (const clsModul* modul : *modules)
            AnalyseErgebnisStructure(projekt, *modul, path(*modul));
}
