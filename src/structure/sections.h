// Where a module's declarations and procedures begin, and the two passes that hand each declaration and each
// procedure to its reader.
#pragma once

class ModuleReader;

/// Finds the first procedure. Without one the section starts at the last token and at the text's end.
void Analyse_GetBeginnProcBereich(ModuleReader& reader);
/// Finds the start of the declarations, behind the header of a form, class or user control.
void Analyse_GetBeginnVarBereich(ModuleReader& reader);

/// First pass: reads all declarations before the procedures.
void Analyse_BereichVar(ModuleReader& reader);
/// Second pass: reads the procedures. All modules of the project have their declarations by then.
void Analyse_BereichProc(ModuleReader& reader);
