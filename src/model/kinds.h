// The kinds of things in a project, and the words that reports, trees and files use for them.
#pragma once

#include <cstdint>
#include <string_view>

enum class ModuleKind : std::uint8_t { Module, Form, Class, UserControl };

enum class Access : std::uint8_t { None, Private, Public, Argument, Procedure, TypeMember, EnumMember };

/// Declares may carry any word in front of their name, and a property any accessor: their words are kept as text.
enum class ProcKind : std::uint8_t { Sub, Function, PropertyGet, PropertyLet, PropertySet, OtherProperty, Other };

enum class LibraryKind : std::uint8_t { Reference, Component };

/// "module", "form", "class", "usercontrol".
[[nodiscard]] constexpr std::string_view TextOf(ModuleKind kind) {
    switch (kind) {
        case ModuleKind::Module:
            return "module";
        case ModuleKind::Form:
            return "form";
        case ModuleKind::Class:
            return "class";
        case ModuleKind::UserControl:
            return "usercontrol";
    }
    return {};
}

/// "private", "public", "argument", "procedure", "type member", "enum member"; empty for modules and libraries.
[[nodiscard]] constexpr std::string_view TextOf(Access access) {
    switch (access) {
        case Access::None:
            return {};
        case Access::Private:
            return "private";
        case Access::Public:
            return "public";
        case Access::Argument:
            return "argument";
        case Access::Procedure:
            return "procedure";
        case Access::TypeMember:
            return "type member";
        case Access::EnumMember:
            return "enum member";
    }
    return {};
}

/// "sub", "function", "property get", "property let", "property set"; empty for the others, whose words the
/// procedure keeps.
[[nodiscard]] constexpr std::string_view TextOf(ProcKind kind) {
    switch (kind) {
        case ProcKind::Sub:
            return "sub";
        case ProcKind::Function:
            return "function";
        case ProcKind::PropertyGet:
            return "property get";
        case ProcKind::PropertyLet:
            return "property let";
        case ProcKind::PropertySet:
            return "property set";
        case ProcKind::OtherProperty:
        case ProcKind::Other:
            break;
    }
    return {};
}

/// "reference" or "component".
[[nodiscard]] constexpr std::string_view TextOf(LibraryKind kind) {
    return kind == LibraryKind::Reference ? "reference" : "component";
}
