#include "commands/commands.h"

#include <initializer_list>
#include <string>

#include "base/report.h"
#include "commands/command_support.h"
#include "commands/menu.h"
#include "commands/vornapp.h"
#include "shell/aboutdialog.h"
#include "shell/gridframe.h"

namespace {
bool commandIncomplete = false;
}  // namespace

void vorn::reportMissing(const char* command, const std::string& what)
{
    acutPrintf("\n%s: %s is not available in this build.", command, what.c_str());
    commandIncomplete = true;
}

int runGridFrame(const char* command, const char* title, std::initializer_list<const char*> missingPages)
{
    GridFrame frame(title);
    for (const char* page : missingPages) vorn::reportMissing(command, page);
    return frame.run();
}

void vorn_vornabout()
{
    acDocManagerPtr()->pushResourceHandle();
    aboutdialog about;
    about.DoModal();
    acDocManagerPtr()->popResourceHandle();
}

void VORNMenu() { vorn::installMenu(buildVornMenu()); }

namespace {
// Every command is transparent and has the global name "_" + its local name.
#define VORN_COMMAND(local, handler) {"VORNVornmark", "_" #local, #local, ACRX_CMD_TRANSPARENT, handler, nullptr, -1}
const VornCommandEntry kCommandTable[] = {
    VORN_COMMAND(vorn_setGrid, vorn_setGrid),
    VORN_COMMAND(vorn_gridFromContour, vorn_gridFromContour),
    VORN_COMMAND(vorn_gridFromPoint, vorn_gridFromPoint),
    VORN_COMMAND(vorn_geoFeatures, vorn_geoFeatures),
    VORN_COMMAND(vorn_sFactorInArea, vorn_sFactorInArea),
    VORN_COMMAND(vorn_topoStressModel, vorn_topoStressModel),
    VORN_COMMAND(vorn_horizStress, vorn_horizStress),
    VORN_COMMAND(vorn_cmrr, vorn_horizStress),
    VORN_COMMAND(vorn_topoGrid, vorn_topoGrid),
    VORN_COMMAND(vorn_seamGrid, vorn_seamGrid),
    VORN_COMMAND(vorn_keldar, vorn_keldar),
    VORN_COMMAND(vorn_convKelGrid, vorn_convKelGrid),
    VORN_COMMAND(vorn_genFactor, vorn_genFactor),
    VORN_COMMAND(vorn_StabilityIndex, vorn_StabilityIndex),
    VORN_COMMAND(vorn_indexMapping, vorn_indexMapping),
    VORN_COMMAND(vorn_gridUtility, vorn_gridUtility),
    VORN_COMMAND(vorn_createPolylineFromObjects, vorn_createPolylineFromObjects),
    VORN_COMMAND(vorn_joinPolylines, vorn_joinPolylines),
    VORN_COMMAND(vorn_checkClosedPolylines, vorn_checkClosedPolylines),
    VORN_COMMAND(vorn_checkOverlaps, vorn_checkOverlaps),
    VORN_COMMAND(vorn_checkDuplicates, vorn_checkDuplicates),
    VORN_COMMAND(vorn_checkContours, vorn_checkContours),
    VORN_COMMAND(vorn_clearWorkingLayer, vorn_clearWorkingLayer),
    VORN_COMMAND(vorn_RFRI_Draw, vorn_RFRI_Draw),
    VORN_COMMAND(vorn_RFRI_Calc, vorn_RFRI_Calc),
    VORN_COMMAND(vorn_vornabout, vorn_vornabout),
    VORN_COMMAND(tabTest, tabTest),
    VORN_COMMAND(VORNMenu, VORNMenu),
    VORN_COMMAND(vorn_RFRI_Input, vorn_RFRI_Input),
    VORN_COMMAND(vorn_RFRI_List, vorn_RFRI_List),
    VORN_COMMAND(vorn_RFRI_Label, vorn_RFRI_Label),
    VORN_COMMAND(vorn_RFRI_Mapping, vorn_RFRI_Mapping),
};
#undef VORN_COMMAND
}  // namespace

const VornCommandEntry* vornCommandTable(int& count)
{
    count = static_cast<int>(sizeof(kCommandTable) / sizeof(kCommandTable[0]));
    return kCommandTable;
}

bool vorn::takeCommandIncomplete()
{
    bool incomplete = commandIncomplete;
    commandIncomplete = false;
    return incomplete;
}
