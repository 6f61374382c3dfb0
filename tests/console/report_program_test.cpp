// Options, exit status, files and streams.
#include "report_program.h"
#include "platform/library_bytes.h"
#include "shell/vb_text.h"

TEST_F(ReportProgram, SampleIsAllWell) {
    CopySample();
    const Outcome run = Run(kSample + " --json j.json");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, testing::StartsWith("ToolHire\n"));
    EXPECT_EQ(Json::parse(dir_.Bytes("j.json"))["edges"].size(), 827U + 25U + 92U);
    using Count = std::pair<const char*, int>;
    for (const auto& [label, count] :
         {Count{"Modules", 4}, Count{"Forms", 3}, Count{"Class modules", 6}, Count{"User controls", 1},
          Count{"Procedures", 192}, Count{"Types", 4}, Count{"Enumerations", 6}, Count{"Controls", 51},
          Count{"Really calls", 827}, Count{"May be calls", 25}, Count{"Uses", 92}, Count{"Dead objects", 22}})
        EXPECT_THAT(run.out, testing::ContainsRegex(std::string("  ") + label + " +" + std::to_string(count) + "\n"));
    EXPECT_THAT(run.out, testing::ContainsRegex("  Time for calls +[0-9.]+ s\n"));
    // The reports are beside the sources.
    EXPECT_TRUE(fs::exists(dir_.Path("samples/Shared/TextTools.bas Structure.txt")));
    std::ifstream golden(kSource / "tests/golden/structure/clsHire.cls.txt", std::ios::binary);
    EXPECT_EQ(dir_.Bytes("samples/ToolHire/clsHire.cls Structure.txt"),
              std::string(std::istreambuf_iterator<char>(golden), {}));
}

TEST_F(ReportProgram, HelpAndVersionAreAnsweredWithoutAProject) {
    const Outcome help = Run("--help");
    EXPECT_EQ(help.status, 0);
    for (const char* word : {"PROJECT", "--check-locals", "--define", "Exit status"})
        EXPECT_THAT(help.out, HasSubstr(word));
    EXPECT_EQ(Run("--version").out, "ostrivane-report " OSTRIVANE_VERSION "\n");
}

TEST_F(ReportProgram, WrongUseAndUnreadableProjectsAreRefused) {
    WriteProject();
    fs::create_directory(dir_.Path("folder.vbp"));
    dir_.Write("empty.vbp", "");
    dir_.Write("foreign.vbp", "<html>");
    for (const auto& [arguments, named] :
         {std::pair("", "PROJECT"), std::pair("--nonsense P.vbp", "--nonsense"), std::pair("P.vbp Q.vbp", "Q.vbp"),
          std::pair("P.vbp --out", "--out"), std::pair("--lang french P.vbp", "french"),
          std::pair("--structure --no-reports P.vbp", "--structure"), std::pair("--calls --no-calls P.vbp", "--calls"),
          std::pair("--deaths --no-reports P.vbp", "--deaths"), std::pair("--define X P.vbp", "X"),
          std::pair("--define =1 P.vbp", "=1"), std::pair("--settings absent.ini P.vbp", "absent.ini"),
          std::pair("absent.vbp", "absent.vbp"), std::pair("folder.vbp", "folder.vbp"),
          std::pair("--code-page klingon P.vbp", "klingon"), std::pair("empty.vbp", "empty"),
          std::pair("foreign.vbp", "no line of it")}) {
        SCOPED_TRACE(arguments);
        const Outcome run = Run(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(named));
    }
    EXPECT_FALSE(fs::exists(dir_.Path("A.bas Structure.txt")));
}

TEST_F(ReportProgram, MissingModuleIsNamedAndTheRestIsRead) {
    WriteProject("Dim a\n", "Module=X; X.bas\n");
    const Outcome run = Run("--json j.json P.vbp");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("X.bas"));
    EXPECT_TRUE(fs::exists(dir_.Path("A.bas Structure.txt")));
    const Json json = Json::parse(dir_.Bytes("j.json"));
    EXPECT_EQ(json["modules"].size(), 1U);
    ASSERT_EQ(json["problems"].size(), 1U);
    EXPECT_THAT(json["problems"][0]["text"].get<std::string>(), HasSubstr("X.bas"));
    EXPECT_EQ(Run("--quiet P.vbp").err, run.err);  // suppresses progress and summary, but not errors
}

TEST_F(ReportProgram, OutputThatCannotBeWrittenIsNamed) {
    WriteProject();
    dir_.Write("file", "");
    fs::create_directories(dir_.Path("reports/001 A.bas Structure.txt"));
    for (const auto& [arguments, named] : {std::pair("--json no/such/j.json", "no/such/j.json"),
                                           std::pair("--out file/x", "file/x"), std::pair("--out reports", "A.bas")}) {
        SCOPED_TRACE(arguments);
        const Outcome run = Run(std::string(arguments) + " P.vbp");
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.err, HasSubstr(named));
    }
}

TEST_F(ReportProgram, KindsOfReportsAreThoseNamedOrAll) {
    WriteProject("Sub S()\nS\nEnd Sub\nSub T()\nEnd Sub\n");
    const std::string structure = "001 A.bas Structure.txt; ";
    const std::string calls = "001 A.bas Calls.txt; ";
    const std::string deaths = "P.vbp Deaths.txt; ";
    for (const auto& [options, reports] :
         {std::pair("", calls + structure + deaths), std::pair("--structure", structure),
          std::pair("--deaths --calls", calls + deaths), std::pair("--no-calls", structure)}) {
        SCOPED_TRACE(options);
        const Outcome run = Run(std::string("--out r ") + options + " P.vbp");
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.out.find("Really calls") == std::string::npos,
                  std::string_view(options).starts_with("--no-calls"));
        EXPECT_EQ(FileNames("r"), reports);
        fs::remove_all(dir_.Path("r"));
    }
    Run("P.vbp");
    EXPECT_THAT(dir_.Bytes("A.bas Calls.txt"), testing::StartsWith("A\r\n\r\n\r\n\r\nS\tPublic Sub\r\n"));
    EXPECT_THAT(dir_.Bytes("P.vbp Deaths.txt"), HasSubstr("\r\nT\tpublic sub\r\n"));
}

TEST_F(ReportProgram, SummaryIsTheOverviewAndWritesNoReportsOfItsOwn) {
    CopySample();
    const auto before = Files("samples");
    const Outcome run = Run("--summary " + kSample);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(Files("samples"), before);
    for (const char* line :
         {"\n  Start-up object              Sub Main\n", "\n  All modules                         14\n",
          "\n  Code lines                        2096   86.0 %\n",
          "\n  Dead objects                        22    6.9 %\n",
          "\n    frmDesk                          570   27.2 %\n"})
        EXPECT_THAT(run.out, HasSubstr(line));
    EXPECT_THAT(Run("--summary --lang german --no-calls " + kSample).out,
                HasSubstr("\n  Tote Objekte                 Bekannt, sobald die Aufrufe gelesen sind\n"));
    EXPECT_EQ(Run("--summary --quiet " + kSample).status, 2);
    Run("--summary --deaths " + kSample);
    EXPECT_EQ(Files("samples").size(), before.size() + 1);
}

TEST_F(ReportProgram, StatisticsAreTheChartsOfAllModules) {
    CopySample();
    const Outcome run = Run("--quiet --stats --csv t.csv " + kSample);
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, testing::StartsWith("Code lines\n                   Code    Comment      Blank\n"
                                             "frmDesk             570          2         59\n"));
    EXPECT_THAT(dir_.Bytes("t.csv"), HasSubstr("\r\nmodMain,module,151,6,30,14,29,103,4,4,5,5,42\r\n"));
    EXPECT_THAT(Run("--quiet --stats --no-calls " + kSample).out, Not(HasSubstr("Dead")));
    EXPECT_EQ(Run("--csv t.csv " + kSample).status, 2);
}

TEST_F(ReportProgram, QuestionsAboutTheReachAreAnswered) {
    CopySample();
    const auto before = Files("samples");
    const Outcome dead = Run("--quiet --dead --grade sure --csv d.csv " + kSample);
    EXPECT_EQ(dead.status, 0);
    EXPECT_THAT(dead.out, HasSubstr("16 objects with 59 lines can go for sure\n"));
    EXPECT_THAT(dir_.Bytes("d.csv"), HasSubstr("\r\nmodSlip.BarcodeText,procedure,sure,3,modSlip 148,Only dead code "
                                               "calls or uses it: modSlip.PrintBarcode.,"));
    EXPECT_THAT(dir_.Bytes("d.csv"), Not(HasSubstr("ADDRESS_LINES")));
    EXPECT_THAT(
        Run("--quiet --lang german --why modslip.barcodetext " + kSample).out,
        HasSubstr("modSlip.BarcodeText\nNur toter Code ruft es auf oder verwendet es: modSlip.PrintBarcode.\n"));
    EXPECT_THAT(Run("--quiet --path modmain.main modstore.readsettings " + kSample).out,
                HasSubstr("1  certain  modMain.Main  calls  modStore.ReadSettings  modMain 75\n"));
    EXPECT_THAT(Run("--quiet --impact modslip.barcodecheck " + kSample).out,
                HasSubstr("certain: 2 objects in 1 modules, of these 0 forms; 0 entry points\n"));
    EXPECT_THAT(Run("--quiet --entry-points " + kSample).out, HasSubstr("modMain.Main  "));
    EXPECT_EQ(Files("samples"), before);  // no report was asked for

    const Outcome unknown = Run("--why modSlip.BarcodeTex " + kSample);
    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.err,
                HasSubstr("modSlip.BarcodeTex: there is no such object; did you mean modSlip.BarcodeText"));
    EXPECT_EQ(Run("--dead --why modMain.Main " + kSample).status, 2);
    EXPECT_EQ(Run("--grade sure " + kSample).status, 2);
}

TEST_F(ReportProgram, ReachIsInTheJsonOnRequestAndRespectsWhatTheUserDeclares) {
    WriteProject("Sub Job()\nPart\nEnd Sub\nSub Part()\nEnd Sub\n");
    const auto objects = [this](const std::string& options) {
        return Json::parse(Run("--quiet --no-reports --json - " + options + " P.vbp").out);
    };
    EXPECT_FALSE(objects("")["objects"][0].contains("reach"));
    EXPECT_FALSE(objects("").contains("entryPoints"));
    const Json part = objects("--reach")["objects"][1];
    EXPECT_EQ(part["reach"], "none");
    EXPECT_EQ(part["grade"], "sure");
    EXPECT_EQ(part["reason"], Json({{"kind", "dead callers"}, {"objects", {"a.job"}}}));
    dir_.Write("P.vbp Declared.txt", "entry\tA.Job\tscheduler\n");
    const Json json = objects("--reach");
    EXPECT_EQ(json["objects"][1]["reach"], "certain");
    EXPECT_EQ(json["objects"][1]["reason"]["entry"], "a.job");
    EXPECT_EQ(json["entryPoints"][0]["kind"], "declared");
}

TEST_F(ReportProgram, CheckLocalsReportsUnusedArguments) {
    WriteProject("Function F(a, b)\nF = a\nEnd Function\n");
    std::map<std::string, Json> objects;
    const Json json = RunJson("--check-locals P.vbp");
    for (const Json& object : json["objects"])
        objects[object["codePath"]] = object;
    EXPECT_EQ(objects["a.f.a"]["unused"], false);
    EXPECT_EQ(objects["a.f.b"]["unused"], true);
    EXPECT_FALSE(objects["a.f.f"].contains("unused"));  // the result variable
    EXPECT_FALSE(RunJson("P.vbp")["objects"].back().contains("unused"));
}

TEST_F(ReportProgram, NoReportsWritesNothingAndStandardOutputHasOnlyTheJson) {
    WriteProject();
    const Outcome run = Run("--no-reports --json - P.vbp");
    EXPECT_FALSE(fs::exists(dir_.Path("A.bas Structure.txt")));
    EXPECT_EQ(Json::parse(run.out)["project"]["path"], "P.vbp");
    EXPECT_THAT(run.err, HasSubstr("Class modules"));
}

TEST_F(ReportProgram, DefineChangesWhatIsCompiled) {
    WriteProject(
        "#If Mode = 2 And Own = 3 Then\nDim both\n#ElseIf Mode = 2 Then\nDim given\n#Else\nDim usual\n#End If\n",
        "CondComp=\"Mode = 1\"\n");
    EXPECT_EQ(RunJson("P.vbp")["objects"][0]["name"], "usual");
    EXPECT_EQ(RunJson("--define MODE=2 P.vbp")["objects"][0]["name"], "given");
    EXPECT_EQ(RunJson("--define Mode=2 --define own=3 P.vbp")["objects"][0]["name"], "both");
}

TEST_F(ReportProgram, SettingsChooseLanguageAndCodePage) {
    WriteProject("Dim \xCF\xF0\xE8\n");
    dir_.Write("o.ini", "[ALLGEMEIN]\r\nLanguage=german\r\nCodePage=1251\r\n");
    EXPECT_EQ(RunJson("P.vbp")["objects"][0]["name"], "Ïðè");
    EXPECT_EQ(RunJson("--settings o.ini P.vbp")["objects"][0]["codePath"], "a.при");
    EXPECT_THAT(Run("--lang german P.vbp").out, HasSubstr("Klassenmodule"));
    EXPECT_THAT(Run("--settings o.ini P.vbp").out, HasSubstr("Klassenmodule"));
    EXPECT_THAT(Run("--settings o.ini --lang english P.vbp").out, HasSubstr("Class modules"));
}

TEST_F(ReportProgram, CodePageIsNamedOrHintedAt) {
    dir_.Write("P.vbp", "Form=\xCE\xEA\xED\xEE.frm\n");
    dir_.Write("Окно.frm", "Dim \xCF\xF0\xE8\n");
    const Outcome plain = Run("--no-reports P.vbp");
    EXPECT_EQ(plain.status, 0) << "the file is found, and a hint is no problem";
    EXPECT_THAT(plain.err, HasSubstr("Windows-1251; --code-page 1251"));
    EXPECT_EQ(RunJson("--code-page windows-1251 P.vbp")["objects"][1]["codePath"], "окно.при");
    EXPECT_EQ(Run("--no-reports --code-page CP1251 P.vbp").err, "");
}

TEST_F(ReportProgram, LibrariesAreSoughtWhereTheOptionsSay) {
    WriteProject("Dim a As Thing\n",
                 "Object={a0000000-0000-0000-0000-000000000001}#1.2#0; TREE.OCX\n"
                 "Reference=*\\G{1}#1.0#0#..\\absent.tlb#Absent\n");
    fs::create_directory(dir_.Path("libs"));
    fs::copy(kSource / "fuzz/corpus/pe_resources/program32.dll", dir_.Path("libs/tree.ocx"));
    // Nothing is reported as long as nobody has said where libraries are.
    const Json json = RunJson("P.vbp");
    EXPECT_EQ(json["problems"].size(), 0U);
    EXPECT_FALSE(json["libraries"][0].contains("file"));
    EXPECT_EQ(RunJson("--library-folder libs --no-libraries P.vbp")["problems"].size(), 0U);

    const Outcome run = Run("--quiet --no-reports --json j.json --library-folder other --library-folder libs P.vbp");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("absent.tlb into the project's folder or into a folder of LibraryFolders"));
    const Json sought = Json::parse(dir_.Bytes("j.json"));
    EXPECT_EQ(sought["libraries"][0]["file"], "libs/tree.ocx");
    EXPECT_EQ(sought["libraries"][0]["sought"].back()["outcome"], "found");
    EXPECT_TRUE(sought["libraries"][1]["file"].is_null());
    EXPECT_EQ(sought["problems"].size(), 1U);
    EXPECT_EQ(sought["libraries"][0]["classes"][0]["codePath"], "tiny.thing");
    EXPECT_EQ(sought["edges"][0]["to"], "tiny.thing");
    EXPECT_EQ(sought["libraries"][0]["use"], Json({{"modules", 1}, {"places", 1}, {"controls", 0}, {"variables", 0}}));
    EXPECT_THAT(Run("--quiet --libraries --csv t.csv --library-folder libs P.vbp").out,
                testing::AllOf(HasSubstr("use         used by 1 module at 1 place\n"),
                               HasSubstr("project line: ..\\absent.tlb, missing\n")));
    EXPECT_THAT(dir_.Bytes("t.csv"),
                testing::AllOf(
                    HasSubstr("\r\nTiny,Tiny test library,1.2,{a0000000-0000-0000-0000-000000000001},component,found,"),
                    HasSubstr(R"(,0,0,0,"registry: not registered; project line: ..\absent.tlb, missing; )")));

    dir_.Write("o.ini", "[ALLGEMEIN]\nLibraryFolders=none; libs\nLoadLibs=1\n");
    EXPECT_THAT(Run("--settings o.ini --no-reports P.vbp").err, Not(HasSubstr("tree.ocx")));
}

TEST_F(ReportProgram, LibraryIsPrintedWithoutAProject) {
    fs::copy(kSource / "fuzz/corpus/pe_resources/program32.dll", dir_.Path("Lib.dll"));
    const Outcome text = Run("--library lib.DLL");
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.err, "");
    EXPECT_THAT(text.out, testing::StartsWith("Library: Tiny\nDescription: Tiny test library\nFile: lib.DLL\n"));
    const Outcome json = Run("--library 'Lib.dll\\3' --json -");
    const Json old = Json::parse(json.out);
    EXPECT_EQ(old["format"], "SLTG");
    EXPECT_EQ(old["types"][0]["kind"], "record");
    EXPECT_EQ(old["types"][1]["members"][0]["parameters"][1]["flags"], Json({"in", "out"}));
    EXPECT_EQ(old["classes"][0]["members"][0]["codePath"], "old.iunk.ask");
    EXPECT_EQ(old["records"][0]["members"][1]["type"], "Long(0 To 2)");
}

TEST_F(ReportProgram, TypesOfImportedLibrariesAreLookedUpBesideTheLibrary) {
    // The library takes its fonts from another one: the second type of "Tiny".
    constexpr std::size_t kImportedFont = 0xB68;
    constexpr std::size_t kImportedFile = 0xB80;
    constexpr std::size_t kImportedId = 0xA1C;
    LibraryBytes demo("msft/demo.tlb");
    demo.Set32(kImportedFont + 8, 1).Set32(kImportedFile + 8, 0x00020001);
    demo.Set(kImportedId, LibraryBytes("msft/tiny.tlb").Bytes().substr(0x2FC, 16));
    dir_.Write("Demo.tlb", demo.Bytes());
    const auto typeOfFont = [](const Json& library) {
        for (const Json& oneClass : library["classes"])
            for (const Json& member : oneClass["members"])
                if (member["name"] == "GetFont")
                    return std::string(member["type"]);
        return std::string("no such member");
    };
    const Json alone = Json::parse(Run("--library Demo.tlb --json -").out);
    EXPECT_EQ(typeOfFont(alone), "stdole2.tlb.#1");
    EXPECT_TRUE(alone["imports"][0]["file"].is_null());
    EXPECT_THAT(Run("--library Demo.tlb").out, HasSubstr("\nNot found: stdole2.tlb {"));

    fs::copy(kSource / "fuzz/corpus/msft/tiny.tlb", dir_.Path("StdOle2.tlb"));
    const Json beside = Json::parse(Run("--library Demo.tlb --json -").out);
    EXPECT_EQ(typeOfFont(beside), "Tiny.Thing");
    EXPECT_EQ(beside["imports"][0]["id"], "{A0000000-0000-0000-0000-000000000001}");
    EXPECT_THAT(std::string(beside["imports"][0]["file"]), testing::EndsWith("StdOle2.tlb"));

    // A project finds it where the line of its own reference leads, though that stands further down.
    fs::create_directory(dir_.Path("p"));
    fs::create_directory(dir_.Path("old"));
    fs::rename(dir_.Path("StdOle2.tlb"), dir_.Path("old/tiny.tlb"));
    dir_.Write("p/P.vbp",
               "Module=A; A.bas\nReference=*\\G{11111111-2222-3333-4444-555555555501}#2.5#0#..\\demo.tlb#\n"
               "Reference=*\\G{A0000000-0000-0000-0000-000000000001}#1.2#0#..\\old\\tiny.tlb#\n");
    dir_.Write("p/A.bas", "Dim a\n");
    EXPECT_EQ(typeOfFont(RunJson("p/P.vbp")["libraries"][0]), "Tiny.Thing");
}

TEST_F(ReportProgram, LibraryThatIsDamagedOrNoneIsReported) {
    dir_.Write("text.tlb", "no library");
    const Outcome none = Run("--library text.tlb");
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(none.err, "text.tlb: The file is no type library.\n");
    EXPECT_EQ(none.out, "");
    EXPECT_EQ(Run("--library missing.tlb").status + Run("--library text.tlb P.vbp").status, 4);

    fs::copy(kSource / "fuzz/corpus/msft/tiny.tlb", dir_.Path("torn.tlb"));
    fs::resize_file(dir_.Path("torn.tlb"), 0x7F0);  // within the functions of the interface
    const Outcome torn = Run("--library torn.tlb");
    EXPECT_EQ(torn.status, 1);
    EXPECT_THAT(torn.out, HasSubstr("Enum Hue"));
    EXPECT_EQ(torn.err, "torn.tlb: The members of the type \"IThing\" are damaged.\n");
}
