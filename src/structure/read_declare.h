// Reads API declarations, and decides which procedures are event handlers.
#pragma once

class ModuleReader;
class clsModul;
class clsProzedur;

/// Reads `Declare Sub|Function Name Lib ...`; the arguments are not read.
/// @param tokNr  in: the first token of the statement; out: the token of the name. The rest of the statement contains
///               nothing that another reader would accept.
void Analyse_ReadDeclare(ModuleReader& reader, int& tokNr);

/// True if the procedure's name makes it an event handler of its form, user control or class, or of a control.
[[nodiscard]] bool IsHandler(const clsModul& modul, const clsProzedur& prozedur);
