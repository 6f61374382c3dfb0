#include "views/baum_view.h"

#include "display/tree_marks.h"
#include "window_texts.h"

using testing::ElementsAre;

namespace {

class BaumViewTest : public WindowTest {
protected:
    BaumViewTest() {
        view = std::make_unique<BaumView>(tree, settings);
        view->resize(300, 400);
        BaumView* all = view.get();
        QObject::connect(all, &BaumView::NodeActivated, all,
                         [this](const std::string& key) { recorded.push_back(key); });
        QObject::connect(all, &BaumView::CommandAsked, all, [this](Command command, const std::string& key) {
            recorded.push_back((command == Command::GoTo ? "right " : "menu ") + key);
        });
        QObject::connect(all, &BaumView::NodeChecked, all, [this](const BaumNode& node) {
            recorded.push_back((node.Checked() ? "check " : "uncheck ") + node.Key());
        });
    }
    void SetUp() override {
        FillSmall();
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    }
    // Adds a module with procedures, of which only the module is visible at first.
    void FillSmall() {
        const Baum::Filling filling(tree);
        BaumNode* root = tree.Add(nullptr, "module[]", "MODULE", "OrdnerZu", NodeKind::Root);
        BaumNode* modul = tree.Add(root, "m", "mMain", "module");
        for (const char* name : {"Alpha", "Beta", "bravo", "Charly"})
            tree.Add(modul, LowerCase(std::string("m.") + name), name, "procedure");
        tree.SetExpanded(*root, true);
    }
    [[nodiscard]] QPoint At(std::string_view key) const {
        return view
            ->visualRect(view->Model().IndexOf(tree.Item(key, key == "module[]" ? NodeKind::Root : NodeKind::Object)))
            .center();
    }
    void Click(std::string_view key, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(view->viewport(), button, {}, At(key));
    }
    [[nodiscard]] std::string CurrentKey() const {
        const BaumNode* node = view->Model().NodeAt(view->currentIndex());
        return node ? node->Key() : "";
    }
    std::vector<std::string> Recorded() { return std::exchange(recorded, {}); }

    Settings settings;
    Baum tree;
    std::vector<std::string> recorded;
    std::unique_ptr<BaumView> view;
};

// The rows of a model with their display: "text bold dimmed".
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

TEST_F(BaumViewTest, TypingEndsWhereverTheCurrentNodeIs) {
    tree.SetExpanded(*tree.Item("m"), true);
    Click("m.alpha");
    tree.CollapseAll();
    QTest::keyClick(view.get(), Qt::Key_X);  // nothing begins with it
    EXPECT_EQ(CurrentKey(), "m.alpha");      // folded away
}

TEST_F(BaumViewTest, ModelKeepsTheRulesWhileTheTreeIsFilledAndChanged) {
    const QAbstractItemModelTester tester(&view->Model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    tree.Clear();
    FillSmall();
    tree.SetBold(*tree.Item("module[]", NodeKind::Root), true);
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
    tree.SetForeColor(*tree.Item("m.aaa"), NodeColour::Grey);
    tree.Remove(*tree.Item("m.alpha"));
    std::string text;
    Dump(view->Model(), {}, 0, text);
    EXPECT_EQ(text, "MODULE bold\n  mMain\n    aaa dimmed\n    bb\n    bravo\n    Charly\n");
    tree.Clear();
    EXPECT_EQ(view->Model().rowCount(), 0);
}

TEST_F(BaumViewTest, ClickAndKeysSelectAlike) {
    tree.SetExpanded(*tree.Item("m"), true);
    view->setFocus();
    EXPECT_THAT(Recorded(), ElementsAre()) << "to get the focus is no choice";
    Click("m.beta");
    Click("m.beta");
    EXPECT_EQ(tree.Selected(), tree.Item("m.beta"));
    EXPECT_THAT(Recorded(), ElementsAre("m.beta", "m.beta"));
    QTest::keyClick(view.get(), Qt::Key_Down);
    QTest::keyClick(view.get(), Qt::Key_End);
    QTest::keyClick(view.get(), Qt::Key_Down);  // there is nothing below
    QTest::keyClick(view.get(), Qt::Key_Return);
    EXPECT_THAT(Recorded(), ElementsAre("m.bravo", "m.charly", "m.charly"));
    tree.Select(tree.Item("m.alpha"));
    EXPECT_EQ(CurrentKey(), "m.alpha");
    EXPECT_THAT(Recorded(), ElementsAre()) << "the program knows what it selects itself";
    view->SetLeadsOn(true);
    Click("m.beta", Qt::RightButton);
    EXPECT_THAT(Recorded(), ElementsAre("right m.beta"));
    EXPECT_EQ(CurrentKey(), "m.alpha");
}

TEST_F(BaumViewTest, FoldsAndScrollPositionSurviveRefilling) {
    BaumNode* modul = tree.Item("m");
    for (int i = 0; i < 200; ++i)
        tree.Add(modul, "m.x" + std::to_string(i), "x", "");
    Click("m");
    QTest::keyClick(view.get(), Qt::Key_Right);
    EXPECT_TRUE(modul->Expanded());
    view->verticalScrollBar()->setValue(120);
    {
        const Baum::Filling filling(tree);
        tree.Add(modul, "m.delta", "Delta", "procedure");
        QApplication::processEvents();
    }
    EXPECT_EQ(view->verticalScrollBar()->value(), 120);
    EXPECT_TRUE(view->isExpanded(view->Model().IndexOf(modul)));
    EXPECT_EQ(CurrentKey(), "m");
    tree.CollapseAll();
    EXPECT_FALSE(view->isExpanded(view->Model().IndexOf(tree.Item("module[]", NodeKind::Root))));
    tree.EnsureVisible(*tree.Item("m.delta"));
    EXPECT_TRUE(view->viewport()->rect().contains(At("m.delta")));
    tree.CollapseAll();
    tree.Select(tree.Item("module[]", NodeKind::Root));
    QTest::keyClick(view.get(), Qt::Key_Asterisk);
    EXPECT_TRUE(modul->Expanded());
}

TEST_F(BaumViewTest, TypingFindsTheNextVisibleLine) {
    Click("module[]");
    Recorded();
    // Types a word after a pause that is longer than one inside a word can be.
    const auto type = [this](const char* word) {
        const qint64 before = QDateTime::currentMSecsSinceEpoch();
        QApplication::setKeyboardInputInterval(1);
        ASSERT_TRUE(QTest::qWaitFor([before] { return QDateTime::currentMSecsSinceEpoch() > before + 1; }));
        QTest::keyClick(view.get(), *word);
        QApplication::setKeyboardInputInterval(100000);
        QTest::keyClicks(view.get(), QString::fromLatin1(word + 1));
        QApplication::setKeyboardInputInterval(-1);  // that of the desktop
    };
    type("b");
    EXPECT_EQ(CurrentKey(), "module[]") << "folded away";
    tree.SetExpanded(*tree.Item("m"), true);
    type("bb");
    EXPECT_EQ(CurrentKey(), "m.bravo") << "a letter again is the next of it";
    type("BE");
    EXPECT_EQ(CurrentKey(), "m.beta");
    EXPECT_EQ(Recorded().back(), "m.beta");
}

TEST_F(BaumViewTest, CheckBoxesAreOptionalAndOnlyTheMarkToggles) {
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
    EXPECT_THAT(Recorded(), ElementsAre("check m", "m", "uncheck m"));
}

TEST_F(BaumViewTest, MenuCopiesNamePathAndText) {
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
    EXPECT_EQ(copied("m", 10), "mMain");
    EXPECT_EQ(copied("m", 11), "m");
    EXPECT_EQ(copied("m", 12), "mMain\n\tAlpha\n\tBeta\n\tbravo\n\tCharly\n");
    EXPECT_EQ(copied("module[]", 11), "") << "a group has no path";
    EXPECT_THAT(Recorded(), ElementsAre());
    copied("m", 0);
    copied("m", 1);
    copied("module[]", 0);
    EXPECT_THAT(Recorded(), ElementsAre("right m", "menu m"));
    view->SetLeadsOn(true);
    EXPECT_EQ(copied("m", 0), "no menu");
}

TEST_F(BaumViewTest, EnterAndCtrlClickGoToTheObject) {
    tree.SetExpanded(*tree.Item("m"), true);
    const auto ctrlClick = [this](std::string_view key) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ControlModifier, At(key));
        return Recorded();
    };
    Click("m.beta");
    QTest::keyClick(view.get(), Qt::Key_Return);
    EXPECT_THAT(Recorded(), ElementsAre("m.beta", "m.beta")) << "shows it again";
    EXPECT_THAT(ctrlClick("m.alpha"), ElementsAre("right m.alpha"));
    EXPECT_THAT(ctrlClick("module[]"), ElementsAre());
    EXPECT_TRUE(view->selectionModel()->hasSelection());
    view->SetLeadsOn(true);
    QTest::keyClick(view.get(), Qt::Key_Return);
    EXPECT_THAT(Recorded(), ElementsAre("right m.beta"));
}

TEST_F(BaumViewTest, NodesBelowAreAddedWhenTheirNodeUnfolds) {
    QAbstractItemModelTester tester(&view->Model());
    tree.SetExpanded(*tree.Item("m"), true);
    BaumNode& alpha = *tree.Item("m.alpha");
    Baum::SetUnfolds(alpha, true);
    int asked = 0;
    view->SetUnfold([&](BaumNode& node) {
        ++asked;
        Baum::SetUnfolds(node, false);
        tree.Add(&node, node.Key() + "\nm.beta", "m.Beta()", "procedure");
    });
    const QModelIndex index = view->Model().IndexOf(&alpha);
    EXPECT_TRUE(view->Model().hasChildren(index));
    EXPECT_EQ(asked, 0);
    for (int time = 0; time < 2; ++time) {
        view->expand(index);
        ASSERT_EQ(view->Model().rowCount(index), 1);
        view->collapse(index);
    }
    EXPECT_EQ(asked, 1);
    // The object below is the one that its own key names.
    view->expand(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::ControlModifier, At("m.alpha\nm.beta"));
    EXPECT_THAT(Recorded(), ElementsAre("right m.beta"));
    const std::unique_ptr<QMimeData> mime(
        view->Model().mimeData({view->Model().IndexOf(tree.Item("m.alpha\nm.beta"))}));
    EXPECT_EQ(mime->data(QString::fromLatin1(kKeyMimeType)).toStdString(), "m.beta");
}

TEST_F(BaumViewTest, KeysTravelAsUtf8AndAreTakenWhereTheyMay) {
    tree.Add(tree.Item("m"), "m.\xF6x", "\xF6x", "");
    const std::unique_ptr<QMimeData> mime(view->Model().mimeData({view->Model().IndexOf(tree.Item("m.\xF6x"))}));
    EXPECT_EQ(mime->data(QString::fromLatin1(kKeyMimeType)).toStdString(), "m.\xC3\xB6x");
    Baum target;
    BaumView taker(target, settings);
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
    EXPECT_THAT(std::exchange(dropped, {}), ElementsAre("m.\xF6x"));
    // Same with the keyboard.
    tree.Select(tree.Item("m"));
    QTest::keySequence(view.get(), QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "mMain");
    QTest::keySequence(&taker, QKeySequence::Paste);
    EXPECT_THAT(dropped, ElementsAre("m"));
}

TEST_F(BaumViewTest, TextsFollowTheLanguageAndTheFontKeepsItsSizeInAnyFamily) {
    view->SetTexte(Text::ProjectTree, Text::EmptyProjectTree);
    EXPECT_EQ(view->accessibleName().toStdString(), "Project tree");
    Speak("german");
    view->Texte();
    EXPECT_EQ(view->accessibleName().toStdString(), "Projektbaum");
    EXPECT_EQ(view->accessibleDescription(), QString());
    tree.Clear();
    EXPECT_EQ(view->accessibleDescription(), TextNr(Text::EmptyProjectTree));

    settings.TreeFont = {23, "No such font anywhere", true, true};
    view->ApplyTreeFont();
    EXPECT_EQ(view->font().family(), QApplication::font("QTreeView").family());
    EXPECT_EQ(view->font().pointSizeF(), 23);
    EXPECT_TRUE(view->font().bold() && view->font().italic());
    if (QFontDatabase::families().isEmpty())
        GTEST_SKIP() << "no font at all";
    settings.TreeFont.name = QFontDatabase::families().front().toStdString();
    view->ApplyTreeFont();
    EXPECT_EQ(view->font().pointSizeF(), 23);
}

TEST_F(BaumViewTest, CutOffTextsAreWholeOnHover) {
    const std::string name(100, 'W');
    tree.Add(nullptr, "long", name, "");
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
    // Where a node has nothing to say, the tip of the whole tree is shown.
    view->SetToolTips({});
    view->setToolTip(QStringLiteral("what clicks do"));
    EXPECT_EQ(hover("m"), "what clicks do");
}
