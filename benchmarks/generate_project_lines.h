// The lines of a module on their way into its file: indented, broken where they get too long, counted by kind.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace generate {

class LineWriter {
public:
    explicit LineWriter(int indent) : indent_(indent) {}

    /// Writes one statement at the present depth; a long one goes on over continuation lines.
    void Statement(std::string_view text);
    /// Writes the text as it is, without indentation: labels, attributes, headers of files.
    void Raw(std::string_view text);
    void Comment(std::string_view text);
    void Blank();
    /// Adds the lines of `other` and their counts.
    void Append(const LineWriter& other);

    int depth = 0;

    [[nodiscard]] int Lines() const { return lines_; }
    [[nodiscard]] int Comments() const { return comments_; }
    [[nodiscard]] int Blanks() const { return blanks_; }
    [[nodiscard]] bool EndsWithBlank() const { return endsWithBlank_; }
    [[nodiscard]] bool EndsWithComment() const { return endsWithComment_; }
    [[nodiscard]] const std::string& Text() const { return text_; }

private:
    [[nodiscard]] std::size_t Width(int levels) const {
        return static_cast<std::size_t>(indent_) * static_cast<std::size_t>(levels);
    }
    void Indent() { text_.append(Width(depth), ' '); }
    void EndLine();

    std::string text_;
    int indent_;
    int lines_ = 0;
    int comments_ = 0;
    int blanks_ = 0;
    bool endsWithBlank_ = false;
    bool endsWithComment_ = false;
};

}  // namespace generate
