// Reader of procedures: head, arguments, local declarations, end.
#pragma once

class ModuleReader;

/// Reads one procedure, accessor or event declaration and files it in the reader's module.
/// @param tokNr  in: the first token of the head; out: the token that closes the procedure, or the last token
///               where none does.
void Analyse_ReadProc(ModuleReader& reader, int& tokNr);
