// Comments are found in three scans: "'", CR LF "rem ", and " rem ". In each, a candidate is a comment when an
// even number of quotes stands before it in its logical line. Candidates come in rising order, so the line and
// its quotes are carried along and each scan is one walk over the text.
#include "source/comments.h"

#include <cstring>

namespace {

class CommentScan {
public:
    explicit CommentScan(ModuleText& text) : text_(text) {}

    /// Goes over all hits of `find`; the candidate stands `offset` characters behind the hit's first.
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
                // Whatever else stands in this line would mark a part of the same stretch.
                next = std::max(next, lineEnd_);
            }
            hit = InStr(next, text, find);
        }
    }

private:
    // Takes the logical line around `pos`; false when it has no end, which is reported once.
    bool EnterLine(Pos pos) {
        if (pos < lineEnd_ && pos >= start_)
            return true;
        if (lastLine_ != 0 && pos >= lastLine_) {
            if (start_ != lastLine_)
                BeginAt(lastLine_);
            return false;
        }
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

    // The last line has no CR LF: the text of the line before it is what the test and the length go by.
    void MarkInFormerLine(Pos candidate) {
        if (!QuotesOddBefore(candidate))
            text_.Mark(candidate, start_ + Len(line_) - 1, IsComment);
    }

    ModuleText& text_;
    std::string_view line_;
    Pos start_ = 0;
    Pos lineEnd_ = 0;  // CR of the line at hand; 0 when there is no line
    Pos counted_ = 0;  // characters of the line looked at for quotes
    int quotes_ = 0;
    Pos lastLine_ = 0;  // start of a last line without CR LF, once a candidate was met in it
};

// Whether `rem` occurs at all, quickly: most modules have none.
bool HasRem(std::string_view text) {
    using Sixteen [[gnu::vector_size(16)]] = char;
    const auto at = [&text](std::size_t position) {
        Sixteen characters;
        std::memcpy(&characters, text.data() + position, sizeof characters);
        return characters;
    };
    Sixteen found{};
    std::size_t i = 0;
    for (; i + 19 <= text.size(); i += 16)
        found |= (at(i) == 'r') & (at(i + 1) == 'e') & (at(i + 2) == 'm') & (at(i + 3) == ' ');
    std::uint64_t halves[2];
    std::memcpy(halves, &found, sizeof halves);
    return (halves[0] | halves[1]) != 0 || text.find("rem ", i) != std::string_view::npos;
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
