#include "display/object_search.h"

#include "support/project_test.h"

namespace {

class Search : public ProgramState {
protected:
    std::vector<Hit> Hits(std::string_view typed, std::size_t limit = 100) {
        if (!search_.Built())
            search_.Build(*gProjekt);
        return search_.Find(typed, limit);
    }
    // The path of each hit, as spelled in the source.
    std::vector<std::string> Paths(std::string_view typed, std::size_t limit = 100) {
        std::vector<std::string> paths;
        for (const Hit& hit : Hits(typed, limit))
            paths.push_back(hit.object->CodePathOrg());
        return paths;
    }
    // "kind name", with the matching characters in brackets.
    std::vector<std::string> Marked(std::string_view typed) {
        std::vector<std::string> marked;
        for (const Hit& hit : Hits(typed)) {
            std::string name(hit.object->myNameOrg());
            for (auto range = hit.ranges.rbegin(); range != hit.ranges.rend(); ++range) {
                name.insert(range->from + range->length, "]");
                name.insert(range->from, "[");
            }
            marked.push_back(ObjectKind(*hit.object) + " " + name);
        }
        return marked;
    }

    ObjectSearch search_;
};

TEST_F(Search, RanksExactBeforePrefixBeforeHumpsBeforeInside) {
    ReadModule(R"(
        Private Xopen As Long
        Private OpenAllFiles As Long
        Private OnPaperEndNow As Long
        Private Reopened As Long
        Private Open2 As Long
        Sub Open1(): End Sub
        Sub open(): End Sub
    )");
    EXPECT_THAT(Marked("OPEN"), ElementsAre("sub [open]", "sub [Open]1", "variable [Open]2", "variable [Open]AllFiles",
                                            "variable [O]n[P]aper[En]dNow", "variable X[open]", "variable Re[open]ed"));
    EXPECT_THAT(Marked("op "), testing::Contains("variable [O]n[P]aperEndNow"));
    EXPECT_THAT(Marked("  "), IsEmpty());
    EXPECT_THAT(Marked("opens"), IsEmpty());
}

TEST_F(Search, HumpsBeginAtCapitalsUnderscoresAndNumbers) {
    ReadModule(R"(
        Sub GetCodePath(): End Sub
        Sub Get_Code_Path(): End Sub
        Sub get_xml2_file(): End Sub
        Sub ParseXMLFile(): End Sub
        Sub gacap(): End Sub
    )");
    EXPECT_THAT(Marked("gcp"), ElementsAre("sub [G]et[C]ode[P]ath", "sub [G]et_[C]ode_[P]ath"));
    EXPECT_THAT(Marked("gecopa"), ElementsAre("sub [Ge]t[Co]de[Pa]th", "sub [Ge]t_[Co]de_[Pa]th"));
    EXPECT_THAT(Marked("gx2f"), ElementsAre("sub [g]et_[x]ml[2]_[f]ile"));
    EXPECT_THAT(Marked("pf"), ElementsAre("sub [P]arseXML[F]ile"));
    EXPECT_THAT(Marked("gp"), ElementsAre("sub [G]etCode[P]ath", "sub [G]et_Code_[P]ath"));
}

TEST_F(Search, KnowsEveryClassOfObjectOnce) {
    ReadProject({{"App.vbp",
                  "Form=Z1.frm\nModule=Z2; Z2.bas\n"
                  "Reference=*\\G{0}#1.0#0#C:\\Zlib.tlb#Something\nName=\"Zproject\"\n"},
                 {"Z1.frm",
                  "VERSION 5.00\nBegin VB.Form Z1\n  Begin VB.Label Z3\n  End\nEnd\n"
                  "Attribute VB_Name = \"Z1\"\nOption Explicit\n"},
                 {"Z2.bas",
                  "Attribute VB_Name = \"Z2\"\n"
                  "Private Type Z4\n  Z5 As Long\nEnd Type\n"
                  "Public Enum Z6\n  Z7 = 1\nEnd Enum\n"
                  "Const Z8 = 1\n"
                  "Private Declare Function Z9 Lib \"a\" () As Long\n"
                  "Property Get ZA() As Long\n  Dim ZB As Long\nEnd Property\n"
                  "Function ZC(ZD) As Long\n  Const ZE = 1\nEnd Function\n"}});
    EXPECT_THAT(Marked("z"), ElementsAre("form [Z]1", "module [Z]2", "control [Z]3", "type [Z]4", "type member [Z]5",
                                         "enum [Z]6", "enum member [Z]7", "const [Z]8", "declare function [Z]9",
                                         "property get [Z]A", "local variable [Z]B", "function [Z]C", "argument [Z]D",
                                         "local const [Z]E", "reference [Z]lib"));
    EXPECT_THAT(Marked("me"), IsEmpty());
    EXPECT_EQ(ObjectPlace(*search_.Find("zb", 1).at(0).object), "Z2.ZA [Get]");
}

TEST_F(Search, EqualNamesComeInTheOrderOfTheirPathsAndPathsNarrow) {
    ReadProject({{"B.bas", "Attribute VB_Name = \"B\"\nSub Save(i)\nEnd Sub\nSub Load(i)\nEnd Sub\n"},
                 {"A.bas", "Attribute VB_Name = \"A\"\nSub Load(i)\nEnd Sub\n"}});
    EXPECT_THAT(Paths("i"), ElementsAre("A.Load.i", "B.Load.i", "B.Save.i"));
    EXPECT_THAT(Paths("i", 2), ElementsAre("A.Load.i", "B.Load.i"));
    EXPECT_EQ(search_.Found(), 3U);
    EXPECT_THAT(Paths("b.load"), ElementsAre("B.Load"));
    EXPECT_THAT(Paths("B.Load.I"), ElementsAre("B.Load.i"));
    EXPECT_THAT(Paths("load.i"), ElementsAre("A.Load.i", "B.Load.i"));
    EXPECT_THAT(Paths("load."), ElementsAre("A.Load", "B.Load"));
    EXPECT_THAT(Paths("c.load"), IsEmpty());
}

TEST_F(Search, TypingOnAndBackFindsWhatAFreshSearchFinds) {
    ReadModule(R"(
        Sub LoadFile(fileName, FileLength)
        End Sub
        Sub FillList()
            Dim lfOld, oldFile
        End Sub
    )");
    for (const char* typed : {"l", "lf", "lfo", "lf", "f", "fi", "fil", "filel", "l", "", "o", "of"}) {
        SCOPED_TRACE(typed);
        const std::vector<std::string> found = Paths(typed);
        ObjectSearch used = std::exchange(search_, ObjectSearch());
        EXPECT_EQ(found, Paths(typed));
        search_ = std::move(used);
    }
}

TEST_F(Search, LongNamesAndStrangeLettersAreFoundToo) {
    const std::string name = "Very" + std::string(60, 'x') + "LongTail";
    ReadModule("Sub " + name + "()\r\nEnd Sub\r\nSub \xDCx()\r\nEnd Sub\r\nSub a_b()\r\nEnd Sub\r\n");
    EXPECT_THAT(Paths("longt"), ElementsAre("Module1." + name));
    EXPECT_THAT(Paths("vtail"), IsEmpty());  // humps count within the first 64 characters
    EXPECT_THAT(Paths("\xFCx"), ElementsAre("Module1.\xDCx"));
    EXPECT_THAT(Paths("_b"), ElementsAre("Module1.a_b"));
    EXPECT_THAT(Paths(std::string(300, 'x')), IsEmpty());
}

}  // namespace
