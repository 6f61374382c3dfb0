// What an object is, in the words of the files that other programs read.
#pragma once

#include <string_view>

class CodeObject;

/// "module", "form", "class" or "usercontrol"; "reference" or "component" for a library; "procedure", "variable",
/// "constant", "type", "type member", "enum", "enum member", "control", "argument" or "local".
[[nodiscard]] std::string_view KindOf(const CodeObject& object);
