// The central pass: finds what a procedure calls and uses from its tokens.
#pragma once

class FoundCalls;
class ModuleNames;
class ModuleReader;
class clsProjekt;
class clsProzedur;

/// Finds the edges of one procedure, including its head.
/// @param names  set to its module
void Analyse_CallsProc(const clsProjekt& projekt, ModuleReader& reader, ModuleNames& names, clsProzedur& prozedur,
                       FoundCalls& found);
