// Shared by all dialogs: mnemonics, the parent window, the folder they start in, and the height of wrapped texts.
#pragma once

#include <QString>
#include <initializer_list>

class QWidget;

/// Gives every button, tab and label with a buddy in `window` a different letter, as far as letters are available, in
/// the order of creation; first letters of words are preferred. Letters of tab pages differ from those of the frame.
/// The texts of the language files contain no letters, so call this after each change of texts.
/// @param without  widgets that keep their text, such as OK and Cancel, which have their own keys
void AssignMnemonics(QWidget& window, std::initializer_list<const QWidget*> without = {});

/// The parent for a dialog: the active modal window, otherwise `window`.
[[nodiscard]] QWidget* DialogParent(QWidget* window);

/// Where a dialog for files starts: in the folder used last for its purpose, the first time in the project's.
[[nodiscard]] QString FolderFor(const QString& last);

/// Increases the height of `window` to fit its wrapped texts, which are cut off otherwise on small screens.
void GrowToFit(QWidget& window);
