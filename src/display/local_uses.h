// The places at which procedures name their own arguments and locals. The analysis does not need them, so they are
// looked for when a procedure is shown, and kept until the objects or their edges change.
#pragma once

#include <unordered_map>
#include <vector>

#include "findings/dead_objects.h"

class LocalUses {
public:
    /// Looks for them the first time.
    const std::vector<LocalUse>& Look(const clsProzedur& prozedur);
    /// Null for a procedure that was not looked at. A declare never is: it has no body.
    [[nodiscard]] const std::vector<LocalUse>* Known(const clsProzedur& prozedur) const;
    /// How often a local is named, as far as its procedure was looked at.
    [[nodiscard]] int CountOf(const clsVariable& variable) const;
    void Clear() { known_.clear(); }

private:
    std::unordered_map<const clsProzedur*, std::vector<LocalUse>> known_;
};
