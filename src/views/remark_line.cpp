#include "views/remark_line.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

RemarkLine::RemarkLine(const QString& button, QWidget* parent)
    : QFrame(parent), text_(new QLabel(this)), button_(new QToolButton(this)) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    text_->setForegroundRole(QPalette::ToolTipText);
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    button_->setObjectName(button);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(6, 2, 2, 2);
    line->addWidget(text_, 1);
    line->addWidget(button_, 0, Qt::AlignTop);
    connect(button_, &QToolButton::clicked, this, &RemarkLine::Clicked);
    hide();
}

void RemarkLine::Show(const QString& text) {
    text_->setText(text);
    setVisible(!text.isEmpty());
}

void RemarkLine::SetDismissText(const QString& text) {
    if (!dismiss_) {
        dismiss_ = new QToolButton(this);
        dismiss_->setObjectName(button_->objectName() + QStringLiteral("Dismiss"));
        static_cast<QHBoxLayout*>(layout())->addWidget(dismiss_, 0, Qt::AlignTop);
        connect(dismiss_, &QToolButton::clicked, this, &RemarkLine::Dismissed);
    }
    dismiss_->setText(text);
}

void RemarkLine::SetButtonText(const QString& text) {
    button_->setText(text);
}
