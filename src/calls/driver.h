// Runs the analysis of calls over a project, and removes its result.
#pragma once

class clsProjekt;

/// Makes the graph of all calls and uses, in the order standard modules, forms, classes, user controls; what was known
/// before is gone. A set gAbort ends it between two modules: the graph then has the edges of those before.
void Who_Calls_Who(clsProjekt& projekt);

/// Removes all edges and clears the marks.
void Remove_All_Calls(clsProjekt& projekt);
