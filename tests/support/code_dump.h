// Formats coloured code as text for comparison in a test.
#pragma once

#include <string>

#include "display/code_colours.h"

/// "public:Foo callIn:Bar maybe:x", the whole of what is coloured.
[[nodiscard]] inline std::string DumpCode(const CodeText& code) {
    static constexpr std::string_view words[] = {"",      "comment", "string",  "hidden", "public", "private",
                                                 "local", "callIn",  "callOut", "maybe",  "result"};
    std::string dump;
    for (const CodeSpan& span : code.spans)
        dump.append(dump.empty() ? "" : " ")
            .append(words[static_cast<std::size_t>(span.what)])
            .append(":")
            .append(code.text, static_cast<std::size_t>(span.start), static_cast<std::size_t>(span.length));
    return dump;
}
