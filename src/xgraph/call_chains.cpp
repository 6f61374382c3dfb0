// The walk decides which objects get a symbol, in which order; a Canvas makes them. A closure goes depth first, with a
// stack of its own: a project's calls can be deeper than the stack of the process.
#include "xgraph/call_chains.h"

#include <string>
#include <unordered_set>
#include <vector>

#include "findings/dead_objects.h"
#include "model/clsProzedur.h"
#include "model/clsVariable.h"
#include "shell/operations.h"
#include "xgraph/placement.h"

namespace {

bool IsUpwards(GraphChain chain) {
    return chain == GraphChain::CalledBy || chain == GraphChain::CalledByAll;
}

// Where the symbols of a chain go.
class Canvas {
public:
    virtual ~Canvas() = default;
    [[nodiscard]] virtual bool Has(const CodeObject& object) const = 0;
    /// The neighbours of a procedure come next.
    virtual void Begin(const clsProzedur& prozedur) = 0;
    virtual void Make(CodeObject& object) = 0;
};

// Takes note of what would be made.
class CountingCanvas final : public Canvas {
public:
    /// @param starts  are there as well
    CountingCanvas(const XGraph& graph, std::span<clsProzedur* const> starts) : graph_(graph) {
        for (const clsProzedur* start : starts)
            made_.insert(start->CodePath());
    }
    [[nodiscard]] bool Has(const CodeObject& object) const override {
        const std::string path = object.CodePath();
        return graph_.WithPath(path) || made_.contains(path);
    }
    void Begin(const clsProzedur& /*prozedur*/) override {}
    void Make(CodeObject& object) override { made_.insert(object.CodePath()); }

private:
    const XGraph& graph_;
    std::unordered_set<std::string> made_;
};

// Makes symbols in rows above or below the procedure. A place is sought when a symbol needs it, so the last symbol of a
// row costs nothing more; the places are the same, as nothing is made in between.
class RowCanvas final : public Canvas {
public:
    RowCanvas(XGraph& graph, bool isUpwards) : graph_(graph), placement_(graph), isUpwards_(isUpwards) {}
    /// The rows of a command begin at the left edge of its symbol.
    void BeginCommand(const ctlGraphObj& start) { left_ = start.Left; }

    [[nodiscard]] bool Has(const CodeObject& object) const override {
        return graph_.WithPath(object.CodePath()) != nullptr;
    }
    void Begin(const clsProzedur& prozedur) override {
        prozedur_ = graph_.WithPath(prozedur.CodePath());
        last_ = nullptr;
        placement_.GraphPlaceDirX = 1;
        placement_.GraphPlaceDirY = isUpwards_ ? -1 : 1;
    }
    void Make(CodeObject& object) override {
        place_ = last_ ? PlaceAfter(*last_) : FirstPlace();
        last_ = graph_.GraphObjCreate(&object, place_.x, place_.y, false);
        placement_.Add(*last_);
        gProgress().Progressiere_mal();
    }

private:
    GraphPoint FirstPlace() {
        const GraphRect frame = prozedur_->Frame();
        GraphPoint place{left_, frame.top + (isUpwards_ ? -2 : 2) * frame.height};
        if (placement_.IsTaken(place, prozedur_->layout.size))
            place.x = placement_.Graph_GetNextPlace_To_X(place, frame).x;  // the row stays the same, whatever was found
        return place;
    }
    GraphPoint PlaceAfter(const ctlGraphObj& symbol) {
        const double step = symbol.Width() + kPlaceGap;
        const GraphPoint place{symbol.Left + (placement_.GraphPlaceDirX == 1 ? step : -step), place_.y};
        const GraphSize size = symbol.layout.size;
        if (placement_.IsTaken(place, size) || placement_.IsBeyond(place, size))
            return placement_.Graph_GetNextPlace_To_X(place, symbol.Frame());
        return place;
    }

    XGraph& graph_;
    Placement placement_;
    double left_ = 0;
    bool isUpwards_;
    const ctlGraphObj* prozedur_ = nullptr;
    const ctlGraphObj* last_ = nullptr;  // made for this procedure
    GraphPoint place_;                   // of it
};

class ChainWalk {
public:
    /// Paths of the procedures whose neighbours were looked at: of a path, one is.
    using Visited = std::unordered_set<std::string>;
    ChainWalk(GraphChain chain, const ChainOptions& options, Canvas& canvas, Visited& visited)
        : chain_(chain), options_(options), canvas_(canvas), visited_(visited) {}

    ChainOutcome Run(clsProzedur& start) {
        start_ = &start;
        Enter(start);
        while (!stack_.empty() && outcome_.isWhole) {
            Frame& frame = stack_.back();
            if (IsStopped() || frame.next == frame.neighbours.size())
                stack_.pop_back();
            else
                Descend(*frame.neighbours[frame.next++]);
        }
        return outcome_;
    }

private:
    // A procedure whose neighbours have symbols, and those of them that are still to be looked at.
    struct Frame {
        std::vector<CodeObject*> neighbours;
        std::size_t next = 0;
    };

    bool IsStopped() {
        DoEvents();
        outcome_.isWhole = outcome_.isWhole && !gAbort;
        return !outcome_.isWhole;
    }

    // Makes the symbols of one procedure's neighbours.
    void Enter(clsProzedur& prozedur) {
        if (IsStopped())
            return;
        visited_.insert(prozedur.CodePath());
        canvas_.Begin(prozedur);
        std::vector<CodeObject*> neighbours = NeighboursOf(prozedur);
        for (CodeObject* object : neighbours) {
            if (IsStopped())
                return;
            if (IsShown(*object, prozedur) && !Make(*object))
                return;
        }
        if (IsClosure(chain_))
            stack_.push_back({std::move(neighbours)});
    }

    void Descend(CodeObject& object) {
        if (object.Class() != ObjectClass::Prozedur || !IsTaken(object) || !canvas_.Has(object))
            return;
        auto& prozedur = static_cast<clsProzedur&>(object);
        if (!visited_.contains(prozedur.CodePath()))
            Enter(prozedur);
    }

    bool Make(CodeObject& object) {
        if (outcome_.created == options_.limit) {
            outcome_.isWhole = false;
            return false;
        }
        canvas_.Make(object);
        ++outcome_.created;
        return true;
    }

    // In the order of the edges; the locals of the first procedure, which are looked for by name, come after its calls.
    [[nodiscard]] std::vector<CodeObject*> NeighboursOf(const clsProzedur& prozedur) const {
        std::vector<CodeObject*> neighbours;
        if (IsUpwards(chain_)) {
            for (const clsCall* call : prozedur.CalledByAll())
                if (clsProzedur* const caller = call->CallProcedure())
                    neighbours.push_back(caller);
            return neighbours;
        }
        for (const clsCall* call : prozedur.CallsAll())
            neighbours.push_back(call->Parent);
        if (&prozedur == start_)
            for (const LocalUse& use : Check_ProcVars_Calls(prozedur))
                neighbours.push_back(use.variable);
        return neighbours;
    }

    [[nodiscard]] bool IsTaken(const CodeObject& object) const {
        return IsUpwards(chain_) || Takes(options_.type, object);
    }
    [[nodiscard]] bool IsShown(const CodeObject& object, const clsProzedur& prozedur) const {
        if (!IsTaken(object) || IsLocalOfAnother(object, prozedur))
            return false;
        return !canvas_.Has(object) && !object.CodePathOrg().empty();
    }
    static bool IsLocalOfAnother(const CodeObject& object, const clsProzedur& prozedur) {
        if (object.Class() != ObjectClass::Variable)
            return false;
        const clsProzedur* const owner = static_cast<const clsVariable&>(object).Prozedur;
        return owner && owner != &prozedur;
    }

    GraphChain chain_;
    const ChainOptions& options_;
    Canvas& canvas_;
    Visited& visited_;
    const clsProzedur* start_ = nullptr;
    std::vector<Frame> stack_;
    ChainOutcome outcome_;
};

// Runs the walks of several commands as one. What an earlier one has looked at has all its neighbours.
class ChainWalks {
public:
    ChainWalks(GraphChain chain, const ChainOptions& options) : chain_(chain), rest_(options) {}
    void Walk(clsProzedur& start, Canvas& canvas) {
        if (!outcome_.isWhole)
            return;
        const ChainOutcome outcome = ChainWalk(chain_, rest_, canvas, visited_).Run(start);
        rest_.limit -= outcome.created;
        outcome_.created += outcome.created;
        outcome_.isWhole = outcome.isWhole;
    }
    [[nodiscard]] ChainOutcome Outcome() const { return outcome_; }

private:
    GraphChain chain_;
    ChainOptions rest_;
    ChainWalk::Visited visited_;
    ChainOutcome outcome_;
};

clsProzedur* ProzedurOf(const ctlGraphObj& symbol) {
    return symbol.object->Class() == ObjectClass::Prozedur ? static_cast<clsProzedur*>(symbol.object) : nullptr;
}

}  // namespace

bool IsClosure(GraphChain chain) {
    return chain == GraphChain::CalledByAll || chain == GraphChain::CallsAll;
}

std::string_view ActionOf(GraphChain chain) {
    switch (chain) {
        case GraphChain::CalledBy:
            return "GraphCalledByChain";
        case GraphChain::CalledByAll:
            return "GraphCalledByChainAll";
        case GraphChain::Calls:
            return "GraphCallsChain";
        case GraphChain::CallsAll:
            return "GraphCallsChainAll";
    }
    return {};
}

bool Takes(ChainObjectType type, const CodeObject& object) {
    if (type == ChainObjectType::All)
        return true;
    switch (object.Class()) {
        case ObjectClass::Modul:
            return type == ChainObjectType::Module;
        case ObjectClass::Prozedur: {
            const ProcKind kind = static_cast<const clsProzedur&>(object).ProzedurTyp;
            const bool isAccessor =
                kind == ProcKind::PropertyGet || kind == ProcKind::PropertyLet || kind == ProcKind::PropertySet;
            return type == ChainObjectType::Procedure && !isAccessor;
        }
        case ObjectClass::Variable: {
            const auto& variable = static_cast<const clsVariable&>(object);
            if (variable.MyType)
                return type == ChainObjectType::Type;
            return type == (variable.MyEnum ? ChainObjectType::Enum : ChainObjectType::Variable);
        }
        case ObjectClass::Type:
            return type == ChainObjectType::Type;
        case ObjectClass::Enum:
            return type == ChainObjectType::Enum;
        case ObjectClass::Control:
        case ObjectClass::TypeLib:
            return false;
    }
    return false;
}

ChainOutcome RunGraphChain(XGraph& graph, std::span<const ctlGraphObj* const> starts, GraphChain chain,
                           const ChainOptions& options) {
    std::vector<clsProzedur*> procedures;
    for (const ctlGraphObj* start : starts)
        if (clsProzedur* const prozedur = ProzedurOf(*start))
            procedures.push_back(prozedur);
    gProgress().Range(0, CountGraphChain(graph, procedures, chain, options));
    RowCanvas canvas(graph, IsUpwards(chain));
    ChainWalks walks(chain, options);
    for (clsProzedur* prozedur : procedures) {
        canvas.BeginCommand(*graph.WithPath(prozedur->CodePath()));
        walks.Walk(*prozedur, canvas);
    }
    return walks.Outcome();
}

ChainOutcome RunGraphChain(XGraph& graph, const ctlGraphObj& start, GraphChain chain, const ChainOptions& options) {
    const ctlGraphObj* const starts[] = {&start};
    return RunGraphChain(graph, starts, chain, options);
}

int CountGraphChain(const XGraph& graph, const ctlGraphObj& start, GraphChain chain, const ChainOptions& options) {
    clsProzedur* const procedures[] = {ProzedurOf(start)};
    return procedures[0] ? CountGraphChain(graph, procedures, chain, options) : 0;
}

int CountGraphChain(const XGraph& graph, std::span<clsProzedur* const> starts, GraphChain chain,
                    const ChainOptions& options) {
    CountingCanvas canvas(graph, starts);
    ChainWalks walks(chain, options);
    for (clsProzedur* start : starts)
        walks.Walk(*start, canvas);
    return walks.Outcome().created;
}
