// Tables as comma-separated text.
#pragma once

#include <string>
#include <string_view>

/// A cell of a table, in quotes if its text needs them.
[[nodiscard]] inline std::string CsvCell(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos)
        return std::string(text);
    std::string quoted = "\"";
    for (const char c : text)
        quoted.append(c == '"' ? 2 : 1, c);
    return quoted + "\"";
}
