// The chart as a pane of the content area.
#pragma once

#include "views/content_stack.h"

class ChartBoard;

class ChartContent final : public ContentPane {
    Q_OBJECT

public:
    explicit ChartContent(QWidget* parent = nullptr);
    [[nodiscard]] ChartBoard& Board() const { return *board_; }
    [[nodiscard]] ContentMode Mode() const override { return ContentMode::Chart; }
    void Texte() override;
    void ApplySettings() override {}
    void Clear() override;
    void Zoom(int step) override;

private:
    ChartBoard* board_;
};
