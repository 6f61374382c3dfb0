// The mouse on the diagram: dragging symbols, the rubber band, panning, dropping, menus.
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QGraphicsRectItem>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "canvas/connector_layer.h"
#include "canvas/graph_canvas.h"
#include "display/node_objects.h"
#include "display/shown_text.h"
#include "model/clsModul.h"
#include "model/clsProjekt.h"
#include "platform/code_page.h"
#include "source/module_text.h"
#include "widgets/key_mime.h"
#include "widgets/qt_text.h"

namespace {

constexpr int kMostLines = 40;              // of a connector in one menu
constexpr std::size_t kMostConnectors = 4;  // of a symbol beside other items
constexpr int kLongestLine = 90;            // characters of the code in it
constexpr double kWheelStep = 480.0;        // eighths of a degree that double the size
constexpr int kEdge = 12;                   // pixels at the edge of the view, where dragging scrolls
constexpr int kEdgeTurn = 30;               // milliseconds between two steps of that
constexpr int kFastest = 60;                // pixels of a step, however far the mouse is out

int ShiftOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) | (modifiers.testFlag(Qt::ControlModifier) ? kCtrl : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

// How far to scroll for a mouse beyond this side of the view, or near it: further for one that is further out.
int StepBeyond(int low, int high, int at) {
    const int out = at < low + kEdge ? at - low - kEdge : std::max(0, at - high + kEdge);
    return std::clamp(out, -kFastest, kFastest);
}

GraphPoint ToGraph(QPointF point) {
    return {std::round(point.x()), std::round(point.y())};
}

}  // namespace

void GraphCanvas::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (press_.gesture != Gesture::None)
        return;
    const QPoint point = event->position().toPoint();
    if (event->button() == Qt::RightButton || event->button() == Qt::MiddleButton || isSpaceDown_) {
        BeginPan(event->button(), point);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    press_ = {.gesture = Gesture::RubberBand,
              .button = Qt::LeftButton,
              .start = mapToScene(point),
              .last = point,
              .frame = {},
              .hasMoved = false};
    if (const ctlGraphObj* const symbol = SymbolAt(point)) {
        press_.gesture = Gesture::Drag;
        press_.frame = {symbol->Left, symbol->Top, symbol->Width(), symbol->Height()};
        graph_.GraphObj_MouseDown(symbol->Index, ShiftOf(event->modifiers()));
        ShowSelection();
    } else {
        ShowFrame({press_.start, press_.start});
    }
}

void GraphCanvas::mouseMoveEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    switch (press_.gesture) {
        case Gesture::Pan:
            Pan(point);
            break;
        case Gesture::Drag:
        case Gesture::RubberBand:
            press_.hasMoved = true;
            press_.last = point;
            ShowGesture(point);
            if (!viewport()->rect().adjusted(kEdge, kEdge, -kEdge, -kEdge).contains(point)) {
                if (!edge_->isActive())
                    edge_->start(kEdgeTurn);
            } else {
                edge_->stop();
            }
            break;
        case Gesture::None:
            ShowPointer(point);
            break;
    }
}

// Only the frame moves; the symbols follow when it is let go.
void GraphCanvas::ShowGesture(QPoint point) {
    if (press_.gesture == Gesture::Drag)
        ShowFrame(press_.frame.translated(mapToScene(point) - press_.start));
    else
        ShowFrame(QRectF(press_.start, mapToScene(point)).normalized());
}

// Goes on while the mouse rests there.
void GraphCanvas::ScrollAtEdge() {
    if (press_.gesture != Gesture::Drag && press_.gesture != Gesture::RubberBand) {
        edge_->stop();
        return;
    }
    const QRect view = viewport()->rect();
    const auto scroll = [](QScrollBar& bar, int step) { bar.setValue(bar.value() + step); };
    scroll(*horizontalScrollBar(), StepBeyond(view.left(), view.right(), press_.last.x()));
    scroll(*verticalScrollBar(), StepBeyond(view.top(), view.bottom(), press_.last.y()));
    ShowGesture(press_.last);
}

void GraphCanvas::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != press_.button || press_.gesture == Gesture::None)
        return;
    const QPoint point = event->position().toPoint();
    const Press press = std::exchange(press_, {});
    edge_->stop();
    shpMoveObj_->hide();
    ShowPointer(point);
    if (press.gesture == Gesture::Drag) {
        EndDrag(mapToScene(point) - press.start);
    } else if (press.gesture == Gesture::RubberBand) {
        graph_.SelectInside(RectBetween(ToGraph(press.start), ToGraph(mapToScene(point))));
        ShowSelection();
        Q_EMIT Changed();
        const GraphPair* const pair = press.start == mapToScene(point) ? PairAt(point) : nullptr;
        if (pair)
            ShowLines(*pair, event->globalPosition().toPoint());
    } else if (press.button == Qt::RightButton && !press.hasMoved) {
        ShowMenu(event->globalPosition().toPoint(), SymbolAt(point));
    }
}

// A click without a way moves nothing, but colours the connectors of the symbol.
void GraphCanvas::EndDrag(QPointF moved) {
    const GraphPoint way = ToGraph(moved);
    Change(TextNr(Text::MoveSymbols), [way](XGraph& graph) { graph.MoveSelected(way.x, way.y); });
    const ctlGraphObj* const symbol = graph_.Active();
    if (symbol && way == GraphPoint{})
        Q_EMIT SymbolChosen(NodeKeyOf(*symbol->object));
}

void GraphCanvas::ShowFrame(const QRectF& frame) {
    shpMoveObj_->setRect(frame);
    shpMoveObj_->show();
}

void GraphCanvas::BeginPan(Qt::MouseButton button, QPoint point) {
    press_ = {.gesture = Gesture::Pan, .button = button, .start = {}, .last = point, .frame = {}, .hasMoved = false};
    if (button != Qt::RightButton)
        viewport()->setCursor(Qt::ClosedHandCursor);
}

void GraphCanvas::Pan(QPoint point) {
    const QPoint way = point - press_.last;
    if (way.isNull())
        return;
    press_.hasMoved = true;
    press_.last = point;
    viewport()->setCursor(Qt::ClosedHandCursor);
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - way.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - way.y());
}

void GraphCanvas::ShowPointer(QPoint point) {
    viewport()->setCursor(isSpaceDown_                        ? Qt::OpenHandCursor
                          : !SymbolAt(point) && PairAt(point) ? Qt::PointingHandCursor
                                                              : Qt::ArrowCursor);
}

void GraphCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    const ctlGraphObj* const symbol =
        event->button() == Qt::LeftButton ? SymbolAt(event->position().toPoint()) : nullptr;
    if (symbol)
        Q_EMIT SymbolActivated(NodeKeyOf(*symbol->object));
}

void GraphCanvas::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() != Qt::ControlModifier) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    event->accept();
    SetZoom(zoom_ * std::exp2(event->angleDelta().y() / kWheelStep), event->position().toPoint());
}

// The right button pans, and its menu opens when it is let go where it was pressed.
void GraphCanvas::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Mouse)
        return;
    const ctlGraphObj* const symbol = graph_.Active();
    if (symbol)
        GoTo(*symbol);
    const QPoint point =
        symbol ? mapFromScene(symbol->Left, symbol->Top + symbol->Height()) : viewport()->rect().center();
    ShowMenu(viewport()->mapToGlobal(point), symbol);
}

// For a symbol, which the commands below then work on: what Enter does, and each of its connectors with its lines. Null
// for the connector at that place, or the diagram.
void GraphCanvas::ShowMenu(const QPoint& globalPos, const ctlGraphObj* symbol) {
    if (const GraphPair* const pair = symbol ? nullptr : PairAt(viewport()->mapFromGlobal(globalPos))) {
        ShowLines(*pair, globalPos);
        return;
    }
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    if (symbol) {
        if (!symbol->Selected)
            graph_.GraphObj_MouseDown(symbol->Index, 0);
        graph_.SetActive(symbol->Index);
        ShowConnectors();
        ShowSelection();
        Q_EMIT Changed();
        FillMenu(*menu, *symbol);
        menu->addSeparator();
    }
    FillWholeDiagram(*menu);
    Q_EMIT MenuFilled(*menu);
    menu->popup(globalPos);
}

void GraphCanvas::FillMenu(QMenu& menu, const ctlGraphObj& symbol) {
    const std::string key = NodeKeyOf(*symbol.object);
    menu.addAction(TextNr(Text::GraphGoToCode), this, [this, key] { Q_EMIT CodeAsked(key); });
    const int index = symbol.Index;
    menu.addAction(TextNr(Text::RemoveSymbol), this, [this, index] {
        Change(TextNr(Text::DeleteSelected), [index](XGraph& graph) {
            graph.DeselectAll();
            graph.Select(index, true);
            graph.GraphDeleteSelected();
        });
    });
    menu.addSeparator();
    if (addItems_)
        addItems_(menu, key);
    std::vector<const GraphPair*> pairs;
    for (const GraphPair& pair : connectors_->Pairs())
        if (pair.from == &symbol || pair.to == &symbol)
            pairs.push_back(&pair);
    if (pairs.empty())
        menu.addAction(TextNr(Text::NoConnectors))->setEnabled(false);
    QMenu* const connectors = pairs.size() > kMostConnectors
                                  ? menu.addMenu(WithCount(TextNr(Text::Connectors), static_cast<int>(pairs.size())))
                                  : &menu;
    for (const GraphPair* const pair : pairs)
        FillLines(*connectors->addMenu(NameOf(*pair).replace(QLatin1Char('&'), QStringLiteral("&&"))), *pair);
}

// What concerns no single symbol: the actions that the window has given to the canvas.
void GraphCanvas::FillWholeDiagram(QMenu& menu) {
    menu.addAction(TextNr(Text::CopyPicture), QKeySequence::Copy, this, &GraphCanvas::CopyPicture)
        ->setEnabled(!graph_.GraphObjects().empty());
    menu.addActions(actions());
}

void GraphCanvas::ShowLines(const GraphPair& pair, const QPoint& globalPos) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addSection(NameOf(pair));
    FillLines(*menu, pair);
    menu->popup(globalPos);
}

void GraphCanvas::FillLines(QMenu& menu, const GraphPair& pair) {
    const std::vector<CallLine> lines = CallLinesOf(pair);
    int shown = 0;
    for (const CallLine& line : lines) {
        if (++shown > kMostLines)
            break;
        const clsModul& modul = line.call->CallerModule();
        QString code =
            QString::fromStdString(Utf8Of(&modul, JoinedLine(modul.text->ModulTextOrg(), line.call->CallPos)));
        if (code.size() > kLongestLine)
            code = code.left(kLongestLine - 1) + QChar(0x2026);
        const bool isPossible = line.call->Type() == CallType::MayBe;
        QString text = TextNr(isPossible ? Text::PossibleLine : Text::CertainLine, ToQString(modul.myNameOrg()),
                              NumberText(line.line), code);
        menu.addAction(text.replace(QLatin1Char('&'), QStringLiteral("&&")), this,
                       [this, key = NodeKeyOf(modul), nr = line.line] { Q_EMIT PlaceChosen(key, nr); });
    }
    if (const auto all = static_cast<int>(lines.size()); all > kMostLines)
        menu.addAction(TextNr(Text::MoreLines, NumberText(all - kMostLines)))->setEnabled(false);
}

void GraphCanvas::TakeKeysOnly(QDropEvent& event) const {
    if (graph_.Projekt() && event.mimeData()->hasFormat(QString::fromLatin1(kKeyMimeType)))
        event.acceptProposedAction();
    else
        event.ignore();  // a file is for the window
}

void GraphCanvas::dragEnterEvent(QDragEnterEvent* event) {
    TakeKeysOnly(*event);
}

void GraphCanvas::dragMoveEvent(QDragMoveEvent* event) {
    TakeKeysOnly(*event);
}

void GraphCanvas::dropEvent(QDropEvent* event) {
    const QByteArray key = event->mimeData()->data(QString::fromLatin1(kKeyMimeType));
    if (key.isEmpty() || !graph_.Projekt()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    DropKey(ActiveCodePage().FromUtf8(key.toStdString()), event->position().toPoint());
}

void GraphCanvas::DropKey(const std::string& key, QPoint point) {
    CodeObject* const object = ObjectOfNode(*graph_.Projekt(), NodeId{NodeKind::Object, key});
    if (!object)
        return;
    setFocus();
    Change(TextNr(Text::AddSymbol), [&](XGraph& graph) { graph.Drop(object, ToGraph(mapToScene(point))); });
    Q_EMIT SymbolChosen(NodeKeyOf(*object));
}
