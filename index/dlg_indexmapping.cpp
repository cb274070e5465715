#include "index/dlg_indexmapping.h"

#include <algorithm>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/create.h"
#include "drawing/database_port.h"
#include "drawing/drawing_helpers.h"
#include "drawing/entity_geometry.h"
#include "drawing/lattice_union.h"
#include "drawing/layers.h"
#include "drawing/platform.h"
#include "drawing/polygon.h"
#include "drawing/prompts.h"
#include "drawing/region_merge.h"
#include "drawing/selection.h"
#include "drawing/sysvars.h"
#include "drawing/tempgraphics.h"
#include "grid/colorschema.h"
#include "index/index_support.h"

using vorn::Entity;
using vorn::formatString;
using vorn::ObjectId;
using vorn::Point2d;

namespace {

vorn::DatabasePort& database() { return *vorn::platform().database; }

constexpr const char* kEnterToContinue = "\n <Enter> key to continue ...";

// A prompt that waits for Enter; true for a normal answer.
bool waitForEnter(const char* prompt)
{
    std::string answer;
    return acedGetString(0, prompt, answer) == RTNORM;
}

std::vector<Point2d> cellCorners(const myGrid& grid, int i, int j)
{
    std::vector<vorn::Point2> corners;
    grid.getCellPolygon(i, j, corners);
    std::vector<Point2d> points;
    for (const vorn::Point2& p : corners) points.push_back({p.x, p.y});
    return points;
}

// The region of a closed 4-vertex polyline through the corners, as the
// platform makes it; a null entity when it cannot.
Entity cellRegion(const std::vector<Point2d>& corners)
{
    Entity polyline;
    vorn::LwPolyline shape;
    for (const Point2d& p : corners) shape.vertices.push_back({p, 0.0, -1.0, -1.0});
    shape.closed = true;
    polyline.shape = shape;
    std::vector<Entity> regions;
    database().createRegionsFromCurves({polyline}, regions);
    if (regions.empty() || !regions.front().as<vorn::Region>()) return {};
    return regions.front();
}

// A region of one outer ring through the corners, without holes.
vorn::Region quadRegion(const std::vector<Point2d>& corners)
{
    vorn::Region region;
    region.faces.push_back({corners, {}});
    return region;
}

bool isNullRegion(const Entity& e)
{
    const vorn::Region* region = e.as<vorn::Region>();
    return !region || region->faces.empty();
}

std::vector<std::string> splitAtCommas(const std::string& text)
{
    std::vector<std::string> pieces;
    size_t start = 0;
    for (size_t comma = text.find(','); comma != std::string::npos; comma = text.find(',', start)) {
        pieces.push_back(text.substr(start, comma - start));
        start = comma + 1;
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

}  // namespace

// ---- the panel

std::vector<vorn::PanelControl> dlg_indexmapping::panelControls()
{
    using namespace vorn;
    PanelControl preview = buttonControl("Pre&view Grid", [this] { OnPreview(); });
    preview.readOnly = !previewEnabled_;
    PanelControl hatch = buttonControl("&Hatch", [this] { OnHatch(); });
    hatch.readOnly = !hatchEnabled();
    PanelControl thresholdField = editControl("Threshold:", thresholdText_);
    thresholdField.readOnly = filter == 0;
    return {
        buttonControl("Pick the file", [this] { OnPickFile(); }),
        readOnlyControl("Index Grid File:", gridPath),
        readOnlyControl("Grid Infomation", gridInfo),
        preview,
        comboControl("Mapping Layer:", mappingLayer, comboLayers_),
        buttonControl("New", [this] { OnNewLayer(); }),
        readOnlyControl("Pillar Layers", pillarLayers),
        listControl("Pillar Layer List", clickedLayer_, listLayers_, [this] {
            auto found = std::find(listLayers_.begin(), listLayers_.end(), clickedLayer_);
            if (found != listLayers_.end()) listSelected_[found - listLayers_.begin()] = !listSelected_[found - listLayers_.begin()];
            rebuildPillarLayers();
        }),
        buttonControl("Pick a layer", [this] { OnPickLayer(); }),
        radioControl("All Values", allValues_, [this] { onFilterChanged(); }),
        radioControl("Larger than", largerThan_, [this] { onFilterChanged(); }),
        radioControl("Small than", smallThan_, [this] { onFilterChanged(); }),
        thresholdField,
        checkControl("Black/White", blackWhite),
        buttonControl("< &Analyze ...", [this] { OnAnalyze(); }),
        buttonControl("< Pick Region", [this] { OnPickRegion(); }),
        hatch,
        buttonControl("E&xit", [this] { OnCancel(); }),
        staticControl("Status", status),
    };
}

// The current layer is the default mapping layer, except the working layer,
// which is switched to "0" for good.
void dlg_indexmapping::OnInitDialog()
{
    refreshLayers();
    mappingLayer = getStringVar("CLAYER");
    if (mappingLayer == kWorkingLayerName) {
        setStringVar("CLAYER", "0");
        mappingLayer.assign(1, '0');
    }
    showFields();
}

void dlg_indexmapping::refreshLayers()
{
    fillLayerCombo(comboLayers_);
    std::vector<std::string> old = listLayers_;
    std::vector<bool> oldSelected = listSelected_;
    fillLayerList(listLayers_);
    listSelected_.assign(listLayers_.size(), false);
    for (size_t k = 0; k < old.size(); ++k) {
        auto found = std::find(listLayers_.begin(), listLayers_.end(), old[k]);
        if (found != listLayers_.end() && oldSelected[k]) listSelected_[found - listLayers_.begin()] = true;
    }
}

void dlg_indexmapping::rebuildPillarLayers() { pillarLayers = joinSelectedItems(listLayers_, listSelected_, ","); }

void dlg_indexmapping::selectPillarLayers(const std::vector<std::string>& layers)
{
    for (const std::string& layer : layers) {
        auto found = std::find(listLayers_.begin(), listLayers_.end(), layer);
        if (found != listLayers_.end()) listSelected_[found - listLayers_.begin()] = true;
    }
    rebuildPillarLayers();
}

void dlg_indexmapping::onFilterChanged()
{
    filter = largerThan_ ? 1 : smallThan_ ? 2 : 0;
    showFields();
}

void dlg_indexmapping::showFields()
{
    thresholdText_ = vorn::doubleFieldText(threshold);
    allValues_ = filter == 0;
    largerThan_ = filter == 1;
    smallThan_ = filter == 2;
}

void dlg_indexmapping::readFields() { threshold = _wtof(thresholdText_); }

void dlg_indexmapping::updateStatus() { status = formatString("Total %d hatch regions are ready!", total()); }

void dlg_indexmapping::OnPickFile()
{
    std::string path = gridPath;
    if (pickFileName(true, "grd", path)) loadGrid(path);
}

// The threshold passes through text: the mean as the user sees it at the
// current precision, read back.
bool dlg_indexmapping::loadGrid(const std::string& path)
{
    myGrid grid;
    if (!grid.readGrd(path, 1)) {
        AfxMessageBox("Read grid file error!");
        return false;
    }
    indexGrid = std::move(grid);
    gridPath = path;
    std::string shown;
    acdbRToS(indexGrid.getAverage(), 2, -1, shown);
    acdbDisToF(shown.c_str(), 2, threshold);
    gridInfo = indexGrid.describe(false);
    previewEnabled_ = true;
    showFields();
    return true;
}

void dlg_indexmapping::OnPreview()
{
    readFields();
    indexGrid.setPlotOptions(0, blackWhite ? 1 : 2, "", true, false);
    setHidden(true);
    indexGrid.plot();
    setHidden(false);
}

// ---- <Analyze>

bool dlg_indexmapping::checkAnalyze()
{
    readFields();
    if (!indexGrid.isDefined()) {
        AfxMessageBox("Grid is not ready yet!");
        return false;
    }
    if (pillarLayers.empty()) {
        AfxMessageBox("No Pillar layer selected!");
        return false;
    }
    for (const std::string& layer : splitAtCommas(pillarLayers)) {
        if (vorn::iequals(layer, mappingLayer)) {
            AfxMessageBox("Error: pillar layer and drawing layer identical!");
            return false;
        }
    }
    if (std::find(comboLayers_.begin(), comboLayers_.end(), mappingLayer) == comboLayers_.end()) {
        if (ensureLayer(mappingLayer, 210) != vorn::eOk) {
            AfxMessageBox(formatString("Layer: <%s> creation failed!", mappingLayer.c_str()));
            return false;
        }
        refreshLayers();
    }
    if (!newRegions.empty()) {
        int answer = AfxMessageBox(formatString("There have been %d regions in new region collection!\n\rDo you want "
                                                "to erase them before rebulding it?",
                                                static_cast<int>(newRegions.size())),
                                   MB_YESNOCANCEL);
        if (answer == IDCANCEL) return false;
        if (answer == IDYES) {
            eraseIds(newRegions, true);
            newRegions.clear();
        }
    }
    return true;
}

bool dlg_indexmapping::selectPillars(vorn::SelectionSet& pillars)
{
    std::vector<vorn::Point2> outline;
    indexGrid.getOutline(outline);
    std::vector<Point2d> corners;
    for (const vorn::Point2& p : outline) {
        vorn::Point3d user;
        acdbWcs2Ucs({p.x, p.y, 0.0}, user);
        corners.push_back(user.to2d());
    }
    drawPolygonOutline(corners, 2, true);
    if (selectByLayer(pillars, pillarLayers, corners, kPolylineTypes) > 0) return true;
    AfxMessageBox(formatString("No related pillar lines in given layers:%s!", pillarLayers.c_str()));
    return false;
}

void dlg_indexmapping::OnAnalyze()
{
    if (!checkAnalyze()) return;
    vorn::SelectionSet pillars;
    if (!selectPillars(pillars)) return;
    setHidden(true);
    acutPrintf("\n%ld Pillar objects from: %s", pillars.length(), pillarLayers.c_str());
    highlightSelection(pillars, true);
    bool go = waitForEnter(kEnterToContinue);
    highlightSelection(pillars, false);
    if (!go) {
        acedSSFree(pillars);
        setHidden(false);
        return;
    }
    myGrid work;
    work.copyGeometry(indexGrid, false);
    double min = 0.0;
    double max = 0.0;
    if (indexGrid.getMinMax(min, max)) setColorRange(min, max, blackWhite);

    filterPass(work);
    bool goOn = pillarPass(work, pillars);
    acedSSFree(pillars);
    if (goOn) {
        std::vector<MapPiece> pieces;
        std::vector<Entity> cutRegions;
        if (cellPass(work, pieces, cutRegions)) finishAnalyze(pieces, cutRegions);
    }
    setHidden(false);
}

// Marks "0" for cells that take part and "N" for the others. The marks are
// numbers once stored, so every one reads back as "0.000000".
void dlg_indexmapping::filterPass(myGrid& work)
{
    if (filter == 0) {
        work.setAll(0);
        return;
    }
    if (filter == 1) acutPrintf("\nFiltering out grid cells with value not larger than %f", threshold);
    else acutPrintf("\nFiltering out grid cells with vlaue not smaller than %f", threshold);
    for (int i = 0; i < work.xNum; ++i) {
        for (int j = 0; j < work.yNum; ++j) {
            double v = indexGrid.getValue(i, j);
            bool takes = filter == 1 ? v > threshold : v < threshold;
            work.setValueText(i, j, takes ? "0" : "N");
        }
    }
}

// Marks the cells a pillar covers "N" and lists the pillars that cut a cell
// in its mark. False when the user cancels at the open pillar question.
bool dlg_indexmapping::pillarPass(myGrid& work, const vorn::SelectionSet& pillars)
{
    acutPrintf("\nChecking grid cells around the pillars...");
    acedSetStatusBarProgressMeter("Filter grid cells...", 1, static_cast<int>(pillars.length()));
    const double cellArea = work.xCellW * work.yCellW;
    int openAnswer = 0;
    for (long k = 0; k < pillars.length(); ++k) {
        acedSetStatusBarProgressMeterPos(static_cast<int>(k));
        ObjectId id = acedSSName(pillars, k);
        std::vector<Point2d> vertices;
        getEntityVertices2d(id, vertices);
        if (!isClosedCurve(id)) {
            if (openAnswer == 0) {
                drawPolygonOutline(vertices, 2, true);
                openAnswer = askYesNo("\nThere are open pillar lines, treat as closed pillar?", 6);
                if (openAnswer == 2) {
                    acedRestoreStatusBar();
                    redrawAndFlush();
                    return false;
                }
            }
            if (openAnswer != 6) continue;
        }
        Point2d lower, upper;
        if (!getEntityBounds(id, lower, upper)) continue;
        drawRectangleOutline(lower, upper, 6);
        int i0 = 0, j0 = 0, i1 = 0, j1 = 0;
        work.getCellOfPointClamped({lower.x, lower.y}, i0, j0);
        work.getCellOfPointClamped({upper.x, upper.y}, i1, j1);
        if (i0 > i1 || j0 > j1) continue;
        for (int j = j0; j <= j1; ++j) {
            for (int i = i0; i <= i1; ++i) {
                std::string mark;
                work.getValueText(i, j, mark);
                if (mark == "N") continue;
                double area = overlapArea(cellCorners(work, i, j), vertices);
                if (area >= cellArea) {
                    work.setValueText(i, j, "N");
                } else if (area > 1e-10) {
                    std::string idText = formatString("%ld", static_cast<long>(id.value));
                    if (mark == "0") {
                        mark = idText;
                    } else {
                        mark += ',';
                        mark += idText;
                    }
                    work.setValueText(i, j, mark);
                }
            }
        }
    }
    acedRestoreStatusBar();
    redrawAndFlush();
    return true;
}

// The pillars named in a cell's mark, cut out of the cell region. False when
// none of them gives a closed copy: the cell is passed over.
bool dlg_indexmapping::cutCell(const std::string& mark, int i, int j, Entity& region)
{
    std::vector<ObjectId> ids;
    for (const std::string& piece : splitAtCommas(mark)) {
        ObjectId id{static_cast<std::uint64_t>(vorn::wtol32(piece))};
        if (id.isValid()) ids.push_back(id);
    }
    if (ids.empty()) return true;
    std::vector<Entity> copies;
    for (ObjectId id : ids) {
        Entity copy;
        if (makeClosedPolylineFromEntity(id, copy)) copies.push_back(copy);
    }
    if (copies.empty()) return false;
    region = cellRegion(cellCorners(indexGrid, i, j));
    std::vector<Entity> pillarRegions;
    database().createRegionsFromCurves(copies, pillarRegions);
    for (Entity& pillar : pillarRegions) database().booleanOper(region, vorn::BoolOperType::Subtract, pillar);
    return true;
}

// One piece per cell, in column order. Whole cells stay light until they
// reach the drawing; the marks send every cell down the list branch, whose
// one piece "0.000000" names no object, so every cell is whole.
bool dlg_indexmapping::cellPass(const myGrid& work, std::vector<MapPiece>& pieces, std::vector<Entity>& cutRegions)
{
    acutPrintf("\n Processing individual grid cell, please wait ....");
    acedSetStatusBarProgressMeter("Processing individual grid cell :", 0, work.xNum);
    std::string mark;
    bool interrupted = false;
    for (int i = 0; i < work.xNum && !interrupted; ++i) {
        acedSetStatusBarProgressMeterPos(i);
        for (int j = 0; j < work.yNum; ++j) {
            work.getValueText(i, j, mark);
            if (mark != "N") {
                MapPiece piece{i, j, colorOfValue(indexGrid.getValue(i, j)), -1};
                Entity region;
                bool keep = mark == "0" || cutCell(mark, i, j, region);
                if (keep && !region.as<vorn::Region>()) pieces.push_back(piece);
                if (keep && region.as<vorn::Region>() && !isNullRegion(region)) {
                    piece.cutRegion = static_cast<int>(cutRegions.size());
                    cutRegions.push_back(std::move(region));
                    pieces.push_back(piece);
                }
            }
            flushGraphics();
            if (acedUsrBrk()) {
                interrupted = true;
                break;
            }
        }
    }
    acedRestoreStatusBar();
    return !interrupted;
}

// Appends a region on the mapping layer in the colour; its id goes to `ids`.
void dlg_indexmapping::appendRegion(vorn::Region region, int color, std::vector<ObjectId>& ids)
{
    Entity entity;
    entity.shape = std::move(region);
    entity.common.layer = mappingLayer;
    entity.common.colorIndex = color;
    ObjectId id;
    if (appendToModelSpace(id, entity) == vorn::eOk) ids.push_back(id);
}

// Each piece as a region of its own: the cell, or what the pillars left.
std::vector<ObjectId> dlg_indexmapping::appendPieces(const std::vector<MapPiece>& pieces, std::vector<Entity>& cutRegions)
{
    std::vector<ObjectId> ids;
    for (const MapPiece& piece : pieces) {
        if (piece.cutRegion >= 0)
            appendRegion(std::move(*cutRegions[static_cast<size_t>(piece.cutRegion)].as<vorn::Region>()), piece.color, ids);
        else
            appendRegion(quadRegion(cellCorners(indexGrid, piece.i, piece.j)), piece.color, ids);
    }
    return ids;
}

// The whole cells of each colour go into the drawing already united, in one
// pass over the lattice, as one region per colour in the order the colours
// first occur; cut pieces go in as they are, for mergeRegionsByColor.
std::vector<ObjectId> dlg_indexmapping::appendUnitedByColor(const std::vector<MapPiece>& pieces,
                                                            std::vector<Entity>& cutRegions)
{
    std::vector<std::int32_t> labels(static_cast<size_t>(indexGrid.xNum) * indexGrid.yNum, -1);
    std::vector<int> colors;
    for (const MapPiece& piece : pieces) {
        if (std::find(colors.begin(), colors.end(), piece.color) == colors.end()) colors.push_back(piece.color);
        if (piece.cutRegion < 0) labels[static_cast<size_t>(piece.i) * indexGrid.yNum + piece.j] = piece.color;
    }
    auto node = [this](int i, int j) {
        vorn::Point2 p;
        indexGrid.getNodeXY(i, j, p);
        return Point2d{p.x, p.y};
    };
    std::vector<ObjectId> ids;
    for (int color : colors) {
        vorn::Region united = uniteLatticeCells(indexGrid.xNum, indexGrid.yNum, labels, color, node);
        if (!united.faces.empty()) appendRegion(std::move(united), color, ids);
    }
    for (const MapPiece& piece : pieces)
        if (piece.cutRegion >= 0)
            appendRegion(std::move(*cutRegions[static_cast<size_t>(piece.cutRegion)].as<vorn::Region>()), piece.color, ids);
    return ids;
}

void dlg_indexmapping::finishAnalyze(std::vector<MapPiece>& pieces, std::vector<Entity>& cutRegions)
{
    acutPrintf("\n%d regions are constructed!", static_cast<int>(pieces.size()));
    int answer = askYesNo("\nCombine regions with same color?", 6);
    combined = answer == 6;
    std::vector<ObjectId> ids;
    if (combined) {
        acutPrintf("\n  Combining regions ...");
        ids = appendUnitedByColor(pieces, cutRegions);
        highlightIds(ids, true);
        mergeRegionsByColor(ids);
        acutPrintf("\nThe number of regions reduced to %d", static_cast<int>(ids.size()));
        waitForEnter(kEnterToContinue);
    } else {
        ids = appendPieces(pieces, cutRegions);
        highlightIds(ids, true);
    }
    highlightIds(ids, false);
    newRegions.insert(newRegions.end(), ids.begin(), ids.end());
    updateStatus();
}

// ---- <Pick Region>

void dlg_indexmapping::OnPickRegion()
{
    setHidden(true);
    acutPrintf("\nSelect hatch regions to add:");
    vorn::SelectionSet set;
    int added = 0;
    if (acedSSGet("", {}, {}, set) == RTNORM) {
        for (ObjectId id : set.ids) {
            Entity entity;
            if (database().readEntity(id, entity) != vorn::eOk) continue;
            bool closedCurve = vorn::isCurve(entity.kind()) && database().isClosed(entity);
            if (!closedCurve && !entity.as<vorn::Region>()) continue;
            pickedRegions.push_back(id);
            ++added;
        }
    }
    if (added > 0) {
        highlightIds(pickedRegions, true);
        waitForEnter(formatString("\nTotal %d hatch regions are appended from %ld selected objects.", total(),
                                  set.length()).c_str());
        highlightIds(pickedRegions, false);
        updateStatus();
    }
    acedSSFree(set);
    setHidden(false);
}

// ---- <Hatch>

bool dlg_indexmapping::hatchNewRegions(std::vector<ObjectId>& hatches, int& position)
{
    for (ObjectId region : newRegions) {
        acedSetStatusBarProgressMeterPos(position++);
        if (!region.isValid()) continue;
        ObjectId hatch;
        if (combined) {
            int echo = getIntVar("CMDECHO");
            setCmdEcho(0);
            vorn::SelectionSet set;
            acedSSAdd(region, set);
            if (acedHatchSolid(set) == RTNORM) hatch = acdbEntLast();
            setCmdEcho(echo);
        } else {
            addHatchFromLoop(hatch, region);
        }
        if (hatch.isValid()) {
            int color = 0;
            std::string layer;
            getEntityColorLayer(region, color, layer);
            setEntityColorLayer(region, color, mappingLayer);
            setEntityColorLayer(hatch, color, mappingLayer);
            hatches.push_back(hatch);
        }
        flushGraphics();
        if (acedUsrBrk()) return false;
    }
    return true;
}

bool dlg_indexmapping::hatchPickedRegions(std::vector<ObjectId>& hatches, int& position)
{
    for (size_t k = 0; k < pickedRegions.size(); ++k) {
        acedSetStatusBarProgressMeterPos(position + static_cast<int>(k));
        if (!pickedRegions[k].isValid()) continue;
        ObjectId hatch;
        if (addHatchFromLoop(hatch, pickedRegions[k]) == vorn::eOk) hatches.push_back(hatch);
        flushGraphics();
        if (acedUsrBrk()) return false;
    }
    return true;
}

void dlg_indexmapping::OnHatch()
{
    if (total() == 0) {
        AfxMessageBox("No hatch region defined!");
        return;
    }
    setHidden(true);
    highlightIds(newRegions, true);
    highlightIds(pickedRegions, true);
    acutPrintf("\nSolid Pattern will be used in mapping total %d hatch regions!", total());
    if (!waitForEnter(kEnterToContinue)) {
        highlightIds(newRegions, false);
        highlightIds(pickedRegions, false);
        setHidden(false);
        return;
    }
    acedSetStatusBarProgressMeter("Hatching is progressing : ", 0, static_cast<int>(newRegions.size()));
    std::vector<ObjectId> hatches;
    int position = 0;
    bool finished = hatchNewRegions(hatches, position) && hatchPickedRegions(hatches, position);
    acedRestoreStatusBar();
    highlightIds(newRegions, false);
    highlightIds(pickedRegions, false);
    int answer = 0;
    if (finished)
        answer = askYesNo(formatString("\n%d hatchs are created, save it?", static_cast<int>(hatches.size())), 6);
    if (answer == 6) {
        newRegions.clear();
        pickedRegions.clear();
    } else {
        eraseIds(hatches, true);
    }
    updateStatus();
    setHidden(false);
}

// ---- layers and leaving

void dlg_indexmapping::OnPickLayer()
{
    setHidden(true);
    for (;;) {
        ObjectId id;
        vorn::Point3d picked;
        int result = acedEntSel("\nSelect any object in the layer", id, picked);
        if (result == RTERROR && getIntVar("ERRNO") != vorn::kErrnoNullInput) continue;
        if (result != RTNORM) break;
        std::string layer = entityLayerName(id);
        auto found = std::find(listLayers_.begin(), listLayers_.end(), layer);
        if (found == listLayers_.end()) continue;
        listSelected_[found - listLayers_.begin()] = true;
        acutPrintf("\nselected layer: %s", layer.c_str());
    }
    rebuildPillarLayers();
    setHidden(false);
}

void dlg_indexmapping::OnNewLayer()
{
    setHidden(true);
    for (;;) {
        std::string name;
        if (acedGetString(0, "\nInput new layer name:", name) != RTNORM || name.empty()) break;
        vorn::LayerRecord existing;
        if (database().findLayer(name, existing)) {
            acutPrintf("\nLayer < %s > has existed!", name.c_str());
            continue;
        }
        if (ensureLayer(name, 7) == vorn::eOk) {
            status = formatString("New layer < %s > has been created!", name.c_str());
            refreshLayers();
            mappingLayer = name;
        } else {
            acutPrintf("\nLayer < %s > can not been created!", name.c_str());
        }
        break;
    }
    setHidden(false);
}

void dlg_indexmapping::OnCancel()
{
    if (!newRegions.empty()) {
        int answer = AfxMessageBox("Some new regions do not hatched! Do you want to erase these regions?", MB_YESNOCANCEL);
        if (answer == IDCANCEL) return;
        if (answer == IDYES) {
            eraseIds(newRegions, true);
            newRegions.clear();
        }
    }
    EndDialog(IDCANCEL);
}
