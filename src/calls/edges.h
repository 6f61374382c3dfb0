// Edges as a walk over a module finds them, and questions about the edges of an object.
#pragma once

#include <vector>

#include "model/clsCall.h"

/// Edges that a walk over a module has found. Walks over several modules run at the same time, so a walk changes
/// nothing else.
class FoundCalls {
public:
    /// @param caller  a procedure, or a module for its declarations section
    void CallCreate(CodeObject& target, CodeObject& caller, CallType type, Pos pos) {
        found_.emplace_back(target, caller, type, pos);
    }
    /// Whether the last place with an edge is this one.
    [[nodiscard]] bool EndsAt(Pos pos) const { return !found_.empty() && found_.back().CallPos == pos; }
    /// A use. A target that cannot be used is left out.
    void CallUseCreate(CodeObject& target, CodeObject& caller, Pos pos);
    /// Returns the edges and forgets them; the memory serves the next module.
    [[nodiscard]] std::vector<clsCall> Take() {
        std::vector<clsCall> taken(found_.begin(), found_.end());
        found_.clear();
        return taken;
    }

private:
    std::vector<clsCall> found_;
};

/// Whether an edge of this type reaches the object.
[[nodiscard]] bool Is_CalledBy(const CodeObject& object, CallType type);
/// Whether an edge of this type uses a type, enumeration, class or library.
[[nodiscard]] bool Is_UsedBy(const CodeObject& object, CallType type);
/// Whether an edge of this type starts in the procedure.
[[nodiscard]] bool Is_Calls(const clsProzedur& prozedur, CallType type);
