// Uniting the regions of a list colour by colour.
#pragma once

#include <vector>

#include "drawing/entity_types.h"

// The regions of one colour index become one region, whatever their
// distance: the first region of each colour takes the union and keeps its
// colour, the others stay in the drawing as null regions and leave the
// list, which ends with one id per colour in the order of first appearance.
// Ids that are no region are skipped and stay. The union of a colour is
// formed by halving (pairs, then pairs of pairs), which covers the same
// area as uniting the regions one at a time into the first and costs each
// region about log2(n) unions instead of one pass over a growing outline.
// Graphics are flushed after each colour.
void mergeRegionsByColor(std::vector<vorn::ObjectId>& ids);
