// What a reported problem is of, and what it means for what the program shows.
#pragma once

#include <string_view>

#include "shell/text_numbers.h"

/// The tag without what a few of them carry in brackets: problems of one kind share it.
[[nodiscard]] std::string_view ProblemKind(std::string_view tag);
/// The text that says what the problem means for the results.
[[nodiscard]] Text ProblemMeaning(std::string_view tag);
