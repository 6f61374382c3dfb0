#include "views/search_bar.h"

#include "support/read_project.h"
#include "views/two_line_delegate.h"
#include "window_texts.h"

namespace {

using testing::ElementsAre;

class SearchField : public WindowTest {
protected:
    SearchField() {
        ReadModule("Sub GetCodePath(): End Sub\nSub GetCode(): End Sub\nSub Other(): End Sub");
        auto* layout = new QVBoxLayout(&window_);
        bar_ = new SearchBar;
        tree_ = new QLineEdit;
        layout->addWidget(bar_);
        layout->addWidget(tree_);
        layout->addStretch();
        window_.resize(500, 400);
        window_.show();
        QApplication::setActiveWindow(&window_);
        tree_->setFocus();
        QObject::connect(bar_, &SearchBar::ObjectChosen, bar_,
                         [this](const std::string& codePath) { chosen_.push_back(codePath); });
    }

    void Type(const char* text) { QTest::keyClicks(&Field(), QLatin1String(text)); }
    void Press(Qt::Key key) { QTest::keyClick(&Field(), key); }
    QLineEdit& Field() { return *bar_->findChild<QLineEdit*>(); }
    QWidget& List() { return ChildOf<QWidget>(window_, "searchList"); }
    QListView& Hits() { return ChildOf<QListView>(window_, "hits"); }
    QString Foot() {
        auto* foot = window_.findChild<QLabel*>(QStringLiteral("searchFoot"));
        return foot->isVisible() ? foot->text() : QString();
    }

    QWidget window_;
    SearchBar* bar_;
    QLineEdit* tree_;
    std::vector<std::string> chosen_;
};

TEST_F(SearchField, FindsWhileOneTypesAndJumpsOnEnter) {
    bar_->Focus();
    Type("gc");
    ASSERT_TRUE(Hits().isVisible());
    const QAbstractItemModelTester tester(Hits().model());
    EXPECT_EQ(Hits().model()->rowCount(), 2);
    const QModelIndex first = Hits().currentIndex();
    EXPECT_EQ(first.data().toString(), QStringLiteral("GetCode"));
    EXPECT_EQ(first.data(TwoLineDelegate::AboutRole).toString(), QStringLiteral("sub \u00B7 Module1"));
    EXPECT_EQ(first.data(TwoLineDelegate::RangesRole).toList(), QVariantList({0, 1, 3, 1}));
    EXPECT_FALSE(Hits().grab().isNull());
    Press(Qt::Key_Up);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_THAT(chosen_, ElementsAre("module1.getcodepath"));
    EXPECT_FALSE(List().isVisible());
    EXPECT_EQ(QApplication::focusWidget(), tree_);
}

TEST_F(SearchField, EscClosesEmptiesAndReturnsTheFocus) {
    bar_->Focus();
    EXPECT_EQ(QApplication::focusWidget(), &Field());
    Type("get");
    EXPECT_TRUE(List().isVisible());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(List().isVisible());
    EXPECT_TRUE(Field().text().isEmpty());
    EXPECT_EQ(QApplication::focusWidget(), tree_);
    EXPECT_TRUE(chosen_.empty());
}

TEST_F(SearchField, NamesWhatWasNotFound) {
    bar_->Focus();
    Type("zzz ");
    EXPECT_EQ(Foot(), TextNr(Text::NothingFound, QStringLiteral("zzz")));
    Press(Qt::Key_Return);
    EXPECT_TRUE(chosen_.empty());
    Field().clear();
    EXPECT_FALSE(List().isVisible());
}

TEST_F(SearchField, AClickChoosesAndLeavingTheFieldCloses) {
    bar_->Focus();
    Type("o");
    const QRect place = Hits().visualRect(Hits().model()->index(0, 0));
    QTest::mouseClick(Hits().viewport(), Qt::LeftButton, {}, place.center());
    EXPECT_THAT(chosen_, ElementsAre("module1.other"));
    bar_->Focus();
    Press(Qt::Key_Down);
    EXPECT_TRUE(List().isVisible());
    tree_->setFocus();
    EXPECT_FALSE(List().isVisible());
}

TEST_F(SearchField, ForgetsTheProjectThatGoes) {
    bar_->Focus();
    Type("g");
    EXPECT_TRUE(List().isVisible());
    bar_->ProjectChanges();
    EXPECT_FALSE(List().isVisible());
    CloseProject();
    Type("e");
    EXPECT_FALSE(List().isVisible());
    ReadModule("Sub Gecko()\r\nEnd Sub\r\n", "Other.bas");
    Type("c");
    EXPECT_EQ(Hits().currentIndex().data().toString(), QStringLiteral("Gecko"));
}

}  // namespace
