#include "findings/calls_report.h"

#include "findings/report_text.h"
#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "model/clsVariable.h"
#include "shell/errors.h"
#include "source/module_text.h"

namespace {

std::string ProperCase(std::string_view word) {
    if (word == "property get")
        return "Property Get";
    if (word == "property let")
        return "Property Let";
    if (word == "property set")
        return "Property Set";
    std::string proper(word);
    if (!proper.empty() && proper[0] >= 'a' && proper[0] <= 'z')
        proper[0] = static_cast<char>(proper[0] - 'a' + 'A');
    return proper;
}

// The kind of the called object, which decides the form of its call lines.
enum class Callee { Member, EnumMember, Variable, Other };

class CallsReportWriter {
public:
    std::string Write(const clsModul& modul) {
        report_.Line(modul.myNameOrg());
        for (const clsType* type : modul.myTypes) {
            report_.BlankLines(3);
            report_.Line(type->myNameOrg(), "\t", ProperCase(TextOf(type->Zugriff)), " Type");
            Members(type->MyVars, Callee::Member);
        }
        for (const clsEnum* einEnum : modul.myEnums) {
            report_.BlankLines(3);
            report_.Line(einEnum->myNameOrg(), "\t", ProperCase(TextOf(einEnum->Zugriff)), " Enum");
            Members(einEnum->MyVars, Callee::EnumMember);
        }
        for (const clsVariable* variable : modul.MyVars) {
            if (variable->MyName() == "me")
                continue;
            report_.BlankLines(3);
            report_.Line(variable->myNameOrg(), "\t", ProperCase(TextOf(variable->Zugriff)),
                         variable->IsConst ? " Const" : " Variable");
            Calls(*variable, Callee::Variable);
        }
        for (const clsControl* control : modul.MyControls) {
            if (control->MyName() == "me")
                continue;
            report_.BlankLines(3);
            report_.Line(control->myNameOrg(), "\t", control->DatenTyp());
            Calls(*control, Callee::Other);
        }
        for (const clsProzedur* prozedur : modul.MyProcs) {
            report_.BlankLines(3);
            report_.Line(prozedur->myNameOrg(), "\t", ProperCase(TextOf(prozedur->Zugriff)), " ",
                         ProperCase(prozedur->ProzedurTypText()));
            Calls(*prozedur, Callee::Other);
        }
        return report_.Take();
    }

private:
    void Members(const clsCollection<clsVariable>& members, Callee callee) {
        for (const clsVariable* member : members) {
            report_.BlankLines(1);
            report_.Line("  - ", member->myNameOrg());
            Calls(*member, callee);
        }
    }

    void Calls(const CodeObject& object, Callee callee) {
        for (const clsCall* call : object.CalledByAll())
            Call(*call, callee);
    }

    void Call(const clsCall& call, Callee callee) {
        // An edge of another type repeats the word of the previous line.
        if (call.Type() == CallType::MayBe)
            kind_ = "May be";
        else if (call.Type() == CallType::Really)
            kind_ = "Really";
        const clsProzedur* prozedur = call.CallProcedure();
        const clsModul& modul = call.CallerModule();
        const std::string indent = callee == Callee::Member || callee == Callee::EnumMember ? "\t\t" : "\t";
        const std::string pos = std::to_string(call.CallPos);
        std::string number;
        if (prozedur)
            number = std::to_string(call.CallPos - prozedur->DeclareStart + 1) + "\t";
        else if (callee == Callee::EnumMember)
            number = std::to_string(call.CallPos + 1) + "\t";
        const std::string line = indent + std::string(kind_) + "\t" + number + pos + "\t" +
                                 (prozedur ? prozedur->CodePathOrg() : modul.CodePathOrg()) + "\t" +
                                 std::string(SourceLine(modul, call.CallPos));
        report_.Line(Replace(line, vbCrLf, "\xAC"));
    }

    std::string_view SourceLine(const clsModul& modul, Pos pos) {
        Pos start = 0;
        Pos length = 0;
        modul.text->Get_VBZeile_Nach_Pos_Org(pos, start, length, sourceLine_);
        return sourceLine_;
    }

    ReportText report_;
    std::string_view kind_;
    std::string_view sourceLine_;
};

}  // namespace

std::string CallsReport(const clsModul& modul) {
    return CallsReportWriter().Write(modul);
}

std::string CallsReportPath(const clsModul& modul) {
    return modul.FullPath + " Calls.txt";
}

bool AnalyseErgebnisCalls(const clsProjekt& projekt, const ReportPath& path) {
    bool isWhole = true;
    for (const clsModul* modul : projekt.ModulesInReportOrder()) {
        const std::string file = path(*modul);
        if (const FileError error = projekt.TheFiles().WriteWhole(file, CallsReport(*modul));
            error != FileError::None) {
            ShowFileError("clsModul: AnalyseErgebnisCalls", error, file);
            isWhole = false;
        }
    }
    return isWhole;
}
