// One edge between a place of use and a code object: a certain call, a possible one, or the use of a type.
//
// Edges are never merged: two calls of one target at two places are two. They stand in no container of their own kind;
// each is linked into the list of its target and the list of its caller, in the order of their numbers.
#pragma once

#include <cstdint>
#include <vector>

#include "model/counters.h"
#include "shell/vb_text.h"

class CodeObject;
class clsModul;
class clsProzedur;

enum class CallType : std::int8_t { MayBe = -1, Really = 1, Use = 2 };

class clsCall {
public:
    /// @param caller  the procedure, or the module for an edge of its declarations section; null for neither
    clsCall(CodeObject& target, clsProzedur* caller, CallType type, Pos pos, std::int32_t nr)
        : clsCall(target, reinterpret_cast<std::uintptr_t>(caller), type, pos, nr) {}
    clsCall(CodeObject& target, clsModul* caller, CallType type, Pos pos, std::int32_t nr)
        : clsCall(target, reinterpret_cast<std::uintptr_t>(caller) | kIsModule, type, pos, nr) {}

    /// The caller; null for an edge of a declarations section.
    [[nodiscard]] clsProzedur* CallProcedure() const {
        return (caller_ & kIsModule) != 0 ? nullptr : reinterpret_cast<clsProzedur*>(caller_ & ~kBits);
    }
    /// The caller's module, where there is no procedure.
    [[nodiscard]] clsModul* CallModule() const {
        return (caller_ & kIsModule) == 0 ? nullptr : reinterpret_cast<clsModul*>(caller_ & ~kBits);
    }
    [[nodiscard]] CallType Type() const { return static_cast<CallType>(static_cast<int>(caller_ >> 1 & 3) - 1); }

    CodeObject* Parent;   // the target: what is called or used
    Pos CallPos;          // of the token in the caller's module
    std::int32_t CallNr;  // unique, rising in the order of making

    clsCall* nextIncoming = nullptr;  // in the list of the target
    clsCall* nextOutgoing = nullptr;  // in the list of the caller

private:
    // Edges are many: what kind this one is, and of which class the caller, stand in the caller's three lowest bits.
    static constexpr std::uintptr_t kIsModule = 1;
    static constexpr std::uintptr_t kBits = 7;
    clsCall(CodeObject& target, std::uintptr_t caller, CallType type, Pos pos, std::int32_t nr)
        : Parent(&target),
          CallPos(pos),
          CallNr(nr),
          caller_(caller | static_cast<std::uintptr_t>(static_cast<int>(type) + 1) << 1) {}

    std::uintptr_t caller_;
    [[no_unique_address]] Counted<gCountCall> counted_;
};
static_assert(sizeof(void*) != 8 || sizeof(clsCall) == 40);

/// Edges of one object, in the order of their making. It owns none of them.
template <clsCall* clsCall::*next>
class EdgeList {
public:
    void Append(clsCall& call) {
        (last_ ? last_->*next : first_) = &call;
        last_ = &call;
        ++count_;
    }
    void Clear() { *this = {}; }
    [[nodiscard]] int Count() const { return count_; }

    class Iterator {
    public:
        explicit Iterator(clsCall* call) : call_(call) {}
        clsCall* operator*() const { return call_; }
        Iterator& operator++() {
            call_ = call_->*next;
            return *this;
        }
        bool operator==(const Iterator&) const = default;

    private:
        clsCall* call_;
    };
    [[nodiscard]] Iterator begin() const { return Iterator(first_); }
    [[nodiscard]] Iterator end() const { return Iterator(nullptr); }

private:
    clsCall* first_ = nullptr;
    clsCall* last_ = nullptr;
    int count_ = 0;
};

using IncomingEdges = EdgeList<&clsCall::nextIncoming>;
using OutgoingEdges = EdgeList<&clsCall::nextOutgoing>;

/// Owns all edges of a project, in blocks. Numbers go on after Clear.
class EdgeStore {
public:
    template <class Caller>
    clsCall& New(CodeObject& target, Caller* caller, CallType type, Pos pos) {
        if (blocks_.empty() || blocks_.back().size() == kBlock) {
            blocks_.emplace_back();
            blocks_.back().reserve(kBlock);
        }
        return blocks_.back().emplace_back(target, caller, type, pos, ++lastNr_);
    }
    /// Drops all edges; the lists that hold them must have been cleared.
    void Clear() { blocks_.clear(); }
    [[nodiscard]] std::size_t Count() const {
        return blocks_.empty() ? 0 : (blocks_.size() - 1) * kBlock + blocks_.back().size();
    }
    /// Calls `use` for each edge, in the order of their numbers.
    template <class Use>
    void ForEach(Use use) const {
        for (const std::vector<clsCall>& block : blocks_)
            for (const clsCall& call : block)
                use(call);
    }

private:
    static constexpr std::size_t kBlock = 4096;
    std::vector<std::vector<clsCall>>
        blocks_;  // none ever grows beyond what it has reserved, so edges stay where they are
    std::int32_t lastNr_ = 0;
};
