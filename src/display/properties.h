// The rows of the properties grid: facts of an object, or of a place in the code.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/text_numbers.h"

class clsProjekt;
class CodeObject;

/// A cell: a text of the language file, or bytes as they are where that is None or the language lacks it.
struct PropertyCell {
    Text text = Text::None;
    std::string bytes;
    bool isNumber = false;
    bool operator==(const PropertyCell&) const = default;
};

struct PropertyRow {
    PropertyCell label;
    PropertyCell value;
    bool operator==(const PropertyRow&) const = default;
};
using PropertyRows = std::vector<PropertyRow>;

/// The rows of an object.
[[nodiscard]] PropertyRows Anzeigen_Eigenschaften(const CodeObject& object);
[[nodiscard]] PropertyRows Anzeigen_Eigenschaften(const clsProjekt& projekt);

/// "module modMain": kind and name, as objects name what they belong to.
[[nodiscard]] std::string KindAndName(std::string_view kind, std::string_view name);
/// What an object belongs to: a procedure, type, enumeration, module or library; empty for modules of
/// the project and for libraries.
[[nodiscard]] std::string OwnerText(const CodeObject& object);
