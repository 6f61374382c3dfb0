#include "project/project_page.h"

#include "platform/settings_file.h"
#include "shell/settings.h"
#include "support/project_test.h"

namespace {

// "Окно.frm" in Windows-1251.
const std::string kWindow = "\xCE\xEA\xED\xEE.frm";

class ProjectPage : public ProgramState {
protected:
    std::string Fitting(std::string_view lines) { return FittingCodePage(files_, "p/", lines); }
    std::string Choose() { return ChooseCodePage(files_, file_, settings_, "p/P.vbp"); }

    MemoryFiles files_{{"p/P.vbp", "Form=" + kWindow + "\r\n"}, {"p/Окно.frm", "a"}, {"p/Ünal.bas", "b"}};
    SettingsFile file_{files_, "o.ini"};
    Settings settings_;
};

}  // namespace

TEST_F(ProjectPage, IsTheOneInWhichMostFileNamesExist) {
    EXPECT_EQ(Fitting("Form=" + kWindow), "1251");
    EXPECT_EQ(Fitting("Form=" + kWindow + "\r\nModule=M; \xDCnal.bas\r\nForm=" + kWindow), "1251");
    EXPECT_EQ(Fitting("Module=M; \xDCnal.bas"), "") << "several pages fit, and the usual one is among them";
    EXPECT_EQ(Fitting("Form=\xCE\xEA.frm"), "") << "no such file";
    EXPECT_EQ(Fitting("Form=Окно.frm\r\nName=\xCE\xEA\xED\xEE"), "") << "no name of a file says anything";
}

TEST_F(ProjectPage, IsProposedOnceAndRemembered) {
    {
        const ScriptedQuestions yes{true};
        EXPECT_EQ(Choose(), "1251");
        EXPECT_EQ(Choose(), "1251");
        EXPECT_EQ(yes.texts.size(), 1U);
    }
    ForgetCodePage(file_, "p/P.vbp");
    const ScriptedQuestions no{false, true};
    EXPECT_EQ(Choose(), "auto");
    EXPECT_EQ(Choose(), "auto") << "No is remembered as well";
    settings_.CodePage = "1252";
    EXPECT_EQ(Choose(), "1252");
    EXPECT_EQ(no.texts.size(), 1U);
    EXPECT_EQ(SettingsFile(files_, "o.ini").ReadString("CODEPAGES", "Page1", ""), "auto");
}
