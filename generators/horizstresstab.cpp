#include "generators/horizstresstab.h"

#include <algorithm>
#include <numbers>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/entity_geometry.h"
#include "drawing/layers.h"
#include "drawing/prompts.h"
#include "drawing/selection.h"
#include "drawing/tempgraphics.h"
#include "generators/areabuild_support.h"
#include "generators/horizstress_rating.h"

using vorn::formatString;

std::vector<vorn::PanelControl> CHorizonStressTab::pageControls()
{
    using namespace vorn;
    std::vector<PanelControl> controls{
        editControl("Output File (.grd) :", outputFile.text, [this] { outputFile.edited(); }),
        buttonControl("Pick a file", [this] { outputFile.pick(); }),
        entryLayers.control("Entry Projection Layers"),
        buttonControl("<Pick Layer", [this] { OnPickLayer(); }),
        editControl("Width of Entries", widthText),
        buttonControl("Pick a distance", [this] { OnPickDistance(); }),
        readOnlyControl("Orientation of Max Stress", orientationText),
        buttonControl("Pick a orientation", [this] { OnPickOrientation(); }),
        editControl("Grid Title", title),
        buttonControl("< &Build Grid", [this] { OnBuildGrid(); }),
    };
    if (built) controls.push_back(buttonControl("< &Draw Grid", [this] { OnDrawGrid(); }));
    if (built && !saved) controls.push_back(buttonControl("< &Save Grid", [this] { OnSaveGrid(); }));
    return controls;
}

void CHorizonStressTab::OnInitDialog()
{
    outputFile.setDefault();
    std::vector<std::string> names;
    fillLayerList(names);
    entryLayers.fill(names);
}

// A width at or below zero is replaced by the frame's cell width in X.
void CHorizonStressTab::OnTabActivation(bool active)
{
    if (active && _wtof(widthText) <= 1e-10 && mainDialog()) widthText = formatString("%.15g", _wtof(mainDialog()->xCellText));
}

void CHorizonStressTab::OnMainDialogCancel()
{
    askSaveOnLeaving(built && !saved, [this] { OnSaveGrid(); });
}

void CHorizonStressTab::OnBuildGrid()
{
    if (entryLayers.joined.empty()) {
        AfxMessageBox("Select layer name first!!");
        return;
    }
    double width = _wtof(widthText);
    if (width <= 0.0) {
        AfxMessageBox("entry width must biger than zero!!?");
        return;
    }
    if (built && !saved && AfxMessageBox("Grid is not saved yet! Continue to discard and rebuild", MB_OKCANCEL) != IDOK)
        return;
    if (!mainDialog() || !mainDialog()->getBaseGrid(grid)) {
        AfxMessageBox("Grid initialization error!");
        built = saved = false;
        return;
    }
    hideMainDialog();
    // The width is halved for the build only: the field keeps the whole width.
    bool finished = rateEntries(width / 2);
    redrawAndFlush();
    acedRestoreStatusBar();
    showMainDialog(true);
    built = finished;
    saved = false;
    if (finished) grid.plot();
}

namespace {
std::vector<vorn::Point2d> userPoints(const std::vector<vorn::Point2d>& world)
{
    std::vector<vorn::Point2d> user;
    for (const vorn::Point2d& p : world) {
        ads_point u;
        acdbWcs2Ucs({p.x, p.y, 0.0}, u);
        user.push_back({u.x, u.y});
    }
    return user;
}
}  // namespace

bool CHorizonStressTab::rateEntries(double halfWidth)
{
    std::vector<vorn::Point2d> outline = userPoints(gridOutline(grid));
    drawPolygonOutline(outline, 2, true);
    vorn::SelectionSet set;
    long count = selectByLayer(set, entryLayers.joined, outline, kEntryLineTypes);
    highlightSelection(set, true);
    acutPrintf("\nTotal number of projection lines found: %ld in Layers: %s", count, entryLayers.joined.c_str());
    std::string reply;
    bool goOn = count > 0 ? acedGetString(0, "\n <Enter> key to continue ...", reply) != RTCAN
                          : (acedGetString(0, "\n <Enter> key to Quit ...", reply), false);
    if (!goOn) {
        highlightSelection(set, false);
        acedSSFree(set);
        return false;
    }
    grid.setAll(0.0);
    redrawAndFlush();
    std::vector<vorn::ObjectId> ids;
    selectionToIds(set, ids);
    highlightSelection(set, false);
    acedSSFree(set);
    acedSetStatusBarProgressMeter("Horizontal Stress Effect Griding...", 0, static_cast<int>(ids.size()));
    std::vector<vorn::Point3d> points;
    for (size_t k = 0; k < ids.size(); ++k) {
        acedSetStatusBarProgressMeterPos(static_cast<int>(k + 1));
        if (getEntityVertices(ids[k], points) < 2) {
            acutPrintf("\n Projection line %d has too few points.", static_cast<int>(k));
            continue;
        }
        if (!rateLine(points, halfWidth)) return false;
    }
    return true;
}

bool CHorizonStressTab::rateLine(const std::vector<vorn::Point3d>& points, double halfWidth)
{
    for (size_t k = 0; k + 1 < points.size(); ++k) {
        const vorn::Point3d& a = points[k];
        const vorn::Point3d& b = points[k + 1];
        double rating = entryRating(acutAngle(a, b), orientation);
        ads_point low, high;
        acdbWcs2Ucs({std::min(a.x, b.x), std::min(a.y, b.y), 0.0}, low);
        acdbWcs2Ucs({std::max(a.x, b.x), std::max(a.y, b.y), 0.0}, high);
        drawRectangleOutline(low.to2d(), high.to2d(), 2);
        rateSegmentCells(grid, a.to2d(), b.to2d(), halfWidth, rating);
        if (acedUsrBrk()) {
            acutPrintf("\nCanceled by user!");
            return false;
        }
    }
    return true;
}

void CHorizonStressTab::OnDrawGrid() { grid.plot(); }

void CHorizonStressTab::OnSaveGrid()
{
    if (!built) return;
    if (outputFile.text.empty()) {
        std::string path;
        if (!pickFileName(false, "grd", path)) return;
        outputFile.take(path);
    }
    if (!title.empty()) grid.setTitle(title);
    if (AfxMessageBox(formatString("Grid value will be saved to < %s >", outputFile.text.c_str()), MB_OKCANCEL) != IDOK)
        return;
    if (grid.writeGrd(outputFile.text)) saved = true;
}

void CHorizonStressTab::OnPickLayer()
{
    hideMainDialog();
    pickLayersByObject(entryLayers, "\nSelect any object in the layer");
    showMainDialog(true);
}

ads_point CHorizonStressTab::gridOriginUser() const
{
    myGrid frameGrid;
    if (mainDialog()) mainDialog()->getBaseGrid(frameGrid);
    ads_point user;
    acdbWcs2Ucs({frameGrid.origin.x, frameGrid.origin.y, 0.0}, user);
    return user;
}

void CHorizonStressTab::OnPickDistance()
{
    hideMainDialog();
    ads_point base = gridOriginUser();
    double distance = 0.0;
    acedInitGet(70, "");
    if (acedGetDist(&base, formatString("\nInput width of entry <%f>: ", _wtof(widthText)).c_str(), distance) == RTNORM) {
        std::string text;
        acdbRToS(distance, 2, -1, text);
        double value = 0.0;
        if (acdbDisToF(text.c_str(), 2, value) == RTNORM) widthText = formatString("%.15g", value);
    }
    showMainDialog(true);
}

void CHorizonStressTab::OnPickOrientation()
{
    hideMainDialog();
    ads_point base = gridOriginUser();
    double angle = 0.0;
    acedInitGet(68, "");
    std::string prompt = formatString("\nInput orientation of the maxmum horizontal stress <%s>: ", orientationText.c_str());
    if (acedGetOrient(&base, prompt.c_str(), angle) == RTNORM) {
        if (angle > std::numbers::pi) angle -= std::numbers::pi;
        orientation = angle;
        acdbAngToS(angle, 0, -1, orientationText);
    }
    showMainDialog(true);
}
