// Edges that start in a module's declarations section: uses of types and of constants. It contains no calls and no
// uncertain edges.
#pragma once

class FoundCalls;
class ModuleNames;
class ModuleReader;

/// @param names     set to the module
/// @param firstTok  in: the first token of the section; out: the last token examined
void Analyse_CallsVarBereich(ModuleReader& reader, ModuleNames& names, int& firstTok, int lastTok, FoundCalls& found);
