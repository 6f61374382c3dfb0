// The edges of the open project as one line that a test can compare. Marks: ">" a certain call, "?" a possible one,
// ":" the use of a type.
#pragma once

#include <string>
#include <string_view>

/// Every edge in the order of the numbers, with the code paths of both ends:
/// "main.run > main.help; main.run ? c.name; main : main.t [type]".
[[nodiscard]] std::string DumpEdges();
/// The edges that `caller` makes, which is the code path of a procedure, or of a module for its declarations. The
/// caller is left out, and so is its module where a path begins with it: "> help; ? c.name; : t [type]".
[[nodiscard]] std::string DumpEdgesOf(std::string_view caller);
