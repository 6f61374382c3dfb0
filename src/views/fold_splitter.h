// A splitter of two or more panes whose first pane can be folded away and comes back at its former size. The bar can be
// dragged with the mouse and carries a button that folds.
#pragma once

#include <QSplitter>

class FoldSplitter final : public QSplitter {
    Q_OBJECT

public:
    explicit FoldSplitter(Qt::Orientation orientation, QWidget* parent = nullptr);

    [[nodiscard]] bool Folded() const { return folded_; }
    void SetFolded(bool folded);
    /// Size of the first pane in pixels; while it is folded, the size that it will come back with.
    [[nodiscard]] int Place() const;
    /// The second pane takes the difference.
    void SetPlace(int pixels);
    /// Tool tip and name of the fold button.
    void SetFoldText(const QString& text);

Q_SIGNALS:
    /// By the button or by SetFolded.
    void FoldedChanged(bool folded);

protected:
    QSplitterHandle* createHandle() override;

private:
    class Handle;
    void ApplyFolded();

    bool folded_ = false;
    int place_ = 0;  // before folding
    QString foldText_;
};
