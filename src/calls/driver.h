// Runs the analysis of calls for a project, and removes its result.
#pragma once

class clsProjekt;

/// Makes the graph of all calls and uses, in the order standard modules, forms, classes, user controls; earlier edges
/// are dropped. Once gAbort is set, it ends before the next module: the graph then has the edges of the modules before
/// it.
void Who_Calls_Who(clsProjekt& projekt);

/// Removes all edges and clears the marks.
void Remove_All_Calls(clsProjekt& projekt);
