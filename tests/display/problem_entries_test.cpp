#include "display/problem_entries.h"

#include "display/problem_meaning.h"
#include "support/project_test.h"

namespace {

using Problems = ProgramState;

// "text: module line, ..." of each entry; a place without a node has brackets.
std::string Dump(const std::vector<ProblemEntry>& entries) {
    std::string dump;
    for (const ProblemEntry& entry : entries) {
        dump += entry.text + ":";
        for (const ProblemPlace& place : entry.places)
            dump += " " + (place.node.empty() ? "[" + place.path + "]" : place.node + " " + std::to_string(place.line));
        dump += "; ";
    }
    return dump;
}

}  // namespace

TEST_F(Problems, AlikeOnesAreOneEntryWithAllPlaces) {
    const RecordingErrors errors;
    ReadProject({{"A.bas", "Dim a\n#If x( Then\n#End If\nDim b\n#If x( Then\n#ElseIf y( Then\n#End If\n"},
                 {"F.frm", "#If x( Then\n#End If\n"}});
    NoteProblem("clsModul: Read_MyCodeName", "File not found: p\\G.bas");
    const std::vector<ProblemEntry> entries = ProblemEntries(*gProjekt);
    EXPECT_EQ(Dump(entries), "Syntax error: a 2 a 5 a 6 f 1; File not found: p\\G.bas: []; ");
    EXPECT_EQ(entries[0].meaning, Text::ConditionFalse);
    for (const std::string& tag : errors.tags)
        EXPECT_FALSE(Interrupts(tag));
    EXPECT_TRUE(Interrupts("clsModul: Analyse_Parsen"));

    ProblemWalk walk;
    std::string lines;
    for (int i = 0; i < 5; ++i)
        lines += std::to_string(walk.Next(entries[0])->line) + " ";
    EXPECT_EQ(lines, "2 5 6 1 2 ");
    EXPECT_FALSE(walk.Next(entries[1]));
    EXPECT_EQ(walk.Next(entries[0])->line, 2);
}
