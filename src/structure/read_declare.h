// Reader of API declarations, and what makes a procedure the handler of an event.
#pragma once

class ModuleReader;
class clsModul;
class clsProzedur;

/// Reads `Declare Sub|Function Name Lib ...`; arguments are not read.
/// @param tokNr  in: the first token of the statement; out: the name's token. The rest of the statement holds
///               nothing that a reader would take up.
void Analyse_ReadDeclare(ModuleReader& reader, int& tokNr);

/// Whether a procedure of this name handles an event of its form, user control, class, or of a control.
[[nodiscard]] bool IsHandler(const clsModul& modul, const clsProzedur& prozedur);
