#include "canvas/graph_colours.h"

#include <gtest/gtest.h>

#include <QApplication>

#include "shell/settings.h"
#include "widgets/code_style.h"

namespace {

TEST(GraphColours, OnADarkGroundLinesAndCaptionsCanBeSeen) {
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Text, QColor(230, 230, 230));
    const GraphColours colours = ColoursOf(palette, Settings());
    for (const ConnectorLine line : {ConnectorLine::Idle, ConnectorLine::Inside, ConnectorLine::Outside})
        EXPECT_GE(Contrast(colours.Of(line), colours.ground), 3) << static_cast<int>(line);
    EXPECT_LT(Contrast(colours.Of(ConnectorFill::Idle), colours.ground), 3) << "a fill is fainter than its outline";
    EXPECT_GE(Contrast(colours.modul, colours.ground), 4.5);
    for (const QColor& caption : {colours.selectedName, colours.selectedModul})
        EXPECT_GE(Contrast(caption, colours.selectedGround), 4.5);
}

}  // namespace
