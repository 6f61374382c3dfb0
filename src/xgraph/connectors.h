// Which connectors there are: a function of the symbols and of the calls of the project. A symbol of a module stands
// for all that its procedures do. The outgoing side knows libraries and the types of variables, the incoming side does
// not, so an incoming connector can exist in grey and yet not be coloured.
//
// Everything here lasts until the symbols change or calls are read again.
#pragma once

#include <vector>

class clsCall;
class XGraph;
struct ctlGraphObj;

/// One edge between two symbols. The two can be the same one.
struct Connector {
    const ctlGraphObj* from;  // calls or uses
    const ctlGraphObj* to;
    const clsCall* call;
    bool Highlight;  // of the active symbol: in colour
    bool operator==(const Connector&) const = default;
};

/// All connectors in paint order: those of all symbols in grey, in the order of the symbols, then the outgoing and the
/// incoming ones of the active symbol in colour. One edge can occur several times. Costs no more than the edges of the
/// objects on the graph.
[[nodiscard]] std::vector<Connector> GraphVerbindungen(const XGraph& graph);
/// The outgoing connectors of one symbol.
void GraphVerbindungen_FromObject(const XGraph& graph, const ctlGraphObj& symbol, bool Highlight,
                                  std::vector<Connector>& into);
/// The incoming connectors of one symbol.
void GraphVerbindungen_ToObject(const XGraph& graph, const ctlGraphObj& symbol, bool Highlight,
                                std::vector<Connector>& into);
