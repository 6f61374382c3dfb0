#include "generate_project_lines.h"

#include <algorithm>

namespace generate {

namespace {

constexpr std::size_t LongestLine = 110;

// The end of the part of `text` that fits into `room`: behind the last comma or operator outside strings.
// 0 when there is none, or when a comment follows, which would swallow the rest.
std::size_t BreakPosition(std::string_view text, std::size_t room) {
    bool inString = false;
    std::size_t best = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"')
            inString = !inString;
        if (inString)
            continue;
        if (text[i] == '\'')
            return 0;
        if (i >= room)
            continue;
        const std::string_view rest = text.substr(i);
        if (rest.starts_with(", "))
            best = i + 1;
        else if (rest.starts_with(" & ") || rest.starts_with(" + "))
            best = i + 2;
        else if (rest.starts_with(" And "))
            best = i + 4;
        else if (rest.starts_with(" Or "))
            best = i + 3;
    }
    return best;
}

}  // namespace

void LineWriter::EndLine() {
    text_ += "\r\n";
    ++lines_;
    endsWithBlank_ = false;
    endsWithComment_ = false;
}

void LineWriter::Statement(std::string_view text) {
    Indent();
    std::size_t used = Width(depth);
    while (used + text.size() > LongestLine) {
        const std::size_t end = BreakPosition(text, LongestLine - std::min<std::size_t>(used, 50));
        if (end == 0)
            break;
        text_ += text.substr(0, end);
        text_ += " _";
        EndLine();
        text.remove_prefix(end + 1);
        const std::size_t deeper = Width(depth + 2);
        text_.append(deeper, ' ');
        used = deeper;
    }
    text_ += text;
    EndLine();
}

void LineWriter::Raw(std::string_view text) {
    text_ += text;
    EndLine();
}

void LineWriter::Comment(std::string_view text) {
    Indent();
    text_ += '\'';
    text_ += text;
    EndLine();
    ++comments_;
    endsWithComment_ = true;
}

void LineWriter::Blank() {
    EndLine();
    ++blanks_;
    endsWithBlank_ = true;
}

void LineWriter::Append(const LineWriter& other) {
    text_ += other.text_;
    lines_ += other.lines_;
    comments_ += other.comments_;
    blanks_ += other.blanks_;
    endsWithBlank_ = other.endsWithBlank_;
    endsWithComment_ = other.endsWithComment_;
}

}  // namespace generate
