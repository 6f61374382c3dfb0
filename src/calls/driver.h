// Runs the analysis of calls over a project or one module, and takes all edges away again.
#pragma once

class clsModul;
class clsProjekt;

/// All modules: standard modules, forms, classes, user controls. A set gAbort ends it between two modules and leaves
/// the edges made so far. Running it twice without Remove_All_Calls doubles all edges.
void Who_Calls_Who(clsProjekt& projekt);

/// Edges of one module's declarations section and procedures; its lower-case text is freed at the end.
void Analyse_Calls(clsProjekt& projekt, clsModul& modul);

/// Takes all edges and marks away. Numbers are not used again.
void Remove_All_Calls(clsProjekt& projekt);
