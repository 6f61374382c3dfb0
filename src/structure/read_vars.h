// Reads the declarations of variables and constants before the procedures.
#pragma once

class ModuleReader;

/// Reads `Dim a, b As Long` and declarations with Public, Private or Global.
/// @param tokNr  in: the first token of the declaration; out: the last token of its statement
void Analyse_ReadVars(ModuleReader& reader, int& tokNr);

/// Reads `Const A = 1, B = 2`: each "=" makes a constant. Parameters as above.
void Analyse_ReadConst(ModuleReader& reader, int& tokNr);
