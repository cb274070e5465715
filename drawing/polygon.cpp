#include "drawing/polygon.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "drawing/plane.h"

using vorn::Point2d;
using vorn::Point3d;

namespace {

Point2d relativeTo(const Point2d& p, const Point2d& origin) { return {p.x - origin.x, p.y - origin.y}; }

// The turn measure of the vertex tests: u.y * v.x - v.y * u.x.
double turn(const Point2d& u, const Point2d& v) { return u.y * v.x - v.y * u.x; }

// A vertex that lies on the ray (an edge along the ray, which the
// intersection test does not see) counts once when the outline crosses the
// ray there: judged by the turns at the vertices around it.
bool vertexOnRayCrosses(const std::vector<Point2d>& polygon, size_t k, const Point2d& point,
                        const vorn::Ray2d& ray)
{
    size_t n = polygon.size();
    const Point2d& cAbsolute = polygon[(k + 2) % n];
    if (ray.isOn(cAbsolute))
        return false;
    Point2d a = relativeTo(polygon[k], point);
    Point2d b = relativeTo(polygon[(k + 1) % n], point);
    Point2d c = relativeTo(cAbsolute, point);
    Point2d d = relativeTo(polygon[(k + 3) % n], point);
    return turn(b, a) * turn(c, b) > 0.0 || turn(d, c) * turn(c, a) > 0.0;
}

// True when the edge lies wholly above, below or behind the point's ray
// beyond the tolerance: then it neither holds the point, nor meets the ray,
// nor ends on it, and the exact tests can be spared.
bool isBehindOrBeside(const vorn::Segment2d& edge, const Point2d& point)
{
    const double tol = vorn::kPointTolerance;
    return std::min(edge.start.y, edge.end.y) - tol > point.y || std::max(edge.start.y, edge.end.y) + tol < point.y ||
           std::max(edge.start.x, edge.end.x) + tol < point.x;
}

// Half the absolute shoelace sum over (x[i-1] - x[i+1]) * y[i].
double outlineArea(const std::vector<Point2d>& p)
{
    size_t n = p.size();
    double sum = 0.0;
    for (size_t i = 0; i < n; ++i)
        sum += (p[(i + n - 1) % n].x - p[(i + 1) % n].x) * p[i].y;
    return std::fabs(0.5 * sum);
}

// Lowest y; among points within the overlap tolerance of it, the lowest x.
size_t pivotIndex(const std::vector<Point2d>& points)
{
    size_t best = 0;
    for (size_t i = 1; i < points.size(); ++i) {
        const Point2d& p = points[i];
        const Point2d& b = points[best];
        if (p.y < b.y - vorn::kOverlapTolerance)
            best = i;
        else if (std::fabs(p.y - b.y) <= vorn::kOverlapTolerance && p.x < b.x)
            best = i;
    }
    return best;
}

// Selection sort by angle around points[0]; of two collinear points the
// nearer comes first.
void sortAroundPivot(std::vector<Point2d>& points)
{
    const Point2d pivot = points[0];
    for (size_t pos = 1; pos < points.size(); ++pos) {
        size_t best = pos;
        for (size_t k = pos + 1; k < points.size(); ++k) {
            Point2d b = relativeTo(points[best], pivot);
            Point2d c = relativeTo(points[k], pivot);
            double side = b.y * c.x - c.y * b.x;
            if (side > 0.0 || (side == 0.0 && planarDistance(pivot, points[best]) > planarDistance(pivot, points[k])))
                best = k;
        }
        std::swap(points[pos], points[best]);
    }
}

}  // namespace

bool pointInPolygon(const std::vector<Point2d>& polygon, const Point2d& point)
{
    size_t n = polygon.size();
    if (n < 3)
        return false;
    vorn::Ray2d ray{point, {1.0, 0.0}};
    int crossings = 0;
    for (size_t k = 0; k < n; ++k) {
        vorn::Segment2d edge{polygon[k], polygon[(k + 1) % n]};
        if (isBehindOrBeside(edge, point))
            continue;
        if (edge.isOn(point))
            return true;
        if (ray.intersectWith(edge))
            ++crossings;
        else if (ray.isOn(edge.end) && vertexOnRayCrosses(polygon, k, point, ray))
            ++crossings;
    }
    return crossings % 2 == 1;
}

double clipPolygonArea(const std::vector<Point2d>& clip, const std::vector<Point2d>& polygon,
                       std::vector<Point2d>& resultOut)
{
    resultOut.clear();
    if (clip.size() < 3 || polygon.size() < 3)
        return 0.0;
    std::vector<Point2d> boundary = clip;
    if (!boundary.front().isEqualTo(boundary.back()))
        boundary.push_back(boundary.front());
    std::vector<Point2d> subject = polygon;
    subject.push_back(subject.front());
    vorn::ClipBoundary2d clipper;
    clipper.set(boundary);
    resultOut = clipper.clipPolygon(subject);
    if (resultOut.size() < 3)
        return 0.0;
    return outlineArea(resultOut);
}

void PolygonClipArea::setPolygon(const std::vector<Point2d>& polygon)
{
    subject_.assign(polygon.begin(), polygon.end());
    if (!subject_.empty())
        subject_.push_back(subject_.front());
}

double PolygonClipArea::areaInside(const std::vector<Point2d>& clip)
{
    // subject_ holds the polygon plus its closing point.
    if (clip.size() < 3 || subject_.size() < 4)
        return 0.0;
    boundary_.assign(clip.begin(), clip.end());
    if (!boundary_.front().isEqualTo(boundary_.back()))
        boundary_.push_back(boundary_.front());
    clipper_.set(boundary_);
    clipper_.clipPolygonInto(subject_, result_, scratch_);
    if (result_.size() < 3)
        return 0.0;
    return outlineArea(result_);
}

double overlapArea(const std::vector<Point2d>& clip, const std::vector<Point2d>& polygon)
{
    std::vector<Point2d> result;
    return clipPolygonArea(clip, polygon, result);
}

bool isClockwise(const std::vector<Point2d>& polygon)
{
    size_t n = polygon.size();
    if (n < 3)
        return false;
    int turns = 0;
    for (size_t i = 0; i < n; ++i) {
        Point2d first = relativeTo(polygon[(i + 1) % n], polygon[i]);
        Point2d second = relativeTo(polygon[(i + 2) % n], polygon[(i + 1) % n]);
        double z = first.x * second.y - first.y * second.x;
        turns += (z > 0.0) - (z < 0.0);
    }
    return turns < 0;
}

void convexHull(std::vector<Point2d>& points, std::vector<Point2d>& hullOut)
{
    hullOut.clear();
    if (points.empty())
        return;
    std::swap(points[0], points[pivotIndex(points)]);
    sortAroundPivot(points);
    for (size_t k = 0; k < points.size() && k < 3; ++k)
        hullOut.push_back(points[k]);
    for (size_t k = 3; k < points.size(); ++k) {
        while (hullOut.size() > 1) {
            const Point2d& s = hullOut[hullOut.size() - 2];
            Point2d t = relativeTo(hullOut.back(), s);
            Point2d c = relativeTo(points[k], s);
            if (t.y * c.x - c.y * t.x < 0.0)
                break;
            hullOut.pop_back();
        }
        hullOut.push_back(points[k]);
    }
}

double planarDistance(const Point2d& a, const Point2d& b) { return std::hypot(a.x - b.x, a.y - b.y); }

double planarDistance(const Point3d& a, const Point3d& b) { return std::hypot(a.x - b.x, a.y - b.y); }
