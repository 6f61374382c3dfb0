// Which objects nothing calls. 0 is alive, 1 dead: no caller at all; 2 undead: all callers are dead or undead
// themselves.
#pragma once

#include <vector>

#include "shell/vb_text.h"

class clsModul;
class clsProjekt;
class clsProzedur;
class clsVariable;
class clsType;
class clsEnum;

/// Computes all marks of the project: procedures, module variables and constants, types, enumerations and their
/// members. Alive are the handlers of events and every procedure of a class or user control, and whatever they reach
/// over calls, certain and possible alike.
void Tote_Untote_Kennzeichnen(clsProjekt& projekt);

/// Members that no call reaches.
[[nodiscard]] int Anz_NotCalled_Vars(const clsType& type);
[[nodiscard]] int Anz_NotCalled_Vars(const clsEnum& einEnum);

/// A place in a procedure that names one of its arguments or locals.
struct LocalUse {
    clsVariable* variable;
    Pos pos;  // in the module
};
/// All such places: variable by variable in the order of MyVars, the places of each rising. The place of the
/// declaration itself does not count. Declares have none.
[[nodiscard]] std::vector<LocalUse> Check_ProcVars_Calls(const clsProzedur& prozedur);
