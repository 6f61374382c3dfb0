// What of the diagram is on the screen, and how it follows its XGraph.
#include "canvas/graph_canvas.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>
#include <QUndoStack>
#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "canvas/connector_layer.h"
#include "canvas/frame_layer.h"
#include "canvas/graph_accessible.h"
#include "canvas/graph_change.h"
#include "canvas/graph_colours.h"
#include "canvas/legend.h"
#include "canvas/overview_map.h"
#include "canvas/symbol_fonts.h"
#include "canvas/symbol_item.h"
#include "display/node_objects.h"
#include "model/clsProjekt.h"
#include "shell/settings.h"
#include "widgets/empty_text.h"
#include "widgets/qt_text.h"
#include "xgraph/placement.h"

namespace {

constexpr int kUndoSteps = 200;
constexpr double kZoomStep = 1.2;
constexpr double kSmallestZoom = 0.04;
constexpr double kLargestZoom = 6;
constexpr int kHitPixels = 4;                      // around a connector, in which it is hit
constexpr int kSightMargin = 40;                   // pixels between a symbol that is shown and the edge of the view
constexpr double kFitMargin = 20;                  // pixels around the whole diagram
constexpr double kEdgeTwips = 8 * kTwipsPerPixel;  // around the canvas, for the rings of symbols at its edge

QRectF ToQt(const GraphRect& rect) {
    return {rect.left, rect.top, rect.width, rect.height};
}

}  // namespace

GraphCanvas::GraphCanvas(const Settings& settings, QWidget* parent)
    : QGraphicsView(parent),
      settings_(settings),
      fonts_(std::make_unique<SymbolFonts>()),
      colours_(std::make_unique<GraphColours>(ColoursOf(palette(), settings))),
      graph_(*fonts_),
      undo_(new QUndoStack(this)),
      connectors_(std::make_unique<ConnectorLayer>()),
      shpMoveObj_(new QGraphicsRectItem),
      frames_(std::make_unique<FrameLayer>()),
      legend_(new GraphLegend(*colours_, this)),
      map_(new GraphMap(*colours_, this)),
      edge_(new QTimer(this)) {
    setObjectName(QStringLiteral("picGraphDraw"));
    setScene(new QGraphicsScene(this));
    scene()->addItem(shpMoveObj_);
    shpMoveObj_->setZValue(1e9);
    shpMoveObj_->hide();
    // The connectors are the background: they are painted again when they change, and not when something moves above.
    setCacheMode(CacheBackground);
    setViewportUpdateMode(SmartViewportUpdate);
    setOptimizationFlag(DontSavePainterState);
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    setTransformationAnchor(NoAnchor);
    setResizeAnchor(NoAnchor);
    setFrameShape(QFrame::StyledPanel);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    viewport()->setMouseTracking(true);
    undo_->setUndoLimit(kUndoSteps);
    connect(undo_, &QUndoStack::cleanChanged, this, &GraphCanvas::Changed);
    connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, &GraphCanvas::PlaceCorners);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &GraphCanvas::PlaceCorners);
    connect(map_, &GraphMap::Moved, this, [this](QPointF centre) { centerOn(centre); });
    connect(edge_, &QTimer::timeout, this, &GraphCanvas::ScrollAtEdge);
    InstallGraphAccessible();
    SetZoom(1, Middle());
    ApplySettings();
    Refresh();
}

// The stack goes with the children, after this part of the canvas: what it says then has nobody to hear it.
GraphCanvas::~GraphCanvas() {
    undo_->disconnect(this);
}

bool GraphCanvas::IsUnsaved() const {
    return !undo_->isClean() && !(file_.isEmpty() && graph_.GraphObjects().empty());
}

void GraphCanvas::SetProject(clsProjekt* projekt) {
    Forget();
    graph_.SetProject(projekt);
    file_.clear();
    marked_.clear();
    shown_.clear();
    undo_->clear();
    isPlaced_ = false;
    Refresh();
    ShowPlaced();
}

void GraphCanvas::ReplaceProject(clsProjekt& projekt) {
    Forget();
    graph_.ReplaceProject(projekt);
    Refresh();
}

void GraphCanvas::Forget() {
    press_ = {};
    isShown_ = false;
    edge_->stop();
    shpMoveObj_->hide();
    connectors_->Clear();
    frames_->Clear();
    map_->hide();
    for (const auto& [index, item] : items_)
        delete item;
    items_.clear();
    resetCachedContent();
    viewport()->update();
}

// From `before` to what is shown.
std::unique_ptr<GraphChange> GraphCanvas::MakeChange(const QString& text, GraphState before) {
    return std::make_unique<GraphChange>(text, std::move(before), GraphState{shown_, file_}, file_,
                                         [this](const std::vector<SymbolPlace>& places) {
                                             graph_.SetPlaces(places);
                                             shown_ = graph_.Places();
                                             Refresh();
                                             FindSymbols();
                                         });
}

bool GraphCanvas::Change(const QString& text, const std::function<void(XGraph&)>& change, ChangeKind kind) {
    GraphState before{graph_.Places(), file_};
    change(graph_);
    shown_ = graph_.Places();
    const bool isChange = before != GraphState{shown_, file_};
    if (isChange) {
        std::unique_ptr<GraphChange> made = MakeChange(text, std::move(before));
        if (kind == ChangeKind::Step)
            made->JoinSteps();
        undo_->push(made.release());
    }
    Refresh();
    return isChange;
}

void GraphCanvas::Refresh() {
    // Objects that have gone take their symbols with them. Undo brings back those that have come again.
    std::vector<SymbolPlace> places = graph_.Places();
    if (places != shown_) {
        GraphState before{std::move(shown_), file_};
        shown_ = std::move(places);
        undo_->push(MakeChange(TextNr(Text::Refresh), std::move(before)).release());
    }
    isShown_ = true;
    graph_.GraphSymbolsRefresh();
    ShowSymbols();
    ShowConnectors();
    GrowScene();
    TellContentsChanged(*this);
    Q_EMIT Changed();
}

void GraphCanvas::ShowSymbols() {
    std::unordered_set<int> here;
    for (const auto& symbol : graph_.GraphObjects()) {
        here.insert(symbol->Index);
        SymbolItem*& item = items_[symbol->Index];
        if (!item) {
            item = new SymbolItem(symbol->Index, *colours_);
            scene()->addItem(item);
        }
    }
    std::erase_if(items_, [&](const auto& entry) {
        if (here.contains(entry.first))
            return false;
        delete entry.second;
        return true;
    });
    ShowSelection();
}

void GraphCanvas::ShowSelection() {
    const ctlGraphObj* const active = hasFocus() ? graph_.Active() : nullptr;
    for (const auto& symbol : graph_.GraphObjects())
        if (const auto item = items_.find(symbol->Index); item != items_.end())
            item->second->Show(*symbol, symbol.get() == active || symbol->CodePath == marked_);
    PlaceMap();
}

void GraphCanvas::ShowConnectors() {
    connectors_->Find(graph_);
    if (settings_.GraphFrames != 0)
        frames_->Find(graph_);
    resetCachedContent();
    viewport()->update();
}

QRectF GraphCanvas::CanvasRect() const {
    return ToQt(graph_.Canvas()).adjusted(-kEdgeTwips, -kEdgeTwips, kEdgeTwips, kEdgeTwips);
}

// The scene holds the canvas and the visible part, so it is never smaller than the view.
void GraphCanvas::PlaceScene(const QRectF& seen) {
    if (const QRectF scene = CanvasRect().united(seen); scene != sceneRect())
        setSceneRect(scene);
}

// Only larger, because what is seen must not move while symbols come and go.
void GraphCanvas::GrowScene() {
    if (const QRectF canvas = CanvasRect(); !sceneRect().contains(canvas))
        setSceneRect(sceneRect().united(canvas));
}

// A pixel less than the view: of exactly its size, rounding shows scroll bars, which make the view smaller, which hides
// them, without an end.
QRectF GraphCanvas::SeenFrom(QPointF centre) const {
    const QSizeF size = QSizeF(viewport()->size() - QSize(1, 1)) * kTwipsPerPixel / zoom_;
    return {centre - QPointF(size.width(), size.height()) / 2, size};
}

void GraphCanvas::PlaceScene() {
    PlaceScene(SeenFrom(mapToScene(viewport()->rect()).boundingRect().center()));
}

void GraphCanvas::drawBackground(QPainter* painter, const QRectF& exposed) {
    connectors_->PaintPixels(*painter, exposed, *colours_,
                             [&](QPainter& below) { frames_->Paint(below, exposed, *colours_); });
}

void GraphCanvas::paintEvent(QPaintEvent* event) {
    isPlaced_ = true;
    QGraphicsView::paintEvent(event);
    if (graph_.GraphObjects().empty())
        PaintEmptyText(*this, colours_->ground, TextNr(Text::EmptyGraph));
}

void GraphCanvas::resizeEvent(QResizeEvent* event) {
    QGraphicsView::resizeEvent(event);
    PlaceScene();
    PlaceCorners();
    ShowPlaced();
}

void GraphCanvas::showEvent(QShowEvent* event) {
    QGraphicsView::showEvent(event);
    PlaceScene();
    PlaceCorners();
    ShowPlaced();
}

// Until the user has seen it: a canvas is shown before it gets its size.
void GraphCanvas::ShowPlaced() {
    if (!isPlaced_ && isVisible())
        FitInView();
}

void GraphCanvas::changeEvent(QEvent* event) {
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        ForgetSymbolPictures();
        ApplySettings();
    }
}

void GraphCanvas::focusInEvent(QFocusEvent* event) {
    QGraphicsView::focusInEvent(event);
    ShowSelection();
}

void GraphCanvas::focusOutEvent(QFocusEvent* event) {
    QGraphicsView::focusOutEvent(event);
    isSpaceDown_ = false;
    ShowSelection();
}

void GraphCanvas::ApplySettings() {
    *colours_ = ColoursOf(palette(), settings_);
    QPen frame(colours_->frame, 1, Qt::DotLine);
    frame.setCosmetic(true);
    shpMoveObj_->setPen(frame);
    resetCachedContent();
    viewport()->update();
    legend_->update();
    PlaceMap();
}

void GraphCanvas::Texte() {
    setAccessibleName(TextNr(Text::XGraph));
    setAccessibleDescription(TextNr(Text::GraphKeys));
    legend_->Texte();
    map_->Texte();
    PlaceLegend();
    viewport()->update();
}

void GraphCanvas::CopyPicture() {
    if (!isShown_ || graph_.GraphObjects().empty())
        return;
    const GraphPicture picture(graph_, settings_);
    QImage image = ImageOf(picture, devicePixelRatioF());
    // Where nobody could paste it in full sharpness, in that of the screen's dots.
    if (image.isNull())
        image = ImageOf(picture, 1);
    if (!image.isNull())
        QGuiApplication::clipboard()->setImage(image);
}

void GraphCanvas::SetZoom(double zoom, QPoint fixed) {
    const QPointF at = mapToScene(fixed);
    const double bounded = std::clamp(zoom, kSmallestZoom, kLargestZoom);
    zoom_ = std::fabs(bounded - 1) < 0.05 ? 1 : bounded;
    setTransform(QTransform::fromScale(zoom_ / kTwipsPerPixel, zoom_ / kTwipsPerPixel));
    const QPointF aside = QRectF(viewport()->rect()).center() - fixed;
    ShowAround(at + aside * kTwipsPerPixel / zoom_);
}

// The scene first, or its end would keep the point from the middle.
void GraphCanvas::ShowAround(QPointF centre) {
    PlaceScene(SeenFrom(centre));
    centerOn(centre);
    PlaceMap();
}

QPoint GraphCanvas::Middle() const {
    return viewport()->rect().center();
}

void GraphCanvas::ZoomIn() {
    SetZoom(zoom_ * kZoomStep, Middle());
}

void GraphCanvas::ZoomOut() {
    SetZoom(zoom_ / kZoomStep, Middle());
}

void GraphCanvas::ZoomReset() {
    SetZoom(1, Middle());
    FindSymbols();
}

void GraphCanvas::Fit() {
    isPlaced_ = isVisible();
    if (isPlaced_)
        FitInView();
}

void GraphCanvas::FitInView() {
    if (graph_.GraphObjects().empty()) {
        SetZoom(1, Middle());
        centerOn(sceneRect().center());
        return;
    }
    FitInto(viewport()->rect());
    const QRect symbols = mapFromScene(ToQt(graph_.SymbolBounds())).boundingRect();
    const QRect legend = legend_->geometry().translated(-viewport()->pos());
    if (legend_->isVisible() && legend.intersects(symbols) && legend.top() > viewport()->height() / 2)
        FitInto(viewport()->rect().adjusted(0, 0, 0, legend.top() - viewport()->height()));
}

// Shows the whole diagram in the middle of a part of the viewport.
void GraphCanvas::FitInto(const QRect& part) {
    const QRectF all = ToQt(graph_.SymbolBounds());
    const double width = part.width() - 2 * kFitMargin;
    const double height = part.height() - 2 * kFitMargin;
    SetZoom(std::min({1.0, width * kTwipsPerPixel / all.width(), height * kTwipsPerPixel / all.height()}), Middle());
    const QPointF aside = QRectF(viewport()->rect()).center() - QRectF(part).center();
    ShowAround(all.center() + aside * kTwipsPerPixel / zoom_);
}

void GraphCanvas::FindSymbols() {
    const QRectF seen = ToQt(VisiblePart());
    const auto distance = [&](const std::unique_ptr<ctlGraphObj>& symbol) {
        const QRectF frame = ToQt(symbol->Frame());
        return seen.intersects(frame) ? 0 : QLineF(seen.center(), frame.center()).length();
    };
    const auto nearest = std::ranges::min_element(graph_.GraphObjects(), {}, distance);
    if (nearest != graph_.GraphObjects().end() && distance(*nearest) > 0)
        centerOn(ToQt((*nearest)->Frame()).center());
}

void GraphCanvas::cmdNoZoom() {
    Change(TextNr(Text::MoveSymbols), [this](XGraph& graph) { graph.MoveInto(VisiblePart()); });
}

GraphRect GraphCanvas::VisiblePart() const {
    const QRectF seen = mapToScene(viewport()->rect()).boundingRect();
    return {seen.left(), seen.top(), seen.width(), seen.height()};
}

// Of the symbol that it does not have yet.
GraphSize GraphCanvas::SizeOf(const CodeObject& object) const {
    ctlGraphObj symbol;
    symbol.MyModul = ModulCaptionOf(object);
    symbol.MyName = object.myNameOrg();
    AlignObjects(symbol, *fonts_);
    return symbol.layout.size;
}

// In rows from the middle of what can be seen.
GraphPoint GraphCanvas::FreePlace(const CodeObject& object) const {
    return WholeFreePlace(graph_, VisiblePart(), SizeOf(object));
}

void GraphCanvas::ShowObject(CodeObject& object) {
    Change(TextNr(Text::AddSymbol), [&](XGraph& graph) {
        const ctlGraphObj* symbol = graph.WithPath(object.CodePath());
        if (!symbol) {
            const GraphPoint place = FreePlace(object);
            symbol = graph.GraphObjCreate(&object, place.x, place.y, true);
        }
        graph.SetActive(symbol->Index);
        graph.DeselectAll();
        graph.Select(symbol->Index, true);
    });
    if (const ctlGraphObj* const symbol = graph_.Active())
        GoTo(*symbol);
}

void GraphCanvas::GoTo(const ctlGraphObj& symbol) {
    ensureVisible(ToQt(symbol.Frame()), kSightMargin, kSightMargin);
}

void GraphCanvas::Mark(const CodeObject* object) {
    const ctlGraphObj* const symbol = object ? graph_.GraphObj(*object) : nullptr;
    marked_ = symbol ? symbol->CodePath : std::string();
    ShowSelection();
    if (symbol && press_.gesture == Gesture::None)
        GoTo(*symbol);
}

void GraphCanvas::SelectAll() {
    graph_.GraphSelectAll();
    ShowSelection();
    Q_EMIT Changed();
}

void GraphCanvas::DeleteSelected() {
    Change(TextNr(Text::DeleteSelected), [](XGraph& graph) { graph.GraphDeleteSelected(); });
}

const ctlGraphObj* GraphCanvas::SymbolAt(QPoint point) const {
    for (QGraphicsItem* item : items(point))
        if (item != shpMoveObj_)
            return graph_.WithIndex(static_cast<const SymbolItem*>(item)->Index());
    return nullptr;
}

const GraphPair* GraphCanvas::PairAt(QPoint point) const {
    const QPointF at = mapToScene(point);
    const std::vector<GraphPair>& pairs = connectors_->Pairs();
    const std::size_t nr = ::PairAt(pairs, {at.x(), at.y()}, kHitPixels * kTwipsPerPixel / zoom_);
    return nr == kNoPair ? nullptr : &pairs[nr];
}

QString GraphCanvas::NameOf(const ctlGraphObj& symbol) const {
    const QString modul = ToQString(symbol.MyModul);
    const QString name = ToQString(symbol.MyName);
    return modul.isEmpty() || modul == name ? name : modul + QLatin1Char('.') + name;
}

// Both ends, and how many of its edges are certain: "Main.Start → Log.Write: 3 certain, 1 possible".
QString GraphCanvas::NameOf(const GraphPair& pair) const {
    QStringList counts;
    const auto add = [&counts](int count, Text text) {
        if (count > 0)
            counts.append(TextNr(text, NumberText(count)));
    };
    add(pair.certain, Text::ConnectorCertain);
    add(pair.possible, Text::ConnectorPossible);
    add(pair.uses, Text::ConnectorUses);
    return QStringLiteral("%1 \u2192 %2: %3")
        .arg(NameOf(*pair.from), NameOf(*pair.to), counts.join(QStringLiteral(", ")));
}

QString GraphCanvas::TipAt(QPoint point) const {
    if (const ctlGraphObj* const symbol = SymbolAt(point))
        return texts_.hover ? texts_.hover(*symbol->object) : QString();
    if (const GraphPair* const pair = PairAt(point))
        return QStringLiteral("<b>%1</b><br>%2").arg(NameOf(*pair).toHtmlEscaped(), TextNr(Text::ConnectorTip));
    return {};
}

bool GraphCanvas::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QGraphicsView::viewportEvent(event);
    const auto& help = static_cast<QHelpEvent&>(*event);
    const QString tip = press_.gesture == Gesture::None ? TipAt(help.pos()) : QString();
    if (tip.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help.globalPos(), tip, viewport());
    return true;
}

int GraphCanvas::ListedCount() const {
    return isShown_ ? static_cast<int>(graph_.GraphObjects().size() + connectors_->Pairs().size()) : 0;
}

GraphCanvas::Listed GraphCanvas::ListedAt(int nr) const {
    const auto at = static_cast<std::size_t>(nr);
    const auto& symbols = graph_.GraphObjects();
    if (at < symbols.size()) {
        const ctlGraphObj& symbol = *symbols[at];
        return {.name = NameOf(symbol),
                .about = texts_.spoken ? texts_.spoken(*symbol.object) : QString(),
                .place = mapFromScene(ToQt(symbol.Frame())).boundingRect(),
                .isSymbol = true,
                .isSelected = symbol.Selected,
                .isActive = &symbol == graph_.Active()};
    }
    const GraphPair& pair = connectors_->Pairs()[at - symbols.size()];
    const QRectF between = ToQt(pair.from->Frame()).united(ToQt(pair.to->Frame()));
    return {.name = NameOf(pair),
            .about = {},
            .place = mapFromScene(between).boundingRect(),
            .isSymbol = false,
            .isSelected = false,
            .isActive = false};
}

void GraphCanvas::ChooseListed(int nr) {
    const auto at = static_cast<std::size_t>(nr);
    const auto& symbols = graph_.GraphObjects();
    if (at < symbols.size()) {
        setFocus();
        Reach(symbols[at].get());
    } else if (at - symbols.size() < connectors_->Pairs().size()) {
        ShowLines(connectors_->Pairs()[at - symbols.size()], viewport()->mapToGlobal(ListedAt(nr).place.center()));
    }
}
