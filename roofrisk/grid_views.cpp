#include "roofrisk/grid_views.h"

#include "base/report.h"
#include "grid/grid.h"

namespace vorn::rfri {

void viewGrid(myGrid& grid)
{
    grid.setPlotOptions(0, 2, "", true, false);
    acutPrintf("\nView Grid: the grid plot is not available in this build.");
}

bool editGrid(myGrid&)
{
    acutPrintf("\nEdit Grid: the grid cell editor is not available in this build.");
    return false;
}

}  // namespace vorn::rfri
