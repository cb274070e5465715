// The cell loops of the area builds, shared by the area boundary factor and
// the seam grid: a polygon's cover of the cells of its window, by the clipped
// area of each cell or by the cell centre, and the passes that turn the
// accumulated cover into the grid's final values.
#pragma once

#include <vector>

#include "drawing/polygon.h"
#include "generators/cellwindow.h"
#include "grid/grid.h"

// The cover a cell must reach: dx * dy * percent * 0.01 under the area rule,
// 0.5 (the flag 1.0 against it) under the middle point rule.
double minAreaThreshold(const myGrid& grid, bool areaBased, int percent);

// Walks the cells of a polygon's window, j outer and i inner, both ends
// included, clipping each candidate cell with buffers that are reused.
class AreaCover {
public:
    // The polygon whose cover the next calls add; its vertices as read,
    // closed or not.
    void setPolygon(const std::vector<vorn::Point2d>& polygon);
    const std::vector<vorn::Point2d>& polygon() const { return polygon_; }

    // Area rule of a boundary or a pillar: each cell below `threshold` gets
    // the polygon's area inside it added, so that a full cell takes no more.
    void addArea(myGrid& grid, const CellWindow& window, double threshold);
    // Middle point rule of a boundary: a cell below `threshold` whose centre
    // lies in the polygon becomes 1.0.
    void markCentresBelow(myGrid& grid, const CellWindow& window, double threshold);
    // Middle point rule of a pillar: the same for a cell not above it.
    void markCentresNotAbove(myGrid& grid, const CellWindow& window, double threshold);
    // Area rule of a gob: a cell not above 0 gets the area subtracted, so
    // that a pillar cell keeps its value.
    void subtractArea(myGrid& grid, const CellWindow& window);
    // Middle point rule of a gob: a cell of 0 whose centre lies in the
    // polygon becomes -1.0.
    void markGobCentres(myGrid& grid, const CellWindow& window);

    double areaInCell(const myGrid& grid, int i, int j);
    bool centreInside(const myGrid& grid, int i, int j) const;

private:
    std::vector<vorn::Point2d> polygon_;
    std::vector<vorn::Point2d> cell_;
    PolygonClipArea clip_;
};

// The final pass of the area boundary factor over the cells: at or above the
// threshold the inside value, else the outside value.
void applyInsideOutside(myGrid& grid, double threshold, double inside, double outside);
// After the pillars under the area rule: 1.0 at or above the threshold,
// else 0.0.
void classifyPillarCells(myGrid& grid, double threshold);
// After the gob under the area rule: -1.0 at or below minus the threshold,
// other negative cells back to entry (0.0).
void classifyGobCells(myGrid& grid, double threshold);
