// Messages with wording fixed in the program, as the user sees them: in the language of the program.
#pragma once

#include <string>
#include <string_view>

/// UTF-8. A text that is not one of the fixed ones, or that the language lacks, stays as it is.
/// @param bytes  as reported; a path in it is in the system's page
[[nodiscard]] std::string ShownText(std::string_view bytes);
