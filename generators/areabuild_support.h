// The drawing side of the area builds that the area boundary factor and the
// seam grid share: the grid outline filter, the polygon loop with its meter,
// windows and user break, the overlap drawing, and the framed cells that the
// user clicks to change.
#pragma once

#include <functional>
#include <vector>

#include "drawing/editor_port.h"
#include "generators/areacover.h"
#include "generators/cellwindow.h"
#include "grid/grid.h"

// The grid's four corners in plan.
std::vector<vorn::Point2d> gridOutline(const myGrid& grid);

// Drops, from last to first, each polygon of the set whose area inside the
// outline is not above 1e-10.
void dropOutsideGrid(vorn::SelectionSet& set, const std::vector<vorn::Point2d>& outline);

// For each polygon of the set that has vertices, with the meter at its
// index: its cell window, passed over when it spans no cells, else drawn in
// colour 6 and handed to `step` with the polygon set in `cover`. The user
// break is polled after each polygon; on a break "\nUser interrupted!!" is
// printed and the loop ends. False when interrupted.
bool forEachPolygonWindow(const myGrid& grid, const vorn::SelectionSet& set, AreaCover& cover,
                          const std::function<void(const CellWindow&)>& step);

// Draws in colour 6 both polygons of each pair whose overlap exceeds
// `limit` (each hull against every later polygon); true when any did.
bool drawOverlaps(const vorn::SelectionSet& set, double limit);

struct CellPick {
    bool picked = false;
    bool inside = false;
    int i = -1;
    int j = -1;
    explicit operator bool() const { return picked; }
};

// Every cell of the grid drawn as a framed closed polyline of 9 points (its
// corners, the first again, the corners scaled by 0.8 about the centre) on
// the current layer, coloured by its value, for as long as the object lives
// or until erase.
class CellFrames {
public:
    CellFrames(const myGrid& grid, std::function<int(double)> colorOf);
    ~CellFrames() { erase(); }
    CellFrames(const CellFrames&) = delete;
    CellFrames& operator=(const CellFrames&) = delete;

    // Asks for a point; a point outside the grid prints "\nSorry,this point
    // (%f,%f) is outside the grid!". Not picked on anything but a point.
    CellPick pick(const char* prompt);
    // The frame takes the colour of the cell's present value.
    void recolor(int i, int j);
    void erase();

private:
    const myGrid& grid_;
    std::function<int(double)> colorOf_;
    std::vector<vorn::ObjectId> frames_;
};
