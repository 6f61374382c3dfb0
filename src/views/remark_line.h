// A line above a pane that says what is special about it, with a button that changes that, and perhaps one that hides
// the line. In a narrow pane its text takes two lines. On the ground of a tool tip, so that it looks like a remark, not
// like a row of the tree.
#pragma once

#include <QFrame>

class QLabel;
class QToolButton;

class RemarkLine final : public QFrame {
    Q_OBJECT

public:
    /// @param button  object name of the button
    RemarkLine(const QString& button, QWidget* parent);
    /// Hidden when `text` is empty.
    void Show(const QString& text);
    void SetButtonText(const QString& text);
    /// A second button, which the line has once it has a text.
    void SetDismissText(const QString& text);

Q_SIGNALS:
    void Clicked();
    void Dismissed();

private:
    QLabel* text_;
    QToolButton* button_;
    QToolButton* dismiss_ = nullptr;
};
