#include "generators/areafacttab.h"

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/entity_geometry.h"
#include "drawing/layers.h"
#include "drawing/prompts.h"
#include "drawing/selection.h"
#include "drawing/tempgraphics.h"
#include "generators/areacover.h"
#include "generators/areabuild_support.h"
#include "generators/overlapcheck.h"

using vorn::formatString;

std::vector<vorn::PanelControl> CAreaFactTab::pageControls()
{
    using namespace vorn;
    std::vector<PanelControl> controls{
        editControl("Output File (.grd) :", outputFile.text, [this] { outputFile.edited(); }),
        buttonControl("Pick a file", [this] { outputFile.pick(); }),
        editControl("Grid Description", description),
        editControl("Inside Boundary:", insideText),
        editControl("Outside Boundary:", outsideText),
        radioControl("Middle Point", middlePoint, [this] { chooseAlgorithm(!middlePoint); }),
        radioControl("Area Based", areaBased, [this] { chooseAlgorithm(areaBased); }),
        editControl("Min. Area Inside (%):", minAreaText),
        checkControl("Remove Boundaries", removeBoundaries),
        buttonControl("< &Build Grid", [this] { OnBuildGrid(); }),
        buttonControl("< Check Boundaries", [this] { OnCheckBoundaries(); }),
        buttonControl("< Change Cells", [this] { OnChangeCells(); }),
        buttonControl("< &Draw Grid", [this] { OnDrawGrid(); }),
    };
    // The percentage is enabled only under the area rule.
    controls[7].readOnly = !areaBased;
    if (saveEnabled()) controls.push_back(buttonControl("< &Save Grid", [this] { OnSaveGrid(); }));
    return controls;
}

void CAreaFactTab::OnInitDialog() { outputFile.setDefault(); }

void CAreaFactTab::chooseAlgorithm(bool area)
{
    areaBased = area;
    middlePoint = !area;
}

void CAreaFactTab::OnMainDialogCancel()
{
    askSaveOnLeaving(saveEnabled(), [this] { OnSaveGrid(); });
}

void CAreaFactTab::OnBuildGrid()
{
    if (buildGrid()) grid.plotCodes(3);
}

bool CAreaFactTab::buildGrid()
{
    int inside = 0, outside = 0, percent = 0;
    if (!readIntField(insideText, 0, 100, inside) || !readIntField(outsideText, 0, 100, outside)) return false;
    if (areaBased && !readIntField(minAreaText, 1, 100, percent)) return false;
    if (saveEnabled() && AfxMessageBox("Modified Grid is not saved yet! continue to rebuild", MB_OKCANCEL) != IDOK)
        return false;
    if (inside == outside) {
        AfxMessageBox("Error: Inside boundary factor is equal to outside factor!");
        return false;
    }
    if (!mainDialog() || !mainDialog()->getBaseGrid(grid)) {
        AfxMessageBox("Grid definition error!");
        return false;
    }
    vorn::SelectionSet set;
    if (selectByLayer(set, kWorkingLayerName, {}, kPolylineTypes) < 1) {
        AfxMessageBox(formatString("No boundary objects were in Layer < %s > !", kWorkingLayerName));
        return false;
    }
    hideMainDialog();
    bool completed = buildFromBoundaries(set, inside, outside, percent);
    highlightSelection(set, false);
    acedRestoreStatusBar();
    if (removeBoundaries) {
        acutPrintf("\nBoundary polylines are removed!");
        clearLayerObjects(kWorkingLayerName);
    }
    redrawAndFlush();
    acedSSFree(set);
    showMainDialog(true);
    built = completed;
    saved = false;
    return completed;
}

bool CAreaFactTab::buildFromBoundaries(vorn::SelectionSet& set, int inside, int outside, int percent)
{
    double threshold = minAreaThreshold(grid, areaBased, percent);
    std::vector<vorn::Point2d> outline = gridOutline(grid);
    drawPolygonOutline(outline, 6, true);
    acutPrintf("\nFilter out the objects outside the grid...");
    long existed = set.length();
    dropOutsideGrid(set, outline);
    std::string message = formatString("Working layers: %s\n%ld Boundary objects existed, %ld are related to the grid!",
                                       kWorkingLayerName, existed, set.length());
    if (set.length() == 0) {
        AfxMessageBox(message);
        return false;
    }
    highlightSelection(set, true);
    if (askYesNo(message + "\nDo you want to continue?", 6) != 6) return false;

    grid.setAll(0.0);
    changed = false;
    acedSetStatusBarProgressMeter("Search cells against boundaries ...", 0, static_cast<int>(set.length()) - 1);
    acutPrintf("\n Building grid, please waiting...");
    AreaCover cover;
    forEachPolygonWindow(grid, set, cover, [&](const CellWindow& window) {
        if (areaBased)
            cover.addArea(grid, window, threshold);
        else
            cover.markCentresBelow(grid, window, threshold);
    });
    applyInsideOutside(grid, threshold, inside, outside);
    return true;
}

void CAreaFactTab::OnCheckBoundaries()
{
    vorn::SelectionSet set;
    if (selectByLayer(set, kWorkingLayerName, {}, kPolylineTypes) < 1) {
        AfxMessageBox(formatString("No boundary polyline objects are in layer < %s >!", kWorkingLayerName));
        return;
    }
    myGrid frameGrid;
    if (!mainDialog() || !mainDialog()->getBaseGrid(frameGrid)) {
        AfxMessageBox("Grid definition error!");
        acedSSFree(set);
        return;
    }
    hideMainDialog();
    std::vector<vorn::Point2d> outline = gridOutline(frameGrid);
    drawPolygonOutline(outline, 6, true);
    acutPrintf("\nFilter out the polylines outside the grid...");
    long existed = set.length();
    dropOutsideGrid(set, outline);
    highlightSelection(set, true);
    if (areaBased) {
        acutPrintf("\nCheck overlpped polylines ...");
        drawOverlaps(set, 1e-10);
    }
    AfxMessageBox(formatString("Working layers: %s\n%ld Boundary objects existed, %ld are related to the grid!",
                               kWorkingLayerName, existed, set.length()));
    redrawAndFlush();
    highlightSelection(set, false);
    acedSSFree(set);
    showMainDialog(true);
}

void CAreaFactTab::OnChangeCells()
{
    if (!grid.isDefined() && (!mainDialog() || !mainDialog()->getBaseGrid(grid))) {
        AfxMessageBox("Define grid fail!");
        return;
    }
    hideMainDialog();
    CellFrames frames(grid, [](double value) { return value > 1e-10 ? 1 : 3; });
    bool any = false;
    while (CellPick pick = frames.pick("\nSelect a point in the cell to reverse:")) {
        if (!pick.inside) continue;
        double& value = grid.values[pick.i][pick.j];
        if (value > 1e-10) {
            value = 0.0;
            acutPrintf("\nCell(%d,%d) is change to opening!", pick.i + 1, pick.j + 1);
        } else {
            value = 1.0;
            acutPrintf("\nCell(%d,%d) is change to pillar!", pick.i + 1, pick.j + 1);
        }
        frames.recolor(pick.i, pick.j);
        any = true;
    }
    frames.erase();
    if (any) {
        changed = true;
        saved = false;
    }
    showMainDialog(true);
}

void CAreaFactTab::OnDrawGrid() { grid.plotCodes(3); }

void CAreaFactTab::OnSaveGrid()
{
    if (!built) return;
    if (outputFile.text.empty()) {
        std::string path;
        if (!pickFileName(false, "grd", path)) return;
        outputFile.take(path);
    }
    if (AfxMessageBox(formatString("Grid value will be saved to < %s >", outputFile.text.c_str()), MB_OKCANCEL) != IDOK)
        return;
    grid.setTitle(description);
    if (grid.writeGrd(outputFile.text)) saved = true;
}
