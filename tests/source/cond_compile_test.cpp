#include "source/cond_compile.h"

#include "support/module_dumps.h"
#include "support/project_test.h"

namespace {

// Expects hidden ranges; each goes from a {{ to the CR after the line that ends in }}.
void ExpectHidden(const char* snippet, const std::vector<CondConstant>& projectConstants = {}) {
    SCOPED_TRACE(snippet);
    Marked vb = Vb(snippet);
    for (PosRange& range : vb.ranges)
        ++range.second;
    EXPECT_EQ(HiddenRanges(ModuleText(vb.text), projectConstants), vb.ranges);
}

// True if the code of `#If expression Then` is compiled.
bool IsCompiled(const std::string& expression, const std::vector<CondConstant>& projectConstants = {}) {
    const Marked vb = Vb("#If " + expression + " Then\n{{x}}\n#End If");
    const auto hidden = HiddenRanges(ModuleText(vb.text), projectConstants);
    return !hidden.empty() && hidden.front().second < vb.pos();
}

TEST(CondCompile, OnlyTheCodeOfTheFirstTruePartIsSeen) {
    ExpectHidden("{{#If Win32 Then}}\na\n{{#Else\nb\n#End If}}\nc");
    ExpectHidden("first\n{{#If 0 Then\na\n#ElseIf 0 Then\nb\n#End If}}\nlast");
    ExpectHidden("{{#If 0 Then\na\n#ElseIf 1 Then}}\nb\n{{#ElseIf Win32 Then\nc\n#Else\nd\n#End If}}");
    ExpectHidden(
        "{{#If Win32 Then}}\n{{#If 0 Then\na\n#Else}}\nb\n{{#End If}}\nc\n"
        "{{#Else\n#If 1 Then\nd\n#End If\n#End If}}");
    ExpectHidden(
        "{{#If 0 Then\n#If Win32 Then\na\n#ElseIf 1 Then\n#Else\nb\n#End If\n#Else}}\nc\n"
        "{{#If 1 Then}}\nd\n{{#End If}}\n{{#End If}}");
}

TEST(CondCompile, DirectiveIsTheFirstThingInItsLogicalLine) {
    ExpectHidden("first\n  {{#If 0 Then\n  a\n  #End If}}");
    ExpectHidden("{{#If 1 = _\n  0 Then ' note\na\n#End If}}");
    ExpectHidden("x = 5#\nPrint #1, a: #If 0 Then\nb");
    ExpectHidden("' #If 0 Then\na\nx = \"#If 0 Then\"");
    ExpectHidden("a _\n#If 0 Then\nb");
}

TEST(CondCompile, IncompleteBlocksHideOnlyTheirDirectives) {
    ExpectHidden("first\n{{#If 0 Then}}\nb");
    ExpectHidden("first\n{{#Else}}\nb");
    ExpectHidden("first\n#End If\nb");
    ExpectHidden("{{#If Win32 Then}}\na\n{{#End If}}\nb\n{{#If 0 Then}}\nc");
}

TEST(CondCompile, ExpressionDecides) {
    for (const char* isTrue : {"Win32", "Win32 = -1", "Not Win16", "Not Undefined", "2", "1 + 1 > 1 And Win32",
                               "(Win16 Or Win32)", "Undefined = 0", "True"})
        EXPECT_TRUE(IsCompiled(isTrue)) << isTrue;
    for (const char* isFalse : {"Win16", "0", "Undefined", "False", "Win32 = 1", "Win32 And Win16", "1 <> 1"})
        EXPECT_FALSE(IsCompiled(isFalse)) << isFalse;
}

TEST(CondCompile, ProjectConstantsWinOverTheModules) {
    ExpectHidden("#Const Debugging = 0\n{{#If Debugging Then\na\n#End If}}");
    ExpectHidden("#Const Debugging = 0\n{{#If Debugging Then}}\na\n{{#End If}}", {{"debugging", "-1"}});
}

TEST(CondCompile, FailedExpressionIsReportedAndFalse) {
    const std::string tag = "modMain: IF_is_TRUE   (check conditional compile expression \"";
    const RecordingErrors errors;
    ExpectHidden("{{#If (1 Then\na\n#ElseIf 1 Then}}\nb\n{{#End If}}");
    // A failed definition is reported too, and the next one still applies.
    EXPECT_TRUE(IsCompiled("good", {{"bad", "(("}, {"good", "1"}}));
    EXPECT_THAT(errors.tags, ElementsAre(tag + "(1\" in module Module1)", tag + "good\" in module Module1)"));
}

TEST(CondCompile, AttributeLinesAreHidden) {
    ExpectHidden("{{Attribute VB_Name = \"Form1\"}}\n{{  Attribute VB_Exposed = False ' note}}\na");
    ExpectHidden("x = Attribute\nAttribute.y = 1: Attribute z\n' Attribute VB_Name\ny = \"\nAttribute VB_Name = x\"");
    ExpectHidden("{{Attribute a _\n  b}}\nc");
}

}  // namespace
