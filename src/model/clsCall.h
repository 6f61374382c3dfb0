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

/// Where an edge starts, and of what kind it is, in one word: edges are many, so the kind stands in the address's
/// lowest bits.
class EdgeStart {
public:
    /// In a procedure; null for nowhere.
    EdgeStart(clsProzedur* procedure, CallType type) : EdgeStart(reinterpret_cast<std::uintptr_t>(procedure), type) {}
    /// In the declarations section of a module.
    EdgeStart(clsModul* modul, CallType type) : EdgeStart(reinterpret_cast<std::uintptr_t>(modul) | kIsModule, type) {}

    [[nodiscard]] clsProzedur* Procedure() const {
        return (bits_ & kIsModule) != 0 ? nullptr : reinterpret_cast<clsProzedur*>(bits_ & ~kBits);
    }
    [[nodiscard]] clsModul* Module() const {
        return (bits_ & kIsModule) == 0 ? nullptr : reinterpret_cast<clsModul*>(bits_ & ~kBits);
    }
    [[nodiscard]] CallType Type() const { return static_cast<CallType>(static_cast<int>(bits_ >> 1 & 3) - 1); }

private:
    static constexpr std::uintptr_t kIsModule = 1;
    static constexpr std::uintptr_t kBits = 7;
    EdgeStart(std::uintptr_t bits, CallType type)
        : bits_(bits | static_cast<std::uintptr_t>(static_cast<int>(type) + 1) << 1) {}
    std::uintptr_t bits_;
};

class clsCall {
public:
    clsCall(CodeObject& target, EdgeStart start, Pos pos, std::int32_t nr)
        : Parent(&target), CallPos(pos), CallNr(nr), start_(start) {}

    /// The caller; null for an edge of a declarations section.
    [[nodiscard]] clsProzedur* CallProcedure() const { return start_.Procedure(); }
    /// The caller's module, where there is no procedure.
    [[nodiscard]] clsModul* CallModule() const { return start_.Module(); }
    [[nodiscard]] CallType Type() const { return start_.Type(); }

    CodeObject* Parent;   // the target: what is called or used
    Pos CallPos;          // of the token in the caller's module
    std::int32_t CallNr;  // unique, rising in the order of making

    clsCall* nextIncoming = nullptr;  // in the list of the target
    clsCall* nextOutgoing = nullptr;  // in the list of the caller

private:
    EdgeStart start_;
    [[no_unique_address]] Counted<&ObjectCounts::call> counted_;
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
    /// Where the next edge will be entered.
    [[nodiscard]] const void* Last() const { return last_; }
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
    clsCall& New(CodeObject& target, EdgeStart start, Pos pos) {
        if (blocks_.empty() || blocks_.back().size() == kBlock) {
            blocks_.emplace_back();
            blocks_.back().reserve(kBlock);
        }
        return blocks_.back().emplace_back(target, start, pos, ++lastNr_);
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
