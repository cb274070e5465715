#include "drawing/create.h"

#include <utility>

#include "drawing/platform.h"
#include "base/textnum.h"

using vorn::Entity;
using vorn::ErrorStatus;
using vorn::ObjectId;
using vorn::Point2d;
using vorn::Point3d;

namespace {

vorn::DatabasePort& database() { return *vorn::platform().database; }

Entity newEntity(vorn::EntityShape shape, int color, const std::string& layer)
{
    Entity entity;
    entity.shape = std::move(shape);
    entity.common.colorIndex = color;
    entity.common.layer = layer.empty() ? database().currentLayer() : layer;
    return entity;
}

ErrorStatus addShape(ObjectId& idOut, vorn::EntityShape shape, int color, const std::string& layer)
{
    Entity entity = newEntity(std::move(shape), color, layer);
    return appendToModelSpace(idOut, entity);
}

vorn::Hatch solidHatch()
{
    vorn::Hatch hatch;
    hatch.normal = {0.0, 0.0, 1.0};
    hatch.elevation = 0.0;
    hatch.associative = false;
    hatch.patternName = "SOLID";
    hatch.patternType = 1;
    hatch.hatchStyle = 0;
    return hatch;
}

}  // namespace

std::vector<vorn::HatchLoop> hatchLoopsOfBoundary(const Entity& boundary)
{
    std::vector<vorn::HatchLoop> loops;
    if (const auto* polyline = boundary.as<vorn::LwPolyline>()) {
        vorn::HatchLoop loop;
        for (const vorn::PolyVertex& vertex : polyline->vertices) {
            loop.points.push_back(vertex.point);
            loop.bulges.push_back(vertex.bulge);
        }
        loops.push_back(loop);
    } else if (const auto* region = boundary.as<vorn::Region>()) {
        for (const vorn::RegionFace& face : region->faces) {
            loops.push_back({1, face.outer, {}});
            for (const vorn::Ring& hole : face.holes) loops.push_back({0, hole, {}});
        }
    } else if (const auto* heavy = boundary.as<vorn::Polyline2d>()) {
        vorn::HatchLoop loop;
        for (const vorn::Polyline2dVertex& vertex : heavy->vertices) {
            if (vertex.type == vorn::k2dSplineCtlVertex) continue;
            loop.points.push_back(vertex.position.to2d());
            loop.bulges.push_back(vertex.bulge);
        }
        loops.push_back(loop);
    } else if (const auto* polyline3d = boundary.as<vorn::Polyline3d>()) {
        vorn::HatchLoop loop;
        for (const vorn::Polyline3dVertex& vertex : polyline3d->vertices) loop.points.push_back(vertex.position.to2d());
        loops.push_back(loop);
    }
    return loops;
}

ErrorStatus appendToModelSpace(ObjectId& idOut, Entity& entity)
{
    ErrorStatus status = database().appendToModelSpace(entity, idOut);
    if (status == vorn::eOk) entity.common.id = idOut;
    return status;
}

ErrorStatus makePolylineFromPoints(Entity& out, const std::vector<Point2d>& points, bool closed, double elevation, int color)
{
    if (points.size() < 2) return vorn::eInvalidInput;
    vorn::LwPolyline polyline;
    for (const Point2d& point : points) polyline.vertices.push_back({point, 0.0, -1.0, -1.0});
    polyline.closed = closed;
    polyline.elevation = elevation;
    out = newEntity(polyline, color, "");
    return vorn::eOk;
}

ErrorStatus addPolylineFromPoints(ObjectId& idOut, const std::vector<Point2d>& points, bool closed, double elevation, int color,
                                  const std::string& layer)
{
    Entity entity;
    ErrorStatus status = makePolylineFromPoints(entity, points, closed, elevation, color);
    if (status != vorn::eOk) return status;
    if (!layer.empty()) entity.common.layer = layer;
    return appendToModelSpace(idOut, entity);
}

ErrorStatus makeHatchFromPolygon(Entity& out, const std::vector<Point2d>& points)
{
    if (points.size() < 3) return vorn::eInvalidInput;
    vorn::Hatch hatch = solidHatch();
    vorn::HatchLoop loop{1, points, {}};
    if (!points.front().isEqualTo(points.back())) loop.points.push_back(points.front());
    loop.bulges.assign(loop.points.size(), 0.0);
    hatch.loops.push_back(loop);
    out = newEntity(hatch, vorn::kColorByLayer, "");
    return vorn::eOk;
}

ErrorStatus addHatchFromPolygon(ObjectId& idOut, const std::vector<Point2d>& points, int color, const std::string& layer)
{
    Entity entity;
    ErrorStatus status = makeHatchFromPolygon(entity, points);
    if (status != vorn::eOk) return status;
    entity.common.colorIndex = color;
    if (!layer.empty()) entity.common.layer = layer;
    return appendToModelSpace(idOut, entity);
}

ErrorStatus makeHatchFromLoop(Entity& out, ObjectId boundaryId)
{
    Entity boundary;
    ErrorStatus status = database().readEntity(boundaryId, boundary);
    if (status != vorn::eOk) return status;
    vorn::Hatch hatch = solidHatch();
    hatch.loops = hatchLoopsOfBoundary(boundary);
    if (hatch.loops.empty()) return vorn::eNotApplicable;
    out = newEntity(hatch, vorn::kColorByLayer, "");
    return vorn::eOk;
}

ErrorStatus addHatchFromLoop(ObjectId& idOut, ObjectId boundaryId)
{
    Entity entity;
    ErrorStatus status = makeHatchFromLoop(entity, boundaryId);
    if (status != vorn::eOk) return status;
    auto& hatch = std::get<vorn::Hatch>(entity.shape);
    hatch.associative = true;
    hatch.associatedIds = {boundaryId};
    status = appendToModelSpace(idOut, entity);
    if (status != vorn::eOk) return status;
    for (ObjectId associated : hatch.associatedIds) {
        Entity boundary;
        if (database().readEntity(associated, boundary) != vorn::eOk) continue;
        boundary.common.reactors.push_back(idOut);
        database().writeEntity(boundary);
    }
    return vorn::eOk;
}

ErrorStatus addFace(ObjectId& idOut, const std::vector<Point3d>& points, int color, const std::string& layer)
{
    if (points.size() != 3 && points.size() != 4) return vorn::eInvalidInput;
    vorn::Face face;
    for (size_t i = 0; i < 4; ++i) face.corners[i] = points[std::min(i, points.size() - 1)];
    return addShape(idOut, face, color, layer);
}

ErrorStatus addSolid(ObjectId& idOut, const std::vector<Point3d>& points, int color, const std::string& layer)
{
    if (points.size() < 3) return vorn::eInvalidInput;
    vorn::Solid solid;
    for (size_t i = 0; i < 4; ++i) solid.corners[i] = points[std::min(i, points.size() - 1)];
    if (points.size() >= 4) std::swap(solid.corners[2], solid.corners[3]);
    return addShape(idOut, solid, color, layer);
}

ErrorStatus addSpline(ObjectId& idOut, const std::vector<Point3d>& fitPoints, int color, const std::string& layer)
{
    if (fitPoints.size() < 2) return vorn::eInvalidInput;
    vorn::Spline spline;
    spline.degree = fitPoints.size() < 3 ? 1 : 2;
    spline.fitTolerance = 0.0;
    spline.fitPoints = fitPoints;
    return addShape(idOut, spline, color, layer);
}

ErrorStatus addLine(ObjectId& idOut, const Point3d& start, const Point3d& end, int color, const std::string& layer)
{
    return addShape(idOut, vorn::Line{start, end}, color, layer);
}

ErrorStatus addPoint(ObjectId& idOut, const Point3d& position, int color, const std::string& layer)
{
    return addShape(idOut, vorn::PointEntity{position}, color, layer);
}

ErrorStatus addMline(ObjectId& idOut, const std::vector<Point2d>& points, bool closed, double elevation, const std::string& style,
                     int color, const std::string& layer)
{
    if (points.size() < 2) return vorn::eInvalidInput;
    vorn::Mline mline;
    mline.styleName = style;
    mline.justification = 2;
    mline.scale = 1.0;
    mline.normal = {0.0, 0.0, 1.0};
    mline.closed = closed;
    for (const Point2d& point : points) mline.vertices.push_back({point.x, point.y, elevation});
    return addShape(idOut, mline, color, layer);
}

ErrorStatus ensureMlineStyle(ObjectId& idOut, const std::string& name, int color, const std::string& linetype)
{
    vorn::MlineStyle style;
    if (database().findMlineStyle(name, style)) {
        idOut = style.id;
        return vorn::eOk;
    }
    style.name = name;
    style.description = "MLineStyle created By Ornsby at QRL";
    std::string lineType = database().hasLinetype(linetype) ? linetype : "Continuous";
    style.elements = {{0.5, color, lineType}, {-0.5, color, lineType}};
    return database().addMlineStyle(style, idOut);
}

ErrorStatus addGroup(std::string& nameOut, const std::vector<ObjectId>& ids, const std::string& baseName)
{
    vorn::Group group;
    group.selectable = true;
    for (ObjectId id : ids) {
        if (id.isValid()) group.members.push_back(id);
    }
    std::string name = baseName;
    vorn::Group existing;
    for (int suffix = 1; database().findGroup(name, existing); ++suffix) name = vorn::formatString("%s%d", baseName.c_str(), suffix);
    group.name = name;
    ObjectId id;
    ErrorStatus status = database().addGroup(group, id);
    if (status == vorn::eOk) nameOut = name;
    return status;
}
