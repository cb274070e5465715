#include "drawing/plane.h"

#include <algorithm>
#include <cmath>

namespace vorn {

namespace {

Point2d minus(const Point2d& a, const Point2d& b) { return {a.x - b.x, a.y - b.y}; }
double dot(const Point2d& u, const Point2d& v) { return u.x * v.x + u.y * v.y; }
double cross(const Point2d& u, const Point2d& v) { return u.x * v.y - u.y * v.x; }
double length(const Point2d& v) { return std::hypot(v.x, v.y); }

// Twice the signed area, positive for a counter-clockwise outline.
double doubleSignedArea(const std::vector<Point2d>& pts)
{
    double sum = 0.0;
    for (size_t i = 0; i < pts.size(); ++i)
        sum += cross(pts[i], pts[(i + 1) % pts.size()]);
    return sum;
}

// Point2d::isEqualTo without the square root where one coordinate alone
// tells the points apart (the distance is never below either difference):
// the same answer, and the cell loops ask it for every clipped cell.
bool samePoint(const Point2d& a, const Point2d& b, double tol)
{
    if (std::fabs(a.x - b.x) > tol || std::fabs(a.y - b.y) > tol)
        return false;
    return a.isEqualTo(b, tol);
}

// The points without neighbours that repeat one another (the last point is
// the first's neighbour), into `out`.
void withoutRepeats(const std::vector<Point2d>& pts, std::vector<Point2d>& out, double tol)
{
    out.clear();
    for (const Point2d& p : pts)
        if (out.empty() || !samePoint(out.back(), p, tol))
            out.push_back(p);
    while (out.size() > 1 && samePoint(out.front(), out.back(), tol))
        out.pop_back();
}

// True when all points lie within `tol` of one line (or of one point).
bool hasNoWidth(const std::vector<Point2d>& pts, double tol)
{
    if (pts.empty())
        return true;
    size_t far = 0;
    double farDistance = 0.0;
    for (size_t i = 1; i < pts.size(); ++i) {
        double d = length(minus(pts[i], pts[0]));
        if (d > farDistance) {
            farDistance = d;
            far = i;
        }
    }
    if (farDistance <= tol)
        return true;
    Point2d axis = minus(pts[far], pts[0]);
    for (const Point2d& p : pts)
        if (std::fabs(cross(axis, minus(p, pts[0]))) / farDistance > tol)
            return false;
    return true;
}

// One Sutherland-Hodgman pass: keeps what lies on the inner side of the
// edge (a point within the tolerance outside counts as inside).
void clipByEdge(const std::vector<Point2d>& in, std::vector<Point2d>& out, const ClipEdge& edge)
{
    out.clear();
    const Point2d* s = &in.back();
    double ds = edge.distance(*s);
    for (const Point2d& e : in) {
        double de = edge.distance(e);
        bool sInside = ds >= -kPointTolerance;
        bool eInside = de >= -kPointTolerance;
        if (sInside != eInside) {
            double t = ds / (ds - de);
            out.push_back({s->x + t * (e.x - s->x), s->y + t * (e.y - s->y)});
        }
        if (eInside)
            out.push_back(e);
        s = &e;
        ds = de;
    }
}

}  // namespace

bool Segment2d::isOn(const Point2d& p, double tol) const
{
    Point2d edge = minus(end, start);
    double len2 = dot(edge, edge);
    double t = len2 > 0.0 ? dot(minus(p, start), edge) / len2 : 0.0;
    t = t < 0.0 ? 0.0 : (t > 1.0 ? 1.0 : t);
    Point2d nearest{start.x + t * edge.x, start.y + t * edge.y};
    return p.isEqualTo(nearest, tol);
}

bool Ray2d::isOn(const Point2d& p, double tol) const
{
    double len = length(direction);
    Point2d rel = minus(p, origin);
    double along = dot(rel, direction) / len;
    if (along < 0.0)
        return length(rel) <= tol;
    return std::fabs(cross(direction, rel)) / len <= tol;
}

bool Ray2d::intersectWith(const Segment2d& segment, double tol) const
{
    Point2d edge = minus(segment.end, segment.start);
    double edgeLength = length(edge);
    double rayLength = length(direction);
    if (edgeLength <= tol)
        return false;
    double denom = cross(direction, edge);
    if (std::fabs(denom) / (edgeLength * rayLength) <= tol)
        return false;
    Point2d rel = minus(segment.start, origin);
    double alongRay = cross(rel, edge) / denom;      // in units of direction
    double alongEdge = cross(rel, direction) / denom;  // in units of edge
    return alongRay * rayLength >= -tol && alongEdge * edgeLength >= -tol &&
           (alongEdge - 1.0) * edgeLength <= tol;
}

double ClipEdge::distance(const Point2d& p) const
{
    return (p.x - origin.x) * normal.x + (p.y - origin.y) * normal.y;
}

bool ClipBoundary2d::set(const std::vector<Point2d>& boundary)
{
    edges_.clear();
    std::vector<Point2d>& corners = corners_;
    withoutRepeats(boundary, corners, kPointTolerance);
    if (corners.size() < 3 || hasNoWidth(corners, kPointTolerance))
        return false;
    if (doubleSignedArea(corners) < 0.0)
        std::reverse(corners.begin(), corners.end());
    for (size_t i = 0; i < corners.size(); ++i) {
        Point2d along = minus(corners[(i + 1) % corners.size()], corners[i]);
        double len = length(along);
        edges_.push_back({corners[i], {-along.y / len, along.x / len}});
    }
    return true;
}

std::vector<Point2d> ClipBoundary2d::clipPolygon(const std::vector<Point2d>& polygon) const
{
    std::vector<Point2d> result;
    std::vector<Point2d> scratch;
    clipPolygonInto(polygon, result, scratch);
    return result;
}

void ClipBoundary2d::clipPolygonInto(const std::vector<Point2d>& polygon, std::vector<Point2d>& result,
                                     std::vector<Point2d>& scratch) const
{
    result.clear();
    if (edges_.empty() || polygon.empty())
        return;
    clipByEdge(polygon, result, edges_[0]);
    for (size_t i = 1; i < edges_.size() && !result.empty(); ++i) {
        clipByEdge(result, scratch, edges_[i]);
        result.swap(scratch);
    }
    withoutRepeats(result, scratch, kPointTolerance);
    if (hasNoWidth(scratch, kPointTolerance))
        result.clear();
}

}  // namespace vorn
