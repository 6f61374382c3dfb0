#include "source/statement.h"

#include <algorithm>
#include <array>

#include "shell/operations.h"

namespace {

constexpr std::string_view kColon = ": ";
constexpr std::string_view kThen = " then ";

constexpr std::array<std::string_view, 15> kKeepBlank = {"and", "or", "to", "+", "-",  "*",  "/", "=",
                                                         ",",   "&",  "<",  ">", "<>", "<=", ">="};

// True if the blank between two pieces does not separate them, as before a point or after an opening bracket.
bool BlankNoBlank(std::string_view left, std::string_view right) {
    left = Trim(left);
    const char last = left.empty() ? '\0' : left.back();
    if (last == '.' || last == '(')
        return true;
    if (right.starts_with(')'))
        return true;
    if (right.starts_with('.') || right.starts_with('('))
        return std::find(kKeepBlank.begin(), kKeepBlank.end(), left) == kKeepBlank.end() && last != gQuote;
    return false;
}

}  // namespace

void clsStatement::Initialisieren(Pos pos) {
    DoEvents();
    splits_.clear();
    statement_.clear();
    Pos lineLen = 0;
    module_.Get_VBZeile_Nach_Pos(pos, linePos_, lineLen, lineText_);
    Get_LineNoComment();
    if (Trim(lineNoComment_).empty())
        return;
    Set_Statement(pos);
    CountBrackets();
    Split_Statement();
}

void clsStatement::Get_LineNoComment() {
    lineNoComment_ = lineText_;
    for (Pos hit = InStr(lineText_, "'"); hit != 0; hit = InStr(hit + 1, lineText_, "'"))
        if (!module_.PosIsString(linePos_ + hit - 1)) {
            lineNoComment_ = RTrim(lineText_.substr(0, static_cast<std::size_t>(hit) - 1));
            return;
        }
}

// Nearest `find` outside strings that begins at or after `from`, or that ends at or before it if not `toTheRight`.
Pos clsStatement::FindInLine(std::string_view find, Pos from, bool toTheRight) const {
    Pos hit = toTheRight ? InStr(std::max(from, 1), lineNoComment_, find)
              : from < 1 ? 0
                         : InStrRev(lineNoComment_, find, std::min(from, Len(lineNoComment_)));
    while (hit != 0 && module_.PosIsString(linePos_ + hit - 1)) {
        if (toTheRight)
            hit = InStr(hit + 1, lineNoComment_, find);
        else
            hit = hit + Len(find) > 2 ? InStrRev(lineNoComment_, find, hit + Len(find) - 2) : 0;
    }
    return hit;
}

void clsStatement::Set_Statement(Pos pos) {
    const Pos relative = pos - linePos_ + 1;
    const Pos colon = FindInLine(kColon, relative - 1, false);
    const Pos then = FindInLine(kThen, relative - 1, false);
    Pos start = 1;
    if (then == 0 && colon > 0)
        start = colon + Len(kColon);
    else if (then > colon)
        start = then + Len(kThen);
    // With both to the left and the colon nearer, as for c in `If a Then b: c`, the statement deliberately starts at
    // the line start.

    Pos end = Len(lineNoComment_) + 1;
    for (const std::string_view separator : {kColon, kThen})
        if (const Pos right = FindInLine(separator, relative + 1, true); right != 0)
            end = std::min(end, right);
    std::string_view statement = Mid(lineNoComment_, start, std::max(end - start, 0));
    statementPos_ = linePos_ + start - 1;
    statement_ = Replace(statement, gContinuation, "   ");
    const std::string_view trimmed = LTrim(statement_);
    const Pos cut = Len(statement_) - Len(trimmed);
    statementPos_ += cut;
    statement_.erase(0, static_cast<std::size_t>(cut));
}

bool clsStatement::InString(Pos posInStatement) const {
    return module_.PosIsString(statementPos_ + posInStatement - 1);
}

Pos clsStatement::NextBlank(Pos from) const {
    Pos blank = InStr(from, statement_, " ");
    while (blank != 0 && InString(blank))
        blank = InStr(blank + 1, statement_, " ");
    return blank;
}

Pos clsStatement::Get_NextTrenner_Rechts(Pos from) const {
    const Pos blank = NextBlank(from);
    Pos named = InStr(from, statement_, ":=");
    while (named != 0 && InString(named))
        named = InStr(named + 1, statement_, ":=");
    if (named != 0 && (blank == 0 || named < blank))
        return named + 1;
    return blank;
}

void clsStatement::CountBrackets() {
    bracketsBefore_.assign(statement_.size() + 2, 0);
    int open = 0;
    for (Pos at = 1; at <= Len(statement_); ++at) {
        bracketsBefore_[static_cast<std::size_t>(at)] = open;
        if (!InString(at)) {
            const char c = CharAt(statement_, at);
            open += (c == '(') - (c == ')');
        }
    }
    bracketsBefore_.back() = open;
}

bool clsStatement::PosInKlammer(Pos pos) const {
    if (bracketsBefore_.empty() || pos < 1)
        return false;
    return bracketsBefore_[std::min(static_cast<std::size_t>(pos), bracketsBefore_.size() - 1)] > 0;
}

void clsStatement::Split_Statement() {
    std::string built;
    Pos from = 1;
    Pos separator = Get_NextTrenner_Rechts(1);
    while (separator >= 1) {
        if (PosInKlammer(separator)) {
            separator = NextBlank(separator + 1);
            continue;
        }
        while (CharAt(statement_, separator) == ' ' && CharAt(statement_, separator + 1) == ' ')
            ++separator;
        if (separator > from) {
            const std::string_view left = Mid(statement_, from, separator - from + 1);
            const Pos following = Get_NextTrenner_Rechts(separator + 1);
            const std::string_view right =
                Mid(statement_, separator + 1, (following == 0 ? Len(statement_) + 1 : following) - separator - 1);
            if (BlankNoBlank(left, right)) {
                separator = following;
                continue;
            }
        }
        built.append(Mid(statement_, from, separator - from + 1)) += gChrR;
        from = separator + 1;
        separator = Get_NextTrenner_Rechts(from);
    }
    built.append(Mid(statement_, from));

    Pos pos = 1;
    for (std::size_t start = 0; start <= built.size();) {
        const auto end = std::min(built.find(gChrR, start), built.size());
        std::string str(RTrim(std::string_view(built).substr(start, end - start)));
        const Pos len = Len(str);
        splits_.push_back({std::move(str), pos});
        pos += len + 1;
        start = end + 1;
    }
}

std::string_view clsStatement::SplitStr(int nr) const {
    if (nr < 1 || nr > SplitCount())
        ThrowSubscriptOutOfRange();
    return splits_[static_cast<std::size_t>(nr) - 1].str;
}

Pos clsStatement::SplitPos(int nr) const {
    return nr >= 1 && nr <= SplitCount() ? splits_[static_cast<std::size_t>(nr) - 1].pos : 0;
}
