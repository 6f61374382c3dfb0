#include "display/local_uses.h"

#include <algorithm>

#include "model/clsProzedur.h"
#include "model/clsVariable.h"

const std::vector<LocalUse>& LocalUses::Look(const clsProzedur& prozedur) {
    static const std::vector<LocalUse> none;
    if (prozedur.isDeclare)
        return none;
    const auto [entry, isNew] = known_.try_emplace(&prozedur);
    if (isNew)
        entry->second = Check_ProcVars_Calls(prozedur);
    return entry->second;
}

const std::vector<LocalUse>* LocalUses::Known(const clsProzedur& prozedur) const {
    const auto found = known_.find(&prozedur);
    return found == known_.end() ? nullptr : &found->second;
}

int LocalUses::CountOf(const clsVariable& variable) const {
    const std::vector<LocalUse>* const uses = variable.Prozedur ? Known(*variable.Prozedur) : nullptr;
    if (!uses)
        return 0;
    return static_cast<int>(std::ranges::count(*uses, &variable, &LocalUse::variable));
}
