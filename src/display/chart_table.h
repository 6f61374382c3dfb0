// The charts that compare modules, as tables: one row per module, sorted, with the values of each series.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "shell/text_numbers.h"

class Baum;
class clsModul;
class clsProjekt;

enum class ChartType : std::uint8_t { CodeLines, ProcsVars, DependenciesExtern, DeadCode };
inline constexpr std::array kChartTypes{ChartType::CodeLines, ChartType::ProcsVars, ChartType::DependenciesExtern,
                                        ChartType::DeadCode};
/// The name of a chart in the list of charts.
[[nodiscard]] Text NameOf(ChartType type);
/// Whether the numbers of a chart come from the calls, so that there are none before they are read.
[[nodiscard]] bool NeedsCalls(ChartType type);

struct ChartTable {
    struct Row {
        std::string key;   // of the module's node in the project tree
        std::string name;  // UTF-8, as spelled
        std::vector<int> values;
        bool operator==(const Row&) const = default;
    };
    ChartType type = ChartType::CodeLines;
    std::vector<std::string> series;  // labels, UTF-8
    std::vector<Row> rows;
    bool operator==(const ChartTable&) const = default;

    /// The row of a module by its key, from 0; -1 if it takes no part.
    [[nodiscard]] int RowOf(const std::string& key) const;
};

/// Biggest module first; equal ones in the order of `modules`. The chart of dead code is sorted by the lines of dead
/// procedures and has no rows before the calls are read.
[[nodiscard]] ChartTable Anzeigen_Chart(const clsProjekt& projekt, ChartType type,
                                        const std::vector<const clsModul*>& modules);
/// The modules whose boxes are checked in the project tree, in the order of the reports.
[[nodiscard]] std::vector<const clsModul*> CheckedModules(const clsProjekt& projekt, const Baum& tree);

/// "clsHire (Code = 12, Comment = 3, Blank = 0)".
[[nodiscard]] std::string ChartTip(const ChartTable& table, int row);
/// The labels of the series with the values of the chosen row, "Code (12)". Those of the dependencies stay as they are.
[[nodiscard]] std::vector<std::string> LabelsOf(const ChartTable& table, int row);

/// With a heading, comma-separated, UTF-8, with CR LF line ends.
[[nodiscard]] std::string ChartAsCsv(const ChartTable& table);
/// Columns aligned by blanks: names at the left, numbers at the right, UTF-8, LF.
[[nodiscard]] std::string ChartAsText(const ChartTable& table);
