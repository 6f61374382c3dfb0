#include "views/frm_error.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>
#include <QWindow>
#include <cstdlib>

#include "display/problem_meaning.h"
#include "display/shown_text.h"
#include "shell/program.h"
#include "shell/words.h"
#include "views/deployment.h"
#include "views/dialogs.h"
#include "views/elided_label.h"
#include "views/open_document.h"
#include "widgets/qt_text.h"

namespace {

QString TextOr(Text number, const QString& word) {
    const QString text = TextNr(number);
    return text.isEmpty() ? word : text;
}

}  // namespace

QString frmError::SupportAddress() {
    return ToQString(kSupportAddress);
}

frmError::frmError(QWidget* parent, const QString& supportAddress)
    : QDialog(parent),
      EndProcess([] { std::_Exit(EXIT_FAILURE); }),
      heading_(new QLabel),
      subject_(new ElidedLabel),
      advice_(new QLabel),
      details_(new QLabel),
      txtError_(new QPlainTextEdit),
      cmdCopy_(new QPushButton),
      forAll_(new QCheckBox),
      labMailTo_(new QLabel),
      labMail_(new QLabel),
      cmdIgnore_(new QPushButton),
      cmdBeenden_(new QPushButton),
      address_(supportAddress) {
    setObjectName(QStringLiteral("frmError"));
    setAttribute(Qt::WA_QuitOnClose, false);
    txtError_->setObjectName(QStringLiteral("txtError"));
    cmdIgnore_->setObjectName(QStringLiteral("cmdIgnore"));
    cmdBeenden_->setObjectName(QStringLiteral("cmdBeenden"));
    cmdCopy_->setObjectName(QStringLiteral("cmdCopy"));
    forAll_->setObjectName(QStringLiteral("forAll"));
    labMail_->setObjectName(QStringLiteral("labMail"));
    labMailTo_->setObjectName(QStringLiteral("labMailTo"));

    auto* icon = new QLabel;
    const int iconSize = style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(iconSize));
    QFont bold = heading_->font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 1.1);
    heading_->setFont(bold);
    for (QLabel* label : {heading_, advice_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    subject_->setForegroundRole(QPalette::PlaceholderText);
    details_->setBuddy(txtError_);
    txtError_->setReadOnly(true);
    txtError_->setTabChangesFocus(true);
    txtError_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    labMail_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    labMailTo_->setVisible(!address_.isEmpty());
    labMail_->setVisible(!address_.isEmpty());
    cmdIgnore_->setDefault(true);
    // Enter must ignore the error, never end the program by accident.
    cmdCopy_->setAutoDefault(false);
    cmdBeenden_->setAutoDefault(false);

    auto* words = new QVBoxLayout;
    words->setSpacing(6);
    words->addWidget(heading_);
    words->addWidget(subject_);
    words->addWidget(advice_);
    auto* head = new QHBoxLayout;
    head->setSpacing(16);
    head->addWidget(icon, 0, Qt::AlignTop);
    head->addLayout(words, 1);
    auto* above = new QHBoxLayout;
    above->addWidget(details_, 1);
    above->addWidget(cmdCopy_);
    auto* mail = new QHBoxLayout;
    mail->addWidget(labMailTo_);
    mail->addWidget(labMail_);
    mail->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdIgnore_);
    buttons->addWidget(cmdBeenden_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 16, 20, 16);
    layout->setSpacing(10);
    layout->addLayout(head);
    layout->addLayout(above);
    layout->addWidget(txtError_, 1);
    layout->addLayout(mail);
    layout->addWidget(forAll_);
    layout->addLayout(buttons);
    QWidget* const order[] = {txtError_, cmdCopy_, labMail_, forAll_, cmdIgnore_, cmdBeenden_};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
    txtError_->setMinimumSize(75 * fontMetrics().averageCharWidth(), 6 * fontMetrics().lineSpacing());

    connect(cmdIgnore_, &QPushButton::clicked, this, &frmError::Ignore);
    connect(cmdBeenden_, &QPushButton::clicked, this, &frmError::End);
    connect(cmdCopy_, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(txtError_->toPlainText()); });
    connect(labMail_, &QLabel::linkActivated, this, &frmError::Mail);
    Texte();
}

void frmError::Texte() {
    setWindowTitle(ToQString(kProgramTitle));
    ShowHeading();
    advice_->setText(TextNr(report_.file == FileError::None ? Text::ErrorAdvice : CauseAndRemedy(report_.file)));
    details_->setText(TextNr(Text::TechnicalDetails));
    txtError_->setAccessibleName(TextNr(Text::TechnicalDetails));
    cmdCopy_->setText(TextNr(Text::Copy));
    forAll_->setText(TextNr(Text::IgnoreKind));
    labMailTo_->setText(TextOr(Text::MailErrorTo, QStringLiteral("Mail this Error to:")));
    labMail_->setText(QStringLiteral("<a href=\"mail\">%1</a>").arg(address_.toHtmlEscaped()));
    labMail_->setAccessibleName(labMailTo_->text() + QLatin1Char(' ') + address_);
    labMail_->setToolTip(TextOr(
        Text::MailTip, QStringLiteral("Creates and opens a mail with the error text. You just need to send it!")));
    cmdIgnore_->setText(TextOr(Text::Ignore, QStringLiteral("Ignore")));
    cmdBeenden_->setText(TextOr(Text::Exit, QStringLiteral("Exit")));
    AssignMnemonics(*this);
}

void frmError::ShowHeading() {
    const QString file = ToQString(modMain::DirOrFileName(report_.subject, 0));
    heading_->setText(file.isEmpty() ? TextNr(Text::ErrorOccurred) : TextNr(Text::ErrorInFile, file));
    subject_->SetText(ToQString(ShownPath(report_.subject)));
    subject_->setVisible(!file.isEmpty());
}

void frmError::ShowReport(const ErrorReport& report) {
    if (isVisible() || ignored_.contains(ProblemKind(report.tag)))
        return;
    report_ = report;
    Texte();
    txtError_->setPlainText(ToQString(report.Text()));
    forAll_->setChecked(false);
    QApplication::beep();
    // Above the progress window if an operation is running.
    winId();
    const QWidget* below = DialogParent(parentWidget());
    if (below && below->window()->windowHandle())
        windowHandle()->setTransientParent(below->window()->windowHandle());
    exec();
}

void frmError::ForgetIgnored() {
    ignored_.clear();
}

void frmError::Ignore() {
    Tag = "ignore";
    if (forAll_->isChecked())
        ignored_.emplace(ProblemKind(report_.tag));
    accept();
}

void frmError::End() {
    Tag = "end";
    accept();
    EndProcess();
}

void frmError::Mail() {
    OpenMail(address_,
             ToQString(kProgramTitle) + QLatin1Char(' ') + ToQString(ProgramVersion()) + QStringLiteral(" - Error"),
             ToQString(report_.Text()));
}

void frmError::reject() {
    Ignore();
}

void frmError::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    GrowToFit(*this);
    txtError_->setFocus();
}
