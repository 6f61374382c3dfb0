// Where the execution of a project's code begins: what Visual Basic, Windows or other programs call by themselves.
#pragma once

#include <cstdint>
#include <vector>

#include "model/code_object.h"
#include "reach/code_marks.h"
#include "reach/declared.h"

class clsModul;
class clsProjekt;
class clsProzedur;

enum class EntryKind : std::uint8_t {
    StartUp,          // Sub Main, or the load of a form, as the project file names it
    ModuleEvent,      // handler of an event of its own form, class or user control: Form_Load, Class_Initialize
    ControlEvent,     // of a control
    VariableEvent,    // of a WithEvents variable
    InterfaceMember,  // of an interface that the class implements: IFoo_Bar
    ExportedClass,    // public in a class that other programs may use
    ExportedControl,  // public in a user control that they may use
    AddressOf,        // passed to Windows as an address
    Declared,         // the user says so
    NamedInString,    // its name is alone in a string literal: CallByName, Application.Run (possible)
};

struct EntryPoint {
    const CodeObject* object = nullptr;
    EntryKind kind = EntryKind::StartUp;
    const clsModul* modul = nullptr;  // where AddressOf or the literal is; null for the other kinds
    Pos pos = 0;
    /// False if it is only possible that something begins there.
    [[nodiscard]] bool IsCertain() const { return kind != EntryKind::NamedInString; }
};

/// In the order of the kinds, those of one kind in the order of AllModules and their code; each object once, with the
/// first kind that applies.
///
/// A form that the project starts with, but that has no Form_Load, is an entry point itself.
/// @param marks  of MarksInCode
[[nodiscard]] std::vector<EntryPoint> EntryPointsOf(const clsProjekt& projekt, const std::vector<CodeMarks>& marks,
                                                    const Declared& declared);

/// Whether other programs may use the public members of a class or user control: by the type of the project and the
/// header of the class.
[[nodiscard]] bool IsExported(const clsProjekt& projekt, const clsModul& modul);
/// Whether a procedure is the declaration of an event.
[[nodiscard]] bool IsEventDeclaration(const clsProzedur& prozedur);
