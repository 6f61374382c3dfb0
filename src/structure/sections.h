// Finds where a module's declarations and procedures begin, and runs the two passes that hand each declaration and each
// procedure to its reader.
#pragma once

class ModuleReader;

/// Finds the first procedure. If there is none, the section starts at the last token and at the end of the text.
void Analyse_GetBeginnProcBereich(ModuleReader& reader);
/// Finds the start of the declarations after the header of a form, class or user control.
void Analyse_GetBeginnVarBereich(ModuleReader& reader);

/// First pass: reads all declarations before the procedures.
void Analyse_BereichVar(ModuleReader& reader);
/// Second pass: reads the procedures. All modules of the project have their declarations at this point.
void Analyse_BereichProc(ModuleReader& reader);
