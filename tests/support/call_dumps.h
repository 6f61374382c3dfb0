// Formats the edges of the open project as one line for comparison in a test. Marks: ">" a certain call, "?" a possible
// one, ":" the use of a type.
#pragma once

#include <string>
#include <string_view>

/// All edges in their order, with the code paths of both ends:
/// "main : main.t [type]; main.run > main.help; main.run ? c.name".
[[nodiscard]] std::string DumpEdges();
/// The edges of `caller`, the code path of a procedure, or of a module for its declarations. The caller is omitted, and
/// so is its module at the start of a path: "> help; ? c.name; : t [type]".
[[nodiscard]] std::string DumpEdgesOf(std::string_view caller);
