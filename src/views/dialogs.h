// What all dialogs share: the underlined letters, the place above other windows, the room for their texts.
#pragma once

#include <initializer_list>

class QWidget;

/// Gives every button, tab and label with a buddy in `window` a letter of its own, as far as there are letters, in
/// the order in which they were made; first letters of words are taken first. Pages of tabs share none with the frame.
/// The texts hold no letters, so this comes behind each change of them.
/// @param without  what keeps its text as it is, such as OK and Cancel, which have keys of their own
void AssignMnemonics(QWidget& window, std::initializer_list<const QWidget*> without = {});

/// Where a dialog belongs: over the window that is modal at the moment, or else over `window`.
[[nodiscard]] QWidget* DialogParent(QWidget* window);

/// Makes `window` as high as its wrapped texts need: on small screens it would come up lower and cut them.
void GrowToFit(QWidget& window);
