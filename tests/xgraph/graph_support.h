// A graph of the open project whose symbols have sizes that a test can count with.
#pragma once

#include "support/project_test.h"
#include "xgraph/connectors.h"
#include "xgraph/graph.h"
#include "xgraph/pairs.h"

/// Captions are 10 pixels wide for each character and 12 high: a symbol of "Go" in "M" is 300 by 600 twips.
class CountedSizes : public SymbolSizes {
public:
    [[nodiscard]] GraphSize LabelPixels(std::string_view caption, SymbolLabel /*label*/) const override {
        return {10.0 * static_cast<double>(caption.size()), 12};
    }
};

class Graphs : public ProgramState {
protected:
    /// Puts symbols of these paths on the canvas, one below the other.
    void Put(std::initializer_list<std::string_view> paths) {
        graph.SetProject(gProjekt.get());
        for (const std::string_view path : paths)
            graph.GraphObjCreate(&ObjectAt(path), 0, 1000.0 * static_cast<double>(graph.GraphObjects().size()), false);
    }
    const ctlGraphObj& At(std::string_view path) {
        const ctlGraphObj* const symbol = graph.WithPath(path);
        if (!symbol)
            throw std::invalid_argument("no symbol " + std::string(path));
        return *symbol;
    }
    /// "m.a m.b*": the paths of all symbols, with "*" after the selected ones.
    [[nodiscard]] std::string Symbols() const {
        return Joined(graph.GraphObjects(), " ",
                      [](const auto& symbol) { return symbol->CodePath + (symbol->Selected ? "*" : ""); });
    }

    CountedSizes sizes;
    XGraph graph{sizes};
};
