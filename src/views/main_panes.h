// The two arrangements of the panes, their bars and what is stored of them.
//
// "Content": the project tree over the properties at the left, the content at the right. "Calls": the three trees side
// by side, the content below with the properties beside it. Both use the same panes; each arrangement has its own
// places and folds.
#pragma once

#include <QList>
#include <QWidget>
#include <string>

#include "shell/settings.h"

class FoldSplitter;
class QVBoxLayout;

class MainPanes final : public QWidget {
    Q_OBJECT

public:
    struct Panes {
        QWidget* path = nullptr;  // the line above the content, or above all
        QWidget* tree = nullptr;
        QWidget* lower = nullptr;  // properties
        QWidget* calledBy = nullptr;
        QWidget* calls = nullptr;
        QWidget* content = nullptr;
    };
    /// Takes the panes over.
    explicit MainPanes(const Panes& panes, QWidget* parent = nullptr);

    void Arrange(SplitMode mode);

    /// The bars of the current arrangement: sideways, and up and down.
    [[nodiscard]] FoldSplitter& picSplitX() const;
    [[nodiscard]] FoldSplitter& picSplitY() const;

    /// Unfold what hides the project tree, or the pane below it.
    void ShowTree();
    void ShowLower();

    /// Places in twips and folds, of both arrangements; values never stored keep their defaults.
    void Restore(const WindowSize& size);
    void Store(WindowSize& size) const;
    void Texte();

Q_SIGNALS:
    void FoldsChanged();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] bool IsCalls() const { return mode_ == SplitMode::Calls; }
    void PlaceAll();
    void KeepRoomForCode();
    [[nodiscard]] QList<int> TreeWidths(int stored) const;
    void OrderTabs();

    Panes panes_;
    FoldSplitter *contentX_, *contentY_;  // of the arrangement "Content"
    FoldSplitter *callsX_, *callsY_;
    FoldSplitter* callsLower_;  // content and properties in "Calls"
    QWidget* contentColumn_;    // path line and content
    QVBoxLayout* outer_;
    WindowSize stored_;
    SplitMode mode_ = SplitMode::Content;
    bool placed_ = false;
};
