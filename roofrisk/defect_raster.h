// Turning one defect feature into grid values: the line rule (cells whose
// centre lies within the feature's reach) and the area rules (cells that
// the feature covers by at least 0.5 square drawing units). Plain numerics
// on a grid and point lists; the pages feed them from the drawing.
#pragma once

#include <functional>
#include <vector>

#include "drawing/geom_types.h"
#include "grid/grid.h"

namespace vorn::rfri {

// Cells i0..i1 by j0..j1, both bounds included.
struct CellRange {
    int i0 = 0;
    int j0 = 0;
    int i1 = -1;
    int j1 = -1;
};

// The smallest overlap of a feature and a cell that sets the cell; an
// absolute area that does not scale with the cell size.
inline constexpr double kMinCoveredArea = 0.5;

// The cells of the feature's extents widened by `reach` on each side.
CellRange lineCellRange(const myGrid& grid, const Point2d& lower, const Point2d& upper, double reach);

// The feature's closest point to a cell centre, in plan.
using ClosestPoint = std::function<Point3d(const Point3d& centre)>;

// Raises each cell of the range whose centre lies within `reach` of the
// feature to `value` (faded by distance with `taper`); never lowers a cell.
void rasteriseLine(myGrid& grid, const CellRange& range, double reach, double value, bool taper,
                   const ClosestPoint& closest);

// The feature's bounding box in the grid's own frame, rotated back: its
// four corners (lower left first, counter-clockwise) and its lower and
// upper corner.
struct AlignedBox {
    std::vector<Point2d> corners;
    Point2d lower;
    Point2d upper;
};
AlignedBox gridAlignedBox(const myGrid& grid, const std::vector<Point2d>& vertices);

// The cells of the box; false when the box lies within one column or one
// row of cells, which the area rule leaves alone.
bool areaCellRange(const myGrid& grid, const AlignedBox& box, CellRange& range);

// Gives `value` to each cell of the range that the polygon covers by at
// least kMinCoveredArea: in any case with `overwrite`, else only where the
// cell's value is below it.
void rasteriseArea(myGrid& grid, const CellRange& range, const std::vector<Point2d>& polygon, double value,
                   bool overwrite);

}  // namespace vorn::rfri
