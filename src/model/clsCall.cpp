#include "model/clsCall.h"

#include <algorithm>
#include <utility>

#include "model/clsModul.h"
#include "model/clsProzedur.h"

clsCall::clsCall(CodeObject& target, CodeObject& caller, CallType type, Pos pos)
    : Parent(&target),
      CallPos(pos),
      type_(static_cast<std::uint32_t>(static_cast<int>(type) + 1) & 3U),
      targetNr_(target.Number() & ((1U << 30) - 1)),
      caller_(&caller) {}

clsProzedur* clsCall::CallProcedure() const {
    return caller_->Class() == ObjectClass::Prozedur ? static_cast<clsProzedur*>(caller_) : nullptr;
}

clsModul* clsCall::CallModule() const {
    return caller_->Class() == ObjectClass::Modul ? static_cast<clsModul*>(caller_) : nullptr;
}

clsModul& clsCall::CallerModule() const {
    return caller_->Class() == ObjectClass::Modul ? static_cast<clsModul&>(*caller_) : *caller_->Modul;
}

namespace {

// The span of edges that start in a procedure or declarations section.
std::span<const clsCall>& ListOf(CodeObject& caller) {
    return caller.Class() == ObjectClass::Prozedur ? static_cast<clsProzedur&>(caller).outgoing
                                                   : static_cast<clsModul&>(caller).outgoing;
}

// Calls `use` for each caller with its edges, which are contiguous.
template <class Use>
void ForEachCaller(const std::vector<clsCall>& calls, Use use) {
    for (std::size_t first = 0; first < calls.size();) {
        std::size_t end = first + 1;
        while (end < calls.size() && &calls[end].Caller() == &calls[first].Caller())
            ++end;
        use(calls[first].Caller(), std::span(calls).subspan(first, end - first));
        first = end;
    }
}

}  // namespace

// A counting sort by target: quick, and it keeps the order of the edges.
void CallGraph::Make(std::vector<std::vector<clsCall>> ofModules, std::size_t objects) {
    Clear();
    ofModules_ = std::move(ofModules);
    const auto rangeOf = [](const clsCall& call) {
        return std::size_t{call.targetNr_} * 2 + (call.Type() == CallType::Use ? 1 : 0);
    };
    begins_.assign(objects * 2 + 2, 0);
    std::size_t count = 0;
    for (const std::vector<clsCall>& calls : ofModules_) {
        for (const clsCall& call : calls)
            ++begins_[rangeOf(call) + 2];
        count += calls.size();
        ForEachCaller(calls, [](CodeObject& caller, std::span<const clsCall> edges) { ListOf(caller) = edges; });
    }
    for (std::size_t range = 2; range < begins_.size(); ++range)
        begins_[range] += begins_[range - 1];
    // begins_[range + 1] is the place for the next edge of a range; at the end it is the begin of the range after it.
    incoming_.resize(count);
    for (const std::vector<clsCall>& calls : ofModules_)
        for (const clsCall& call : calls)
            incoming_[begins_[rangeOf(call) + 1]++] = &call;
}

void CallGraph::Clear() {
    for (const std::vector<clsCall>& calls : ofModules_)
        ForEachCaller(calls, [](CodeObject& caller, std::span<const clsCall>) { ListOf(caller) = {}; });
    ofModules_.clear();
    incoming_.clear();
    targets_.clear();
    leaving_.clear();
    firstOf_.clear();
    begins_.clear();
}

const std::vector<CallGraph::Range>& CallGraph::Leaving() const {
    if (!leaving_.empty() || begins_.empty())
        return leaving_;
    leaving_.resize(begins_.size() / 2);
    targets_.reserve(Count());
    for (const std::vector<clsCall>& calls : ofModules_) {
        auto first = static_cast<std::uint32_t>(targets_.size());
        firstOf_.push_back(first);
        for (const clsCall& call : calls)
            targets_.push_back(call.targetNr_ << 1 | (call.Type() == CallType::MayBe ? 1U : 0U));
        ForEachCaller(calls, [&](const CodeObject& caller, std::span<const clsCall> edges) {
            const auto end = static_cast<std::uint32_t>(first + edges.size());
            leaving_[caller.Number()] = {first, end};
            first = end;
        });
    }
    return leaving_;
}

const clsCall& CallGraph::EdgeAt(std::uint32_t edge) const {
    const auto modul = static_cast<std::size_t>(std::ranges::upper_bound(firstOf_, edge) - firstOf_.begin()) - 1;
    return ofModules_[modul][edge - firstOf_[modul]];
}
