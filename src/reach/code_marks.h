// What only the words of the code say about who calls a procedure: AddressOf, Implements, WithEvents, and names that
// are alone in a string literal.
#pragma once

#include <vector>

#include "model/names.h"
#include "shell/vb_text.h"

class clsModul;
class clsProjekt;

/// A name of the project, in lower case, and where it is in its module.
struct NamePlace {
    Name name;
    Pos pos = 0;
};

struct CodeMarks {
    const clsModul* modul = nullptr;
    std::vector<NamePlace> addressOf;   // the procedures after AddressOf
    std::vector<NamePlace> strings;     // literals that are a known name and nothing else; not those of a Declare
    std::vector<NamePlace> implements;  // the interfaces
    std::vector<NamePlace> withEvents;  // the variables
};

/// One entry for each module that has any of these, in the order of AllModules. The header of a form, with the captions
/// of its controls, is left out.
[[nodiscard]] std::vector<CodeMarks> MarksInCode(const clsProjekt& projekt);
