#include "console/module_tables.h"

#include "display/chart_table.h"
#include "display/shown_text.h"
#include "findings/module_statistics.h"
#include "model/clsProjekt.h"
#include "shell/clsText.h"
#include "shell/csv.h"

namespace {

std::vector<ChartTable> AllCharts(const clsProjekt& projekt) {
    const std::vector<clsModul*> modules = projekt.ModulesInReportOrder();
    std::vector<ChartTable> charts;
    for (const ChartType type : kChartTypes)
        if (!NeedsCalls(type) || projekt.callsKnown)
            charts.push_back(Anzeigen_Chart(projekt, type, {modules.begin(), modules.end()}));
    return charts;
}

}  // namespace

std::string StatisticsText(const clsProjekt& projekt) {
    std::string text;
    for (const ChartTable& chart : AllCharts(projekt))
        text += (text.empty() ? "" : "\n") + Utf8TextNr(NameOf(chart.type)) + "\n" + ChartAsText(chart);
    return text;
}

std::string StatisticsTable(const clsProjekt& projekt) {
    std::string table = "module,kind,code,comment,blank,procedures,variables";
    table += projekt.callsKnown ? ",called by,calls,dead,undead,living,dead lines\r\n" : "\r\n";
    for (const clsModul* modul : projekt.ModulesInReportOrder()) {
        const ModuleStatistics of = StatisticsOf(projekt, *modul);
        table += CsvCell(Utf8Of(modul, modul->myNameOrg())).append(",").append(TextOf(modul->ModulTyp));
        std::vector<int> numbers{of.code, of.comment, of.blank, of.procedures, of.variables};
        if (of.life)
            numbers.insert(numbers.end(), {of.calledBy, of.calls, of.life->dead, of.life->undead, of.life->living,
                                           of.life->deadLines});
        for (const int number : numbers)
            table += "," + std::to_string(number);
        table += "\r\n";
    }
    return table;
}
