#include "reach/reach_page.h"

#include <algorithm>

#include "findings/module_statistics.h"
#include "model/kind_of.h"
#include "model/line_numbers.h"
#include "reach/reason_text.h"
#include "shell/csv.h"

namespace {

constexpr std::size_t kMostNamed = 10;

std::string PlaceOf(const clsModul* modul, Pos pos, LineNumbers& lines) {
    return modul && modul->text ? PlaceText(*modul, lines.Of(*modul, pos)) : std::string();
}

std::string PlaceOf(const CodeObject& object, LineNumbers& lines) {
    return PlaceOf(ModuleOf(object), object.DeclareStart, lines);
}

std::string PlaceOf(const Link& link, LineNumbers& lines) {
    return PlaceOf(ModuleOf(*link.from), link.pos, lines);
}

// Each character beyond ASCII has several bytes.
std::size_t WidthOf(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

void AddRow(std::string& text, const std::vector<std::string>& cells, const std::vector<std::size_t>& widths) {
    std::string line;
    for (std::size_t nr = 0; nr < cells.size(); ++nr)
        line.append(cells[nr]).append(nr + 1 < cells.size() ? widths[nr] + 2 - WidthOf(cells[nr]) : 0, ' ');
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + "\n";
}

// The type or enumeration that an object is a member of; null for any other.
const CodeObject* OwnerOf(const CodeObject& object) {
    if (object.Class() != ObjectClass::Variable)
        return nullptr;
    const auto& variable = static_cast<const clsVariable&>(object);
    return variable.MyType ? static_cast<const CodeObject*>(variable.MyType) : variable.MyEnum;
}

std::vector<std::string> StepRow(const Link& link, LineNumbers& lines) {
    return {Utf8Path(*link.from), TextOf(link.kind), Utf8Path(*link.to), PlaceOf(link, lines)};
}

std::string Listed(std::string_view label, std::size_t count, const std::vector<std::string>& first) {
    std::string line = std::string(label) + ": " + std::to_string(count);
    for (std::size_t nr = 0; nr < first.size(); ++nr)
        line += (nr == 0 ? " - " : ", ") + first[nr];
    return line + (count > first.size() ? ", ..." : "");
}

std::string TotalText(const std::vector<DeadObject>& dead, Grade grade, std::string_view words) {
    const DeadTotals of = TotalsOf(dead, grade);
    return std::to_string(of.objects) + " objects with " + std::to_string(of.lines) + " lines " + std::string(words);
}

}  // namespace

std::string PageText(const ReachPage& page) {
    std::vector<std::size_t> widths(page.columns.size());
    for (const std::vector<std::string>& row : page.rows)
        for (std::size_t nr = 0; nr < row.size(); ++nr)
            widths[nr] = std::max(widths[nr], WidthOf(row[nr]));
    std::string text;
    for (const std::string& line : page.head)
        text += line + "\n";
    for (const std::vector<std::string>& row : page.rows)
        AddRow(text, row, widths);
    for (const std::string& line : page.foot)
        text += line + "\n";
    return text;
}

std::string PageTable(const ReachPage& page) {
    std::string table;
    const auto add = [&table](const std::vector<std::string>& cells) {
        for (std::size_t nr = 0; nr < cells.size(); ++nr)
            table.append(nr == 0 ? "" : ",").append(CsvCell(cells[nr]));
        table += "\r\n";
    };
    add(page.columns);
    for (const std::vector<std::string>& row : page.rows)
        add(row);
    return table;
}

std::vector<DeadObject> DeadObjectsOf(const Reasons& reasons, Grade worst) {
    std::vector<DeadObject> dead;
    reasons.TheReach().ForEachObject([&](const CodeObject& object) {
        const Grading grading = reasons.GradeOf(object);
        if (grading.grade == Grade::Living || grading.grade > worst)
            return;
        // An owner comes before its members.
        if (const CodeObject* owner = OwnerOf(object))
            if (const Grade of = reasons.GradeOf(*owner).grade; of != Grade::Living && of <= worst)
                return;
        dead.push_back({&object, grading, LinesOf(object)});
    });
    return dead;
}

DeadTotals TotalsOf(const std::vector<DeadObject>& dead, Grade grade) {
    DeadTotals totals;
    for (const DeadObject& one : dead)
        if (one.grading.grade == grade && !one.grading.leftAlone) {
            ++totals.objects;
            totals.lines += one.lines;
        }
    return totals;
}

ReachPage DeadPage(const Reasons& reasons, Grade worst) {
    ReachPage page;
    page.columns = {"object", "kind", "grade", "lines", "place", "reason", "grade reason"};
    LineNumbers lines;
    const std::vector<DeadObject> dead = DeadObjectsOf(reasons, worst);
    for (const DeadObject& one : dead)
        page.rows.push_back({Utf8Path(*one.object), std::string(KindWord(*one.object)), TextOf(one.grading.grade),
                             std::to_string(one.lines), PlaceOf(*one.object, lines),
                             SentenceOf(reasons.ReasonOf(*one.object), lines),
                             SentenceOf(*one.object, one.grading, lines)});
    page.foot.push_back(TotalText(dead, Grade::Sure, "can go for sure"));
    if (worst >= Grade::Likely)
        page.foot.push_back(TotalText(dead, Grade::Likely, "can probably go"));
    if (worst >= Grade::CannotTell)
        page.foot.push_back(TotalText(dead, Grade::CannotTell, "cannot be told"));
    if (const auto leftAlone = std::ranges::count_if(dead, [](const DeadObject& one) { return one.grading.leftAlone; }))
        page.foot.push_back(std::to_string(leftAlone) + " objects are to be left alone");
    return page;
}

ReachPage WhyPage(const Reasons& reasons, const CodeObject& object) {
    const Reach& reach = reasons.TheReach();
    ReachPage page;
    const Reason reason = reasons.ReasonOf(object);
    LineNumbers lines;
    page.head = {Utf8Path(object), SentenceOf(reason, lines)};
    if (reason.kind == ReasonKind::None)
        return page;
    page.head.push_back(SentenceOf(object, reasons.GradeOf(object), lines));
    page.columns = {"from", "link", "to", "place"};
    for (const Link& link : reason.chain.links)
        page.rows.push_back(StepRow(link, lines));

    const std::vector<EntryReaching> entries = EntryPointsReaching(reach, object);
    std::vector<std::string> names;
    for (const EntryReaching& entry : entries)
        if (names.size() < kMostNamed)
            names.push_back(Utf8Path(*entry.entry->object) + (entry.isCertain ? "" : " (?)"));
    page.foot.push_back(Listed("Entry points that reach it", entries.size(), names));
    const std::vector<const CodeObject*> dying = DiesWith(reach, object);
    names.clear();
    for (const CodeObject* one : dying)
        if (names.size() < kMostNamed)
            names.push_back(Utf8Path(*one));
    page.foot.push_back(Listed("Would die with it", dying.size(), names));
    return page;
}

ReachPage PathsPage(const Links& links, const CodeObject& from, const CodeObject& to) {
    ReachPage page;
    page.columns = {"path", "certain", "from", "link", "to", "place"};
    LineNumbers lines;
    const std::vector<ReachPath> paths = PathsBetween(links, from, to);
    for (std::size_t nr = 0; nr < paths.size(); ++nr)
        for (const Link& link : paths[nr].links) {
            std::vector<std::string> row{std::to_string(nr + 1), paths[nr].IsCertain() ? "certain" : "possible"};
            std::ranges::move(StepRow(link, lines), std::back_inserter(row));
            page.rows.push_back(std::move(row));
        }
    if (paths.empty())
        page.head.push_back("No path leads from " + Utf8Path(from) + " to " + Utf8Path(to) + ".");
    return page;
}

ReachPage ImpactPage(const Reach& reach, const CodeObject& object) {
    ReachPage page;
    page.columns = {"certain", "distance", "kind", "object", "place", "entry point"};
    LineNumbers lines;
    const Impact impact = ImpactOf(reach, object);
    const auto add = [&](const Impact::Part& part, const std::string& certainty) {
        for (const Dependent& dependent : part.objects) {
            const EntryPoint* const entry = reach.EntryPointAt(*dependent.object);
            page.rows.push_back({certainty, std::to_string(dependent.distance),
                                 std::string(KindWord(*dependent.object)), Utf8Path(*dependent.object),
                                 PlaceOf(dependent.link, lines), entry ? TextOf(entry->kind) : std::string()});
        }
        const auto forms = std::ranges::count(part.modules, ModuleKind::Form, &clsModul::ModulTyp);
        page.foot.push_back(certainty + ": " + std::to_string(part.objects.size()) + " objects in " +
                            std::to_string(part.modules.size()) + " modules, of these " + std::to_string(forms) +
                            " forms; " + std::to_string(part.entries.size()) + " entry points");
    };
    add(impact.certain, "certain");
    add(impact.possible, "possible");
    return page;
}

ReachPage EntryPointsPage(const Reach& reach) {
    ReachPage page;
    page.columns = {"object", "kind", "certain", "place"};
    LineNumbers lines;
    for (const EntryPoint& entry : reach.EntryPoints())
        page.rows.push_back({Utf8Path(*entry.object), TextOf(entry.kind), entry.IsCertain() ? "certain" : "possible",
                             entry.modul ? PlaceOf(entry.modul, entry.pos, lines) : PlaceOf(*entry.object, lines)});
    page.foot.push_back(std::to_string(reach.EntryPoints().size()) + " entry points");
    for (const Declaration& orphan : Orphaned(reach.TheDeclared(), reach.Projekt()))
        page.foot.push_back("declared, but not in the project: " +
                            reach.Projekt().TheNames().Page().ToUtf8(orphan.codePath));
    return page;
}

std::string_view KindWord(const CodeObject& object) {
    if (object.Class() == ObjectClass::Prozedur) {
        const auto& prozedur = static_cast<const clsProzedur&>(object);
        if (prozedur.isDeclare || IsEventDeclaration(prozedur))
            return prozedur.isDeclare ? "declare" : "event";
    }
    return KindOf(object);
}
