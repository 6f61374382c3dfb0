#include "views/context_menu_key.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>

ContextMenuKey::ContextMenuKey(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool ContextMenuKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || key->key() != Qt::Key_F10 || key->modifiers() != Qt::ShiftModifier)
        return false;
    const QPoint place = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, place, widget->mapToGlobal(place));
    QApplication::sendEvent(widget, &menu);
    return true;
}
