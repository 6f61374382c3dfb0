#include "views/main_panes.h"

#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "platform/settings_file.h"
#include "views/fold_splitter.h"
#include "views/twips.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kContentMargin = 6;  // pixels around the panes of "Content"
constexpr int kCallsMargin = 13;   // and of "Calls"
constexpr int kSmallestTree = ToPixels(2300);
constexpr int kSmallestMiddle = 220;  // pixels for the project tree in "Calls", where names begin far to the right
constexpr int kSmallestContent = ToPixels(400);
constexpr int kSmallestAcross = ToPixels(500);
constexpr int kSmallestProperties = ToPixels(1000);
constexpr double kTreeShare = 3.4;  // the middle tree takes this part of the width in "Calls"

struct Bar {
    FoldSplitter* splitter;
    std::string WindowSize::*place;
    std::string WindowSize::*hide;
};

}  // namespace

MainPanes::MainPanes(const Panes& panes, QWidget* parent)
    : QWidget(parent),
      panes_(panes),
      contentX_(new FoldSplitter(Qt::Horizontal, this)),
      contentY_(new FoldSplitter(Qt::Vertical, this)),
      callsX_(new FoldSplitter(Qt::Horizontal, this)),
      callsY_(new FoldSplitter(Qt::Vertical, this)),
      callsLower_(new FoldSplitter(Qt::Horizontal, this, false)),
      contentColumn_(new QWidget(this)),
      outer_(new QVBoxLayout(this)) {
    for (QWidget* pane : {panes_.path, panes_.tree, panes_.lower, panes_.calledBy, panes_.calls, panes_.content})
        pane->setParent(this);  // also the panes that the first arrangement does not show
    auto* column = new QVBoxLayout(contentColumn_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(4);
    column->addWidget(panes_.content, 1);
    panes_.tree->setMinimumHeight(kSmallestAcross);
    panes_.lower->setMinimumHeight(kSmallestProperties);
    contentColumn_->setMinimumSize(kSmallestContent, kSmallestAcross);
    for (QWidget* pane : {panes_.calledBy, panes_.calls})
        pane->setMinimumWidth(kSmallestTree);
    for (FoldSplitter* splitter : {contentX_, contentY_, callsX_, callsY_}) {
        splitter->hide();
        connect(splitter, &FoldSplitter::FoldedChanged, this, &MainPanes::FoldsChanged);
    }
    callsLower_->hide();
    outer_->setSpacing(kContentMargin);
}

FoldSplitter& MainPanes::picSplitX() const {
    return IsCalls() ? *callsX_ : *contentX_;
}

FoldSplitter& MainPanes::picSplitY() const {
    return IsCalls() ? *callsY_ : *contentY_;
}

void MainPanes::Arrange(SplitMode mode) {
    if (placed_)
        Store(stored_);
    mode_ = mode;
    const bool calls = IsCalls();
    for (FoldSplitter* splitter : {contentX_, contentY_, callsX_, callsY_})
        splitter->hide();
    auto* column = static_cast<QVBoxLayout*>(contentColumn_->layout());
    if (calls) {
        callsX_->addWidget(panes_.calledBy);
        callsX_->addWidget(panes_.tree);
        callsX_->addWidget(panes_.calls);
        callsY_->addWidget(callsX_);
        callsLower_->addWidget(contentColumn_);
        callsLower_->addWidget(panes_.lower);
        callsLower_->setStretchFactor(0, 1);
        callsY_->addWidget(callsLower_);
        callsY_->setStretchFactor(1, 1);
        outer_->addWidget(panes_.path);
        outer_->addWidget(callsY_, 1);
        KeepRoomForCode();
        callsX_->setMinimumHeight(kSmallestAcross);
    } else {
        contentY_->addWidget(panes_.tree);
        contentY_->addWidget(panes_.lower);
        contentY_->setStretchFactor(0, 1);
        contentX_->addWidget(contentY_);
        contentX_->addWidget(contentColumn_);
        contentX_->setStretchFactor(1, 1);
        column->insertWidget(0, panes_.path);
        outer_->addWidget(contentX_, 1);
    }
    panes_.tree->setMinimumWidth(calls ? kSmallestMiddle : kSmallestTree);
    panes_.lower->show();
    panes_.calledBy->setVisible(calls);
    panes_.calls->setVisible(calls);
    const int margin = calls ? kCallsMargin : kContentMargin;
    outer_->setContentsMargins(margin, kContentMargin, margin, kContentMargin);
    for (FoldSplitter* splitter : {&picSplitX(), &picSplitY()})
        splitter->show();
    callsLower_->setVisible(calls);
    contentColumn_->show();
    panes_.tree->show();
    panes_.path->show();
    OrderTabs();
    Texte();
    PlaceAll();
}

// The Tab key follows the layout from left to right and from top to bottom; each bar comes after the pane before it.
// Qt's default is the order of creation.
void MainPanes::OrderTabs() {
    QList<QWidget*> order;
    const auto add = [&order](QWidget* pane) {
        QList<QWidget*> inside = pane->findChildren<QWidget*>();
        inside.prepend(pane);
        // Tabs are above their pages, but are created later.
        std::stable_partition(inside.begin(), inside.end(),
                              [](QWidget* child) { return qobject_cast<QTabBar*>(child) != nullptr; });
        for (QWidget* widget : inside)
            if (widget->focusPolicy() & Qt::TabFocus)
                order.append(widget);
    };
    if (IsCalls()) {
        for (QWidget* pane :
             {panes_.path, panes_.calledBy, static_cast<QWidget*>(callsX_->handle(1)), panes_.tree,
              static_cast<QWidget*>(callsX_->handle(2)), panes_.calls, static_cast<QWidget*>(callsY_->handle(1)),
              panes_.content, static_cast<QWidget*>(callsLower_->handle(1)), panes_.lower})
            add(pane);
    } else {
        for (QWidget* pane : {panes_.tree, static_cast<QWidget*>(contentY_->handle(1)), panes_.lower,
                              static_cast<QWidget*>(contentX_->handle(1)), panes_.path, panes_.content})
            add(pane);
    }
    for (qsizetype i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void MainPanes::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    PlaceAll();
}

void MainPanes::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    KeepRoomForCode();
}

// A third of the window for the code below the trees, also when the bar is dragged or the window made smaller.
void MainPanes::KeepRoomForCode() {
    callsLower_->setMinimumHeight(window()->height() / 3);
}

// The widths of the three trees in "Calls". The left one comes back as stored, but takes no more than half; the right
// one is as wide if the middle one keeps its share.
QList<int> MainPanes::TreeWidths(int stored) const {
    const int room = width() - 2 * (kCallsMargin + callsX_->handleWidth());
    const int share = std::max(kSmallestMiddle, static_cast<int>(width() / kTreeShare));
    const int left = stored > 0 ? std::min(stored, room / 2) : (room - share) / 2;
    const int right = std::max(kSmallestTree, std::min(left, room - left - share));
    return {left, room - left - right, right};
}

// Bars can only be placed once the panes have a size.
void MainPanes::PlaceAll() {
    if (!isVisible())
        return;
    outer_->activate();
    const bool calls = IsCalls();
    const int lower = panes_.lower->sizeHint().width();  // all its tabs can be read
    const std::array<Bar, 2> bars{calls ? Bar{callsX_, &WindowSize::SplitX_Calls, &WindowSize::SplitX_Calls_Hide}
                                        : Bar{contentX_, &WindowSize::SplitX_Content, &WindowSize::SplitX_Content_Hide},
                                  calls
                                      ? Bar{callsY_, &WindowSize::SplitY_Calls, &WindowSize::SplitY_Calls_Hide}
                                      : Bar{contentY_, &WindowSize::SplitY_Content, &WindowSize::SplitY_Content_Hide}};
    for (const Bar& bar : bars) {
        const bool sideways = bar.splitter->orientation() == Qt::Horizontal;
        const int room = sideways ? width() : height();
        const int place = ToPixels(LeadingNumber(stored_.*bar.place));
        // Unfolded first: the place of a folded pane is only the size to which it unfolds.
        bar.splitter->SetFolded(false);
        if (bar.splitter == callsX_)
            callsX_->setSizes(TreeWidths(place));
        else if (place > 0)
            bar.splitter->SetPlace(place);
        else
            bar.splitter->SetPlace(calls      ? room * 2 / 5
                                   : sideways ? std::max(room * 3 / 10, std::min(lower, room * 2 / 5))
                                              : room * 2 / 3);
        bar.splitter->SetFolded(stored_.*bar.hide == "1");
    }
    if (calls) {
        const int right = std::max(width() / 4, lower);
        callsLower_->setSizes({width() - right, right});
    }
    placed_ = true;
    Q_EMIT FoldsChanged();
}

void MainPanes::ShowTree() {
    if (!IsCalls())
        contentX_->SetFolded(false);
    picSplitY().SetFolded(false);
}

void MainPanes::ShowLower() {
    if (!IsCalls())
        contentX_->SetFolded(false);
}

void MainPanes::Restore(const WindowSize& size) {
    stored_ = size;
    placed_ = false;
    PlaceAll();
}

void MainPanes::Store(WindowSize& size) const {
    if (&size != &stored_) {
        size.SplitX_Content = stored_.SplitX_Content;
        size.SplitY_Content = stored_.SplitY_Content;
        size.SplitX_Content_Hide = stored_.SplitX_Content_Hide;
        size.SplitY_Content_Hide = stored_.SplitY_Content_Hide;
        size.SplitX_Calls = stored_.SplitX_Calls;
        size.SplitY_Calls = stored_.SplitY_Calls;
        size.SplitX_Calls_Hide = stored_.SplitX_Calls_Hide;
        size.SplitY_Calls_Hide = stored_.SplitY_Calls_Hide;
    }
    if (!placed_)
        return;
    const auto store = [&size](const FoldSplitter& splitter, std::string WindowSize::*place,
                               std::string WindowSize::*hide) {
        size.*place = TwipsText(splitter.Place());
        size.*hide = splitter.Folded() ? "1" : "0";
    };
    if (callsX_->isVisibleTo(this)) {
        store(*callsX_, &WindowSize::SplitX_Calls, &WindowSize::SplitX_Calls_Hide);
        store(*callsY_, &WindowSize::SplitY_Calls, &WindowSize::SplitY_Calls_Hide);
    } else {
        store(*contentX_, &WindowSize::SplitX_Content, &WindowSize::SplitX_Content_Hide);
        store(*contentY_, &WindowSize::SplitY_Content, &WindowSize::SplitY_Content_Hide);
    }
}

void MainPanes::Texte() {
    for (FoldSplitter* splitter : {contentX_, callsX_, callsLower_})
        splitter->SetTexte(TextNr(Text::LeftPane), TextNr(Text::Divider));
    for (FoldSplitter* splitter : {contentY_, callsY_})
        splitter->SetTexte(TextNr(Text::UpperPane), TextNr(Text::Divider));
}
