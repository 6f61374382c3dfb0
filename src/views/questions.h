// Questions that are answered with Yes or No, and plain messages. No is the default, and Esc means No.
#pragma once

#include <QString>
#include <string_view>

class QWidget;

/// Asks over `window`, or over a dialog that is open above it.
[[nodiscard]] bool AskQuestion(QWidget* window, const QString& text);

/// Shows a plain message with OK.
void ShowMessage(QWidget* window, const QString& text);

/// The question about a missing file. One answer can be given for all that are still to come.
class MissingFileQuestion {
public:
    explicit MissingFileQuestion(QWidget* window) : window_(window) {}

    /// True: the load is to be given up. The answer for all ends with the last of the missing files.
    [[nodiscard]] bool Ask(std::string_view text, int moreMissing);
    /// Another load begins, also behind one that was cancelled before its last missing file.
    void Forget() { noForAll_ = false; }

private:
    QWidget* window_;
    bool noForAll_ = false;
};
