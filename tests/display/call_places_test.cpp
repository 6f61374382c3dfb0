#include "display/call_places.h"

#include "display/baum.h"
#include "display/dependency_trees.h"
#include "display/tree_checks.h"
#include "findings/object_counts.h"
#include "support/project_test.h"

namespace {

class CallPlaces : public ProgramState {
protected:
    // One line per row: "path line kind [member] text", the name of the target in brackets.
    static std::string Rows(const CodeObject& object) {
        LocalUses locals;
        if (object.Class() == ObjectClass::Variable)
            if (const clsProzedur* prozedur = static_cast<const clsVariable&>(object).Prozedur)
                locals.Look(*prozedur);
        std::string text;
        for (ReferenceRow& row : RowsOf(ReferencesTo(*gProjekt, locals, object), object)) {
            row.text.insert(row.nameStart + row.nameLength, "]").insert(row.nameStart, "[");
            const std::string_view kind = row.kind == Text::Really  ? "really"
                                          : row.kind == Text::MayBe ? "maybe"
                                                                    : "use";
            text.append(row.key).append(" ").append(std::to_string(row.line)).append(" ").append(kind);
            text.append(row.member.empty() ? "" : " " + row.member).append(": ").append(row.text).append("\n");
        }
        return text;
    }
};

constexpr const char* kStore = R"(
    Public Type Pair
        First As Long
    End Type
    Public Enum Kind
        kA
    End Enum
    Public Sub Save(ByVal n)
        n = n + 1: Save n
    End Sub
)";
constexpr const char* kDesk = R"(
    Private mPair As Pair, mBox As cBox
    Private Sub Form_Load()
        Dim late
        late.Go
        Save _
            1
        Save kA
        Save 2
        mPair.First = kA
        mBox.Rate = 1
    End Sub
)";

// The project names the form first; modules come first in every list.
void ReadBoth() {
    Analyse(ReadProject({{"frmDesk.frm", kDesk},
                         {"mStore.bas", kStore},
                         {"cBox.cls", "Sub Go()\nEnd Sub\nProperty Let Rate(v)\nEnd Property"}}));
}

TEST_F(CallPlaces, AreListedInTheOrderOfTheModulesAndTheirCode) {
    ReadBoth();
    EXPECT_EQ(Rows(ObjectAt("mstore.save")),
              "mstore.save 8 really: n = n + 1: [Save] n\n"
              "frmdesk.form_load 5 really: [Save] _\n"
              "frmdesk.form_load 7 really: [Save] kA\n"
              "frmdesk.form_load 8 really: [Save] 2\n");
    EXPECT_EQ(Rows(ObjectAt("cbox.go")), "frmdesk.form_load 4 maybe: late.[Go]\n");
    EXPECT_EQ(Rows(ObjectAt("mstore.pair [type]")),
              "frmdesk 1 use: Private mPair As [Pair], mBox As cBox\n"
              "frmdesk.form_load 9 really: mPair.[First] = kA\n");
    EXPECT_EQ(Rows(*ProcedureAt("mstore.save").MyVars.Item("n")),
              "mstore.save 8 really: [n] = n + 1: Save n\n"
              "mstore.save 8 really: n = [n] + 1: Save n\n"
              "mstore.save 8 really: n = n + 1: Save [n]\n");
    // The member of an enumeration belongs to it and to the module, and counts once.
    EXPECT_EQ(Rows(ObjectAt("mstore.kind [enum]")), "frmdesk.form_load 9 really: mPair.First = [kA]\n");
    EXPECT_EQ(ReferencesTo(*gProjekt, {}, ModuleOf("mstore")).size(), 7U);
    EXPECT_EQ(Rows(ModuleOf("cbox")),
              "frmdesk 1 use: Private mPair As Pair, mBox As [cBox]\n"
              "frmdesk.form_load 4 maybe: late.[Go]\n"
              "frmdesk.form_load 10 really Rate [Let]: mBox.[Rate] = 1\n");
    EXPECT_EQ(Rows(ObjectAt("frmdesk.form_load")), "");
}

TEST_F(CallPlaces, CaptionsCountTheEdgesOfTheProject) {
    ReadBoth();
    const CallCounts counts = CountCalls(*gProjekt);
    int shown = 0;
    for (const clsModul* modul : gProjekt->AllModules())
        for (const bool mayBe : {false, true}) {
            Baum tree;
            const int callers = Show_Dependencies_AllCalledBy(*gProjekt, {}, modul, tree, mayBe);
            shown += callers;
            int listed = 0;
            for (const CallPlace& place : ReferencesTo(*gProjekt, {}, *modul))
                listed += (place.type == CallType::MayBe) == mayBe;
            EXPECT_EQ(callers, listed) << modul->MyName();
        }
    EXPECT_EQ(shown, counts.really + counts.mayBe + counts.uses);
    // What the check boxes leave out is not counted either.
    CheckedObjects checked;
    checked.Add(ObjectAt("frmdesk.form_load"));
    Baum tree;
    EXPECT_EQ(Show_Dependencies_AllCalledBy(*gProjekt, checked, &ObjectAt("mstore.save"), tree, false), 1);
}

TEST(PlaceWalks, GoRoundFromBothEnds) {
    PlaceWalk walk(std::vector<CallPlace>(3));
    EXPECT_EQ(walk.At(), -1);
    walk.Step(-1);
    EXPECT_EQ(walk.At(), 2);
    walk.Step(+1);
    EXPECT_EQ(walk.At(), 0);
    EXPECT_FALSE(walk.GoTo(3));
    EXPECT_EQ(walk.At(), 0);
    PlaceWalk none;
    none.Step(+1);
    EXPECT_EQ(none.At(), -1);
}

}  // namespace
