#include "drawing/geometry_curves.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vorn {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kTolerance = 1e-9;
constexpr double kOutlineStep = 5.0 * std::numbers::pi / 180.0;

Point3d lerp(const Point3d& a, const Point3d& b, double t)
{
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t, a.z + (b.z - a.z) * t};
}

double planLength(const Point3d& a, const Point3d& b) { return std::hypot(b.x - a.x, b.y - a.y); }

// Angle from `from` to `to` in the direction of the sweep's sign, in [0, 2 pi).
double angleWithin(double from, double to, double sweep)
{
    double delta = sweep >= 0.0 ? to - from : from - to;
    delta = std::fmod(delta, kTwoPi);
    if (delta < 0.0) delta += kTwoPi;
    return delta;
}

bool isArc(const Segment& s) { return std::abs(s.bulge) > 1e-12 && planLength(s.a, s.b) > kTolerance; }

// Whether a point known to lie on the arc's circle lies within its sweep.
bool onArcSweep(const ArcData& arc, const Point2d& p)
{
    double along = angleWithin(arc.startAngle, std::atan2(p.y - arc.center.y, p.x - arc.center.x), arc.sweep);
    double slack = kTolerance / std::max(arc.radius, kTolerance);
    return along <= std::abs(arc.sweep) + slack || along >= kTwoPi - slack;
}

bool onLineSpan(const Segment& s, const Point2d& p)
{
    double dx = s.b.x - s.a.x;
    double dy = s.b.y - s.a.y;
    double len2 = dx * dx + dy * dy;
    if (len2 <= 0.0) return std::hypot(p.x - s.a.x, p.y - s.a.y) <= kTolerance;
    double t = ((p.x - s.a.x) * dx + (p.y - s.a.y) * dy) / len2;
    double slack = kTolerance / std::sqrt(len2);
    return t >= -slack && t <= 1.0 + slack;
}

bool onSegment(const Segment& s, const Point2d& p) { return isArc(s) ? onArcSweep(arcOf(s), p) : onLineSpan(s, p); }

// Points where the infinite line through s meets the circle.
void lineCircle(const Segment& s, const Point2d& c, double r, std::vector<Point2d>& out)
{
    double dx = s.b.x - s.a.x;
    double dy = s.b.y - s.a.y;
    double len = std::hypot(dx, dy);
    if (len <= kTolerance) return;
    dx /= len;
    dy /= len;
    double t0 = (c.x - s.a.x) * dx + (c.y - s.a.y) * dy;
    Point2d foot{s.a.x + dx * t0, s.a.y + dy * t0};
    double d = std::hypot(c.x - foot.x, c.y - foot.y);
    if (d > r + kTolerance) return;
    double h = d >= r ? 0.0 : std::sqrt(r * r - d * d);
    out.push_back({foot.x - dx * h, foot.y - dy * h});
    if (h > kTolerance) out.push_back({foot.x + dx * h, foot.y + dy * h});
}

void circleCircle(const ArcData& p, const ArcData& q, std::vector<Point2d>& out)
{
    double dx = q.center.x - p.center.x;
    double dy = q.center.y - p.center.y;
    double d = std::hypot(dx, dy);
    if (d <= kTolerance || d > p.radius + q.radius + kTolerance || d < std::abs(p.radius - q.radius) - kTolerance) return;
    double a = (p.radius * p.radius - q.radius * q.radius + d * d) / (2.0 * d);
    double h2 = p.radius * p.radius - a * a;
    double h = h2 > 0.0 ? std::sqrt(h2) : 0.0;
    Point2d mid{p.center.x + dx * a / d, p.center.y + dy * a / d};
    out.push_back({mid.x - dy * h / d, mid.y + dx * h / d});
    if (h > kTolerance) out.push_back({mid.x + dy * h / d, mid.y - dx * h / d});
}

void lineLine(const Segment& s, const Segment& t, std::vector<Point2d>& out)
{
    double rx = s.b.x - s.a.x, ry = s.b.y - s.a.y;
    double qx = t.b.x - t.a.x, qy = t.b.y - t.a.y;
    double denom = rx * qy - ry * qx;
    double wx = t.a.x - s.a.x, wy = t.a.y - s.a.y;
    double scale = std::max({std::hypot(rx, ry), std::hypot(qx, qy), 1e-300});
    if (std::abs(denom) <= 1e-12 * scale * scale) {
        // Parallel: collinear overlaps give the ends of the overlap.
        if (std::abs(wx * ry - wy * rx) > kTolerance * scale) return;
        for (const Point3d& p : {t.a, t.b})
            if (onLineSpan(s, p.to2d())) out.push_back(p.to2d());
        for (const Point3d& p : {s.a, s.b})
            if (onLineSpan(t, p.to2d())) out.push_back(p.to2d());
        return;
    }
    double u = (wx * qy - wy * qx) / denom;
    Point2d p{s.a.x + rx * u, s.a.y + ry * u};
    if (onLineSpan(s, p) && onLineSpan(t, p)) out.push_back(p);
}

void appendLwPolyline(const LwPolyline& pl, Path& out)
{
    const auto& v = pl.vertices;
    if (!v.empty()) out.start = {v[0].point.x, v[0].point.y, pl.elevation};
    std::size_t count = pl.closed ? v.size() : (v.empty() ? 0 : v.size() - 1);
    for (std::size_t i = 0; i < count; ++i) {
        const PolyVertex& p = v[i];
        const PolyVertex& q = v[(i + 1) % v.size()];
        out.segments.push_back({{p.point.x, p.point.y, pl.elevation}, {q.point.x, q.point.y, pl.elevation}, p.bulge});
    }
    out.closed = pl.closed;
}

template <class Vertex, class Position>
void appendHeavy(const std::vector<Vertex>& vertices, bool closed, Position position, Path& out)
{
    std::vector<const Vertex*> drawn;
    for (const Vertex& v : vertices)
        if (v.type != 1) drawn.push_back(&v);
    if (!drawn.empty()) out.start = position(*drawn[0]);
    std::size_t count = closed ? drawn.size() : (drawn.empty() ? 0 : drawn.size() - 1);
    for (std::size_t i = 0; i < count; ++i) {
        const Vertex& p = *drawn[i];
        const Vertex& q = *drawn[(i + 1) % drawn.size()];
        double bulge = 0.0;
        if constexpr (requires { p.bulge; }) bulge = p.bulge;
        out.segments.push_back({position(p), position(q), bulge});
    }
    out.closed = closed;
}

void appendArc(const Point3d& c, double r, double start, double sweep, Path& out)
{
    // Arcs over a half turn are split so each bulge stays moderate.
    int pieces = std::abs(sweep) > std::numbers::pi ? 2 : 1;
    double step = sweep / pieces;
    for (int i = 0; i < pieces; ++i) {
        double a0 = start + step * i;
        double a1 = a0 + step;
        out.segments.push_back({{c.x + r * std::cos(a0), c.y + r * std::sin(a0), c.z}, {c.x + r * std::cos(a1), c.y + r * std::sin(a1), c.z}, std::tan(step / 4.0)});
    }
    out.start = out.segments.front().a;
}

std::vector<Point2d> closedChain(std::vector<Point2d> points)
{
    if (!points.empty()) points.push_back(points.front());
    return points;
}

std::vector<Point2d> cornersChain(const Point3d (&c)[4], bool zOrder)
{
    if (zOrder) return closedChain({c[0].to2d(), c[1].to2d(), c[3].to2d(), c[2].to2d()});
    return closedChain({c[0].to2d(), c[1].to2d(), c[2].to2d(), c[3].to2d()});
}

std::vector<Point2d> textBox(const Text& t)
{
    double w = t.height * 0.8 * static_cast<double>(std::max<std::size_t>(t.text.size(), 1));
    double h = t.height;
    double cs = std::cos(t.rotation), sn = std::sin(t.rotation);
    auto at = [&](double u, double v) { return Point2d{t.position.x + u * cs - v * sn, t.position.y + u * sn + v * cs}; };
    return closedChain({at(0, 0), at(w, 0), at(w, h), at(0, h)});
}

std::vector<Point2d> hatchLoopChain(const HatchLoop& loop) { return flatten(hatchLoopPath(loop), kOutlineStep); }

}  // namespace

Path hatchLoopPath(const HatchLoop& loop)
{
    Path path;
    for (std::size_t i = 0; i < loop.points.size(); ++i) {
        const Point2d& p = loop.points[i];
        const Point2d& q = loop.points[(i + 1) % loop.points.size()];
        double bulge = i < loop.bulges.size() ? loop.bulges[i] : 0.0;
        path.segments.push_back({{p.x, p.y, 0.0}, {q.x, q.y, 0.0}, bulge});
    }
    path.closed = true;
    return path;
}

ArcData arcOf(const Segment& s)
{
    ArcData arc;
    double dx = s.b.x - s.a.x, dy = s.b.y - s.a.y;
    double len = std::hypot(dx, dy);
    double k = (1.0 - s.bulge * s.bulge) / (4.0 * s.bulge);
    arc.center = {(s.a.x + s.b.x) / 2.0 - dy * k, (s.a.y + s.b.y) / 2.0 + dx * k};
    arc.radius = len * (1.0 + s.bulge * s.bulge) / (4.0 * std::abs(s.bulge));
    arc.startAngle = std::atan2(s.a.y - arc.center.y, s.a.x - arc.center.x);
    arc.sweep = 4.0 * std::atan(s.bulge);
    return arc;
}

double segmentLength(const Segment& s)
{
    if (!isArc(s)) return s.a.distanceTo(s.b);
    ArcData arc = arcOf(s);
    double plan = arc.radius * std::abs(arc.sweep);
    return std::hypot(plan, s.b.z - s.a.z);
}

Point3d pointAlong(const Segment& s, double length)
{
    double total = segmentLength(s);
    double t = total > 0.0 ? std::clamp(length / total, 0.0, 1.0) : 0.0;
    if (!isArc(s)) return lerp(s.a, s.b, t);
    ArcData arc = arcOf(s);
    double angle = arc.startAngle + arc.sweep * t;
    return {arc.center.x + arc.radius * std::cos(angle), arc.center.y + arc.radius * std::sin(angle), s.a.z + (s.b.z - s.a.z) * t};
}

Point3d closestInPlan(const Segment& s, const Point2d& q, double& lengthOut)
{
    double total = segmentLength(s);
    double t = 0.0;
    if (isArc(s)) {
        ArcData arc = arcOf(s);
        double along = angleWithin(arc.startAngle, std::atan2(q.y - arc.center.y, q.x - arc.center.x), arc.sweep);
        if (along <= std::abs(arc.sweep)) {
            t = along / std::abs(arc.sweep);
        } else {
            // Outside the sweep: the nearer end.
            t = std::hypot(q.x - s.a.x, q.y - s.a.y) <= std::hypot(q.x - s.b.x, q.y - s.b.y) ? 0.0 : 1.0;
        }
    } else {
        double dx = s.b.x - s.a.x, dy = s.b.y - s.a.y;
        double len2 = dx * dx + dy * dy;
        t = len2 > 0.0 ? std::clamp(((q.x - s.a.x) * dx + (q.y - s.a.y) * dy) / len2, 0.0, 1.0) : 0.0;
    }
    lengthOut = total * t;
    return pointAlong(s, lengthOut);
}

void addSegmentExtents(const Segment& s, Extents3d& e)
{
    e.addPoint(s.a);
    e.addPoint(s.b);
    if (!isArc(s)) return;
    ArcData arc = arcOf(s);
    for (int quarter = 0; quarter < 4; ++quarter) {
        double angle = quarter * std::numbers::pi / 2.0;
        if (angleWithin(arc.startAngle, angle, arc.sweep) <= std::abs(arc.sweep))
            e.addPoint({arc.center.x + arc.radius * std::cos(angle), arc.center.y + arc.radius * std::sin(angle), s.a.z});
    }
}

void intersectInPlan(const Segment& s, const Segment& t, std::vector<Point2d>& out)
{
    std::vector<Point2d> candidates;
    bool arcS = isArc(s), arcT = isArc(t);
    if (!arcS && !arcT) {
        lineLine(s, t, out);
        return;
    }
    if (arcS && arcT) {
        circleCircle(arcOf(s), arcOf(t), candidates);
    } else {
        const Segment& line = arcS ? t : s;
        ArcData arc = arcOf(arcS ? s : t);
        lineCircle(line, arc.center, arc.radius, candidates);
    }
    for (const Point2d& p : candidates)
        if (onSegment(s, p) && onSegment(t, p)) out.push_back(p);
}

bool curvePath(const Entity& entity, Path& out)
{
    out = Path{};
    if (const auto* pl = entity.as<LwPolyline>()) {
        appendLwPolyline(*pl, out);
    } else if (const auto* p2 = entity.as<Polyline2d>()) {
        double z = p2->elevation;
        appendHeavy(p2->vertices, p2->closed, [z](const Polyline2dVertex& v) { return Point3d{v.position.x, v.position.y, z}; }, out);
    } else if (const auto* p3 = entity.as<Polyline3d>()) {
        appendHeavy(p3->vertices, p3->closed, [](const Polyline3dVertex& v) { return v.position; }, out);
    } else if (const auto* line = entity.as<Line>()) {
        out.segments.push_back({line->start, line->end, 0.0});
        out.start = line->start;
    } else if (const auto* arc = entity.as<Arc>()) {
        double sweep = angleWithin(arc->startAngle, arc->endAngle, 1.0);
        appendArc(arc->center, arc->radius, arc->startAngle, sweep > 0.0 ? sweep : kTwoPi, out);
    } else if (const auto* circle = entity.as<Circle>()) {
        appendArc(circle->center, circle->radius, 0.0, kTwoPi, out);
        out.closed = true;
    } else if (const auto* spline = entity.as<Spline>()) {
        const auto& f = spline->fitPoints;
        if (!f.empty()) out.start = f[0];
        for (std::size_t i = 1; i < f.size(); ++i) out.segments.push_back({f[i - 1], f[i], 0.0});
        out.closed = f.size() > 2 && f.front().isEqualTo(f.back());
    } else {
        return false;
    }
    return true;
}

double pathLength(const Path& path)
{
    double total = 0.0;
    for (const Segment& s : path.segments) total += segmentLength(s);
    return total;
}

double signedArea(const Path& path)
{
    if (path.segments.empty()) return 0.0;
    double twice = 0.0;
    for (const Segment& s : path.segments) {
        twice += s.a.x * s.b.y - s.b.x * s.a.y;
        if (isArc(s)) {
            ArcData arc = arcOf(s);
            double bow = 0.5 * arc.radius * arc.radius * (std::abs(arc.sweep) - std::sin(std::abs(arc.sweep)));
            twice += 2.0 * (arc.sweep > 0.0 ? bow : -bow);
        }
    }
    const Point3d& first = path.segments.front().a;
    const Point3d& last = path.segments.back().b;
    twice += last.x * first.y - first.x * last.y;
    return twice / 2.0;
}

std::vector<Point2d> flatten(const Path& path, double maxStep)
{
    std::vector<Point2d> points;
    if (path.segments.empty()) {
        points.push_back(path.start.to2d());
        return points;
    }
    points.push_back(path.segments.front().a.to2d());
    for (const Segment& s : path.segments) {
        if (isArc(s)) {
            ArcData arc = arcOf(s);
            int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(arc.sweep) / maxStep)));
            for (int i = 1; i < pieces; ++i) {
                double angle = arc.startAngle + arc.sweep * i / pieces;
                points.push_back({arc.center.x + arc.radius * std::cos(angle), arc.center.y + arc.radius * std::sin(angle)});
            }
        }
        points.push_back(s.b.to2d());
    }
    return points;
}

std::vector<std::vector<Point2d>> planOutline(const Entity& entity)
{
    Path path;
    if (curvePath(entity, path)) return {flatten(path, kOutlineStep)};
    std::vector<std::vector<Point2d>> chains;
    if (const auto* point = entity.as<PointEntity>()) {
        chains.push_back({point->position.to2d()});
    } else if (const auto* text = entity.as<Text>()) {
        chains.push_back(textBox(*text));
    } else if (const auto* hatch = entity.as<Hatch>()) {
        for (const HatchLoop& loop : hatch->loops) chains.push_back(hatchLoopChain(loop));
    } else if (const auto* region = entity.as<Region>()) {
        for (const RegionFace& face : region->faces) {
            chains.push_back(closedChain(face.outer));
            for (const Ring& hole : face.holes) chains.push_back(closedChain(hole));
        }
    } else if (const auto* face = entity.as<Face>()) {
        chains.push_back(cornersChain(face->corners, false));
    } else if (const auto* solid = entity.as<Solid>()) {
        chains.push_back(cornersChain(solid->corners, true));
    } else if (const auto* mline = entity.as<Mline>()) {
        std::vector<Point2d> chain;
        for (const Point3d& v : mline->vertices) chain.push_back(v.to2d());
        chains.push_back(mline->closed ? closedChain(chain) : chain);
    }
    return chains;
}

bool entityExtents(const Entity& entity, Extents3d& out)
{
    out = Extents3d{};
    Path path;
    if (curvePath(entity, path)) {
        out.addPoint(path.start);
        for (const Segment& s : path.segments) addSegmentExtents(s, out);
        return true;
    }
    double z = 0.0;
    if (const auto* point = entity.as<PointEntity>()) z = point->position.z;
    if (const auto* text = entity.as<Text>()) z = text->position.z;
    if (const auto* hatch = entity.as<Hatch>()) z = hatch->elevation;
    if (const auto* region = entity.as<Region>()) z = region->elevation;
    for (const auto& chain : planOutline(entity))
        for (const Point2d& p : chain) out.addPoint({p.x, p.y, z});
    if (const auto* face = entity.as<Face>())
        for (const Point3d& c : face->corners) out.addPoint(c);
    if (const auto* solid = entity.as<Solid>())
        for (const Point3d& c : solid->corners) out.addPoint(c);
    if (const auto* mline = entity.as<Mline>())
        for (const Point3d& v : mline->vertices) out.addPoint(v);
    return !out.isEmpty();
}

double ringArea(const std::vector<Point2d>& ring)
{
    double twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point2d& p = ring[i];
        const Point2d& q = ring[(i + 1) % ring.size()];
        twice += p.x * q.y - q.x * p.y;
    }
    return twice / 2.0;
}

}  // namespace vorn
