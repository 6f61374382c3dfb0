// Making and asking edges.
#pragma once

#include <vector>

#include "model/clsCall.h"

class clsProjekt;
class CodeObject;
class clsModul;
class clsProzedur;

/// An edge of the project from here on. A call joins the target's CalledByAll and its caller's CallsAll, a use the
/// target's UsedByAll and UsesAll; what starts in a declarations section joins the module's CallsInDeclarations, and
/// what starts nowhere the target's list alone.
/// @param target  any object that can be called, or a type, enumeration, class or library that is used
clsCall& CallCreate(clsProjekt& projekt, CodeObject& target, EdgeStart start, Pos pos);

/// Edges that a walk over a module has found. They join the project later: a walk may run beside others, and what it
/// reads must not change meanwhile.
class FoundCalls {
public:
    void Reserve(std::size_t edges) { found_.reserve(edges); }
    void CallCreate(CodeObject& target, clsProzedur& caller, CallType type, Pos pos) {
        found_.push_back({&target, {&caller, type}, pos});
    }
    /// A call that starts in the declarations section of `caller`.
    void CallCreateVarInDecl(CodeObject& target, clsModul& caller, CallType type, Pos pos) {
        found_.push_back({&target, {&caller, type}, pos});
    }
    /// A use by a procedure, or in the declarations section of `modul` when `procedure` is null. A target that cannot
    /// be used is left out.
    void CallUseCreate(CodeObject& target, clsProzedur* procedure, clsModul& modul, Pos pos);
    /// Makes them edges of the project, in the order in which they were found.
    void Join(clsProjekt& projekt) const;

private:
    struct Found {
        CodeObject* target;
        EdgeStart start;
        Pos pos;
    };
    std::vector<Found> found_;
};

/// Whether an edge of this type reaches the object.
[[nodiscard]] bool Is_CalledBy(const CodeObject& object, CallType type);
/// Whether an edge of this type uses a type, enumeration, class or library.
[[nodiscard]] bool Is_UsedBy(const CodeObject& object, CallType type);
/// Whether a procedure makes an edge of this type; touching its own locals is no call.
[[nodiscard]] bool Is_Calls(const clsProzedur& prozedur, CallType type);
