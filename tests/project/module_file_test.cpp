#include "support/project_test.h"

namespace {

using Modules = ProgramState;

class Controls : public ProgramState {
protected:
    static std::string Of(const clsModul& modul) {
        std::string controls;
        for (const clsControl* control : modul.MyControls)
            controls.append(control->myNameOrg()).append(" ").append(control->DatenTyp()).append("; ");
        return controls;
    }
};

}  // namespace

TEST_F(Modules, AreNamedByTheirAttributeOrElseTheirFile) {
    using Case = std::pair<const char*, const char*>;
    for (const auto& [line, name] :
         {Case{"attribute vb_name = \"MyModule\"", "MyModule"}, Case{"Attribute VB_Name = Bare", "Bare"},
          Case{"Attribute VB_Name = \"A\" ' note", "A"},
          // The name is cut at a fixed column, so indentation spoils it.
          Case{"  Attribute VB_Name = \"A\"", "= \"A"}, Case{"Option Explicit", "File.1"}}) {
        const std::string text = std::string("VERSION 1.0 CLASS\r\n") + line + "\r\n";
        EXPECT_EQ(ReadModuleAsItIs(text, "sub\\File.1.cls").CodePathOrg(), name) << line;
    }
    const clsModul& tools = ReadModule("Attribute VB_Name = \"Tools\"\nDim a");
    EXPECT_EQ(gProjekt->Modules.Item("tools"), &tools);
    EXPECT_EQ(gProjekt->PublicNameSpace().Item("tools")->Objects().front(), &tools);
    EXPECT_NE(tools.DateLastModified, 0);
}

TEST_F(Modules, OtherThanStandardOnesHaveAMe) {
    ReadProject({{"A.bas", "Dim a\n"}, {"B.frm", "Dim a\n"}, {"C.cls", "Dim a\n"}, {"D.ctl", "Dim a\n"}});
    for (const char* path : {"b", "c", "d"}) {
        const clsModul& modul = ModuleOf(path);
        const clsVariable& me = *modul.MyVars.Item("me");
        EXPECT_EQ(me.DatenTyp(), path);
        EXPECT_EQ(me.DeclareStart, modul.BeginnVarBereich);
        EXPECT_TRUE(modul.Private_Variablen.Contains("me") && modul.PrivNameSpace.Contains("me"));
    }
    EXPECT_FALSE(gProjekt->PublicNameSpace().Contains("me"));
    EXPECT_FALSE(ModuleOf("a").MyVars.Contains("me"));
    // A form also has a variable of its name, which only the project stores.
    ASSERT_EQ(gProjekt->FormVars.Count(), 1);
    const clsVariable& form = *gProjekt->FormVars.Item("b");
    EXPECT_EQ(form.DatenTyp(), "b");
    EXPECT_EQ(form.Zugriff, Access::Public);
    EXPECT_EQ(form.DeclareStart, 0);
    EXPECT_FALSE(ModuleOf("b").MyVars.Contains("b"));
}

TEST_F(Modules, WithoutATextOrALineEndHaveLittle) {
    ReadProject({{"Empty.bas", ""}, {"A.bas", "Dim a\n"}});
    EXPECT_EQ(gProjekt->CountAllModules(), 1);
    EXPECT_FALSE(gProjekt->PublicNameSpace().Contains("empty"));
    EXPECT_THAT(gProjekt->problems.All(), IsEmpty());
    const clsModul& modul = ReadModuleAsItIs("Begin VB.Label lbl ", "Form1.frm");
    EXPECT_TRUE(gProjekt->Formulare.Contains("form1"));
    EXPECT_EQ(modul.MyControls.Count() + modul.LineCount + modul.AnzLineCode, 0);
}

TEST_F(Modules, CountThePhysicalLinesOfTheWholeFile) {
    const clsModul& modul = ReadModuleAsItIs(
        "VERSION 1.0 CLASS\r\nBEGIN\r\nEND\r\nAttribute VB_Name = \"C\"\r\n"
        "' comment\r\n   ' comment\r\nRem code for the counter\r\n"
        "\r\n    \r\n\t\r\n"
        "x = 1 ' code\r\ny = _\r\n    2",
        "C.cls");
    EXPECT_EQ(modul.AnzLineCode, 9);  // a line with only a tab counts as code
    EXPECT_EQ(modul.AnzLineComment, 2);
    EXPECT_EQ(modul.AnzLineBlank, 2);
    EXPECT_EQ(modul.LineCount, 13);
}

TEST_F(Controls, AreTheBeginLinesOfTheHeader) {
    EXPECT_EQ(Of(ReadModule(R"(
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
              "fraNew vb.frame; txtIn vb.textbox; lvwAll mscomctllib.listview; ");
    // Only the block of a plain form is skipped.
    EXPECT_EQ(Of(ReadModule("Begin VB.MDIForm mdi\n   Begin VB.Menu mnu\n   End\nEnd", "Form1.frm")),
              "mdi vb.mdiform; mnu vb.menu; ");
    EXPECT_EQ(Of(ReadModule("Begin VB.Label lbl\nEnd", "Class1.cls")), "");
}

TEST_F(Controls, OfAnArrayAreOne) {
    const Marked vb = Vb("Begin VB.Form F\n{{Begin}} VB.Label cmdTool\nEnd\nBegin VB.Label CMDTOOL\nEnd\nEnd");
    const clsModul& form = ReadModuleAsItIs(vb.text, "F.frm");
    EXPECT_EQ(Of(form), "cmdTool vb.label; ");
    const clsControl& control = *form.MyControls.ItemNr(1);
    EXPECT_EQ(control.DeclareStart, vb.pos());
    EXPECT_EQ(gProjekt->PublicNameSpace().Item("cmdtool")->Objects().front(), &control);
    EXPECT_TRUE(form.PrivNameSpace.Contains("cmdtool"));
}

TEST_F(Controls, UserControlIsOneOfItsOwn) {
    ReadProject({{"Ctl1.ctl", "Begin VB.UserControl Ctl1\nEnd\nDim a\n"}, {"A.bas", "Dim a\n"}});
    const clsModul& modul = ModuleOf("ctl1");
    EXPECT_EQ(Of(modul), "Ctl1 vb.usercontrol; UserControl usercontrol; ");
    const clsControl& control = *modul.MyControls.Item("usercontrol");
    EXPECT_EQ(control.DeclareStart, modul.BeginnVarBereich);
    EXPECT_TRUE(modul.PrivNameSpace.Contains("usercontrol"));
    EXPECT_FALSE(gProjekt->PublicNameSpace().Contains("usercontrol"));
}
