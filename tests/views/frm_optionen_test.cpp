#include "views/frm_optionen.h"

#include "support/read_project.h"
#include "window_texts.h"

namespace {

using testing::HasSubstr;

class OptionsWindow : public WindowTest {
protected:
    template <class Widget>
    Widget& Child(const char* name) {
        return ChildOf<Widget>(form_, name);
    }
    void Click(std::initializer_list<const char*> names) {
        for (const char* name : names)
            ClickOn(Child<QAbstractButton>(name));
    }
    std::string Written() { return memory_.ReadText("o.ini").text; }

    MemoryFiles memory_{{"prog/Languages/english.txt", "E1\r\n"}, {"prog/Languages/german.txt", "D1\r\n"}};
    SettingsFile file_{memory_, "o.ini"};
    Settings settings_;
    frmOptionen form_{memory_, file_, settings_, "prog/"};
};

TEST_F(OptionsWindow, NothingHoldsBeforeItIsApplied) {
    form_.show();
    Click({"optWin321", "LoadLibs", "ProcVars"});
    EXPECT_EQ(settings_.Win32, 1);
    Click({"cmdCancel"});
    EXPECT_FALSE(form_.isVisible());
    EXPECT_FALSE(memory_.FileExists("o.ini"));

    form_.show();
    EXPECT_TRUE(Child<QRadioButton>("optWin320").isChecked());
    EXPECT_FALSE(Child<QPushButton>("cmdApply").isEnabled());
    Click({"optWin321", "LoadLibs", "ProcVars"});
    const QSignalSpy applied(&form_, &frmOptionen::Applied);
    const QSignalSpy language(&form_, &frmOptionen::LanguageChanged);
    Click({"cmdApply"});
    EXPECT_TRUE(form_.isVisible());
    EXPECT_EQ(applied.count(), 1);
    EXPECT_EQ(language.count(), 0);
    EXPECT_EQ(settings_.Win32 + settings_.LoadLibs + settings_.ProcVars, 0);
    EXPECT_THAT(Written(), HasSubstr("win32=0"));
    Click({"cmdOK"});
    EXPECT_FALSE(form_.isVisible());
}

TEST_F(OptionsWindow, TheLanguageChangesAtOnceAndTheCodePageWaitsForTheNextProject) {
    form_.show();
    const QSignalSpy language(&form_, &frmOptionen::LanguageChanged);
    EXPECT_EQ(Child<QPushButton>("cmdOK").text(), TextNr(Text::Ok));
    Click({"optLanguage1"});
    auto& pages = Child<QComboBox>("CodePage");
    pages.setCurrentIndex(pages.findData(QStringLiteral("1251")));
    Click({"cmdApply"});
    EXPECT_EQ(language.count(), 1);
    EXPECT_EQ(TextNr(Text::OpenProject), QStringLiteral("D1"));
    EXPECT_EQ(settings_.CodePage, "1251");
    EXPECT_EQ(ActiveCodePage().Setting(), "auto");
    EXPECT_THAT(Written(), testing::AllOf(HasSubstr("Language=german"), HasSubstr("CodePage=1251")));
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
    Click({"colour7"});
    QTimer::singleShot(0, &form_, [] {
        auto* dialog = qobject_cast<QFontDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        QFont font = dialog->currentFont();
        font.setPointSize(14);
        dialog->setCurrentFont(font);
        dialog->accept();
    });
    Click({"cmdFont0"});
    EXPECT_EQ(settings_.ColComment, 30720);
    EXPECT_EQ(Child<QToolButton>("colour7").accessibleDescription(), QStringLiteral("#010203"));
    Click({"cmdOK"});
    EXPECT_EQ(settings_.ColComment, 0x030201);
    EXPECT_EQ(settings_.CodeFont.size, 14.F);
    EXPECT_EQ(settings_.TreeFont.size, 8.F);
    EXPECT_THAT(Written(), HasSubstr("FontSize=14"));
}

TEST_F(OptionsWindow, DefaultsAreShownAndHoldOnceApplied) {
    settings_.ColString = 1;
    settings_.CodeFont = {20, "Other", true, true};
    settings_.LoadLibs = 0;
    settings_.CodePage = "1251";
    settings_.OpenSaveDir = "kept";
    form_.show();
    EXPECT_EQ(Child<QComboBox>("CodePage").currentData().toString(), QStringLiteral("1251"));
    Click({"cmdDefaults"});
    EXPECT_EQ(settings_.ColString, 1);
    EXPECT_EQ(settings_.LoadLibs, 0);
    EXPECT_TRUE(Child<QCheckBox>("LoadLibs").isChecked());
    Click({"cmdOK"});
    EXPECT_EQ(settings_.ColString, 9868950);
    EXPECT_EQ(settings_.CodeFont, (FontSetting{10, "Courier New"}));
    EXPECT_EQ(settings_.CodePage, "auto");
    EXPECT_EQ(settings_.OpenSaveDir, "kept");
}

TEST_F(OptionsWindow, PlacesOfLibrariesAreEdited) {
    settings_.LibraryFolders = {"/a", "/b"};
    form_.show();
    auto& folders = Child<QLineEdit>("LibraryFolders");
    EXPECT_EQ(folders.text(), QStringLiteral("/a;/b"));
    folders.end(false);
    QTest::keyClicks(&folders, QStringLiteral(";/c d;"));
    QTest::keyClicks(&Child<QLineEdit>("WinePrefix"), QStringLiteral("none"));
    Click({"LoadLibs"});
    EXPECT_FALSE(folders.isEnabled());
    Click({"LoadLibs", "cmdOK"});
    EXPECT_EQ(settings_.LibraryFolders, (std::vector<std::string>{"/a", "/b", "/c d"}));
    EXPECT_THAT(Written(), HasSubstr("LibraryFolders=/a;/b;/c d\r\nWinePrefix=none\r\nRegistryFiles=\r\n"));
}

TEST_F(OptionsWindow, ReportsNeedAProject) {
    const QSignalSpy structure(&form_, &frmOptionen::ReportStructure);
    const QSignalSpy calls(&form_, &frmOptionen::ReportCalls);
    const QSignalSpy deaths(&form_, &frmOptionen::ReportDeaths);
    const auto clickAll = [&] {
        form_.show();
        form_.findChild<QTabWidget*>()->setCurrentIndex(2);
        Click({"cmdReportStructure", "cmdReportCalls", "cmdReportDeaths"});
        form_.hide();
    };
    clickAll();
    EXPECT_EQ(structure.count() + calls.count() + deaths.count(), 0);
    ReadModule("Sub S()\r\nEnd Sub\r\n");
    clickAll();
    EXPECT_TRUE(structure.count() == 1 && calls.count() == 1 && deaths.count() == 1);
}

}  // namespace
