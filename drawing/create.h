// Making entities in model space: each sets colour and (when a layer name
// is given) layer, appends the entity and closes it. New entities without a
// layer name go on the current layer.
#pragma once

#include <string>
#include <vector>

#include "drawing/database_port.h"

// Appends to model space; returns 0 (the error status otherwise).
vorn::ErrorStatus appendToModelSpace(vorn::ObjectId& idOut, vorn::Entity& entity);

// A lightweight polyline of at least 2 points (eInvalidInput otherwise),
// bulges 0 and widths -1.
vorn::ErrorStatus makePolylineFromPoints(vorn::Entity& out, const std::vector<vorn::Point2d>& points, bool closed,
                                         double elevation, int color);
vorn::ErrorStatus addPolylineFromPoints(vorn::ObjectId& idOut, const std::vector<vorn::Point2d>& points, bool closed,
                                        double elevation, int color, const std::string& layer = "");

// A solid hatch of a polygon of at least 3 points (3, eInvalidInput,
// otherwise), closed by repeating the first point when needed.
vorn::ErrorStatus makeHatchFromPolygon(vorn::Entity& out, const std::vector<vorn::Point2d>& points);
vorn::ErrorStatus addHatchFromPolygon(vorn::ObjectId& idOut, const std::vector<vorn::Point2d>& points, int color,
                                      const std::string& layer = "");
// The boundary loops of a closed curve (polylines of each kind) or of a
// region's faces and holes; none for other kinds.
std::vector<vorn::HatchLoop> hatchLoopsOfBoundary(const vorn::Entity& boundary);
// A solid hatch around one boundary object (a closed curve or a region).
vorn::ErrorStatus makeHatchFromLoop(vorn::Entity& out, vorn::ObjectId boundaryId);
// The associative variant: the boundary learns of its hatch.
vorn::ErrorStatus addHatchFromLoop(vorn::ObjectId& idOut, vorn::ObjectId boundaryId);

// 3 or 4 corners.
vorn::ErrorStatus addFace(vorn::ObjectId& idOut, const std::vector<vorn::Point3d>& points, int color,
                          const std::string& layer = "");
// At least 3 corners in outline order (the third and fourth change places
// for the solid's "Z" order).
vorn::ErrorStatus addSolid(vorn::ObjectId& idOut, const std::vector<vorn::Point3d>& points, int color,
                           const std::string& layer = "");
// Fit points; degree 1 below 3 points, else 2; fit tolerance 0.
vorn::ErrorStatus addSpline(vorn::ObjectId& idOut, const std::vector<vorn::Point3d>& fitPoints, int color,
                            const std::string& layer = "");
vorn::ErrorStatus addLine(vorn::ObjectId& idOut, const vorn::Point3d& start, const vorn::Point3d& end, int color,
                          const std::string& layer = "");
vorn::ErrorStatus addPoint(vorn::ObjectId& idOut, const vorn::Point3d& position, int color, const std::string& layer = "");
// A multi-line of at least 2 points in a style.
vorn::ErrorStatus addMline(vorn::ObjectId& idOut, const std::vector<vorn::Point2d>& points, bool closed, double elevation,
                           const std::string& style, int color = vorn::kColorByLayer, const std::string& layer = "");
// The style of that name, made when missing.
vorn::ErrorStatus ensureMlineStyle(vorn::ObjectId& idOut, const std::string& name, int color, const std::string& linetype);
// A selectable group of the valid ids under the base name, or "%s%d" with
// 1, 2, ... while the name is taken.
vorn::ErrorStatus addGroup(std::string& nameOut, const std::vector<vorn::ObjectId>& ids, const std::string& baseName);
