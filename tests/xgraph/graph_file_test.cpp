#include "xgraph/graph_file.h"

#include "graph_support.h"

namespace {

class GraphFiles : public Graphs {
protected:
    void SetUp() override {
        ReadProject({{"M.bas",
                      "Sub Go(arg As Long)\n    Dim local As Long\nEnd Sub\nSub Stay()\nEnd Sub\n"
                      "Property Get Size() As Long\n    Dim s\nEnd Property\n"
                      "Property Let Size(n As Long)\n    Dim s\nEnd Property\n"}});
        graph.SetProject(gProjekt.get());
    }
    /// "m.go 1,2; m.stay 3,4", or the reason.
    static std::string Read(std::string_view text) {
        const GraphFile file = ReadGraphText(text);
        if (!file.IsGraph())
            return file.whyNot == Text::GraphFileTorn ? "torn" : "foreign";
        return Joined(file.places, "; ", [](const SymbolPlace& place) {
            return place.CodePath + " " + NumberText(place.Left) + "," + NumberText(place.Top);
        });
    }
    static std::string NumberText(double number) {
        char text[40];
        std::snprintf(text, sizeof text, "%g", number);
        return text;
    }
    MemoryFiles files;
};

TEST_F(GraphFiles, ADiagramComesBackWhole) {
    EXPECT_EQ(GraphText(graph.Places()), "Version=1\r\n");
    Put({"m.stay", "m.size [let]", "m"});
    graph.Drop(ProcedureAt("m.go").MyVars.Item("arg"), {1.5, -15});
    graph.Drop(ProcedureAt("m.size [let]").MyVars.Item("n"), {0, 0});
    ASSERT_TRUE(GraphSave(graph, files, "a.ovg"));
    EXPECT_EQ(files.Bytes("a.ovg").substr(0, 70),
              "Version=1\r\nBEGIN:\r\nCodePath=m.stay\r\nLeft=0\r\nTop=0\r\nEND:\r\nBEGIN:\r\nCodeP");
    EXPECT_THAT(files.Bytes("a.ovg"), HasSubstr("CodePath=m.go.arg\r\nLeft=1.5\r\nTop=-15\r\nEND:\r\n"));
    const std::vector<SymbolPlace> before = graph.Places();
    graph.Clear();
    const GraphOpened opened = GraphOpen(graph, files, "a.ovg");
    EXPECT_EQ(opened.symbols, 5);
    EXPECT_EQ(opened.missing, 0);
    EXPECT_EQ(graph.Places(), before);
    EXPECT_EQ(At("m.size.n").object, ProcedureAt("m.size [let]").MyVars.Item("n"));
}

TEST_F(GraphFiles, WhatTheLinesMean) {
    const auto lines = [](std::string_view text) { return Read("Version=1\n" + std::string(text)); };
    EXPECT_EQ(lines(""), "");
    EXPECT_EQ(lines("CodePath=M.Go\rLeft=1\rTop=2\rCodePath=m.stay\rTop=3\r"), "m.go 1,2; m.stay 1,3")
        << "lower case; Left stays until the next one";
    EXPECT_EQ(lines("Top=1\nCodePath=m.go\nTop=2\nTop=3\n"), "m.go 0,2") << "a place needs a path";
    EXPECT_EQ(lines("CodePath= m.go\nTop=2"), " m.go 0,2") << "paths are not trimmed";
    EXPECT_EQ(lines("CodePath=m.go\n Top=2\nTop =3\ntop=4\nTop=5  \n"), "m.go 0,5") << "other keys";
    EXPECT_EQ(lines("CodePath=m=n\nWidth=3\nTop=1\n"), "m=n 0,1");
    EXPECT_EQ(lines("CodePath=a\nLeft=1,5\nTop=-2.5e1x\nCodePath=b\nLeft=x\nTop= 1 2\n"), "a 1,-25; b 0,12");
    EXPECT_EQ(lines("CodePath=a\nLeft=1e999\nTop=-1e999\nCodePath=b\nLeft=nan\nTop=inf"), "a inf,-inf; b 0,0");
}

TEST_F(GraphFiles, WhatIsNoDiagram) {
    EXPECT_EQ(Read("Version=7\r\n"), "");
    EXPECT_EQ(Read("?\nCodePath=a\nTop=1"), "a 0,1") << "the first line counts for nothing";
    for (const std::string foreign : {"", "\r\n", "Type=Exe\r\nForm=F.frm\r\n", "CodePath=a\r\nLeft=1\r\n"})
        EXPECT_EQ(Read(foreign), "foreign") << foreign;
    EXPECT_EQ(Read(std::string("Version=1\r\n\0", 12)), "foreign");
    const std::string whole = "Version=1\r\nBEGIN:\r\nCodePath=a\r\nLeft=1\r\nTop=12\r\nEND:\r\n";
    const std::size_t header = whole.find("BEGIN");
    const std::size_t last = whole.find("\r\n", whole.find("END:"));
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(Read(whole.substr(0, length)), length < 8         ? "foreign"
                                                 : length <= header ? ""
                                                 : length < last    ? "torn"
                                                                    : "a 1,12")
            << length;
}

TEST_F(GraphFiles, AFailureIsHeardOfOnceAndChangesNothing) {
    Put({"m.go"});
    files.WriteWhole("foreign.ovg", "Type=Exe\r\n");
    files.WriteWhole("torn.ovg", "Version=1\r\nBEGIN:\r\nCodePath=m.stay\r\nTop=1\r\n");
    files.WriteWhole("large.ovg", "Version=1\r\n" + std::string(kMostGraphBytes, ' '));
    const RecordingErrors errors;
    const RecordingMessages messages;
    EXPECT_EQ(GraphOpen(graph, files, "foreign.ovg").whyNot, Text::GraphFileForeign);
    EXPECT_EQ(GraphOpen(graph, files, "large.ovg").whyNot, Text::GraphFileForeign);
    EXPECT_EQ(GraphOpen(graph, files, "torn.ovg").whyNot, Text::GraphFileTorn);
    EXPECT_EQ(messages.texts.size(), 3U);
    EXPECT_THAT(errors.tags, IsEmpty());
    EXPECT_EQ(GraphOpen(graph, files, "missing.ovg").whyNot, Text::CauseNotFound);
    EXPECT_THAT(errors.tags, ElementsAre("clsModul: GraphOpen"));
    EXPECT_FALSE(GraphSave(graph, files, "no/"));
    EXPECT_THAT(errors.tags, ElementsAre("clsModul: GraphOpen", "clsModul: GraphSave"));
    EXPECT_EQ(Symbols(), "m.go");
    files.WriteWhole("other.ovg", "Version=1\r\nCodePath=m.gone\r\nTop=1\r\nCodePath=m.stay\r\nTop=1\r\n");
    EXPECT_EQ(GraphOpen(graph, files, "other.ovg").missing, 1);
    EXPECT_EQ(Symbols(), "m.stay");
}

}  // namespace
