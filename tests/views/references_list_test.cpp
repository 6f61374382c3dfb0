#include "views/references_list.h"

#include "views/two_line_delegate.h"
#include "window_texts.h"

namespace {

class References : public WindowTest {
protected:
    References() {
        list.SetSource([this] {
            ++asked;
            std::vector<ReferenceRow> rows(3);
            for (int nr = 0; nr < 3; ++nr) {
                ReferenceRow& row = rows[static_cast<std::size_t>(nr)];
                row.key = "m.p" + std::to_string(nr);
                row.where = "M.P" + std::to_string(nr);
                row.line = 10 + nr;
                row.text = "\xC3\xA4 = Foo";
                row.nameStart = 5;
                row.nameLength = 3;
                row.kind = nr == 2 ? Text::MayBe : Text::Really;
            }
            return rows;
        });
        list.Texte();
        list.resize(300, 300);
    }
    ReferencesList list;
    int asked = 0;
};

TEST_F(References, AreAskedForWhenTheyAreSeen) {
    QAbstractItemModelTester tester(list.model());
    list.Renew(3, QString());
    list.SetCurrentRow(1);
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(list.Count(), 3);
    list.show();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(list.CurrentRow(), 1);
    EXPECT_EQ(list.CurrentObject(), "m.p1");
    list.Renew(3, QString());
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(list.CurrentRow(), 0);
    list.Renew(0, QStringLiteral("none"));
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(list.CurrentObject(), "");
}

TEST_F(References, RowsAreChosenCopiedAndLeadOn) {
    list.Renew(3, QString());
    list.show();
    const QSignalSpy chosen(&list, &ReferencesList::RowChosen);
    const QSignalSpy goTo(&list, &ReferencesList::CommandAsked);
    const QPoint second = list.visualRect(list.model()->index(1, 0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0], (QVariantList{1, true}));
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(chosen.count(), 1);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(chosen[1], (QVariantList{2, false}));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, second);
    EXPECT_EQ(chosen.count(), 2);
    EXPECT_EQ(goTo.count(), 1);
    list.SetCurrentRow(2);
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("M.P2\t12\tMay be\t\t\u00E4 = Foo\n"));
    const QModelIndex first = list.model()->index(0, 0);
    EXPECT_EQ(first.data(TwoLineDelegate::RangesRole).toList(), (QVariantList{4, 3})) << "characters, not bytes";
    EXPECT_EQ(first.data(TwoLineDelegate::AboutRole).toString(), QStringLiteral("M.P0 \u00B7 Line 10 \u00B7 Really"));
}

}  // namespace
