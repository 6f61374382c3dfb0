// Adding what is called to the diagram: callers and callees of procedures, and the way from one to another.
#pragma once

#include <cstdint>
#include <vector>

#include "views/graph_ports.h"
#include "xgraph/call_chains.h"

class GraphCanvas;
class QWidget;
class clsProzedur;

class GraphChains final {
public:
    /// All must outlive it.
    GraphChains(GraphCanvas& canvas, const GraphPorts& ports, QWidget* window)
        : canvas_(canvas), ports_(ports), window_(window) {}

    /// The selected procedures in the order of their selection; the active one if none is selected.
    [[nodiscard]] std::vector<clsProzedur*> Selected() const;
    /// Runs a chain for these procedures as one step of undo; those without a symbol get one first. Very many symbols
    /// are asked about before.
    /// @param name  what undo takes back
    void Add(const QString& name, GraphChain chain, ChainObjectType type, const std::vector<clsProzedur*>& starts);
    /// Shows the shortest chain of calls from the first selected procedure to the second, or back.
    void AddPath(const QString& name);

    int mostUnasked = 300;  // symbols that are added without a question

private:
    enum class Answer : std::uint8_t { All, FirstLevel, Cancel };
    [[nodiscard]] Answer Ask(GraphChain chain, ChainObjectType type, int count) const;
    [[nodiscard]] QString About(const ChainOutcome& outcome) const;

    GraphCanvas& canvas_;
    const GraphPorts& ports_;
    QWidget* window_;
};
