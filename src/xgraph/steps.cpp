#include "xgraph/steps.h"

#include <cmath>
#include <limits>

#include "xgraph/graph.h"
#include "xgraph/pairs.h"

namespace {

// The symbol with the least way among those that were offered.
class Nearest {
public:
    Nearest(const ctlGraphObj& from, GraphDirection direction) : from_(from), direction_(direction) {}
    void Offer(const ctlGraphObj& symbol) {
        if (const double way = WayTo(symbol.Center()); way < least_) {
            least_ = way;
            symbol_ = &symbol;
        }
    }
    [[nodiscard]] const ctlGraphObj* Symbol() const { return symbol_; }

private:
    // Infinite for what does not lie in the direction.
    [[nodiscard]] double WayTo(GraphPoint point) const {
        const double dx = point.x - from_.Center().x;
        const double dy = point.y - from_.Center().y;
        const bool isLevel = direction_ == GraphDirection::Left || direction_ == GraphDirection::Right;
        const bool isBack = direction_ == GraphDirection::Left || direction_ == GraphDirection::Up;
        const double ahead = (isLevel ? dx : dy) * (isBack ? -1 : 1);
        const double aside = std::fabs(isLevel ? dy : dx);
        constexpr double kAside = 2;
        return ahead > 0 ? ahead + kAside * aside : kNever;
    }

    static constexpr double kNever = std::numeric_limits<double>::infinity();
    const ctlGraphObj& from_;
    GraphDirection direction_;
    double least_ = kNever;
    const ctlGraphObj* symbol_ = nullptr;
};

}  // namespace

const ctlGraphObj* SymbolTowards(const XGraph& graph, const ctlGraphObj& from, GraphDirection direction) {
    Nearest nearest(from, direction);
    for (const auto& symbol : graph.GraphObjects())
        nearest.Offer(*symbol);
    return nearest.Symbol();
}

const ctlGraphObj* ConnectedTowards(std::span<const GraphPair> pairs, const ctlGraphObj& from,
                                    GraphDirection direction) {
    Nearest nearest(from, direction);
    for (const GraphPair& pair : pairs)
        if (pair.from == &from)
            nearest.Offer(*pair.to);
        else if (pair.to == &from)
            nearest.Offer(*pair.from);
    return nearest.Symbol();
}

const ctlGraphObj* NextSymbol(const XGraph& graph, const ctlGraphObj* from, bool forwards) {
    const auto& symbols = graph.GraphObjects();
    if (symbols.empty())
        return nullptr;
    std::size_t place = forwards ? symbols.size() - 1 : 0;
    for (std::size_t nr = 0; nr < symbols.size(); ++nr)
        if (symbols[nr].get() == from)
            place = nr;
    return symbols[(place + (forwards ? 1 : symbols.size() - 1)) % symbols.size()].get();
}
