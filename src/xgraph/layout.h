// Arranging symbols in layers, so that few connectors cross. Graphviz works out the places; this is what it is asked,
// how its answer is read, and how the symbols come to their places.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "xgraph/graph.h"

/// Where the callers are.
enum class LayoutSide : std::uint8_t { Top, Left, Bottom, Right };

struct LayoutOptions {
    LayoutSide from = LayoutSide::Top;
    bool byModule = false;  // each module is a block of its own; only connectors inside of modules count
    // Of a dense diagram so many connectors count for each symbol: the time grows with their square, and most of them
    // lead to what everybody calls.
    int connectorsPerSymbol = 3;
};

/// The program that arranges, of Debian's package graphviz, and the arguments with which it reads a graph from its
/// input and writes places to its output.
inline constexpr const char* kLayoutProgram = "dot";
inline constexpr const char* kLayoutFormat = "-Tplain";

/// The selected symbols, or all if there are fewer than two.
[[nodiscard]] std::vector<const ctlGraphObj*> SymbolsToArrange(const XGraph& graph);
/// What the program reads: these symbols by their numbers in the list, and the connectors between them.
[[nodiscard]] std::string LayoutInput(const XGraph& graph, std::span<const ctlGraphObj* const> symbols,
                                      const LayoutOptions& options);
/// What it writes: the centre of each of so many symbols, in twips. Nothing if one is missing or in no sensible place.
[[nodiscard]] std::optional<std::vector<GraphPoint>> ReadLayout(std::string_view output, std::size_t symbols);

/// Moves symbols so that their centres are as far from each other as these points. Their upper left corner stays,
/// unless one of them came to lie over a symbol that is not arranged: then all go beside those.
void ArrangeSymbols(XGraph& graph, std::span<const ctlGraphObj* const> symbols, std::span<const GraphPoint> centres);
