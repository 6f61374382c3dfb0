#include "display/workspace.h"

#include "support/project_test.h"

namespace {

class Workspaces : public ProgramState {
protected:
    void Write(std::string_view module) {
        files_.WriteWhole("App.vbp", "Type=Exe\r\nModule=Reference; Reference.bas\r\n");
        files_.WriteWhole("Reference.bas", "Attribute VB_Name = \"Reference\"\r\n" + std::string(module));
    }

    MemoryFiles files_;
    Settings settings_;
    int ended_ = 0;
    Workspace workspace_{gProjekt,
                         files_,
                         settings_,
                         {.run = [](const std::string&, bool, const std::function<void()>& operation) { operation(); },
                          .ends = [this] { ++ended_; }}};
};

TEST_F(Workspaces, ShowingLeavesTheModelAsItIsAndTellsOfLocals) {
    Write("Sub Go(a, b)\r\n  a = 1\r\nEnd Sub\r\n");
    ASSERT_TRUE(workspace_.Open("App.vbp"));
    ASSERT_TRUE(workspace_.ReadCalls());
    const std::size_t edges = gProjekt->calls.Count();
    ASSERT_TRUE(workspace_.Activate("reference.go"));
    EXPECT_EQ(gProjekt->calls.Count(), edges);
    EXPECT_EQ(workspace_.Code().Text().Dump(), "local:a local:b local:a");
    EXPECT_EQ(workspace_.Tree().Item("reference.go.b")->ForeColor(), NodeColour::Grey);
    EXPECT_EQ(workspace_.Tree().Item("reference.go.a")->ForeColor(), NodeColour::Ordinary);
    const auto shown = workspace_.Activate("reference.go.a");
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->code.places.size(), 1U);
}

TEST_F(Workspaces, AGenerationEndsBeforeItsObjectsGo) {
    Write("Sub Go()\r\nEnd Sub\r\n");
    ASSERT_TRUE(workspace_.Open("App.vbp"));
    ASSERT_TRUE(workspace_.Activate("reference"));
    EXPECT_TRUE(workspace_.Now(false).hasModule);
    const int ended = ended_;
    Write("Sub Gone()\r\nEnd Sub\r\n");
    ASSERT_TRUE(workspace_.Open("App.vbp"));
    EXPECT_EQ(ended_, ended + 1);
    EXPECT_FALSE(workspace_.Current().CurObject);
    EXPECT_FALSE(workspace_.Activate("reference.go"));
    workspace_.Close();
    EXPECT_FALSE(workspace_.Now(true).hasProject);
    EXPECT_EQ(workspace_.Tree().Count(), 0);
    EXPECT_EQ(WhyDisabled(Command::Calls, workspace_.Now(false)), Text::OpenProjectFirst);
}

}  // namespace
