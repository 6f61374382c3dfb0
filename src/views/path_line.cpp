#include "views/path_line.h"

#include <QFocusEvent>
#include <QStyle>
#include <QStyleOptionFrame>

#include "views/qt_text.h"

namespace {
enum TextNumber { TextPath = 173 };
}

PathLine::PathLine(QWidget* parent) : QLineEdit(parent) {
    setObjectName(QStringLiteral("rtbCodePath"));
    setReadOnly(true);
    setFrame(false);
    // It is read, not filled in: it lies on the window's own ground.
    setBackgroundRole(QPalette::Window);
    setAutoFillBackground(false);
    setStyleSheet(QStringLiteral("PathLine { background: transparent; }"));
    setContextMenuPolicy(Qt::DefaultContextMenu);
    Texte();
}

void PathLine::Texte() {
    setAccessibleName(TextNr(TextPath));
}

void PathLine::Show(std::string_view bytes) {
    whole_ = ToQString(bytes);
    setToolTip(whole_);
    Fit();
}

void PathLine::Fit() {
    if (hasFocus()) {
        if (text() != whole_)
            setText(whole_);
        return;
    }
    QStyleOptionFrame option;
    initStyleOption(&option);
    // The line edit keeps two pixels free on both sides of its text.
    const int room = style()->subElementRect(QStyle::SE_LineEditContents, &option, this).width() - 6;
    setText(fontMetrics().elidedText(whole_, Qt::ElideMiddle, room));
    setCursorPosition(0);
}

void PathLine::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    Fit();
}

void PathLine::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    setText(whole_);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        selectAll();
}

void PathLine::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason)
        Fit();
}

void PathLine::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        Fit();
}
