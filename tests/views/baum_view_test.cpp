#include "views/baum_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <memory>
#include <sstream>

#include "calls/driver.h"
#include "display/project_tree.h"
#include "display/tree_marks.h"
#include "findings/dead_objects.h"
#include "platform/code_page.h"
#include "project/project_file.h"
#include "shell/clsText.h"
#include "shell/settings.h"
#include "support/baum_dump.h"
#include "support/program_state.h"
#include "support/read_project.h"
#include "views/qt_text.h"

using testing::ElementsAre;

namespace {

class BaumViewTest : public ProgramState {
protected:
    BaumViewTest() {
        gText.SetLanguage(files, OSTRIVANE_SOURCE_DIR "/");
        view = std::make_unique<BaumView>(tree);
        view->resize(300, 400);
        BaumView* all = view.get();
        QObject::connect(all, &BaumView::NodeActivated, all, [this](const std::string& key) { told.push_back(key); });
        QObject::connect(all, &BaumView::NodeContext, all,
                         [this](const std::string& key) { told.push_back("right " + key); });
        QObject::connect(all, &BaumView::NodeChecked, all, [this](const std::string& key, bool checked) {
            told.push_back((checked ? "check " : "uncheck ") + key);
        });
    }
    void Show() {
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    }
    // A module with procedures, of which only the module is visible at first.
    void FillSmall() {
        const Baum::Filling filling(tree);
        BaumNode* root = tree.Add(nullptr, "module[]", "MODULE", "OrdnerZu");
        BaumNode* modul = tree.Add(root, "m", "mMain", "module");
        for (const char* name : {"Alpha", "Beta", "bravo", "Charly"})
            tree.Add(modul, LowerCase(std::string("m.") + name), name, "procedure");
        tree.SetExpanded(*root, true);
    }
    [[nodiscard]] QPoint At(std::string_view key) const {
        return view->visualRect(view->Model().IndexOf(tree.Item(key))).center();
    }
    void Click(std::string_view key, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(view->viewport(), button, {}, At(key));
    }
    [[nodiscard]] std::string CurrentKey() const {
        const BaumNode* node = view->Model().NodeAt(view->currentIndex());
        return node ? node->Key() : "";
    }
    std::vector<std::string> Told() { return std::exchange(told, {}); }

    DiskFiles files;
    Baum tree;
    std::vector<std::string> told;
    std::unique_ptr<BaumView> view;
};

// The rows of a model with what the view makes of them: "text bold dimmed".
void Dump(const QAbstractItemModel& model, const QModelIndex& parent, int indent, std::string& text) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        text += std::string(static_cast<std::size_t>(indent), ' ') + index.data().toString().toStdString();
        text += index.data(Qt::FontRole).value<QFont>().bold() ? " bold" : "";
        text += index.data(BaumModel::DimmedRole).toBool() ? " dimmed" : "";
        text += '\n';
        Dump(model, index, indent + 2, text);
    }
}

}  // namespace

TEST_F(BaumViewTest, ModelKeepsTheRulesWhileTheTreeIsFilledAndChanged) {
    const QAbstractItemModelTester tester(&view->Model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    Show();
    FillSmall();
    BaumNode* modul = tree.Item("m");
    tree.SetSorted(*modul, true);
    tree.Add(modul, "m.aaa", "aaa", "procedure");
    {
        const Baum::Filling filling(tree);
        tree.Add(modul, "m.bb", "bb", "procedure");
        QApplication::processEvents();  // as between two modules
        EXPECT_EQ(view->Model().rowCount(), 0);
        tree.Remove(*tree.Item("m.beta"));
    }
    tree.SetForeColor(*tree.Item("m.aaa"), kTextGrey);
    tree.Remove(*tree.Item("m.alpha"));
    std::string text;
    Dump(view->Model(), {}, 0, text);
    EXPECT_EQ(text, "MODULE\n  mMain\n    aaa dimmed\n    bb\n    bravo\n    Charly\n");
    tree.Clear();
    EXPECT_EQ(view->Model().rowCount(), 0);
}

TEST_F(BaumViewTest, SampleProjectReadsAsItsTreeDoes) {
    gOptProcVars = 0;
    gProjekt = std::make_unique<clsProjekt>(files);
    gProjekt->FullPath = OSTRIVANE_SOURCE_DIR "/samples/ToolHire/ToolHire.vbp";
    Projekt_Laden(*gProjekt);
    Alle_ModulStrukturen_Generieren(*gProjekt);
    ProjektStruktur_Anzeigen(*gProjekt, tree);
    Who_Calls_Who(*gProjekt);
    Tote_Untote_Kennzeichnen(*gProjekt);
    Tote_Objekte_Markieren(*gProjekt, tree);
    std::string rows;
    Dump(view->Model(), {}, 0, rows);
    // Line by line what the tree says, without the names of the icons.
    std::string expected;
    std::istringstream lines(DumpBaum(tree));
    for (std::string line; std::getline(lines, line);) {
        const auto icon = line.rfind(" [");
        const std::string looks = line.substr(line.find(']', icon) + 1);
        expected += line.substr(0, icon) + (looks == " grey" ? " dimmed" : looks) + "\n";
    }
    EXPECT_EQ(rows, expected);
}

TEST_F(BaumViewTest, ClickAndKeysSelectAlike) {
    FillSmall();
    tree.SetExpanded(*tree.Item("m"), true);
    Show();
    view->setFocus();
    EXPECT_THAT(Told(), ElementsAre()) << "to get the focus is no choice";
    Click("m.beta");
    Click("m.beta");
    EXPECT_EQ(tree.Selected(), tree.Item("m.beta"));
    EXPECT_THAT(Told(), ElementsAre("m.beta", "m.beta"));
    QTest::keyClick(view.get(), Qt::Key_Down);
    QTest::keyClick(view.get(), Qt::Key_End);
    QTest::keyClick(view.get(), Qt::Key_Down);  // there is nothing below
    QTest::keyClick(view.get(), Qt::Key_Return);
    EXPECT_THAT(Told(), ElementsAre("m.bravo", "m.charly", "m.charly"));
    tree.Select(tree.Item("m.alpha"));
    EXPECT_EQ(CurrentKey(), "m.alpha");
    EXPECT_THAT(Told(), ElementsAre()) << "what the program selects it need not be told";
    Click("m.beta", Qt::RightButton);
    EXPECT_THAT(Told(), ElementsAre("right m.beta"));
    EXPECT_EQ(CurrentKey(), "m.alpha");
}

TEST_F(BaumViewTest, FoldsGoBothWaysAndOutliveAFilling) {
    FillSmall();
    Show();
    Click("m");
    QTest::keyClick(view.get(), Qt::Key_Right);
    EXPECT_TRUE(tree.Item("m")->Expanded());
    {
        const Baum::Filling filling(tree);
        tree.Add(tree.Item("m"), "m.delta", "Delta", "procedure");
    }
    EXPECT_TRUE(view->isExpanded(view->Model().IndexOf(tree.Item("m"))));
    EXPECT_EQ(CurrentKey(), "m");
    tree.CollapseAll();
    EXPECT_FALSE(view->isExpanded(view->Model().IndexOf(tree.Item("module[]"))));
    tree.EnsureVisible(*tree.Item("m.delta"));
    EXPECT_TRUE(view->viewport()->rect().contains(At("m.delta")));
    tree.CollapseAll();
    tree.Select(tree.Item("module[]"));
    QTest::keyClick(view.get(), Qt::Key_Asterisk);
    EXPECT_TRUE(tree.Item("m")->Expanded());
}

TEST_F(BaumViewTest, ScrollPositionOutlivesAFilling) {
    FillSmall();
    BaumNode* modul = tree.Item("m");
    for (int i = 0; i < 200; ++i)
        tree.Add(modul, "m.x" + std::to_string(i), "x", "");
    tree.SetExpanded(*modul, true);
    Show();
    view->verticalScrollBar()->setValue(120);
    {
        const Baum::Filling filling(tree);
        tree.Add(modul, "m.last", "last", "");
        QApplication::processEvents();
    }
    EXPECT_EQ(view->verticalScrollBar()->value(), 120);
}

TEST_F(BaumViewTest, TypingFindsTheNextVisibleLine) {
    FillSmall();
    Show();
    Click("module[]");
    Told();
    QTest::keyClicks(view.get(), QStringLiteral("b"));
    EXPECT_EQ(CurrentKey(), "module[]") << "folded away";
    tree.SetExpanded(*tree.Item("m"), true);
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    QTest::keyClicks(view.get(), QStringLiteral("bb"));
    EXPECT_EQ(CurrentKey(), "m.bravo") << "a letter again is the next of it";
    QTest::qWait(QApplication::keyboardInputInterval() + 50);
    QTest::keyClicks(view.get(), QStringLiteral("BE"));
    EXPECT_EQ(CurrentKey(), "m.beta");
    EXPECT_EQ(Told().back(), "m.beta");
}

TEST_F(BaumViewTest, CheckBoxesAreShownOnWishAndTellOnlyOfTheMark) {
    FillSmall();
    Show();
    const QModelIndex index = view->Model().IndexOf(tree.Item("m"));
    EXPECT_FALSE(index.data(Qt::CheckStateRole).isValid());
    view->SetCheckBoxes(true);
    Click("module[]");
    QStyleOptionViewItem option;
    option.rect = view->visualRect(index);
    option.features = QStyleOptionViewItem::HasCheckIndicator;
    option.widget = view.get();
    const QRect box = view->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view.get());
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, box.center());
    EXPECT_TRUE(tree.Item("m")->Checked());
    EXPECT_EQ(CurrentKey(), "module[]");
    QTest::keyClick(view.get(), Qt::Key_Down);
    QTest::keyClick(view.get(), Qt::Key_Space);
    EXPECT_FALSE(tree.Item("m")->Checked());
    EXPECT_THAT(Told(), ElementsAre("module[]", "check m", "m", "uncheck m"));
}

TEST_F(BaumViewTest, MenuCopiesNamePathAndText) {
    FillSmall();
    Show();
    const auto copied = [&](std::string_view key, int entry) {
        QApplication::clipboard()->clear();
        QContextMenuEvent event(QContextMenuEvent::Mouse, At(key), view->viewport()->mapToGlobal(At(key)));
        QApplication::sendEvent(view->viewport(), &event);
        const auto menus = view->findChildren<QMenu*>();
        if (menus.isEmpty())
            return std::string("no menu");
        menus.back()->actions().at(entry)->trigger();
        menus.back()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return QApplication::clipboard()->text().toStdString();
    };
    EXPECT_EQ(copied("m", 0), "mMain");
    EXPECT_EQ(copied("m", 1), "m");
    EXPECT_EQ(copied("m", 2), "mMain\n\tAlpha\n\tBeta\n\tbravo\n\tCharly\n");
    EXPECT_EQ(copied("module[]", 1), "") << "a group has no path";
    EXPECT_THAT(Told(), ElementsAre());
    view->SetRightClickTells(true);
    EXPECT_EQ(copied("m", 0), "no menu");
}

TEST_F(BaumViewTest, KeysTravelAsUtf8AndAreTakenWhereTheyMay) {
    FillSmall();
    tree.Add(tree.Item("m"),
             "m.gr\xF6\xDF"
             "e",
             "Gr\xF6\xDF"
             "e",
             "");
    const std::unique_ptr<QMimeData> mime(
        view->Model().mimeData({view->Model().IndexOf(tree.Item("m.gr\xF6\xDF"
                                                                "e"))}));
    EXPECT_EQ(mime->data(QString::fromLatin1(kKeyMimeType)).toStdString(),
              "m.gr\xC3\xB6\xC3\x9F"
              "e");
    Baum target;
    BaumView taker(target);
    std::vector<std::string> dropped;
    QObject::connect(&taker, &BaumView::KeyDropped, &taker, [&](const std::string& key) { dropped.push_back(key); });
    for (const bool accepts : {false, true}) {
        taker.SetAcceptsKeys(accepts);
        QDragEnterEvent enters({5, 5}, Qt::CopyAction, mime.get(), Qt::LeftButton, {});
        QApplication::sendEvent(taker.viewport(), &enters);
        EXPECT_EQ(enters.isAccepted(), accepts);
        QDropEvent event({5, 5}, Qt::CopyAction, mime.get(), Qt::LeftButton, {});
        QApplication::sendEvent(taker.viewport(), &event);
    }
    EXPECT_THAT(std::exchange(dropped, {}), ElementsAre("m.gr\xF6\xDF"
                                                        "e"));
    // The same by keyboard.
    tree.Select(tree.Item("m"));
    QTest::keySequence(view.get(), QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "mMain");
    QTest::keySequence(&taker, QKeySequence::Paste);
    EXPECT_THAT(dropped, ElementsAre("m"));
}

TEST_F(BaumViewTest, TextsFollowTheLanguageAndFontsAreOnlyThoseThatExist) {
    view->SetTexte(187, 183);
    EXPECT_EQ(view->accessibleName().toStdString(), "Project tree");
    gText.Language = "german";
    gText.SetLanguage(files, OSTRIVANE_SOURCE_DIR "/");
    view->Texte();
    EXPECT_EQ(view->accessibleName().toStdString(), "Projektbaum");
    EXPECT_EQ(view->accessibleDescription(), TextNr(183));

    gTreeFont = {23, "No such font anywhere"};
    view->ApplyTreeFont();
    EXPECT_EQ(view->font().family(), QApplication::font("QTreeView").family());
    if (QFontDatabase::families().isEmpty())
        GTEST_SKIP() << "no font at all";
    gTreeFont.name = QFontDatabase::families().front().toStdString();
    view->ApplyTreeFont();
    EXPECT_EQ(view->font().pointSizeF(), 23);
}

TEST_F(BaumViewTest, CutOffTextsAreWholeOnHover) {
    FillSmall();
    const std::string name(100, 'W');
    tree.Add(nullptr, "long", name, "");
    Show();
    const auto hover = [&](std::string_view key) {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, At(key), view->viewport()->mapToGlobal(At(key)));
        QApplication::sendEvent(view->viewport(), &event);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ(hover("long"), name);
    EXPECT_EQ(view->horizontalScrollBar()->maximum(), 0);
    view->SetToolTips([](const BaumNode& node) { return QStringLiteral("about ") + ToQString(node.Key()); });
    EXPECT_EQ(hover("long"), "about long");
}
