// Sets the comment and string flags in a module's map. Both functions work on the whole text, before tokenising.
#pragma once

#include "source/module_text.h"

/// Marks comments: from each "'", each "rem " at the start of a line and each " rem " that is outside strings, to the
/// end of its logical line, continuations included. A Rem in the first line stays code.
void Comments_Initialisieren(ModuleText& text);

/// Marks string literals outside comments, quotes included; a doubled quote gives two adjoining literals.
/// A line end does not end a string; at a quote without a closing quote the search stops.
void Strings_Initialisieren(ModuleText& text);
