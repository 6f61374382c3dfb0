#include "source/lines.h"

#include <vector>

namespace modMain {

bool PositionInString(std::string_view text, Pos pos) {
    bool inString = false;
    for (const char c : text.substr(0, static_cast<std::size_t>(std::max(pos, 0))))
        if (c == gQuote)
            inString = !inString;
    return inString;
}

bool PositionInKlammer(std::string_view text, Pos pos) {
    bool inString = false;
    int depth = 0;
    for (const char c : text.substr(0, static_cast<std::size_t>(std::max(pos - 1, 0)))) {
        if (c == gQuote)
            inString = !inString;
        else if (!inString)
            depth += (c == '(') - (c == ')');
    }
    return depth > 0;
}

std::string_view Get_ZeileOhneKommentar(std::string_view text) {
    bool inString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == gQuote)
            inString = !inString;
        else if (text[i] == '\'' && !inString)
            return RTrim(text.substr(0, i));
    }
    return text;
}

std::string_view GetCodeAusString(std::string_view text) {
    return Trim(Get_ZeileOhneKommentar(text));
}

std::string Get_Clean_VBZeile(std::string_view text) {
    const std::string_view code = Get_ZeileOhneKommentar(text);
    if (InStr(code, gContinuation) == 0)
        return std::string(LTrim(code));

    std::vector<std::string_view> pieces;
    std::string_view rest = code;
    for (std::size_t hit; (hit = rest.find(gContinuation)) != std::string_view::npos;
         rest.remove_prefix(hit + gContinuation.size()))
        pieces.push_back(LTrim(rest.substr(0, hit)));
    pieces.push_back(LTrim(rest));

    std::string line;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        std::string_view piece = pieces[i];
        if (i + 1 < pieces.size() && (pieces[i + 1].starts_with('(') || pieces[i + 1].starts_with('.'))) {
            // The blank before a bracket or point in the next line is kept only after an operator.
            const std::string_view end = RTrim(piece);
            const std::string_view lastTwo = end.substr(end.size() < 2 ? 0 : end.size() - 2);
            if (lastTwo != " +" && lastTwo != " -" && lastTwo != " *" && lastTwo != " /" && lastTwo != " &")
                piece = end;
        }
        line.append(piece);
    }
    line = Replace(line, "( ", "(");
    line = Replace(line, " )", ")");
    line = Replace(line, " ,", ",");
    return Replace(line, ". ", ".");
}

Pos Get_StringPos_RechtsVonPos(std::string_view text, std::string_view find, Pos pos) {
    Pos hit = InStr(std::max(pos, 0) + 1, text, find);
    while (hit != 0 && PositionInString(text, hit))
        hit = InStr(hit + 1, text, find);
    return hit;
}

Pos Get_StringPos_LinksVonPos(std::string_view text, std::string_view find, Pos pos) {
    if (pos < 2)
        return 0;
    Pos hit = InStrRev(text, find, pos - 1);
    while (hit != 0 && PositionInString(text, hit))
        hit = hit > 1 ? InStrRev(text, find, hit + Len(find) - 2) : 0;
    return hit;
}

int Get_AnzStr_InString(std::string_view text, std::string_view find, Pos von, Pos bis) {
    int count = 0;
    for (Pos hit = Get_StringPos_RechtsVonPos(text, find, von); hit != 0 && hit <= bis;
         hit = Get_StringPos_RechtsVonPos(text, find, hit))
        ++count;
    return count;
}

Pos Get_Next_NotBlankPos_Left(std::string_view text, Pos pos) {
    while (pos > 0 && CharAt(text, pos) == ' ')
        --pos;
    return pos;
}

Pos Get_Next_BlankPos_Left(std::string_view text, Pos pos) {
    while (pos >= 2) {
        const Pos blank = InStrRev(text, " ", pos - 1);
        if (blank == 0)
            return 0;
        const Pos continuation = InStrRev(text, gContinuation, pos);
        if (continuation == 0 || continuation >= blank)
            return blank;
        const Pos notBlank = Get_Next_NotBlankPos_Left(text, blank);
        if (notBlank != continuation + 2)
            return blank;
        const char before = CharAt(text, continuation - 2);
        const char behind = CharAt(text, continuation + 3);
        const bool goesOn = (before != '\0' && std::string_view(".(+-*/&)").find(before) != std::string_view::npos) ||
                            behind == '.' || behind == ')';
        if (!goesOn)
            return blank;
        pos = notBlank;
    }
    return 0;
}

std::string_view Get_KlammerInhalt(std::string_view text, Pos pos, Pos& start, Pos& ende) {
    start = ende = 0;
    std::vector<Pos> open;
    Pos from = 0;
    bool inString = false;
    for (Pos at = 1; at <= Len(text); ++at) {
        const char c = CharAt(text, at);
        if (at == pos)
            from = open.empty() ? -1 : open.back();
        if (c == gQuote)
            inString = !inString;
        if (inString)
            continue;
        if (c == '(') {
            open.push_back(at);
        } else if (c == ')' && !open.empty()) {
            if (from > 0 && at >= pos && open.back() == from) {
                start = from + 1;
                ende = at;
                return Mid(text, start, ende - start);
            }
            open.pop_back();
        }
        if (from < 0)
            break;
    }
    return {};
}

}  // namespace modMain
