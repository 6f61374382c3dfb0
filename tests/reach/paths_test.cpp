#include "reach/paths.h"

#include "support/project_test.h"

namespace {

class ReachPaths : public ProgramState {
protected:
    void SetUp() override {
        Analyse(ReadProject(
            {{"P.vbp", "Type=Exe\nModule=M; M.bas\nModule=N; N.bas\nClass=C; C.cls\nStartup=\"Sub Main\"\n"},
             {"M.bas", R"(
                         Sub Main()
                             Short
                             Way1
                             Dim v
                             v.Target
                         End Sub
                         Sub Short(): Target: Dim v: v.Member: End Sub
                         Sub Way1(): Way2: End Sub
                         Sub Way2(): Short: Target: OnlyHere: End Sub
                         Sub Dead1(): Dead2: Target: End Sub
                         Sub Dead2(): Dead1: Dead3: End Sub
                         Sub Dead3(): End Sub
                     )"},
             {"N.bas", "Public g\nSub Target()\nEnd Sub\nSub OnlyHere()\n g = 1\nEnd Sub\n"},
             {"C.cls", "Sub Member()\n Target\n g = 2\nEnd Sub\n"}}));
    }
    static std::string Names(const std::vector<const CodeObject*>& objects) {
        return Joined(objects, " ", std::mem_fn(&CodeObject::MyName));
    }
    // "certain: short 1, main 2; possible: member 1".
    static std::string Text(const Impact::Part& part) {
        return Joined(part.objects, ", ", [](const Dependent& dependent) {
            return std::string(dependent.object->MyName()) + " " + std::to_string(dependent.distance);
        });
    }
};

}  // namespace

TEST_F(ReachPaths, PathsComeByLengthAndOfOneLengthCertainFirst) {
    const Links links(*gProjekt);
    std::vector<std::string> found;
    for (const ReachPath& path : PathsBetween(links, ObjectAt("m.main"), ObjectAt("n.target"))) {
        std::string text = path.IsCertain() ? "" : "? ";
        for (const Link& link : path.links)
            text.append(link.from->MyName()).append(" ");
        found.push_back(text);
    }
    EXPECT_THAT(found, ElementsAre("main short ", "main way1 way2 ", "? main short member ", "main way1 way2 short ",
                                   "? main way1 way2 short member "));
    EXPECT_EQ(PathsBetween(links, ObjectAt("m.main"), ObjectAt("n.target"), 2).size(), 2U);
    EXPECT_THAT(PathsBetween(links, ObjectAt("n.target"), ObjectAt("m.main")), IsEmpty());
}

TEST_F(ReachPaths, ImpactKeepsCertainAndPossibleApart) {
    const Reach reach(*gProjekt);
    const Impact impact = ImpactOf(reach, ObjectAt("n.g"));
    EXPECT_EQ(Text(impact.certain), "onlyhere 1, member 1, way2 2, way1 3, main 4");
    EXPECT_EQ(Text(impact.possible), "short 2");
    EXPECT_EQ(impact.certain.modules.size(), 3U);
    ASSERT_EQ(impact.certain.entries.size(), 1U);
    EXPECT_EQ(impact.certain.entries[0]->kind, EntryKind::StartUp);
    // what a module declares itself is no part of its impact
    EXPECT_EQ(Text(ImpactOf(reach, ModuleOf("m")).certain), "");
    EXPECT_EQ(Text(ImpactOf(reach, ModuleOf("n")).certain),
              "member 1, short 1, way2 1, dead1 1, main 2, way1 2, dead2 2");
}

TEST_F(ReachPaths, WhatNothingElseKeepsDiesWithAnObject) {
    const Reach reach(*gProjekt);
    EXPECT_EQ(Names(DiesWith(reach, ObjectAt("m.way1"))), "way2 onlyhere");
    EXPECT_EQ(Names(DiesWith(reach, ObjectAt("m.dead1"))), "dead2 dead3");
    EXPECT_EQ(Names(DiesWith(reach, ObjectAt("m.short"))), "member");
}
