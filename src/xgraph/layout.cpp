#include "xgraph/layout.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <map>
#include <unordered_map>
#include <unordered_set>

#include "xgraph/dot_text.h"
#include "xgraph/pairs.h"
#include "xgraph/placement.h"

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kBetweenLayers = 900;   // twips
constexpr double kBetweenSymbols = 240;  // of one layer

std::string_view DirectionOf(LayoutSide side) {
    switch (side) {
        case LayoutSide::Top:
            return "TB";
        case LayoutSide::Left:
            return "LR";
        case LayoutSide::Bottom:
            return "BT";
        case LayoutSide::Right:
            return "RL";
    }
    return {};
}

std::string Inches(double twips) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, twips / kTwipsPerInch, std::chars_format::fixed, 4).ptr;
    return {text, end};
}

std::string Attribute(std::string_view name, std::string_view value) {
    return std::string(name) + '=' + DotQuoted(value) + ';';
}

// A connector by the numbers of its symbols.
struct Edge {
    std::size_t from;
    std::size_t to;
};

// Leaves out connectors of a dense diagram, first those between what calls much and what is called a lot: they say
// least about where a symbol belongs. Each symbol keeps one.
std::vector<Edge> Thinned(const std::vector<Edge>& edges, std::size_t symbols, int perSymbol) {
    constexpr std::size_t kFew = 300;  // are arranged in no time
    const std::size_t most = std::max(symbols * static_cast<std::size_t>(perSymbol), kFew);
    if (edges.size() <= most)
        return edges;
    std::vector<std::size_t> calls(symbols), callers(symbols), order;
    for (const Edge& edge : edges) {
        ++calls[edge.from];
        ++callers[edge.to];
        order.push_back(order.size());
    }
    const auto weight = [&](std::size_t nr) { return calls[edges[nr].from] * callers[edges[nr].to]; };
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return weight(a) < weight(b); });
    std::vector<bool> isJoined(symbols);
    std::vector<std::size_t> kept;
    for (const std::size_t nr : order) {
        const Edge& edge = edges[nr];
        if (kept.size() < most || !isJoined[edge.from] || !isJoined[edge.to]) {
            isJoined[edge.from] = isJoined[edge.to] = true;
            kept.push_back(nr);
        }
    }
    std::sort(kept.begin(), kept.end());
    std::vector<Edge> thinned;
    thinned.reserve(kept.size());
    for (const std::size_t nr : kept)
        thinned.push_back(edges[nr]);
    return thinned;
}

// The next word of a text, up to a blank; removes it.
std::string_view TakeWord(std::string_view& text) {
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    const std::string_view word = text.substr(begin, end - begin);
    text.remove_prefix(end);
    return word;
}

template <class Number>
std::optional<Number> NumberOf(std::string_view word) {
    Number number{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size() ? std::optional(number) : std::nullopt;
}

// The centre of a node in its line, from the upper left: "7 1.5 0.25 ..." with y upwards.
struct NodeLine {
    std::optional<std::size_t> nr;
    std::optional<double> x, y;
};

NodeLine ReadNode(std::string_view line) {
    NodeLine node;
    node.nr = NumberOf<std::size_t>(TakeWord(line));
    node.x = NumberOf<double>(TakeWord(line));
    node.y = NumberOf<double>(TakeWord(line));
    return node;
}

// Whether frames at other places are free of what is not arranged.
class Others {
public:
    Others(const XGraph& graph, std::span<const ctlGraphObj* const> symbols) {
        const std::unordered_set<const ctlGraphObj*> arranged(symbols.begin(), symbols.end());
        for (const auto& symbol : graph.GraphObjects())
            if (!arranged.contains(symbol.get()))
                frames_.push_back(symbol->Frame());
    }
    [[nodiscard]] const std::vector<GraphRect>& Frames() const { return frames_; }
    /// Edges that touch do not overlap.
    [[nodiscard]] bool Overlap(const GraphRect& frame) const {
        return std::any_of(frames_.begin(), frames_.end(), [&](const GraphRect& other) {
            return frame.left < other.Right() && other.left < frame.Right() && frame.top < other.Bottom() &&
                   other.top < frame.Bottom();
        });
    }

private:
    std::vector<GraphRect> frames_;
};

// The nearest free place straight to the right of where a block should be, or below.
GraphPoint FreePlaceOf(const GraphRect& block, const Others& others) {
    std::vector<GraphPoint> places;
    for (const GraphRect& other : others.Frames()) {
        places.push_back({other.Right() + kPlaceGap, block.top});
        places.push_back({block.left, other.Bottom() + kPlaceGap});
    }
    const auto way = [&](GraphPoint place) { return std::fabs(place.x - block.left) + std::fabs(place.y - block.top); };
    std::stable_sort(places.begin(), places.end(), [&](GraphPoint one, GraphPoint two) { return way(one) < way(two); });
    const auto free = std::find_if(places.begin(), places.end(), [&](GraphPoint place) {
        return !others.Overlap({place.x, place.y, block.width, block.height});
    });
    return free == places.end() ? GraphPoint{block.left, block.top} : *free;
}

GraphRect BoundsOf(const std::vector<GraphRect>& frames) {
    GraphRect bounds = frames.front();
    for (const GraphRect& frame : frames)
        bounds = bounds.With(frame);
    return bounds;
}

void Move(std::vector<GraphRect>& frames, double dx, double dy) {
    for (GraphRect& frame : frames) {
        frame.left += dx;
        frame.top += dy;
    }
}

}  // namespace

std::vector<const ctlGraphObj*> SymbolsToArrange(const XGraph& graph) {
    if (graph.GraphSelected().size() > 1)
        return {graph.GraphSelected().begin(), graph.GraphSelected().end()};
    std::vector<const ctlGraphObj*> all;
    all.reserve(graph.GraphObjects().size());
    for (const auto& symbol : graph.GraphObjects())
        all.push_back(symbol.get());
    return all;
}

std::string LayoutInput(const XGraph& graph, std::span<const ctlGraphObj* const> symbols,
                        const LayoutOptions& options) {
    // Nobody sees its lines; and the search for the best order ends when it takes too long.
    std::string text = "digraph{splines=false;nslimit=2;nslimit1=2;mclimit=0.5;";
    text += options.byModule ? "pack=24;packmode=clust;" : "pack=12;";
    text += Attribute("rankdir", DirectionOf(options.from));
    text += Attribute("ranksep", Inches(kBetweenLayers)) + Attribute("nodesep", Inches(kBetweenSymbols));
    text += "node[shape=box,fixedsize=true,label=\"\"];\n";
    std::unordered_map<const ctlGraphObj*, std::size_t> numbers;
    std::map<std::string_view, std::vector<std::size_t>> modules;
    for (const ctlGraphObj* symbol : symbols) {
        const std::size_t nr = numbers.size();
        numbers.emplace(symbol, nr);
        modules[symbol->MyModul].push_back(nr);
        text +=
            std::to_string(nr) + "[width=" + Inches(symbol->Width()) + ",height=" + Inches(symbol->Height()) + "]\n";
    }
    if (options.byModule) {
        std::size_t nr = 0;
        for (const auto& [modul, members] : modules) {
            text += "subgraph cluster" + std::to_string(nr++) + '{';
            for (const std::size_t member : members)
                text += std::to_string(member) + ';';
            text += "}\n";
        }
    }
    std::vector<Edge> edges;
    for (const GraphPair& pair : GraphPairs(GraphVerbindungen(graph))) {
        const auto from = numbers.find(pair.from);
        const auto to = numbers.find(pair.to);
        const bool counts = !pair.IsLoop() && (!options.byModule || pair.from->MyModul == pair.to->MyModul);
        if (counts && from != numbers.end() && to != numbers.end())
            edges.push_back({from->second, to->second});
    }
    for (const Edge& edge : Thinned(edges, symbols.size(), options.connectorsPerSymbol))
        text += std::to_string(edge.from) + "->" + std::to_string(edge.to) + '\n';
    return text + "}\n";
}

std::optional<std::vector<GraphPoint>> ReadLayout(std::string_view output, std::size_t symbols) {
    std::vector<std::optional<GraphPoint>> found(symbols);
    const double farthest = XGraph::FarthestTwips(symbols);
    while (!output.empty()) {
        const std::size_t end = std::min(output.find('\n'), output.size());
        std::string_view line = output.substr(0, end);
        output.remove_prefix(std::min(end + 1, output.size()));
        if (TakeWord(line) != "node")
            continue;
        const NodeLine node = ReadNode(line);
        if (!node.nr || *node.nr >= symbols || !node.x || !node.y)
            return {};
        const GraphPoint centre{*node.x * kTwipsPerInch, -*node.y * kTwipsPerInch};
        if (!(std::fabs(centre.x) <= farthest && std::fabs(centre.y) <= farthest))
            return {};
        found[*node.nr] = centre;
    }
    std::vector<GraphPoint> centres;
    centres.reserve(found.size());
    for (const std::optional<GraphPoint>& centre : found) {
        if (!centre)
            return {};
        centres.push_back(*centre);
    }
    return centres;
}

void ArrangeSymbols(XGraph& graph, std::span<const ctlGraphObj* const> symbols, std::span<const GraphPoint> centres) {
    if (symbols.empty())
        return;
    std::vector<GraphRect> before, frames;
    for (std::size_t nr = 0; nr < symbols.size(); ++nr) {
        const ctlGraphObj& symbol = *symbols[nr];
        before.push_back(symbol.Frame());
        frames.push_back(
            {centres[nr].x - symbol.Width() / 2, centres[nr].y - symbol.Height() / 2, symbol.Width(), symbol.Height()});
    }
    const GraphRect old = BoundsOf(before);
    Move(frames, old.left - BoundsOf(frames).left, old.top - BoundsOf(frames).top);
    const Others others(graph, symbols);
    if (std::any_of(frames.begin(), frames.end(), [&](const GraphRect& frame) { return others.Overlap(frame); })) {
        const GraphRect block = BoundsOf(frames);
        const GraphPoint place = FreePlaceOf(block, others);
        Move(frames, place.x - block.left, place.y - block.top);
    }
    for (std::size_t nr = 0; nr < symbols.size(); ++nr)
        graph.MoveTo(symbols[nr]->Index, {std::round(frames[nr].left), std::round(frames[nr].top)});
}
