// Questions to answer with Yes or No, and messages. No is the default, and Esc means No.
#pragma once

#include <QString>
#include <string_view>

class QWidget;

/// Asks over `window`, or over a dialog that is open above it.
[[nodiscard]] bool AskQuestion(QWidget* window, const QString& text);

/// Asks with OK and Cancel; Cancel is the default.
[[nodiscard]] bool AskOkCancel(QWidget* window, const QString& text);

/// Shows a message with an OK button.
void ShowMessage(QWidget* window, const QString& text);

/// Shows why something failed, with an OK button.
void ShowFailure(QWidget* window, const QString& text);

/// The question about a missing file. One answer can apply to all remaining missing files.
class MissingFileQuestion {
public:
    explicit MissingFileQuestion(QWidget* window) : window_(window) {}

    /// Returns true to stop loading. A stored answer is discarded after the last missing file.
    [[nodiscard]] bool Ask(std::string_view text, int moreMissing);
    /// Discards a stored answer; called when a load begins, because the previous one may have been cancelled.
    void Forget() { noForAll_ = false; }

private:
    QWidget* window_;
    bool noForAll_ = false;
};
