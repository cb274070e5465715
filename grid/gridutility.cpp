#include "grid/gridutility.h"

#include <algorithm>
#include <cmath>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/create.h"
#include "drawing/drag.h"
#include "drawing/drawing_helpers.h"
#include "drawing/editor_port.h"
#include "drawing/layers.h"
#include "drawing/platform.h"
#include "drawing/database_port.h"
#include "drawing/prompts.h"
#include "drawing/selection.h"
#include "drawing/ui_port.h"
#include "grid/grideditor.h"
#include "grid/gridplot.h"

namespace {

const std::vector<std::string> kOperations = {"Add", "Subtract", "Multiply", "Divide", "Square", "Square Root"};
const std::vector<std::string> kPlotKinds(std::begin(kPlotKindCaptions), std::end(kPlotKindCaptions));

// The statistics percentage of the last "Statistic", for the run of the
// program.
double lastPercent = 50.0;

std::string dialogValue(const std::string& key, const std::string& fallback)
{
    vorn::UiPort* ui = vorn::platform().ui;
    return ui ? ui->dialogData(kGridUtilityDialog, key, fallback) : fallback;
}

void setDialogValue(const std::string& key, const std::string& value)
{
    if (vorn::UiPort* ui = vorn::platform().ui) ui->setDialogData(kGridUtilityDialog, key, value);
}

std::string currentLayerName()
{
    vorn::ResultItem item;
    return acedGetVar("CLAYER", item) == RTNORM ? item.text : std::string("0");
}

bool isGridPath(const std::string& path) { return path.find("grd") != std::string::npos; }

// One node with the value by the operation; `known` false for an
// operation that is none of the six.
double applyOperation(const std::string& op, double a, double b)
{
    if (op == "Add") return a + b;
    if (op == "Subtract") return a - b;
    if (op == "Multiply") return a * b;
    if (op == "Divide") return a / b;
    if (op == "Square") return a * a;
    return std::sqrt(a);
}

}  // namespace

std::vector<vorn::PanelControl> dlg_gridutility::panelControls()
{
    using namespace vorn;
    return {
        staticControl("Current Grid File", path),
        buttonControl("New Grid ...", [this] { OnNewGrid(); }),
        buttonControl("Read from ...", [this] { OnReadFrom(); }),
        buttonControl("Save As ...", [this] { OnSaveAs(); }),
        buttonControl("Select File ...", [this] { OnSelectFile(); }),
        comboControl("Operations:", operation, kOperations),
        editControl("Value:", value),
        buttonControl("Apply with Grids...", [this] { OnApplyWithGrids(); }),
        buttonControl("Apply to Grid", [this] { OnApplyToGrid(); }),
        buttonControl("Statistic", [this] { OnStatistic(); }),
        buttonControl("< Move Position", [this] { OnMovePosition(); }),
        buttonControl("< Editor", [this] { OnEditor(); }),
        buttonControl("Correlation with", [this] { OnCorrelation(); }),
        comboControl("Layer:", layer, layers),
        buttonControl("< New", [this] { OnNewLayer(); }),
        comboControl("Type:", plotKind, kPlotKinds),
        checkControl("Color", colorCheck),
        checkControl("Group", groupCheck),
        buttonControl("Colors ...", [this] { OnColors(); }),
        buttonControl("< Preview", [this] { OnPreview(); }),
        buttonControl("< Legend", [this] { OnLegend(); }),
        buttonControl("< Plot", [this] { OnPlot(); }),
        readOnlyControl("Log", log),
    };
}

void dlg_gridutility::OnInitDialog()
{
    refreshLayers();
    layer = dialogValue("LAYER", currentLayerName());
    operation = dialogValue("OPERATION", "Add");
    plotKind = dialogValue("TYPE", "Polygons");
    colorCheck = dialogValue("COLOR", "0") == "1";
    groupCheck = dialogValue("GROUP", "0") == "1";
    value = dialogValue("VALUE", "");
    saved = false;
    modified = false;
}

void dlg_gridutility::refreshLayers()
{
    layers.clear();
    for (const vorn::LayerRecord& record : vorn::platform().database->layers()) layers.push_back(record.name);
}

void dlg_gridutility::storeValues()
{
    setDialogValue("LAYER", layer);
    setDialogValue("OPERATION", operation);
    setDialogValue("TYPE", plotKind);
    setDialogValue("COLOR", colorCheck ? "1" : "0");
    setDialogValue("GROUP", groupCheck ? "1" : "0");
    setDialogValue("VALUE", value);
}

void dlg_gridutility::OnOK()
{
    if (notSaved() && AfxMessageBox("Grid is modified but not saved, Do you want exit anyway?", MB_YESNO) != IDYES)
        return;
    storeValues();
    EndDialog(IDOK);
}

void dlg_gridutility::OnCancel()
{
    if (notSaved() && AfxMessageBox("Grid is modified but not saved, Do you want exit anyway?", MB_YESNO) != IDYES)
        return;
    EndDialog(IDCANCEL);
}

void dlg_gridutility::appendLog(const std::string& text)
{
    if (!log.empty()) log += "\r\n";
    log += text;
}

bool dlg_gridutility::requireGrid(const char* message)
{
    if (grid.isDefined()) return true;
    appendLog(message);
    return false;
}

void dlg_gridutility::changed()
{
    saved = false;
    modified = true;
}

bool dlg_gridutility::pickGrid(std::string& pathOut)
{
    pathOut = path;
    return pickFileName(true, "grd", pathOut);
}

// ---- Current Grid File ----------------------------------------------------

void dlg_gridutility::takeGrid(myGrid&& loaded)
{
    grid = std::move(loaded);
    xNum = grid.getXNum();
    yNum = grid.getYNum();
}

void dlg_gridutility::OnSelectFile()
{
    std::string chosen = path;
    if (!pickFileName(true, "grd", chosen)) return;
    chosen = vorn::toLower(chosen);
    myGrid loaded;
    bool read = isGridPath(chosen) ? loaded.readGrd(chosen, 1) : loaded.readTop(chosen, 1);
    if (!read) {
        AfxMessageBox("Grid file loading failed!");
        return;
    }
    path = chosen;
    takeGrid(std::move(loaded));
    grid.describe(true);
    appendLog("grid loaded: " + path);
    saved = false;
    modified = false;
}

void dlg_gridutility::OnNewGrid()
{
    if (notSaved() && AfxMessageBox("Grid is modified but not saved, Do you want to discard anyway?", MB_YESNO) != IDYES)
        return;
    if (!defineNewGrid) return;
    hide();
    myGrid defined;
    bool ok = defineNewGrid(defined);
    show();
    if (!ok) return;
    std::string chosen = drawingFolder() + "Untitled.grd";
    if (!pickFileName(false, "grd", chosen)) return;
    path = chosen;
    defined.setAll(0.0);
    takeGrid(std::move(defined));
    appendLog("New Grid Defined ! ( " + std::to_string(xNum) + " X " + std::to_string(yNum) + " )" + " for " + path);
    changed();
}

void dlg_gridutility::OnSaveAs()
{
    std::string chosen = path;
    if (!pickFileName(false, "grd", chosen)) return;
    grid.writeGrd(chosen);
    path = chosen;
    saved = true;
    appendLog(vorn::formatString("grid saved to %s", chosen.c_str()));
}

void dlg_gridutility::OnReadFrom()
{
    if (!requireGrid()) return;
    std::string source;
    if (!pickGrid(source)) return;
    myGrid other;
    if (!other.readGrd(source, 1)) {
        AfxMessageBox("File is not correctly read in!");
        appendLog("Read file error!");
        return;
    }
    std::string question = vorn::formatString(
        "Get grid values from %s, the nearest value will be assigned to grid cells out of range!", source.c_str());
    if (AfxMessageBox(question, MB_OKCANCEL) != IDOK) return;
    for (int i = 0; i <= xNum; ++i) {
        for (int j = 0; j <= yNum; ++j) {
            vorn::Point3 centre;
            grid.getCellCentre(i, j, centre);
            int oi = 0, oj = 0;
            other.getCellOfPointClamped({centre.x, centre.y}, oi, oj);
            grid.setValue(i, j, other.getValue(oi, oj));
        }
    }
    changed();
    std::string done = vorn::formatString("Grid values have been read in from %s", source.c_str());
    AfxMessageBox(done);
    appendLog(done);
}

// ---- Grid Value Manage ------------------------------------------------------

void dlg_gridutility::OnApplyToGrid()
{
    if (!requireGrid()) return;
    if (value.empty()) return;
    if (std::fabs(_wtof(value)) < 1e-10) {
        AfxMessageBox("No Zero value makes sense!!");
        return;
    }
    std::string message;
    if (operation == "Add") {
        message = vorn::formatString("Apply <%s> to grid cells with value < %s >!", operation.c_str(), value.c_str());
    } else if (operation == "Subtract" || operation == "Multiply" || operation == "Divide") {
        message = vorn::formatString("Apply <%s> to grid cells with value <%s>!", operation.c_str(), value.c_str());
    } else if (operation == "Square" || operation == "Square Root") {
        message = vorn::formatString("Apply <%s> to grid cells!", operation.c_str());
        double min = 0.0, max = 0.0;
        if (operation == "Square Root" && grid.getMinMax(min, max) && min < 0.0) {
            AfxMessageBox("Negative value can not find square root !!");
            return;
        }
    } else {
        AfxMessageBox("Unsupported Operation!!");
        return;
    }
    if (AfxMessageBox(message, MB_OKCANCEL) != IDOK) return;
    for (int i = 0; i <= xNum; ++i) {
        for (int j = 0; j <= yNum; ++j) grid.setValue(i, j, applyOperation(operation, grid.getValue(i, j), _wtof(value)));
    }
    changed();
    appendLog(message + " Done!");
}

void dlg_gridutility::OnApplyWithGrids()
{
    if (operation != "Add" && operation != "Subtract" && operation != "Multiply" && operation != "Divide") {
        AfxMessageBox("Unsupported Operation!!");
        return;
    }
    if (!requireGrid()) return;
    std::string source;
    if (!pickGrid(source)) return;
    std::string message = vorn::formatString("Apply <%s> to grid cells with values from grid <%s>!", operation.c_str(),
                                             source.c_str());
    if (AfxMessageBox(message, MB_OKCANCEL) != IDOK) return;
    myGrid other;
    if (!other.readGrd(source, 1)) {
        AfxMessageBox("Can not read in grid file!");
        return;
    }
    for (int i = 0; i <= xNum; ++i) {
        for (int j = 0; j <= yNum; ++j) {
            vorn::Point3 centre;
            grid.getCellCentre(i, j, centre);
            int oi = -1, oj = -1;
            other.getCellOfPoint({centre.x, centre.y}, oi, oj);
            if (oi < 0 || oj < 0) continue;
            double b = other.getValue(oi, oj);
            double a = grid.getValue(i, j);
            if (operation == "Divide" && !(std::fabs(b) > 1e-10)) continue;
            grid.setValue(i, j, applyOperation(operation, a, b));
        }
    }
    changed();
    appendLog(message + " Done!");
}

std::vector<std::string> statisticLines(const myGrid& of)
{
    return {
        vorn::formatString("Total Sample: %d", of.getStatCount()),
        vorn::formatString("Mean: %f", of.getStatMean()),
        vorn::formatString("Standard Deviation: %f", of.getStatStdDev()),
        vorn::formatString("Minimum Value: %f (%d samples)", of.getStatMin(), of.getMinCellCount()),
        vorn::formatString("Maximum Value: %f (%d samples)", of.getStatMax(), of.getMaxCellCount()),
    };
}

std::vector<std::string> correlationLines(myGrid& grid, myGrid& other, const std::string& otherPath)
{
    grid.computeStatistics({}, {}, 50.0);
    other.computeStatistics({}, {}, 50.0);
    std::vector<std::string> lines = {"Current Grid:"};
    for (const std::string& line : statisticLines(grid)) lines.push_back(line);
    lines.push_back("Grid: " + otherPath);
    for (const std::string& line : statisticLines(other)) lines.push_back(line);
    lines.push_back(vorn::formatString("Correlation Coefficent: %f", grid.getCorrelation(other)));
    return lines;
}

namespace {

std::vector<vorn::ObjectId> selectPolygons(const char* prompt)
{
    acedPrompt(prompt);
    vorn::SelectionSet set;
    vorn::ResultBuffer filter = {vorn::ResultItem::ofText(0, kPolylineTypes)};
    std::vector<vorn::ObjectId> ids;
    if (acedSSGet("", {}, filter, set) == RTNORM) selectionToIds(set, ids);
    acedSSFree(set);
    return ids;
}

}  // namespace

void dlg_gridutility::OnStatistic()
{
    if (!grid.isDefined()) return;
    hide();
    std::vector<vorn::ObjectId> inclusions = selectPolygons("\nSelect inclusion polygons:");
    std::vector<vorn::ObjectId> exclusions = selectPolygons("\nSelect exclusion polygons:");
    std::string prompt = vorn::formatString(
        "\nInput area percentage criteria of grid cell inside/outside polygons<%g>:", lastPercent);
    double percent = lastPercent;
    int status = acedGetReal(prompt.c_str(), percent);
    if (status == RTNONE) percent = lastPercent;
    if (status == RTNORM || status == RTNONE) {
        lastPercent = percent;
        grid.computeStatistics(inclusions, exclusions, percent);
        acutPrintf("\nStatistics:");
        for (const std::string& line : statisticLines(grid)) {
            appendLog(line);
            acutPrintf("\n%s", line.c_str());
        }
        acedRedraw();
    }
    show();
}

void dlg_gridutility::OnCorrelation()
{
    if (!grid.isDefined()) return;
    std::string source;
    if (!pickGrid(source)) return;
    myGrid other;
    if (!other.readGrd(source, 1)) {
        AfxMessageBox("File read error!");
        return;
    }
    for (const std::string& line : correlationLines(grid, other, source)) {
        appendLog(line);
        acutPrintf("\n%s.", line.c_str());
    }
}

void dlg_gridutility::OnMovePosition()
{
    if (!requireGrid("grid is not defined!")) return;
    hide();
    std::vector<vorn::Point2> outline;
    grid.getOutline(outline);
    std::vector<vorn::Point2d> corners;
    for (const vorn::Point2& p : outline) corners.push_back({p.x, p.y});
    vorn::ObjectId frame;
    addPolylineFromPoints(frame, corners, true, 0.0, 7);
    vorn::SelectionSet set;
    acedSSAdd(frame, set);
    vorn::Point3d from;
    acdbWcs2Ucs({grid.origin.x, grid.origin.y, 0.0}, from);
    setDragBase(from, 0.0, 1.0);
    vorn::Point3d to;
    if (dragToNewPosition(set, dragMoveCallback, to) == RTNORM) {
        appendLog(vorn::formatString("Origin position moved from (%f,%f) to (%f,%f)", from.x, from.y, to.x, to.y));
        vorn::Point3d world;
        acdbUcs2Wcs(to, world);
        grid.setOrigin(vorn::Point2{world.x, world.y});
        modified = true;
    }
    acedSSFree(set);
    eraseIds({frame}, true);
    show();
}

void dlg_gridutility::OnEditor()
{
    if (!requireGrid()) return;
    hide();
    acutPrintf("\nGrid File : %s", path.c_str());
    grid.describe(true);
    vorn::ResultItem dynmode;
    bool hadDynmode = acedGetVar("DYNMODE", dynmode) == RTNORM;
    acedSetVar("DYNMODE", vorn::ResultItem::ofInt(vorn::RTSHORT, 0));
    editGrid(grid);
    if (hadDynmode) acedSetVar("DYNMODE", dynmode);
    show();
}

// ---- Plot and Settings --------------------------------------------------------

void dlg_gridutility::OnNewLayer()
{
    std::string name;
    for (;;) {
        if (acedGetString(1, "\nInput new layer name:", name) != RTNORM || name.empty()) return;
        vorn::LayerRecord existing;
        if (!vorn::platform().database->findLayer(name, existing)) break;
        acutPrintf("\nLayer < %s > has existed!", name.c_str());
    }
    if (ensureLayer(name, 7) != vorn::eOk) {
        acutPrintf("\nLayer < %s > can not been created!", name.c_str());
        return;
    }
    refreshLayers();
    appendLog(vorn::formatString("New layer < %s > has been created!", name.c_str()));
}

void dlg_gridutility::OnColors()
{
    if (grid.isDefined()) grid.editColors();
}

void dlg_gridutility::plotOrPreview(bool preview)
{
    if (!grid.isDefined()) return;
    auto kind = std::find(kPlotKinds.begin(), kPlotKinds.end(), plotKind);
    int type = kind == kPlotKinds.end() ? 8 : static_cast<int>(kind - kPlotKinds.begin());
    const char* word = type < 8 ? kPlotKindWords[type] : plotKind.c_str();
    std::string text = vorn::formatString(preview ? "Preview %s on layer %s in %s %s" : "Plot %s on layer %s in %s %s", word,
                                          layer.c_str(), colorCheck ? "color" : "black/white", groupCheck ? "to group" : "");
    hide();
    if (preview || askYesNo(text, 6) == 6) {
        grid.setPlotOptions(type, colorCheck ? 2 : 1, layer, preview, groupCheck);
        grid.plot();
        if (!preview) {
            std::string answer;
            acedGetString(0, "\n <Enter> key to continue ...", answer);
        }
        appendLog(text);
    }
    show();
}

void dlg_gridutility::OnLegend()
{
    if (!grid.isDefined()) {
        appendLog("Grid is not defined!");
        return;
    }
    hide();
    std::string message;
    drawGridLegend(grid, layer, groupCheck, message);
    if (!message.empty()) appendLog(message);
    show();
}
