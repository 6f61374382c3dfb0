#include "support/marked.h"

#include <algorithm>
#include <stdexcept>

namespace {

std::vector<std::string_view> Lines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, end));
        if (lines.back().ends_with('\r'))
            lines.back().remove_suffix(1);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

bool IsBlank(std::string_view line) {
    return Trim(line).empty();
}

}  // namespace

Marked Vb(std::string_view snippet) {
    std::vector<std::string_view> lines = Lines(snippet);
    if (lines.size() > 1 && IsBlank(lines.front()))
        lines.erase(lines.begin());
    // Removes the indentation before the closing bracket of the raw literal.
    if (lines.size() > 1 && IsBlank(lines.back()) && !snippet.ends_with('\n'))
        lines.pop_back();

    std::size_t indent = std::string_view::npos;
    for (const std::string_view line : lines)
        if (!IsBlank(line))
            indent = std::min(indent, line.find_first_not_of(' '));

    Marked marked;
    std::vector<std::size_t> open;
    for (std::string_view line : lines) {
        line.remove_prefix(std::min(indent, line.size()));
        while (!line.empty()) {
            if (line.starts_with("{{")) {
                open.push_back(marked.ranges.size());
                marked.ranges.emplace_back(Len(marked.text) + 1, 0);
                line.remove_prefix(2);
            } else if (line.starts_with("}}") && !open.empty()) {
                marked.ranges[open.back()].second = Len(marked.text);
                open.pop_back();
                line.remove_prefix(2);
            } else {
                marked.text += line.front();
                line.remove_prefix(1);
            }
        }
        marked.text.append(vbCrLf);
    }
    if (!open.empty())
        throw std::invalid_argument("a mark is not closed");
    return marked;
}
