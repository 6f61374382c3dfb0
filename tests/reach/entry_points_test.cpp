#include "reach/entry_points.h"

#include "support/project_test.h"

namespace {

class EntryPoints : public ProgramState {
protected:
    // "main 0, form_load 1": the names of all entry points with their kinds.
    static std::string Found() {
        Analyse();
        return Joined(EntryPointsOf(*gProjekt, MarksInCode(*gProjekt), {}), ", ", [](const EntryPoint& entry) {
            return std::string(entry.object->MyName()) + " " + std::to_string(static_cast<int>(entry.kind));
        });
    }
};

}  // namespace

TEST_F(EntryPoints, HandlersAreFoundByWhatTheyHandle) {
    ReadProject({{"P.vbp",
                  "Type=Exe\nModule=M; M.bas\nForm=F.frm\nForm=G.frm\nClass=C; C.cls\nClass=I; I.cls\nStartup=\"F\"\n"},
                 {"M.bas", "Sub Main()\nEnd Sub\n"},
                 {"F.frm",
                  "VERSION 5.00\nBegin VB.Form F\n   Begin VB.CommandButton cmd_a\n   End\nEnd\nAttribute VB_Name = "
                  "\"F\"\nPrivate WithEvents src As C, WithEvents lib As Unknown\nPrivate Sub cmd_a_Click()\nEnd Sub\n"
                  "Private Sub Form_Load()\nEnd Sub\nPrivate Sub Form_Unload()\nEnd Sub\nPrivate Sub src_Done()\nEnd "
                  "Sub\nPrivate Sub src_Other()\nEnd Sub\nPrivate Sub lib_Any()\nEnd Sub\nSub Own()\nEnd Sub\n"},
                 {"G.frm", "Attribute VB_Name = \"G\"\nPrivate Sub MDIForm_Load()\nEnd Sub\n"},
                 {"C.cls",
                  "Attribute VB_Name = \"C\"\nImplements I\nPublic Event Done()\nPrivate Sub I_Run()\nEnd Sub\nPrivate "
                  "Sub I_Walk()\nEnd Sub\nPrivate Sub Class_Terminate()\nEnd Sub\n"},
                 {"I.cls", "Attribute VB_Name = \"I\"\nPublic Sub Run()\nEnd Sub\n"}});
    EXPECT_EQ(Found(),
              "form_load 0, form_unload 1, mdiform_load 1, class_terminate 1, cmd_a_click 2, src_done 3, "
              "lib_any 3, i_run 4");
}

TEST_F(EntryPoints, AddressesAndNamesInLiteralsLeadIn) {
    ReadProject({{"P.vbp", "Type=Exe\nModule=M; M.bas\nModule=N; N.bas\nClass=C; C.cls\nStartup=\"Sub Main\"\n"},
                 {"M.bas", R"(
                     Private Declare Sub Beep Lib "N" Alias "Aliased" ()
                     Sub Main()
                         SetTimer 1, ADDRESSOF Tick
                         SetTimer 1, AddressOf N.Tock
                         CallByName x, "runs", VbMethod
                         y = "Not alone" & "Doubled""runs" & "" & "runs2" ' "Commented"
                         y = "Hidden"
                     End Sub
                     Private Sub Tick()
                     End Sub
                     Sub Alone()
                     End Sub
                     Sub Aliased()
                     End Sub
                     Sub Commented()
                     End Sub
                     Sub Doubled()
                     End Sub
                 )"},
                 {"N.bas", "Sub Tock()\nEnd Sub\nPrivate Sub Hidden()\nEnd Sub\n"},
                 {"C.cls", "Sub Runs()\nEnd Sub\n"}});
    EXPECT_EQ(Found(), "main 0, tick 7, tock 7, runs 9");
}
