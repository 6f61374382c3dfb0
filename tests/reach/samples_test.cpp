// The samples have a case for each reason, each kind of entry point that keeps something, each doubt and each reason of
// a grade.

#include "reach/reasons.h"
#include "support/golden.h"
#include "support/project_test.h"

namespace {

constexpr const char* kReasons[] = {"none",      "entry point",  "kept", "only possible",
                                    "no caller", "dead callers", "ring"};
constexpr const char* kEntries[] = {"start-up",  "module event",   "control event",    "variable event",
                                    "interface", "exported class", "exported control", "AddressOf",
                                    "declared",  "named in string"};
constexpr const char* kDoubts[] = {"none", "Variant",    "any object",   "unknown type",   "not in type",
                                   "With", "expression", "unknown name", "named in string"};
constexpr const char* kGrades[] = {"living", "sure", "likely", "cannot tell"};
constexpr const char* kGradeReasons[] = {
    "none",           "shifts members", "changes layout",     "interface member", "designer property", "foreign types",
    "used by likely", "possible calls", "named in string",    "default member",   "passed out",        "not compiled",
    "named in code",  "unread modules", "used by left alone", "used by uncertain"};

template <std::size_t count, class Kind>
std::string NameOf(const char* const (&names)[count], Kind kind) {
    const auto nr = static_cast<std::size_t>(kind);
    return nr < count ? names[nr] : "a kind without a name here";
}

// "kept: AddressOf", "only possible: Variant", "no caller by rule".
std::string ReasonText(const Reason& reason) {
    std::string text = NameOf(kReasons, reason.kind);
    if (reason.kind == ReasonKind::EntryPoint || reason.kind == ReasonKind::Kept)
        text += ": " + NameOf(kEntries, reason.chain.entry->kind);
    if (reason.kind == ReasonKind::OnlyPossible)
        text += ": " + NameOf(kDoubts, reason.doubt.kind);
    return text + (reason.keptByRule ? " by rule" : "");
}

// "sure", "likely: changes layout".
std::string GradeText(const Grading& grading) {
    const std::string text = NameOf(kGrades, grading.grade);
    return grading.reason == GradeReason::None ? text : text + ": " + NameOf(kGradeReasons, grading.reason);
}

struct Case {
    const char* project;
    const char* codePath;
    const char* reason;
    const char* grade;
};
constexpr const char* kToolHire = "ToolHire/ToolHire.vbp";
constexpr const char* kYardScale = "YardScale/YardScale.vbp";
constexpr const char* kScaleParts = "YardScale/ScaleParts.vbp";

constexpr Case kCases[] = {
    // alive
    {kToolHire, "modmain.main", "entry point: start-up", "living"},
    {kYardScale, "modticks.startticks", "kept: start-up", "living"},
    {kYardScale, "modticks.stopticks", "kept: module event", "living"},
    {kYardScale, "modyard.refillfrom", "kept: control event", "living"},
    {kYardScale, "frmyard.ordersand", "kept: variable event", "living"},
    {kYardScale, "clssand.bagkilos", "kept: interface", "living"},
    {kScaleParts, "clstare.rounded", "kept: exported class", "living"},
    {kScaleParts, "ctlplate.draw", "kept: exported control", "living"},
    {kYardScale, "modticks.counttick", "kept: AddressOf", "living"},
    {kYardScale, "modyard.showcount", "kept: declared", "living"},
    // possible
    {kYardScale, "frmyard.resetscale", "only possible: named in string", "cannot tell: named in string"},
    {kYardScale, "frmyard.clearneedle", "only possible: named in string", "cannot tell: used by uncertain"},
    {kYardScale, "clssand.printticket", "only possible: Variant", "cannot tell: possible calls"},
    {kYardScale, "clssand.refill", "only possible: any object", "cannot tell: possible calls"},
    {kYardScale, "clstrailer.tare [get]", "only possible: unknown type", "likely: foreign types"},
    {kYardScale, "clstrailer.tag [let]", "only possible: not in type", "cannot tell: possible calls"},
    {kToolHire, "clscustomer.deposit [let]", "only possible: With", "cannot tell: possible calls"},
    {kYardScale, "clstrailer.rinse", "only possible: expression", "cannot tell: possible calls"},
    {kYardScale, "frmyard.recount", "only possible: unknown name", "cannot tell: possible calls"},
    // not reached
    {kToolHire, "modslip.printbarcode", "no caller", "sure"},
    {kToolHire, "modslip.barcodetext", "dead callers", "sure"},
    {kToolHire, "modstore.verifystore", "ring", "sure"},
    {kYardScale, "clssand.sweep", "no caller by rule", "sure"},
    {kYardScale, "modyard.scalestate.sswarmup", "no caller", "likely: shifts members"},
    {kToolHire, "modslip.slipline.column", "no caller", "likely: changes layout"},
    {kYardScale, "iweighed.moisture [get]", "no caller by rule", "likely: interface member"},
    {kYardScale, "ctlneedle.span [let]", "no caller by rule", "likely: designer property"},
    {kYardScale, "ctlneedle.longest", "dead callers", "likely: used by likely"},
    {kToolHire, "clshirebook.newenum [get]", "no caller by rule", "cannot tell: default member"},
    {kYardScale, "modyard.platerect.bottom", "no caller", "cannot tell: passed out"},
    {kToolHire, "modmain.clock_seconds", "no caller", "cannot tell: not compiled"},
    {kToolHire, "clscustomer.address_lines", "no caller", "cannot tell: named in code"},
    {kScaleParts, "modround.roundedup", "no caller", "cannot tell: unread modules"},
    {kYardScale, "modyard.carbonhead", "dead callers", "cannot tell: used by left alone"},
};

using SampleReasons = ProgramState;

}  // namespace

TEST_F(SampleReasons, EachReasonAndEachGradeHasItsCase) {
    DiskFiles files;
    std::vector<bool> entries(std::size(kEntries));
    std::vector<bool> doubts(std::size(kDoubts));
    std::vector<bool> gradeReasons(std::size(kGradeReasons));
    for (const char* project : {kToolHire, kYardScale, kScaleParts}) {
        NewProject(files, (kSourceDirectory / "samples" / project).string());
        Projekt_Laden(*gProjekt);
        Analyse();
        const Reach reach(*gProjekt, ReadDeclared(files, DeclaredFilesOf(*gProjekt, {})).declared);
        const Reasons reasons(reach);
        for (const Case& one : kCases)
            if (one.project == project) {
                SCOPED_TRACE(one.codePath);
                const Reason reason = reasons.ReasonOf(ObjectAt(one.codePath));
                const Grading grading = reasons.GradeOf(ObjectAt(one.codePath));
                EXPECT_EQ(ReasonText(reason), one.reason);
                EXPECT_EQ(GradeText(grading), one.grade);
                if (reason.chain.entry)
                    entries.at(static_cast<std::size_t>(reason.chain.entry->kind)) = true;
                doubts.at(static_cast<std::size_t>(reason.doubt.kind)) = true;
                gradeReasons.at(static_cast<std::size_t>(grading.reason)) = true;
            }
    }
    EXPECT_THAT(entries, testing::Each(true));
    EXPECT_THAT(doubts, testing::Each(true));
    EXPECT_THAT(gradeReasons, testing::Each(true));
}
