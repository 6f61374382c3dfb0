// Diagrams without a screen.
#include "report_program.h"

namespace {

class GraphCommands : public ReportProgram {
protected:
    void WriteCalls() const {
        WriteProject(
            "Dim total\nSub Go()\nOne\nTwo\nThree\nEnd Sub\nSub One()\nTwo\ntotal = 1\nEnd Sub\nSub Two()\nEnd Sub\n"
            "Sub Three()\nEnd Sub\n");
    }
    /// Makes a diagram of the project P.vbp; "a.go@30000,29000 a.one@…": its symbols in their order.
    std::string Symbols(const std::string& operations) const {
        const Outcome run = Run("--quiet --graph g.json " + operations + " P.vbp");
        EXPECT_EQ(run.status, 0) << run.err;
        std::string symbols;
        const Json graph = Json::parse(dir_.Bytes("g.json"), nullptr, false);
        for (const Json& node : graph["nodes"])
            symbols += node["codePath"].get<std::string>() + '@' + std::to_string(node["left"].get<int>()) + ',' +
                       std::to_string(node["top"].get<int>()) + ' ';
        return symbols;
    }
    /// Whether another program takes a file that was written.
    [[nodiscard]] bool Accepts(const std::string& program) const {
        return std::system(("cd '" + dir_.Path() + "' && " + program + " > .out 2> .err").c_str()) == 0;
    }
};

TEST_F(GraphCommands, OtherProgramsTakeWhatIsWritten) {
    CopySample();
    const std::string chain = " --type all --chain callsall=modMain.Main --chain calledby=clsHire.Init " + kSample;
    const Outcome run = Run("--graph g.dot --graph g.graphml --graph g.json --graph g.ovg" + chain);
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, testing::StartsWith("g.dot: "));
    EXPECT_FALSE(fs::exists(dir_.Path("samples/ToolHire/clsHire.cls Structure.txt"))) << "no kind of report is named";
    EXPECT_TRUE(Accepts("dot -Tsvg -o g.svg g.dot")) << dir_.Bytes(".err");
    EXPECT_EQ(dir_.Bytes(".err"), "");
    EXPECT_TRUE(
        Accepts("xmllint --noout --schema '" + (kSource / "tests/console/graphml.xsd").string() + "' g.graphml"))
        << dir_.Bytes(".err");
    const Json json = Json::parse(dir_.Bytes("g.json"));
    EXPECT_THAT(dir_.Bytes("g.svg"), HasSubstr(">SeedBook</text>"));
    EXPECT_GT(json["pairs"].size(), json["nodes"].size());
    // Another run, with the diagram from its own file.
    Run("--quiet --graph h.dot --graph h.graphml --graph h.json --open g.ovg " + kSample);
    for (const char* suffix : {"dot", "graphml", "json"})
        EXPECT_EQ(dir_.Bytes(std::string("h.") + suffix), dir_.Bytes(std::string("g.") + suffix));
}

TEST_F(GraphCommands, OperationsAreDoneInTheOrderGiven) {
    WriteCalls();
    EXPECT_EQ(Symbols("--add a.three@100,200 --add A.Go@3000,400"), "a.three@100,200 a.go@3000,400 ");
    EXPECT_THAT(Symbols("--add a.two@0,0 --chain calls=a.go --add a"),
                testing::ContainsRegex("^a.two@0,0 a.go@29.*a.one@.*a.three@.*a@"));
    EXPECT_THAT(Symbols("--chain calls=a.one --type variable --chain calls=a.one"),
                testing::ContainsRegex("^a.one@.*a.two@.*a.total@[0-9,]+ $"));
    EXPECT_THAT(Symbols("--type all --type procedure --chain calls=a.one"),
                testing::ContainsRegex("^a.one@.*a.two@[0-9,]+ $"));
    // Opened last, a file is all there is.
    Run("--quiet --graph two.ovg --add a.two@75,150 P.vbp");
    EXPECT_EQ(Symbols("--add a.three --open two.ovg"), "a.two@75,150 ");
    EXPECT_EQ(Symbols("--open two.ovg --add a.two@90,15"), "a.two@90,15 ");
}

TEST_F(GraphCommands, SizesAndCanvasDecideThePlaces) {
    WriteCalls();
    // Symbols of 900 by 500 with a gap of 195 between them.
    dir_.Write("sizes.txt", "a.go\t900\t500\r\na.one\t900\t500\na.TWO\t900\t500\n\na.three\t900\t500\n");
    const std::string start = "--symbol-sizes sizes.txt --add a.go@0,0 --chain calls=a.go ";
    EXPECT_EQ(Symbols(start), "a.go@0,0 a.one@0,1000 a.two@1095,1000 a.three@2190,1000 ");
    EXPECT_EQ(Symbols(start + "--canvas 2000"), "a.go@0,0 a.one@0,1000 a.two@1095,1000 a.three@1100,2000 ");
    EXPECT_EQ(Symbols(start + "--limit 2"), "a.go@0,0 a.one@0,1000 a.two@1095,1000 ");
    EXPECT_EQ(Symbols(start + "--limit 1 --chain calls=a.go"), "a.go@0,0 a.one@0,1000 ");
}

TEST_F(GraphCommands, WhatMakesNoSenseIsRefusedAndNothingIsWritten) {
    WriteCalls();
    dir_.Write("sizes.txt", "a.go\t900\t500\na.one 900 500\n");
    for (const auto& [arguments, named] :
         {std::pair("--graph g.dot --add a.tow", "--add a.tow: the project has no a.tow; did you mean A.Two"),
          std::pair("--graph g.dot --chain calls=a.total", "a.total is no procedure"),
          std::pair("--graph g.dot --add a --symbol-sizes sizes.txt", "sizes.txt, line 2"),
          std::pair("--graph g.dot --open absent.ovg", "absent.ovg"), std::pair("--graph g.dot --open A.bas", "A.bas"),
          std::pair("--graph g.png --add a", "g.png must end in"), std::pair("--graph g.dot --add a.go@1", "a.go@1"),
          std::pair("--graph g.dot --add a.go@1,1e300", "a.go@1,1e300"),
          std::pair("--graph g.dot --chain callers=a.go", "callers"),
          std::pair("--graph g.dot --type sub --add a", "sub"), std::pair("--graph g.dot", "--open, --add or --chain"),
          std::pair("--add a", "--graph"), std::pair("--graph g.dot --add a --no-calls", "--no-calls")}) {
        SCOPED_TRACE(arguments);
        const Outcome run = Run(std::string(arguments) + " P.vbp");
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, HasSubstr(named));
        EXPECT_FALSE(fs::exists(dir_.Path("g.dot")));
    }
}

TEST_F(GraphCommands, WhatIsMissingOrCannotBeWrittenIsReported) {
    WriteCalls();
    dir_.Write("old.ovg", "Version=1\r\nBEGIN:\r\nCodePath=a.gone\r\nLeft=0\r\nTop=0\r\nEND:\r\n");
    const Outcome missing = Run("--quiet --graph g.dot --open old.ovg --add a P.vbp");
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "--open old.ovg: the project has no a.gone\n");
    EXPECT_THAT(dir_.Bytes("g.dot"), HasSubstr("\"a\""));
    const Outcome unwritten = Run("--quiet --graph no/such.dot --graph h.dot --add a P.vbp");
    EXPECT_EQ(unwritten.status, 1);
    EXPECT_THAT(unwritten.err, testing::StartsWith("no/such.dot: "));
    EXPECT_TRUE(fs::exists(dir_.Path("h.dot")));
}

}  // namespace
