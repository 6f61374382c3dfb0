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

TEST_F(Workspaces, RefreshFollowsTheProjectFileAndKeepsThePlaces) {
    using enum Workspace::Refreshed::Outcome;
    Write("Sub Go()\r\nEnd Sub\r\n");
    ASSERT_TRUE(workspace_.Open("App.vbp"));
    ASSERT_TRUE(workspace_.ReadCalls());
    workspace_.Activate("reference");
    workspace_.Activate("reference.go");
    EXPECT_EQ(workspace_.Refresh().outcome, NothingChanged);
    files_.WriteWhole("App.vbp", "Type=Exe\r\nModule=New; New.bas\r\nModule=Reference; Reference.bas\r\n");
    files_.WriteWhole("New.bas", "Attribute VB_Name = \"New\"\r\nSub Call()\r\n  Go\r\nEnd Sub\r\n");
    const Workspace::Refreshed refreshed = workspace_.Refresh();
    EXPECT_EQ(refreshed.outcome, Done);
    EXPECT_EQ(refreshed.unreadable, 0);
    EXPECT_TRUE(workspace_.Tree().Item("new.call"));
    EXPECT_TRUE(workspace_.CallsRead());
    EXPECT_EQ(ObjectAt("reference.go").CalledByAll().Count(), 1);
    ASSERT_TRUE(workspace_.Tree().Selected());
    EXPECT_EQ(workspace_.Tree().Selected()->Key(), "reference.go");
    ASSERT_TRUE(workspace_.Navigation().NavPrevEnabled());
    EXPECT_EQ(workspace_.Navigation().NavCodeKey_Prev()->node.key, "reference");
}

TEST_F(Workspaces, RefreshSaysWhatCouldNotBeRead) {
    using enum Workspace::Refreshed::Outcome;
    Write("Sub Go()\r\nEnd Sub\r\n");
    ASSERT_TRUE(workspace_.Open("App.vbp"));
    const std::string project = files_.Bytes("App.vbp");
    const std::string module = files_.Bytes("Reference.bas");
    files_.Remove("App.vbp");
    files_.Remove("Reference.bas");
    EXPECT_EQ(workspace_.Refresh().outcome, NoProject);
    EXPECT_TRUE(workspace_.Tree().Item("reference.go")) << "what was read stays";
    files_.WriteWhole("App.vbp", project);
    {
        const ScriptedQuestions cancel{true};
        EXPECT_EQ(workspace_.Refresh().outcome, Cancelled);
        EXPECT_TRUE(workspace_.Tree().Item("reference.go"));
    }
    files_.WriteWhole("Reference.bas", module);
    EXPECT_EQ(workspace_.Refresh().outcome, Done);
    files_.Remove("Reference.bas");
    const ScriptedQuestions goOn{};
    EXPECT_EQ(workspace_.Refresh().outcome, NothingRead);
    EXPECT_FALSE(workspace_.Tree().Item("reference.go"));
}

TEST_F(Workspaces, LineOfAModuleLeadsToItsProcedure) {
    Write("Dim a\r\nSub Go()\r\n  a = 1\r\nEnd Sub\r\n");
    ASSERT_TRUE(workspace_.Open("App.vbp"));
    const auto selectedAt = [this](int line) {
        const auto shown = workspace_.ActivateLine("reference", line);
        const std::string& text = workspace_.Code().Text().text;
        const std::string selected = shown->code.select
                                         ? text.substr(static_cast<std::size_t>(shown->code.select->start),
                                                       static_cast<std::size_t>(shown->code.select->length))
                                         : "nothing";
        return workspace_.Tree().Selected()->Key() + ": " + selected;
    };
    EXPECT_EQ(selectedAt(4), "reference.go:   a = 1");
    EXPECT_EQ(selectedAt(2), "reference: Dim a");
    EXPECT_EQ(selectedAt(99), "reference: nothing");
    EXPECT_FALSE(workspace_.ActivateLine("gone", 1));
}

}  // namespace
