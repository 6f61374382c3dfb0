// The procedure that Visual Basic runs first. Nothing in the code calls it, so by the rules of dead objects it is dead.
#pragma once

class clsProjekt;
class clsProzedur;

/// `Sub Main` if the project names it as its start-up object; null otherwise.
[[nodiscard]] const clsProzedur* StartUpProcedure(const clsProjekt& projekt);

/// Whether calls lead from one procedure to the other, directly or over further procedures.
[[nodiscard]] bool LeadsTo(const clsProzedur& caller, const clsProzedur& target);
