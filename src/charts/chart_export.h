// A chart as a picture, with all its modules, on white ground whatever the window's colours are.
#pragma once

#include <QFont>
#include <QImage>
#include <QSize>
#include <QString>

#include "charts/chart_drawing.h"

/// @param size   in pixels
/// @param ratio  pixels of the picture for each of them
[[nodiscard]] QImage ChartPicture(const ChartTable& table, int marked, QSize size, const QFont& font, double ratio);
/// Writes a picture to a file of that name: as SVG or PNG, by its suffix. An existing file is replaced as a whole.
/// Returns false if that fails.
[[nodiscard]] bool SaveChartPicture(const ChartTable& table, int marked, QSize size, const QFont& font,
                                    const QString& path);
