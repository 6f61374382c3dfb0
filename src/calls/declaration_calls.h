// Edges that start in a module's declarations section: uses of types and of constants. Nothing is called there, and
// nothing is uncertain.
#pragma once

class FoundCalls;
class ModuleNames;
class ModuleReader;

/// @param names     turned to the module
/// @param firstTok  in: the first token of the section; out: the last token looked at
void Analyse_CallsVarBereich(ModuleReader& reader, ModuleNames& names, int& firstTok, int lastTok, FoundCalls& found);
