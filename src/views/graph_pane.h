// The content pane with the diagram and the toolbar above it.
#pragma once

#include "views/content_stack.h"
#include "xgraph/call_chains.h"

class Commands;
class GraphCanvas;
class QMenu;
class QToolBar;
class QToolButton;

class GraphPane final : public ContentPane {
    Q_OBJECT

public:
    GraphPane(const Settings& settings, Commands& commands, QWidget* parent = nullptr);
    [[nodiscard]] GraphCanvas& Canvas() const { return *canvas_; }
    /// The menu of the kinds of objects that chains take; it is also in a menu of the window.
    [[nodiscard]] QMenu& ObjectTypes() const { return *objectTypes_; }
    [[nodiscard]] ChainObjectType gChainObjectType() const { return chainObjectType_; }

    [[nodiscard]] ContentMode Mode() const override { return ContentMode::Graph; }
    void Texte() override;
    void ApplySettings() override;
    void Clear() override;
    void Zoom(int step) override;

private:
    void AddButtons(Commands& commands);
    void ChooseType(ChainObjectType type);

    QToolBar* CoolBarEdit_;
    QMenu* selectAll_;
    QMenu* objectTypes_;
    QToolButton* objectType_;
    ChainObjectType chainObjectType_ = ChainObjectType::Procedure;
    bool isTypeChosen_ = false;
    GraphCanvas* canvas_;
};
