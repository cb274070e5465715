// Joining lightweight polylines end to end, and uniting regions of one
// colour.
#pragma once

#include <vector>

#include "drawing/entity_types.h"

// Which ends of `a` and `b` meet, the first that holds: 1 start on start,
// 2 start of a on end of b, 3 end of a on start of b, 4 end on end; -1 none.
int matchPolylineEnds(const vorn::LwPolyline& a, const vorn::LwPolyline& b);

// Adds b's vertices (with bulges and widths) to `a` at the ends that `mode`
// names as above; mode 0 takes the nearest pair of ends. The meeting vertex
// then stands twice. False for any other mode, a negative one included.
bool appendPolyline(vorn::LwPolyline& a, const vorn::LwPolyline& b, int mode);

// Joins the lightweight polylines of `ids` wherever their ends meet, erasing
// each polyline that was added to another. `ids` becomes the polylines that
// grew, each once.
void joinPolylineSet(std::vector<vorn::ObjectId>& ids);

// Polylines joined since the count was last reset.
int polylineJoinCount();
void resetPolylineJoinCount();

// Unites every region with the later regions of its colour index; the ids of
// the regions merged into another leave the list.
void mergeRegionsByColor(std::vector<vorn::ObjectId>& ids);
