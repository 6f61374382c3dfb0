#include "views/fold_splitter.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>

#include "widgets/icons.h"

namespace {

constexpr int kBar = 10;   // thickness of a bar in pixels
constexpr int kStep = 16;  // pixels per key press

}  // namespace

class FoldSplitter::Handle final : public QSplitterHandle {
public:
    Handle(Qt::Orientation orientation, FoldSplitter& splitter)
        : QSplitterHandle(orientation, &splitter), splitter_(splitter) {
        setFocusPolicy(Qt::TabFocus);
        if (!splitter.folds_)
            return;
        button_ = new QToolButton(this);
        button_->setAutoRaise(true);
        button_->setFocusPolicy(Qt::NoFocus);  // the view menu has the same commands
        button_->setCursor(Qt::PointingHandCursor);
        const bool sideways = orientation == Qt::Horizontal;
        button_->setFixedSize(sideways ? QSize(kBar, 36) : QSize(36, kBar));
        button_->setIconSize(QSize(kBar, kBar));
        auto* layout = new QBoxLayout(sideways ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(button_, 0, Qt::AlignCenter);
        button_->hide();
        connect(button_, &QToolButton::clicked, this, [this] { splitter_.SetFolded(!splitter_.Folded()); });
    }

    void ShowState() {
        setAccessibleName(splitter_.barText_);
        if (!button_)
            return;
        button_->setVisible(Folds());
        const bool sideways = orientation() == Qt::Horizontal;
        const bool folded = splitter_.Folded();
        button_->setIcon(
            IconFor(sideways ? (folded ? "SplitXShow" : "SplitXHide") : (folded ? "SplitYShow" : "SplitYHide")));
        button_->setToolTip(splitter_.foldText_);
        button_->setAccessibleName(splitter_.foldText_);
        setCursor(IsFolded() ? Qt::ArrowCursor : sideways ? Qt::SplitHCursor : Qt::SplitVCursor);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool sideways = orientation() == Qt::Horizontal;
        const int key = event->key();
        if (Folds() && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space))
            button_->click();
        else if (!IsFolded() && key == (sideways ? Qt::Key_Left : Qt::Key_Up))
            moveSplitter((sideways ? x() : y()) - kStep);
        else if (!IsFolded() && key == (sideways ? Qt::Key_Right : Qt::Key_Down))
            moveSplitter((sideways ? x() : y()) + kStep);
        else
            QSplitterHandle::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent* event) override {
        QSplitterHandle::paintEvent(event);
        if (!hasFocus())
            return;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(QPalette::Highlight));
        const bool sideways = orientation() == Qt::Horizontal;
        painter.drawRoundedRect(sideways ? rect().adjusted(3, 0, -3, 0) : rect().adjusted(0, 3, 0, -3), 2, 2);
    }
    void focusInEvent(QFocusEvent* event) override {
        QSplitterHandle::focusInEvent(event);
        update();
    }
    void focusOutEvent(QFocusEvent* event) override {
        QSplitterHandle::focusOutEvent(event);
        update();
    }
    void mousePressEvent(QMouseEvent* event) override {
        if (!IsFolded())
            QSplitterHandle::mousePressEvent(event);
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!IsFolded())
            QSplitterHandle::mouseMoveEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (!IsFolded())
            QSplitterHandle::mouseReleaseEvent(event);
    }

private:
    // Only the bar after the first pane folds. Which one that is changes when panes come and go.
    [[nodiscard]] bool Folds() const { return button_ && splitter_.handle(1) == this; }
    [[nodiscard]] bool IsFolded() const { return Folds() && splitter_.Folded(); }

    FoldSplitter& splitter_;
    QToolButton* button_ = nullptr;
};

FoldSplitter::FoldSplitter(Qt::Orientation orientation, QWidget* parent, bool folds)
    : QSplitter(orientation, parent), folds_(folds) {
    setChildrenCollapsible(false);
    setHandleWidth(kBar);
}

QSplitterHandle* FoldSplitter::createHandle() {
    return new Handle(orientation(), *this);
}

int FoldSplitter::Place() const {
    return folded_ || sizes().isEmpty() ? place_ : sizes().front();
}

void FoldSplitter::SetPlace(int pixels) {
    place_ = pixels;
    if (folded_ || count() < 2)
        return;
    QList<int> all = sizes();
    const int two = all[0] + all[1];
    all[0] = pixels;
    all[1] = std::max(0, two - pixels);
    setSizes(all);
}

void FoldSplitter::SetFolded(bool folded) {
    if (folded == folded_ || count() < 2)
        return;
    if (folded)
        place_ = Place();
    folded_ = folded;
    ApplyFolded();
    Q_EMIT FoldedChanged(folded);
}

void FoldSplitter::ApplyFolded() {
    setCollapsible(0, folded_);
    QList<int> all = sizes();
    const int two = all[0] + all[1];
    all[0] = folded_ ? 0 : place_;
    all[1] = std::max(0, two - all[0]);
    setSizes(all);
    ShowState();
}

void FoldSplitter::ShowState() {
    for (int nr = 1; nr < count(); ++nr)
        static_cast<Handle*>(handle(nr))->ShowState();
}

void FoldSplitter::SetTexte(const QString& fold, const QString& bar) {
    foldText_ = fold;
    barText_ = bar;
    ShowState();
}
