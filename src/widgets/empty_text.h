// What a view says while it has nothing to show.
#pragma once

#include <QColor>
#include <QString>

class QAbstractScrollArea;

/// Paints the text at the top of the view's viewport. To be called while the viewport is being painted.
void PaintEmptyText(QAbstractScrollArea& view, const QColor& ground, const QString& text);
