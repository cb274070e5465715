#include "roofrisk/grid_views.h"

#include "grid/grid.h"

namespace vorn::rfri {

void viewGrid(myGrid& grid)
{
    grid.setPlotOptions(0, 2, "", true, false);
    grid.plot();
}

}  // namespace vorn::rfri
