// The kind of a reported problem, and what it means for the results.
#pragma once

#include <string_view>

#include "shell/text_numbers.h"

/// The tag without the part in brackets that a few tags have: problems of one kind share it.
[[nodiscard]] std::string_view ProblemKind(std::string_view tag);
/// Whether a report interrupts the user. A condition that fails is a matter of the source and can fail in every module,
/// so it goes to the list of problems alone.
[[nodiscard]] bool Interrupts(std::string_view tag);
/// The text that says what the problem means for the results.
[[nodiscard]] Text ProblemMeaning(std::string_view tag);
