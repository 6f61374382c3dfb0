// Keys of the group nodes under a module: its code path followed by one of these. A key that ends in "[]" is
// a group, any other is an object.
#pragma once

#include <string_view>

inline constexpr std::string_view kGroupPrivateType = ".Private_Type[]";
inline constexpr std::string_view kGroupPublicType = ".Public_Type[]";
inline constexpr std::string_view kGroupPrivateEnum = ".Private_Enum[]";
inline constexpr std::string_view kGroupPublicEnum = ".Public_Enum[]";
inline constexpr std::string_view kGroupPrivateVariable = ".Private_Variable[]";
inline constexpr std::string_view kGroupPublicVariable = ".Public_Variable[]";
inline constexpr std::string_view kGroupPrivateProperty = ".Private_Property[]";
inline constexpr std::string_view kGroupPublicProperty = ".Public_Property[]";
inline constexpr std::string_view kGroupPrivateFunction = ".Private_Function[]";
inline constexpr std::string_view kGroupPublicFunction = ".Public_Function[]";
inline constexpr std::string_view kGroupPrivateSub = ".Private_Sub[]";
inline constexpr std::string_view kGroupPublicSub = ".Public_Sub[]";
inline constexpr std::string_view kGroupControls = ".Controls[]";
