// Arranging the diagram by Graphviz, which runs as a process of its own, so that it can be stopped.
#pragma once

#include "views/graph_ports.h"
#include "xgraph/layout.h"

class GraphCanvas;
class QWidget;

class GraphArrange final {
public:
    /// All must outlive it.
    GraphArrange(GraphCanvas& canvas, const GraphPorts& ports, QWidget* window)
        : canvas_(canvas), ports_(ports), window_(window) {}

    /// Whether the program is installed.
    [[nodiscard]] static bool IsThere();
    /// Arranges the selected symbols, or all, as one step of undo.
    /// @param name  what undo takes back
    void Arrange(const QString& name, LayoutOptions options);

private:
    GraphCanvas& canvas_;
    const GraphPorts& ports_;
    QWidget* window_;
};
