// The comments around the code of a procedure, and the whole module.
#include <algorithm>

#include "display/selection.h"
#include "display/shown_text.h"
#include "support/code_dump.h"
#include "support/golden.h"
#include "support/project_test.h"

namespace {

class CodeWithComments : public ProgramState {
protected:
    // Reads one module, its calls, and shows the object at `path`.
    void Show(std::string_view snippet, const std::string& path, std::string_view file = "M.bas") {
        Analyse(ReadModule(snippet, file));
        ShowObject(path);
    }
    void ShowObject(const std::string& path) {
        Set_GlobalObjects_fromNode(*gProjekt, selection_, path);
        change_ = pane_.Show_Structure(*gProjekt, selection_);
    }
    [[nodiscard]] std::string Text() const { return OnOneLine(pane_.Text().text); }
    // Where a click on that word of the shown text leads.
    [[nodiscard]] std::string Clicked(std::string_view word) const {
        const auto at = static_cast<Pos>(pane_.Text().text.find(word));
        const CodeObject* object = pane_.ObjectClicked(*gProjekt, selection_, at, 0);
        return object ? object->CodePath() : "-";
    }
    [[nodiscard]] std::string Selected() const {
        return change_.select ? pane_.Text().text.substr(static_cast<std::size_t>(change_.select->start),
                                                         static_cast<std::size_t>(change_.select->length))
                              : "-";
    }

    Selection selection_;
    CodePane pane_;
    CodePane::Change change_;
};

TEST_F(CodeWithComments, CommentLinesDirectlyAboveBeginTheCode) {
    const std::string sub = "Sub S()\r\nEnd Sub\r\n";
    for (const auto& [above, shown] : std::initializer_list<std::pair<std::string, std::string>>{
             {"' a\r\n  ' b\r\nRem c\r\n", "' a|  ' b|Rem c|"},
             {"' far\r\n\r\n' near\r\n", "' near|"},
             {"' goes on _\r\nto here\r\n", "' goes on _|to here|"},
             {"Dim a ' says what a is\r\n", ""},
             {"#If Win32 Then\r\n", ""},
             {"Remove = 1\r\n", ""},
             {"", ""}}) {
        SCOPED_TRACE(above);
        const std::string text = above + sub;
        const Pos start = InStr(1, text, "Sub");
        EXPECT_EQ(OnOneLine(text.substr(static_cast<std::size_t>(CommentAbove(text, start)) - 1)),
                  shown + OnOneLine(sub));
    }
    const std::string_view together = "' not its own\r\nEnd Sub: Sub T()\r\nEnd Sub\r\n";
    EXPECT_EQ(CommentAbove(together, 25), 25);
    EXPECT_EQ(CommentAbove("' own\r\nFriend Sub T()", 15), 1);
}

TEST_F(CodeWithComments, ColoursAndClicksStayWhereTheNamesAre) {
    Show("Sub Other()\nEnd Sub\n' calls Other with a\nSub S(a)\n  Other\n  a = 1\nEnd Sub", "m.s");
    EXPECT_EQ(DumpCode(pane_.Text()), "comment:' calls Other with a local:a callIn:Other local:a");
    EXPECT_EQ(Selected(), "S");
    EXPECT_EQ(Clicked("Other\r\n"), "m.other");
    EXPECT_EQ(Clicked("Other with"), "-");  // within the comment
    EXPECT_EQ(Clicked("a = 1"), "m.s.a");
    EXPECT_EQ(pane_.Text().firstLine, 3);
    const auto head = static_cast<Pos>(pane_.Text().text.find("Sub S"));
    const PropertyRows rows = Anzeigen_TextPos(pane_.Text(), head, 0);
    const Pos declared = ProcedureAt("m.s").DeclareStart;
    EXPECT_EQ(rows[0].value.bytes, "4");
    EXPECT_EQ(rows[1].value.bytes, "0 (" + std::to_string(declared) + ")");
}

TEST_F(CodeWithComments, WholeModuleShowsEverythingBehindItsHeader) {
    const std::string header = "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1\r\nEND\r\nAttribute VB_Name = \"C\"\r\n";
    const std::string code =
        "' what the class is for\r\nOption Explicit\r\nDim n\r\n\r\nSub A()\r\n  n = 1: B\r\nEnd Sub\r\n' last\r\n"
        "Sub B()\r\nEnd Sub\r\n";
    Analyse(ReadModuleAsItIs(header + code, "C.cls"));
    pane_.ShowWhole(true, false);
    ShowObject("c.a");
    EXPECT_EQ(pane_.Text().text, code);
    EXPECT_EQ(pane_.HeaderLines(*gProjekt), 5);
    EXPECT_EQ(pane_.Text().firstLine, 6);
    EXPECT_EQ(Selected(), "A");
    EXPECT_EQ(DumpCode(pane_.Text()), "comment:' what the class is for private:n callIn:n callIn:B comment:' last");
    EXPECT_EQ(Clicked("n\r\n\r"), "c.n");
    EXPECT_EQ(Clicked("B\r\n"), "c.b");
    EXPECT_EQ(Clicked("last"), "-");
    ShowObject("c.b");
    EXPECT_FALSE(change_.newText);
    EXPECT_EQ(Selected(), "B");

    pane_.ShowWhole(true, true);
    ShowObject("c.b");
    EXPECT_EQ(pane_.Text().text, header + code);
    EXPECT_EQ(Clicked("B\r\nEnd"), "c.b");
    pane_.ShowWhole(false, true);
    ShowObject("c.b");
    EXPECT_EQ(Text(), "' last|Sub B()|End Sub");
    EXPECT_EQ(pane_.HeaderLines(*gProjekt), 0);
}

}  // namespace
