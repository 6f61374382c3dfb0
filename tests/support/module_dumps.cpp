#include "support/module_dumps.h"

#include "source/comments.h"

namespace {

ModuleText WithMaps(std::string_view source) {
    ModuleText text{std::string(source)};
    Comments_Initialisieren(text);
    Strings_Initialisieren(text);
    return text;
}

}  // namespace

std::vector<PosRange> FlagRanges(const ModuleText& text, CharFlag flag) {
    std::vector<PosRange> ranges;
    for (Pos pos = 1; pos <= text.CharCount(); ++pos) {
        if ((text.FlagsAt(pos) & flag) == 0)
            continue;
        if (ranges.empty() || ranges.back().second != pos - 1)
            ranges.emplace_back(pos, pos);
        else
            ranges.back().second = pos;
    }
    return ranges;
}

std::vector<PosRange> CommentRanges(const ModuleText& text) {
    return FlagRanges(WithMaps(text.ModulTextOrg()), IsComment);
}

std::vector<PosRange> StringRanges(const ModuleText& text) {
    return FlagRanges(WithMaps(text.ModulTextOrg()), IsString);
}

std::vector<PosRange> HiddenRanges(const ModuleText& text, const std::vector<CondConstant>& projectConstants) {
    std::vector<CondConstant> constants{{}, {"win32", "-1"}, {"win16", "0"}};
    constants.insert(constants.end(), projectConstants.begin(), projectConstants.end());
    ModuleText copy = WithMaps(text.ModulTextOrg());
    CondCompile_Initialisieren(copy, constants, "module Module1");
    return FlagRanges(copy, NotCompile);
}

std::string DumpTokens(std::string_view snippet) {
    ModuleText text = WithMaps(std::string(snippet) + (snippet.ends_with(vbCrLf) ? "" : vbCrLf.data()));
    return DumpTokens(text, Analyse_Parsen(text));
}

std::string DumpTokens(const ModuleText& text, const TokenTable& tokens) {
    std::string dump;
    for (const Token& token : tokens.All()) {
        if (!dump.empty())
            dump += ' ';
        dump.append(std::to_string(token.statementNr)) += ':';
        dump.append(Mid(text.ModulTextOrg(), token.pos, token.len));
    }
    return dump;
}
