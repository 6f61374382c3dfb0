#include "support/project_dump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <concepts>
#include <set>
#include <vector>

#include "model/clsControl.h"
#include "model/clsEnum.h"
#include "model/clsProjekt.h"
#include "model/clsProzedur.h"
#include "model/clsType.h"
#include "source/module_text.h"

namespace {

// All that a project says about itself, one line for each fact; objects stand for themselves by their numbers.
class ProjectDump {
public:
    explicit ProjectDump(const clsProjekt& projekt) {
        Line("project", projekt.MyName, projekt.Type, projekt.Startup);
        for (const CondConstant& constant : projekt.condComps)
            Line("constant", constant.first, constant.second);
        Line("lines", projekt.AnzCodeZeilen, projekt.AnzCommentZeilen, projekt.AnzBlankZeilen);
        const ObjectCounts counts = projekt.Counts();
        Line("counts", counts.variable, counts.type, counts.einEnum, counts.prozedur, counts.modul, counts.call,
             projekt.ObjectCount());
        Keys("modules", projekt.Modules);
        Keys("classes", projekt.Klassenmodule);
        Keys("forms", projekt.Formulare);
        Keys("user controls", projekt.UserControls);
        Keys("form variables", projekt.FormVars);
        Keys("components", projekt.myProjectObjects);
        Keys("references", projekt.myProjectReferences);
        for (const auto& modul : projekt.OwnedModules())
            Modul(*modul);
        for (const auto& library : projekt.OwnedLibraries())
            Object(*library);
        Space("public", projekt.PublicNameSpace());
        Line("known", projekt.callsKnown, projekt.marksKnown);
        projekt.calls.ForEach([this](const clsCall& call) { Edge("edge", call); });
    }
    [[nodiscard]] const std::vector<std::string>& Lines() const { return lines_; }

private:
    template <class... Parts>
    void Line(const Parts&... parts) {
        lines_.emplace_back();
        (Put(parts), ...);
    }
    void Put(std::string_view text) { lines_.back().append(text) += ' '; }
    template <std::integral T>
    void Put(T number) {
        lines_.back().append(std::to_string(number)) += ' ';
    }

    template <class T>
    void Keys(const char* what, const clsCollection<T>& objects) {
        Line(what);
        std::set<const T*> once;
        for (int nr = 1; nr <= objects.Count(); ++nr) {
            EXPECT_TRUE(once.insert(objects.ItemNr(nr)).second) << "an object is listed twice";
            Put(objects.KeyNr(nr).View());
            Put(objects.ItemNr(nr)->Number());
        }
    }
    void Space(const char* what, const NameSpace& nameSpace) {
        for (const clsSpaceName* entry : nameSpace) {
            Line(what, entry->MyName());
            std::set<std::string> once;
            for (const CodeObject* object : entry->Objects()) {
                EXPECT_TRUE(once.insert(object->CodePath()).second) << object->CodePath() << " is listed twice";
                Put(object->Number());
            }
        }
    }
    void Edge(const char* what, const clsCall& call) {
        Line(what, call.Caller().Number(), call.Parent->Number(), static_cast<int>(call.Type()), call.CallPos);
    }
    void Object(const CodeObject& object) {
        Line("object", object.Number(), static_cast<int>(object.Class()), object.CodePathOrg(), TextOf(object.Zugriff),
             object.DeclareStart, object.DeclareEnd, object.IsDeath);
        for (const clsCall* call : object.CalledByAll())
            Edge("  called", *call);
        for (const clsCall* call : object.UsedByAll())
            Edge("  used", *call);
    }
    void Variable(const clsVariable& variable) {
        Object(variable);
        Line("  variable", variable.DatenTyp(), variable.IsConst, variable.isResult, variable.isFormInstance);
    }
    void Members(const clsCollection<clsVariable>& members) {
        Keys("  members", members);
        for (const clsVariable* member : members)
            Variable(*member);
    }
    void Prozedur(const clsProzedur& prozedur) {
        Line("  procedure", prozedur.ProzedurTypText(), prozedur.DatenTyp(), prozedur.isDeclare, prozedur.IsEvent,
             prozedur.NamePos, prozedur.ArgListStart, prozedur.ArgListEnd, prozedur.DeclareStartTNr,
             prozedur.DeclareEndTNr);
        for (const clsCall* call : prozedur.CallsAll())
            Edge("  calls", *call);
        for (const clsCall* call : prozedur.UsesAll())
            Edge("  uses", *call);
        Members(prozedur.MyVars);
    }
    void Modul(const clsModul& modul) {
        Line("modul", modul.number, TextOf(modul.ModulTyp), modul.FullPath, static_cast<int>(modul.fileError),
             modul.text != nullptr, modul.BeginnVarBereich, modul.BeginnProcBereich, modul.LineCount, modul.AnzLineCode,
             modul.AnzLineComment, modul.AnzLineBlank);
        if (modul.text)
            Line("  text", modul.text->ModulTextOrg());
        Object(modul);
        for (const clsCall* call : modul.CallsInDeclarations())
            Edge("  declares", *call);
        for (const CodeObject* object : modul.Owned()) {
            if (object->Class() == ObjectClass::Variable) {
                Variable(*static_cast<const clsVariable*>(object));
                continue;
            }
            Object(*object);
            if (object->Class() == ObjectClass::Prozedur)
                Prozedur(*static_cast<const clsProzedur*>(object));
            else if (object->Class() == ObjectClass::Type)
                Members(static_cast<const clsType*>(object)->MyVars);
            else if (object->Class() == ObjectClass::Enum)
                Members(static_cast<const clsEnum*>(object)->MyVars);
        }
        if (modul.FormInstance)
            Variable(*modul.FormInstance);
        Keys("procedures", modul.MyProcs);
        Keys("variables", modul.MyVars);
        Keys("types", modul.myTypes);
        Keys("enumerations", modul.myEnums);
        Keys("controls", modul.MyControls);
        Space("private", modul.PrivNameSpace);
    }

    std::vector<std::string> lines_;
};

}  // namespace

std::string DifferenceOf(const clsProjekt& projekt, const clsProjekt& expected) {
    std::vector<std::string> lines = ProjectDump(projekt).Lines();
    std::vector<std::string> expectedLines = ProjectDump(expected).Lines();
    lines.emplace_back("its end");
    expectedLines.emplace_back("its end");
    const auto [one, other] = std::mismatch(lines.begin(), lines.end(), expectedLines.begin(), expectedLines.end());
    return one == lines.end() ? "" : *one + "\nin place of\n" + *other;
}
