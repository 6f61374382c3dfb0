// Adds the callers or callees of a procedure to the graph, one level or all: callers in rows above its symbol, callees
// in rows below.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "xgraph/graph.h"

enum class GraphChain : std::uint8_t { CalledBy, CalledByAll, Calls, CallsAll };

/// The kinds of objects that chains of callees take.
enum class ChainObjectType : std::uint8_t { Module = 1, Procedure, Variable, Type, Enum, All };

/// Name of the long operation: "GraphCalledByChain", "GraphCalledByChainAll", "GraphCallsChain", "GraphCallsChainAll".
[[nodiscard]] std::string_view ActionOf(GraphChain chain);
/// Whether a chain takes the object; properties are taken with All alone.
[[nodiscard]] bool Takes(ChainObjectType type, const CodeObject& object);

struct ChainOptions {
    ChainObjectType type = ChainObjectType::Procedure;
    int limit = std::numeric_limits<int>::max();  // symbols that are created at most
};
struct ChainOutcome {
    int created = 0;
    bool isWhole = true;  // neither cancelled nor limited
};

/// Runs the command for the symbol of a procedure; does nothing for other symbols. Stops when gAbort is set: what was
/// created until then stays. Shows its progress, one step for each symbol.
ChainOutcome RunGraphChain(XGraph& graph, const ctlGraphObj& start, GraphChain chain, const ChainOptions& options = {});
/// How many symbols it would create.
[[nodiscard]] int CountGraphChain(const XGraph& graph, const ctlGraphObj& start, GraphChain chain,
                                  const ChainOptions& options = {});
