#include "commands/commands.h"

#include "base/report.h"
#include "commands/command_support.h"
#include "shell/gridframe.h"

void vorn_RFRI_Draw()
{
    if (runGridFrame("vorn_RFRI_Draw", "Draw the Defects for the RFRI", {"the twelve defect pages"}) != IDOK) return;
    acutPrintf("\nLeaving the RFRI Drawing Menus!");
    storeBaseGrid(DocVars().docData());
}

void vorn_RFRI_Calc() { vorn::reportMissing("vorn_RFRI_Calc", "the panel dlg_RFRI_RFRICalc"); }

void vorn_RFRI_Input() { vorn::reportMissing("vorn_RFRI_Input", "the assessment polygons"); }

void vorn_RFRI_List() { vorn::reportMissing("vorn_RFRI_List", "the assessment polygons"); }

void vorn_RFRI_Label() { vorn::reportMissing("vorn_RFRI_Label", "the assessment polygons"); }

void vorn_RFRI_Mapping() { vorn::reportMissing("vorn_RFRI_Mapping", "the assessment polygons"); }
