#include "xgraph/placement.h"

#include <algorithm>
#include <cmath>

#include "model/code_object.h"

namespace {

constexpr double kCell = 2000;  // about two symbols
constexpr double kMostCells = 1000;

struct Cell {
    std::int64_t x;
    std::int64_t y;
};

// Cells far off share their numbers with others, which does no harm: frames are compared as well.
Cell CellOf(GraphPoint point) {
    constexpr double kFar = 1e15;
    const auto number = [](double twips) {
        return static_cast<std::int64_t>(std::floor(std::fmax(-kFar, std::fmin(twips, kFar)) / kCell));
    };
    return {number(point.x), number(point.y)};
}

std::uint64_t KeyOf(Cell cell) {
    return static_cast<std::uint64_t>(cell.x) << 32 ^ (static_cast<std::uint64_t>(cell.y) & 0xFFFFFFFF);
}

}  // namespace

SymbolIndex::SymbolIndex(const XGraph& graph) {
    for (const auto& symbol : graph.GraphObjects())
        Add(*symbol);
}

void SymbolIndex::Add(const ctlGraphObj& symbol) {
    const Entry entry{&symbol, ++count_};
    const GraphRect frame = symbol.Frame();
    if (!((frame.width / kCell + 1) * (frame.height / kCell + 1) < kMostCells)) {
        large_.push_back(entry);
        return;
    }
    const Cell first = CellOf({frame.left, frame.top});
    const Cell last = CellOf({frame.Right(), frame.Bottom()});
    for (std::int64_t y = first.y; y <= last.y; ++y)
        for (std::int64_t x = first.x; x <= last.x; ++x)
            cells_[KeyOf({x, y})].push_back(entry);
}

void SymbolIndex::Look(const Entries& entries, GraphPoint point, Entry& last) {
    for (auto entry = entries.rbegin(); entry != entries.rend() && entry->nr > last.nr; ++entry)
        if (entry->symbol->Frame().Holds(point))
            last = *entry;
}

const ctlGraphObj* SymbolIndex::Graph_PlaceOccupate(GraphPoint point) const {
    Entry last{nullptr, 0};
    if (const auto cell = cells_.find(KeyOf(CellOf(point))); cell != cells_.end())
        Look(cell->second, point, last);
    Look(large_, point, last);
    return last.symbol;
}

bool Placement::IsBeyond(GraphPoint place, GraphSize size) const {
    return place.x < area_.left || place.x + size.width > area_.Right();
}

// What takes the top left corner, else what takes the bottom right one.
const ctlGraphObj* Placement::SymbolAt(GraphPoint place, GraphSize size) const {
    if (const ctlGraphObj* const symbol = index_.Graph_PlaceOccupate(place))
        return symbol;
    return index_.Graph_PlaceOccupate({place.x + size.width, place.y + size.height});
}

GraphPoint Placement::FreeInRow(GraphPoint start, GraphSize size) const {
    GraphPoint at = start;
    while (const ctlGraphObj* const symbol = SymbolAt(at, size))
        at.x = GraphPlaceDirX == 1 ? symbol->Frame().Right() + kPlaceGap : symbol->Left - size.width - kPlaceGap;
    return at;
}

GraphPoint Placement::Graph_GetNextPlace_To_X(GraphPoint start, const GraphRect& ref) {
    const GraphSize size{ref.width, ref.height};
    const double rowHeight =
        2 * std::fmax(size.height, kTwipsPerPixel);  // without a height there would be one row only
    for (int row = 1;; ++row) {
        const GraphPoint at = FreeInRow(start, size);
        const bool isRight = GraphPlaceDirX == 1;
        const bool isInside = isRight ? at.x + size.width <= area_.Right() : at.x >= area_.left;
        if (isInside || size.width > area_.width)
            return at;
        GraphPlaceDirX = -GraphPlaceDirX;
        start.x = isRight ? area_.Right() - size.width : area_.left;
        start.y = ref.top + (GraphPlaceDirY == 1 ? 1 : -1) * rowHeight * row;
    }
}

GraphPoint WholeFreePlace(const XGraph& graph, const GraphRect& area, GraphSize size) {
    Placement placement(graph, area);
    GraphPoint place{area.Center().x - size.width / 2, area.Center().y - size.height / 2};
    const auto covered = [&](const auto& symbol) {
        const GraphRect frame = symbol->Frame();
        return place.x < frame.Right() && frame.left < place.x + size.width && place.y < frame.Bottom() &&
               frame.top < place.y + size.height;
    };
    const auto& symbols = graph.GraphObjects();
    for (;;) {
        place = placement.Graph_GetNextPlace_To_X(place, {place.x, place.y, size.width, size.height});
        const auto hit = std::find_if(symbols.begin(), symbols.end(), covered);
        if (hit == symbols.end())
            return {std::round(place.x), std::round(place.y)};
        const GraphRect frame = (*hit)->Frame();
        place.x = placement.GraphPlaceDirX == 1 ? frame.Right() + kPlaceGap : frame.left - size.width - kPlaceGap;
    }
}

void AddObjects(XGraph& graph, const std::vector<CodeObject*>& objects) {
    constexpr int kRows = 12;
    const GraphRect there = graph.SymbolBounds();
    GraphPoint place{graph.GraphObjects().empty() ? kPlaceGap : there.Right() + 4 * kPlaceGap,
                     std::max(there.top, kPlaceGap)};
    const double top = place.y;
    double widest = 0;
    int row = 0;
    graph.DeselectAll();
    for (CodeObject* object : objects) {
        const ctlGraphObj* symbol = graph.WithPath(object->CodePath());
        if (!symbol) {
            if (row == kRows) {
                place = {place.x + widest + 4 * kPlaceGap, top};
                widest = row = 0;
            }
            symbol = graph.GraphObjCreate(object, std::round(place.x), std::round(place.y), false);
            const GraphRect frame = symbol->Frame();
            widest = std::max(widest, frame.width);
            place.y = frame.top + 2 * frame.height;
            ++row;
        }
        graph.Select(symbol->Index, true);
    }
}
