#include "views/chart_content.h"

#include <QVBoxLayout>

#include "charts/chart_board.h"

ChartContent::ChartContent(QWidget* parent) : ContentPane(parent), board_(new ChartBoard(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(board_);
}

void ChartContent::Texte() {
    board_->Texte();
}

void ChartContent::Clear() {
    board_->Clear();
}

void ChartContent::Zoom(int step) {
    board_->Zoom(step);
}
