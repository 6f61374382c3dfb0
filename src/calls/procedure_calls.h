// The central pass: from the tokens of a procedure to what it calls and uses.
#pragma once

class ModuleNames;
class ModuleReader;
class clsProzedur;

/// Makes the edges of one procedure, its head included.
void Analyse_CallsProc(ModuleReader& reader, ModuleNames& names, clsProzedur& prozedur);
