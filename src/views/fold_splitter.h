// A splitter of two or more panes whose first pane can be folded and unfolded to its former size. The bar can be
// dragged with the mouse and has a fold button; with the keyboard focus on it, arrow keys move it and Enter folds.
#pragma once

#include <QSplitter>

class FoldSplitter final : public QSplitter {
    Q_OBJECT

public:
    /// @param folds  true for a fold button
    explicit FoldSplitter(Qt::Orientation orientation, QWidget* parent = nullptr, bool folds = true);

    [[nodiscard]] bool Folded() const { return folded_; }
    void SetFolded(bool folded);
    /// Size of the first pane in pixels; while it is folded, the size that it unfolds to.
    [[nodiscard]] int Place() const;
    /// The second pane gets the difference.
    void SetPlace(int pixels);
    /// Sets tool tip and name of the fold button, and the name of the bars. To be called again after panes have come or
    /// gone.
    void SetTexte(const QString& fold, const QString& bar);

Q_SIGNALS:
    /// Emitted after the button or SetFolded changes the state.
    void FoldedChanged(bool folded);

protected:
    QSplitterHandle* createHandle() override;

private:
    class Handle;
    void ApplyFolded();
    void ShowState();

    bool folded_ = false;
    int place_ = 0;  // before folding
    const bool folds_;
    QString foldText_, barText_;
};
