// The content area: a stack of panes that show the current object, each in its own way.
#pragma once

#include <QStackedWidget>
#include <vector>

#include "shell/settings.h"

class CodeView;
class QPushButton;

/// One way to show the current object.
class ContentPane : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
    [[nodiscard]] virtual ContentMode Mode() const = 0;
    virtual void Texte() = 0;
    /// Applies fonts and colours of the settings to what is shown.
    virtual void ApplySettings() = 0;
    /// Shows nothing; called before objects become invalid.
    virtual void Clear() = 0;
    /// Larger (1), smaller (-1), or as at first (0).
    virtual void Zoom(int /*step*/) {}
};

/// The code; above that of a whole module a line that unfolds the header of its file.
class CodeContent final : public ContentPane {
    Q_OBJECT

public:
    explicit CodeContent(const Settings& settings, QWidget* parent = nullptr);
    [[nodiscard]] CodeView& View() const { return *view_; }
    /// @param lines  of the header; 0 hides the line
    void ShowHeaderLine(int lines, bool unfolded);
    [[nodiscard]] ContentMode Mode() const override { return ContentMode::Code; }
    void Texte() override;
    void ApplySettings() override;
    void Clear() override;
    void Zoom(int step) override;

Q_SIGNALS:
    void HeaderUnfolded(bool unfolded);

private:
    QPushButton* header_;
    int headerLines_ = 0;
    CodeView* view_;
};

class ContentStack final : public QStackedWidget {
    Q_OBJECT

public:
    using QStackedWidget::QStackedWidget;
    /// Takes ownership of the pane.
    void Add(ContentPane* pane);
    /// Shows the pane of this mode; does nothing if there is none.
    void Show(ContentMode mode);
    void Texte();
    void ApplySettings();
    void Clear();
    /// Zooms the pane that is shown.
    void Zoom(int step);

private:
    std::vector<ContentPane*> panes_;
};
