#include "project/project_file.h"

#include "shell/settings.h"
#include "support/project_test.h"

namespace {

class ProjectFileTest : public ProgramState {
protected:
    // Reads a project file of these lines, with the modules A.bas, B.frm, C.cls and D.ctl beside it.
    static clsProjekt& Read(std::string_view lines) {
        return ReadProject({{"P.vbp", std::string(lines)},
                            {"A.bas", "Public a\n"},
                            {"B.frm", "Private b\n"},
                            {"C.cls", "Private c\n"},
                            {"D.ctl", "Private d\n"}});
    }
};

using ProjectReading = ProjectFileTest;
using ModulePaths = ProjectFileTest;
using CondComps = ProjectFileTest;
using MissingFiles = ProjectFileTest;

}  // namespace

TEST_F(ProjectReading, EachKindOfModuleHasItsCollection) {
    const clsProjekt& projekt =
        Read("UserControl=D.ctl\nModule=A; A.bas\nForm=B.frm\nClass=C; C.cls\nPropertyPage=E.pag\nmodule=A; A.bas");
    EXPECT_EQ(NamesIn(projekt.Modules) + NamesIn(projekt.Formulare), "AB");
    EXPECT_EQ(NamesIn(projekt.Klassenmodule) + NamesIn(projekt.UserControls), "CD");
    EXPECT_EQ(projekt.Klassenmodule.ItemNr(1)->number, 4);
    EXPECT_EQ(projekt.AnzCodeZeilen, 4);
    EXPECT_THAT(gProjekt->problems.All(), IsEmpty());
}

TEST_F(ProjectReading, LastNameLineNamesTheProject) {
    EXPECT_EQ(Read("Name=\"First\"\nModule=A; A.bas\nName=\"Second one\" \"x\"\nname=\"Third\"").MyName, "Second one");
    EXPECT_EQ(Read("Name=Bare\nModule=A; A.bas").MyName, "");
}

TEST_F(ProjectReading, ProjectWithoutModulesStaysEmpty) {
    // User controls are not counted, and a count of 0 stops the load.
    const clsProjekt& projekt = Read("Name=\"P\"\nReference=*\\G{1}#1.0#0#x.dll#X\nUserControl=D.ctl");
    EXPECT_EQ(projekt.MyName, "P");
    EXPECT_THAT(projekt.OwnedModules(), IsEmpty());
    EXPECT_THAT(projekt.OwnedLibraries(), IsEmpty());
    EXPECT_THAT(gProjekt->problems.All(), IsEmpty());
    EXPECT_EQ(GetAnzahlModule("Usercontrol=D.ctl\r\nForm=B.frm"), 2);  // only this spelling is counted
}

TEST_F(ProjectReading, ManyModulesKeepTheirOrderInAllThatComesOfThem) {
    // Very different sizes, so that modules that are read ahead finish out of order.
    MemoryFiles files;
    std::string lines;
    std::vector<std::string> paths;
    for (int i = 0; i < 60; ++i) {
        const std::string name = "M" + std::to_string(i);
        paths.push_back("p\\" + name + ".bas");
        std::string text = "#If 1 + Then\r\n#End If\r\nPublic Sub Same()\r\nM0.Same\r\nEnd Sub\r\n";
        for (int line = 0; line < (i % 5 == 0 ? 3000 : 3); ++line)
            text += "'a comment\r\n";
        files.WriteWhole(paths.back(), text);
        lines += "Module=" + name + "; " + name + ".bas\r\n";
    }
    files.WriteWhole("p\\P.vbp", lines);
    const RecordingErrors errors;
    NewProject(files, "p\\P.vbp");
    Projekt_Laden(*gProjekt);
    Who_Calls_Who(*gProjekt);

    EXPECT_EQ(errors.subjects, paths);
    std::vector<std::string> holders;
    for (const CodeObject* object : gProjekt->PublicNameSpace().Item("same")->Objects())
        holders.push_back(object->Modul->FullPath);
    EXPECT_EQ(holders, paths);
    std::vector<std::string> callers;
    gProjekt->calls.ForEach([&](const clsCall& call) {
        if (call.Parent->Class() == ObjectClass::Prozedur)
            callers.push_back(call.CallProcedure()->Modul->FullPath);
    });
    EXPECT_EQ(callers, paths);
    EXPECT_EQ(gProjekt->Counts().prozedur, 60);
    CloseProject();
}

TEST_F(ProjectReading, SecondModuleOfOneNameIsLeftOut) {
    const clsProjekt& projekt = ReadProject({{"P.vbp", "Module=A; A.bas\nModule=A; sub\\A.bas\nClass=A; A.cls\n"},
                                             {"A.bas", "Public one\n"},
                                             {"sub\\A.bas", "Public two\n"},
                                             {"A.cls", "Public three\n"}});
    EXPECT_EQ(projekt.Modules.Count(), 1);
    EXPECT_EQ(projekt.Klassenmodule.Count(), 1);  // another collection
    EXPECT_EQ(projekt.GetModuleFromCodePath("a.one"), projekt.Modules.ItemNr(1));
    // Its declarations were registered before.
    EXPECT_TRUE(gProjekt->PublicNameSpace().Contains("two"));
}

TEST_F(ProjectReading, ProceduresJoinByKindOfModuleAfterAllDeclarations) {
    ReadProject({{"D.ctl", "Public s\n"},
                 {"C.cls", "Public Sub s: End Sub\n"},
                 {"B.frm", "Public Sub s: End Sub\n"},
                 {"A.bas", "Public Sub s: End Sub\n"}});
    std::vector<std::string> owners;
    for (const CodeObject* object : gProjekt->PublicNameSpace().Item("s")->Objects())
        owners.push_back(object->CodePathOrg());
    EXPECT_THAT(owners, ElementsAre("D.s", "A.s", "B.s", "C.s"));
}

TEST_F(ProjectReading, TwoOpenProjectsHaveNamesOfTheirOwnPages) {
    // The letters are capital and small in Windows-1251, and two signs in Windows-1252.
    MemoryFiles files{{"p\\P.vbp", "Module=A; A.bas\r\n"},
                      {"p\\A.bas", "Public x\xA8\r\nSub Run()\r\nX\xB8 = 1\r\nEnd Sub\r\n"},
                      {"q\\Q.vbp", "Module=B; B.bas\r\n"},
                      {"q\\B.bas", "Public onlyInB\r\nSub Go()\r\nx\xA8 = 1: Run\r\nEnd Sub\r\n"}};
    clsProjekt cyrillic(files, CodePage("1251"));
    clsProjekt western(files, CodePage("1252"));
    clsProjekt other(files, CodePage("1251"));
    cyrillic.FullPath = western.FullPath = "p\\P.vbp";
    other.FullPath = "q\\Q.vbp";
    for (clsProjekt* projekt : {&cyrillic, &western, &other})
        Projekt_Laden(*projekt);
    for (clsProjekt* projekt : {&other, &western, &cyrillic})
        Who_Calls_Who(*projekt);
    EXPECT_EQ(cyrillic.calls.Count(), 1U);
    EXPECT_EQ(western.calls.Count(), 0U);
    EXPECT_EQ(other.calls.Count(), 0U);
    EXPECT_NE(cyrillic.GetObjectFromCodePath("a.x\xB8"), nullptr);
    EXPECT_NE(western.GetObjectFromCodePath("a.x\xA8"), nullptr);
    EXPECT_TRUE(other.TheNames().Find("onlyinb").Known());
    EXPECT_FALSE(cyrillic.TheNames().Find("onlyinb").Known() || western.PublicNameSpace().Contains("onlyinb"));
}

TEST_F(ProjectReading, UnreadableProjectIsReportedAndStaysEmpty) {
    MemoryFiles files{{"p\\inside.txt", ""}};
    clsProjekt projekt(files);
    projekt.FullPath = "p";  // a directory
    RecordingErrors errors;
    Projekt_Laden(projekt);
    EXPECT_THAT(errors.tags, ElementsAre("clsProjekt: Projekt_Laden"));
    EXPECT_THAT(projekt.OwnedModules(), IsEmpty());
}

TEST_F(ModulePaths, FollowTheEqualSignOrTheSemicolon) {
    using Case = std::pair<const char*, const char*>;
    for (const auto& [line, path] :
         {Case{"Form=..\\shared\\Form1.frm", "C:\\p\\..\\shared\\Form1.frm"},
          Case{"Module=M; ..\\shared\\M.bas", "C:\\p\\..\\shared\\M.bas"}, Case{"Form=D:\\x\\F.frm", "D:\\x\\F.frm"},
          Case{"Module=M; D:\\x\\M.bas", "D:\\x\\M.bas"}, Case{"Form=a=b.frm", "C:\\p\\a=b.frm"},
          Case{"Class=C; a; b.cls", "C:\\p\\a; b.cls"},
          // A network path counts as relative.
          Case{"Form=\\\\server\\share\\F.frm", "C:\\p\\\\\\server\\share\\F.frm"}})
        EXPECT_EQ(Get_Pfad_Aus_ModulEintrag("C:\\p\\", line), path) << line;
    EXPECT_EQ(Read("Module=A; SUB\\..\\a.BAS").Modules.ItemNr(1)->FullPath, "p\\SUB\\..\\a.BAS");
}

TEST_F(CondComps, BelongToTheProjectThatNamesThem) {
    EXPECT_THAT(
        Read("CondComp=\"Trade = 1 : Trace = 0\"\nModule=A; A.bas\nCondComp=\"\"").condComps,
        ElementsAre(Pair("", ""), Pair("win32", "-1"), Pair("win16", "0"), Pair("trade", "1"), Pair("trace", "0")));
    EXPECT_EQ(Read("CondComp=\"A = 1\"\nCondComp=\"Other = 2\"\nModule=A; A.bas").condComps.size(), 4U);
    EXPECT_THAT(gProjekt->condComps.back(), Pair("other", "2"));  // the last line counts
    EXPECT_EQ(Read("Module=A; A.bas").condComps.size(), 3U);
    gProjekt->CondComps_Win32_Win16(false);
    EXPECT_THAT(gProjekt->condComps, ElementsAre(Pair("", ""), Pair("win32", "0"), Pair("win16", "-1")));
}

TEST_F(CondComps, WinOverTheModulesOwnAndLoseToTheGivenOnes) {
    MemoryFiles files{{"p\\P.vbp", "CondComp=\"X = 2 : Y = 2\"\r\nModule=A; A.bas\r\n"},
                      {"p\\A.bas",
                       "#Const X = 1\r\n#Const Y = 1\r\n#Const Z = 1\r\n"
                       "#If X = 2 And Y = 3 And Z = 1 Then\r\nDim all\r\n#End If\r\n"}};
    NewProject(files, "p\\P.vbp");
    gProjekt->definedCondComps = {{"y", "3"}};
    Projekt_Laden(*gProjekt);
    EXPECT_TRUE(ModuleOf("a").MyVars.Contains("all"));
    CloseProject();
}

TEST_F(MissingFiles, AreAskedAboutAndPassedOver) {
    ScriptedQuestions questions{false};
    const clsProjekt& projekt = Read("Module=X; X.bas\nModule=A; A.bas");
    EXPECT_THAT(questions.texts, ElementsAre("File not found: p\\X.bas\r\n\r\nLaden abbrechen?"));
    EXPECT_THAT(gProjekt->problems.All(),
                ElementsAre(Problem{"clsModul: Read_MyCodeName", "File not found: p\\X.bas", "p\\X.bas"}));
    EXPECT_FALSE(gAbort);
    EXPECT_EQ(NamesIn(projekt.Modules), "A");
    EXPECT_FALSE(gProjekt->PublicNameSpace().Contains("x"));
}

TEST_F(MissingFiles, PassTheNumberOfFurtherMissingFilesToTheQuestion) {
    std::vector<int> more;
    SetMissingFilePort([&](std::string_view, int moreMissing) {
        more.push_back(moreMissing);
        return false;
    });
    const clsProjekt& projekt =
        Read("Module=A; A.bas\nModule=X; X.bas\nForm=Y.frm\nObject=z\nModule=A; A.bas\nClass=Z; Z.cls");
    SetMissingFilePort({});
    EXPECT_THAT(more, ElementsAre(2, 1, 0));
    EXPECT_EQ(NamesIn(projekt.Modules), "A");
}

TEST_F(MissingFiles, EndTheLoadWhenTheAnswerIsYes) {
    ScriptedQuestions questions{false, true};
    ReadProject({{"P.vbp", "Module=X; X.bas\nModule=A; A.bas\nModule=Y; Y.bas\nModule=Z; Z.bas\nForm=B.frm\n"},
                 {"A.bas", "Dim a\nSub S()\nEnd Sub\n"},
                 {"B.frm", "Dim b\n"}});
    EXPECT_EQ(questions.texts.size(), 2U);
    EXPECT_TRUE(gAbort);
    EXPECT_EQ(gProjekt->CountAllModules(), 1);
    EXPECT_EQ(NamesIn(gProjekt->Modules), "A");
    EXPECT_EQ(Read("Module=A; A.bas").CountAllModules(), 1);  // the next load starts from scratch
    EXPECT_FALSE(gAbort);
}

TEST_F(MissingFiles, LineWithoutAFileIsOne) {
    EXPECT_EQ(Read("Module=X\nModule=Y;A.bas\nForm=\nModule=A; A.bas").CountAllModules(), 1);
    EXPECT_THAT(gProjekt->problems.All(), testing::Not(IsEmpty()));
}

TEST_F(ProjectReading, ForeignFilesAreRefusedWithTheirReason) {
    using namespace std::string_view_literals;
    const auto why = [](std::string_view bytes) {
        MemoryFiles files{{"P.vbp", std::string(bytes)}};
        return WhyNoProject(files.ReadText("P.vbp"));
    };
    EXPECT_EQ(why("Type=Exe\n"), Text::None) << "no module is needed";
    EXPECT_EQ(why("\n; made by hand\nModule=A; A.bas"), Text::None);
    EXPECT_EQ(why(""), Text::ProjectEmpty);
    EXPECT_EQ(why(" \r\n\n"), Text::ProjectEmpty);
    EXPECT_EQ(why("MZ\0\x90\nType=Exe\n"sv), Text::ProjectBinary);
    EXPECT_EQ(why("Type=Exe\n\0\0\0"sv), Text::None) << "a project with a torn end";
    EXPECT_EQ(why("VBGROUP 5.0\nProject=P.vbp\n"), Text::ProjectGroup);
    EXPECT_EQ(why("<Project Type=\"Exe\"/>\nName of it\nname=x\n"), Text::ProjectForeign);
    EXPECT_EQ(WhyNoProject(MemoryFiles().ReadText("P.vbp")), Text::CauseNotFound);
}
