// Finds comments in three scans: for "'", CR LF "rem ", and " rem ". A hit is a comment if an even number of quotes
// precedes it in its logical line. Hits come in ascending order, so each scan keeps the current line and its quote
// count and is a single pass over the text.
#include "source/comments.h"

#include <cstring>

#include "platform/vector_code.h"

namespace {

class CommentScan {
public:
    explicit CommentScan(ModuleText& text) : text_(text) {}

    /// Visits all hits of `find`; the candidate is `offset` characters after the start of the hit.
    void Run(std::string_view find, Pos offset) {
        lineEnd_ = 0;
        const std::string_view text = text_.ModulText();
        Pos hit = InStr(text, find);
        while (hit != 0) {
            const Pos candidate = hit + offset;
            Pos next = hit + 1;
            if (!EnterLine(candidate)) {
                MarkInFormerLine(candidate);
            } else if (!QuotesOddBefore(candidate)) {
                text_.Mark(candidate, lineEnd_ - 1, IsComment);
                // Further hits in this line lie in the stretch that is marked already.
                next = std::max(next, lineEnd_);
            }
            hit = InStr(next, text, find);
        }
    }

private:
    // Enters the logical line around `pos`; false if it has no line end, which is reported once.
    bool EnterLine(Pos pos) {
        if (pos < lineEnd_ && pos >= start_)
            return true;
        if (lastLine_ != 0 && pos >= lastLine_) {
            if (start_ != lastLine_)
                BeginAt(lastLine_);
            return false;
        }
        if (EnterPlainLine(pos))
            return true;
        Pos begin = 0;
        Pos length = 0;
        const bool hasEnd = text_.Get_VBZeile_Nach_Pos(pos, begin, length, line_);
        BeginAt(begin);
        if (hasEnd)
            lineEnd_ = begin + length;
        else
            lastLine_ = begin;
        return hasEnd;
    }

    // Fast path for a line without continuations before and after it, as nearly all lines are.
    bool EnterPlainLine(Pos pos) {
        const std::string_view text = text_.ModulText();
        const char* const first = text.data();
        const char* const at = first + pos - 1;
        const auto* before = static_cast<const char*>(memrchr(first, '\n', static_cast<std::size_t>(at - first)));
        if (!before || before - first < 3 || before[-1] != '\r' || IsContinuation(before - 1))
            return false;
        const auto* end =
            static_cast<const char*>(std::memchr(at, '\r', text.size() - static_cast<std::size_t>(at - first)));
        if (!end || end[1] != '\n' || IsContinuation(end))
            return false;
        line_ = {before + 1, end};
        BeginAt(static_cast<Pos>(before - first) + 2);
        lineEnd_ = static_cast<Pos>(end - first) + 1;
        return true;
    }

    // True if the CR at `cr` joins two physical lines.
    static bool IsContinuation(const char* cr) { return cr[-1] == '_' && cr[-2] == ' '; }

    void BeginAt(Pos start) {
        start_ = start;
        lineEnd_ = 0;
        counted_ = 0;
        quotes_ = 0;
    }

    bool QuotesOddBefore(Pos candidate) {
        for (const Pos offset = std::min(candidate - start_, Len(line_)); counted_ < offset; ++counted_)
            quotes_ += line_[static_cast<std::size_t>(counted_)] == gQuote;
        return quotes_ % 2 != 0;
    }

    // The last line has no CR LF, so `line_` still holds the line before it; its quotes and its length decide.
    void MarkInFormerLine(Pos candidate) {
        if (!QuotesOddBefore(candidate))
            text_.Mark(candidate, start_ + Len(line_) - 1, IsComment);
    }

    ModuleText& text_;
    std::string_view line_;
    Pos start_ = 0;
    Pos lineEnd_ = 0;  // CR of the current line; 0 if there is none
    Pos counted_ = 0;  // characters of the current line that are searched for quotes
    int quotes_ = 0;
    Pos lastLine_ = 0;  // start of a last line without CR LF, once it contained a candidate
};

// Quick test for "rem ", which most modules do not contain.
WIDE_VECTORS bool HasRem(std::string_view text) {
    using Many [[gnu::vector_size(32)]] = char;
    const auto read = [&text](Many& characters, std::size_t position) {
        std::memcpy(&characters, text.data() + position, sizeof characters);
    };
    Many first, second, third, fourth, found{};
    std::size_t i = 0;
    for (; i + sizeof(Many) + 3 <= text.size(); i += sizeof(Many)) {
        read(first, i);
        read(second, i + 1);
        read(third, i + 2);
        read(fourth, i + 3);
        found |= (first == 'r') & (second == 'e') & (third == 'm') & (fourth == ' ');
    }
    std::uint64_t parts[4];
    std::memcpy(parts, &found, sizeof parts);
    return (parts[0] | parts[1] | parts[2] | parts[3]) != 0 || text.find("rem ", i) != std::string_view::npos;
}

}  // namespace

void Comments_Initialisieren(ModuleText& text) {
    CommentScan scan(text);
    scan.Run("'", 0);
    if (HasRem(text.ModulText())) {
        scan.Run("\r\nrem ", 2);
        scan.Run(" rem ", 1);
    }
}

void Strings_Initialisieren(ModuleText& text) {
    const std::string_view lower = text.ModulText();
    const std::uint8_t* map = text.MapForPass();
    Pos quote = InStr(lower, "\"");
    while (quote != 0) {
        if (map[quote] & IsComment) {
            quote = InStr(quote + 1, lower, "\"");
            continue;
        }
        const Pos closing = InStr(quote + 1, lower, "\"");
        if (closing == 0)
            return;
        text.Mark(quote, closing, IsString);
        quote = InStr(closing + 1, lower, "\"");
    }
}
