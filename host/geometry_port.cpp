// The curve geometry calls of the database port, answered by the host's own
// curve and region geometry.
#include <cmath>

#include "host/db_database.h"
#include "drawing/geometry_curves.h"
#include "host/geometry_regions.h"

namespace vorn::host {

namespace {

// How far a point may lie from a curve and still count as on it.
constexpr double kOnCurve = 1e-6;

std::vector<Segment> segmentsOf(const Entity& entity)
{
    Path path;
    if (curvePath(entity, path)) return path.segments;
    std::vector<Segment> segments;
    for (const auto& chain : planOutline(entity)) {
        if (chain.size() == 1) segments.push_back({{chain[0].x, chain[0].y, 0.0}, {chain[0].x, chain[0].y, 0.0}, 0.0});
        for (std::size_t k = 1; k < chain.size(); ++k) segments.push_back({{chain[k - 1].x, chain[k - 1].y, 0.0}, {chain[k].x, chain[k].y, 0.0}, 0.0});
    }
    return segments;
}

bool boxesMeet(const Extents3d& a, const Extents3d& b)
{
    return a.minPoint.x <= b.maxPoint.x + kOnCurve && b.minPoint.x <= a.maxPoint.x + kOnCurve && a.minPoint.y <= b.maxPoint.y + kOnCurve &&
           b.minPoint.y <= a.maxPoint.y + kOnCurve;
}

Extents3d segmentBox(const Segment& s)
{
    Extents3d e;
    addSegmentExtents(s, e);
    return e;
}

}  // namespace

ErrorStatus HostDatabase::getStartPoint(const Entity& curve, Point3d& out) const
{
    Path path;
    if (!curvePath(curve, path)) return eNotApplicable;
    out = path.start;
    return eOk;
}

ErrorStatus HostDatabase::getEndPoint(const Entity& curve, Point3d& out) const
{
    Path path;
    if (!curvePath(curve, path)) return eNotApplicable;
    out = path.closed || path.segments.empty() ? path.start : path.segments.back().b;
    return eOk;
}

bool HostDatabase::isClosed(const Entity& curve) const
{
    Path path;
    return curvePath(curve, path) && path.closed;
}

ErrorStatus HostDatabase::getDistAtPoint(const Entity& curve, const Point3d& point, double& out) const
{
    Path path;
    if (!curvePath(curve, path)) return eNotApplicable;
    double before = 0.0;
    for (const Segment& s : path.segments) {
        double along = 0.0;
        Point3d q = closestInPlan(s, point.to2d(), along);
        if (q.to2d().distanceTo(point.to2d()) <= kOnCurve) {
            out = before + along;
            return eOk;
        }
        before += segmentLength(s);
    }
    if (path.segments.empty() && path.start.to2d().distanceTo(point.to2d()) <= kOnCurve) {
        out = 0.0;
        return eOk;
    }
    return eInvalidInput;
}

ErrorStatus HostDatabase::getPointAtDist(const Entity& curve, double distance, Point3d& out) const
{
    Path path;
    if (!curvePath(curve, path)) return eNotApplicable;
    if (distance < -kOnCurve || distance > pathLength(path) + kOnCurve) return eInvalidInput;
    out = path.start;
    double left = distance;
    for (const Segment& s : path.segments) {
        double length = segmentLength(s);
        out = pointAlong(s, left);
        if (left <= length) return eOk;
        left -= length;
    }
    return eOk;
}

ErrorStatus HostDatabase::getClosestPointTo(const Entity& curve, const Point3d& given, const Vector3d& direction, Point3d& out) const
{
    // Only projection along Z (closest in plan) is provided by this host.
    if (std::abs(direction.x) > 1e-12 || std::abs(direction.y) > 1e-12 || direction.z == 0.0) return eNotImplementedYet;
    Path path;
    if (!curvePath(curve, path)) return eNotApplicable;
    out = path.start;
    double best = path.start.to2d().distanceTo(given.to2d());
    for (const Segment& s : path.segments) {
        double along = 0.0;
        Point3d q = closestInPlan(s, given.to2d(), along);
        double d = q.to2d().distanceTo(given.to2d());
        if (d < best) {
            best = d;
            out = q;
        }
    }
    return eOk;
}

ErrorStatus HostDatabase::getArea(const Entity& entity, double& out) const
{
    Path path;
    if (curvePath(entity, path)) {
        out = std::abs(signedArea(path));
    } else if (const auto* region = entity.as<Region>()) {
        out = regionArea(*region);
    } else if (const auto* hatch = entity.as<Hatch>()) {
        out = hatchArea(*hatch);
    } else {
        return eNotApplicable;
    }
    return eOk;
}

ErrorStatus HostDatabase::getGeomExtents(const Entity& entity, Extents3d& out) const
{
    return entityExtents(entity, out) ? eOk : eInvalidInput;
}

ErrorStatus HostDatabase::intersectInPlan(const Entity& a, const Entity& b, std::vector<Point3d>& points) const
{
    std::vector<Segment> left = segmentsOf(a), right = segmentsOf(b);
    std::vector<Extents3d> rightBoxes;
    for (const Segment& t : right) rightBoxes.push_back(segmentBox(t));
    std::vector<Point2d> found;
    for (const Segment& s : left) {
        Extents3d box = segmentBox(s);
        for (std::size_t k = 0; k < right.size(); ++k)
            if (boxesMeet(box, rightBoxes[k])) vorn::intersectInPlan(s, right[k], found);
    }
    for (const Point2d& p : found) {
        bool seen = false;
        for (const Point3d& q : points) seen = seen || q.to2d().isEqualTo(p, kOnCurve);
        if (!seen) points.push_back({p.x, p.y, 0.0});
    }
    return eOk;
}

ErrorStatus HostDatabase::getOffsetCurves(const Entity& polyline, double distance, std::vector<Entity>& out) const
{
    return offsetPolyline(polyline, distance, out);
}

ErrorStatus HostDatabase::createRegionsFromCurves(const std::vector<Entity>& curves, std::vector<Entity>& regionsOut) const
{
    return regionsFromCurves(curves, regionsOut);
}

ErrorStatus HostDatabase::booleanOper(Entity& a, BoolOperType op, Entity& b) const
{
    auto* left = a.as<Region>();
    auto* right = b.as<Region>();
    if (left == nullptr || right == nullptr) return eNotThatKindOfClass;
    return regionBoolean(*left, op, *right);
}

}  // namespace vorn::host
