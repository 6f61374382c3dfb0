// What follows an error about a code path that no object has.
#pragma once

#include <string>
#include <string_view>

class clsProjekt;

/// "; did you mean A.Two or B.Two?" in UTF-8; empty if no code path is like the one that was given.
[[nodiscard]] std::string DidYouMean(const clsProjekt& projekt, std::string_view codePath);
