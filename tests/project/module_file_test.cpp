#include "project/module_file.h"

#include <gmock/gmock.h>

#include "model/clsControl.h"
#include "model/clsVariable.h"
#include "source/module_text.h"
#include "support/marked.h"
#include "support/ports.h"
#include "support/program_state.h"
#include "support/read_project.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Modules = ProgramState;

class Controls : public ProgramState {
protected:
    static std::vector<std::string> Of(const clsModul& modul) {
        std::vector<std::string> controls;
        for (const clsControl* control : modul.MyControls)
            controls.push_back(std::string(control->myNameOrg()).append(" ").append(control->DatenTyp()));
        return controls;
    }
};

}  // namespace

TEST_F(Modules, AreNamedByTheirAttributeOrElseTheirFile) {
    struct Case {
        const char* line;
        const char* name;
    };
    for (const Case& c : {Case{"Attribute VB_Name = \"MyModule\"", "MyModule"}, Case{"attribute vb_name = \"x\"", "x"},
                          Case{"Attribute VB_Name = Bare", "Bare"}, Case{"Attribute VB_Name = \"A\" ' note", "A"},
                          // The cut counts from the start of the line.
                          Case{"  Attribute VB_Name = \"A\"", "= \"A"}, Case{"Option Explicit", "File.1"}}) {
        SCOPED_TRACE(c.line);
        const clsModul& modul =
            ReadModuleAsItIs("VERSION 1.0 CLASS\r\n" + std::string(c.line) + "\r\n", "sub\\File.1.cls");
        EXPECT_EQ(modul.myNameOrg(), c.name);
        EXPECT_EQ(modul.CodePathOrg(), c.name);
    }
    const clsModul& tools = ReadModule("Attribute VB_Name = \"Tools\"\nDim a");
    EXPECT_EQ(gProjekt->Modules.Item("tools"), &tools);
    EXPECT_EQ(gPublicNameSpace.Item("tools")->Objects().front(), &tools);
    EXPECT_NE(tools.DateLastModified, 0);
}

TEST_F(Modules, OtherThanStandardOnesHaveAMe) {
    ReadProject({{"A.bas", "Dim a\r\n"}, {"B.frm", "Dim a\r\n"}, {"C.cls", "Dim a\r\n"}, {"D.ctl", "Dim a\r\n"}});
    for (const char* path : {"b", "c", "d"}) {
        SCOPED_TRACE(path);
        const clsModul& modul = ModuleOf(path);
        const clsVariable& me = *modul.MyVars.Item("me");
        EXPECT_EQ(me.DatenTyp(), path);
        EXPECT_EQ(me.Zugriff, "private");
        EXPECT_EQ(me.DeclareStart, modul.BeginnVarBereich);
        EXPECT_TRUE(modul.Private_Variablen.Contains("me") && modul.PrivNameSpace.Contains("me"));
    }
    EXPECT_FALSE(gPublicNameSpace.Contains("me"));
    EXPECT_FALSE(ModuleOf("a").MyVars.Contains("me"));
    // A form has a variable of its own name besides, which only the project knows.
    ASSERT_EQ(gProjekt->FormVars.Count(), 1);
    const clsVariable& form = *gProjekt->FormVars.Item("b");
    EXPECT_EQ(form.DatenTyp(), "b");
    EXPECT_EQ(form.Zugriff, "public");
    EXPECT_EQ(form.DeclareStart, 0);
    EXPECT_FALSE(ModuleOf("b").MyVars.Contains("b"));
}

TEST_F(Modules, EmptyFileStaysOutOfTheProject) {
    RecordingErrors errors;
    ReadProject({{"Empty.bas", ""}, {"A.bas", "Dim a\r\n"}});
    EXPECT_EQ(gProjekt->CountAllModules(), 1);
    EXPECT_FALSE(gPublicNameSpace.Contains("empty"));
    EXPECT_THAT(errors.tags, IsEmpty());
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(Modules, WithoutAnyLineEndHaveNeitherControlsNorCounts) {
    const clsModul& modul = ReadModuleAsItIs("Begin VB.Label lbl ", "Form1.frm");
    EXPECT_TRUE(gProjekt->Formulare.Contains("form1"));
    EXPECT_EQ(modul.MyControls.Count(), 0);
    EXPECT_EQ(modul.LineCount, 0);
    EXPECT_EQ(modul.AnzLineCode, 0);
}

TEST_F(Modules, CountThePhysicalLinesOfTheWholeFile) {
    const clsModul& modul = ReadModuleAsItIs(
        "VERSION 1.0 CLASS\r\nBEGIN\r\nEND\r\nAttribute VB_Name = \"C\"\r\n"
        "' comment\r\n   ' comment\r\nRem code for the counter\r\n"
        "\r\n    \r\n\t\r\n"
        "x = 1 ' code\r\ny = _\r\n    2",
        "C.cls");
    EXPECT_EQ(modul.AnzLineCode, 9);  // a line of a tab is no blank one
    EXPECT_EQ(modul.AnzLineComment, 2);
    EXPECT_EQ(modul.AnzLineBlank, 2);
    EXPECT_EQ(modul.LineCount, 13);
}

TEST_F(Controls, AreTheBeginLinesOfTheHeader) {
    EXPECT_THAT(Of(ReadModule(R"(
        VERSION 5.00
        Begin VB.Form Form1
           Caption = "Begin VB.Label no1"
           Begin VB.Frame fraNew
              Begin VB.TextBox   txtIn
                 BeginProperty Font
                    Name = "Arial"
                 EndProperty
              End
           End
           Begin MSComctlLib.ListView lvwAll
           End
        End
        Attribute VB_Name = "Form1"
        ' Begin VB.Label no2
        Rem Begin VB.Label no3
    )",
                              "Form1.frm")),
                ElementsAre("fraNew vb.frame", "txtIn vb.textbox", "lvwAll mscomctllib.listview"));
    EXPECT_THAT(Of(ReadModule("Begin VB.Form Form1\nEnd\nDim a", "Form1.frm")), IsEmpty());
    // Only the plain form's own block is passed over.
    EXPECT_THAT(Of(ReadModule("Begin VB.MDIForm mdi\n   Begin VB.Menu mnu\n   End\nEnd", "Form1.frm")),
                ElementsAre("mdi vb.mdiform", "mnu vb.menu"));
    EXPECT_THAT(Of(ReadModule("Begin VB.Label lbl\nEnd", "Class1.cls")), IsEmpty());
}

TEST_F(Controls, OfAnArrayAreOne) {
    const std::string_view snippet = R"(
        Begin VB.Form Form1
           {{Begin}} VB.CommandButton cmdTool
              Index = 0
           End
           Begin VB.CommandButton CMDTOOL
              Index = 1
           End
        End
    )";
    const clsModul& form = ReadModule(snippet, "Form1.frm");
    EXPECT_THAT(Of(form), ElementsAre("cmdTool vb.commandbutton"));
    const clsControl& control = *form.MyControls.ItemNr(1);
    EXPECT_EQ(control.DeclareStart, Vb(snippet).pos());
    EXPECT_EQ(control.Zugriff, "public");
    EXPECT_EQ(gPublicNameSpace.Item("cmdtool")->Objects().front(), &control);
    EXPECT_TRUE(form.PrivNameSpace.Contains("cmdtool"));
}

TEST_F(Controls, UserControlIsOneOfItsOwn) {
    ReadProject({{"Ctl1.ctl", "Begin VB.UserControl Ctl1\r\nEnd\r\nDim a\r\n"}, {"A.bas", "Dim a\r\n"}});
    const clsModul& modul = ModuleOf("ctl1");
    EXPECT_THAT(Of(modul), ElementsAre("Ctl1 vb.usercontrol", "UserControl usercontrol"));
    const clsControl& control = *modul.MyControls.Item("usercontrol");
    EXPECT_EQ(control.Zugriff, "private");
    EXPECT_EQ(control.DeclareStart, modul.BeginnVarBereich);
    EXPECT_TRUE(modul.PrivNameSpace.Contains("usercontrol"));
    EXPECT_FALSE(gPublicNameSpace.Contains("usercontrol"));
}
