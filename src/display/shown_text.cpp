#include "display/shown_text.h"

#include <algorithm>

#include "model/clsModul.h"
#include "model/clsProzedur.h"
#include "model/clsTypeLib.h"
#include "model/clsVariable.h"
#include "platform/code_page.h"
#include "shell/clsText.h"
#include "source/lines.h"
#include "source/module_text.h"
#include "source/tokens.h"

namespace {

const CodePage& Latin() {
    static const CodePage page("1252");
    return page;
}

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Whether the line break at `lineBreak` (0-based, of its CR) joins two physical lines.
bool JoinsLines(std::string_view text, std::size_t lineBreak) {
    return lineBreak >= 2 && text.substr(lineBreak - 2, 2) == " _";
}

std::size_t LogicalBegin(std::string_view text, std::size_t at) {
    for (;;) {
        const auto lineBreak = at == 0 ? std::string_view::npos : text.rfind(vbCrLf, at - 1);
        if (lineBreak == std::string_view::npos || lineBreak + 2 > at)
            return lineBreak == std::string_view::npos ? 0 : at;
        if (!JoinsLines(text, lineBreak))
            return lineBreak + 2;
        at = lineBreak;
    }
}

std::string_view WithoutIndent(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of(" \t"), line.size()));
}

bool IsCommentLine(std::string_view line) {
    line = WithoutIndent(line);
    return line.starts_with('\'') || LowerCase(line.substr(0, 4)) == "rem " || LowerCase(line) == "rem" ||
           LowerCase(line.substr(0, 5)) == "rem\r\n";
}

std::size_t LogicalEnd(std::string_view text, std::size_t at) {
    auto lineBreak = text.find(vbCrLf, at);
    while (lineBreak != std::string_view::npos && JoinsLines(text, lineBreak))
        lineBreak = text.find(vbCrLf, lineBreak + 2);
    return std::min(lineBreak, text.size());
}

}  // namespace

const CodePage& PageOf(std::string_view wholeText) {
    static const CodePage utf8("65001");
    const CodePage& active = ActiveCodePage();
    if (active.Setting() != "auto")
        return active;
    return !IsAscii(wholeText) && IsValidUtf8(wholeText) ? utf8 : Latin();
}

std::string Utf8Of(const clsModul* modul, std::string_view bytes) {
    if (IsAscii(bytes))
        return std::string(bytes);
    return (modul && modul->text ? PageOf(modul->text->ModulTextOrg()) : ActiveCodePage()).ToUtf8(bytes);
}

std::string ShownPath(std::string_view path) {
    const CodePage& page = ActiveCodePage();
    std::string shown(path);
    for (std::size_t at = 0; at < shown.size(); ++at) {
        if (page.IsLeadByte(static_cast<unsigned char>(shown[at])))
            ++at;  // the second byte of a character can look like a separator
        else if (shown[at] == '\\')
            shown[at] = '/';
    }
    return shown;
}

std::string Utf8Number(long long number) {
    const char separator = gText.Language == "german" ? '.' : ',';
    std::string digits = std::to_string(number);
    const std::size_t first = number < 0 ? 1 : 0;
    for (std::size_t at = digits.size(); at > first + 3;)
        digits.insert(at -= 3, 1, separator);
    return digits;
}

Pos CommentAbove(std::string_view text, Pos pos) {
    const auto at = static_cast<std::size_t>(std::clamp<Pos>(pos - 1, 0, Len(text)));
    std::size_t line = LogicalBegin(text, at);
    // Something else ends in the same line; words such as Friend belong to the declaration.
    if (text.substr(line, at - line).find_first_of(":\"'") != std::string_view::npos)
        return pos;
    bool found = false;
    while (line >= vbCrLf.size()) {
        const std::size_t above = LogicalBegin(text, line - vbCrLf.size());
        if (!IsCommentLine(text.substr(above, line - above)))
            break;
        line = above;
        found = true;
    }
    return found ? static_cast<Pos>(line) + 1 : pos;
}

Pos HeaderEnd(const clsModul& modul) {
    const std::string_view text = modul.text->ModulTextOrg();
    // The last token before the declarations is one of the header.
    const int last = modul.TokNrBeginnVarBereich - 1;
    std::size_t line = 0;
    const auto toNextLine = [&](std::size_t from) {
        const auto end = text.find(vbCrLf, from);
        line = end == std::string_view::npos ? text.size() : end + vbCrLf.size();
    };
    if (modul.tokens && last >= 1)
        toNextLine(static_cast<std::size_t>(modul.tokens->PosOf(last)) - 1);
    while (LowerCase(text.substr(line, 13)) == "attribute vb_")
        toNextLine(line);
    return static_cast<Pos>(line) + 1;
}

std::string JoinedLine(std::string_view text, Pos pos, Pos from) {
    if (pos < 1 || pos > Len(text))
        return {};
    const auto at = static_cast<std::size_t>(pos) - 1;
    const auto begin = std::max(LogicalBegin(text, at), static_cast<std::size_t>(std::max<Pos>(from, 1)) - 1);
    std::string_view rest = text.substr(begin, LogicalEnd(text, at) - begin);
    std::string line;
    while (!rest.empty()) {
        const auto lineBreak = rest.find(vbCrLf);
        std::string_view part = rest.substr(0, lineBreak);
        rest = lineBreak == std::string_view::npos ? std::string_view() : rest.substr(lineBreak + 2);
        if (lineBreak != std::string_view::npos)
            part.remove_suffix(1);  // the underscore
        line.append(RTrim(WithoutIndent(part)));
        if (!rest.empty())
            line += ' ';
    }
    return std::string(modMain::Get_ZeileOhneKommentar(line));
}

std::string DeclarationText(const CodeObject& object) {
    if (object.Class() == ObjectClass::Modul)
        return ShownPath(static_cast<const clsModul&>(object).FullPath);
    if (object.Class() == ObjectClass::TypeLib)
        return ShownPath(static_cast<const clsTypeLib&>(object).InprocServer32);
    if (!object.Modul || !object.Modul->text)
        return {};
    const std::string_view text = object.Modul->text->ModulTextOrg();
    if (object.Class() != ObjectClass::Prozedur)
        return JoinedLine(text, object.DeclareStart);
    // A whole procedure can be on one line: `Sub a: b: End Sub`.
    const Pos end = static_cast<const clsProzedur&>(object).isDeclare ? Len(text) : object.DeclareEnd - 1;
    return JoinedLine(text.substr(0, static_cast<std::size_t>(std::clamp<Pos>(end, 0, Len(text)))), object.DeclareStart,
                      object.DeclareStart);
}
