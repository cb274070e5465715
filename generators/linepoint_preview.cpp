#include "generators/linepoint_preview.h"

#include "base/report.h"
#include "grid/grid.h"

namespace vorn {

// This build has no grid plots and no shared palette yet: cells are drawn
// in colour 7 and a plot says plainly that it is not available.
void setPaletteRange(double, double) {}

int paletteColor(double) { return 7; }

void previewCodes(myGrid&, int) { acutPrintf("\nThe grid preview is not available in this build."); }

void plotGrid(myGrid&) { acutPrintf("\nThe grid plot is not available in this build."); }

}  // namespace vorn
