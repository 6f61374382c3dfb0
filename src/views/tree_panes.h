// The trees with their controls: search and check box buttons above the project tree, caption and Really / May be above
// a dependency tree.
#pragma once

#include <QWidget>

#include "display/command_table.h"
#include "shell/text_numbers.h"

class Baum;
class BaumView;
class Commands;
class QLabel;
class QToolBar;
class SearchBar;
struct Settings;

class ProjectPane final : public QWidget {
    Q_OBJECT

public:
    ProjectPane(Baum& tree, const Settings& settings, Commands& commands, QWidget* parent = nullptr);
    [[nodiscard]] BaumView& Tree() const { return *tree_; }
    [[nodiscard]] SearchBar& Search() const { return *search_; }
    void Texte();

private:
    SearchBar* search_;
    QToolBar* ToolbarPrTrw;
    BaumView* tree_;
};

class DependencyPane final : public QWidget {
    Q_OBJECT

public:
    /// @param really, mayBe  the two commands that choose what the tree shows
    DependencyPane(Baum& tree, const Settings& settings, Commands& commands, Command really, Command mayBe,
                   QWidget* parent = nullptr);
    [[nodiscard]] BaumView& Tree() const { return *tree_; }
    /// The caption, in the colour of what is shown.
    void ShowCaption(const QString& text, bool mayBe);
    /// The accessible name of the tree and the text shown while it is empty.
    void Texte(Text name, Text empty);

private:
    void PaintCaption();
    void changeEvent(QEvent* event) override;

    QLabel* caption_;
    QToolBar* toolbar_;
    BaumView* tree_;
    bool mayBe_ = false;
};
