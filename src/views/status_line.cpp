#include "views/status_line.h"

#include <QStatusBar>
#include <QToolButton>
#include <algorithm>

#include "model/clsProjekt.h"
#include "project/start.h"
#include "shell/clsText.h"
#include "shell/errors.h"
#include "views/elided_label.h"
#include "views/status_fields.h"
#include "widgets/icons.h"
#include "widgets/qt_text.h"

namespace {

QString WithValue(Text text, const QString& value) {
    return TextNr(text) + QStringLiteral(": ") + value;
}

// Times below one second have decimals.
QString TimeText(const std::string& time) {
    const QString text = ToQString(time);
    return gText.Language == "german" ? QString(text).replace(QLatin1Char('.'), QLatin1Char(',')) : text;
}

}  // namespace

StatusLine::StatusLine(QStatusBar& bar)
    : QObject(&bar),
      bar_(bar),
      message_(new ElidedLabel(&bar)),
      counts_(new StatusFields(&bar)),
      problemCount_(new QToolButton(&bar)) {
    message_->setContentsMargins(6, 0, 0, 0);
    bar.addWidget(message_, 1);
    bar.addPermanentWidget(counts_);
    problemCount_->setAutoRaise(true);
    problemCount_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    problemCount_->setIcon(IconFor("Problems"));
    problemCount_->hide();
    bar.addPermanentWidget(problemCount_);
    connect(problemCount_, &QToolButton::clicked, this, &StatusLine::ProblemsClicked);
}

void StatusLine::Message(const QString& text) {
    isOfPlace_ = false;
    message_->SetText(text);
    Fit(width_);
}

void StatusLine::Remark(const QString& text) {
    Message(text);
    isOfPlace_ = true;
}

void StatusLine::ShowPlace(int index, int count) {
    if (count > 1)
        Message(QStringLiteral("%1 %2 %3").arg(NumberText(index), TextNr(Text::Of), NumberText(count)));
    else if (isOfPlace_)
        Message({});
    isOfPlace_ = count > 1;
}

void StatusLine::Fit(int width) {
    width_ = width;
    message_->setMinimumWidth(std::min(bar_.fontMetrics().horizontalAdvance(message_->text()) + 16, width * 2 / 3));
}

void StatusLine::ShowCounts(const clsProjekt* projekt, bool callsRead) {
    QStringList texts;
    if (projekt) {
        const QString none(QChar(0x2013));
        texts = {WithValue(Text::TimeForStructure, TimeText(projekt->TimeForStructure)),
                 WithValue(Text::TimeForCalls, callsRead ? TimeText(projekt->TimeForCalls) : none),
                 WithValue(Text::AllModules, NumberText(projekt->CountAllModules())),
                 WithValue(Text::CodeLines, NumberText(projekt->AnzCodeZeilen)),
                 WithValue(Text::CommentLines, NumberText(projekt->AnzCommentZeilen)),
                 WithValue(Text::BlankLines, NumberText(projekt->AnzBlankZeilen))};
    }
    counts_->Show(texts);
}

void StatusLine::ShowProblemCount() {
    const std::size_t count = gProjekt ? gProjekt->problems.All().size() : 0;
    problemCount_->setVisible(count > 0);
    const QString text =
        count == 1 ? TextNr(Text::OneProblem) : TextNr(Text::ProblemCount, NumberText(static_cast<qlonglong>(count)));
    problemCount_->setText(text);
    problemCount_->setToolTip(TextNr(Text::ProblemCountTip));
    problemCount_->setAccessibleName(text);
}
