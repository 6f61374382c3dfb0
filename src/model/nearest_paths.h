// What was probably meant by a code path that nothing has.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class clsProjekt;

/// Code paths of modules, of what they declare and of libraries, as spelled, the nearest first: those that the path or
/// its last name differs from by a few characters. Empty if nothing is near.
[[nodiscard]] std::vector<std::string> NearestCodePaths(const clsProjekt& projekt, std::string_view codePath,
                                                        std::size_t most);
