// The handlers of the 32 commands of the group VORNVornmark.
#pragma once

#include "shell/docdata.h"

void vorn_setGrid();
void vorn_gridFromContour();
void vorn_gridFromPoint();
void vorn_geoFeatures();
void vorn_sFactorInArea();
void vorn_topoStressModel();
void vorn_horizStress();
void vorn_topoGrid();
void vorn_seamGrid();
void vorn_keldar();
void vorn_convKelGrid();
void vorn_genFactor();
void vorn_StabilityIndex();
void vorn_indexMapping();
void vorn_gridUtility();
void vorn_createPolylineFromObjects();
void vorn_joinPolylines();
void vorn_checkClosedPolylines();
void vorn_checkOverlaps();
void vorn_checkDuplicates();
void vorn_checkContours();
void vorn_clearWorkingLayer();
void vorn_RFRI_Draw();
void vorn_RFRI_Calc();
void vorn_vornabout();
void tabTest();
void VORNMenu();
void vorn_RFRI_Input();
void vorn_RFRI_List();
void vorn_RFRI_Label();
void vorn_RFRI_Mapping();



namespace vorn {
// True once since the last call when a command said that part of it is not
// available in this build; the host ends such a run with a failure status.
bool takeCommandIncomplete();
}  // namespace vorn
