// The words in the procedures of a module that no edge leads from. A name that is not among them is used nowhere in
// those procedures without an edge.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "model/names.h"

struct PassedWords {
    struct Place {
        std::uint32_t hash;  // of the word in lower case, without brackets
        int token;           // number of its token in the module
    };
    /// Words after no point, each at the first such place. Keywords are left out, local variables, and names of
    /// arguments in a call.
    std::vector<Place> words;
    /// Words after a point, at all such places; those that are the name of no object are left out.
    std::vector<Place> members;

    // A name may be declared in brackets and be used without them, or the other way round.
    [[nodiscard]] static std::string_view WithoutBrackets(std::string_view name) {
        return name.size() > 2 && name.front() == '[' && name.back() == ']' ? name.substr(1, name.size() - 2) : name;
    }
    [[nodiscard]] static std::uint32_t HashOf(std::string_view word) { return Name::HashOf(WithoutBrackets(word)); }
};
