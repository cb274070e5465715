// The numerics of the horizontal stress grid: how badly a segment of an
// entry is oriented against the maximum horizontal stress, and the cells it
// covers within half an entry width.
#pragma once

#include "drawing/geom_types.h"
#include "grid/grid.h"

// The rating of a segment whose direction is `angle` (0 to 2 pi, as the
// platform's angle of two points gives it) against the stress direction
// `theta` (0 to pi): the direction is folded to 0..pi, the difference to
// 0..pi/2, and the rating is its sine times 100: 100 across the stress, 0
// along it.
double entryRating(double angle, double theta);

// The closest point of the segment a-b to p in plan (a for a segment of no
// length).
vorn::Point2d closestOnSegment(const vorn::Point2d& a, const vorn::Point2d& b, const vorn::Point2d& p);

// The cell window of a segment: its extents widened by h on each side, the
// two corners mapped to cells, outside points to the nearest edge cell.
struct SegmentWindow {
    int iLow = 0;
    int jLow = 0;
    int iHigh = -1;
    int jHigh = -1;
};
SegmentWindow segmentCellWindow(const myGrid& grid, const vorn::Point2d& a, const vorn::Point2d& b, double h);

// Every cell of the window, i outer and j inner, whose centre lies within h
// of the segment takes the rating when it exceeds the cell's value: the
// highest rating wins where entries meet.
void rateSegmentCells(myGrid& grid, const vorn::Point2d& a, const vorn::Point2d& b, double h, double rating);
