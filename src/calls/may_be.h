// Handles `a.b` if the type of `a` does not determine `b`. `b` may then be any member of that name that is reachable
// through an object, and each of them gets a possible call; their number is not limited.
#pragma once

#include "calls/edges.h"
#include "calls/module_names.h"
#include "calls/resolve.h"
#include "shell/vb_text.h"

/// @param names   set to the calling procedure's module
/// @param member  the word at `pos`
void Analyse_SetMayBeCalls(FoundCalls& found, clsProzedur& prozedur, const ModuleNames& names, WordMeaning& member,
                           AccessMode mode, Pos pos);
