// The toolbar of the main window. Captions appear beside its icons as far as there is room.
#pragma once

#include <QToolBar>

class Commands;

class MainToolbar final : public QToolBar {
    Q_OBJECT

public:
    /// `commands` must outlive the toolbar.
    explicit MainToolbar(Commands& commands, QWidget* parent = nullptr);
    void Texte();
    /// Leaves out as many captions as a window of this width needs.
    void Fit(int room);

private:
    Commands& commands_;
};
