// The colours of the diagram. On a light ground they are those that symbols and connectors have by rule; on a dark one
// they keep their hue and their contrast.
#pragma once

#include <QColor>
#include <QPalette>

#include "xgraph/routing.h"

struct Settings;

struct GraphColours {
    QColor ground;
    QColor name, modul;                                  // captions
    QColor selectedGround, selectedName, selectedModul;  // of a selected symbol
    QColor frame;     // dotted: around a selected symbol, while dragging, of the rubber band
    QColor mark;      // around the current symbol
    QColor fills[4];  // by ConnectorFill
    QColor lines[3];  // by ConnectorLine
    [[nodiscard]] const QColor& Of(ConnectorFill fill) const { return fills[static_cast<int>(fill)]; }
    [[nodiscard]] const QColor& Of(ConnectorLine line) const { return lines[static_cast<int>(line)]; }
};
[[nodiscard]] GraphColours ColoursOf(const QPalette& palette, const Settings& settings);
