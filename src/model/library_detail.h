// What only objects of a library have beside their place in the model: the model shows and resolves them like those of
// the project, and asks for this where a text about them is written.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/names.h"

struct LibraryDetail {
    Name shownType;                // the type as a declaration spells it; the data type of the model lacks some
    Name value;                    // of a constant or of an argument's default, as code spells it
    std::string_view description;  // in the memory of the library
    std::string_view entry;        // of a DLL's function: its name there, or "#" and its number
    std::int32_t memberId = 0;     // 0 is the member that stands for its object
    bool isHidden = false;         // browsers leave it out, but it can be called
    bool isRestricted = false;     // it cannot be called from Visual Basic
};
