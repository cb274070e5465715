#include "generators/contour_tab.h"

#include <algorithm>
#include <cmath>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/database_port.h"
#include "drawing/entity_geometry.h"
#include "drawing/layers.h"
#include "drawing/platform.h"
#include "drawing/prompts.h"
#include "drawing/selection.h"
#include "drawing/sysvars.h"
#include "drawing/tempgraphics.h"
#include "generators/contour_topfile.h"
#include "grid/colorschema.h"

using vorn::formatString;
using vorn::PanelControl;

CTopoTab::CTopoTab(bool topography) : CLinePointPage(topography ? "top" : "grd"), topography_(topography) {}

void CTopoTab::OnInitDialog()
{
    output.reset(drawingFolder() + (topography_ ? "Untitled.top" : "Untitled.grd"));
    layers.fill();
    seamLevelText = topography_ ? "2000" : "";
    units = topography_ ? 0 : 1;
}

std::vector<PanelControl> CTopoTab::pageControls()
{
    using namespace vorn;
    feetRadio_ = units == 0;
    metersRadio_ = units == 1;
    std::vector<PanelControl> controls{
        editControl(topography_ ? "Output File <.top>" : "Output File <.grd>", output.text, [this] { output.onEdited(); }),
        buttonControl("Pick a file", [this] { output.pick(); }),
        layers.listControl("Contour Layers"),
        layers.joinedControl("Selected Layers"),
        buttonControl("<Pick Layer", [this] { OnPickLayer(); }),
    };
    if (topography_) {
        controls.push_back(radioControl("Overburden", overburden, [this] { onOverburdenChosen(); }));
        controls.push_back(radioControl("Elevation", elevation, [this] { onElevationChosen(); }));
    }
    PanelControl level = editControl(topography_ ? "Seam Level :" : "Description:", seamLevelText);
    level.readOnly = topography_ && !elevation;
    controls.push_back(level);
    // In plain mode the units are set to metres and cannot be changed.
    for (auto [caption, field, value] : {std::tuple{"Feet", &feetRadio_, 0}, std::tuple{"Meters", &metersRadio_, 1}}) {
        PanelControl radio = radioControl(caption, *field, [this, chosen = value] {
            if (topography_) units = chosen;
        });
        radio.readOnly = !topography_;
        controls.push_back(radio);
    }
    PanelControl build = buttonControl("< &Build Grid", [this] { OnBuildGrid(); });
    auto [draw, save] = drawAndSaveButtons([this] { OnDrawGrid(); });
    controls.insert(controls.end(), {build, draw, save});
    return controls;
}

void CTopoTab::onOverburdenChosen()
{
    overburden = true;
    elevation = false;
    elevationWasChosen_ = false;
}

// Choosing "Elevation" enables the seam level; choosing it again picks the
// seam level from a polyline in the drawing.
void CTopoTab::onElevationChosen()
{
    overburden = false;
    elevation = true;
    if (elevationWasChosen_) pickSeamLevel();
    elevationWasChosen_ = true;
}

void CTopoTab::pickSeamLevel()
{
    hideMainDialog();
    acutPrintf("\nPick a polyline object to retrieve the seam elevation:");
    vorn::ObjectId id;
    ads_point picked;
    std::vector<vorn::Point3d> vertices;
    if (acedEntSel("\nSelect object:", id, picked) == RTNORM && getEntityVertices(id, vertices) > 0)
        acdbRToS(vertices.front().z, 2, -1, seamLevelText);
    showMainDialog(true);
}

void CTopoTab::OnDrawGrid()
{
    if (!built) return;
    hideMainDialog();
    grid_.plotCodes(2);
    showMainDialog(true);
}

bool CTopoTab::writeGrid(const std::string& path)
{
    if (!topography_) {
        grid_.setTitle(seamLevelText);
        return grid_.writeGrd(path);
    }
    // An open failure leaves silently.
    return vorn::writeContourTop(grid_, path, units == 0);
}

bool CTopoTab::checkBeforeBuild()
{
    if (built && !saved && AfxMessageBox("grid is not saved yet! continue to rebuild", MB_OKCANCEL) != IDOK) return false;
    if (layers.joined.empty()) {
        AfxMessageBox("No layer is selected!");
        return false;
    }
    if (!defineGrid()) {
        AfxMessageBox("Grid definition error!");
        return false;
    }
    if (topography_ && std::abs(grid_.xCellW - grid_.yCellW) > 1e-10) {
        AfxMessageBox("Keldar grid requires square elements! You need to redefine the cell width!!");
        return false;
    }
    return true;
}

// Every contour that a window of the build can cross: those on the layers
// crossing the grid's box widened by the largest window, in selection order.
std::vector<vorn::ContourLine> CTopoTab::readContours(double reach)
{
    std::vector<vorn::Point2d> outline = vorn::worldOutline(grid_);
    double x0 = 1e300, y0 = 1e300, x1 = -1e300, y1 = -1e300;
    for (const vorn::Point2d& c : outline) {
        x0 = std::min(x0, c.x);
        y0 = std::min(y0, c.y);
        x1 = std::max(x1, c.x);
        y1 = std::max(y1, c.y);
    }
    vorn::ResultBuffer filter{vorn::ResultItem::ofText(8, layers.joined), vorn::ResultItem::ofText(0, kPolylineTypes)};
    vorn::SelectionSet set;
    std::vector<vorn::ContourLine> contours;
    if (acedSSGet("C", {{x0 - reach, y0 - reach}, {x1 + reach, y1 + reach}}, filter, set) != RTNORM) return contours;
    for (long k = 0; k < acedSSLength(set); ++k) {
        vorn::ContourLine line;
        getEntityVertices(acedSSName(set, k), line);
        contours.push_back(std::move(line));
    }
    acedSSFree(set);
    return contours;
}

void CTopoTab::OnBuildGrid()
{
    if (!checkBeforeBuild()) return;
    hideMainDialog();
    std::vector<std::string> keep = layers.selectedNames();
    keep.push_back(getStringVar("CLAYER"));
    std::vector<std::string> turnedOff;
    isolateLayers(keep, turnedOff);
    if (!turnedOff.empty()) acutPrintf("\n%d layers are temporarily turned off!", static_cast<int>(turnedOff.size()));

    bool cancelled = true;
    drawPolygonOutline(vorn::worldOutline(grid_), 6, true);
    const int nx = grid_.xNum, ny = grid_.yNum;
    const double searchLimit = nx * grid_.xCellW;
    vorn::SelectionSet set;
    if (selectByLayer(set, layers.joined, vorn::userOutline(grid_), kPolylineTypes) < 1) {
        acutPrintf("\nNo related contour line in specified layers!");
    } else {
        double low = 1e300, high = -1e300;
        for (vorn::ObjectId id : set.ids) {
            vorn::Entity entity;
            vorn::Point3d start;
            if (vorn::platform().database->readEntity(id, entity) != vorn::eOk ||
                vorn::platform().database->getStartPoint(entity, start) != vorn::eOk)
                continue;
            low = std::min(low, start.z);
            high = std::max(high, start.z);
        }
        setColorRange(low, high, false);
        highlightSelection(set, true);
        acutPrintf("\nTotal %ld related contour lines found in specified layers.", set.length());
        acutPrintf("\nGrid(%d X %d) is going to be built from these contours!", nx, ny);
        std::string reply;
        const bool go = acedGetString(0, "\n <Enter> key to continue ...", reply) != RTCAN;
        if (go) {
            acutPrintf("\n Analyzing contour lines ...");
            acedSetStatusBarProgressMeter("Building grids...", 0, nx * ny);
        }
        highlightSelection(set, false);
        acedSSFree(set);
        if (go) {
            // The largest window around the farthest cell centre (half a cell beyond the lattice).
            double reach = (std::max(grid_.xCellW, searchLimit) + std::max(grid_.xCellW, grid_.yCellW)) * (1.0 + 1e-9) + 1e-6;
            cancelled = !runCells(readContours(reach), searchLimit);
        }
    }
    redrawAndFlush();
    acedRestoreStatusBar();
    if (!cancelled) grid_.plotCodes(2);
    restoreLayers(turnedOff);
    showMainDialog(true);
    built = !cancelled;
    saved = false;
}

// The cell loop; false when the user broke off.
bool CTopoTab::runCells(const std::vector<vorn::ContourLine>& contours, double searchLimit)
{
    vorn::ContourInterpolator interpolator(contours, grid_.xCellW, searchLimit);
    auto printWindow = [](const vorn::Point2d& lower, const vorn::Point2d& upper) {
        ads_point a, b;
        acdbWcs2Ucs({lower.x, lower.y, 0.0}, a);
        acdbWcs2Ucs({upper.x, upper.y, 0.0}, b);
        acutPrintf("\nPoint No %i, X = %lf, Y = %lf", 0, a.x, a.y);
        acutPrintf("\nPoint No %i, X = %lf, Y = %lf", 1, b.x, b.y);
    };
    const double seamLevel = _wtof(seamLevelText);
    for (int i = 0; i <= grid_.xNum; ++i) {
        for (int j = 0; j <= grid_.yNum; ++j) {
            acedSetStatusBarProgressMeterPos(i * grid_.yNum + j);
            vorn::Point3 centre;
            grid_.getCellCentre(i, j, centre);
            vorn::ContourCellResult cell = interpolator.valueAt({centre.x, centre.y, centre.z}, printWindow);
            if (!cell.enough) {
                acutPrintf("\n too few contour lines to grid point %d,%d", i, j);
            } else {
                vorn::drawValueCell(grid_, i, j, cell.value);
                grid_.values[static_cast<size_t>(i)][j] = elevation ? cell.value - seamLevel : cell.value;
            }
            if (acedUsrBrk()) {
                acutPrintf("\nCanceled by user!");
                return false;
            }
        }
    }
    return true;
}
