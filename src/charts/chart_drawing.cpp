#include "charts/chart_drawing.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QFontMetricsF>
#include <QLegend>
#include <QValueAxis>
#include <algorithm>
#include <array>

#include "widgets/code_style.h"
#include "widgets/qt_text.h"

namespace {

constexpr double kLongestName = 130;  // pixels
constexpr double kBarShare = 0.8;     // of the width of a group
constexpr double kNarrow = 8;         // pixels; hatches and borders of narrower groups would fill the bars
constexpr std::array kHatches{Qt::SolidPattern, Qt::SolidPattern, Qt::BDiagPattern};

QString NameShown(const QString& name, const QFontMetricsF& metrics) {
    return metrics.elidedText(name, Qt::ElideMiddle, kLongestName);
}

// The axis drops a category that it has already, which would shift all others: equal names differ by characters
// without a width.
QStringList Categories(const ChartTable& table, const ChartPart& part, const QFontMetricsF& metrics) {
    QStringList names;
    QHash<QString, int> seen;
    for (int row = part.first; row < part.first + part.count; ++row) {
        const QString name = NameShown(QString::fromStdString(table.rows[static_cast<std::size_t>(row)].name), metrics);
        names.append(name + QString(seen[name]++, QChar(0x200B)));
    }
    return names;
}

double LargestValue(const ChartTable& table) {
    int largest = 1;
    for (const ChartTable::Row& row : table.rows)
        largest = std::max(largest, *std::ranges::max_element(row.values));
    return largest;
}

void RemoveAll(QChart& chart) {
    chart.removeAllSeries();
    const QList<QAbstractAxis*> axes = chart.axes();
    for (QAbstractAxis* axis : axes) {
        chart.removeAxis(axis);
        delete axis;
    }
}

QBarSeries* Bars(const ChartTable& table, const ChartPart& part, const QPalette& palette) {
    const QColor ground = palette.color(QPalette::Base);
    auto* bars = new QBarSeries;
    bars->setBarWidth(kBarShare);
    for (int series = 0; series < static_cast<int>(table.series.size()); ++series) {
        auto* set = new QBarSet(QString());
        QList<qreal> values;
        for (int row = part.first; row < part.first + part.count; ++row)
            values.append(table.rows[static_cast<std::size_t>(row)].values[static_cast<std::size_t>(series)]);
        set->append(values);
        const QColor colour = SeriesColour(table.type, series, ground);
        // In grey print the first series is dark, the second pale with a border, the third hatched.
        const bool isNarrow = part.groupWidth < kNarrow;
        set->setBrush(QBrush(colour, isNarrow ? Qt::SolidPattern : kHatches[static_cast<std::size_t>(series)]));
        set->setPen(isNarrow ? QPen(Qt::NoPen) : QPen(Readable(colour, ground, kVisibleContrast), 1));
        bars->append(set);
    }
    return bars;
}

}  // namespace

QColor SeriesColour(ChartType type, int series, const QColor& ground) {
    using Colours = std::array<QRgb, 3>;
    constexpr Colours kLines{qRgb(0, 0, 255), qRgb(150, 200, 150), qRgb(200, 200, 200)};
    constexpr Colours kPairs{qRgb(0, 0, 255), qRgb(150, 150, 255), 0};
    constexpr Colours kLife{qRgb(200, 60, 60), qRgb(230, 150, 60), qRgb(80, 160, 80)};
    const Colours& colours = type == ChartType::CodeLines ? kLines : type == ChartType::DeadCode ? kLife : kPairs;
    const QColor colour(colours[static_cast<std::size_t>(series)]);
    return IsDark(ground) ? Readable(colour, ground, kVisibleContrast) : colour;
}

void DrawChart(QChart& chart, const ChartTable& table, const ChartPart& part, const QPalette& palette,
               const QFont& font) {
    RemoveAll(chart);
    if (part.count == 0)
        return;
    const QColor ink = palette.color(QPalette::Text);
    const QColor lines = Mixed(palette.color(QPalette::Base), ink, 0.2);
    QBarSeries* bars = Bars(table, part, palette);
    chart.addSeries(bars);

    const QFontMetricsF metrics(font);
    auto* names = new QBarCategoryAxis;
    names->append(Categories(table, part, metrics));
    names->setLabelsFont(font);
    names->setLabelsColor(ink);
    names->setGridLineVisible(false);
    names->setLinePenColor(lines);
    names->setLabelsAngle(-90);
    names->setLabelsVisible(part.groupWidth >= metrics.height());
    chart.addAxis(names, Qt::AlignBottom);
    bars->attachAxis(names);

    chart.setLocalizeNumbers(true);
    chart.setLocale(OwnLocale());
    auto* values = new QValueAxis;
    values->setRange(0, LargestValue(table));
    values->applyNiceNumbers();
    values->setLabelFormat(QStringLiteral("%.0f"));  // "%d" gives none with separators
    values->setLabelsFont(font);
    values->setLabelsColor(ink);
    values->setGridLineColor(lines);
    values->setLinePenColor(lines);
    chart.addAxis(values, Qt::AlignLeft);
    bars->attachAxis(values);

    chart.setBackgroundVisible(false);
    chart.legend()->setAlignment(Qt::AlignRight);
    chart.legend()->setFont(font);
    chart.legend()->setLabelColor(ink);
    LabelSeries(chart, table, part.marked);
}

void LabelSeries(QChart& chart, const ChartTable& table, int marked) {
    if (chart.series().isEmpty())
        return;
    const auto* bars = static_cast<QBarSeries*>(chart.series().front());
    const std::vector<std::string> labels = marked >= 0 ? LabelsOf(table, marked) : table.series;
    for (int series = 0; series < bars->count(); ++series)
        bars->barSets()[series]->setLabel(QString::fromStdString(labels[static_cast<std::size_t>(series)]));
}
