#include "display/reach_rows.h"

#include <algorithm>

#include "display/node_objects.h"
#include "display/object_search.h"
#include "display/shown_text.h"
#include "model/clsModul.h"
#include "model/line_numbers.h"
#include "reach/reason_text.h"
#include "shell/clsText.h"

namespace {

constexpr std::string_view kDot = " \u00B7 ";
constexpr std::string_view kArrow = "\u2192 ";
constexpr std::string_view kDoubtfulArrow = "\u21E2 ";

void Append(std::string& text, std::string_view part) {
    if (!part.empty())
        text.append(text.empty() ? "" : kDot).append(part);
}

void SetPlace(ReachRow& row, const clsModul* modul, Pos pos, LineNumbers& lines) {
    if (!modul || !modul->text || pos < 1)
        return;
    row.modulKey = modul->CodePath();
    row.line = lines.Of(*modul, pos);
    Append(row.about, PlaceText(*modul, row.line));
}

}  // namespace

std::string PathText(const CodeObject& object) {
    return Utf8Of(ModuleOf(object), object.CodePathOrg());
}

ReachRow HeadingRow(int section, std::string text) {
    return {.kind = ReachRow::Kind::Heading, .text = std::move(text), .about = {}, .section = section};
}

ReachRow ObjectRow(int section, const CodeObject& object, std::string about) {
    return {.text = PathText(object),
            .about = std::move(about),
            .image = object.GetImageKey(),
            .key = NodeKeyOf(object),
            .section = section};
}

ReachRow StepRow(int section, const Link& link, LineNumbers& lines) {
    ReachRow row = ObjectRow(section, *link.to, TextOf(link.kind));
    row.isPossible = !link.IsCertain();
    row.text.insert(0, row.isPossible ? kDoubtfulArrow : kArrow);
    SetPlace(row, ModuleOf(*link.from), link.pos, lines);
    return row;
}

ReachRow CallerRow(int section, const Link& link, LineNumbers& lines) {
    ReachRow row = ObjectRow(section, *link.from, TextOf(link.kind));
    row.isPossible = !link.IsCertain();
    SetPlace(row, ModuleOf(*link.from), link.pos, lines);
    return row;
}

ReachRow EntryRow(int section, const EntryPoint& entry, LineNumbers& lines, const std::string& about) {
    std::string kind = TextOf(entry.kind);
    if (!entry.IsCertain())
        Append(kind, Utf8TextNr(Text::Possible));
    Append(kind, about);
    ReachRow row = ObjectRow(section, *entry.object, std::move(kind));
    row.isPossible = !entry.IsCertain();
    SetPlace(row, entry.modul, entry.pos, lines);
    return row;
}

std::string StepsText(int steps) {
    return steps == 1 ? Utf8TextNr(Text::OneStep) : Filled(Text::StepCount, {Utf8Number(steps)});
}

std::string AsText(const std::vector<ReachRow>& rows) {
    std::string text;
    for (const ReachRow& row : rows) {
        if (row.kind == ReachRow::Kind::More)
            continue;
        text.append(row.kind == ReachRow::Kind::Item ? "    " : "").append(row.text);
        text.append(row.about.empty() ? "" : "  (" + row.about + ")").append("\n");
    }
    return text;
}
