// Walking over the graph by keys.
#pragma once

#include <cstdint>
#include <span>

#include "xgraph/connectors.h"

struct GraphPair;

enum class GraphDirection : std::uint8_t { Left, Right, Up, Down };

/// The nearest symbol that lies in that direction, or null. Symbols off to the side count as farther away.
[[nodiscard]] const ctlGraphObj* SymbolTowards(const XGraph& graph, const ctlGraphObj& from, GraphDirection direction);
/// The same among those that a connector joins with `from`.
[[nodiscard]] const ctlGraphObj* ConnectedTowards(std::span<const GraphPair> pairs, const ctlGraphObj& from,
                                                  GraphDirection direction);
/// The next symbol in the order of creation, or the one before; from the last to the first. Null only without symbols.
/// @param from  null for the first, or the last
[[nodiscard]] const ctlGraphObj* NextSymbol(const XGraph& graph, const ctlGraphObj* from, bool forwards);
