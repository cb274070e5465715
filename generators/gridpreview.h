// The previews of a built grid on the plan: the code plot and the plot of
// the grid's own settings.
#pragma once

#include "grid/grid.h"

// The grid drawn as codes with `colors` colours.
void previewGridCodes(myGrid& grid, int colors);
// The grid drawn as its plot settings say.
void previewGrid(myGrid& grid);
