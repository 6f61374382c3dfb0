// Connectors from one symbol to another lie exactly on top of each other. A pair is all of them together: what is
// painted once, hovered over, clicked, and written to other formats.
#pragma once

#include <vector>

#include "model/clsCall.h"
#include "xgraph/connectors.h"

class CodeObject;

struct GraphPair {
    const ctlGraphObj* from;
    const ctlGraphObj* to;
    std::vector<const clsCall*> calls;  // each once, in the order of the connectors
    int certain = 0;                    // of them
    int possible = 0;
    int uses = 0;
    CallType topType = CallType::Really;  // of the connector painted last
    bool Highlight = false;

    /// Nothing about it is certain: drawn with dashes.
    [[nodiscard]] bool IsPossible() const { return certain == 0 && uses == 0; }
    /// From a symbol to itself; nothing to see, but it counts.
    [[nodiscard]] bool IsLoop() const { return from == to; }
};

/// The pairs in paint order: each is where its last connector is.
[[nodiscard]] std::vector<GraphPair> GraphPairs(const std::vector<Connector>& connectors);

/// A place in the code that makes up a connector.
struct CallLine {
    const clsCall* call;
    CodeObject* caller;  // a procedure, or a module for its declarations
    int line;            // of the caller's file, from 1
};
/// The places of a pair in the order of its calls.
[[nodiscard]] std::vector<CallLine> CallLinesOf(const GraphPair& pair);
