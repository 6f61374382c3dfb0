// Readers of variable and constant declarations before the procedures.
#pragma once

class ModuleReader;

/// Reads `Dim a, b As Long` and its kin.
/// @param tokNr  in: the first token of the declaration; out: the last token of its statement.
void Analyse_ReadVars(ModuleReader& reader, int& tokNr);

/// Reads `Const A = 1, B = 2`: a constant exists where an "=" stands. Parameters as above.
void Analyse_ReadConst(ModuleReader& reader, int& tokNr);
