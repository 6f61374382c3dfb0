// Free places for symbols that a command adds. The symbols on the canvas are all there is to know about what is taken:
// the search walks along a row in steps of a symbol and a gap, and goes on, in a zigzag, to rows two symbols further.
//
// Only two corners of a place are tested, so a narrow symbol between them is not noticed, and a place may overlap it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "xgraph/graph.h"

/// Between two symbols of a row.
inline constexpr double kPlaceGap = 13 * kTwipsPerPixel;

/// Finds symbols by points: the same answers as a walk over all of them, from an index.
class SymbolIndex {
public:
    explicit SymbolIndex(const XGraph& graph);
    /// A symbol that was created after all those known.
    void Add(const ctlGraphObj& symbol);
    /// The last created symbol that holds the point, edges included; null if it is free.
    [[nodiscard]] const ctlGraphObj* Graph_PlaceOccupate(GraphPoint point) const;

private:
    struct Entry {
        const ctlGraphObj* symbol;
        std::size_t nr;  // in the order of creation
    };
    using Entries = std::vector<Entry>;
    static void Look(const Entries& entries, GraphPoint point, Entry& last);

    std::unordered_map<std::uint64_t, Entries> cells_;  // of a grid over the canvas
    Entries large_;                                     // those that cover too many cells
    std::size_t count_ = 0;
};

class Placement {
public:
    /// Places are sought between the left and the right edge of the canvas as it is now, however it grows meanwhile.
    explicit Placement(const XGraph& graph) : Placement(graph, graph.Canvas()) {}
    /// The same between the edges of another area.
    Placement(const XGraph& graph, const GraphRect& area) : area_(area), index_(graph) {}

    int GraphPlaceDirX = 1;  // 1: the next place is to the right, -1: to the left; turns at the end of a row
    int GraphPlaceDirY = 1;  // 1: new rows are below, else above

    /// A symbol was created.
    void Add(const ctlGraphObj& symbol) { index_.Add(symbol); }
    /// Whether one of the two corners of a place is taken.
    [[nodiscard]] bool IsTaken(GraphPoint place, GraphSize size) const { return SymbolAt(place, size) != nullptr; }
    /// Whether a place is beyond the left or the right edge.
    [[nodiscard]] bool IsBeyond(GraphPoint place, GraphSize size) const;
    /// The first free place from `start` on. A symbol wider than the canvas gets one in the first row.
    /// @param ref  frame of the symbol whose size counts, and from whose top the rows are counted
    [[nodiscard]] GraphPoint Graph_GetNextPlace_To_X(GraphPoint start, const GraphRect& ref);

private:
    [[nodiscard]] const ctlGraphObj* SymbolAt(GraphPoint place, GraphSize size) const;
    [[nodiscard]] GraphPoint FreeInRow(GraphPoint start, GraphSize size) const;

    GraphRect area_;
    SymbolIndex index_;
};

/// Where a symbol of this size goes that has no place yet: in rows from the middle of an area, beside a narrow symbol
/// that has none of the corners of a place.
[[nodiscard]] GraphPoint WholeFreePlace(const XGraph& graph, const GraphRect& area, GraphSize size);

/// Creates symbols of those objects that have none, one below the other and beside what is there, and selects the
/// symbols of all.
void AddObjects(XGraph& graph, const std::vector<CodeObject*>& objects);
