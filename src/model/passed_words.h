// The words that stand in the procedures of a module at places that no edge leads from. A name that is not among them
// is used nowhere in those procedures without an edge.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "model/names.h"

struct PassedWords {
    /// Hashes of words in lower case, without brackets, that are after no point; each at least once. Local variables
    /// and arguments are left out, as far as they are known as such, and keywords.
    std::vector<std::uint32_t> words;
    /// Those of words after a point, together with the word before the point; one for each place.
    std::vector<std::uint32_t> members;

    // A name may be declared in brackets and be used without them, or the other way round.
    [[nodiscard]] static std::string_view WithoutBrackets(std::string_view name) {
        return name.size() > 2 && name.front() == '[' && name.back() == ']' ? name.substr(1, name.size() - 2) : name;
    }
    [[nodiscard]] static std::uint32_t HashOf(std::string_view word) { return Name::HashOf(WithoutBrackets(word)); }
    /// @param owner  the word before the point, which keeps its brackets
    [[nodiscard]] static std::uint32_t HashOf(std::string_view owner, std::string_view word) {
        return Name::HashOf(owner) * 31U + HashOf(word);
    }
};
