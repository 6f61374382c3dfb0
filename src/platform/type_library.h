// The contents of a COM type library as its file has them, whatever the format: a plain value. Texts are UTF-8.
//
// What a library means for Visual Basic (classes, their members and events) is made of it in libraries/.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace typelib {

enum class Format : std::uint8_t { Msft, Sltg };
enum class TypeKind : std::uint8_t { Enum, Record, Module, Interface, Dispatch, CoClass, Alias, Union };
enum class InvokeKind : std::uint8_t { Func = 1, PropertyGet = 2, PropertyPut = 4, PropertyPutRef = 8 };

/// Types of values; a type word of a file may hold other numbers as well.
enum VarType : std::uint16_t {
    Empty = 0,
    I2 = 2,
    I4 = 3,
    R4 = 4,
    R8 = 5,
    Cy = 6,
    Date = 7,
    Bstr = 8,
    Dispatch = 9,
    Error = 10,
    Bool = 11,
    Variant = 12,
    Unknown = 13,
    Decimal = 14,
    I1 = 16,
    UI1 = 17,
    UI2 = 18,
    UI4 = 19,
    I8 = 20,
    UI8 = 21,
    Int = 22,
    UInt = 23,
    Void = 24,
    HResult = 25,
    Ptr = 26,
    SafeArray = 27,
    CArray = 28,
    UserDefined = 29,
    LpStr = 30,
    LpWStr = 31,
};

// The flags have other bits for each kind of thing; those named here are the ones that the program asks for.
namespace type_flag {
inline constexpr std::uint32_t kAppObject = 1, kCanCreate = 2, kHidden = 0x10, kControl = 0x20, kDual = 0x40,
                               kRestricted = 0x200;
}
namespace func_flag {
inline constexpr std::uint32_t kRestricted = 1, kHidden = 0x40;
}
namespace var_flag {
inline constexpr std::uint32_t kReadOnly = 1, kHidden = 0x40, kRestricted = 0x80;
}
namespace param_flag {
inline constexpr std::uint32_t kIn = 1, kOut = 2, kLcid = 4, kRetVal = 8, kOptional = 0x10, kHasDefault = 0x20;
}
namespace impl_flag {
inline constexpr std::uint32_t kDefault = 1, kSource = 2, kRestricted = 4;
}

/// A library that another one takes types from.
struct ImportedLibrary {
    std::string id;
    int major = 0, minor = 0;
    std::uint32_t lcid = 0;
    std::string file;  // name without a directory, as written
};

/// A type of another library, named by its id or by its position there.
struct ImportedType {
    std::size_t library = 0;  // position in TypeLibrary::importedLibraries
    std::string id;           // empty if it is named by its position
    int index = -1;
};

/// Which type a user-defined one is: a position in `types`, in `importedTypes`, or neither if the file does not say.
struct TypeReference {
    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
    std::size_t own = kNone;
    std::size_t imported = kNone;
    [[nodiscard]] bool IsKnown() const { return own != kNone || imported != kNone; }
    bool operator==(const TypeReference&) const = default;
};

struct ArrayBound {
    std::int32_t lower = 0;
    std::uint32_t elements = 0;
};

/// What is around a type: a pointer to it, or an array of it.
struct TypeLevel {
    VarType kind = Ptr;              // Ptr, SafeArray or CArray
    std::vector<ArrayBound> bounds;  // of a CArray
};

/// The type of a value: its base, and from the outside in what is around it.
struct ValueType {
    std::vector<TypeLevel> levels;
    std::uint16_t base = Empty;
    TypeReference reference;  // of a UserDefined
};

struct Constant {
    std::uint16_t type = Empty;
    std::int64_t number = 0;  // of an integer; of a Cy ten thousandths
    double real = 0;          // of a R4, R8 or Date
    std::string text;         // of a Bstr
    bool isKnown = true;      // false for a type of value that is not read
};

struct Parameter {
    std::string name;  // may be empty
    ValueType type;
    std::uint32_t flags = 0;
    std::optional<Constant> defaultValue;
    [[nodiscard]] bool Has(std::uint32_t flag) const { return (flags & flag) != 0; }
};

enum class VariableKind : std::uint8_t { PerInstance, Static, Constant, Dispatch };

/// A function or a variable of a type.
struct Member {
    std::string name;
    std::int32_t id = 0;
    bool isFunction = false;
    InvokeKind invoke = InvokeKind::Func;                   // of a function
    VariableKind variableKind = VariableKind::PerInstance;  // of a variable
    bool hasParamArray = false;                             // the last parameter takes any number of values
    std::uint32_t flags = 0;                                // func_flag or var_flag
    ValueType type;                                         // result of a function
    std::vector<Parameter> parameters;
    std::optional<Constant> value;  // of a constant
    std::string entry;              // of a module's function: its name in the DLL, or "#" and its ordinal
    std::string description;
    std::uint32_t helpContext = 0;

    [[nodiscard]] bool IsRestricted() const {
        return (flags & (isFunction ? func_flag::kRestricted : var_flag::kRestricted)) != 0;
    }
    [[nodiscard]] bool IsHidden() const { return (flags & (isFunction ? func_flag::kHidden : var_flag::kHidden)) != 0; }
};

struct ImplementedType {
    TypeReference type;
    std::uint32_t flags = 0;  // impl_flag
    [[nodiscard]] bool Has(std::uint32_t flag) const { return (flags & flag) != 0; }
};

struct Type {
    std::string name;
    TypeKind kind = TypeKind::Enum;
    std::string id;  // "{...}", or empty
    std::uint32_t flags = 0;
    int major = 0, minor = 0;
    std::string description;
    std::uint32_t helpContext = 0;
    std::vector<Member> members;               // functions first
    std::vector<ImplementedType> implemented;  // interfaces of a coclass; the base of an interface
    /// A dispatch interface without members of its own that shows those of its `implemented`.
    bool isWrapper = false;
    std::optional<ValueType> aliasOf;
    std::string dll;         // of a module
    std::uint32_t size = 0;  // of a record or union, in bytes
    [[nodiscard]] bool Has(std::uint32_t flag) const { return (flags & flag) != 0; }
};

}  // namespace typelib

struct TypeLibrary {
    typelib::Format format = typelib::Format::Msft;
    std::string name;
    std::string id;
    int major = 0, minor = 0;
    std::uint32_t lcid = 0;     // as in the registry, not that of the names
    std::uint32_t sysKind = 0;  // 0 16-bit Windows, 1 32-bit, 2 Macintosh, 3 64-bit
    std::uint32_t flags = 0;
    std::string description;
    std::string helpFile;
    std::uint32_t helpContext = 0;
    std::vector<typelib::Type> types;  // in the order of the file
    std::vector<typelib::ImportedLibrary> importedLibraries;
    std::vector<typelib::ImportedType> importedTypes;
    /// What is broken in the file, the first first; empty for a sound one. The rest of the library is what could be
    /// read.
    std::vector<std::string> problems;

    /// "2.5", both parts in decimal.
    [[nodiscard]] std::string Version() const { return std::to_string(major) + '.' + std::to_string(minor); }
};

namespace typelib {

/// "MSFT", "SLTG".
[[nodiscard]] std::string_view TextOf(Format format);
/// "enum", "record", "module", "interface", "dispatch", "coclass", "alias", "union".
[[nodiscard]] std::string_view TextOf(TypeKind kind);
/// "func", "propertyget", "propertyput", "propertyputref".
[[nodiscard]] std::string_view TextOf(InvokeKind kind);
/// "42", "0.5", "\"abc\""; "?" for what is not read.
[[nodiscard]] std::string TextOf(const Constant& value);
/// The type as Visual Basic writes it: "Long", "Variant", "stdole.Font"; pointers leave no trace.
[[nodiscard]] std::string TypeText(const TypeLibrary& library, const ValueType& type);
/// "(0 To 3)" for an array with bounds, "()" for one without, empty for none.
[[nodiscard]] std::string ArrayText(const ValueType& type);
/// The name of a referenced type, with its library for an imported one; "?" if it is not known.
[[nodiscard]] std::string ReferenceText(const TypeLibrary& library, const TypeReference& reference);

}  // namespace typelib
