#include "views/content_stack.h"

#include <QVBoxLayout>

#include "views/code_view.h"

CodeContent::CodeContent(const Settings& settings, QWidget* parent)
    : ContentPane(parent), view_(new CodeView(settings, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
}

void CodeContent::Texte() {
    view_->Texte();
}

void CodeContent::ApplySettings() {
    view_->ApplySettings();
}

void CodeContent::Clear() {
    view_->Clear();
}

void ContentStack::Add(ContentPane* pane) {
    panes_.push_back(pane);
    addWidget(pane);
}

void ContentStack::Show(ContentMode mode) {
    for (ContentPane* pane : panes_)
        if (pane->Mode() == mode)
            setCurrentWidget(pane);
}

void ContentStack::Texte() {
    for (ContentPane* pane : panes_)
        pane->Texte();
}

void ContentStack::ApplySettings() {
    for (ContentPane* pane : panes_)
        pane->ApplySettings();
}

void ContentStack::Clear() {
    for (ContentPane* pane : panes_)
        pane->Clear();
}
