#include "canvas/graph_change.h"

#include <algorithm>
#include <utility>

GraphChange::GraphChange(const QString& text, GraphState before, GraphState after, QString& file, Restore restore)
    : QUndoCommand(text),
      before_(std::move(before)),
      after_(std::move(after)),
      file_(file),
      restore_(std::move(restore)) {}

bool GraphChange::mergeWith(const QUndoCommand* next) {
    const auto& other = static_cast<const GraphChange&>(*next);
    // Only of the same symbols: what moved both times.
    const auto moved = [](const GraphState& from, const GraphState& to) {
        std::vector<bool> which;
        std::transform(from.places.begin(), from.places.end(), to.places.begin(), std::back_inserter(which),
                       [](const SymbolPlace& one, const SymbolPlace& two) { return one != two; });
        return which;
    };
    if (before_.places.size() != other.after_.places.size() || after_ != other.before_ ||
        moved(before_, after_) != moved(other.before_, other.after_))
        return false;
    after_ = other.after_;
    return true;
}

// The undo stack begins with a redo, of what has just been done.
void GraphChange::redo() {
    if (!std::exchange(isNew_, false))
        Put(after_, before_);
}

void GraphChange::Put(const GraphState& state, const GraphState& from) {
    if (state.file != from.file)
        file_ = state.file;
    restore_(state.places);
}
