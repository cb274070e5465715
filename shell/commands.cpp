#include "shell/commands.h"

#include <initializer_list>
#include <string>

#include "shell/aboutdialog.h"
#include "shell/gridtab.h"
#include "shell/menu.h"
#include "shell/promaintab.h"
#include "shell/report.h"
#include "shell/vornapp.h"

namespace {

bool commandIncomplete = false;

// Says on the command line which part of a command this build lacks.
void reportMissing(const char* command, const std::string& what)
{
    acutPrintf("\n%s: %s is not available in this build.", command, what.c_str());
    commandIncomplete = true;
}

// The frame of a task: the page "Grid Dimension" and the pages that this
// build has, run modally with the module's resources. Returns the result.
class GridFrameCommand {
public:
    GridFrameCommand(const char* command, const char* title, std::initializer_list<const char*> missingPages)
    {
        acDocManagerPtr()->pushResourceHandle();
        frame_.addPage("Grid Dimension", IDD_GRIDTAB, &gridTab_);
        frame_.setTitle(title);
        for (const char* page : missingPages) reportMissing(command, page);
    }
    ~GridFrameCommand() { acDocManagerPtr()->popResourceHandle(); }
    GridFrameCommand(const GridFrameCommand&) = delete;
    GridFrameCommand& operator=(const GridFrameCommand&) = delete;

    int run() { return frame_.DoModal(); }

private:
    CProMainTab frame_;
    CGridTab gridTab_;
};

int runGridFrame(const char* command, const char* title, std::initializer_list<const char*> missingPages)
{
    return GridFrameCommand(command, title, missingPages).run();
}

}  // namespace

void vorn_setGrid()
{
    if (runGridFrame("vorn_setGrid", "Define a Grid", {}) != IDOK) return;
    acutPrintf("\nDocument Base Grid for this session is defined!");
    storeBaseGrid(DocVars().docData());
}

void tabTest() { runGridFrame("tabTest", "Define a Grid", {}); }

void vorn_gridFromContour()
{
    runGridFrame("vorn_gridFromContour", "Create Grid from Contours", {"the page \"Build Grid\" (contours)"});
}

void vorn_topoGrid()
{
    runGridFrame("vorn_topoGrid", "Topography Grid Generator for Keldar", {"the page \"Build Grid\" (topography)"});
}

void vorn_gridFromPoint()
{
    runGridFrame("vorn_gridFromPoint", "Create Grid from Survey Points", {"the page \"Build Grid\" (survey points)"});
}

void vorn_geoFeatures()
{
    runGridFrame("vorn_geoFeatures", "Create Grid from Linear Geological Features",
                 {"the page \"Build Grid\" (linear features)"});
}

void vorn_sFactorInArea()
{
    runGridFrame("vorn_sFactorInArea", "Create Grid for Area Based Factor",
                 {"the page \"Create Boundary\"", "the page \"Build Grid\" (area factor)"});
}

// Also the body of vorn_cmrr.
void vorn_horizStress()
{
    runGridFrame("vorn_horizStress", "Create Grid for Horizontal Stress Effect on Entries",
                 {"the page \"Build Grid\" (horizontal stress)"});
}

void vorn_seamGrid()
{
    runGridFrame("vorn_seamGrid", "Seam Grid Generator for Keldar", {"the page \"Build Grid\" (seam)"});
}

void vorn_RFRI_Draw()
{
    if (runGridFrame("vorn_RFRI_Draw", "Draw the Defects for the RFRI", {"the twelve defect pages"}) != IDOK) return;
    acutPrintf("\nLeaving the RFRI Drawing Menus!");
    storeBaseGrid(DocVars().docData());
}

void vorn_topoStressModel() { reportMissing("vorn_topoStressModel", "the overburden stress front end"); }
void vorn_keldar() { reportMissing("vorn_keldar", "the solver panel dlg_keldar"); }
void vorn_convKelGrid() { reportMissing("vorn_convKelGrid", "the panel dlg_convkelgrid"); }
void vorn_genFactor() { reportMissing("vorn_genFactor", "the frame \"Individual Factor Generation/Normalization\""); }
void vorn_StabilityIndex() { reportMissing("vorn_StabilityIndex", "the panel dlg_stability"); }
void vorn_indexMapping() { reportMissing("vorn_indexMapping", "the panel dlg_indexmapping"); }
void vorn_gridUtility() { reportMissing("vorn_gridUtility", "the panel dlg_gridutility"); }
void vorn_createPolylineFromObjects() { reportMissing("vorn_createPolylineFromObjects", "this polyline utility"); }
void vorn_joinPolylines() { reportMissing("vorn_joinPolylines", "this polyline utility"); }
void vorn_checkClosedPolylines() { reportMissing("vorn_checkClosedPolylines", "this polyline utility"); }
void vorn_checkOverlaps() { reportMissing("vorn_checkOverlaps", "this polyline utility"); }
void vorn_checkDuplicates() { reportMissing("vorn_checkDuplicates", "this polyline utility"); }
void vorn_checkContours() { reportMissing("vorn_checkContours", "this polyline utility"); }
void vorn_clearWorkingLayer() { reportMissing("vorn_clearWorkingLayer", "this polyline utility"); }
void vorn_RFRI_Calc() { reportMissing("vorn_RFRI_Calc", "the panel dlg_RFRI_RFRICalc"); }
void vorn_RFRI_Input() { reportMissing("vorn_RFRI_Input", "the assessment polygons"); }
void vorn_RFRI_List() { reportMissing("vorn_RFRI_List", "the assessment polygons"); }
void vorn_RFRI_Label() { reportMissing("vorn_RFRI_Label", "the assessment polygons"); }
void vorn_RFRI_Mapping() { reportMissing("vorn_RFRI_Mapping", "the assessment polygons"); }

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
