#include "canvas/graph_colours.h"

#include "widgets/code_style.h"

namespace {

// How much of a colour that is made for white paper is left on a dark ground.
double ShareOnDark(ConnectorFill fill) {
    switch (fill) {
        case ConnectorFill::Idle:
            return 0.22;
        case ConnectorFill::Possible:
            return 0.10;
        case ConnectorFill::Inside:
        case ConnectorFill::Outside:
            return 0.60;
    }
    return 1;
}

}  // namespace

GraphColours ColoursOf(const QPalette& palette, const Settings& settings) {
    GraphColours colours;
    colours.ground = palette.color(QPalette::Base);
    const bool isDark = IsDark(colours.ground);
    const QColor text = palette.color(QPalette::Text);
    colours.name = text;
    colours.modul = Dimmed(palette, colours.ground);
    colours.selectedGround = isDark ? QColor(82, 78, 32) : QColor(255, 255, 192);
    colours.selectedName = Readable(QColor(0, 0, 255), colours.selectedGround);
    colours.selectedModul = Dimmed(palette, colours.selectedGround);
    colours.frame = Mixed(colours.ground, text, 0.6);
    colours.mark = palette.color(QPalette::Highlight);
    for (const ConnectorFill fill :
         {ConnectorFill::Idle, ConnectorFill::Possible, ConnectorFill::Inside, ConnectorFill::Outside}) {
        const QColor colour = ColourFromBgr(ColourOf(fill));
        colours.fills[static_cast<int>(fill)] = isDark ? Mixed(colours.ground, colour, ShareOnDark(fill)) : colour;
    }
    for (const ConnectorLine line : {ConnectorLine::Idle, ConnectorLine::Inside, ConnectorLine::Outside}) {
        const QColor colour = ColourFromBgr(ColourOf(line, settings));
        const bool isIdle = line == ConnectorLine::Idle;
        colours.lines[static_cast<int>(line)] = !isDark  ? colour
                                                : isIdle ? Mixed(colours.ground, colour, 0.7)
                                                         : Readable(colour, colours.ground, kVisibleContrast);
    }
    return colours;
}
