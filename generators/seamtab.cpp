#include "generators/seamtab.h"

#include <cmath>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/layers.h"
#include "drawing/prompts.h"
#include "drawing/selection.h"
#include "drawing/tempgraphics.h"
#include "generators/areabuild_support.h"
#include "generators/areacover.h"

using vorn::formatString;

void limitToOneCharacter(std::string& code)
{
    if (code.size() > 1) code.resize(1);
}

std::vector<vorn::PanelControl> CSeamTab::pageControls()
{
    using namespace vorn;
    std::vector<PanelControl> controls{
        editControl("Output File (.txt) :", outputFile.text, [this] { outputFile.edited(); }),
        buttonControl("Pick a file", [this] { outputFile.pick(); }),
        pillarLayers.control("Pillar Layer", [this](size_t row) { keepApart(pillarLayers, row, gobLayers); }),
        buttonControl("Pillar Layer", [this] { OnPillarLayer(); }),
        buttonControl("Preview", [this] { OnPreviewPillars(); }),
        gobLayers.control("Gob Layer", [this](size_t row) { keepApart(gobLayers, row, pillarLayers); }),
        buttonControl("Gob Layer", [this] { OnGobLayer(); }),
        buttonControl("Preview", [this] { OnPreviewGobs(); }),
        radioControl("Middle Point ", middlePoint, [this] { chooseAlgorithm(!middlePoint); }),
        radioControl("Area Based", areaBased, [this] { chooseAlgorithm(areaBased); }),
        editControl("Min. Area Inside (%):", minAreaText),
        editControl("Pillar:", pillarCode, [this] { limitToOneCharacter(pillarCode); }),
        editControl("Entry:", entryCode, [this] { limitToOneCharacter(entryCode); }),
        editControl("Gob:", gobCode, [this] { limitToOneCharacter(gobCode); }),
        buttonControl(" &Build Grid ...", [this] { OnBuildGrid(); }),
    };
    if (built) {
        controls.push_back(buttonControl(" Edit Cells ...", [this] { OnEditCells(); }));
        controls.push_back(buttonControl(" &Draw Grid ...", [this] { OnDrawGrid(); }));
    }
    if (saveEnabled()) controls.push_back(buttonControl(" &Save Grid ...", [this] { OnSaveGrid(); }));
    return controls;
}

void CSeamTab::OnInitDialog()
{
    outputFile.setDefault();
    std::vector<std::string> names;
    fillLayerListCtrl(names);
    pillarLayers.fill(names);
    gobLayers.fill(names);
}

void CSeamTab::chooseAlgorithm(bool area)
{
    areaBased = area;
    middlePoint = !area;
}

void CSeamTab::keepApart(LayerChoiceList& checked, size_t row, LayerChoiceList& other)
{
    if (checked.chosen[row]) other.unchoose(checked.rows[row]);
}

void CSeamTab::OnMainDialogCancel()
{
    askSaveOnLeaving(built && !saved, [this] { OnSaveGrid(); });
}

void CSeamTab::OnBuildGrid()
{
    if (buildGrid()) grid.plotCodes(3);
}

bool CSeamTab::buildGrid()
{
    int percent = 0;
    if (!readIntField(minAreaText, 1, 100, percent)) return false;
    if (built && !saved && AfxMessageBox("grid is not saved yet! continue to rebuild", MB_OKCANCEL) != IDOK) return false;
    if (pillarLayers.joined.empty()) {
        AfxMessageBox("No pillar layer is selected!");
        return false;
    }
    if (!mainDialog() || !mainDialog()->getBaseGrid(grid)) {
        AfxMessageBox("Grid definition error!");
        return false;
    }
    if (std::fabs(grid.xCellW - grid.yCellW) > 1e-10) {
        AfxMessageBox("Keldar grid requires square elements! You need redefine the cell width!!");
        return false;
    }
    std::vector<vorn::ObjectId> pillarIds;
    if (selectIdsByLayer(pillarIds, pillarLayers.joined, kPolylineTypes) < 1) {
        AfxMessageBox("No Pillar objects were in scope!");
        return false;
    }
    hideMainDialog();
    bool finished = buildFromPolygons(pillarIds, percent);
    showMainDialog(true);
    built = finished;
    saved = false;
    return finished;
}

bool CSeamTab::buildFromPolygons(std::vector<vorn::ObjectId>& pillarIds, int percent)
{
    double threshold = minAreaThreshold(grid, areaBased, percent);
    std::vector<vorn::Point2d> outline = gridOutline(grid);
    drawPolygonOutline(outline, 6, true);
    vorn::SelectionSet pillars, gobs;
    pillars.ids = pillarIds;
    long selected = pillars.length();
    acutPrintf("\nFilter out the pillars outside the grid...");
    dropOutsideGrid(pillars, outline);
    highlightSelection(pillars, true);
    bool overlapped = false;
    if (pillars.length() > 0) {
        acutPrintf("\nCheck overlpped pillars ...");
        if (areaBased) overlapped = drawOverlaps(pillars, threshold * 0.1);
    }
    // The first number shows the related count as well once two or more
    // pillars are left under the area rule.
    long shownSelected = areaBased && pillars.length() >= 2 ? pillars.length() : selected;
    std::string message = formatString("Pillar layers: %s\n%ld Pillar objects were selected, %ld are related to the grid!",
                                       pillarLayers.joined.c_str(), shownSelected, pillars.length());
    if (overlapped) message += "\nThere are Overlapped pillar objects!";
    bool goOn = pillars.length() > 0 && askYesNo(message + "\nDo you want to continue?", 6) == 6 &&
                askForGob(pillars, gobs, outline);
    if (goOn) {
        grid.setAll(0.0);
        changedByHand = false;
        coverPillars(pillars, threshold);
        coverGobs(gobs, threshold);
    }
    acedRestoreStatusBar();
    redrawAndFlush();
    highlightSelection(pillars, false);
    highlightSelection(gobs, false);
    return goOn;
}

bool CSeamTab::askForGob(vorn::SelectionSet& pillars, vorn::SelectionSet& gobs,
                         const std::vector<vorn::Point2d>& outline)
{
    selectIdsByLayer(gobs.ids, gobLayers.joined, kPolylineTypes);
    acutPrintf("\nFilter out the pillars outside the grid...");
    dropOutsideGrid(gobs, outline);
    if (gobs.length() == 0) return true;
    highlightSelection(pillars, false);
    highlightSelection(gobs, true);
    std::string message = formatString("Gob layers: %s\n%ld Gob polygons were selected!", gobLayers.joined.c_str(),
                                       gobs.length());
    bool yes = askYesNo(message + "\nDo you want to continue?", 6) == 6;
    highlightSelection(gobs, false);
    highlightSelection(pillars, true);
    return yes;
}

void CSeamTab::coverPillars(const vorn::SelectionSet& pillars, double threshold)
{
    acedSetStatusBarProgressMeter("Search cells against pillars ...", 0, static_cast<int>(pillars.length()) - 1);
    acutPrintf("\n Building seam grid, please waiting...");
    AreaCover cover;
    forEachPolygonWindow(grid, pillars, cover, [&](const CellWindow& window) {
        if (areaBased)
            cover.addArea(grid, window, threshold);
        else
            cover.markCentresNotAbove(grid, window, threshold);
    });
    if (areaBased) classifyPillarCells(grid, threshold);
}

void CSeamTab::coverGobs(const vorn::SelectionSet& gobs, double threshold)
{
    acedSetStatusBarProgressMeter("Search cells against gob polygons ...", 0, static_cast<int>(gobs.length()) - 1);
    acutPrintf("\n Building seam grid, please waiting...");
    AreaCover cover;
    forEachPolygonWindow(grid, gobs, cover, [&](const CellWindow& window) {
        if (areaBased)
            cover.subtractArea(grid, window);
        else
            cover.markGobCentres(grid, window);
    });
    if (gobs.length() > 0 && areaBased) classifyGobCells(grid, threshold);
}

void CSeamTab::OnEditCells()
{
    if (!grid.isDefined() && (!mainDialog() || !mainDialog()->getBaseGrid(grid))) {
        AfxMessageBox("Define grid fail!");
        return;
    }
    hideMainDialog();
    CellFrames frames(grid, [](double value) { return value > 1e-10 ? 1 : value < -1e-10 ? 2 : 3; });
    while (CellPick pick = frames.pick("\nSelect a point in the cell to change:")) {
        if (!pick.inside) continue;
        double& value = grid.values[pick.i][pick.j];
        if (value < -1e-10) {
            value = 0.0;
            acutPrintf("\nCell(%d,%d) is change to opening!", pick.i + 1, pick.j + 1);
        } else if (value > 1e-10) {
            value = -1.0;
            acutPrintf("\nCell(%d,%d) is change to gob!", pick.i + 1, pick.j + 1);
        } else {
            value = 1.0;
            acutPrintf("\nCell(%d,%d) is change to pillar!", pick.i + 1, pick.j + 1);
        }
        frames.recolor(pick.i, pick.j);
        changedByHand = true;
    }
    frames.erase();
    if (changedByHand && saved) saved = false;
    showMainDialog(true);
}

void CSeamTab::OnDrawGrid() { grid.plotCodes(3); }

SeamCodes CSeamTab::codes()
{
    // assign() keeps g++ 12 from a false -Wrestrict.
    if (pillarCode.empty()) pillarCode.assign(1, 'A');
    if (entryCode.empty()) entryCode.assign(1, '1');
    if (gobCode.empty()) gobCode.assign(1, 'S');
    return {pillarCode[0], entryCode[0], gobCode[0]};
}

void CSeamTab::OnSaveGrid()
{
    SeamCodes seamCodes = codes();
    if (!built) {
        AfxMessageBox("Grid is not defined or built!");
        return;
    }
    if (outputFile.text.empty()) {
        std::string path;
        if (!pickFileName(false, "txt", path)) return;
        outputFile.take(path);
    }
    if (AfxMessageBox(formatString("Seam Grid value will be saved to < %s >", outputFile.text.c_str()), MB_OKCANCEL) !=
        IDOK)
        return;
    if (!writeSeamFile(outputFile.text, grid, seamCodes)) {
        AfxMessageBox("File could not be opened for writing");
        return;
    }
    saved = true;
    changedByHand = false;
}

namespace {
void previewLayers(const LayerChoiceList& layers, const char* format)
{
    std::vector<vorn::ObjectId> ids;
    long count = selectIdsByLayer(ids, layers.joined, kPolylineTypes);
    highlightIds(ids, true);
    acutPrintf(format, static_cast<int>(count), layers.joined.c_str());
    std::string reply;
    acedGetString(0, "\n <Enter> key to continue ...", reply);
    highlightIds(ids, false);
}
}  // namespace

void CSeamTab::OnPreviewPillars()
{
    hideMainDialog();
    previewLayers(pillarLayers, "\n%d objetcs in pillar layers: %s");
    showMainDialog(true);
}

void CSeamTab::OnPreviewGobs()
{
    hideMainDialog();
    previewLayers(gobLayers, "\n%d objetcs in gob layers: %s");
    showMainDialog(true);
}

void CSeamTab::OnPillarLayer()
{
    hideMainDialog();
    pickLayersByObject(pillarLayers, "\nSelect any pillar object in the layer",
                       [this](size_t row) { keepApart(pillarLayers, row, gobLayers); });
    showMainDialog(true);
}

void CSeamTab::OnGobLayer()
{
    hideMainDialog();
    pickLayersByObject(gobLayers, "\nSelect any gob polygon object in the layer",
                       [this](size_t row) { keepApart(gobLayers, row, pillarLayers); });
    showMainDialog(true);
}
