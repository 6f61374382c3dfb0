// The diagram as text for other programs. All formats say the same, in UTF-8: the symbols in the order of creation and
// the pairs that connectors join, whatever is selected or active, so that the same diagram always makes the same text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/clsCall.h"
#include "xgraph/geometry.h"

class XGraph;

enum class GraphFormat : std::uint8_t { Ovg, Dot, GraphMl, Json };
/// By the suffix of a file's name, in any letter case; nothing for any other suffix.
[[nodiscard]] std::optional<GraphFormat> GraphFormatOf(std::string_view path);
/// The whole text of a file in that format.
[[nodiscard]] std::string GraphTextAs(GraphFormat format, const XGraph& graph);

/// What is known about a diagram; texts are UTF-8.
struct GraphContent {
    struct Symbol {
        std::string codePath;  // lower case
        std::string name;      // the two captions
        std::string caption;
        std::string_view kind;
        std::string module;  // code path of the module or library that the object belongs to, or is
        bool isDead;
        GraphRect frame;  // twips
    };
    /// A place in the code.
    struct Line {
        CallType type;
        std::string from, to;  // code paths
        int line;              // of the file of the caller, from 1
    };
    struct Pair {
        std::size_t from, to;  // numbers of symbols, from 0
        int certain, possible, uses;
        std::vector<Line> lines;  // in the order of the calls
    };
    std::vector<Symbol> symbols;
    std::vector<Pair> pairs;  // in the order of the symbols that they begin at, then of those that they lead to
};
[[nodiscard]] GraphContent ContentOf(const XGraph& graph);

/// For Graphviz. Symbols have places and sizes, which `neato -n` keeps; `dot` finds others.
[[nodiscard]] std::string DotText(const GraphContent& content);
[[nodiscard]] std::string GraphMlText(const GraphContent& content);
/// docs/json.md describes it.
[[nodiscard]] std::string GraphJsonText(const GraphContent& content);
