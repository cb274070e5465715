// Regions and offsets of the stand-alone host, over Boost.Geometry:
// regions from closed curves, region booleans, areas, offset curves of
// lightweight polylines.
#pragma once

#include <vector>

#include "drawing/database_port.h"

namespace vorn::host {

// One region entity for each closed curve (see DatabasePort).
ErrorStatus regionsFromCurves(const std::vector<Entity>& curves, std::vector<Entity>& regionsOut);

// a = a op b; b is emptied.
ErrorStatus regionBoolean(Region& a, BoolOperType op, Region& b);

double regionArea(const Region& region);

// Area of a hatch: loops nested an even number of times count, the others
// are holes.
double hatchArea(const Hatch& hatch);

// Offset curves of a lightweight polyline (see DatabasePort).
ErrorStatus offsetPolyline(const Entity& polyline, double distance, std::vector<Entity>& out);

}  // namespace vorn::host
