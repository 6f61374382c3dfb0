// The central pass: from the tokens of a procedure to what it calls and uses.
#pragma once

class FoundCalls;
class ModuleNames;
class ModuleReader;
class clsProzedur;

/// Finds the edges of one procedure, its head included.
/// @param names  turned to its module
void Analyse_CallsProc(ModuleReader& reader, ModuleNames& names, clsProzedur& prozedur, FoundCalls& found);
