// Shared by the generators that walk the cells under a polygon: the cell
// window of a polygon on a possibly rotated grid, and the cell outline that
// a clip or a centre test takes.
#pragma once

#include <vector>

#include "drawing/geom_types.h"
#include "grid/grid.h"

// The inclusive cell range that a polygon's work is limited to, and the
// corners of the rotated bounding box it came from (for drawing).
struct CellWindow {
    int iLow = 0;
    int jLow = 0;
    int iHigh = -1;
    int jHigh = -1;
    vorn::Point2d corners[4];

    // A window of one row or one column of cells (or less) is passed over
    // without touching any cell: a polygon that lies inside one row or one
    // column leaves no trace.
    bool spansCells() const { return iLow < iHigh && jLow < jHigh; }
};

// Rotates each vertex about the grid origin by minus the grid's rotation,
// takes the lowest and highest x and y, rotates those two corners back and
// maps each to a cell, outside points to the nearest edge cell.
CellWindow polygonCellWindow(const myGrid& grid, const std::vector<vorn::Point2d>& vertices);

// The four corners of cell (i, j) in the order (i,j), (i+1,j), (i+1,j+1),
// (i,j+1), into a list of four that is reused from cell to cell.
void cellOutline(const myGrid& grid, int i, int j, std::vector<vorn::Point2d>& cornersOut);

// The centre of cell (i, j) in plan.
vorn::Point2d cellCentre(const myGrid& grid, int i, int j);

// Plan points of the drawing from the grid's points, and back.
vorn::Point2d toPlan(const vorn::Point2& p);
vorn::Point2 toGridPoint(const vorn::Point2d& p);
