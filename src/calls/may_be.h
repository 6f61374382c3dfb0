// What is done with `a.b` when the type of `a` cannot tell what `b` is: it may be any member of that name which can be
// reached through an object, and each gets a possible call. Nothing limits their number.
#pragma once

#include "calls/resolve.h"
#include "shell/vb_text.h"

void Analyse_SetMayBeCalls(clsProjekt& projekt, clsProzedur& prozedur, Name memberName, AccessMode mode, Pos pos);
