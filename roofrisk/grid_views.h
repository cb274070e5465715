// The preview plot of "View Grid" on the defect pages and the calculation
// panel.
#pragma once

class myGrid;

namespace vorn::rfri {

// Plots the grid as a preview: plot type 0, colour mode 2, no layer, no group.
void viewGrid(myGrid& grid);

}  // namespace vorn::rfri
