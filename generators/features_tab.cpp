#include "generators/features_tab.h"

#include <algorithm>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/database_port.h"
#include "drawing/editor_port.h"
#include "drawing/platform.h"
#include "drawing/prompts.h"
#include "drawing/selection.h"
#include "drawing/tempgraphics.h"

using vorn::formatString;
using vorn::PanelControl;

namespace {
constexpr double kMaxInfluence = 99999999999.0;
}

void CGeoFeatureTab::OnInitDialog()
{
    output.reset(drawingFolder() + "Untitled.grd");
    layers.fill();
}

// The influence distance defaults to twice the cell width in X.
void CGeoFeatureTab::OnTabActivation(bool active)
{
    if (active && mainDialog() && _wtof(distanceText) <= 1e-10)
        distanceText = formatString("%g", 2.0 * _wtof(mainDialog()->xCellText));
}

std::vector<PanelControl> CGeoFeatureTab::pageControls()
{
    using namespace vorn;
    auto [draw, save] = drawAndSaveButtons([this] { OnDrawGrid(); });
    return {
        editControl("Output File (.grd) :", output.text, [this] { output.onEdited(); }),
        buttonControl("Pick a file", [this] { output.pick(); }),
        layers.listControl("Define Feature Layers"),
        layers.joinedControl("Selected Layers"),
        buttonControl("<Pick Layer", [this] { OnPickLayer(); }),
        editControl("Influence Distance:", distanceText),
        buttonControl("Pick a distance", [this] { OnPickDistance(); }),
        checkControl("Accumulation", accumulation),
        editControl("Grid Title", titleText),
        buttonControl("< &Build Grid", [this] { OnBuildGrid(); }),
        draw,
        save,
    };
}

void CGeoFeatureTab::OnPickDistance()
{
    vorn::Point3 origin;
    if (mainDialog()) {
        origin = {_wtof(mainDialog()->originXText), _wtof(mainDialog()->originYText), 0.0};
    }
    ads_point base;
    acdbWcs2Ucs({origin.x, origin.y, 0.0}, base);
    hideMainDialog();
    acedInitGet(70, nullptr);
    double distance = 0.0;
    if (acedGetDist(&base, formatString("\nInput Distance <%f>: ", _wtof(distanceText)).c_str(), distance) == RTNORM) {
        std::string text;
        double value = 0.0;
        acdbRToS(distance, 2, -1, text);
        if (acdbDisToF(text.c_str(), 2, value) == RTNORM) distanceText = formatString("%g", value);
    }
    showMainDialog(true);
}

// Draws the grid as the build does: polygons in colour, as a preview.
void CGeoFeatureTab::OnDrawGrid()
{
    if (!built) return;
    hideMainDialog();
    grid_.setPlotOptions(0, 2, "", true, false);
    grid_.plot();
    showMainDialog(true);
}

bool CGeoFeatureTab::writeGrid(const std::string& path)
{
    if (!titleText.empty()) grid_.setTitle(titleText);
    return grid_.writeGrd(path);
}

bool CGeoFeatureTab::checkBeforeBuild(double& influence)
{
    if (layers.joined.empty()) {
        AfxMessageBox("Select layer name first!!");
        return false;
    }
    influence = _wtof(distanceText);
    if (influence > kMaxInfluence) {
        AfxMessageBox("Please enter a number between 0 and 99999999999.", MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    if (influence <= 0.0) {
        AfxMessageBox("Influence distance must greater than zero!!");
        return false;
    }
    if (built && !saved && AfxMessageBox("Grid is not saved yet! Continue to discard and rebuild", MB_OKCANCEL) != IDOK)
        return false;
    if (!defineGrid()) {
        AfxMessageBox("Grid initialization error!");
        built = saved = false;
        return false;
    }
    return true;
}

void CGeoFeatureTab::OnBuildGrid()
{
    double influence = 0.0;
    if (!checkBeforeBuild(influence)) return;
    hideMainDialog();
    std::vector<vorn::Point2d> outline = vorn::userOutline(grid_);
    drawPolygonOutline(vorn::worldOutline(grid_), 2, true);
    vorn::SelectionSet set;
    long count = selectByLayer(set, layers.joined, outline, kPolylineTypes);
    highlightSelection(set, true);
    acutPrintf("\nTotal number of features found: %ld in Layers: %s", count, layers.joined.c_str());
    std::string reply;
    bool cancelled = true;
    if (count < 1) {
        acedGetString(0, "\n <Enter> key to Quit ...", reply);
    } else if (acedGetString(0, "\n <Enter> key to continue ...", reply) != RTCAN) {
        grid_.setAll(0.0);
        redrawAndFlush();
        acedSetStatusBarProgressMeter("Geological Features Griding...", 0, static_cast<int>(count));
        cancelled = !rateFeatures(set, influence);
    }
    highlightSelection(set, false);
    acedSSFree(set);
    redrawAndFlush();
    acedRestoreStatusBar();
    showMainDialog(true);
    if (cancelled) {
        built = saved = false;
        return;
    }
    grid_.setPlotOptions(0, 2, "", true, false);
    grid_.plot();
    built = true;
    saved = false;
}

bool CGeoFeatureTab::rateFeatures(const vorn::SelectionSet& set, double influence)
{
    vorn::DatabasePort& db = *vorn::platform().database;
    vorn::FeatureCells nearCells(grid_);
    std::vector<vorn::CellIndex> cells;
    for (long k = 0; k < acedSSLength(set); ++k) {
        acedSetStatusBarProgressMeterPos(static_cast<int>(k + 1));
        vorn::ObjectId id = acedSSName(set, k);
        vorn::Entity feature;
        vorn::Extents3d extents;
        if (!id.isValid() || db.readEntity(id, feature) != vorn::eOk) {
            acutPrintf("\nCan not get %ldth object", k + 1);
        } else if (vorn::isCurve(feature.kind()) && db.getGeomExtents(feature, extents) == vorn::eOk) {
            ads_point low, high;
            acdbWcs2Ucs(extents.minPoint, low);
            acdbWcs2Ucs(extents.maxPoint, high);
            drawRectangleOutline(low.to2d(), high.to2d(), 2);
            // The window: the cells of the two corners widened by D.
            int i0, j0, i1, j1;
            grid_.getCellOfPointClamped({extents.minPoint.x - influence, extents.minPoint.y - influence}, i0, j0);
            grid_.getCellOfPointClamped({extents.maxPoint.x + influence, extents.maxPoint.y + influence}, i1, j1);
            vorn::CellWindow window{std::min(i0, i1), std::max(i0, i1), std::min(j0, j1), std::max(j0, j1)};
            nearCells.near(vorn::featureSegments(feature), influence, window, cells);
            vorn::rateFeatureCells(grid_, cells, influence, accumulation, [&db, &feature](const vorn::Point3d& c, vorn::Point3d& q) {
                return db.getClosestPointTo(feature, c, {0.0, 0.0, 1.0}, q) == vorn::eOk;
            });
        }
        if (acedUsrBrk()) {
            acutPrintf("\nCanceled by user!");
            return false;
        }
    }
    return true;
}
