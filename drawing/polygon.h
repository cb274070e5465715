// Operations on polygons given as point lists: point in polygon, clipped
// overlap area, orientation, convex hull and plan distance. A polygon read
// from a closed entity repeats its first point at the end; each operation
// tests closure itself where it matters.
#pragma once

#include <vector>

#include "drawing/geom_types.h"
#include "drawing/plane.h"

namespace vorn {

// Overlap tolerance: squared drawing units for areas, drawing units for lengths.
inline constexpr double kOverlapTolerance = 1e-10;

}  // namespace vorn

// True when `point` lies on an edge of `polygon`, or when a ray from it along
// +x crosses the outline an odd number of times: every edge the ray meets
// counts (both edges at a vertex the ray passes through), and an edge lying
// along the ray is judged by the turns at the vertices after it. A list of
// fewer than 3 points contains nothing.
bool pointInPolygon(const std::vector<vorn::Point2d>& polygon, const vorn::Point2d& point);

// Area of `polygon` inside the convex polygon `clip`, the clipped outline in
// `resultOut`. Either of fewer than 3 points gives 0.
double clipPolygonArea(const std::vector<vorn::Point2d>& clip,
                       const std::vector<vorn::Point2d>& polygon,
                       std::vector<vorn::Point2d>& resultOut);
// clipPolygonArea of one polygon by clip after clip (the cells of a grid):
// the same arithmetic and so the same numbers, but without allocating once
// its buffers have grown.
class PolygonClipArea {
public:
    // The polygon is copied and closed by its first point, as
    // clipPolygonArea closes its copy.
    void setPolygon(const std::vector<vorn::Point2d>& polygon);
    // Area of the polygon inside the convex `clip`.
    double areaInside(const std::vector<vorn::Point2d>& clip);

private:
    std::vector<vorn::Point2d> subject_, boundary_, result_, scratch_;
    vorn::ClipBoundary2d clipper_;
};

// The same area without keeping the outline.
double overlapArea(const std::vector<vorn::Point2d>& clip, const std::vector<vorn::Point2d>& polygon);

// Counts left and right turns; more right turns than left ones is clockwise.
bool isClockwise(const std::vector<vorn::Point2d>& polygon);

// Graham scan: sorts `points` around the lowest point in place and leaves
// the hull, counter-clockwise from that point, in `hullOut`.
void convexHull(std::vector<vorn::Point2d>& points, std::vector<vorn::Point2d>& hullOut);

// Distance in plan.
double planarDistance(const vorn::Point2d& a, const vorn::Point2d& b);
double planarDistance(const vorn::Point3d& a, const vorn::Point3d& b);
