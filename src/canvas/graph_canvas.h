// The diagram on the screen: symbols that are dragged about, and the connectors between them. All that a diagram is, is
// in its XGraph; this is what one sees of it and does to it, by mouse and by keyboard. Scene units are twips.
//
// The room's one door: views use nothing else of it. Its context menu ends with the actions of the widget.
#pragma once

#include <QGraphicsView>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "canvas/graph_picture.h"
#include "xgraph/graph.h"

class CodeObject;
class ConnectorLayer;
class FrameLayer;
class GraphChange;
class GraphLegend;
class GraphMap;
class QMenu;
class QTimer;
class QUndoStack;
class SymbolFonts;
class SymbolItem;
class clsProjekt;
struct GraphColours;
struct GraphPair;
struct GraphState;
struct Settings;

class GraphCanvas final : public QGraphicsView {
    Q_OBJECT

public:
    /// Texts about an object, for hovering and for screen readers.
    struct Texts {
        std::function<QString(const CodeObject&)> hover;
        std::function<QString(const CodeObject&)> spoken;
    };
    /// @param settings  must outlive the canvas
    explicit GraphCanvas(const Settings& settings, QWidget* parent = nullptr);
    ~GraphCanvas() override;
    void SetTexts(Texts texts) { texts_ = std::move(texts); }
    /// Adds items about the object of a symbol to its context menu.
    void SetMenuItems(std::function<void(QMenu& menu, const std::string& nodeKey)> add) { addItems_ = std::move(add); }

    // The diagram.

    [[nodiscard]] const XGraph& Graph() const { return graph_; }
    [[nodiscard]] QUndoStack& Undo() const { return *undo_; }
    /// Steps that follow each other, such as those of a held key, are undone together.
    enum class ChangeKind : std::uint8_t { Whole, Step };
    /// Makes a change that can be undone. Returns false if it changed nothing but the selection.
    bool Change(const QString& text, const std::function<void(XGraph&)>& change, ChangeKind kind = ChangeKind::Whole);
    /// The file that the diagram is in; empty for none. A change of the diagram can set it, and undo takes it back.
    [[nodiscard]] const QString& FileName() const { return file_; }
    void SetFileName(const QString& file) { file_ = file; }
    /// Whether something would be lost without saving.
    [[nodiscard]] bool IsUnsaved() const;
    /// An empty diagram of that project, or of none.
    void SetProject(clsProjekt* projekt);
    /// The same project was read again as a whole.
    void ReplaceProject(clsProjekt& projekt);
    /// Objects and edges become invalid: shows nothing until the next Refresh.
    void Forget();
    /// Shows the diagram as it is now: symbols that have gone, pictures, connectors.
    void Refresh();

    // What the user can do, by whatever menu or button.

    /// Puts a symbol of the object on the canvas, unless there is one, and goes to it.
    void ShowObject(CodeObject& object);
    /// Marks the symbol of the current object and shows it; null for none.
    void Mark(const CodeObject* object);
    void SelectAll();
    void DeleteSelected();
    /// Moves symbols that are out of sight to the edge of what can be seen.
    void cmdNoZoom();
    /// Zoom is a matter of display: places stay as they are.
    void ZoomIn();
    void ZoomOut();
    void ZoomReset();
    /// Shows the whole diagram, not larger than it is; a hidden canvas does so when it is shown.
    void Fit();
    /// Scrolls to the nearest symbol, if none can be seen.
    void FindSymbols();
    /// To the clipboard, with symbols that are not selected and no legend.
    void CopyPicture();
    /// Shows or hides legend, frames of modules and overview map as the settings say; the map only while the diagram
    /// is larger than the view.
    void ShowExtras();

    /// A free place for a symbol of the object, where the user looks.
    [[nodiscard]] GraphPoint FreePlace(const CodeObject& object) const;

    void Texte();
    void ApplySettings();

    // What there is, for screen readers: first the symbols, then the connectors.

    struct Listed {
        QString name, about;
        QRect place;  // in the viewport
        bool isSymbol;
        bool isSelected;
        bool isActive;
    };
    [[nodiscard]] int ListedCount() const;
    [[nodiscard]] Listed ListedAt(int nr) const;
    /// Goes to a symbol, or shows the lines of a connector.
    void ChooseListed(int nr);

Q_SIGNALS:
    /// A symbol was clicked or reached by keys; the key is that of its object's node.
    void SymbolChosen(const std::string& nodeKey);
    /// Double click on a symbol.
    void SymbolActivated(const std::string& nodeKey);
    /// Enter on a symbol: lead to its code.
    void CodeAsked(const std::string& nodeKey);
    /// A line of code that makes up a connector.
    void PlaceChosen(const std::string& modulKey, int line);
    /// A context menu is complete and not yet shown.
    void MenuFilled(QMenu& menu);
    /// Symbols, places, selection, file or active symbol are others now.
    void Changed();

protected:
    void drawBackground(QPainter* painter, const QRectF& exposed) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    // graph_canvas_mouse.cpp
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    // graph_canvas_keys.cpp
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    enum class Gesture : std::uint8_t { None, Drag, RubberBand, Pan };
    /// A press of a button and what has become of it.
    struct Press {
        Gesture gesture = Gesture::None;
        Qt::MouseButton button = Qt::NoButton;
        QPointF start;  // in the scene
        QPoint last;    // in the viewport
        QRectF frame;   // of the symbol pressed, in the scene
        bool hasMoved = false;
    };

    // graph_canvas.cpp
    [[nodiscard]] std::unique_ptr<GraphChange> MakeChange(const QString& text, GraphState before);
    void ShowSymbols();
    void ShowConnectors();
    void ShowSelection();
    [[nodiscard]] QRectF CanvasRect() const;
    void PlaceScene();
    void PlaceScene(const QRectF& seen);
    void GrowScene();
    [[nodiscard]] QRectF SeenFrom(QPointF centre) const;
    /// @param fixed  point of the view that keeps its place on the canvas
    void SetZoom(double zoom, QPoint fixed);
    void ShowAround(QPointF centre);
    [[nodiscard]] QPoint Middle() const;
    void FitInView();
    void FitInto(const QRect& part);
    void ShowPlaced();
    void GoTo(const ctlGraphObj& symbol);
    [[nodiscard]] const ctlGraphObj* SymbolAt(QPoint point) const;
    [[nodiscard]] const GraphPair* PairAt(QPoint point) const;
    [[nodiscard]] GraphRect VisiblePart() const;
    [[nodiscard]] GraphSize SizeOf(const CodeObject& object) const;
    [[nodiscard]] QString TipAt(QPoint point) const;
    [[nodiscard]] QString NameOf(const ctlGraphObj& symbol) const;
    [[nodiscard]] QString NameOf(const GraphPair& pair) const;
    // graph_canvas_corners.cpp
    void PlaceCorners();
    void PlaceLegend();
    void PlaceMap();
    void ShowMapView();
    // graph_canvas_mouse.cpp
    void ShowGesture(QPoint point);
    void ScrollAtEdge();
    void BeginPan(Qt::MouseButton button, QPoint point);
    void Pan(QPoint point);
    void ShowFrame(const QRectF& frame);
    void EndDrag(QPointF moved);
    void ShowPointer(QPoint point);
    void ShowLines(const GraphPair& pair, const QPoint& globalPos);
    void ShowMenu(const QPoint& globalPos, const ctlGraphObj* symbol);
    void FillMenu(QMenu& menu, const ctlGraphObj& symbol);
    void FillLines(QMenu& menu, const GraphPair& pair);
    void FillWholeDiagram(QMenu& menu);
    void TakeKeysOnly(QDropEvent& event) const;
    void DropKey(const std::string& key, QPoint point);
    // graph_canvas_keys.cpp
    [[nodiscard]] bool Walk(const QKeyEvent& event);
    void Reach(const ctlGraphObj* symbol);

    const Settings& settings_;
    Texts texts_;
    std::function<void(QMenu&, const std::string&)> addItems_;
    std::unique_ptr<SymbolFonts> fonts_;
    std::unique_ptr<GraphColours> colours_;
    XGraph graph_;
    QUndoStack* undo_;
    QString file_;
    std::unique_ptr<ConnectorLayer> connectors_;
    std::unordered_map<int, SymbolItem*> items_;  // by the index of the symbol; the scene owns them
    std::vector<SymbolPlace> shown_;              // what is on the screen, and what undo would come back to
    std::string marked_;                          // path of the current object
    QGraphicsRectItem* shpMoveObj_;               // the frame while dragging, and the rubber band
    std::unique_ptr<FrameLayer> frames_;
    GraphLegend* legend_;
    GraphMap* map_;
    QTimer* edge_;  // runs while the mouse drags at the edge of the view
    double zoom_ = 1;
    Press press_;
    bool isSpaceDown_ = false;
    bool isShown_ = false;   // the objects are valid
    bool isPlaced_ = false;  // the user has seen the view
};
