// Curve geometry of drawing entities: every curve kind as a path of
// straight and circular segments in plan (z runs linearly along each
// segment), with lengths, points along, closest points, intersections,
// extents, areas and flattened outlines.
#pragma once

#include <vector>

#include "drawing/entity_types.h"

namespace vorn {

// A segment from a to b; a non-zero bulge makes it a circular arc in plan
// (bulge = tan(sweep / 4), positive counter-clockwise).
struct Segment {
    Point3d a;
    Point3d b;
    double bulge = 0.0;
};

struct Path {
    std::vector<Segment> segments;
    bool closed = false;
    Point3d start;  // the start also for a path without segments
};

// Arc data of a bulged segment.
struct ArcData {
    Point2d center;
    double radius = 0.0;
    double startAngle = 0.0;
    double sweep = 0.0;  // signed, radians
};

ArcData arcOf(const Segment& s);
double segmentLength(const Segment& s);
// Point at a length along the segment (clamped to it).
Point3d pointAlong(const Segment& s, double length);
// Closest point of the segment to q in plan, and its length along.
Point3d closestInPlan(const Segment& s, const Point2d& q, double& lengthOut);
void addSegmentExtents(const Segment& s, Extents3d& e);
// Plan intersections of two segments (arcs as arcs).
void intersectInPlan(const Segment& s, const Segment& t, std::vector<Point2d>& out);

// The path of a curve entity; false for kinds that are no curves. Spline
// control vertices of heavy polylines are skipped; a fit spline runs
// straight between its fit points.
bool curvePath(const Entity& entity, Path& out);

// The closed path of a hatch boundary loop.
Path hatchLoopPath(const HatchLoop& loop);

double pathLength(const Path& path);
// Signed area in plan of the path closed by its chord (counter-clockwise
// positive), arcs included.
double signedArea(const Path& path);
// The path with arcs replaced by chords of at most `maxStep` radians;
// closed paths repeat their first point.
std::vector<Point2d> flatten(const Path& path, double maxStep);

// The plan figure of any entity as point chains (arcs flattened; closed
// chains repeat their first point; a point entity is a chain of one point).
// Used for window and crossing tests and for picks.
std::vector<std::vector<Point2d>> planOutline(const Entity& entity);

// Geometric extents of any entity; false when it has no geometry.
bool entityExtents(const Entity& entity, Extents3d& out);

// Signed area of a ring (counter-clockwise positive).
double ringArea(const std::vector<Point2d>& ring);

}  // namespace vorn
