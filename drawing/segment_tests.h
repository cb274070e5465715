// Exact predicates on plan segments, shared by the host's window and
// crossing selections and by the generators that imitate them.
#pragma once

#include <algorithm>

#include "drawing/geom_types.h"

namespace vorn {

// The cross product (a - o) x (b - o): positive when b lies left of o->a.
inline double cross(const Point2d& o, const Point2d& a, const Point2d& b)
{
    return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

// Whether p lies within the bounding box of the segment a-b.
inline bool withinSpan(const Point2d& a, const Point2d& b, const Point2d& p)
{
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y && p.y <= std::max(a.y, b.y);
}

// Whether two values lie strictly on opposite sides of zero.
inline bool straddle(double s, double t) { return (s > 0 && t < 0) || (s < 0 && t > 0); }

// Whether two closed segments share a point, touching ends included.
inline bool segmentsMeet(const Point2d& a, const Point2d& b, const Point2d& c, const Point2d& d)
{
    double d1 = cross(c, d, a), d2 = cross(c, d, b), d3 = cross(a, b, c), d4 = cross(a, b, d);
    if (straddle(d1, d2) && straddle(d3, d4)) return true;
    return (d1 == 0 && withinSpan(c, d, a)) || (d2 == 0 && withinSpan(c, d, b)) || (d3 == 0 && withinSpan(a, b, c)) ||
           (d4 == 0 && withinSpan(a, b, d));
}

}  // namespace vorn
