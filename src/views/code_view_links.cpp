// What the pointer does in the code: where a click leads, the context menu, and hover texts.
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QToolTip>

#include "views/code_view.h"
#include "views/commands.h"
#include "views/context_ways.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kBesideText = 6;  // pixels that still count as the first character of a line

}  // namespace

Pos CodeView::ByteAt(QPoint point) const {
    QTextCursor cursor = cursorForPosition(point);
    QRect place = cursorRect(cursor);
    // cursorForPosition gives the nearest gap between characters, which can be the one after the character pointed at.
    if (point.x() < place.left() && !cursor.atBlockStart()) {
        cursor.movePosition(QTextCursor::PreviousCharacter);
        place = cursorRect(cursor);
    }
    const bool isBesideText = point.x() < place.left() - kBesideText || cursor.atBlockEnd() ||
                              point.y() > place.bottom() || point.y() < place.top();
    return isBesideText ? -1 : text_.ToByte(cursor.position());
}

bool CodeView::LeadsOn() const {
    return ways_.leadsOn && ways_.leadsOn(SelStart(), SelLength());
}

// The user wants to copy a selection, and keeps it.
void CodeView::PointTo(QPoint point) {
    const Pos byte = ByteAt(point);
    if (SelLength() > 0 && byte >= SelStart() && byte < SelStart() + SelLength())
        return;
    QTextCursor cursor = byte >= 0 ? textCursor() : cursorForPosition(point);
    if (byte >= 0)
        cursor.setPosition(text_.ToUtf16(byte));
    setTextCursor(cursor);
}

void CodeView::mousePressEvent(QMouseEvent* event) {
    hasJumped_ = false;
    const QPoint point = event->position().toPoint();
    const bool isRight = event->button() == Qt::RightButton;
    const bool isCtrl = event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::ControlModifier);
    if (!isRight && !(isCtrl && ways_.isLink && ways_.isLink(ByteAt(point)))) {
        QPlainTextEdit::mousePressEvent(event);
        return;
    }
    event->accept();
    PointTo(point);
    setFocus(Qt::MouseFocusReason);
    hasJumped_ = isRight && LeadsOn();
    Q_EMIT PositionClicked(SelStart(), SelLength());
}

void CodeView::mouseMoveEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseMoveEvent(event);
    const Pos byte = event->buttons() == Qt::NoButton ? ByteAt(event->position().toPoint()) : -1;
    if (byte == pointedAt_)
        return;
    pointedAt_ = byte;
    const bool isLink = byte >= 0 && ways_.isLink && ways_.isLink(byte);
    viewport()->setCursor(isLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

// A right click on what leads on has gone there; from all else the menu opens, and from the keyboard always.
void CodeView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Mouse && hasJumped_)
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    ObjectItems items;
    items.leadsOn = LeadsOn();
    if (text_.ByteCount() > 0)
        items.run = [this](Command command) { Q_EMIT CommandAsked(command); };
    AddObjectItems(*menu, items);
    menu->addAction(TextNr(Text::Copy), this, &CodeView::copy)->setEnabled(textCursor().hasSelection());
    menu->addAction(TextNr(Text::SelectAll), this, &CodeView::selectAll);
    Commands::GiveLetters(menu->actions());
    menu->popup(event->globalPos());
}

bool CodeView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QPlainTextEdit::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const Pos byte = toolTipSource_ ? ByteAt(help->pos()) : -1;
    const QString tip = byte >= 0 ? toolTipSource_(byte) : QString();
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), tip, viewport());
    return true;
}
