#include "support/project_test.h"

namespace {

using CodePaths = ProgramState;

// Class and path of the object found in the open project, or "none".
std::string Find(std::string_view path) {
    static constexpr const char* kClasses[] = {"modul", "prozedur", "variable", "type", "enum", "control", "lib"};
    const CodeObject* object = gProjekt->GetObjectFromCodePath(path);
    return object ? std::string(kClasses[static_cast<int>(object->Class())]) + " " + object->CodePathOrg() : "none";
}

TEST_F(CodePaths, LeadBackToTheirObject) {
    ReadProject({{"App.vbp",
                  "Form=Form1.frm\r\nModule=Tools; Tools.bas\r\nModule=A; A.B.bas\r\nUserControl=Bar.ctl\r\n"
                  "Reference=*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#C:\\w\\stdole2.tlb#OLE Automation\r\n"
                  "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; Tools.OCX\r\n"},
                 {"Form1.frm",
                  "Begin VB.Form Form1\r\n  Begin VB.CommandButton Command1\r\n  End\r\nEnd\r\n"
                  "Dim x As Long\r\nPublic Type T\r\n a As Long\r\nEnd Type\r\n"
                  "Public Property Get P()\r\nEnd Property\r\nPublic Property Let P(v)\r\nEnd Property\r\n"
                  "Sub Form1()\r\n Dim q\r\nEnd Sub\r\n"},
                 {"Tools.bas", "Public Total\r\n"},
                 {"A.B.bas", "Public c\r\n"},
                 {"Bar.ctl", "Begin VB.UserControl Bar\r\nEnd\r\nDim n\r\n"}});
    using Case = std::pair<const char*, const char*>;
    for (const auto& [path, object] :
         {Case{"form1", "modul Form1"}, Case{"a.b", "modul A.B"},  // named after its file
          Case{"form1.command1", "control Form1.Command1"}, Case{"form1.t [type]", "type Form1.T [Type]"},
          Case{"form1.t.a", "variable Form1.T.a"}, Case{"form1.p [get]", "prozedur Form1.P [Get]"},
          Case{"form1.p [let]", "prozedur Form1.P [Let]"}, Case{"form1.form1", "prozedur Form1.Form1"},
          Case{"form1.form1.q", "variable Form1.Form1.q"}, Case{"form1.p.v", "variable Form1.P.v"},
          Case{"bar.usercontrol", "control Bar.UserControl"}, Case{"stdole2", "lib stdole2"},
          Case{"tools", "lib Tools"}, Case{"tools.total", "none"},  // the component takes precedence over the module
          Case{"", "none"}, Case{"form1.", "none"}, Case{"form1.p", "none"}, Case{"form1.controls[]", "none"},
          Case{"form1.form1.q.z", "none"}})
        EXPECT_EQ(Find(path), object) << path;
    EXPECT_EQ(gProjekt->GetModuleFromCodePath("tools.total")->CodePathOrg(), "Tools");
    EXPECT_EQ(gProjekt->GetModuleFromCodePath("nothing.total"), nullptr);
    // Paths change with the names of their owners, in lower case of the code page.
    const clsVariable& x = *ModuleOf("form1").MyVars.Item("x");
    ModuleOf("form1").SetName(gProjekt->TheNames().Intern("\xC4nderung"));
    EXPECT_EQ(x.CodePath(), "\xE4nderung.x");
    clsVariable nowhere;
    nowhere.SetNameOf(x);
    EXPECT_EQ(nowhere.CodePathOrg(), "");
    nowhere.Modul = &ModuleOf("bar");
    nowhere.myLibrary = gProjekt->myProjectReferences.Item("stdole2");
    EXPECT_EQ(nowhere.CodePathOrg(), "stdole2.Bar.x");
    EXPECT_EQ(Find("stdole2.x"), "none");
}

}  // namespace
