// One edge between a place of use and a code object: a certain call, a possible one, or the use of a type. Edges are
// never merged: two calls of one target at two places are two.
//
// All edges of a project form its CallGraph, which is derived from the modules as a whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "shell/vb_text.h"

class CodeObject;
class clsModul;
class clsProzedur;

enum class CallType : std::int8_t { MayBe = -1, Really = 1, Use = 2 };

class clsCall {
public:
    /// @param caller  a procedure, or a module for its declarations section
    /// @param pos     of the token in the caller's module
    clsCall(CodeObject& target, CodeObject& caller, CallType type, Pos pos);

    /// The caller; null for an edge of a declarations section.
    [[nodiscard]] clsProzedur* CallProcedure() const;
    /// The module whose declarations section it is; null where there is a procedure.
    [[nodiscard]] clsModul* CallModule() const;
    /// The module that the edge starts in.
    [[nodiscard]] clsModul& CallerModule() const;
    /// The procedure or module that the edge starts in.
    [[nodiscard]] CodeObject& Caller() const { return *caller_; }
    [[nodiscard]] CallType Type() const { return static_cast<CallType>(static_cast<int>(type_) - 1); }
    /// Number() of the target, without a look at it.
    [[nodiscard]] std::uint32_t TargetNumber() const { return targetNr_; }

    CodeObject* Parent;  // the target: what is called or used
    Pos CallPos;

private:
    friend class CallGraph;
    std::uint32_t type_ : 2;
    std::uint32_t targetNr_ : 30;
    CodeObject* caller_;
};
static_assert(sizeof(void*) != 8 || sizeof(clsCall) == 24);

/// Edges that reach one object, in the order of the modules and of their code.
class IncomingEdges {
public:
    IncomingEdges() = default;
    explicit IncomingEdges(std::span<const clsCall* const> edges) : edges_(edges) {}
    [[nodiscard]] int Count() const { return static_cast<int>(edges_.size()); }
    [[nodiscard]] auto begin() const { return edges_.begin(); }
    [[nodiscard]] auto end() const { return edges_.end(); }

private:
    std::span<const clsCall* const> edges_;
};

/// Edges that start in one procedure or declarations section, in the order of the code.
class OutgoingEdges {
public:
    enum class Which : std::uint8_t { All, Calls, Uses };
    OutgoingEdges() = default;
    OutgoingEdges(std::span<const clsCall> edges, Which which) : edges_(edges), which_(which) {}

    class Iterator {
    public:
        using value_type = const clsCall*;
        using difference_type = std::ptrdiff_t;
        Iterator() = default;
        Iterator(const clsCall* call, const clsCall* end, Which which) : call_(call), end_(end), which_(which) {
            SkipOthers();
        }
        const clsCall* operator*() const { return call_; }
        Iterator& operator++() {
            ++call_;
            SkipOthers();
            return *this;
        }
        bool operator==(const Iterator& other) const { return call_ == other.call_; }

    private:
        void SkipOthers() {
            while (which_ != Which::All && call_ != end_ && (call_->Type() == CallType::Use) != (which_ == Which::Uses))
                ++call_;
        }
        const clsCall* call_ = nullptr;
        const clsCall* end_ = nullptr;
        Which which_ = Which::All;
    };
    [[nodiscard]] Iterator begin() const { return {edges_.data(), edges_.data() + edges_.size(), which_}; }
    [[nodiscard]] Iterator end() const {
        const clsCall* const end = edges_.data() + edges_.size();
        return {end, end, which_};
    }
    [[nodiscard]] int Count() const {
        int count = 0;
        for (Iterator at = begin(), last = end(); at != last; ++at)
            ++count;
        return count;
    }

private:
    std::span<const clsCall> edges_;
    Which which_ = Which::All;
};

/// The edges of a project: contiguous for each module, and for each target in ranges over an index of them.
class CallGraph {
public:
    CallGraph() = default;
    CallGraph(const CallGraph&) = delete;
    CallGraph& operator=(const CallGraph&) = delete;

    /// Takes over the edges of all modules, in their order; the edges of one procedure must be contiguous.
    /// @param objects  number of objects of the project; all numbers are below it
    void Make(std::vector<std::vector<clsCall>> ofModules, std::size_t objects);
    /// Removes all edges.
    void Clear();

    [[nodiscard]] std::size_t Count() const { return incoming_.size(); }
    /// Calls `use` for each edge, in the order of the modules and of their code.
    template <class Use>
    void ForEach(Use use) const {
        for (const std::vector<clsCall>& calls : ofModules_)
            for (const clsCall& call : calls)
                use(call);
    }

    // The edges by running numbers, for walks over all of them: four bytes for each, instead of its 24. Made when
    // Leaving is first called, which one thread does at a time.

    struct Range {
        std::uint32_t first = 0;
        std::uint32_t end = 0;
    };
    /// Numbers of the edges that leave procedures and declarations sections, by number of these.
    [[nodiscard]] const std::vector<Range>& Leaving() const;
    [[nodiscard]] std::uint32_t TargetOf(std::uint32_t edge) const { return targets_[edge] >> 1; }
    [[nodiscard]] bool IsPossible(std::uint32_t edge) const { return (targets_[edge] & 1U) != 0; }
    [[nodiscard]] const clsCall& EdgeAt(std::uint32_t edge) const;

    /// Edges that reach the object of this number.
    [[nodiscard]] IncomingEdges CalledBy(std::size_t number) const { return Incoming(number * 2); }
    [[nodiscard]] IncomingEdges UsedBy(std::size_t number) const { return Incoming(number * 2 + 1); }

private:
    [[nodiscard]] IncomingEdges Incoming(std::size_t range) const {
        if (range + 1 >= begins_.size())
            return {};
        return IncomingEdges({incoming_.data() + begins_[range], incoming_.data() + begins_[range + 1]});
    }
    std::vector<std::vector<clsCall>> ofModules_;
    std::vector<const clsCall*> incoming_;  // sorted by target, calls before uses
    mutable std::vector<std::uint32_t>
        targets_;  // by number of the edge: twice that of its target, and 1 for a possible call
    mutable std::vector<Range> leaving_;
    mutable std::vector<std::uint32_t> firstOf_;  // number of the first edge of each module
    std::vector<std::uint32_t> begins_;  // of each object's calls and uses in incoming_, and the end of the last
};
