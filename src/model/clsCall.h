// One edge between a place of use and a code object: a certain call, a possible one, or the use of a type.
//
// Edges are never merged: two calls of one target at two places are two. They stand in no container of their own kind;
// each is linked into the list of its target and the list of its caller, in the order of their numbers.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "model/counters.h"
#include "shell/vb_text.h"

class CodeObject;
class clsModul;
class clsProzedur;

enum class CallType : std::int8_t { MayBe = -1, Really = 1, Use = 2 };

class clsCall {
public:
    CodeObject* Parent = nullptr;           // the target: what is called or used
    clsProzedur* CallProcedure = nullptr;   // the caller; null for an edge of a declarations section
    clsModul* CallModule = nullptr;         // the caller's module, where there is no procedure
    Pos CallPos = 0;                        // of the token in the caller's module
    std::int32_t CallNr = 0;                // unique, rising in the order of making
    CallType Type = CallType::Really;

    clsCall* nextIncoming = nullptr;  // in the list of the target
    clsCall* nextOutgoing = nullptr;  // in the list of the caller

private:
    [[no_unique_address]] Counted<gCountCall> counted_;
};

/// Edges of one object, in the order of their making. It owns none of them.
template <clsCall* clsCall::* next>
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
    clsCall& New() {
        if (used_ == kBlock || blocks_.empty()) {
            blocks_.push_back(std::make_unique<clsCall[]>(kBlock));
            used_ = 0;
        }
        clsCall& call = blocks_.back()[used_++];
        call.CallNr = ++lastNr_;
        return call;
    }
    /// Drops all edges; the lists that hold them must have been cleared.
    void Clear() {
        blocks_.clear();
        used_ = 0;
    }
    [[nodiscard]] std::size_t Count() const { return blocks_.empty() ? 0 : (blocks_.size() - 1) * kBlock + used_; }
    /// Calls `use` for each edge, in the order of their numbers.
    template <class Use>
    void ForEach(Use use) const {
        for (std::size_t block = 0; block < blocks_.size(); ++block)
            for (std::size_t i = 0; i < (block + 1 == blocks_.size() ? used_ : kBlock); ++i)
                use(blocks_[block][i]);
    }

private:
    static constexpr std::size_t kBlock = 4096;
    std::vector<std::unique_ptr<clsCall[]>> blocks_;
    std::size_t used_ = 0;
    std::int32_t lastNr_ = 0;
};
