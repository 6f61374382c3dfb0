// The first byte of the input selects the kind of module: "f" a form, "c" a class, "u" a user control, any other a
// standard module. The rest is the module file. The project also has a class and a form whose members it may call.
#include "analysed_project.h"
#include "calls/driver.h"
#include "findings/calls_report.h"
#include "findings/dead_objects.h"
#include "findings/deaths_report.h"
#include "source/comments.h"
#include "source/cond_compile.h"
#include "source/line_scan.h"

namespace {

struct Kind {
    const char* line;
    const char* file;
};

Kind KindOf(std::uint8_t letter) {
    switch (letter) {
        case 'f':
            return {"Form=Form1.frm", "p\\Form1.frm"};
        case 'c':
            return {"Class=Class1; Class1.cls", "p\\Class1.cls"};
        case 'u':
            // A project with only a user control counts as empty and is not read.
            return {"UserControl=UserControl1.ctl\r\nModule=Absent; Absent.bas", "p\\UserControl1.ctl"};
        default:
            return {"Module=Module1; Module1.bas", "p\\Module1.bas"};
    }
}

const char* const kNeighbours = "\r\nClass=Near; Near.cls\r\nForm=NearForm.frm\r\n";

const char* const kNearClass =
    "Attribute VB_Name = \"Near\"\r\nPublic Event Changed(x As Near)\r\nPublic Left As Long, Owner As Thing\r\n"
    "Public Type Thing\r\nx As Long\r\nY As Near\r\nEnd Type\r\nPublic Property Get Item(k) As Near\r\n"
    "Set Item = Me.Item(k).Owner.Y\r\nEnd Property\r\nProperty Let P(v)\r\nLeft = q.Name\r\nEnd Property\r\n"
    "Sub F(Optional a)\r\nWith a\r\n.F .Item(.Left)\r\nEnd With\r\nEnd Sub\r\n";

const char* const kNearForm =
    "Begin VB.Form NearForm\r\nBegin VB.Label cmd\r\nEnd\r\nEnd\r\nAttribute VB_Name = \"NearForm\"\r\n"
    "Public Name\r\nPrivate Sub Form_Load()\r\nF z.Name, cmd.Left\r\nz.Changed: z.P = gCount\r\nEnd Sub\r\n";

// The map is created again on demand; it must equal the one that the tokens were read with.
void RequireSameMapAgain(clsProjekt& projekt, const clsModul& modul) {
    ModuleText again(std::string(modul.text->ModulTextOrg()));
    const LineScan lines = ScanLines(again.ModulText());
    Comments_Initialisieren(again);
    Strings_Initialisieren(again);
    {
        const MutedErrors muted;
        CondCompile_Initialisieren(again, lines, projekt.condComps, "module again");
    }
    (void)Analyse_Parsen(again);
    for (Pos pos = 0; pos <= modul.text->CharCount(); ++pos)
        Require(modul.text->FlagsAt(pos) == again.FlagsAt(pos), "a map made again is the first one");
}

// An edge with both its ends.
using Edge = std::tuple<const CodeObject*, const CodeObject*, Pos, CallType>;

std::vector<Edge> SoundEdges(const clsProjekt& projekt) {
    std::vector<Edge> edges;
    projekt.calls.ForEach([&](const clsCall& call) {
        Require((call.CallProcedure() == nullptr) != (call.CallModule() == nullptr), "an edge has one caller");
        Require(call.CallPos >= 1 && call.CallPos <= call.CallerModule().text->CharCount(),
                "an edge starts inside its module");
        const IncomingEdges incoming =
            call.Type() == CallType::Use ? call.Parent->UsedByAll() : call.Parent->CalledByAll();
        Require(std::find(incoming.begin(), incoming.end(), &call) != incoming.end(), "a target knows its edges");
        edges.emplace_back(call.Parent, &call.Caller(), call.CallPos, call.Type());
    });
    return edges;
}

// Checks the calls and all results of them, and again after removing the calls.
void RequireSoundCalls(clsProjekt& projekt) {
    Who_Calls_Who(projekt);
    const std::vector<Edge> first = SoundEdges(projekt);
    Tote_Untote_Kennzeichnen(projekt);
    for (const clsModul* modul : projekt.AllModules())
        for (const clsProzedur* prozedur : modul->MyProcs) {
            Require((prozedur->IsDeath == 1) <= (prozedur->CalledByAll().Count() == 0), "nothing calls the dead");
            for (const LocalUse& use : Check_ProcVars_Calls(*prozedur))
                Require(use.variable->Prozedur == prozedur && use.pos <= prozedur->DeclareEnd,
                        "locals are used in their procedure");
        }
    AnalyseErgebnisCalls(projekt);
    AnalyseErgebnisDeaths(projekt, DeathsReportPath(projekt));
    for (const clsModul* modul : projekt.AllModules())
        Require(projekt.TheFiles().FileExists(CallsReportPath(*modul)), "every module has a calls report");
    std::ostringstream out;
    WriteJson(out, projekt, {true, true});
    Require(nlohmann::json::accept(out.str()), "the JSON with the edges is well-formed");
    Remove_All_Calls(projekt);
    Require(projekt.calls.Count() == 0, "all edges are removed");
    Who_Calls_Who(projekt);
    Require(SoundEdges(projekt) == first, "the same edges are made again");
    Remove_All_Calls(projekt);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const Kind kind = KindOf(data[0]);
    MemoryFiles files{{kind.file, {reinterpret_cast<const char*>(data) + 1, size - 1}},
                      {"p\\Near.cls", kNearClass},
                      {"p\\NearForm.frm", kNearForm},
                      {"p\\P.vbp", std::string("Name=\"P\"\r\n") + kind.line + kNeighbours}};
    clsProjekt& projekt = ReadProjectFrom(files, "p\\P.vbp");
    const clsModul& modul = *projekt.OwnedModules().front();
    Require(modul.FullPath == kind.file, "the module of the line is read");
    const bool isKnown = modul.text && projekt.ModulesOf(modul.ModulTyp).Item(modul.NameKey()) == &modul;
    Require(isKnown == (modul.text != nullptr), "a module with a text is in the project");
    RequireSound(projekt);
    if (modul.text)
        RequireSameMapAgain(projekt, modul);
    RequireSoundCalls(projekt);
    CloseProject();
    return 0;
}
