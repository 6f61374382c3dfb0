#include "model/nearest_paths.h"

#include "support/project_test.h"

namespace {

class NearestPaths : public ProgramState {
protected:
    static std::vector<std::string> Of(std::string_view path) { return NearestCodePaths(*gProjekt, path, 2); }
};

TEST_F(NearestPaths, ArePathsOrNamesThatDifferByAFewCharacters) {
    ReadProject({{"Main.bas",
                  "Sub Start()\nEnd Sub\nSub Stop2()\nEnd Sub\nProperty Get Colour()\nEnd Property\n"
                  "Property Let Colour(c)\nEnd Property\n"},
                 {"Other.bas", "Type Rate\nPart As Long\nEnd Type\nSub Start()\nEnd Sub\n"}});
    EXPECT_THAT(Of("main.strat"), ElementsAre("Main.Start", "Other.Start"));
    EXPECT_THAT(Of("START"), ElementsAre("Main.Start", "Other.Start"));
    EXPECT_THAT(Of("othr.start"), ElementsAre("Other.Start", "Main.Start"));
    EXPECT_THAT(Of("main.color"), ElementsAre("Main.Colour [Get]", "Main.Colour [Let]"));
    EXPECT_THAT(Of("other.rate.prt"), ElementsAre("Other.Rate.Part"));
    EXPECT_THAT(Of("mian"), ElementsAre("Main"));
    EXPECT_THAT(Of("mbin2"), IsEmpty()) << "two characters of five";
    EXPECT_THAT(Of("quite.different"), IsEmpty());
    EXPECT_THAT(Of(""), IsEmpty());
}

}  // namespace
