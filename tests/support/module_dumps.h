// Formats the maps and tokens of a module as one line for comparison in a test.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "source/cond_compile.h"
#include "source/module_text.h"
#include "source/tokens.h"
#include "support/marked.h"

// Each function runs the preceding reading steps on a copy of the text.

/// Ranges of comments.
[[nodiscard]] std::vector<PosRange> CommentRanges(const ModuleText& text);
/// Ranges of string literals. Adjoining literals form one range.
[[nodiscard]] std::vector<PosRange> StringRanges(const ModuleText& text);
/// Ranges that conditional compilation and Attribute lines hide in `Module1`, compiled for 32 bits.
/// @param projectConstants  further constants of the project, in lower case
[[nodiscard]] std::vector<PosRange> HiddenRanges(const ModuleText& text,
                                                 const std::vector<CondConstant>& projectConstants = {});

/// Ranges of `text` whose flags contain `flag`.
[[nodiscard]] std::vector<PosRange> FlagRanges(const ModuleText& text, CharFlag flag);

/// Statement number and text of each token of a snippet, "1:a 1:= 1:1 2:b"; appends the last CR LF and ignores
/// conditional compilation.
[[nodiscard]] std::string DumpTokens(std::string_view snippet);
/// Same for a table of `text`, which may be incomplete.
[[nodiscard]] std::string DumpTokens(const ModuleText& text, const TokenTable& tokens);
