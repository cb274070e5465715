// Showing and editing a roof risk grid on the plan: the preview plot of
// "View Grid" and the cell editor of "Edit Grid".
#pragma once

class myGrid;

namespace vorn::rfri {

// Plots the grid as a preview: plot type 0, colour mode 2, no layer, no group.
void viewGrid(myGrid& grid);
// Runs the cell editor on the grid; false when the grid was not edited.
bool editGrid(myGrid& grid);

}  // namespace vorn::rfri
