// Geometry of drawing entities: reading their vertices, areas and region
// overlaps, intersections in plan, and the closed boundaries made from
// polylines (closed copies, offset boundaries, strips around centre lines).
// New entities are returned as values outside the database; the caller
// sets their layer and appends them.
#pragma once

#include <vector>

#include "drawing/entity_types.h"

// The vertices of a polyline of any kind, a line (start and end) or a point;
// a closed polyline repeats its first point at the end. Bulges are ignored,
// so an arc segment is read as its chord, and spline control vertices are
// skipped. Any other entity gives none. Answers the count.
int getEntityVertices(const vorn::Entity& entity, std::vector<vorn::Point3d>& pointsOut);
int getEntityVertices(vorn::ObjectId id, std::vector<vorn::Point3d>& pointsOut);
// The same in plan (z dropped).
int getEntityVertices2d(vorn::ObjectId id, std::vector<vorn::Point2d>& pointsOut);

// Area of `polygon` inside the convex `clip`, both lightweight polylines
// read vertex by vertex; either of fewer than 3 vertices gives 0.
double clipPolygonArea(const vorn::LwPolyline& clip, const vorn::LwPolyline& polygon);

// Enclosed area of the curve, -1.0 when the id is no curve or has no area.
double curveArea(vorn::ObjectId id);

// A region from one curve; answers its area, or -1.0 unless exactly one
// region came of it.
double makeRegionFromCurve(const vorn::Entity& curve, vorn::Entity& regionOut);

// Area that the regions of two closed curves have in common, -1.0 when a
// region cannot be made or the subtraction fails.
double regionOverlapArea(vorn::ObjectId idA, vorn::ObjectId idB);

// True when the two curves meet in plan, whatever their elevations.
bool curvesIntersect(const vorn::Entity& a, const vorn::Entity& b);
bool curvesIntersect(vorn::ObjectId a, vorn::ObjectId b);

// Polylines of the three kinds.
bool isPolylineEntity(const vorn::Entity& entity);
// A curve that closes on itself.
bool isClosedCurve(vorn::ObjectId id);

// A closed lightweight copy of the entity's vertices (bulges 0, elevation 0);
// fails below 2 vertices and when the copy encloses no area.
bool makeClosedPolylineFromEntity(vorn::ObjectId id, vorn::Entity& polylineOut);

// The boundary `distance` outside the closed polyline (inside for a
// negative distance), whichever way it runs.
bool makeOffsetBoundary(vorn::ObjectId id, double distance, vorn::Entity& polylineOut);

// A closed strip reaching `distance` to both sides of a centre line.
bool makeCenterLineBoundary(vorn::ObjectId id, double distance, vorn::Entity& polylineOut);
