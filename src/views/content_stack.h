// The content area: a stack of panes that show the current object, each in its own way.
#pragma once

#include <QStackedWidget>
#include <vector>

#include "shell/settings.h"

class CodeView;

/// One way to show the current object.
class ContentPane : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;
    [[nodiscard]] virtual ContentMode Mode() const = 0;
    virtual void Texte() = 0;
    /// Fonts and colours of the settings, on what is shown already.
    virtual void ApplySettings() = 0;
    /// Shows nothing: the objects go.
    virtual void Clear() = 0;
};

/// The code.
class CodeContent final : public ContentPane {
    Q_OBJECT

public:
    explicit CodeContent(const Settings& settings, QWidget* parent = nullptr);
    [[nodiscard]] CodeView& View() const { return *view_; }
    [[nodiscard]] ContentMode Mode() const override { return ContentMode::Code; }
    void Texte() override;
    void ApplySettings() override;
    void Clear() override;

private:
    CodeView* view_;
};

class ContentStack final : public QStackedWidget {
    Q_OBJECT

public:
    using QStackedWidget::QStackedWidget;
    /// Takes the pane over.
    void Add(ContentPane* pane);
    /// Brings the pane of this mode up; without one nothing changes.
    void Show(ContentMode mode);
    void Texte();
    void ApplySettings();
    void Clear();

private:
    std::vector<ContentPane*> panes_;
};
