// Adds the callers or callees of a procedure to the graph, one level or all: callers in rows above its symbol, callees
// in rows below.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

#include "xgraph/graph.h"

class clsProzedur;

enum class GraphChain : std::uint8_t { CalledBy, CalledByAll, Calls, CallsAll };

/// The kinds of objects that chains of callees take.
enum class ChainObjectType : std::uint8_t { Module = 1, Procedure, Variable, Type, Enum, All };

/// Name of the long operation: "GraphCalledByChain", "GraphCalledByChainAll", "GraphCallsChain", "GraphCallsChainAll".
[[nodiscard]] std::string_view ActionOf(GraphChain chain);
/// Whether it goes on to the neighbours of neighbours.
[[nodiscard]] bool IsClosure(GraphChain chain);
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

/// Runs the command for the symbols of procedures, one after the other; does nothing for other symbols. Stops when
/// gAbort is set: what was created until then stays. Shows its progress, one step for each symbol.
ChainOutcome RunGraphChain(XGraph& graph, std::span<const ctlGraphObj* const> starts, GraphChain chain,
                           const ChainOptions& options = {});
/// The same for one symbol.
ChainOutcome RunGraphChain(XGraph& graph, const ctlGraphObj& start, GraphChain chain, const ChainOptions& options = {});
/// How many symbols it would create for those of these procedures, which may still be missing.
[[nodiscard]] int CountGraphChain(const XGraph& graph, std::span<clsProzedur* const> starts, GraphChain chain,
                                  const ChainOptions& options = {});
[[nodiscard]] int CountGraphChain(const XGraph& graph, const ctlGraphObj& start, GraphChain chain,
                                  const ChainOptions& options = {});
