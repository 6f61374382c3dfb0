// What the maps and tokens of a module say, in a form that a test can compare with one line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "source/cond_compile.h"
#include "source/module_text.h"
#include "source/tokens.h"
#include "support/marked.h"

// Each of these runs, on a copy of the text, the steps of the reading that come before what it asks for.

/// Stretches that are comments.
[[nodiscard]] std::vector<PosRange> CommentRanges(const ModuleText& text);
/// Stretches that are string literals. Adjoining literals come out as one stretch.
[[nodiscard]] std::vector<PosRange> StringRanges(const ModuleText& text);
/// Stretches that conditional compilation and Attribute lines hide in `Module1`, compiled for 32 bits.
/// @param projectConstants  further constants of the project, lower case
[[nodiscard]] std::vector<PosRange> HiddenRanges(const ModuleText& text,
                                                 const std::vector<CondConstant>& projectConstants = {});

/// Stretches of `text` whose flags hold `flag`, as they stand.
[[nodiscard]] std::vector<PosRange> FlagRanges(const ModuleText& text, CharFlag flag);

/// Statement number and text of each token of a snippet, "1:a 1:= 1:1 2:b"; adds the last CR LF and takes
/// no notice of conditional compilation.
[[nodiscard]] std::string DumpTokens(std::string_view snippet);
/// The same for a table of `text`, which need not be a whole one.
[[nodiscard]] std::string DumpTokens(const ModuleText& text, const TokenTable& tokens);
