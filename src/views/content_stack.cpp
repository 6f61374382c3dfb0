#include "views/content_stack.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "views/code_view.h"
#include "widgets/qt_text.h"

CodeContent::CodeContent(const Settings& settings, QWidget* parent)
    : ContentPane(parent), header_(new QPushButton(this)), view_(new CodeView(settings, this)) {
    header_->setObjectName(QStringLiteral("header"));
    header_->setFlat(true);
    header_->setCheckable(true);
    header_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    header_->hide();
    connect(header_, &QPushButton::clicked, this, &CodeContent::HeaderUnfolded);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(header_);
    layout->addWidget(view_);
}

void CodeContent::ShowHeaderLine(int lines, bool unfolded) {
    headerLines_ = lines;
    header_->setChecked(unfolded);
    // Arrows for reading from left to right, as the code is.
    const QString arrow(unfolded ? QChar(0x25BE) : QChar(0x25B8));
    const QString text = lines == 1 ? TextNr(Text::OneHeaderLine) : TextNr(Text::ModuleHeader, NumberText(lines));
    header_->setText(arrow + QLatin1Char(' ') + text);
    header_->setAccessibleName(text);
    header_->setVisible(lines > 0);
}

void CodeContent::Texte() {
    ShowHeaderLine(headerLines_, header_->isChecked());
    view_->Texte();
}

void CodeContent::ApplySettings() {
    view_->ApplySettings();
}

void CodeContent::Clear() {
    ShowHeaderLine(0, false);
    view_->Clear();
}

void CodeContent::Zoom(int step) {
    step > 0 ? view_->ZoomIn() : step < 0 ? view_->ZoomOut() : view_->ZoomReset();
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

void ContentStack::Zoom(int step) {
    for (ContentPane* pane : panes_)
        if (pane == currentWidget())
            pane->Zoom(step);
}
