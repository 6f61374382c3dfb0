#include "views/dialogs.h"

#include "model/clsProjekt.h"
#include "views/frm_about.h"
#include "views/frm_error.h"
#include "views/frm_keys.h"
#include "views/frm_optionen.h"
#include "views/frm_progress.h"
#include "views/problems_list.h"
#include "views/read_only_table.h"
#include "window_invariants.h"
#include "window_texts.h"

namespace {

class Dialogs : public WindowTest {
protected:
    // Checks the visible part of the window for cut texts, missing names and duplicate letters.
    static void Inspect(const QWidget& window) {
        QApplication::processEvents();
        EXPECT_EQ(UnnamedWidgets(window), QStringList());
        EXPECT_EQ(CutTexts(window), QStringList());
        QStringList letters;
        for (const QAbstractButton* button : window.findChildren<QAbstractButton*>())
            if (const auto mark = button->text().indexOf(QLatin1Char('&')); button->isVisible() && mark >= 0)
                letters.append(button->text().mid(mark + 1, 1).toLower());
        for (const QLabel* label : window.findChildren<QLabel*>())
            if (const auto mark = label->text().indexOf(QLatin1Char('&')); label->isVisible() && mark >= 0)
                letters.append(label->text().mid(mark + 1, 1).toLower());
        const qsizetype all = letters.size();
        letters.removeDuplicates();
        EXPECT_EQ(letters.size(), all);
    }
};

TEST_F(Dialogs, HomeAndEndGoToTheFirstAndLastRowOfATable) {
    QTableWidget table(3, 2);
    MakeReadOnly(table);
    table.show();
    QApplication::setActiveWindow(&table);
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_End);
    EXPECT_EQ(table.currentRow(), 2);
    QTest::keyClick(&table, Qt::Key_Home);
    EXPECT_EQ(table.currentRow(), 0);
}

TEST_F(Dialogs, NameEveryControlCutNoTextAndGiveEachLetterOnce) {
    MemoryFiles memory;
    SettingsFile file(memory, "o.ini");
    Settings settings;
    frmOptionen options(memory, file, settings, "prog/");
    frmAbout about(nullptr, QStringLiteral("https://example.org"));
    frmKeys keys;
    ProblemsList problems;
    frmProgress progress;
    frmError error(nullptr, QStringLiteral("help@example.org"));
    NewProject(memory, "p.vbp");
    NoteProblem("clsModul: A", "text");
    for (const char* language : {"english", "german"}) {
        SCOPED_TRACE(language);
        Speak(language);
        options.Texte();
        about.Texte();
        keys.Texte();
        problems.Texte();
        progress.Texte();
        error.Texte();
        for (QWidget* window : std::initializer_list<QWidget*>{&options, &about, &keys, &problems, &progress, &error}) {
            SCOPED_TRACE(window->objectName().toStdString());
            window->adjustSize();
            window->show();
            auto* tabs = window->findChild<QTabWidget*>();
            for (int tab = 0; tab < (tabs ? tabs->count() : 1); ++tab) {
                if (tabs)
                    tabs->setCurrentIndex(tab);
                Inspect(*window);
            }
            window->hide();
        }
    }
}

TEST_F(Dialogs, KeysAreListedForActionsThatHaveThem) {
    QAction open(QStringLiteral("&Open\u2026"));
    open.setShortcut(QKeySequence(QStringLiteral("Ctrl+O")));
    QAction back(QStringLiteral("Back"));
    back.setShortcuts({QKeySequence(QStringLiteral("Alt+Left")), QKeySequence(QStringLiteral("F9"))});
    QAction none(QStringLiteral("None"));
    frmKeys keys;
    keys.Fill({&open, &none, &back}, {{QStringLiteral("Zoom"), QStringLiteral("Wheel")}});
    const QAbstractItemModel& rows = *keys.findChild<QTableView*>()->model();
    QStringList listed;
    for (int row = 0; row < rows.rowCount(); ++row)
        listed.append(rows.index(row, 0).data().toString() + QLatin1Char('=') + rows.index(row, 1).data().toString());
    EXPECT_EQ(listed, QStringList({QStringLiteral("Open=Ctrl+O"), QStringLiteral("Back=Alt+Left, F9"),
                                   QStringLiteral("Zoom=Wheel")}));
}

TEST_F(Dialogs, AClickAnywhereClosesTheAboutWindow) {
    frmAbout about(nullptr, QString());
    EXPECT_TRUE(about.findChild<QLabel*>(QStringLiteral("labLink"))->isHidden());
    about.show();
    QTest::mouseClick(&about, Qt::LeftButton);
    EXPECT_FALSE(about.isVisible());
    about.show();
    for (QLabel* label : about.findChildren<QLabel*>())
        if (label->text() == TextNr(Text::Licence))
            QTest::mouseClick(label, Qt::LeftButton);
    EXPECT_FALSE(about.isVisible());
}

}  // namespace
