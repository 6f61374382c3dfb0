#include "views/frm_about.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/program.h"
#include "views/deployment.h"
#include "views/dialogs.h"
#include "views/open_document.h"
#include "widgets/qt_text.h"

QString frmAbout::ProductPage() {
    return ToQString(kProductPage);
}

frmAbout::frmAbout(QWidget* parent, const QString& productPage)
    : QDialog(parent),
      icon_(new QLabel),
      version_(new QLabel),
      licence_(new QLabel),
      library_(new QLabel),
      labLink_(new QLabel),
      cmdClose_(new QPushButton),
      page_(productPage) {
    setObjectName(QStringLiteral("frmAbout"));
    setAttribute(Qt::WA_QuitOnClose, false);
    labLink_->setObjectName(QStringLiteral("labLink"));
    auto* title = new QLabel(ToQString(kProgramTitle));
    QFont large = title->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.8);
    title->setFont(large);
    version_->setForegroundRole(QPalette::PlaceholderText);
    for (QLabel* label : {licence_, library_}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    labLink_->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    labLink_->setText(QStringLiteral("<a href=\"%1\">%1</a>").arg(page_.toHtmlEscaped()));
    labLink_->setAccessibleName(page_);
    labLink_->setVisible(!page_.isEmpty());
    cmdClose_->setDefault(true);

    auto* words = new QVBoxLayout;
    words->setSpacing(10);
    words->addWidget(title);
    words->addWidget(version_);
    words->addWidget(licence_);
    words->addWidget(library_);
    words->addWidget(labLink_);
    words->addStretch();
    auto* head = new QHBoxLayout;
    head->setSpacing(20);
    head->addWidget(icon_, 0, Qt::AlignTop);
    head->addLayout(words, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdClose_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(14);
    layout->addLayout(head, 1);
    layout->addLayout(buttons);
    licence_->setMinimumWidth(58 * fontMetrics().averageCharWidth());
    connect(cmdClose_, &QPushButton::clicked, this, &QDialog::accept);
    connect(labLink_, &QLabel::linkActivated, this, [](const QString& page) { OpenDocument(page); });
    Texte();
}

void frmAbout::Texte() {
    setWindowTitle(TextNr(Text::About));
    version_->setText(ToQString(ProgramVersion()));
    licence_->setText(TextNr(Text::Licence));
    library_->setText(TextNr(Text::UsesQt, QString::fromLatin1(qVersion())));
    cmdClose_->setText(TextNr(Text::Close));
    AssignMnemonics(*this);
}

void frmAbout::mousePressEvent(QMouseEvent*) {
    accept();
}

void frmAbout::showEvent(QShowEvent* event) {
    const QIcon icon = QApplication::windowIcon();
    icon_->setVisible(!icon.isNull());
    icon_->setPixmap(icon.pixmap(QSize(64, 64), devicePixelRatioF()));
    QDialog::showEvent(event);
    GrowToFit(*this);
}
