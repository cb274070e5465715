#include "commands/commands.h"

#include "base/report.h"
#include "commands/command_support.h"
#include "grid/gridutility.h"
#include "shell/gridframe.h"

void vorn_setGrid()
{
    if (runGridFrame("vorn_setGrid", "Define a Grid", {}) != IDOK) return;
    acutPrintf("\nDocument Base Grid for this session is defined!");
    storeBaseGrid(DocVars().docData());
}

void tabTest() { runGridFrame("tabTest", "Define a Grid", {}); }

namespace {

// "New Grid ...": the task frame with the page "Grid Dimension" alone.
bool defineGridInFrame(myGrid& grid)
{
    GridFrame frame("Define a Grid");
    if (frame.run() != IDOK) return false;
    return frame.frame().getBaseGrid(grid);
}

}  // namespace

void vorn_gridUtility()
{
    dlg_gridutility panel;
    panel.defineNewGrid = defineGridInFrame;
    panel.DoModal();
}
