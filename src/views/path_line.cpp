#include "views/path_line.h"

#include <QFocusEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

#include "widgets/qt_text.h"
#include "widgets/window_style.h"

namespace {

constexpr int kGap = 4;  // pixels beside the icon
}  // namespace

PathLine::PathLine(QWidget* parent) : QLineEdit(parent) {
    setObjectName(QStringLiteral("rtbCodePath"));
    setReadOnly(true);
    setFrame(false);
    // A read-only line uses the background of the window.
    setBackgroundRole(QPalette::Window);
    setAutoFillBackground(false);
    setStyleSheet(QStringLiteral("PathLine { background: transparent; }"));
    setContextMenuPolicy(Qt::DefaultContextMenu);
    Texte();
}

void PathLine::Texte() {
    setAccessibleName(TextNr(Text::Path));
    setPlaceholderText(TextNr(Text::Path));
}

void PathLine::Show(std::string_view bytes, const QIcon& icon) {
    whole_ = ToQString(bytes);
    icon_ = icon;
    setTextMargins(icon_.isNull() ? 0 : IconSize() + kGap, 0, 0, 0);
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
    // QLineEdit keeps a margin of two pixels on both sides of its text.
    const int room =
        style()->subElementRect(QStyle::SE_LineEditContents, &option, this).width() - 6 - textMargins().left();
    setText(fontMetrics().elidedText(whole_, Qt::ElideMiddle, room));
    setCursorPosition(0);
}

QSize PathLine::sizeHint() const {
    return {QLineEdit::sizeHint().width(), HeadHeight(*this)};
}

QSize PathLine::minimumSizeHint() const {
    return {QLineEdit::minimumSizeHint().width(), HeadHeight(*this)};
}

int PathLine::IconSize() const {
    return style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
}

void PathLine::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (icon_.isNull())
        return;
    QPainter painter(this);
    icon_.paint(&painter, QRect(2, (height() - IconSize()) / 2, IconSize(), IconSize()));
}

void PathLine::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    Fit();
}

void PathLine::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    setText(whole_);
    // As in other line edits: Tab selects everything, a click sets the cursor.
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        selectAll();
}

void PathLine::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // The context menu, where the user chooses Copy, must not shorten the text.
    if (event->reason() != Qt::PopupFocusReason)
        Fit();
}

void PathLine::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        Fit();
}
