// The B-spline through a spline's fit points, as DXF readers expect it next
// to the fit data: control points and a clamped knot vector of the
// interpolating curve of the spline's degree (chord-length parameters,
// averaged knots).
#pragma once

#include <vector>

#include "drawing/geom_types.h"

namespace vorn::host {

struct SplineControl {
    int degree = 1;
    std::vector<double> knots;
    std::vector<Point3d> points;
};

// The interpolating B-spline of `degree` (lowered to the number of points
// less one) through the fit points; none for fewer than 2 points.
SplineControl interpolateSpline(const std::vector<Point3d>& fitPoints, int degree);

}  // namespace vorn::host
