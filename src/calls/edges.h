// Making and asking edges.
#pragma once

#include "model/clsCall.h"

class clsProjekt;
class CodeObject;
class clsModul;
class clsProzedur;

/// A call of `target`, which may be any object that can be called. It joins the target's CalledByAll and the caller's
/// CallsAll.
clsCall& CallCreate(clsProjekt& projekt, CodeObject& target, clsProzedur& caller, CallType type, Pos pos);
/// A call that starts in the declarations section of `caller`.
clsCall& CallCreateVarInDecl(clsProjekt& projekt, CodeObject& target, clsModul& caller, CallType type, Pos pos);
/// A use of a type, enumeration, class or library by a procedure, or in the declarations section of `modul` when
/// `procedure` is null. It joins the target's UsedByAll and the procedure's UsesAll or the module's
/// CallsInDeclarations. Returns null for a target of another class.
clsCall* CallUseCreate(clsProjekt& projekt, CodeObject& target, clsProzedur* procedure, clsModul& modul, Pos pos);

/// The uses of a type, enumeration, module or library; null for objects of other classes.
[[nodiscard]] const IncomingEdges* UsedByAllOf(const CodeObject& object);

/// Whether an edge of this type reaches the object.
[[nodiscard]] bool Is_CalledBy(const CodeObject& object, CallType type);
/// Whether an edge of this type uses a type, enumeration, class or library.
[[nodiscard]] bool Is_UsedBy(const CodeObject& object, CallType type);
/// Whether a procedure makes an edge of this type; touching its own locals is no call.
[[nodiscard]] bool Is_Calls(const clsProzedur& prozedur, CallType type);
