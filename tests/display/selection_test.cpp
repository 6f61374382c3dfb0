#include "display/selection.h"

#include "support/code_dump.h"
#include "support/project_test.h"

namespace {

constexpr std::string_view kModule = R"(
    Public v As Long
    Private Type T
        m As T2
    End Type
    Private Type T2
        n As Long
    End Type
    Private Enum E
        One
    End Enum
    Declare Sub Api Lib "k" ()
    Sub S(a)
        Dim x
        x = v: x = v
        Api
        Other x
    End Sub
    Sub Other(b)
        a.Member
    End Sub
    Property Get P() As Long
        P = One
    End Property
)";

class Selecting : public ProgramState {
protected:
    Selection& Select(std::string_view key) {
        const NodeKind kind = !key.ends_with("[]")                      ? NodeKind::Object
                              : key.find('.') == std::string_view::npos ? NodeKind::Root
                                                                        : NodeKind::Group;
        Set_GlobalObjects_fromNode(*gProjekt, selection, NodeId(kind, key));
        return selection;
    }
    CodePane::Change Show(std::string_view key) { return pane.Show_Structure(*gProjekt, Select(key)); }

    // The current objects that are set: "obj=form1.x mod=form1 proc=".
    static std::string Dump(const Selection& selection) {
        std::string dump;
        const auto add = [&dump](const char* name, const CodeObject* object) {
            if (object)
                dump.append(dump.empty() ? "" : " ").append(name).append("=").append(object->CodePath());
        };
        add("obj", selection.CurObject);
        add("mod", selection.CurModule);
        add("proc", selection.CurProc);
        add("var", selection.CurVar);
        add("type", selection.CurType);
        add("enum", selection.CurEnum);
        add("control", selection.CurControl);
        add("lib", selection.CurLib);
        add("called", selection.CalledObject);
        return dump;
    }
    std::string Part(const CodeRange& range) const {
        return std::string(Mid(pane.Text().text, range.start + 1, range.length));
    }
    // The changes: "text m.s select S places 12:x(local)", with the line of the file and the name of each place.
    std::string Dump(const CodePane::Change& change) const {
        std::string dump = change.newText ? "text " + pane.ShownPath() : std::string();
        if (change.select)
            dump.append(" select ").append(Part(*change.select));
        for (const CodeSpan& place : change.places) {
            CodeText one = pane.Text();
            one.spans = {place};
            dump.append(" ").append(DumpCode(one));
        }
        return dump;
    }
    static std::string PathOf(const CodeObject* object) { return object ? object->CodePath() : "-"; }
    // Reads the module of the tests and a class.
    static void ReadBoth() {
        Analyse(ReadProject({{"M.bas", std::string(kModule)}, {"C.cls", "Public Sub Member(): End Sub"}}));
    }

    Selection selection;
    CodePane pane;
};

}  // namespace

TEST_F(Selecting, NodeDecidesAllCurrentObjects) {
    ReadModule(kModule, "M.bas");
    using Case = std::pair<const char*, const char*>;
    for (const auto& [key, objects] :
         {Case{"m", "obj=m mod=m"}, Case{"M.S", "obj=m.s mod=m proc=m.s"},
          Case{"m.s.x", "obj=m.s.x mod=m proc=m.s var=m.s.x"}, Case{"m.v", "obj=m.v mod=m var=m.v"},
          Case{"m.t [type]", "obj=m.t [type] mod=m type=m.t [type]"}, Case{"m.t.m", "obj=m.t.m mod=m var=m.t.m"},
          Case{"m.e [enum]", "obj=m.e [enum] mod=m enum=m.e [enum]"}, Case{"m.Private_Sub[]", "obj=m mod=m"},
          Case{"m.gone", "mod=m"}, Case{"module[]", ""}, Case{"", ""}})
        EXPECT_EQ(Dump(Select(key)), objects) << key;
    SetCalledObject(*gProjekt, selection, "m.s");
    EXPECT_EQ(Dump(Select("m.v")), "obj=m.v mod=m var=m.v called=m.s");
}

TEST_F(Selecting, DependenciesAreNeededForAnotherObjectOnly) {
    ReadModule(kModule, "M.bas");
    const LastCodePaths none;
    EXPECT_TRUE(NeedsDependencies(Select("m.s"), none));
    LastCodePaths last = Set_LastObjects(selection);
    EXPECT_EQ(last, (LastCodePaths{"m.s", "m", "m.s", "", "", "", ""}));
    EXPECT_FALSE(NeedsDependencies(Select("m.s"), last));
    EXPECT_FALSE(NeedsDependencies(Select("m.s.x"), last));  // an argument counts as its procedure
    EXPECT_TRUE(NeedsDependencies(Select("m.v"), last));
    last = Set_LastObjects(selection);
    EXPECT_TRUE(NeedsDependencies(Select("m.s.x"), last));
    last = Set_LastObjects(selection);
    EXPECT_FALSE(NeedsDependencies(Select("m.s.a"), last));
    EXPECT_FALSE(NeedsDependencies(Select("m.s"), last));
    EXPECT_TRUE(NeedsDependencies(Select("m.other.b"), last));
}

TEST_F(Selecting, CodeFollowsTheObjectAndIsMadeOnce) {
    Analyse(ReadModule(kModule, "M.bas"));
    EXPECT_EQ(Dump(Show("m")), "text m");
    EXPECT_EQ(Dump(Show("m")), "");
    EXPECT_EQ(Dump(Show("m.t [type]")), " select T");
    EXPECT_EQ(Dump(Show("m.api")), " select Api");
    EXPECT_EQ(Dump(Show("m.s")), "text m.s select S");
    EXPECT_EQ(Dump(Show("m.s.x")), " select x local:x local:x local:x");
    EXPECT_EQ(Dump(Show("m.other")), "text m.other select Other");
    EXPECT_EQ(Dump(Show("m.s.a")), "text m.s select a");
    EXPECT_EQ(Dump(Show("m.t.m")), "text m select m");
    pane.Forget();
    EXPECT_EQ(Dump(Show("m.v")), "text m select v");
    EXPECT_EQ(Dump(Show("m.gone")), "");  // the module exists
    EXPECT_EQ(Dump(Show("gone")), "text ");
    EXPECT_EQ(pane.Text().text, "");
}

TEST_F(Selecting, PlacesOfACallAreInTheTextOfTheCaller) {
    ReadBoth();
    const auto places = [this](std::string_view object, std::string_view from, CallType type) {
        return Dump(pane.SelectCallsOfObject(*gProjekt, ObjectAt(object), ProcedureAt(from), type));
    };
    EXPECT_EQ(places("m.v", "m.s", CallType::Really), "text m.s callIn:v callIn:v");
    EXPECT_EQ(places("m.other", "m.s", CallType::Really), " callIn:Other");
    EXPECT_EQ(places("m.other", "m.s", CallType::MayBe), "");
    EXPECT_EQ(places("c.member", "m.other", CallType::MayBe), "text m.other maybe:Member");
    EXPECT_EQ(places("m.e [enum]", "m.p [get]", CallType::Really), "text m.p [get] callIn:One");
    // The name of a form refers to its implicit instance.
    Analyse(
        ReadProject({{"M.bas", "Sub S()\n  F.Show\n  Dim g As New F\nEnd Sub\n"}, {"F.frm", "Sub X()\nEnd Sub\n"}}));
    pane.Forget();
    EXPECT_EQ(places("f", "m.s", CallType::Really), "text m.s callOut:F callOut:F");
}

TEST_F(Selecting, PositionInAProcedureLeadsToWhatIsNamedThere) {
    const Marked vb = Vb(R"(
        Public v As Long
        Sub {{S}}(a)
            Dim {{x}}
            {{O}}the{{r}} {{v}}
            a.{{M}}ember{{}}
        End Sub
        Sub Other(b)
        End Sub
    )");
    Analyse(ReadProject({{"M.bas", vb.text}, {"C.cls", "Public Sub Member()\nEnd Sub\n"}}));
    clsProzedur& prozedur = ProcedureAt("m.s");
    LocalUses locals;
    (void)ShowMe(prozedur, locals);
    const auto hit = [&](Pos pos) {
        return PathOf(SelChanged(prozedur, *locals.Known(prozedur), pos - prozedur.DeclareStart));
    };
    EXPECT_EQ(hit(vb.pos(1)), "-");
    EXPECT_EQ(hit(vb.pos(2)), "m.s.x");  // the declaration itself
    EXPECT_EQ(hit(vb.pos(3)), "m.other");
    EXPECT_EQ(hit(vb.pos(4)), "m.other");
    EXPECT_EQ(hit(vb.pos(4) + 1), "-");
    EXPECT_EQ(hit(vb.pos(5)), "m.v");
    EXPECT_EQ(hit(vb.pos(6)), "-");  // a possible call has no certain target
}

TEST_F(Selecting, ShownTextDecidesWhatAClickAndTheHoverMean) {
    ReadBoth();
    // The object at the first occurrence of a word in the shown text, for a click and for the hover text.
    const auto at = [this](std::string_view word, Pos selLength = 0) {
        const auto pos = static_cast<Pos>(pane.Text().text.find(word));
        return PathOf(pane.ObjectClicked(*gProjekt, selection, pos, selLength)) + " " +
               PathOf(pane.ObjectAt(*gProjekt, pos));
    };
    EXPECT_EQ(at(""), "- -");
    (void)Show("m.api");  // in the declarations, though it is the current procedure
    EXPECT_EQ(at("Api"), "m.api m.api");
    EXPECT_EQ(at("m As T2"), "m.t [type] m.t.m");
    EXPECT_EQ(at("T2"), "m.t2 [type] m.t2 [type]");
    EXPECT_EQ(at("One"), "m.e [enum] m.e.one");
    EXPECT_EQ(at("v As"), "m.v m.v");
    (void)Show("m.t [type]");
    EXPECT_EQ(at("m As T2"), "- m.t.m");  // the pane does not change
    (void)Show("m.other");
    EXPECT_EQ(at("Member"), "- c.member");
    EXPECT_EQ(at("Other"), "- m.other");
    (void)Show("m.s");
    EXPECT_EQ(at("Other"), "m.other m.other");
    EXPECT_EQ(at("Other", 3), "- m.other");
}

TEST_F(Selecting, PathLineEndsWithAccessKindOrType) {
    ReadModule(kModule, "M.bas");
    EXPECT_EQ(CodePath_Anzeigen(Selection()), "");
    EXPECT_EQ(CodePath_Anzeigen(Select("m")), "M   p/M.bas");
    EXPECT_EQ(CodePath_Anzeigen(Select("m.s")), "M.S   public sub");
    EXPECT_EQ(CodePath_Anzeigen(Select("m.p [get]")), "M.P [Get]   public property");
    EXPECT_EQ(CodePath_Anzeigen(Select("m.t [type]")), "M.T [Type]   private type");
    EXPECT_EQ(CodePath_Anzeigen(Select("m.v")), "M.v   long");
    ReadModule("VERSION 5.00\nBegin VB.Form F\n  Begin VB.TextBox txt\n  End\nEnd\nPrivate a As Long\n", "F.frm");
    EXPECT_EQ(Dump(Show("f.txt")), "text f");  // its name does not occur in the code
    EXPECT_EQ(Dump(selection), "obj=f.txt mod=f control=f.txt");
    EXPECT_EQ(CodePath_Anzeigen(selection), "F.txt   vb.textbox");
}

TEST(Navigation, GoesBackAndForwardAndDiscardsTheEntriesAhead) {
    NavigationList list;
    EXPECT_EQ(list.NavCodeKey_Prev(), nullptr);
    list.AddNavCodeKey("a");
    list.AddNavCodeKey("a");
    EXPECT_FALSE(list.NavPrevEnabled() || list.NavNextEnabled());
    list.AddNavCodeKey("b");
    list.NoteSelection(7, 2);
    list.AddNavCodeKey("c");
    EXPECT_TRUE(list.NavPrevEnabled() && !list.NavNextEnabled());
    const NavigationList::Record* record = list.NavCodeKey_Prev();
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(std::tuple(record->node.key, record->SelStart, record->SelLength), std::tuple("b", 7, 2));
    list.AddNavCodeKey("b");  // as the activation of an object does
    EXPECT_TRUE(list.NavNextEnabled());
    EXPECT_EQ(list.NavCodeKey_Next()->node.key, "c");
    EXPECT_EQ(list.NavCodeKey_Next(), nullptr);
    (void)list.NavCodeKey_Prev();
    list.AddNavCodeKey("d");
    EXPECT_FALSE(list.NavNextEnabled());
    EXPECT_EQ(list.NavCodeKey_Prev()->node.key, "b");
    EXPECT_EQ(list.NavCodeKey_Prev()->node.key, "a");
    EXPECT_FALSE(list.NavPrevEnabled());
}
