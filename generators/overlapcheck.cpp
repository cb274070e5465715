#include "generators/overlapcheck.h"

#include <algorithm>

#include "drawing/polygon.h"

using vorn::Point2d;

namespace {

struct PlanBox {
    double minX = 1e300, minY = 1e300, maxX = -1e300, maxY = -1e300;

    explicit PlanBox(const std::vector<Point2d>& points)
    {
        for (const Point2d& p : points) {
            minX = std::min(minX, p.x);
            minY = std::min(minY, p.y);
            maxX = std::max(maxX, p.x);
            maxY = std::max(maxY, p.y);
        }
    }
    // Apart by more than the overlap tolerance.
    bool apartFrom(const PlanBox& o) const
    {
        const double tol = vorn::kOverlapTolerance;
        return maxX < o.minX - tol || o.maxX < minX - tol || maxY < o.minY - tol || o.maxY < minY - tol;
    }
};

}  // namespace

void forEachOverlap(const std::vector<std::vector<Point2d>>& polygons, double limit,
                    const std::function<void(size_t, size_t)>& found)
{
    std::vector<PlanBox> boxes;
    boxes.reserve(polygons.size());
    for (const auto& polygon : polygons) boxes.emplace_back(polygon);
    PolygonClipArea clip;
    std::vector<Point2d> points, hull;
    for (size_t a = 0; a + 1 < polygons.size(); ++a) {
        points = polygons[a];
        convexHull(points, hull);
        for (size_t b = a + 1; b < polygons.size(); ++b) {
            if (boxes[a].apartFrom(boxes[b])) continue;
            clip.setPolygon(polygons[b]);
            if (clip.areaInside(hull) > limit) found(a, b);
        }
    }
}
