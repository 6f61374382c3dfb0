// The trees with their controls: search and check box buttons above the project tree, caption and Really / May be above
// a dependency tree.
#pragma once

#include <QWidget>

#include "display/command_table.h"
#include "shell/text_numbers.h"

class Baum;
class BaumView;
class Commands;
class ElidedLabel;
class QToolBar;
class RemarkLine;
class SearchBar;
struct Settings;

class ProjectPane final : public QWidget {
    Q_OBJECT

public:
    ProjectPane(Baum& tree, const Settings& settings, Commands& commands, QWidget* parent = nullptr);
    [[nodiscard]] BaumView& Tree() const { return *tree_; }
    [[nodiscard]] SearchBar& Search() const { return *search_; }
    /// The line that says that the marks of dead objects come from the structure alone.
    void ShowPreliminary(bool preliminary);
    void Texte();

private:
    SearchBar* search_;
    QToolBar* ToolbarPrTrw;
    RemarkLine* preliminary_;
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
    /// @param name  accessible name of the tree
    void Texte(Text name);
    /// The text shown while the tree is empty.
    void ShowWhyEmpty(Text why);
    /// The line that says what the check boxes do to the tree; hidden when `text` is empty.
    void ShowFilter(const QString& text);

Q_SIGNALS:
    /// The way out of the filter.
    void ShowAllClicked();

private:
    void PaintCaption();
    void changeEvent(QEvent* event) override;

    ElidedLabel* caption_;
    QToolBar* toolbar_;
    RemarkLine* filter_;
    BaumView* tree_;
    bool mayBe_ = false;
};
