#include "support/workspace_test.h"
#include "support/baum_dump.h"
#include "support/code_dump.h"

namespace {

class Workspaces : public WorkspaceTest {
protected:
    void Check(std::string_view key, bool on, NodeKind kind = NodeKind::Object) {
        BaumNode& node = *workspace_.Tree().Item(key, kind);
        workspace_.Tree().SetChecked(node, on);
        shown_ = workspace_.NodeChecked(node);
    }
    /// The objects in both dependency trees: "callers > callees".
    [[nodiscard]] std::string Neighbours() {
        const auto isLeaf = [](const BaumNode& node) { return !node.Child(); };
        return KeysWhere(workspace_.CalledBy(), isLeaf) + " > " + KeysWhere(workspace_.Calls(), isLeaf);
    }
    [[nodiscard]] std::string Grey() {
        return KeysWhere(workspace_.Tree(), [](const BaumNode& node) { return node.ForeColor() == NodeColour::Grey; });
    }
    [[nodiscard]] std::string CurrentPath() const {
        return workspace_.Current().CurObject ? NodeKeyOf(*workspace_.Current().CurObject) : "";
    }

    std::optional<Workspace::Shown> shown_;
};

TEST_F(Workspaces, ShowingLeavesTheModelAsItIsAndTellsOfLocals) {
    OpenAndRead({{"Reference.bas", "Sub Go(a, b)\n  a = 1\nEnd Sub"}});
    const std::size_t edges = gProjekt->calls.Count();
    ASSERT_TRUE(workspace_.Activate("reference.go"));
    EXPECT_EQ(gProjekt->calls.Count(), edges);
    EXPECT_EQ(DumpCode(workspace_.Code().Text()), "local:a local:b local:a");
    EXPECT_EQ(workspace_.Tree().Item("reference.go.b")->ForeColor(), NodeColour::Grey);
    EXPECT_EQ(workspace_.Tree().Item("reference.go.a")->ForeColor(), NodeColour::Ordinary);
    const auto shown = workspace_.Activate("reference.go.a");
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->code.places.size(), 1U);
}

TEST_F(Workspaces, AGenerationEndsBeforeItsObjectsGo) {
    Open({{"Reference.bas", "Sub Go()\nEnd Sub"}});
    ASSERT_TRUE(workspace_.Activate("reference"));
    EXPECT_TRUE(workspace_.Now(false).hasModule);
    const int ended = ended_;
    Open({{"Reference.bas", "Sub Gone()\nEnd Sub"}});
    EXPECT_EQ(ended_, ended + 1);
    EXPECT_FALSE(workspace_.Current().CurObject);
    EXPECT_FALSE(workspace_.Activate("reference.go"));
    workspace_.Close();
    EXPECT_FALSE(workspace_.Now(true).hasProject);
    EXPECT_EQ(workspace_.Tree().Count(), 0);
    EXPECT_EQ(WhyDisabled(Command::Calls, workspace_.Now(false)), Text::OpenProjectFirst);
}

constexpr std::string_view kMain = R"(
    Public Sub Main()
        Fill
        Save
    End Sub
)";
constexpr std::string_view kStore = R"(
    Public Sub Fill()
        Save
    End Sub
    Public Sub Save()
    End Sub
    Public Sub Unused()
    End Sub
)";

TEST_F(Workspaces, OnlyBoxesThatAreSeenFilter) {
    OpenAndRead({{"Main.bas", kMain}, {"Store.bas", kStore}});
    ASSERT_TRUE(workspace_.Activate("store.save"));
    EXPECT_EQ(Neighbours(), "main.main store.fill > ");
    workspace_.SetCheckBoxes(true);
    Check("main", true);
    EXPECT_EQ(workspace_.FilterText(), Text::OfChecked);
    EXPECT_EQ(Neighbours(), " > store.fill store.save");
    ASSERT_TRUE(workspace_.Activate("store.save"));
    EXPECT_EQ(workspace_.FilterText(), Text::CheckedLeftOut);
    EXPECT_EQ(Neighbours(), "store.fill > ");
    for (const auto& change : std::initializer_list<std::function<void()>>{
             [] {}, [this] { workspace_.OptionsApplied(); }, [this] { (void)workspace_.ReadCalls(); }}) {
        change();
        workspace_.SetCheckBoxes(false);
        EXPECT_EQ(workspace_.FilterText(), Text::None);
        (void)workspace_.ShowAgain();
        EXPECT_EQ(Neighbours(), "main.main store.fill > ");
        workspace_.SetCheckBoxes(true);
        EXPECT_EQ(Neighbours(), "store.fill > ") << "the marks come back with the boxes";
    }
    workspace_.CheckAll(false);
    EXPECT_EQ(workspace_.CheckedCount(), 0U);
    EXPECT_EQ(Neighbours(), "main.main store.fill > ");
    Check("store.fill", true);
    Check("module[]", false, NodeKind::Root);
    EXPECT_EQ(workspace_.FilterText(), Text::None);
}

TEST_F(Workspaces, ACheckedObjectBecomesTheCurrentOne) {
    OpenAndRead({{"Main.bas", kMain}, {"Store.bas", kStore}});
    workspace_.SetCheckBoxes(true);
    ASSERT_TRUE(workspace_.Activate("main.main"));
    Check("store.fill", true);
    ASSERT_TRUE(shown_ && shown_->properties);
    EXPECT_EQ(shown_->path, "Store.Fill   public sub");
    EXPECT_EQ(shown_->properties->front().value.bytes, "Fill");
    EXPECT_TRUE(workspace_.Code().Text().text.starts_with("Public Sub Fill"));
    EXPECT_EQ(CurrentPath(), "store.fill");
    EXPECT_EQ(workspace_.Tree().Selected()->Key(), "store.fill");
    EXPECT_TRUE(workspace_.Now(false).neighbours.CalledByReally);
    Check("store.fill", false);
    EXPECT_EQ(Neighbours(), "main.main > store.save") << "its own neighbours, when there is no group";
    ASSERT_TRUE(workspace_.Activate("main.main"));
    Check("store.fill", true);
    (void)workspace_.ReadCalls();
    (void)workspace_.ShowAgain();
    EXPECT_EQ(workspace_.FilterText(), Text::OfChecked) << "what was shown comes back";
    EXPECT_EQ(Neighbours(), "main.main > store.save");
    ASSERT_TRUE(workspace_.Activate("store.fill"));
    EXPECT_EQ(workspace_.FilterText(), Text::CheckedLeftOut) << "a click leaves the group, on the current object too";
}

TEST_F(Workspaces, ACancelEndsWithItsOperation) {
    OpenAndRead({{"Main.bas", kMain}, {"Store.bas", kStore}});
    ASSERT_TRUE(workspace_.Activate("store.save"));
    EXPECT_EQ(Grey(), "main.main store.fill store.save store.unused");
    {
        const RecordingProgress cancel("Main + ");
        EXPECT_FALSE(workspace_.ReadCalls());
    }
    (void)workspace_.ShowAgain();
    // Tree, model and commands agree: calls are not known, so nothing counts as dead.
    EXPECT_EQ(Grey(), "");
    EXPECT_EQ(ObjectAt("store.unused").IsDeath, 0);
    EXPECT_FALSE(workspace_.Now(false).callsRead);
    EXPECT_EQ(Neighbours(), "main.main > ");
    const int nodes = workspace_.Tree().Count();
    for (const std::int16_t locals : {0, 1}) {
        settings_.ProcVars = locals;
        workspace_.OptionsApplied();
        EXPECT_EQ(workspace_.Tree().Count(), nodes);
    }
}

TEST_F(Workspaces, MarksOfLocalsStayWithTheirProcedure) {
    OpenAndRead({{"Main.bas", "Sub Main()\n  Dim unused\n  Save 1\nEnd Sub"},
                 {"Store.bas", "Sub Save(a)\n  Dim b\nEnd Sub\nSub Other(c)\nEnd Sub"}});
    ASSERT_TRUE(workspace_.Activate("store.save"));
    // The text of the caller comes up, while the current object stays.
    ASSERT_TRUE(workspace_.SelectCallsOfObject(*workspace_.CalledBy().Item("main.main"), true));
    const std::string marked = "main.main main.main.unused store.other store.save store.save.a store.save.b";
    EXPECT_EQ(Grey(), marked);
    for (const std::int16_t locals : {0, 1}) {
        settings_.ProcVars = locals;
        workspace_.OptionsApplied();
    }
    EXPECT_EQ(Grey(), marked);
    files_.WriteWhole("Store.bas", "Attribute VB_Name = \"Store\"\r\nSub Save(a, x)\r\n  a = 1\r\nEnd Sub\r\n");
    ASSERT_EQ(workspace_.Refresh().files, 1);
    EXPECT_EQ(Grey(), "main.main main.main.unused store.save store.save.x");
}

TEST_F(Workspaces, LocalsOfAllProceduresShownGetTheirMarks) {
    OpenAndRead({{"M.bas", "Sub A(x)\nEnd Sub\nSub B(y)\nEnd Sub"}});
    (void)workspace_.ShowWholeModule(true, false);
    ASSERT_TRUE(workspace_.Activate("m.a"));
    EXPECT_EQ(workspace_.Tree().Item("m.b.y")->ForeColor(), NodeColour::Grey);
    EXPECT_EQ(workspace_.HeaderLines(), 1);
}

TEST_F(Workspaces, AHighlightedGroupIsNotCurrent) {
    OpenAndRead({{"Main.bas", kMain}, {"Store.bas", kStore}});
    ASSERT_TRUE(workspace_.Activate("store.fill"));
    BaumNode* const group = workspace_.Tree().Item("main.public_sub[]", NodeKind::Group);
    workspace_.Tree().Select(group);
    EXPECT_FALSE(workspace_.Activate(group->Id()));
    for (const auto& change : std::initializer_list<std::function<void()>>{[this] { (void)workspace_.ReadCalls(); },
                                                                           [this] { workspace_.OptionsApplied(); },
                                                                           [this] {
                                                                               settings_.ProcVars = 0;
                                                                               workspace_.OptionsApplied();
                                                                           }}) {
        change();
        ASSERT_TRUE(workspace_.ShowAgain());
        EXPECT_EQ(CurrentPath(), "store.fill");
        EXPECT_EQ(Neighbours(), "main.main > store.save");
        EXPECT_EQ(workspace_.Tree().Selected()->Key(), "main.Public_Sub[]");
    }
}

TEST_F(Workspaces, ALocalStaysCurrentWithoutANode) {
    OpenAndRead({{"Main.bas", "Sub Main(a)\n  a = 1\nEnd Sub"}});
    ASSERT_TRUE(workspace_.Activate("main.main.a"));
    settings_.ProcVars = 0;
    workspace_.OptionsApplied();
    const auto shown = workspace_.ShowAgain();
    ASSERT_TRUE(shown);
    EXPECT_EQ(CurrentPath(), "main.main.a");
    EXPECT_EQ(shown->code.places.size(), 1U);
    EXPECT_EQ(workspace_.Tree().Selected()->Key(), "main.main");
}

TEST_F(Workspaces, CallsIntoAModuleAreMarked) {
    OpenAndRead({{"Main.bas", kMain}, {"Store.bas", kStore}});
    const auto places = [this](const Baum& tree, std::string_view key) {
        const auto change = workspace_.SelectCallsOfObject(*tree.Item(key), &tree == &workspace_.CalledBy());
        return workspace_.Code().ShownPath() + " " + std::to_string(change ? change->places.size() : 0);
    };
    ASSERT_TRUE(workspace_.Activate("store"));
    EXPECT_EQ(places(workspace_.CalledBy(), "main.main"), "main.main 2");
    EXPECT_EQ(places(workspace_.CalledBy(), "main"), "main.main 2") << "its declarations have none";
    EXPECT_EQ(workspace_.DependencyHoverText(*workspace_.CalledBy().Item("main.main"), true).back(), "2 , : 3");
    EXPECT_EQ(places(workspace_.Calls(), "store"), "store.fill 1");
    ASSERT_TRUE(workspace_.Activate("main.main"));
    EXPECT_EQ(places(workspace_.Calls(), "store"), "main.main 2");
    EXPECT_EQ(places(workspace_.Calls(), "store.save"), "main.main 1");
    workspace_.SetCheckBoxes(true);
    Check("store.save", true);
    Check("store.unused", true);
    EXPECT_EQ(places(workspace_.CalledBy(), "store.fill"), "store.fill 1") << "a neighbour of another one of the group";
}

TEST_F(Workspaces, TheWalkOverPlacesCrossesProcedures) {
    OpenAndRead(
        {{"Main.bas", "Sub Main()\n  Fill\n  Save\nEnd Sub\nSub Other()\n  Save\nEnd Sub"}, {"Store.bas", kStore}});
    ASSERT_TRUE(workspace_.Activate("main"));
    const auto shown = [this](const std::optional<CodePane::Change>& change) {
        return workspace_.Code().ShownPath() + " " + std::to_string(change ? change->currentPlace : 0) + " of " +
               std::to_string(change ? change->places.size() : 0);
    };
    // All places of a neighbour, one text after the other.
    EXPECT_EQ(shown(workspace_.SelectCallsOfObject(*workspace_.Calls().Item("store"), false)), "main.main 1 of 2");
    EXPECT_EQ(workspace_.Walk().Count(), 3);
    EXPECT_EQ(shown(workspace_.StepOn(+1)), "main.main 2 of 2");
    EXPECT_EQ(shown(workspace_.StepOn(+1)), "main.other 1 of 1");
    EXPECT_EQ(shown(workspace_.StepOn(+1)), "main.main 1 of 2");
    EXPECT_FALSE(workspace_.WalksReferences());
    // In the whole module they are all in one text.
    workspace_.ShowWholeModule(true, false);
    EXPECT_EQ(shown(workspace_.StepOn(-1)), "main 3 of 3");
    workspace_.ShowWholeModule(false, false);
    // References replace them, and keep the current object.
    ASSERT_TRUE(workspace_.Activate("store.save"));
    EXPECT_EQ(workspace_.Walk().Count(), 0);
    EXPECT_EQ(workspace_.ReferenceCount(), 3);
    workspace_.WalkReferences();
    EXPECT_EQ(shown(workspace_.StepOn(-1)), "store.fill 1 of 1");
    EXPECT_EQ(shown(workspace_.StepOn(+1)), "main.main 1 of 1");
    EXPECT_EQ(CurrentPath(), "store.save");
    // A click on a neighbour ends that walk; so do calls that are read again.
    EXPECT_EQ(shown(workspace_.SelectCallsOfObject(*workspace_.CalledBy().Item("main.other"), true)),
              "main.other 1 of 1");
    EXPECT_EQ(workspace_.Walk().Count(), 0);
    workspace_.WalkReferences();
    ASSERT_TRUE(workspace_.ReadCalls());
    EXPECT_FALSE(workspace_.StepOn(+1));
}

TEST_F(Workspaces, ANeighbourBelowAnotherShowsTheCallsOfThatOne) {
    OpenAndRead({{"Main.bas", kMain}, {"Store.bas", kStore}});
    ASSERT_TRUE(workspace_.Activate("store.save"));
    BaumNode& fill = *workspace_.CalledBy().Item("store.fill");
    workspace_.UnfoldNeighbour(fill, true);
    ASSERT_TRUE(fill.Child() && !fill.Child()->Next());
    const auto change = workspace_.SelectCallsOfObject(*fill.Child(), true);
    ASSERT_TRUE(change && change->places.size() == 1);
    EXPECT_EQ(workspace_.Code().Text().text.substr(static_cast<std::size_t>(change->places[0].start), 4), "Fill");
    EXPECT_EQ(workspace_.DependencyHoverText(*fill.Child(), true).back(), "1 , : 3");
    ASSERT_TRUE(workspace_.Activate(fill.Child()->Key()));
    EXPECT_EQ(CurrentPath(), "main.main");
}

TEST_F(Workspaces, DeadCodeIsFaintUntilTheCallsAreKnown) {
    Open({{"Main.bas", kMain}});
    ASSERT_TRUE(workspace_.Activate("main.main"));
    EXPECT_EQ(workspace_.Code().Text().shade, Shade::Faint);
    EXPECT_EQ(workspace_.ReferenceCount(), std::nullopt);
    EXPECT_EQ(workspace_.EdgesShown(false), std::nullopt);
    ASSERT_TRUE(workspace_.ReadCalls());
    workspace_.ShowAgain();
    EXPECT_EQ(workspace_.Code().Text().shade, Shade::Grey);
    EXPECT_EQ(workspace_.ReferenceCount(), 0);
    EXPECT_EQ(workspace_.EdgesShown(true), 0);
}

TEST_F(Workspaces, LocalsBelongToTheirAccessor) {
    OpenAndRead({{"Thing.cls",
                  "Property Get Size(i)\n  i = 1\nEnd Property\n"
                  "Property Let Size(i, v)\n  i = v\nEnd Property"}});
    EXPECT_TRUE(workspace_.Tree().Exist("thing.size [get].i"));
    ASSERT_TRUE(workspace_.Activate("thing.size [let]"));
    const auto inBody = static_cast<Pos>(workspace_.Code().Text().text.find("i = v"));
    const std::string key = workspace_.KeyClicked(inBody, 0);
    EXPECT_EQ(key, "thing.size [let].i");
    const auto shown = workspace_.Activate(key);
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->path, "Thing.Size.i   variant") << "the path does not name the accessor";
    EXPECT_EQ(workspace_.Code().ShownPath(), "thing.size [let]");
    EXPECT_EQ(workspace_.Tree().Selected()->Parent()->Key(), "thing.size [let]");
}

TEST_F(Workspaces, AnEmptyTreeSaysWhy) {
    Open({{"Main.bas", kMain}, {"Store.bas", kStore}});
    EXPECT_EQ(workspace_.WhyEmpty(false), Text::EmptyCalledByTree);
    ASSERT_TRUE(workspace_.Activate("main.main"));
    EXPECT_EQ(workspace_.WhyEmpty(false), Text::ReadCallsFirst);
    ASSERT_TRUE(workspace_.ReadCalls());
    EXPECT_EQ(workspace_.WhyEmpty(false), Text::NoCallers);
    workspace_.SetMayBe(true, true);
    EXPECT_EQ(workspace_.WhyEmpty(true), Text::NoPossibleCalls);
    workspace_.SetCheckBoxes(true);
    Check("store", true);
    EXPECT_EQ(workspace_.WhyEmpty(true), Text::NothingBesidesChecked);
}

TEST_F(Workspaces, TheStoredBitsHoldFromTheFirstProject) {
    settings_.Win32 = 0;
    OpenAndRead({{"Main.bas", "#If Win32 Then\nSub Wide()\nEnd Sub\n#Else\nSub Narrow()\nEnd Sub\n#End If"}});
    EXPECT_TRUE(workspace_.Tree().Exist("main.narrow"));
    EXPECT_FALSE(workspace_.Tree().Exist("main.wide"));
}

TEST_F(Workspaces, RefreshFollowsTheProjectFileAndKeepsThePlaces) {
    using enum Workspace::Refreshed::Outcome;
    OpenAndRead({{"Reference.bas", "Sub Go()\r\nEnd Sub\r\n"}});
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
    Open({{"Reference.bas", "Sub Go()\r\nEnd Sub\r\n"}});
    const std::string project = files_.Bytes("App.vbp");
    const std::string module = files_.Bytes("Reference.bas");
    files_.Remove("App.vbp");
    files_.Remove("Reference.bas");
    EXPECT_EQ(workspace_.Refresh().outcome, NoProject);
    EXPECT_TRUE(workspace_.Tree().Item("reference.go")) << "what was read stays";
    {
        // Other libraries are read with the whole project, which asks about files that are missing.
        files_.WriteWhole("App.vbp", project + "Reference=*\\G{1}#1.0#0#C:\\w\\x.tlb#X\r\n");
        const ScriptedQuestions cancel{true};
        EXPECT_EQ(workspace_.Refresh().outcome, Cancelled);
        EXPECT_TRUE(workspace_.Tree().Item("reference.go"));
    }
    files_.WriteWhole("App.vbp", project);
    files_.WriteWhole("Reference.bas", module);
    EXPECT_EQ(workspace_.Refresh().outcome, Done);
    files_.Remove("Reference.bas");
    const Workspace::Refreshed refreshed = workspace_.Refresh();
    EXPECT_EQ(refreshed.outcome, NothingRead);
    EXPECT_EQ(refreshed.changes.unreadable, 1);
    EXPECT_TRUE(workspace_.Tree().Item("reference.go"));
    EXPECT_EQ(workspace_.Refresh().outcome, NothingChanged);
}

TEST_F(Workspaces, LineOfAModuleLeadsToItsProcedure) {
    Open({{"Reference.bas", "Dim a\r\nSub Go()\r\n  a = 1\r\nEnd Sub\r\n"}});
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
