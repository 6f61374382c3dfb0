#include "support/module_dumps.h"

#include "source/comments.h"

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
    ModuleText copy{std::string(text.ModulTextOrg())};
    Comments_Initialisieren(copy);
    return FlagRanges(copy, IsComment);
}

std::vector<PosRange> StringRanges(const ModuleText& text) {
    ModuleText copy{std::string(text.ModulTextOrg())};
    Comments_Initialisieren(copy);
    Strings_Initialisieren(copy);
    return FlagRanges(copy, IsString);
}

std::vector<PosRange> HiddenRanges(const ModuleText& text, const std::vector<CondConstant>& projectConstants) {
    std::vector<CondConstant> constants{{}, {"win32", "-1"}, {"win16", "0"}};
    constants.insert(constants.end(), projectConstants.begin(), projectConstants.end());
    ModuleText copy{std::string(text.ModulTextOrg())};
    Comments_Initialisieren(copy);
    Strings_Initialisieren(copy);
    CondCompile_Initialisieren(copy, constants, "module Module1");
    return FlagRanges(copy, NotCompile);
}

std::string DumpTokens(std::string_view snippet) {
    std::string source(snippet);
    if (!source.ends_with(vbCrLf))
        source.append(vbCrLf);
    ModuleText text(std::move(source));
    Comments_Initialisieren(text);
    Strings_Initialisieren(text);
    const TokenTable tokens = Analyse_Parsen(text);
    return DumpTokens(text, tokens);
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
