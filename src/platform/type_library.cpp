#include "platform/type_library.h"

#include <charconv>

#include "platform/stdole_types.h"

namespace typelib {

namespace {

// The names of Visual Basic. Unsigned numbers have that of their size; empty for no type that a value can have.
std::string_view SimpleTypeText(std::uint16_t type) {
    switch (type) {
        case I2:
        case UI2:
            return "Integer";
        case I4:
        case UI4:
        case Int:
        case UInt:
        case Error:
        case HResult:
        case 37:  // numbers as long as a pointer
        case 38:
            return "Long";
        case R4:
            return "Single";
        case R8:
            return "Double";
        case Cy:
            return "Currency";
        case Date:
            return "Date";
        case Bstr:
        case LpStr:
        case LpWStr:
            return "String";
        case Dispatch:
            return "Object";
        case Bool:
            return "Boolean";
        case Variant:
        case Decimal:
            return "Variant";
        case Unknown:
            return "IUnknown";
        case I1:
        case UI1:
            return "Byte";
        case I8:
        case UI8:
            return "LongLong";
        case Empty:
        case Void:
            return {};
        default:
            return "?";
    }
}

// A number with four decimals, without zeros at its end.
std::string CurrencyText(std::int64_t tenThousandths) {
    constexpr std::uint64_t kOne = 10000;
    const bool isNegative = tenThousandths < 0;
    const std::uint64_t magnitude =
        isNegative ? 0 - static_cast<std::uint64_t>(tenThousandths) : static_cast<std::uint64_t>(tenThousandths);
    std::string text = (isNegative ? "-" : "") + std::to_string(magnitude / kOne);
    if (const std::uint64_t rest = magnitude % kOne; rest != 0) {
        std::string decimals = std::to_string(kOne + rest).substr(1);
        decimals.erase(decimals.find_last_not_of('0') + 1);
        text += '.' + decimals;
    }
    return text;
}

template <class Real>
std::string RealText(Real value) {
    char buffer[64];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
    return error == std::errc() ? std::string(buffer, end) : "?";
}

}  // namespace

std::string_view TextOf(Format format) {
    return format == Format::Msft ? "MSFT" : "SLTG";
}

std::string_view TextOf(TypeKind kind) {
    switch (kind) {
        case TypeKind::Enum:
            return "enum";
        case TypeKind::Record:
            return "record";
        case TypeKind::Module:
            return "module";
        case TypeKind::Interface:
            return "interface";
        case TypeKind::Dispatch:
            return "dispatch";
        case TypeKind::CoClass:
            return "coclass";
        case TypeKind::Alias:
            return "alias";
        case TypeKind::Union:
            return "union";
    }
    return {};
}

std::string_view TextOf(InvokeKind kind) {
    switch (kind) {
        case InvokeKind::Func:
            return "func";
        case InvokeKind::PropertyGet:
            return "propertyget";
        case InvokeKind::PropertyPut:
            return "propertyput";
        case InvokeKind::PropertyPutRef:
            return "propertyputref";
    }
    return {};
}

std::string TextOf(const Constant& value) {
    if (!value.isKnown)
        return "?";
    switch (value.type) {
        case Bstr:
            return '"' + value.text + '"';
        case R4:
            return RealText(static_cast<float>(value.real));
        case R8:
        case Date:
            return RealText(value.real);
        case Cy:
            return CurrencyText(value.number);
        case UI8:
            return std::to_string(static_cast<std::uint64_t>(value.number));
        case Bool:
            return value.number != 0 ? "True" : "False";
        default:
            return std::to_string(value.number);
    }
}

std::string ReferenceText(const TypeLibrary& library, const TypeReference& reference) {
    if (reference.own < library.types.size())
        return library.types[reference.own].name;
    if (reference.imported >= library.importedTypes.size())
        return "?";
    const ImportedType& type = library.importedTypes[reference.imported];
    if (const StdoleType* known = StdoleTypeOf(library, type))
        return "stdole." + std::string(known->name);
    const std::string file =
        type.library < library.importedLibraries.size() ? library.importedLibraries[type.library].file : std::string();
    return (file.empty() ? "?" : file) + '.' + (type.id.empty() ? '#' + std::to_string(type.index) : type.id);
}

std::string ArrayText(const ValueType& type) {
    std::string text;
    for (const TypeLevel& level : type.levels) {
        if (level.kind == Ptr)
            continue;
        text += '(';
        std::string_view separator;
        for (const ArrayBound& bound : level.bounds) {
            text.append(separator).append(std::to_string(bound.lower)).append(" To ");
            text += std::to_string(std::int64_t{bound.lower} + bound.elements - 1);
            separator = ", ";
        }
        text += ')';
    }
    return text;
}

std::string TypeText(const TypeLibrary& library, const ValueType& type) {
    if (type.base == Void)
        return type.levels.empty() ? std::string() : "Any";
    return (type.base == UserDefined ? ReferenceText(library, type.reference)
                                     : std::string(SimpleTypeText(type.base))) +
           ArrayText(type);
}

}  // namespace typelib
