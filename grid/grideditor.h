// The grid cell editor: the grid drawn as coloured cells on the plan, cells
// selected by pick, window, crossing, fence or polygon, and one new value
// assigned to the selection. It works on a copy; the changes reach the grid
// only when the user accepts them at the end.
#pragma once

#include <string>

#include "drawing/geom_types.h"

class myGrid;

// The editor's loop on the command line; true when the changes were taken
// over into `grid` (through copyGeometry, so the lattice comes back
// unrotated).
bool editGrid(myGrid& grid);

// Reads the grid file, edits it and writes it back when the changes were
// accepted. Nothing for an empty path.
void editGridFile(const std::string& path);

// The cursor tracker of the editor's prompt: at a cursor inside the edited
// grid it marks the cell and shows "Cell(%d,%d) Value: %.2f" in the status
// area. Fills `matrix` with the translation to the cursor.
int trackGridCursor(const vorn::Point3d& cursor, double matrix[4][4]);
