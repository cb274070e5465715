#include "commands/commands.h"

#include "generators/contour_tab.h"
#include "generators/features_tab.h"
#include "generators/points_tab.h"
#include "shell/gridframe.h"

namespace {

// The dialog template ids of the pages.
constexpr unsigned IDD_TOPOTAB = 140;
constexpr unsigned IDD_POINTSTAB = 141;
constexpr unsigned IDD_GEOFEATURETAB = 142;

// Runs the frame "Grid Dimension" and the page "Build Grid"; a cancelled
// frame still lets the user save a built grid.
void runBuildGridFrame(const char* title, unsigned resourceId, vorn::CLinePointPage& page)
{
    GridFrame frame(title);
    frame.addPage("Build Grid", resourceId, &page);
    if (frame.run() != IDOK) page.offerSaveOnCancel();
}

void runContourFrame(const char* title, bool topography)
{
    CTopoTab page(topography);
    runBuildGridFrame(title, IDD_TOPOTAB, page);
}

}  // namespace

void vorn_gridFromContour() { runContourFrame("Create Grid from Contours", false); }

void vorn_topoGrid() { runContourFrame("Topography Grid Generator for Keldar", true); }

void vorn_gridFromPoint()
{
    CPointsTab page;
    runBuildGridFrame("Create Grid from Survey Points", IDD_POINTSTAB, page);
}

void vorn_geoFeatures()
{
    CGeoFeatureTab page;
    runBuildGridFrame("Create Grid from Linear Geological Features", IDD_GEOFEATURETAB, page);
}
