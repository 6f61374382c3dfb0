#include "findings/deaths_report.h"

#include "findings/dead_objects.h"
#include "findings/report_text.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "shell/errors.h"

namespace {

class Block {
public:
    explicit Block(const clsModul& modul) : modul_(modul) {}

    template <class Owner>
    void Owners(const clsCollection<Owner>& owners, std::string_view word) {
        for (const Owner* owner : owners) {
            const int notCalled = Anz_NotCalled_Vars(*owner);
            if (notCalled == 0)
                continue;
            Line(owner->myNameOrg(), "\t", TextOf(owner->Zugriff), word);
            report_.BlankLines(1);
            if (notCalled == owner->MyVars.Count()) {
                report_.BlankLines(1);
                continue;
            }
            for (const clsVariable* member : owner->MyVars)
                if (member->CalledByAll().Count() == 0)
                    report_.Line("\t  - ", member->myNameOrg());
            report_.BlankLines(2);
        }
    }

    template <class... Parts>
    void Object(const Parts&... parts) {
        Line(parts...);
        report_.BlankLines(2);
    }

    [[nodiscard]] std::string Take() {
        if (hasHead_)
            report_.BlankLines(2);
        return report_.Take();
    }

private:
    // Writes the head line before the first entry.
    template <class... Parts>
    void Line(const Parts&... parts) {
        if (!hasHead_) {
            report_.Line(std::string(50, '#'), "     ", modul_.CodePathOrg(), "          ", modul_.FullPath);
            report_.BlankLines(1);
            hasHead_ = true;
        }
        report_.Line(parts...);
    }

    const clsModul& modul_;
    ReportText report_;
    bool hasHead_ = false;
};

}  // namespace

std::string DeathsReport(const clsModul& modul) {
    Block block(modul);
    block.Owners(modul.myTypes, " Type");
    block.Owners(modul.myEnums, " Enum");
    for (const clsVariable* variable : modul.MyVars)
        if (variable->MyName() != "me" && variable->CalledByAll().Count() == 0)
            block.Object(variable->myNameOrg(), "\t", TextOf(variable->Zugriff),
                         variable->IsConst ? " Const" : " Variable");
    // Procedures of classes and user controls are never listed, because code outside the project may call them.
    if (modul.ModulTyp != ModuleKind::Class && modul.ModulTyp != ModuleKind::UserControl)
        for (const clsProzedur* prozedur : modul.MyProcs)
            if (!prozedur->IsEvent && prozedur->CalledByAll().Count() == 0)
                block.Object(prozedur->myNameOrg(), "\t", TextOf(prozedur->Zugriff), " ", prozedur->ProzedurTypText());
    return block.Take();
}

std::string DeathsReportPath(const clsProjekt& projekt) {
    return projekt.FullPath + " Deaths.txt";
}

bool AnalyseErgebnisDeaths(const clsProjekt& projekt, const std::string& path) {
    std::string text;
    for (const clsModul* modul : projekt.ModulesInReportOrder())
        text += DeathsReport(*modul);
    const FileError error = projekt.TheFiles().WriteWhole(path, text);
    if (error != FileError::None)
        ShowFileError("modMain: AnalyseErgebnisDeaths", error, path);
    return error == FileError::None;
}
