// Selection by layer and type with the system's filter strings, and the
// conversions between selection sets and id lists.
#pragma once

#include <string>
#include <vector>

#include "drawing/editor_port.h"

// Type filters for boundaries, contours, pillars and features; for entry
// projection lines; for survey points.
inline constexpr const char* kPolylineTypes = "LWPOLYLINE,POLYLINE";
inline constexpr const char* kEntryLineTypes = "LWPOLYLINE,LINE";
inline constexpr const char* kSurveyPointTypes = "POINT,LINE,LWPOLYLINE,POLYLINE";

// Selects on the comma-separated `layers` (nothing for an empty string),
// of `entityTypes` when given: crossing the two corners of 2 points,
// crossing the polygon of more, everything with fewer. Prints the points
// first. Returns the count; the set is the caller's to free.
long selectByLayer(vorn::SelectionSet& setOut, const std::string& layers, const std::vector<vorn::Point2d>& points,
                   const std::string& entityTypes);
// Everything on the layers, as ids. Returns the count.
long selectIdsByLayer(std::vector<vorn::ObjectId>& idsOut, const std::string& layers, const std::string& entityTypes);
// As selectByLayer, as ids. Returns the count.
long selectIdsInWindow(std::vector<vorn::ObjectId>& idsOut, const std::string& layers,
                       const std::vector<vorn::Point2d>& points, const std::string& entityTypes);

// Exact copies; invalid ids are skipped on the way to a set.
void selectionToIds(const vorn::SelectionSet& set, std::vector<vorn::ObjectId>& idsOut);
void idsToSelection(const std::vector<vorn::ObjectId>& ids, vorn::SelectionSet& setOut);

// The callback of the keyword "SLayer" of interactive selections: asks for
// layer names, or picks objects to take their layers, and selects all on
// those layers. False (no set) when nothing is selected.
bool layerInputCallback(const std::string& keyword, vorn::SelectionSet& setOut);
