// The overlap check of the area builds: each polygon's convex hull against
// every later polygon.
#pragma once

#include <functional>
#include <vector>

#include "drawing/geom_types.h"

// For each polygon a in order and each later polygon b whose area inside
// the convex hull of a exceeds `limit`, calls found(a, b), in that order.
// Pairs whose bounding boxes lie apart cannot overlap and are not clipped,
// which keeps the check fast on plans of many thousand pillars.
void forEachOverlap(const std::vector<std::vector<vorn::Point2d>>& polygons, double limit,
                    const std::function<void(size_t, size_t)>& found);
