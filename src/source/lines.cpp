#include "source/lines.h"

#include <algorithm>
#include <vector>

namespace modMain {

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

}  // namespace modMain

int LineOf(std::string_view text, Pos pos) {
    const auto before = text.substr(0, static_cast<std::size_t>(std::max<Pos>(pos - 1, 0)));
    return static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1;
}
