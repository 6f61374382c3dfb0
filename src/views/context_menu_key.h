// Shift+F10 opens the context menu of the widget with the focus, like the menu key. Qt knows only the latter on X11 and
// Wayland.
#pragma once

#include <QObject>

class ContextMenuKey final : public QObject {
    Q_OBJECT

public:
    /// Serves all windows of the application for as long as it lives.
    explicit ContextMenuKey(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
