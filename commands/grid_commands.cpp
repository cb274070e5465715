#include "commands/commands.h"

#include "base/report.h"
#include "commands/command_support.h"
#include "shell/gridframe.h"

void vorn_setGrid()
{
    if (runGridFrame("vorn_setGrid", "Define a Grid", {}) != IDOK) return;
    acutPrintf("\nDocument Base Grid for this session is defined!");
    storeBaseGrid(DocVars().docData());
}

void tabTest() { runGridFrame("tabTest", "Define a Grid", {}); }

void vorn_gridUtility() { vorn::reportMissing("vorn_gridUtility", "the panel dlg_gridutility"); }
