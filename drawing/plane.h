// Plane primitives the polygon operations stand on: a ray and a segment with their "is on" and intersection tests,
// and a convex polygon clipper.
#pragma once

#include <vector>

#include "drawing/geom_types.h"

namespace vorn {

// A segment from `start` to `end`.
struct Segment2d {
    Point2d start;
    Point2d end;

    bool isOn(const Point2d& p, double tol = kPointTolerance) const;
};

// A ray from `origin` along `direction` (need not be a unit vector).
struct Ray2d {
    Point2d origin;
    Point2d direction;

    bool isOn(const Point2d& p, double tol = kPointTolerance) const;
    // One point in common with the segment. A parallel or zero-length
    // segment has none, even when it lies on the ray.
    bool intersectWith(const Segment2d& segment, double tol = kPointTolerance) const;
};

// One side of a clip boundary: a corner and the unit normal pointing inward.
struct ClipEdge {
    Point2d origin;
    Point2d normal;

    // Signed distance of p from the edge's line, positive inside.
    double distance(const Point2d& p) const;
};

// A closed convex boundary that cuts polygons. The boundary may repeat its
// first point and may run either way round.
class ClipBoundary2d {
public:
    // False (and nothing will pass) when the boundary has no area.
    bool set(const std::vector<Point2d>& boundary);
    // The part of `polygon` inside the boundary, or an empty list when they
    // share no area (a polygon that only touches the boundary included).
    std::vector<Point2d> clipPolygon(const std::vector<Point2d>& polygon) const;
    // The same cut into `result`, with `scratch` as the second buffer of the
    // passes. Both keep their room from call to call, so that a loop that
    // clips cell after cell allocates nothing once they have grown.
    void clipPolygonInto(const std::vector<Point2d>& polygon, std::vector<Point2d>& result,
                         std::vector<Point2d>& scratch) const;

private:
    std::vector<ClipEdge> edges_;  // counter-clockwise
    std::vector<Point2d> corners_;  // the boundary without repeats, kept for its room
};

}  // namespace vorn
