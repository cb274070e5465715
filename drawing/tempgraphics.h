// Temporary screen vectors and highlights. The vectors live on screen only
// until redrawAndFlush.
#pragma once

#include <vector>

#include "drawing/editor_port.h"

// Outline through the points (at least 2), closed from last to first when
// asked, drawn highlighted in user coordinates.
void drawPolygonOutline(const std::vector<vorn::Point2d>& points, int color, bool close);
void drawPolygonOutline3d(const std::vector<vorn::Point3d>& points, int color, bool close);
// The closed 4-corner outline spanned by two points.
void drawRectangleOutline(const vorn::Point2d& lower, const vorn::Point2d& upper, int color);
// A closed square of half-width half of pixelsToDrawing(pixelSize).
void drawPointMarker(const vorn::Point2d& point, int pixelSize, int color);
// Shows what is queued on screen.
void flushGraphics();
// Removes the temporary vectors of the whole view, then flushes.
void redrawAndFlush();
// Pixels as drawing units of the current view; -1.0 when the view cannot
// be read.
double pixelsToDrawing(double pixels);
// The view as a rectangle and its centre (z 0); false when the view cannot
// be read.
bool viewRectangle(vorn::Point3d& lower, vorn::Point3d& upper, vorn::Point3d& center);
// Highlight on or off; invalid ids are skipped.
void highlightEntity(vorn::ObjectId id, bool on);
void highlightIds(const std::vector<vorn::ObjectId>& ids, bool on);
void highlightSelection(const vorn::SelectionSet& set, bool on);
