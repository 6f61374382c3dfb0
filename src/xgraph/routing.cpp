#include "xgraph/routing.h"

#include <algorithm>
#include <cmath>

#include "model/clsModul.h"
#include "model/clsTypeLib.h"
#include "shell/settings.h"
#include "xgraph/pairs.h"
#include "xgraph/symbol.h"

namespace {

constexpr double kHalfBase = 50;  // of a wedge
constexpr double kRadians = 0.0174532925;

bool EndsInLine(const CodeObject& target) {
    return target.Class() == ObjectClass::Variable || target.Class() == ObjectClass::Enum ||
           target.Class() == ObjectClass::Type;
}

// To the nearest whole numbers, halves to the even ones.
GraphPoint Rounded(GraphPoint point) {
    return {std::nearbyint(point.x), std::nearbyint(point.y)};
}

constexpr std::int32_t Bgr(std::int32_t red, std::int32_t green, std::int32_t blue) {
    return red | green << 8 | blue << 16;
}

const CodeObject* ModuleOf(const CodeObject& object) {
    if (object.Class() == ObjectClass::Modul || object.Class() == ObjectClass::TypeLib)
        return &object;
    if (object.Modul)
        return object.Modul;
    return object.myLibrary;
}

double DistanceToLine(GraphPoint point, GraphPoint from, GraphPoint to) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length = dx * dx + dy * dy;
    const double along = length == 0 ? 0 : ((point.x - from.x) * dx + (point.y - from.y) * dy) / length;
    const double part = std::clamp(along, 0.0, 1.0);
    return std::hypot(point.x - from.x - part * dx, point.y - from.y - part * dy);
}

// On which side of a line a point is, by the sign.
double SideOf(GraphPoint point, GraphPoint from, GraphPoint to) {
    return (to.x - from.x) * (point.y - from.y) - (to.y - from.y) * (point.x - from.x);
}

bool IsInside(GraphPoint point, const std::array<GraphPoint, 3>& corners) {
    const double sides[] = {SideOf(point, corners[0], corners[1]), SideOf(point, corners[1], corners[2]),
                            SideOf(point, corners[2], corners[0])};
    const auto [least, most] = std::minmax_element(std::begin(sides), std::end(sides));
    return *least >= 0 || *most <= 0;
}

bool IsHit(const ConnectorRoute& route, GraphPoint point, double tolerance) {
    const std::array<GraphPoint, 3>& at = route.points;
    if (route.shape == ConnectorShape::Line)
        return DistanceToLine(point, at[0], at[1]) <= tolerance;
    return IsInside(point, at) || DistanceToLine(point, at[0], at[2]) <= tolerance ||
           DistanceToLine(point, at[1], at[2]) <= tolerance || DistanceToLine(point, at[0], at[1]) <= tolerance;
}

}  // namespace

GraphPoint GraphRotatePoint(GraphPoint P, GraphPoint Center, double Degrees) {
    const double angle = Degrees * kRadians;
    const double x = P.x - Center.x;
    const double y = P.y - Center.y;
    return {x * std::cos(angle) - y * std::sin(angle) + Center.x, x * std::sin(angle) + y * std::cos(angle) + Center.y};
}

ConnectorRoute GraphVerbindung(const ctlGraphObj& FromObj, const ctlGraphObj& ToObj) {
    const GraphPoint from = FromObj.Center();
    if (EndsInLine(*ToObj.object))
        return {ConnectorShape::Line, {from, ToObj.Center()}};
    const GraphPoint to = Rounded(ToObj.Center());
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    const double scale = length == 0 ? 0 : kHalfBase / length;
    const GraphPoint ahead{from.x + dx * scale, from.y + dy * scale};
    const GraphPoint oneSide = GraphRotatePoint(ahead, from, 90);
    const GraphPoint otherSide = GraphRotatePoint(oneSide, from, 180);
    return {ConnectorShape::Wedge, {Rounded(oneSide), Rounded(otherSide), to}};
}

bool IsInsideModule(const ctlGraphObj& FromObj, const ctlGraphObj& ToObj) {
    return ModuleOf(*FromObj.object) == ModuleOf(*ToObj.object);
}

ConnectorLook LookOf(const GraphPair& pair) {
    ConnectorLook look;
    look.isDashed = pair.IsPossible();
    if (!pair.Highlight)
        return look;
    const bool isInside = IsInsideModule(*pair.from, *pair.to);
    look.line = isInside ? ConnectorLine::Inside : ConnectorLine::Outside;
    if (pair.topType == CallType::MayBe)
        look.fill = ConnectorFill::Possible;
    else
        look.fill = isInside ? ConnectorFill::Inside : ConnectorFill::Outside;
    return look;
}

std::int32_t ColourOf(ConnectorFill fill) {
    switch (fill) {
        case ConnectorFill::Idle:
            return Bgr(230, 230, 230);
        case ConnectorFill::Possible:
            return Bgr(240, 250, 250);
        case ConnectorFill::Inside:
            return Bgr(0, 220, 220);
        case ConnectorFill::Outside:
            return Bgr(250, 150, 150);
    }
    return 0;
}

std::int32_t ColourOf(ConnectorLine line, const Settings& settings) {
    switch (line) {
        case ConnectorLine::Idle:
            return Bgr(150, 150, 150);
        case ConnectorLine::Inside:
            return settings.ColCallLocal;
        case ConnectorLine::Outside:
            return settings.ColCallOut;
    }
    return 0;
}

std::size_t PairAt(std::span<const GraphPair> pairs, GraphPoint point, double tolerance) {
    for (std::size_t nr = pairs.size(); nr-- > 0;)
        if (!pairs[nr].IsLoop() && IsHit(GraphVerbindung(*pairs[nr].from, *pairs[nr].to), point, tolerance))
            return nr;
    return kNoPair;
}
