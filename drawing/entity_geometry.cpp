#include "drawing/entity_geometry.h"

#include <cmath>
#include <type_traits>

#include "drawing/database_port.h"
#include "drawing/platform.h"
#include "drawing/polygon.h"

using vorn::Entity;
using vorn::LwPolyline;
using vorn::ObjectId;
using vorn::Point2d;
using vorn::Point3d;

namespace {

vorn::DatabasePort* database() { return vorn::platform().database; }

bool readEntity(ObjectId id, Entity& out)
{
    return database() && database()->readEntity(id, out) == vorn::eOk;
}

void readLwPolyline(const LwPolyline& pl, std::vector<Point3d>& out)
{
    for (const vorn::PolyVertex& v : pl.vertices)
        out.push_back({v.point.x, v.point.y, pl.elevation});
}

// Vertices of a heavy polyline whose type is not a spline control vertex.
template <class Polyline>
void readHeavyPolyline(const Polyline& pl, std::vector<Point3d>& out)
{
    for (const auto& v : pl.vertices)
        if (v.type != 1)
            out.push_back(v.position);
}

template <class Polyline>
void readPolyline(const Polyline& pl, std::vector<Point3d>& out)
{
    if constexpr (std::is_same_v<Polyline, LwPolyline>)
        readLwPolyline(pl, out);
    else
        readHeavyPolyline(pl, out);
    if (pl.closed && !out.empty())
        out.push_back(out.front());
}

std::vector<Point2d> planVertices(const LwPolyline& pl)
{
    std::vector<Point2d> out;
    for (const vorn::PolyVertex& v : pl.vertices)
        out.push_back(v.point);
    return out;
}

// A lightweight polyline through the points: bulges 0, widths -1, elevation 0.
Entity polylineThrough(const std::vector<Point2d>& points, bool closed)
{
    LwPolyline pl;
    for (const Point2d& p : points)
        pl.vertices.push_back({p, 0.0, -1.0, -1.0});
    pl.closed = closed;
    return Entity{{}, pl};
}

// The source's vertices in plan as the temporary polyline that is offset;
// false for a distance of no length and below 2 points.
bool offsetSource(ObjectId id, double distance, std::vector<Point2d>& points, Entity& polyline)
{
    if (std::fabs(distance) < vorn::kOverlapTolerance || getEntityVertices2d(id, points) < 2)
        return false;
    polyline = polylineThrough(points, false);
    return true;
}

std::vector<Entity> offsetCurves(const Entity& polyline, double distance)
{
    std::vector<Entity> curves;
    if (database()->getOffsetCurves(polyline, distance, curves) != vorn::eOk)
        curves.clear();
    return curves;
}

bool isPolylineOfThree(const Entity& e)
{
    const LwPolyline* pl = e.as<LwPolyline>();
    return pl && pl->vertices.size() >= 3;
}

// The strip from one offset curve on each side: A in order, then B
// backwards, each closed ring repeating its first vertex at the seam.
bool joinSides(const Entity& a, const Entity& b, Entity& out)
{
    std::vector<Point2d> points;
    if (const LwPolyline* pa = a.as<LwPolyline>()) {
        points = planVertices(*pa);
        if (pa->closed && !pa->vertices.empty())
            points.push_back(pa->vertices.front().point);
    }
    if (const LwPolyline* pb = b.as<LwPolyline>()) {
        if (pb->closed && !pb->vertices.empty())
            points.push_back(pb->vertices.front().point);
        for (auto v = pb->vertices.rbegin(); v != pb->vertices.rend(); ++v)
            points.push_back(v->point);
    }
    if (points.size() < 3)
        return false;
    out = polylineThrough(points, true);
    return true;
}

// The one offset curve that came of a side, closed, if it is a polyline of
// at least 3 vertices.
bool singleSide(Entity& curve, Entity& out)
{
    if (!isPolylineOfThree(curve))
        return false;
    curve.as<LwPolyline>()->closed = true;
    out = curve;
    return true;
}

}  // namespace

int getEntityVertices(const Entity& entity, std::vector<Point3d>& pointsOut)
{
    pointsOut.clear();
    if (const auto* pl = entity.as<LwPolyline>())
        readPolyline(*pl, pointsOut);
    else if (const auto* p2 = entity.as<vorn::Polyline2d>())
        readPolyline(*p2, pointsOut);
    else if (const auto* p3 = entity.as<vorn::Polyline3d>())
        readPolyline(*p3, pointsOut);
    else if (const auto* line = entity.as<vorn::Line>())
        pointsOut = {line->start, line->end};
    else if (const auto* point = entity.as<vorn::PointEntity>())
        pointsOut = {point->position};
    return static_cast<int>(pointsOut.size());
}

int getEntityVertices(ObjectId id, std::vector<Point3d>& pointsOut)
{
    pointsOut.clear();
    Entity entity;
    if (!readEntity(id, entity))
        return 0;
    return getEntityVertices(entity, pointsOut);
}

int getEntityVertices2d(ObjectId id, std::vector<Point2d>& pointsOut)
{
    pointsOut.clear();
    std::vector<Point3d> points;
    getEntityVertices(id, points);
    for (const Point3d& p : points)
        pointsOut.push_back(p.to2d());
    return static_cast<int>(pointsOut.size());
}

double clipPolygonArea(const LwPolyline& clip, const LwPolyline& polygon)
{
    if (clip.vertices.size() < 3 || polygon.vertices.size() < 3)
        return 0.0;
    std::vector<Point2d> result;
    return clipPolygonArea(planVertices(clip), planVertices(polygon), result);
}

double curveArea(ObjectId id)
{
    Entity entity;
    double area = 0.0;
    if (!readEntity(id, entity) || !vorn::isCurve(entity.kind()))
        return -1.0;
    if (database()->getArea(entity, area) != vorn::eOk)
        return -1.0;
    return area;
}

double makeRegionFromCurve(const Entity& curve, Entity& regionOut)
{
    std::vector<Entity> regions;
    double area = 0.0;
    if (!database() || database()->createRegionsFromCurves({curve}, regions) != vorn::eOk || regions.size() != 1)
        return -1.0;
    if (database()->getArea(regions.front(), area) != vorn::eOk)
        return -1.0;
    regionOut = regions.front();
    return area;
}

double regionOverlapArea(ObjectId idA, ObjectId idB)
{
    Entity curveA, curveB, regionA, regionB;
    if (!readEntity(idA, curveA) || !readEntity(idB, curveB))
        return -1.0;
    double areaBefore = makeRegionFromCurve(curveA, regionA);
    if (areaBefore < 0.0 || makeRegionFromCurve(curveB, regionB) < 0.0)
        return -1.0;
    if (database()->booleanOper(regionA, vorn::BoolOperType::Subtract, regionB) != vorn::eOk)
        return -1.0;
    // A region that B covered wholly may have no area left to read.
    double areaAfter = 0.0;
    if (database()->getArea(regionA, areaAfter) != vorn::eOk)
        areaAfter = 0.0;
    return areaBefore - areaAfter;
}

bool curvesIntersect(const Entity& a, const Entity& b)
{
    std::vector<Point3d> points;
    return database() && database()->intersectInPlan(a, b, points) == vorn::eOk && !points.empty();
}

bool curvesIntersect(ObjectId a, ObjectId b)
{
    Entity ea, eb;
    return readEntity(a, ea) && readEntity(b, eb) && curvesIntersect(ea, eb);
}

bool isPolylineEntity(const Entity& entity)
{
    vorn::EntityKind kind = entity.kind();
    return kind == vorn::EntityKind::LwPolyline || kind == vorn::EntityKind::Polyline2d ||
           kind == vorn::EntityKind::Polyline3d;
}

bool isClosedCurve(ObjectId id)
{
    Entity entity;
    return readEntity(id, entity) && vorn::isCurve(entity.kind()) && database()->isClosed(entity);
}

bool makeClosedPolylineFromEntity(ObjectId id, Entity& polylineOut)
{
    std::vector<Point2d> points;
    if (getEntityVertices2d(id, points) < 2)
        return false;
    Entity copy = polylineThrough(points, points.size() > 2);
    double area = 0.0;
    if (database()->getArea(copy, area) != vorn::eOk || area <= vorn::kOverlapTolerance)
        return false;
    polylineOut = copy;
    return true;
}

bool makeOffsetBoundary(ObjectId id, double distance, Entity& polylineOut)
{
    std::vector<Point2d> points;
    Entity source;
    if (!offsetSource(id, distance, points, source))
        return false;
    if (isClockwise(points))
        distance = -distance;
    std::vector<Entity> curves = offsetCurves(source, distance);
    if (curves.size() != 1 || !isPolylineOfThree(curves.front()))
        return false;
    polylineOut = curves.front();
    return true;
}

bool makeCenterLineBoundary(ObjectId id, double distance, Entity& polylineOut)
{
    std::vector<Point2d> points;
    Entity source;
    if (!offsetSource(id, distance, points, source))
        return false;
    std::vector<Entity> sideA = offsetCurves(source, distance);
    std::vector<Entity> sideB = offsetCurves(source, -distance);
    if (sideA.size() == 1 && sideB.size() == 1)
        return joinSides(sideA.front(), sideB.front(), polylineOut);
    if (sideA.size() == 1 && sideB.empty())
        return singleSide(sideA.front(), polylineOut);
    if (sideA.empty() && sideB.size() == 1)
        return singleSide(sideB.front(), polylineOut);
    return false;
}
