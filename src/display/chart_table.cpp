#include "display/chart_table.h"

#include <algorithm>

#include "display/baum.h"
#include "display/shown_text.h"
#include "findings/module_statistics.h"
#include "model/clsProjekt.h"
#include "shell/clsText.h"
#include "shell/csv.h"
#include "shell/words.h"

namespace {

struct Bars {
    std::vector<int> values;
    int sortedBy = 0;
};

Bars BarsOf(ChartType type, const ModuleStatistics& of) {
    switch (type) {
        case ChartType::CodeLines:
            return {{of.code, of.comment, of.blank}, of.code};
        case ChartType::ProcsVars:
            return {{of.procedures, of.variables}, of.procedures};
        case ChartType::DependenciesExtern:
            return {{of.calledBy, of.calls}, of.procedures};
        case ChartType::DeadCode:
            break;
    }
    const ProcedureLife life = of.life.value_or(ProcedureLife());
    return {{life.dead, life.undead, life.living}, life.deadLines};
}

std::vector<Text> SeriesOf(ChartType type) {
    switch (type) {
        case ChartType::CodeLines:
            return {Text::Code, Text::Comment, Text::BlankShort};
        case ChartType::ProcsVars:
            return {Text::Procedures, Text::Variables};
        case ChartType::DependenciesExtern:
            return {Text::CalledBy, Text::Calls};
        case ChartType::DeadCode:
            break;
    }
    return {Text::DeadProcedures, Text::UndeadProcedures, Text::LivingProcedures};
}

// A file that is not there has not said the name of its module.
std::string NameShown(const clsModul& modul) {
    return modul.myNameOrg().empty() ? Utf8Of(nullptr, modMain::DirOrFileName(modul.FullPath, 0))
                                     : Utf8Of(&modul, modul.myNameOrg());
}

std::size_t Characters(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::ranges::count_if(utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace

Text NameOf(ChartType type) {
    constexpr std::array kNames{Text::CodeLines, Text::ProceduresAndVariables, Text::Dependencies, Text::DeadCode};
    return kNames[static_cast<std::size_t>(type)];
}

bool NeedsCalls(ChartType type) {
    return type == ChartType::DependenciesExtern || type == ChartType::DeadCode;
}

int ChartTable::RowOf(const std::string& key) const {
    const auto row = std::ranges::find(rows, key, &Row::key);
    return row == rows.end() ? -1 : static_cast<int>(row - rows.begin());
}

ChartTable Anzeigen_Chart(const clsProjekt& projekt, ChartType type, const std::vector<const clsModul*>& modules) {
    ChartTable table;
    table.type = type;
    for (const Text label : SeriesOf(type))
        table.series.push_back(Utf8TextNr(label));
    if (NeedsCalls(type) && !projekt.callsKnown)
        return table;
    std::vector<std::pair<int, ChartTable::Row>> rows;
    for (const clsModul* modul : modules) {
        Bars bars = BarsOf(type, StatisticsOf(projekt, *modul));
        rows.push_back({bars.sortedBy, {modul->CodePath(), NameShown(*modul), std::move(bars.values)}});
    }
    std::ranges::stable_sort(rows, std::greater<>(), [](const auto& row) { return row.first; });
    for (auto& [size, row] : rows)
        table.rows.push_back(std::move(row));
    return table;
}

std::vector<const clsModul*> CheckedModules(const clsProjekt& projekt, const Baum& tree) {
    std::vector<const clsModul*> checked;
    for (const clsModul* modul : projekt.ModulesInReportOrder())
        if (const BaumNode* const node = tree.Item(modul->CodePath()); node && node->Checked())
            checked.push_back(modul);
    return checked;
}

std::string ChartTip(const ChartTable& table, int row) {
    const ChartTable::Row& shown = table.rows[static_cast<std::size_t>(row)];
    std::string text = shown.name + " (";
    for (std::size_t i = 0; i < shown.values.size(); ++i)
        text += (i > 0 ? ", " : "") + table.series[i] + " = " + std::to_string(shown.values[i]);
    return text + ")";
}

std::vector<std::string> LabelsOf(const ChartTable& table, int row) {
    std::vector<std::string> labels = table.series;
    if (table.type != ChartType::DependenciesExtern)
        for (std::size_t i = 0; i < labels.size(); ++i)
            labels[i] += " (" + std::to_string(table.rows[static_cast<std::size_t>(row)].values[i]) + ")";
    return labels;
}

std::string ChartAsCsv(const ChartTable& table) {
    std::string text = CsvCell(Utf8TextNr(Text::OneModule));
    for (const std::string& label : table.series)
        text += "," + CsvCell(label);
    text += "\r\n";
    for (const ChartTable::Row& row : table.rows) {
        text += CsvCell(row.name);
        for (const int value : row.values)
            text += "," + std::to_string(value);
        text += "\r\n";
    }
    return text;
}

std::string ChartAsText(const ChartTable& table) {
    std::size_t nameWidth = 0;
    for (const ChartTable::Row& row : table.rows)
        nameWidth = std::max(nameWidth, Characters(row.name));
    std::string text;
    const auto right = [&text](std::string_view cell, std::size_t width) {
        text.append("  ").append(width - std::min(width, Characters(cell)), ' ').append(cell);
    };
    const auto widthOf = [&table](std::size_t column) {
        return std::max<std::size_t>(Characters(table.series[column]), 9);
    };
    text.append(nameWidth, ' ');
    for (std::size_t i = 0; i < table.series.size(); ++i)
        right(table.series[i], widthOf(i));
    text += "\n";
    for (const ChartTable::Row& row : table.rows) {
        text.append(row.name).append(nameWidth - Characters(row.name), ' ');
        for (std::size_t i = 0; i < row.values.size(); ++i)
            right(std::to_string(row.values[i]), widthOf(i));
        text += "\n";
    }
    return text;
}
