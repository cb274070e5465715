#include "host/geometry_regions.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <boost/geometry/geometries/multi_polygon.hpp>

#include "drawing/geometry_curves.h"

namespace bg = boost::geometry;

namespace vorn::host {

namespace {

using BgPoint = bg::model::d2::point_xy<double>;
using BgPolygon = bg::model::polygon<BgPoint, false, true>;  // counter-clockwise, closed
using BgMulti = bg::model::multi_polygon<BgPolygon>;

// Arcs become chords of at most one degree when a region is made.
constexpr double kRegionStep = std::numbers::pi / 180.0;
constexpr double kZeroArea = 1e-10;

BgPolygon::ring_type toBgRing(const Ring& ring)
{
    BgPolygon::ring_type out;
    for (const Point2d& p : ring) out.push_back({p.x, p.y});
    if (!ring.empty()) out.push_back({ring.front().x, ring.front().y});
    return out;
}

Ring fromBgRing(const BgPolygon::ring_type& ring)
{
    Ring out;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) out.push_back({ring[i].x(), ring[i].y()});
    return out;
}

BgMulti toBg(const Region& region)
{
    BgMulti multi;
    for (const RegionFace& face : region.faces) {
        BgPolygon polygon;
        polygon.outer() = toBgRing(face.outer);
        for (const Ring& hole : face.holes) polygon.inners().push_back(toBgRing(hole));
        multi.push_back(std::move(polygon));
    }
    bg::correct(multi);
    return multi;
}

std::vector<RegionFace> fromBg(const BgMulti& multi)
{
    std::vector<RegionFace> faces;
    for (const BgPolygon& polygon : multi) {
        RegionFace face;
        face.outer = fromBgRing(polygon.outer());
        for (const auto& inner : polygon.inners()) face.holes.push_back(fromBgRing(inner));
        faces.push_back(std::move(face));
    }
    return faces;
}

// The ring of a closed curve without its repeated first point; empty when
// the curve is open or no curve.
Ring closedRing(const Entity& curve, double& elevationOut)
{
    Path path;
    if (!curvePath(curve, path) || path.segments.empty()) return {};
    bool closed = path.closed || path.segments.front().a.to2d().isEqualTo(path.segments.back().b.to2d(), 1e-9);
    if (!closed) return {};
    elevationOut = path.start.z;
    Ring ring = flatten(path, kRegionStep);
    while (ring.size() > 1 && ring.back().isEqualTo(ring.front(), 1e-12)) ring.pop_back();
    return ring;
}

// ---- offsets

struct Piece {
    Point2d s;
    Point2d e;
    double bulge = 0.0;
};

bool lineIntersection(const Piece& p, const Piece& q, Point2d& out)
{
    double rx = p.e.x - p.s.x, ry = p.e.y - p.s.y;
    double qx = q.e.x - q.s.x, qy = q.e.y - q.s.y;
    double denom = rx * qy - ry * qx;
    if (std::abs(denom) <= 1e-12 * std::hypot(rx, ry) * std::hypot(qx, qy)) return false;
    double u = ((q.s.x - p.s.x) * qy - (q.s.y - p.s.y) * qx) / denom;
    out = {p.s.x + rx * u, p.s.y + ry * u};
    return true;
}

// The offset of one source segment; false when an arc shrinks to nothing.
bool offsetPiece(const Point2d& a, const Point2d& b, double bulge, double distance, Piece& out)
{
    if (std::abs(bulge) < 1e-12) {
        double len = a.distanceTo(b);
        double nx = (b.y - a.y) / len * distance, ny = -(b.x - a.x) / len * distance;
        out = {{a.x + nx, a.y + ny}, {b.x + nx, b.y + ny}, 0.0};
        return true;
    }
    ArcData arc = arcOf({{a.x, a.y, 0.0}, {b.x, b.y, 0.0}, bulge});
    double radius = arc.radius + (arc.sweep > 0.0 ? distance : -distance);
    if (radius <= 1e-10) return false;
    double k = radius / arc.radius;
    auto moved = [&](const Point2d& p) { return Point2d{arc.center.x + (p.x - arc.center.x) * k, arc.center.y + (p.y - arc.center.y) * k}; };
    out = {moved(a), moved(b), bulge};
    return true;
}

std::vector<PolyVertex> distinctVertices(const LwPolyline& pl)
{
    std::vector<PolyVertex> v;
    for (const PolyVertex& p : pl.vertices)
        if (v.empty() || !v.back().point.isEqualTo(p.point, 1e-12)) v.push_back(p);
    if (pl.closed && v.size() > 1 && v.back().point.isEqualTo(v.front().point, 1e-12)) v.pop_back();
    return v;
}

// Extends straight neighbours to meet. A straight piece that its corners
// turn round (the offset folds over it) is dropped and its neighbours are
// joined instead, until none folds.
std::vector<Piece> joinedPieces(const std::vector<Piece>& raw, const std::vector<Point2d>& directions, bool closed)
{
    std::vector<std::size_t> active(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) active[i] = i;
    while (active.size() >= (closed ? 2u : 1u)) {
        std::vector<Piece> joined;
        for (std::size_t k : active) joined.push_back(raw[k]);
        std::size_t m = joined.size();
        for (std::size_t i = 0; i < (closed ? m : m - 1); ++i) {
            Piece& p = joined[i];
            Piece& q = joined[(i + 1) % m];
            Point2d corner;
            if (p.bulge == 0.0 && q.bulge == 0.0 && lineIntersection(p, q, corner)) p.e = q.s = corner;
        }
        std::vector<std::size_t> kept;
        for (std::size_t i = 0; i < m; ++i) {
            const Point2d& d = directions[active[i]];
            bool folded = joined[i].bulge == 0.0 && (joined[i].e.x - joined[i].s.x) * d.x + (joined[i].e.y - joined[i].s.y) * d.y <= 0.0;
            if (!folded) kept.push_back(active[i]);
        }
        if (kept.size() == m) return joined;
        active = std::move(kept);
    }
    return {};
}

// The offset polyline: extended corners between straight pieces and a
// straight filler where an arc does not meet its neighbour.
bool directOffset(const LwPolyline& pl, double distance, LwPolyline& out)
{
    std::vector<PolyVertex> v = distinctVertices(pl);
    if (v.size() < 2) return false;
    std::size_t count = pl.closed ? v.size() : v.size() - 1;
    std::vector<Piece> raw(count);
    std::vector<Point2d> directions(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Point2d& a = v[i].point;
        const Point2d& b = v[(i + 1) % v.size()].point;
        directions[i] = {b.x - a.x, b.y - a.y};
        if (!offsetPiece(a, b, v[i].bulge, distance, raw[i])) return false;
    }
    std::vector<Piece> pieces = joinedPieces(raw, directions, pl.closed);
    if (pieces.empty()) return false;
    out = LwPolyline{};
    out.closed = pl.closed;
    out.elevation = pl.elevation;
    out.constantWidth = pl.constantWidth;
    std::size_t m = pieces.size();
    for (std::size_t i = 0; i < m; ++i) {
        out.vertices.push_back({pieces[i].s, pieces[i].bulge});
        if (i + 1 == m && !pl.closed) break;
        if (!pieces[i].e.isEqualTo(pieces[(i + 1) % m].s, 1e-9)) out.vertices.push_back({pieces[i].e, 0.0});
    }
    if (!pl.closed) out.vertices.push_back({pieces.back().e, 0.0});
    return true;
}

double closedArea(const LwPolyline& pl)
{
    Entity e;
    e.shape = pl;
    Path path;
    curvePath(e, path);
    return signedArea(path);
}

bool isSimpleClosed(const LwPolyline& pl)
{
    Entity e;
    e.shape = pl;
    Path path;
    curvePath(e, path);
    BgPolygon polygon;
    Ring ring = flatten(path, kRegionStep);
    ring.pop_back();
    polygon.outer() = toBgRing(ring);
    bg::correct(polygon);
    return bg::is_valid(polygon);
}

// Closed polylines whose direct offset folds over itself: the buffer of the
// outline, one polyline per resulting polygon, in the source's direction.
std::vector<LwPolyline> bufferedOffset(const LwPolyline& pl, double distance, bool counterClockwise)
{
    Entity e;
    e.shape = pl;
    Path path;
    curvePath(e, path);
    Ring ring = flatten(path, kRegionStep);
    ring.pop_back();
    BgPolygon polygon;
    polygon.outer() = toBgRing(ring);
    bg::correct(polygon);
    BgMulti result;
    double grow = counterClockwise ? distance : -distance;
    bg::buffer(polygon, result, bg::strategy::buffer::distance_symmetric<double>(grow), bg::strategy::buffer::side_straight(),
               bg::strategy::buffer::join_miter(1e6), bg::strategy::buffer::end_flat(), bg::strategy::buffer::point_square());
    std::vector<LwPolyline> out;
    for (const BgPolygon& piece : result) {
        LwPolyline offset;
        offset.closed = true;
        offset.elevation = pl.elevation;
        offset.constantWidth = pl.constantWidth;
        Ring outer = fromBgRing(piece.outer());
        if (!counterClockwise) std::reverse(outer.begin(), outer.end());
        for (const Point2d& p : outer) offset.vertices.push_back({p, 0.0});
        out.push_back(std::move(offset));
    }
    return out;
}

Entity withShape(const Entity& source, LwPolyline shape)
{
    Entity e;
    e.common = source.common;
    e.common.id = ObjectId{};
    e.common.reactors.clear();
    e.shape = std::move(shape);
    return e;
}

}  // namespace

ErrorStatus regionsFromCurves(const std::vector<Entity>& curves, std::vector<Entity>& regionsOut)
{
    std::vector<Entity> made;
    for (const Entity& curve : curves) {
        double elevation = 0.0;
        Ring ring = closedRing(curve, elevation);
        if (ring.size() < 3) return eInvalidInput;
        if (std::abs(ringArea(ring)) <= kZeroArea) return eDegenerateGeometry;
        BgPolygon polygon;
        polygon.outer() = toBgRing(ring);
        bg::correct(polygon);
        if (!bg::is_valid(polygon)) return eGeneralModelingFailure;
        Entity region;
        region.common = curve.common;
        region.common.id = ObjectId{};
        region.common.reactors.clear();
        region.shape = Region{fromBg(BgMulti{polygon}), elevation};
        made.push_back(std::move(region));
    }
    regionsOut.insert(regionsOut.end(), made.begin(), made.end());
    return eOk;
}

ErrorStatus regionBoolean(Region& a, BoolOperType op, Region& b)
{
    BgMulti left = toBg(a), right = toBg(b), result;
    try {
        switch (op) {
        case BoolOperType::Union: bg::union_(left, right, result); break;
        case BoolOperType::Intersect: bg::intersection(left, right, result); break;
        case BoolOperType::Subtract: bg::difference(left, right, result); break;
        }
    } catch (const std::exception&) {
        return eGeneralModelingFailure;
    }
    a.faces = fromBg(result);
    b.faces.clear();
    return eOk;
}

double regionArea(const Region& region)
{
    double area = 0.0;
    for (const RegionFace& face : region.faces) {
        area += std::abs(ringArea(face.outer));
        for (const Ring& hole : face.holes) area -= std::abs(ringArea(hole));
    }
    return area;
}

double hatchArea(const Hatch& hatch)
{
    Entity e;
    e.shape = hatch;
    std::vector<std::vector<Point2d>> rings = planOutline(e);
    double area = 0.0;
    for (std::size_t i = 0; i < rings.size(); ++i) {
        if (rings[i].size() < 4) continue;
        int depth = 0;
        for (std::size_t j = 0; j < rings.size(); ++j) {
            if (j == i || rings[j].size() < 4) continue;
            BgPolygon other;
            other.outer() = toBgRing(Ring(rings[j].begin(), rings[j].end() - 1));
            bg::correct(other);
            if (bg::within(BgPoint{rings[i][0].x, rings[i][0].y}, other)) ++depth;
        }
        double a = std::abs(signedArea(hatchLoopPath(hatch.loops[i])));
        area += depth % 2 == 0 ? a : -a;
    }
    return area;
}

ErrorStatus offsetPolyline(const Entity& polyline, double distance, std::vector<Entity>& out)
{
    const auto* pl = polyline.as<LwPolyline>();
    if (pl == nullptr) return eNotApplicable;
    if (distinctVertices(*pl).size() < 2) return eDegenerateGeometry;
    LwPolyline direct;
    bool made = directOffset(*pl, distance, direct);
    if (!pl->closed) {
        if (!made) return eGeneralModelingFailure;
        out.push_back(withShape(polyline, std::move(direct)));
        return eOk;
    }
    double sourceArea = closedArea(*pl);
    if (made && closedArea(direct) * sourceArea > 0.0 && isSimpleClosed(direct)) {
        out.push_back(withShape(polyline, std::move(direct)));
        return eOk;
    }
    for (LwPolyline& piece : bufferedOffset(*pl, distance, sourceArea > 0.0)) out.push_back(withShape(polyline, std::move(piece)));
    return eOk;
}

}  // namespace vorn::host
