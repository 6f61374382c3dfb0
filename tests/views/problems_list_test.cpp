#include "views/problems_list.h"

#include "model/clsProjekt.h"
#include "project/project_file.h"
#include "window_texts.h"

namespace {

class ListOfProblems : public WindowTest {
protected:
    ListOfProblems() { NewProject(files_, "p.vbp"); }
    static void Note(std::string_view tag, std::string_view text, std::string_view subject) {
        const ErrorSubject at(subject);
        NoteProblem(tag, text);
    }
    QTableView& Table() { return ChildOf<QTableView>(list_); }
    QString Cell(int row, int column) { return Table().model()->index(row, column).data().toString(); }
    QString Copied(const char* button) {
        QTest::mouseClick(&ChildOf<QPushButton>(list_, button), Qt::LeftButton);
        return QApplication::clipboard()->text();
    }

    MemoryFiles files_;
    ProblemsList list_;
};

TEST_F(ListOfProblems, SaysSoWhenThereIsNoneAndFollowsTheLanguage) {
    list_.show();
    auto* empty = list_.findChild<QLabel*>(QStringLiteral("empty"));
    EXPECT_TRUE(empty->isVisible());
    EXPECT_EQ(empty->text(), TextNr(Text::NoProblems));
    EXPECT_FALSE(list_.findChild<QPushButton*>(QStringLiteral("cmdCopy"))->isEnabled());
    Note("clsModul: A", "first", "a");
    std::vector<HeldErrors::Held> held;
    {
        const HeldErrors hold(held);
        ShowFileError("clsModul: B", FileError::NotFound);
    }
    HeldErrors::Tell(held);
    list_.Refresh();
    EXPECT_FALSE(empty->isVisible());
    EXPECT_EQ(Table().model()->rowCount(), 2);
    const QString meaning = Cell(0, ProblemsModel::Meaning);
    Speak("german");
    list_.Texte();
    EXPECT_NE(Cell(0, ProblemsModel::Meaning), meaning);
    EXPECT_EQ(Cell(1, ProblemsModel::What), TextNr(Text::CauseNotFound));
    EXPECT_EQ(Table().model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Was geschehen ist"));
}

TEST_F(ListOfProblems, ShowsWhatWhereAndWhatItMeans) {
    Note("clsModul: Read_MyCodeName", "File not found: p\\B.bas", "p\\B.bas");
    Note("modMain: IF_is_TRUE   (check conditional compile expression \"x\" in form F)", "Syntax", "p\\F.frm");
    Note("clsModul: AnalyseErgebnisCalls", "Denied", "p\\A.bas");
    list_.show();
    const QAbstractItemModelTester tester(Table().model());
    EXPECT_EQ(Cell(0, ProblemsModel::What), QStringLiteral("File not found: p\\B.bas"));
    EXPECT_EQ(Cell(0, ProblemsModel::Meaning), TextNr(Text::ModuleMissing));
    EXPECT_EQ(Cell(1, ProblemsModel::Meaning), TextNr(Text::ConditionFalse));
    EXPECT_EQ(Cell(2, ProblemsModel::Meaning), TextNr(Text::ReportIncomplete));
    EXPECT_EQ(Cell(1, ProblemsModel::Where), QStringLiteral("F.frm"));
    // A click on a heading sorts.
    QHeaderView& header = *Table().horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      QPoint(header.sectionViewportPosition(ProblemsModel::Where) + 20, header.height() / 2));
    EXPECT_EQ(Cell(0, ProblemsModel::Where), QStringLiteral("A.bas"));
}

TEST_F(ListOfProblems, CopiesTheSelectedRowsOrAll) {
    Note("clsModul: A", "first", "a");
    Note("clsModul: B", "second", "b");
    list_.show();
    EXPECT_EQ(Copied("cmdCopy"), QStringLiteral("first\ta\t\t") + TextNr(Text::StepMissing) + QStringLiteral("\n"));
    QApplication::setActiveWindow(&list_);
    Table().setFocus();
    Table().selectAll();
    QTest::keyClick(&Table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().count(QLatin1Char('\n')), 2);
    Table().clearSelection();
    EXPECT_EQ(Copied("cmdCopy").count(QLatin1Char('\n')), 2);
}

TEST_F(ListOfProblems, EnterAndDoubleClickGoFromPlaceToPlace) {
    files_.WriteWhole("p.vbp", "Module=A; A.bas\r\n");
    files_.WriteWhole("A.bas", "#If x( Then\r\n#End If\r\n#If x( Then\r\n#End If\r\n");
    Projekt_Laden(*gProjekt);
    list_.Present();
    EXPECT_FALSE(list_.isModal());
    ASSERT_EQ(Table().model()->rowCount(), 1);
    EXPECT_THAT(Cell(0, ProblemsModel::What).toStdString(), testing::EndsWith("(2 places)"));
    EXPECT_EQ(Cell(0, ProblemsModel::Line), QStringLiteral("1"));
    std::string chosen;
    QObject::connect(&list_, &ProblemsList::PlaceChosen, [&](const std::string& module, int line) {
        chosen += module + " " + std::to_string(line) + "; ";
    });
    QApplication::setActiveWindow(&list_);
    Table().setFocus();
    QTest::keyClick(&Table(), Qt::Key_Return);
    EXPECT_TRUE(list_.isVisible()) << "Enter must not close the window";
    const QPoint cell = Table().visualRect(Table().model()->index(0, 0)).center();
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(Table().viewport(), Qt::LeftButton, {}, cell);
    EXPECT_EQ(chosen, "a 1; a 3; ");
}

}  // namespace
