// The keyboard on the diagram. Tab and arrows walk from symbol to symbol, with Alt along connectors, and arrows with
// Shift move what is selected.
#include <QKeyEvent>
#include <QScrollBar>
#include <optional>

#include "canvas/connector_layer.h"
#include "canvas/graph_canvas.h"
#include "display/node_objects.h"
#include "widgets/qt_text.h"
#include "xgraph/steps.h"

namespace {

constexpr double kStep = 10 * kTwipsPerPixel;  // of a move by keys

std::optional<GraphDirection> DirectionOf(int key) {
    switch (key) {
        case Qt::Key_Left:
            return GraphDirection::Left;
        case Qt::Key_Right:
            return GraphDirection::Right;
        case Qt::Key_Up:
            return GraphDirection::Up;
        case Qt::Key_Down:
            return GraphDirection::Down;
        default:
            return {};
    }
}

GraphPoint StepOf(GraphDirection direction) {
    switch (direction) {
        case GraphDirection::Left:
            return {-kStep, 0};
        case GraphDirection::Right:
            return {kStep, 0};
        case GraphDirection::Up:
            return {0, -kStep};
        case GraphDirection::Down:
            return {0, kStep};
    }
    return {};
}

bool IsAltArrow(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::AltModifier) && DirectionOf(event.key());
}

}  // namespace

bool GraphCanvas::event(QEvent* event) {
    // While the diagram has the focus, Alt and arrows walk in it; elsewhere they go back and forward.
    if (event->type() == QEvent::ShortcutOverride && IsAltArrow(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QGraphicsView::event(event);
}

void GraphCanvas::keyPressEvent(QKeyEvent* event) {
    const bool isCtrl = event->modifiers() == Qt::ControlModifier;
    const ctlGraphObj* const active = graph_.Active();
    event->accept();
    if (Walk(*event))
        return;
    switch (event->key()) {
        case Qt::Key_Space:
            if (isCtrl && active) {
                graph_.GraphObj_MouseDown(active->Index, kCtrl);
                ShowSelection();
                Q_EMIT Changed();
            } else if (!event->isAutoRepeat()) {
                isSpaceDown_ = true;
                viewport()->setCursor(Qt::OpenHandCursor);
            }
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (active)
                Q_EMIT CodeAsked(NodeKeyOf(*active->object));
            return;
        case Qt::Key_Escape:
            graph_.DeselectAll();
            ShowSelection();
            Q_EMIT Changed();
            return;
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            verticalScrollBar()->triggerAction(event->key() == Qt::Key_PageUp ? QScrollBar::SliderPageStepSub
                                                                              : QScrollBar::SliderPageStepAdd);
            return;
        default:
            break;
    }
    if (event->matches(QKeySequence::SelectAll))
        SelectAll();
    else if (event->matches(QKeySequence::Copy))
        CopyPicture();
    else if (event->matches(QKeySequence::ZoomIn) || (isCtrl && event->key() == Qt::Key_Equal))
        ZoomIn();
    else if (event->matches(QKeySequence::ZoomOut))
        ZoomOut();
    else if (isCtrl && event->key() == Qt::Key_0)
        ZoomReset();
    else
        event->ignore();
}

void GraphCanvas::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        isSpaceDown_ = false;
        ShowPointer(viewport()->mapFromGlobal(QCursor::pos()));
    } else if (event->key() == Qt::Key_Delete) {
        DeleteSelected();
    } else {
        QGraphicsView::keyReleaseEvent(event);
    }
}

// Arrows; false for other keys.
bool GraphCanvas::Walk(const QKeyEvent& event) {
    const std::optional<GraphDirection> direction = DirectionOf(event.key());
    if (!direction)
        return false;
    const ctlGraphObj* const active = graph_.Active();
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ShiftModifier) {
        const GraphPoint step = StepOf(*direction);
        Change(
            TextNr(Text::MoveSymbols), [step](XGraph& graph) { graph.MoveSelected(step.x, step.y); }, ChangeKind::Step);
        if (active)
            GoTo(*active);
    } else if (!active) {
        Reach(NextSymbol(graph_, nullptr, true));
    } else if (modifiers == Qt::AltModifier) {
        Reach(ConnectedTowards(connectors_->Pairs(), *active, *direction));
    } else if (modifiers == Qt::NoModifier) {
        Reach(SymbolTowards(graph_, *active, *direction));
    } else {
        return false;
    }
    return true;
}

// Makes it the active symbol and the only selected one; null is no symbol and changes nothing.
void GraphCanvas::Reach(const ctlGraphObj* symbol) {
    if (!symbol)
        return;
    graph_.DeselectAll();
    graph_.Select(symbol->Index, true);
    graph_.SetActive(symbol->Index);
    ShowConnectors();
    ShowSelection();
    GoTo(*symbol);
    Q_EMIT Changed();
    Q_EMIT SymbolChosen(NodeKeyOf(*symbol->object));
}

// After the last symbol, and before the first, the focus leaves the diagram.
bool GraphCanvas::focusNextPrevChild(bool next) {
    const auto& symbols = graph_.GraphObjects();
    const ctlGraphObj* const active = graph_.Active();
    const bool isLast = symbols.empty() || active == (next ? symbols.back() : symbols.front()).get();
    if (!hasFocus() || isLast)
        return QGraphicsView::focusNextPrevChild(next);
    Reach(NextSymbol(graph_, active, next));
    return true;
}
