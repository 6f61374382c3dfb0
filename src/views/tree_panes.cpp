#include "views/tree_panes.h"

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QLayout>
#include <QToolBar>
#include <QVBoxLayout>

#include "views/baum_view.h"
#include "views/commands.h"
#include "views/elided_label.h"
#include "views/remark_line.h"
#include "views/search_bar.h"
#include "widgets/code_style.h"
#include "widgets/qt_text.h"
#include "widgets/window_style.h"

namespace {

// Without margins, so that the row above the trees is as high as the search field and the path line beside it.
QToolBar* SmallToolbar(QWidget* parent) {
    auto* toolbar = new QToolBar(parent);
    toolbar->setIconSize(QSize(16, 16));
    toolbar->setMovable(false);
    toolbar->layout()->setContentsMargins(0, 0, 0, 0);
    return toolbar;
}

QVBoxLayout* Column(QWidget* pane) {
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    return column;
}

}  // namespace

ProjectPane::ProjectPane(Baum& tree, const Settings& settings, Commands& commands, QWidget* parent)
    : QWidget(parent),
      search_(new SearchBar(this)),
      ToolbarPrTrw(SmallToolbar(this)),
      preliminary_(new RemarkLine(QStringLiteral("ReadAllCalls"), this)),
      tree_(new BaumView(tree, settings, this)) {
    for (const Command command :
         {Command::CheckBoxOn, Command::CheckBoxAll, Command::CheckBoxNone, Command::CollapseAll})
        ToolbarPrTrw->addAction(&commands[command]);
    auto* top = new QHBoxLayout;
    top->addStrut(HeadHeight(*this));
    top->setSpacing(4);
    top->addWidget(search_, 1);
    top->addWidget(ToolbarPrTrw);
    QVBoxLayout* column = Column(this);
    column->addLayout(top);
    column->addWidget(preliminary_);
    column->addWidget(tree_, 1);
    connect(preliminary_, &RemarkLine::Clicked, &commands[Command::Calls], &QAction::trigger);
}

void ProjectPane::ShowPreliminary(bool preliminary) {
    preliminary_->Show(preliminary ? TextNr(Text::MarksArePreliminary) : QString());
}

void ProjectPane::Texte() {
    preliminary_->SetButtonText(TextNr(Text::ReadAllCalls));
    search_->Texte();
    tree_->SetTexte(Text::ProjectTree, Text::EmptyProjectTree);
    tree_->Texte();
    ToolbarPrTrw->setAccessibleName(TextNr(Text::ProjectTree));
}

DependencyPane::DependencyPane(Baum& tree, const Settings& settings, Commands& commands, Command really, Command mayBe,
                               QWidget* parent)
    : QWidget(parent),
      caption_(new ElidedLabel(this)),
      toolbar_(SmallToolbar(this)),
      filter_(new RemarkLine(QStringLiteral("ShowAll"), this)),
      tree_(new BaumView(tree, settings, this)) {
    toolbar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    toolbar_->addAction(&commands[really]);
    toolbar_->addAction(&commands[mayBe]);
    QFont bold = caption_->font();
    bold.setBold(true);
    caption_->setFont(bold);
    auto* top = new QHBoxLayout;
    top->addStrut(HeadHeight(*this));
    top->setContentsMargins(4, 0, 0, 0);
    top->addWidget(caption_, 1);
    top->addWidget(toolbar_);
    QVBoxLayout* column = Column(this);
    column->addLayout(top);
    connect(filter_, &RemarkLine::Clicked, this, &DependencyPane::ShowAllClicked);
    column->addWidget(filter_);
    column->addWidget(tree_, 1);
    tree_->SetLeadsOn(true);
}

void DependencyPane::ShowFilter(const QString& text) {
    filter_->Show(text);
}

void DependencyPane::ShowWhyEmpty(Text why) {
    tree_->SetEmptyText(TextNr(why));
}

void DependencyPane::ShowCaption(const QString& text, bool mayBe) {
    caption_->SetText(text);
    toolbar_->setAccessibleName(text);
    mayBe_ = mayBe;
    PaintCaption();
}

// Red for possible, blue for certain, made readable on the palette.
void DependencyPane::PaintCaption() {
    constexpr std::int32_t kRed = 255;
    constexpr std::int32_t kBlue = 0xff0000;
    QPalette colours;
    colours.setColor(QPalette::WindowText,
                     Readable(ColourFromBgr(mayBe_ ? kRed : kBlue), palette().color(QPalette::Window)));
    caption_->setPalette(colours);
}

void DependencyPane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        PaintCaption();
}

void DependencyPane::Texte(Text name) {
    tree_->SetTexte(name, Text::None);
    filter_->SetButtonText(TextNr(Text::ShowAll));
    tree_->setToolTip(TextNr(Text::DependencyTreeTip));
    tree_->Texte();
}
