// Draws a part of a chart's table: a group of bars for each module, the names below, the legend at the right.
#pragma once

#include <QFont>
#include <QPalette>

#include "display/chart_table.h"

class QChart;

struct ChartPart {
    int first = 0;  // row
    int count = 0;
    double groupWidth = 0;  // pixels between two modules
    int marked = -1;        // row whose values are in the legend; -1 for none
};

/// The colours of the series, lighter or darker where they would vanish on the ground.
[[nodiscard]] QColor SeriesColour(ChartType type, int series, const QColor& ground);

/// Replaces what the chart shows. The scale is that of the whole table, so that it stays while the user scrolls.
/// Series differ by shade, border and hatching as well as by colour.
void DrawChart(QChart& chart, const ChartTable& table, const ChartPart& part, const QPalette& palette,
               const QFont& font);
/// Writes the labels of the series again: those of the row marked have its values.
void LabelSeries(QChart& chart, const ChartTable& table, int marked);
