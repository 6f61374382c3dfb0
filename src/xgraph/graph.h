// The X-Graph: which code objects have a symbol on the canvas, where, and which are selected. Connectors are not part
// of it: they follow from the symbols and the calls of the project (connectors.h).
//
// Symbols refer to objects of the project, which last for one generation. The graph listens to its project: a symbol
// whose module was read again takes the object of the same kind and path, and goes if there is none, before anybody can
// ask for it.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "xgraph/symbol.h"

class clsProjekt;

/// A symbol as files and undo steps know it.
struct SymbolPlace {
    std::string CodePath;  // lower case
    double Left = 0;
    double Top = 0;
    bool operator==(const SymbolPlace&) const = default;
};

/// State of the keys Shift (1), Ctrl (2) and Alt (4); only Ctrl alone counts as Ctrl.
inline constexpr int kCtrl = 2;

class XGraph {
public:
    /// @param sizes        must outlive the graph
    /// @param canvasTwips  width and height of the canvas without symbols
    explicit XGraph(const SymbolSizes& sizes, double canvasTwips = kCanvasTwips)
        : sizes_(sizes), emptyCanvas_{0, 0, canvasTwips, canvasTwips} {}
    XGraph(const XGraph&) = delete;
    XGraph& operator=(const XGraph&) = delete;

    /// Removes all symbols; those to come are of this project, which may be null. Call it before the project before
    /// goes. Graph and project may end in any order.
    void SetProject(clsProjekt* projekt);
    /// The same project was read again as a whole: symbols take their objects from it, and go if they have none there.
    void ReplaceProject(clsProjekt& projekt);
    [[nodiscard]] clsProjekt* Projekt() const { return projekt_; }

    // Symbols. Their addresses stay as long as they are on the graph.

    /// In the order of creation.
    [[nodiscard]] const std::vector<std::unique_ptr<ctlGraphObj>>& GraphObjects() const { return symbols_; }
    /// The selected ones, in the order in which they were selected.
    [[nodiscard]] const std::vector<ctlGraphObj*>& GraphSelected() const { return selected_; }
    /// The symbol of an object, or null. Other objects of the same path (the default instance of a form, locals of
    /// another accessor) have none.
    [[nodiscard]] const ctlGraphObj* GraphObj(const CodeObject& object) const;
    /// The symbol of that path, in lower case, or null.
    [[nodiscard]] const ctlGraphObj* WithPath(std::string_view codePath) const;
    /// The symbol of that index, or null.
    [[nodiscard]] const ctlGraphObj* WithIndex(int index) const;

    /// Size of the symbol that an object has or would have.
    [[nodiscard]] GraphSize SizeOf(CodeObject& obj) const;
    /// Puts a symbol of `obj` on the canvas, which grows to hold it. Returns null and does nothing if `obj` is null or
    /// its path has a symbol.
    /// @param ToFront  before all others; for what the user dropped
    const ctlGraphObj* GraphObjCreate(CodeObject* obj, double Left, double Top, bool ToFront);
    /// The user dropped an object: creates its symbol, unless there is one, and makes it the active one. Null only for
    /// a null object.
    const ctlGraphObj* Drop(CodeObject* obj, GraphPoint place);
    /// Removes the selected symbols. Returns how many there were.
    int GraphDeleteSelected();
    /// Removes all symbols.
    void Clear();
    /// Takes pictures again after marks have changed, and sizes after fonts have.
    void GraphSymbolsRefresh();

    // Selection.

    void GraphSelectAll();
    void DeselectAll();
    /// The left button goes down on a symbol, which becomes the active one: it is selected alone; with Ctrl it joins or
    /// leaves the selection. Without Ctrl a selected one stays so with all others, so that the group can be dragged.
    void GraphObj_MouseDown(int index, int Shift);
    /// Selects what lies wholly inside the frame and deselects the rest, with Ctrl as well.
    void SelectInside(const GraphRect& frame);
    /// Selects one symbol more, or one less.
    void Select(int index, bool selected);

    /// The active symbol: the one last clicked, dropped or reached by keys; null if there is none. Its connectors are
    /// coloured.
    [[nodiscard]] const ctlGraphObj* Active() const { return WithIndex(active_); }
    /// @param index  0 for none
    void SetActive(int index) { active_ = index; }

    // Places.

    /// Moves the selected symbols: a group was dragged. Returns false if that changes nothing.
    bool MoveSelected(double dx, double dy);
    void MoveTo(int index, GraphPoint place);
    /// Moves symbols that lie outside of a rectangle, wholly or in part, to its edge (cmdNoZoom).
    void MoveInto(const GraphRect& view);

    /// The part of the plane that can be seen by scrolling: 60,000 twips square at first. It grows with what is put on
    /// it, in any direction, and keeps its size until the graph is cleared.
    [[nodiscard]] const GraphRect& Canvas() const { return canvas_; }
    /// Makes the canvas larger.
    void GrowCanvas(const GraphRect& toHold) { canvas_ = canvas_.With(toHold); }
    /// The frames of all symbols; empty without symbols.
    [[nodiscard]] GraphRect SymbolBounds() const;

    // All symbols as values, for files and undo steps.

    [[nodiscard]] std::vector<SymbolPlace> Places() const;
    /// Makes the symbols be these, in this order. Those that are there already keep index, selection and activity; the
    /// places of objects that the project does not have are left out. Places that are no numbers or too far off
    /// (FarthestTwips) become the nearest ones on the canvas.
    void SetPlaces(const std::vector<SymbolPlace>& places);
    /// How far from the origin a diagram of that many symbols can reach: ten empty canvases, and a row for each symbol.
    [[nodiscard]] static double FarthestTwips(std::size_t symbols);

private:
    void Follow(clsProjekt* projekt);
    void ProjectReplaced();
    template <class Lost>
    void FindObjectsAgain(Lost hasLost);
    template <class Goes>
    int RemoveIf(Goes goes);
    [[nodiscard]] ctlGraphObj* Find(int index) const;
    void SetSelected(ctlGraphObj& symbol, bool selected);
    void Put(ctlGraphObj& symbol, GraphPoint place);
    [[nodiscard]] ctlGraphObj* SymbolAt(const std::string& codePath);
    void TakeObject(ctlGraphObj& symbol, CodeObject& obj) const;
    void Describe(ctlGraphObj& symbol, CodeObject& obj) const;
    void PutOnCanvas(ctlGraphObj& symbol, GraphPoint place);

    const SymbolSizes& sizes_;
    clsProjekt* projekt_ = nullptr;
    std::vector<std::unique_ptr<ctlGraphObj>> symbols_;
    std::vector<ctlGraphObj*> selected_;
    std::unordered_map<const CodeObject*, ctlGraphObj*> byObject_;
    std::unordered_map<std::string_view, ctlGraphObj*> byPath_;  // the keys are the symbols' own paths
    std::map<int, ctlGraphObj*> byIndex_;
    GraphRect emptyCanvas_;
    GraphRect canvas_ = emptyCanvas_;
    int GraphObjCount_ = 0;  // only ever rises
    int active_ = 0;
    int topmost_ = 0;
    std::shared_ptr<const bool> exists_ = std::make_shared<const bool>(true);  // for the listener of the project
};
