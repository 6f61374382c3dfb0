// The types of the library stdole, which nearly every other library uses, so that they have names without its file.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/type_library.h"

inline constexpr std::string_view kStdoleId = "{00020430-0000-0000-C000-000000000046}";
inline constexpr std::string_view kIUnknownId = "{00000000-0000-0000-C000-000000000046}";
inline constexpr std::string_view kIDispatchId = "{00020400-0000-0000-C000-000000000046}";

struct StdoleType {
    std::string_view name;
    typelib::TypeKind kind = typelib::TypeKind::Interface;
    std::uint16_t aliasOf = typelib::Empty;  // of an alias for a simple type
    std::string_view shownAs = {};           // the class that shows itself in its place
};

/// The type of stdole that is imported, or null if it is none of it.
[[nodiscard]] const StdoleType* StdoleTypeOf(const TypeLibrary& library, const typelib::ImportedType& type);
