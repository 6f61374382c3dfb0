#include "display/baum.h"
#include "display/call_places.h"
#include "display/dependency_trees.h"
#include "display/library_problem.h"
#include "display/library_text.h"
#include "display/object_search.h"
#include "display/object_text.h"
#include "display/problem_entries.h"
#include "display/project_tree.h"
#include "display/selection.h"
#include "display/tree_checks.h"
#include "libraries/library_problems.h"
#include "support/baum_dump.h"
#include "support/code_dump.h"
#include "support/golden.h"
#include "support/library_project.h"

namespace {

class LibraryDisplay : public ProgramState {
protected:
    LibraryDisplay() {
        Speak("english");
        ReadProjectWithLib(R"(
            Private WithEvents w_b As Lib.Box
            Private plain As Lib.Box
            Private Sub w_b_Fill(Cancel As Long)
            End Sub
            Private Sub plain_Fill(Cancel As Long)
            End Sub
            Sub Work(b As Lib.Box)
                b.Fill "x"
                y = Round
            End Sub
        )");
        ProjektStruktur_Anzeigen(*gProjekt, tree, true);
    }
    static clsTypeLib& Library() { return *gProjekt->OwnedLibraries().front(); }
    std::string Hover(std::string_view key) {
        return Joined(ObjectText(*gProjekt, locals, *ObjectOfNode(*gProjekt, NodeId(key))), "|", std::identity());
    }
    static std::string Properties(std::string_view key) {
        const auto cell = [](const PropertyCell& c) { return c.text == Text::None ? c.bytes : gText.TextNr(c.text); };
        return Joined(Anzeigen_Eigenschaften(*ObjectOfNode(*gProjekt, NodeId(key))), "|",
                      [&](const PropertyRow& row) { return cell(row.label) + ": " + cell(row.value); });
    }
    LocalUses locals;
    Baum tree;
};

}  // namespace

TEST_F(LibraryDisplay, TreeShowsTheContents) {
    ExpectGolden(DumpBaum(tree), "tree", "Lib");
}

TEST_F(LibraryDisplay, EachNodeLeadsToItsObject) {
    const auto hasObject = [](const BaumNode& node) {
        return node.Kind() == NodeKind::Object && !ObjectOfNode(*gProjekt, node.Id());
    };
    EXPECT_EQ(KeysWhere(tree, hasObject), "");
    EXPECT_TRUE(static_cast<clsProzedur&>(*ObjectOfNode(*gProjekt, NodeId("lib.box.fill [event]"))).IsEvent);
}

TEST_F(LibraryDisplay, NeighboursHaveTheKeysOfTheProjectTree) {
    Baum calls;
    Show_Dependencies_AllCalls(*gProjekt, {}, &ObjectAt("f.work"), calls, false);
    EXPECT_EQ(DumpBaum(calls), R"(REFERENCE [OrdnerZu] bold
  Lib [Library]
    Box [class]
      Public Sub... [procedure] bold
        Fill() [procedure]
    Enum... [enum] bold
      Shape [enum]
        Round [enum]
)");
    const auto isNew = [this](const BaumNode& node) { return node.Kind() != NodeKind::Root && !tree.Find(node.Id()); };
    EXPECT_EQ(KeysWhere(calls, isNew), "");
    Show_Dependencies_AllCalledBy(*gProjekt, {}, &ObjectAt("lib.box"), calls, false);
    EXPECT_THAT(DumpBaum(calls), HasSubstr("Work()"));
}

TEST_F(LibraryDisplay, ALibraryChecksItsClassesAndBlocks) {
    const auto isChecked = [](const BaumNode& node) { return node.Checked(); };
    const auto check = [&](std::string_view key, bool checked) {
        BaumNode& node = *tree.Item(key);
        tree.SetChecked(node, checked);
        NodeCheck(*gProjekt, tree, node);
    };
    const std::string all =
        "reference[] lib lib.box lib enum [] lib.shape [enum] lib.limits lib type [] lib.pair [type]";
    check("lib", true);
    EXPECT_EQ(KeysWhere(tree, isChecked), all);
    Baum calls;
    Show_Dependencies_AllCalls(*gProjekt, CheckedIn(*gProjekt, tree), &ObjectAt("f.work"), calls, false);
    EXPECT_THAT(DumpBaum(calls), testing::Not(HasSubstr("Fill"))) << "it belongs to a checked class";
    tree.SetChecked(*tree.Item("lib.box.fill"), true);
    check("lib", false);
    EXPECT_EQ(KeysWhere(tree, isChecked), "");
    Check_ModulTyp(tree, 6, true);
    EXPECT_EQ("reference[] " + KeysWhere(tree, isChecked), all);
}

TEST_F(LibraryDisplay, ThePageShowsEachObjectAtItsName) {
    CodePane pane;
    Selection selection;
    const auto shown = [&](std::string_view key) {
        Set_GlobalObjects_fromNode(*gProjekt, selection, NodeId(key));
        const CodePane::Change change = pane.Show_Structure(*gProjekt, selection);
        const std::string& text = pane.Text().text;
        if (!change.select)
            return std::string("nothing");
        const auto start = static_cast<std::size_t>(change.select->start);
        EXPECT_EQ(pane.ObjectAt(*gProjekt, change.select->start)->MyName(),
                  LowerCase(text.substr(start, static_cast<std::size_t>(change.select->length))));
        const std::size_t line = text.rfind('\n', start) + 1;
        return text.substr(line, text.find('\r', start) - line);
    };
    EXPECT_EQ(shown("lib"), "Library: Lib");
    EXPECT_EQ(shown("lib.box"), "Class Box");
    EXPECT_EQ(shown("lib.box.price [get]"), "    Property Get Price() As Currency");
    EXPECT_EQ(shown("lib.box.fill"), "    Sub Fill(ByVal Path As String)");
    EXPECT_EQ(shown("lib.box.fill [event]"), "    Event Fill(ByRef Cancel As Long)");
    EXPECT_EQ(shown("lib.box.fill [event].cancel"), "    Event Fill(ByRef Cancel As Long)");
    EXPECT_EQ(shown("lib.limits.most"), "    Const Most As Long = 9");
    EXPECT_EQ(shown("lib.shape.round"), "    Round = 3");
    EXPECT_EQ(shown("lib.pair.first"), "    First(0 To 3) As Long");
    EXPECT_EQ(selection.CurLib, &Library());
    EXPECT_THAT(DumpCode(pane.Text()), HasSubstr("public:Box comment:' Holds things public:Price "));
}

TEST_F(LibraryDisplay, HoverAndPropertiesKnowTypeValueAndDescription) {
    EXPECT_EQ(Hover("lib.box.fill"),
              "public sub Lib.Box.Fill|Sub Fill(ByVal Path As String)|Belongs to: class Box|"
              "Called by: 1 Really, 0 May be|Description: Fills it");
    EXPECT_THAT(Hover("lib.box.secret"), HasSubstr("Function Secret() As Long (hidden)"));
    EXPECT_EQ(Properties("lib.box.price [get]"),
              "Name: Price|Access: public|Kind: property get|Belongs to: class Box|Data type: Currency");
    EXPECT_THAT(Properties("lib.limits.most"), HasSubstr("Data type: Long|Belongs to: module Limits|Value: 9"));
    EXPECT_EQ(Properties("lib.shape [enum]"), "Name: Shape|Access: public|Belongs to: reference Lib");
}

TEST_F(LibraryDisplay, ReferencesToALibraryReachAnythingInIt) {
    std::string targets;
    for (const CallPlace& place : ReferencesTo(*gProjekt, locals, Library()))
        targets.append(place.target->MyName()).append(" ");
    EXPECT_EQ(targets, "lib box lib box lib box fill round ");
    EXPECT_EQ(ReferencesTo(*gProjekt, locals, ObjectAt("lib.box")).size(), 4U);
    EXPECT_THAT(Hover("lib"), HasSubstr("Used by: 8"));
}

TEST_F(LibraryDisplay, SearchFindsTheProjectsObjectsFirst) {
    ObjectSearch search;
    search.Build(*gProjekt);
    const auto hits = [&](std::string_view typed) {
        return Joined(search.Find(typed, 9), " ", [](const Hit& hit) { return NodeKeyOf(*hit.object); });
    };
    EXPECT_EQ(hits("pl"), "f.plain f.plain_fill");
    EXPECT_EQ(hits("p"), "f.plain f.plain_fill lib.pair [type] lib.box.price [get] lib.shape [enum]");
    EXPECT_EQ(hits("box.fill"), "lib.box.fill lib.box.fill [event]");
    EXPECT_EQ(hits("shape.r"), "lib.shape.round");
    EXPECT_EQ(hits("lib.limits"), "lib.limits");
}

TEST_F(LibraryDisplay, AHandlerNamesItsEvent) {
    EXPECT_THAT(Hover("f.w_b_fill"), HasSubstr("|Handles: Lib.Box: Event Fill(ByRef Cancel As Long)"));
    EXPECT_THAT(Hover("f.plain_fill"), testing::Not(HasSubstr("Handles")));
}

TEST_F(LibraryDisplay, AMissingLibrarySaysWhereItWasSought) {
    Library().file.places = {{LibraryStep::Registry, LibraryOutcome::NotRegistered, ""},
                             {LibraryStep::ProjectFolder, LibraryOutcome::Missing, "p"}};
    Library().need = {1, 0, 3, 2};
    const std::string remedy =
        "What to do: Copy lib.tlb into the folder of the project or into a folder with library files (see Options) and "
        "open the project again.";
    EXPECT_EQ(Properties("lib"),
              "Name: Lib|Kind: reference|Description: Lib|File: not found|"
              "Needed by: Controls: 1, Calls: 3, Modules: 2|" +
                  remedy +
                  "|Version: 2.0|Identifier: {1}|Registry: not registered|"
                  "Project folder: missing: p");
    EXPECT_THAT(
        LibraryText(Library()).text,
        testing::AllOf(testing::StartsWith("c:/x/lib.tlb\r\n\r\nLibrary: Lib\r\n"), HasSubstr("\r\nVersion: 2.0\r\n"),
                       HasSubstr("\r\nSought: Project folder: missing: p\r\n"),
                       HasSubstr("\r\nWhat to do:\r\n    Copy lib.tlb into the folder of the project or into a folder "
                                 "with\r\n    library ")));

    // Its page also names what it imports itself.
    LibraryContents importing;
    importing.missing = {{"{B}", 1, 0, 0, "base.tlb"}, {"{C}", 2, 0, 0, "more.tlb"}};
    ReadInterfaces(*gProjekt, Library(), importing);
    EXPECT_THAT(LibraryText(Library()).text, HasSubstr("\r\nLibraries not found: base.tlb {B}, more.tlb {C}\r\n"));

    // The list of problems says it in the user's language.
    gProjekt->problems.Add({std::string(kMissingLibrary), MissingLibraryText(Library()), Library().LineFile});
    const auto shown = [](const clsProjekt* projekt) {
        return ShownProblem(projekt, ProblemEntries(*gProjekt).back());
    };
    EXPECT_EQ(shown(gProjekt.get()),
              "Library not found: Lib, lib.tlb, {1} 2.0. Needed by: Controls: 1, Calls: 3, "
              "Modules: 2. " +
                  remedy.substr(12));
    Speak("german");
    Library().need = {};
    EXPECT_THAT(shown(gProjekt.get()),
                HasSubstr("unter ihrem Namen wurde keine Verwendung gefunden. Kopieren Sie lib.tlb"));
    EXPECT_EQ(shown(nullptr), MissingLibraryText(Library()));
}

TEST_F(LibraryDisplay, PathsHaveOneSeparator) {
    EXPECT_THAT(Hover("lib"), HasSubstr("c:/x/lib.tlb"));
    Library().file.path = "c:\\y\\lib.tlb";
    EXPECT_THAT(Properties("lib"), HasSubstr("|File: c:/y/lib.tlb|"));
}

using Components = ProgramState;

TEST_F(Components, LeadToTheModulesThatNameThem) {
    const char* const header = "VERSION 5.00\nObject = \"{aa-1}#1.0#0\"; \"TREE.OCX\"\nBegin VB.Form F\nEnd\n";
    Analyse(ReadProject({{"P.vbp", "Object={AA-1}#1.0#0; TREE.OCX\nForm=F.frm\nForm=G.frm\nModule=M; M.bas\n"},
                         {"F.frm", std::string(header) + "Attribute VB_Name = \"F\"\n"},
                         {"G.frm", std::string(header) + "Attribute VB_Name = \"G\"\n"},
                         {"M.bas", "' {AA-1}\nSub Go_()\nEnd Sub\n"}}));
    clsTypeLib& component = *gProjekt->OwnedLibraries().front();
    Baum shown;
    const auto keys = [&shown] {
        return KeysWhere(shown, [](const BaumNode& node) { return node.Kind() == NodeKind::Object; });
    };
    const auto isShown = [&](const CodeObject& object) {
        const DependencyButtons buttons = Activate_Dependencies(*gProjekt, &object);
        return std::pair(buttons.CalledByReally, buttons.CallsReally);
    };
    EXPECT_EQ(Show_Dependencies_AllCalledBy(*gProjekt, {}, &component, shown, false), 2);
    EXPECT_EQ(keys(), "f g");
    EXPECT_EQ(isShown(component), std::pair(true, false));
    component.picture = "BM";
    Show_Dependencies_AllCalls(*gProjekt, {}, &ObjectAt("f"), shown, false);
    EXPECT_EQ(keys(), "tree");
    EXPECT_EQ(shown.Item("tree")->Image(), "{AA-1}") << "its own picture";
    EXPECT_EQ(isShown(ObjectAt("f")), std::pair(false, true));
    EXPECT_EQ(isShown(ObjectAt("m")), std::pair(false, false));
    shown.Clear();
    const BaumNode* const first = Drop_Module(*gProjekt, shown, "tree");
    EXPECT_EQ(first, shown.Item("f"));
    EXPECT_EQ(keys(), "f g");
}
