// The numbers by which modules are compared: lines, objects, dependencies on other modules, what is dead.
#pragma once

#include <optional>

class CodeObject;
class clsModul;
class clsProjekt;

/// How many edges reach the module's variables, procedures, and members of types and enumerations from other modules.
/// A member of an enumeration counts as a variable of the module as well.
[[nodiscard]] int DependenciesExtern_CalledBy_Count(const clsModul& modul);
/// How many calls of the module's procedures lead to other modules or into libraries.
[[nodiscard]] int DependenciesExtern_Calls_Count(const clsModul& modul);

/// How many lines the declaration of an object has, for a procedure its body included; 1 for variables.
[[nodiscard]] int LinesOf(const CodeObject& object);

/// Procedures of a module by what keeps them.
struct ProcedureLife {
    int dead = 0, undead = 0, living = 0;
    int deadLines = 0;  // of the dead procedures
};

struct ModuleStatistics {
    int code = 0, comment = 0, blank = 0;  // lines
    int procedures = 0, variables = 0;
    int calledBy = 0, calls = 0;        // from and to other modules; 0 while no calls are known
    std::optional<ProcedureLife> life;  // nothing before all calls are known
};
[[nodiscard]] ModuleStatistics StatisticsOf(const clsProjekt& projekt, const clsModul& modul);
