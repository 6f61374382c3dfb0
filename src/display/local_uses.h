// The places at which procedures name their own arguments and locals. The analysis does not need them, so they are
// determined when a procedure is shown, and kept for one generation: they follow from the text alone.
#pragma once

#include <unordered_map>
#include <vector>

#include "findings/dead_objects.h"

class LocalUses {
public:
    /// Determines them the first time.
    const std::vector<LocalUse>& Look(const clsProzedur& prozedur);
    /// Null for a procedure not yet determined, and always for a declare, which has no body.
    [[nodiscard]] const std::vector<LocalUse>* Known(const clsProzedur& prozedur) const;
    /// How often a local is named; 0 if its procedure was not yet determined.
    [[nodiscard]] int CountOf(const clsVariable& variable) const;

private:
    std::unordered_map<const clsProzedur*, std::vector<LocalUse>> known_;
};
