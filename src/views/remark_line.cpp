#include "views/remark_line.h"

#include <QHBoxLayout>
#include <QToolButton>

#include "views/elided_label.h"

RemarkLine::RemarkLine(const QString& button, QWidget* parent)
    : QFrame(parent), text_(new ElidedLabel(this)), button_(new QToolButton(this)) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    text_->setForegroundRole(QPalette::ToolTipText);
    button_->setObjectName(button);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(6, 2, 2, 2);
    line->addWidget(text_, 1);
    line->addWidget(button_);
    connect(button_, &QToolButton::clicked, this, &RemarkLine::Clicked);
    hide();
}

void RemarkLine::Show(const QString& text) {
    text_->SetText(text);
    setVisible(!text.isEmpty());
}

void RemarkLine::SetDismissText(const QString& text) {
    if (!dismiss_) {
        dismiss_ = new QToolButton(this);
        dismiss_->setObjectName(button_->objectName() + QStringLiteral("Dismiss"));
        layout()->addWidget(dismiss_);
        connect(dismiss_, &QToolButton::clicked, this, &RemarkLine::Dismissed);
    }
    dismiss_->setText(text);
}

void RemarkLine::SetButtonText(const QString& text) {
    button_->setText(text);
}
