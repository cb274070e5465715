// The grid workbench as the line and point pages use it: the shared
// continuous palette for the cells drawn during a build, and the plots.
#pragma once

class myGrid;

namespace vorn {

// The palette's range over the values to come (colour list).
void setPaletteRange(double min, double max);
// The colour of a value on the palette.
int paletteColor(double value);
// plotCodes(mode) of the grid.
void previewCodes(myGrid& grid, int mode);
// The full plot with the grid's plot options.
void plotGrid(myGrid& grid);

}  // namespace vorn
