#include "views/questions.h"

#include <QCheckBox>
#include <QMessageBox>
#include <QPushButton>

#include "display/fixed_texts.h"
#include "shell/program.h"
#include "views/dialogs.h"
#include "widgets/qt_text.h"

namespace {

void Prepare(QMessageBox& box, QMessageBox::Icon icon) {
    box.setIcon(icon);
    box.setWindowTitle(ToQString(kProgramTitle));
    box.setTextFormat(Qt::PlainText);
    box.setWindowModality(box.parentWidget() ? Qt::WindowModal : Qt::ApplicationModal);
}

// Shows the box and gives the keys back to the window below it, which not every window system does.
int Run(QMessageBox& box) {
    const int answer = box.exec();
    if (QWidget* below = box.parentWidget())
        below->activateWindow();
    return answer;
}

// Shows the box with its two buttons and returns true for Yes.
bool Answer(QMessageBox& box) {
    Prepare(box, QMessageBox::Question);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    // Without a language file the buttons keep Qt's texts.
    if (const QString yes = TextNr(Text::Yes), no = TextNr(Text::No); !yes.isEmpty() && !no.isEmpty()) {
        box.button(QMessageBox::Yes)->setText(yes);
        box.button(QMessageBox::No)->setText(no);
    }
    AssignMnemonics(box);
    return Run(box) == QMessageBox::Yes;
}

}  // namespace

bool AskQuestion(QWidget* window, const QString& text) {
    QMessageBox box(DialogParent(window));
    box.setText(text);
    return Answer(box);
}

bool AskOkCancel(QWidget* window, const QString& text) {
    QMessageBox box(QMessageBox::Question, ToQString(kProgramTitle), text, QMessageBox::Ok | QMessageBox::Cancel,
                    DialogParent(window));
    box.setDefaultButton(QMessageBox::Cancel);
    box.button(QMessageBox::Ok)->setText(TextNr(Text::Ok));
    box.button(QMessageBox::Cancel)->setText(TextNr(Text::Cancel));
    return box.exec() == QMessageBox::Ok;
}

namespace {

// There are tabs between columns. In a proportional font only a table lines them up.
QString AsTable(const QString& text) {
    QString rows;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        rows += QStringLiteral("<tr>");
        for (const QString& cell : line.split(QLatin1Char('\t'), Qt::SkipEmptyParts))
            rows += QStringLiteral("<td style='padding-right: 2em'>%1</td>").arg(cell.toHtmlEscaped());
        rows += QStringLiteral("<td>&nbsp;</td></tr>");
    }
    return QStringLiteral("<table>%1</table>").arg(rows);
}

void ShowWithOk(QWidget* window, QMessageBox::Icon icon, const QString& text) {
    QMessageBox box(DialogParent(window));
    Prepare(box, icon);
    if (text.contains(QLatin1Char('\t'))) {
        box.setTextFormat(Qt::RichText);
        box.setText(AsTable(text));
        box.setTextInteractionFlags(Qt::TextBrowserInteraction);
    } else {
        box.setText(text);
    }
    if (const QString ok = TextNr(Text::Ok); !ok.isEmpty())
        box.addButton(QMessageBox::Ok)->setText(ok);
    Run(box);
}

}  // namespace

void ShowMessage(QWidget* window, const QString& text) {
    ShowWithOk(window, QMessageBox::Information, text);
}

void ShowFailure(QWidget* window, const QString& text) {
    ShowWithOk(window, QMessageBox::Warning, text);
}

bool MissingFileQuestion::Ask(std::string_view text, int moreMissing) {
    const bool isLast = moreMissing == 0;
    if (noForAll_) {
        noForAll_ = !isLast;
        return false;
    }
    QMessageBox box(DialogParent(window_));
    box.setText(QString::fromStdString(ShownText(text)));
    auto* forAll = new QCheckBox(TextNr(Text::SameAnswerForAll));
    if (!isLast) {
        box.setInformativeText(TextNr(Text::FurtherMissingFiles) + QStringLiteral(": ") + NumberText(moreMissing));
        box.setCheckBox(forAll);
    }
    const bool giveUp = Answer(box);
    noForAll_ = !isLast && !giveUp && forAll->isChecked();
    if (isLast)
        delete forAll;
    return giveUp;
}
