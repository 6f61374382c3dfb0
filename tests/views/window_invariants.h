// What must hold for the main window after every action of the user, whatever came before.
#pragma once

#include <QStringList>

class QWidget;
class frmMain;

/// Everything that is not as it must be, one line each. Looks at the widgets and compares them with what is worked out
/// from the project again.
[[nodiscard]] QStringList BrokenRules(frmMain& window);

/// The fixed texts in a window that are not shown as a whole.
[[nodiscard]] QStringList CutTexts(const QWidget& window);

/// The widgets in a window that can be reached and have no name for a screen reader.
[[nodiscard]] QStringList UnnamedWidgets(const QWidget& window);
