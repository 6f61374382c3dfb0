// What is done with `a.b` when the type of `a` cannot tell what `b` is: it may be any member of that name which can be
// reached through an object, and each gets a possible call. Nothing limits their number.
#pragma once

#include "calls/edges.h"
#include "calls/module_names.h"
#include "calls/resolve.h"
#include "shell/vb_text.h"

/// @param names   turned to the calling procedure's module
/// @param member  the word at `pos`
void Analyse_SetMayBeCalls(FoundCalls& found, clsProzedur& prozedur, const ModuleNames& names, WordMeaning& member,
                           AccessMode mode, Pos pos);
