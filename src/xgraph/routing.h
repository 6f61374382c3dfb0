// What a connector looks like: straight from centre to centre, a wedge that is wide at the caller and pointed at what
// it calls, or a line to variables, types and enumerations. Symbols lie above and hide the ends.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "model/clsCall.h"
#include "xgraph/geometry.h"

struct ctlGraphObj;
struct GraphPair;
struct Settings;

enum class ConnectorShape : std::uint8_t { Wedge, Line };

/// Coordinates of a wedge are whole twips. That of a symbol to itself, or of two with one centre, is a single point.
struct ConnectorRoute {
    ConnectorShape shape = ConnectorShape::Wedge;
    std::array<GraphPoint, 3> points;  // of a wedge the two base corners and the point; of a line its ends first
};
/// The route between two symbols; its shape goes by the kind of object that it ends at.
[[nodiscard]] ConnectorRoute GraphVerbindung(const ctlGraphObj& FromObj, const ctlGraphObj& ToObj);
/// `P`, turned around `Center`.
[[nodiscard]] GraphPoint GraphRotatePoint(GraphPoint P, GraphPoint Center, double Degrees);

/// What a colour means. Lines of highlighted connectors have colours of the settings.
enum class ConnectorFill : std::uint8_t { Idle, Possible, Inside, Outside };
enum class ConnectorLine : std::uint8_t { Idle, Inside, Outside };

struct ConnectorLook {
    ConnectorFill fill = ConnectorFill::Idle;
    ConnectorLine line = ConnectorLine::Idle;
    bool isDashed = false;  // a possible connector, idle or highlighted
    bool operator==(const ConnectorLook&) const = default;
};
[[nodiscard]] ConnectorLook LookOf(const GraphPair& pair);
/// Whether both ends are in the same module or library.
[[nodiscard]] bool IsInsideModule(const ctlGraphObj& FromObj, const ctlGraphObj& ToObj);

/// 32-bit BGR, as the settings have colours.
[[nodiscard]] std::int32_t ColourOf(ConnectorFill fill);
[[nodiscard]] std::int32_t ColourOf(ConnectorLine line, const Settings& settings);

inline constexpr std::size_t kNoPair = static_cast<std::size_t>(-1);
/// The pair painted last among those at a point, or kNoPair. Loops are never hit.
/// @param tolerance  distance in twips that still counts
[[nodiscard]] std::size_t PairAt(std::span<const GraphPair> pairs, GraphPoint point, double tolerance);
