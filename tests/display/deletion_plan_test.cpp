#include "display/deletion_plan.h"

#include "display/local_uses.h"
#include "display/tree_checks.h"
#include "support/workspace_test.h"

namespace {

using PlanningDeletions = ProgramState;

std::vector<DeletionRow> RowsFor(std::initializer_list<std::string_view> paths) {
    std::vector<const CodeObject*> objects;
    for (const std::string_view path : paths)
        objects.push_back(&ObjectAt(path));
    return DeletionRows(*gProjekt, LocalUses(), objects);
}

std::string PathsOf(const std::vector<DeletionRow>& rows) {
    return Joined(rows, " ", [](const DeletionRow& row) { return row.path; });
}

constexpr std::string_view kModule = R"(
    Private Type Used
        x As Long
    End Type
    Private Type OnlyByDead
        x As Long
    End Type
    Private living As Used
    Private dead As OnlyByDead, other As Long
    Public Sub Main()
        Called living
    End Sub
    Public Sub Called(v)
        v.Called
        Called v
    End Sub
    Public Sub Unused()
        dim n
    End Sub
)";

class DeletingInWorkspace : public WorkspaceTest {
protected:
    DeletingInWorkspace() {
        Save("M.bas", kModule);
        files_.WriteWhole("App.vbp", "Type=Exe\r\nStartup=\"Sub Main\"\r\nModule=M; M.bas\r\n");
        EXPECT_TRUE(workspace_.Open("App.vbp") && workspace_.ReadCalls());
    }
    void ChangeFile() { files_.WriteWhole("M.bas", files_.Bytes("M.bas") + "Public Sub Added()\r\nEnd Sub\r\n"); }
};

}  // namespace

TEST_F(PlanningDeletions, CallersThatStayAreNamedOnce) {
    Analyse(ReadProject({{"M.bas", std::string(kModule)}, {"C.cls", "Sub Called()\nEnd Sub\n"}}));
    const DeletionRow row = RowsFor({"m.called"}).front();
    EXPECT_THAT(row.certain, ElementsAre("M.Main"));
    EXPECT_EQ(row.lines, 4);
    EXPECT_THAT(RowsFor({"c.called"}).front().possible, ElementsAre("M.Called"));
    for (const DeletionRow& together : RowsFor({"m.called", "m.main"}))
        EXPECT_THAT(together.certain, IsEmpty()) << together.path;
}

TEST_F(PlanningDeletions, AControlNamesThoseInIt) {
    ReadProject({{"F.frm", "Begin VB.Form F\n Begin VB.Frame fra\n  Begin VB.TextBox txt\n  End\n End\nEnd\nDim a\n"}});
    EXPECT_THAT(RowsFor({"f.fra"}).front().inside, ElementsAre("txt"));
    EXPECT_THAT(RowsFor({"f.txt"}).front().inside, IsEmpty());
}

TEST_F(PlanningDeletions, WhatStaysKeepsAllThatItLeadsTo) {
    const auto type = [](const std::string& name, const std::string& member) {
        return "Public Type " + name + "\nx As " + member + "\nEnd Type\n";
    };
    ReadProject({{"A.bas", "Public v As First\n"},
                 {"B.bas", type("Third", "Long") + type("Second", "Third") + type("First", "Second") +
                               type("Inner", "Long") + type("Outer", "Inner")}});
    Analyse();
    const auto dead = [](std::initializer_list<std::string_view> modules) {
        CheckedObjects checked;
        for (const std::string_view modul : modules)
            checked.Add(ObjectAt(modul));
        std::string paths;
        for (const CodeObject* object : DeadAmong(*gProjekt, checked))
            paths.append(paths.empty() ? "" : " ").append(object->CodePathOrg());
        return paths;
    };
    EXPECT_EQ(dead({"b"}), "B.Inner [Type] B.Outer [Type]");
    EXPECT_EQ(dead({"a", "b"}), "A.v B.Third [Type] B.Second [Type] B.First [Type] B.Inner [Type] B.Outer [Type]");
}

TEST_F(DeletingInWorkspace, TheDeadGoWithWhatOnlyTheyName) {
    workspace_.Activate("m");
    EXPECT_EQ(PathsOf(workspace_.DeadRows()), "M.OnlyByDead [Type] M.dead M.other M.Unused");
    EXPECT_EQ(workspace_.Delete(workspace_.DeadRows()).objects, 4);
    EXPECT_THAT(workspace_.DeadRows(), IsEmpty());
    EXPECT_EQ(workspace_.Tree().Item("m.unused"), nullptr);
    EXPECT_EQ(gProjekt->GetModuleFromCodePath("m")->text->ModulTextOrg().find("dead"), std::string_view::npos);
    EXPECT_EQ(workspace_.Now(false).hasUnsaved, true);
}

TEST_F(DeletingInWorkspace, TheWholeModuleIsShownWhereTheObjectStood) {
    workspace_.Activate("m.unused");
    const std::vector<DeletionRow> rows = workspace_.RowsToDelete("m.unused");
    workspace_.Delete(rows);
    const auto shown = workspace_.ShowDeleted(workspace_.Deleted().All().back().nr);
    ASSERT_TRUE(shown && shown->code.select);
    EXPECT_TRUE(workspace_.Code().IsWhole());
    EXPECT_EQ(workspace_.Current().CurObject, gProjekt->GetModuleFromCodePath("m"));
    EXPECT_EQ(shown->code.select->start, Len(workspace_.Code().Text().text));
    EXPECT_TRUE(workspace_.UndoDeletions({workspace_.Deleted().All().back().nr}));
    EXPECT_NE(workspace_.Tree().Item("m.unused"), nullptr);
}

TEST_F(DeletingInWorkspace, EdgesAreLeftAloneBeforeTheyAreMadeAgain) {
    const auto check = [this](const auto& operation) {
        edgesGone_ = 0;
        edgesGoneAtFirstRun_.reset();
        operation();
        EXPECT_EQ(edgesGoneAtFirstRun_, 1);
    };
    check([this] { workspace_.Delete(workspace_.RowsToDelete("m.unused")); });
    check([this] { workspace_.UndoDeletions({workspace_.Deleted().All().back().nr}); });
    check([this] {
        ChangeFile();
        workspace_.Refresh();
    });
    check([this] { workspace_.ReadCalls(); });
}

TEST_F(DeletingInWorkspace, RefreshingAsksBeforeItBringsTheTextBack) {
    workspace_.Delete(workspace_.RowsToDelete("m.unused"));
    EXPECT_EQ(workspace_.Refresh().outcome, Workspace::Refreshed::Outcome::NothingChanged);
    ChangeFile();
    workspace_.Refresh();
    EXPECT_THAT(asked_, ElementsAre("M.bas"));
    EXPECT_EQ(gProjekt->GetObjectFromCodePath("m.unused"), nullptr);
    EXPECT_EQ(gProjekt->GetObjectFromCodePath("m.added"), nullptr);
    files_.WriteWhole("App.vbp", "Type=Exe\r\nName=\"New\"\r\nModule=M; M.bas\r\n");
    workspace_.Refresh();
    EXPECT_EQ(gProjekt->MyName, "New");
    EXPECT_EQ(gProjekt->GetObjectFromCodePath("m.unused"), nullptr);
    mayReadAgain_ = true;
    workspace_.Refresh();
    EXPECT_NE(gProjekt->GetObjectFromCodePath("m.unused"), nullptr);
    EXPECT_NE(gProjekt->GetObjectFromCodePath("m.added"), nullptr);
    EXPECT_THAT(workspace_.Deleted().All(), IsEmpty());
}
