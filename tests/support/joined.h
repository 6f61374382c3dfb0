// Puts many things on one line for comparison in a test.
#pragma once

#include <string>
#include <string_view>

/// The text of each item, with the separator between them.
template <class Items, class TextOf>
[[nodiscard]] std::string Joined(const Items& items, std::string_view separator, TextOf textOf) {
    std::string joined;
    for (const auto& item : items)
        joined.append(joined.empty() ? "" : separator).append(textOf(item));
    return joined;
}
