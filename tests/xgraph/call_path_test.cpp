#include "xgraph/call_path.h"

#include "graph_support.h"

namespace {

class CallPaths : public Graphs {
protected:
    CallPath Path(std::string_view from, std::string_view to) {
        return ShortestCallPath(static_cast<clsProzedur&>(ObjectAt(from)), static_cast<clsProzedur&>(ObjectAt(to)));
    }
    /// "m.a m.b" for a certain chain, "m.a m.b ?" for a possible one.
    std::string Found(std::string_view from, std::string_view to) {
        const CallPath path = Path(from, to);
        const std::string dump = Joined(path.procedures, " ", std::mem_fn(&CodeObject::CodePath));
        return path.isCertain || !path.Exists() ? dump : dump + " ?";
    }
};

TEST_F(CallPaths, TheShortestCertainChainElseThePossibleOne) {
    Analyse(ReadProject({{"M.bas", R"(
        Sub A()
            B
            Dim thing
            thing.Last
            C
        End Sub
        Sub B(): D: End Sub
        Sub C(): D: A: End Sub
        Sub D(): E: End Sub
        Sub E(): End Sub
        Sub Lonely(ByVal thing): thing.Other: End Sub
    )"},
                         {"K.cls", "Public Sub Last()\nE\nEnd Sub\nPublic Sub Other()\nOther\nEnd Sub\n"}}));
    EXPECT_EQ(Found("m.a", "m.e"), "m.a m.b m.d m.e") << "the possible one is shorter";
    EXPECT_EQ(Found("m.c", "m.b"), "m.c m.a m.b") << "round a cycle";
    EXPECT_EQ(Found("m.a", "k.last"), "m.a k.last ?");
    EXPECT_EQ(Found("m.lonely", "k.other"), "m.lonely k.other ?");
    EXPECT_EQ(Found("m.e", "m.a"), "");
}

TEST_F(CallPaths, WhatIsMissingIsPutBelowItsCallerAndAllIsSelected) {
    Analyse(
        ReadProject({{"M.bas", "Sub A()\nB\nEnd Sub\nSub B()\nC\nEnd Sub\nSub C()\nD\nEnd Sub\nSub D()\nEnd Sub\n"}}));
    Put({"m.a", "m.d", "m.c"});
    graph.GraphSelectAll();
    EXPECT_EQ(ShowCallPath(graph, Path("m.a", "m.d")), 1);
    EXPECT_EQ(Symbols(), "m.a* m.d* m.c* m.b*");
    EXPECT_EQ(At("m.b").Top, At("m.a").Top + 2 * At("m.a").Height());
    EXPECT_EQ(At("m.c").Top, 2000) << "it stays";
    EXPECT_FALSE(At("m.b").Frame().Holds(At("m.d").Center()));
}

}  // namespace
