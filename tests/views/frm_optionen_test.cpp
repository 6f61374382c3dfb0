#include "views/frm_optionen.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFontDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include "platform/settings_file.h"
#include "support/read_project.h"
#include "views/qt_text.h"
#include "window_texts.h"

namespace {

using testing::HasSubstr;
using testing::Not;

class OptionsWindow : public WindowTest {
protected:
    template <class Widget>
    Widget& Child(const char* name) {
        return *form_.findChild<Widget*>(QLatin1String(name));
    }
    template <class Widget>
    void Click(const char* name) {
        QTest::mouseClick(&Child<Widget>(name), Qt::LeftButton, {}, QPoint(8, Child<Widget>(name).height() / 2));
    }
    std::string Written() { return memory_.ReadText("o.ini").text; }

    MemoryFiles memory_{{"prog/Languages/english.txt", "E1\r\n"}, {"prog/Languages/german.txt", "D1\r\n"}};
    SettingsFile settings_{memory_, "o.ini"};
    frmOptionen form_{memory_, settings_, "prog/"};
};

TEST_F(OptionsWindow, NothingHoldsBeforeItIsApplied) {
    form_.show();
    Click<QRadioButton>("optWin321");
    Click<QCheckBox>("LoadLibs");
    Click<QCheckBox>("ProcVars");
    EXPECT_EQ(gOptWin32, 1);
    Click<QPushButton>("cmdCancel");
    EXPECT_FALSE(form_.isVisible());
    EXPECT_FALSE(memory_.FileExists("o.ini"));

    form_.show();
    EXPECT_TRUE(Child<QRadioButton>("optWin320").isChecked());
    EXPECT_FALSE(Child<QPushButton>("cmdApply").isEnabled());
    Click<QRadioButton>("optWin321");
    Click<QCheckBox>("LoadLibs");
    Click<QCheckBox>("ProcVars");
    const QSignalSpy applied(&form_, &frmOptionen::Applied);
    const QSignalSpy language(&form_, &frmOptionen::LanguageChanged);
    Click<QPushButton>("cmdApply");
    EXPECT_TRUE(form_.isVisible());
    EXPECT_EQ(applied.count(), 1);
    EXPECT_EQ(language.count(), 0);
    EXPECT_EQ(gOptWin32, 0);
    EXPECT_EQ(gOptLoadLibs, 0);
    EXPECT_EQ(gOptProcVars, 0);
    EXPECT_EQ(gCondComps.at(1).second, "0");
    EXPECT_EQ(gCondComps.at(2).second, "-1");
    EXPECT_THAT(Written(), HasSubstr("win32=0"));
    Click<QPushButton>("cmdOK");
    EXPECT_FALSE(form_.isVisible());
}

TEST_F(OptionsWindow, TheLanguageChangesAtOnce) {
    form_.show();
    const QSignalSpy language(&form_, &frmOptionen::LanguageChanged);
    EXPECT_EQ(Child<QPushButton>("cmdOK").text(), TextNr(50));
    Click<QRadioButton>("optLanguage1");
    Click<QPushButton>("cmdApply");
    EXPECT_EQ(language.count(), 1);
    EXPECT_EQ(TextNr(1), QStringLiteral("D1"));
    EXPECT_THAT(Written(), HasSubstr("Language=german"));
}

TEST_F(OptionsWindow, ColoursAndFontsAreChosenInTheirDialogs) {
    form_.show();
    form_.findChild<QTabWidget*>()->setCurrentIndex(1);
    QTimer::singleShot(0, &form_, [] {
        auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->currentColor(), QColor(0, 120, 0));
        dialog->setCurrentColor(QColor(1, 2, 3));
        dialog->accept();
    });
    Click<QToolButton>("colour7");
    QTimer::singleShot(0, &form_, [] {
        auto* dialog = qobject_cast<QFontDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        QFont font = dialog->currentFont();
        font.setPointSize(14);
        dialog->setCurrentFont(font);
        dialog->accept();
    });
    Click<QPushButton>("cmdFont0");
    EXPECT_EQ(gColComment, 30720);
    EXPECT_EQ(Child<QToolButton>("colour7").accessibleDescription(), QStringLiteral("#010203"));
    Click<QPushButton>("cmdOK");
    EXPECT_EQ(gColComment, 0x030201);
    EXPECT_EQ(gCodeFont.size, 14.F);
    EXPECT_EQ(gTreeFont.size, 8.F);
    EXPECT_THAT(Written(), HasSubstr("FontSize=14"));
}

TEST_F(OptionsWindow, DefaultsAreShownAndHoldOnceApplied) {
    gColString = 1;
    gCodeFont = {20, "Other", true, true};
    gOptLoadLibs = 0;
    gOptCodePage = "1251";
    gOpenSaveDir = "kept";
    form_.show();
    EXPECT_EQ(Child<QComboBox>("CodePage").currentData().toString(), QStringLiteral("1251"));
    Click<QPushButton>("cmdDefaults");
    EXPECT_EQ(gColString, 1);
    EXPECT_EQ(gOptLoadLibs, 0);
    EXPECT_TRUE(Child<QCheckBox>("LoadLibs").isChecked());
    Click<QPushButton>("cmdOK");
    EXPECT_EQ(gColString, 9868950);
    EXPECT_EQ(gCodeFont, (FontSetting{10, "Courier New"}));
    EXPECT_EQ(gOptCodePage, "auto");
    EXPECT_EQ(gOpenSaveDir, "kept");
    EXPECT_EQ(DefaultOptions().colours[OptionValues::Further], 16711935);
}

TEST_F(OptionsWindow, TheCodePageWaitsForTheNextProject) {
    form_.show();
    auto& pages = Child<QComboBox>("CodePage");
    pages.setCurrentIndex(pages.findData(QStringLiteral("1251")));
    Click<QPushButton>("cmdOK");
    EXPECT_EQ(gOptCodePage, "1251");
    EXPECT_EQ(ActiveCodePage().Setting(), "auto");
    EXPECT_THAT(Written(), HasSubstr("CodePage=1251"));
}

TEST_F(OptionsWindow, ReportsNeedAProject) {
    const QSignalSpy structure(&form_, &frmOptionen::ReportStructure);
    const QSignalSpy calls(&form_, &frmOptionen::ReportCalls);
    const QSignalSpy deaths(&form_, &frmOptionen::ReportDeaths);
    const auto clickAll = [&] {
        form_.show();
        form_.findChild<QTabWidget*>()->setCurrentIndex(2);
        for (const char* button : {"cmdReportStructure", "cmdReportCalls", "cmdReportDeaths"})
            Click<QPushButton>(button);
        form_.hide();
    };
    clickAll();
    EXPECT_EQ(structure.count() + calls.count() + deaths.count(), 0);
    ReadModule("Sub S()\r\nEnd Sub\r\n");
    clickAll();
    EXPECT_EQ(structure.count(), 1);
    EXPECT_EQ(calls.count(), 1);
    EXPECT_EQ(deaths.count(), 1);
}

}  // namespace
