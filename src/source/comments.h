// Fills the comment and string flags of a module's map. Both work on the whole text, before it has tokens.
#pragma once

#include "source/module_text.h"

/// Marks comments: from each "'", each "rem " at the start of a line and each " rem " that stands outside
/// strings, to the end of its logical line, continuations included. A Rem in the first line stays code.
void Comments_Initialisieren(ModuleText& text);

/// Marks string literals outside comments, quotes included; a doubled quote gives two adjoining literals.
/// Line ends don't end a string; a quote without its partner ends the search.
void Strings_Initialisieren(ModuleText& text);
