#include "roofrisk/defect_page.h"

#include <algorithm>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/create.h"
#include "drawing/database_port.h"
#include "drawing/entity_geometry.h"
#include "drawing/layers.h"
#include "drawing/platform.h"
#include "drawing/prompts.h"
#include "drawing/selection.h"
#include "drawing/sysvars.h"
#include "drawing/tempgraphics.h"
#include "grid/grideditor.h"
#include "roofrisk/defect_raster.h"
#include "roofrisk/grid_views.h"
#include "roofrisk/rfri_calculation.h"

namespace vorn::rfri {

namespace {

std::vector<Point2d> toPoints2d(const std::vector<Point2>& points)
{
    std::vector<Point2d> out;
    for (const Point2& p : points) out.push_back({p.x, p.y});
    return out;
}

ads_point toWorld(const ads_point& user)
{
    ads_point world;
    acdbUcs2Wcs(user, world);
    return world;
}

ads_point toUser(const Point2& world)
{
    ads_point user;
    acdbWcs2Ucs({world.x, world.y, 0.0}, user);
    return user;
}

DatabasePort* database() { return platform().database; }

}  // namespace

std::string inDrawingFolder(const std::string& file) { return inFolder(drawingFolder(), file); }

CRFRIDefectPage::CRFRIDefectPage(int factor) : number_(factor) {}

std::vector<vorn::PanelControl> CRFRIDefectPage::pageControls()
{
    using namespace vorn;
    PanelControl save = buttonControl("Save Grid", [this] { OnSaveGrid(); });
    save.readOnly = !saveEnabled_;
    return {
        comboControl("Assessment Value", levelText, factor().pageWording, [this] { OnLevelChanged(); }),
        buttonControl("Draw Defects", [this] { OnDrawDefects(); }),
        buttonControl("Make Grid", [this] { OnMakeGrid(); }),
        buttonControl("View Grid", [this] { OnViewGrid(); }),
        buttonControl("Edit Grid", [this] { OnEditGrid(); }),
        save,
        buttonControl("Set Details...", [this] { OnSetDetails(); }),
    };
}

// ---- the page exchange -------------------------------------------------------

int CRFRIDefectPage::comboSelection() const
{
    const std::vector<std::string>& items = factor().pageWording;
    auto found = std::find(items.begin(), items.end(), levelText);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

void CRFRIDefectPage::setCombo(int index)
{
    if (index >= 0 && index <= lastIndex) levelText = factor().pageWording[static_cast<size_t>(index)];
}

void CRFRIDefectPage::setLevelIndex(int index)
{
    levelIndex = index;
    if (mainDialog()) mainDialog()->defects[static_cast<size_t>(number_)].levelIndex = index;
}

void CRFRIDefectPage::copyFromFrame()
{
    if (!mainDialog()) return;
    const CDefectRecord& record = mainDialog()->defects[static_cast<size_t>(number_)];
    levelIndex = record.levelIndex;
    defectLayer = record.defectLayer;
    defectColor = record.defectColor;
    gridFile = record.gridFile;
    defectTitle = record.defectTitle;
    reach = record.reach;
    taper = record.taper;
}

void CRFRIDefectPage::copyToFrame()
{
    if (!mainDialog()) return;
    CDefectRecord& record = mainDialog()->defects[static_cast<size_t>(number_)];
    record.levelIndex = levelIndex;
    record.defectLayer = defectLayer;
    record.defectColor = defectColor;
    record.gridFile = gridFile;
    record.defectTitle = defectTitle;
    record.reach = reach;
    record.taper = taper;
}

void CRFRIDefectPage::UpdateData(bool load)
{
    if (load)
        loadFromContainer();
    else
        storeToContainer();
}

void CRFRIDefectPage::loadFromContainer()
{
    copyFromFrame();
    setCombo(levelIndex);
    saveEnabled_ = built && !saved;
}

void CRFRIDefectPage::storeToContainer()
{
    int selection = comboSelection();
    if (selection >= 0) levelIndex = selection;
    copyToFrame();
}

// A page opens on the grid last saved for this drawing, when its file reads.
void CRFRIDefectPage::OnInitDialog()
{
    built = false;
    saved = false;
    levels = factor().levels;
    lastIndex = factor().lastIndex();
    copyFromFrame();
    setCombo(levelIndex);
    std::string path = inDrawingFolder(gridFile);
    if (canOpenForReading(path) && grid.readGrd(path)) {
        built = true;
        saved = true;
        acutPrintf("\nFile %s was successfully read into the grid", path.c_str());
    }
    UpdateData(true);
}

void CRFRIDefectPage::OnTabActivation(bool active) { UpdateData(active); }

void CRFRIDefectPage::OnLevelChanged()
{
    int selection = comboSelection();
    if (selection >= 0) setLevelIndex(selection);
}

// ---- Draw Defects ------------------------------------------------------------

void CRFRIDefectPage::printCurrentLevel() const
{
    const char* format = factor().assessmentWord ? "\nThe current assessment level = %i" : "\nThe current defect level = %i";
    acutPrintf(format, levels[static_cast<size_t>(levelIndex)]);
}

void CRFRIDefectPage::takeKeyword()
{
    std::string keyword;
    acedGetInput(keyword);
    auto found = std::find(levels.begin(), levels.end(), _wtoi(keyword));
    if (found == levels.end()) return;
    setLevelIndex(static_cast<int>(found - levels.begin()));
    setCombo(levelIndex);
}

// Gathers the further points of a feature with a rubber band from the last
// one. The polyline exists from the second point on, with the level in its
// constant width; an area feature is closed at the end.
void CRFRIDefectPage::drawFeature(const ads_point& firstUser)
{
    std::vector<Point2d> vertices{toWorld(firstUser).to2d()};
    ads_point lastUser = firstUser;
    ObjectId id;
    ads_point nextUser;
    while (acedGetPoint(&lastUser, "\nSpecify next point:", nextUser) == RTNORM) {
        lastUser = nextUser;
        vertices.push_back(toWorld(nextUser).to2d());
        Entity polyline;
        if (vertices.size() == 2) {
            if (addPolylineFromPoints(id, vertices, false, 0.0, kColorByLayer) != eOk) return;
            if (database()->readEntity(id, polyline) != eOk) return;
            polyline.as<LwPolyline>()->constantWidth = factor().widthOfIndex(levelIndex);
        } else {
            if (database()->readEntity(id, polyline) != eOk) return;
            polyline.as<LwPolyline>()->vertices.push_back({vertices.back(), 0.0, -1.0, -1.0});
        }
        database()->writeEntity(polyline);
        flushGraphics();
    }
    if (id.isNull() || factor().form == DefectForm::Line) return;
    Entity polyline;
    if (database()->readEntity(id, polyline) != eOk) return;
    polyline.as<LwPolyline>()->closed = true;
    database()->writeEntity(polyline);
}

void CRFRIDefectPage::OnDrawDefects()
{
    int selection = comboSelection();
    if (selection < 0) {
        acutPrintf("\nPlease enter a valid defect level before drawing");
        return;
    }
    setLevelIndex(selection);
    ensureLayer(defectLayer, defectColor);
    setStringVar("CLAYER", defectLayer);
    hideMainDialog();
    for (;;) {
        printCurrentLevel();
        acedInitGet(0, factor().keywords);
        ads_point first;
        int status = acedGetPoint(nullptr, factor().firstPrompt, first);
        if (status == RTKWORD) {
            takeKeyword();
            continue;
        }
        if (status == RTNONE || status == RTCAN || status == RTERROR) break;
        drawFeature(first);
    }
    showMainDialog(true);
    setCombo(levelIndex);
}

// ---- Make Grid -----------------------------------------------------------------

// Zooms to the grid, selects the features crossing it and lets the user look
// at them; false when there is nothing to build.
bool CRFRIDefectPage::startGrid(vorn::SelectionSet& features)
{
    std::vector<Point2> outline;
    grid.getOutline(outline);
    acedZoomWindow(toUser(outline[0]), toUser(outline[2]));
    std::vector<Point2d> corners = toPoints2d(outline);
    drawPolygonOutline(corners, 2, true);
    long count = selectByLayer(features, defectLayer, corners, kPolylineTypes);
    highlightSelection(features, true);
    acutPrintf("\nTotal number of features found: %ld in Layers: %s", count, defectLayer.c_str());
    std::string reply;
    if (count == 0) {
        acedGetString(0, "\n <Enter> key to Quit ...", reply);
        return false;
    }
    return acedGetString(0, "\n <Enter> key to continue ...", reply) != RTCAN;
}

void CRFRIDefectPage::endGrid(vorn::SelectionSet& features)
{
    highlightSelection(features, false);
    acedRestoreStatusBar();
    acedZoomPrevious();
    redrawAndFlush();
    acedSSFree(features);
    showMainDialog(true);
}

// The level position of a feature by its constant width. Only a lightweight
// polyline carries one; a heavy polyline of the layer is passed over.
int CRFRIDefectPage::featureIndex(vorn::ObjectId id, vorn::Entity& entity) const
{
    if (database()->readEntity(id, entity) != eOk) return -1;
    const LwPolyline* polyline = entity.as<LwPolyline>();
    if (!polyline) return -1;
    return factor().indexOfWidth(static_cast<int>(polyline->constantWidth));
}

void CRFRIDefectPage::gridLineFeature(const vorn::Entity& feature, int index)
{
    double r = reach[static_cast<size_t>(index)];
    double v = levels[static_cast<size_t>(index)];
    Extents3d extents;
    if (database()->getGeomExtents(feature, extents) != eOk) return;
    Point2d lower = extents.minPoint.to2d();
    Point2d upper = extents.maxPoint.to2d();
    drawRectangleOutline(lower, upper, 2);
    CellRange range = lineCellRange(grid, lower, upper, r);
    rasteriseLine(grid, range, r, v, taper, [&feature](const Point3d& centre) {
        Point3d closest = centre;
        database()->getClosestPointTo(feature, centre, {0.0, 0.0, 1.0}, closest);
        return closest;
    });
}

void CRFRIDefectPage::gridLineFeatures(vorn::SelectionSet& features)
{
    grid.setAll(factor().outsideValue);
    redrawAndFlush();
    long count = acedSSLength(features);
    acedSetStatusBarProgressMeter(factor().meterText, 1, static_cast<int>(count));
    bool interrupted = false;
    for (long k = 0; k < count; ++k) {
        acedSetStatusBarProgressMeterPos(static_cast<int>(k + 1));
        ObjectId id = acedSSName(features, k);
        Entity feature;
        if (id.isNull()) {
            acutPrintf("\nCan not get %ldth object", k + 1);
        } else if (int index = featureIndex(id, feature); index >= 0) {
            gridLineFeature(feature, index);
        }
        if (acedUsrBrk()) {
            acutPrintf("\nCanceled by user!");
            interrupted = true;
            break;
        }
    }
    built = !interrupted;
    saved = false;
}

void CRFRIDefectPage::gridAreaFeature(vorn::ObjectId id, int index)
{
    std::vector<Point2d> vertices;
    getEntityVertices2d(id, vertices);
    AlignedBox box = gridAlignedBox(grid, vertices);
    CellRange range;
    if (!areaCellRange(grid, box, range)) return;
    drawPolygonOutline(box.corners, 6, true);
    rasteriseArea(grid, range, vertices, levels[static_cast<size_t>(index)], factor().form == DefectForm::AreaOverwrite);
}

// An interruption keeps what is built so far, which can then be saved.
void CRFRIDefectPage::gridAreaFeatures(vorn::SelectionSet& features)
{
    std::vector<Point2> outline;
    grid.getOutline(outline);
    drawPolygonOutline(toPoints2d(outline), 6, true);
    grid.setAll(factor().outsideValue);
    long count = acedSSLength(features);
    acedSetStatusBarProgressMeter(factor().meterText, 0, static_cast<int>(count));
    acutPrintf("\n Building grid, please waiting...");
    for (long k = 0; k < count; ++k) {
        acedSetStatusBarProgressMeterPos(static_cast<int>(k));
        ObjectId id = acedSSName(features, k);
        Entity feature;
        if (id.isNull()) {
            acutPrintf("\nCan not get %ldth object", k + 1);
        } else if (int index = featureIndex(id, feature); index >= 0) {
            gridAreaFeature(id, index);
        }
        if (acedUsrBrk()) {
            acutPrintf("\nUser interrupted!!");
            break;
        }
    }
    built = true;
    saved = false;
}

void CRFRIDefectPage::OnMakeGrid()
{
    if (built && !saved && AfxMessageBox("Old grid is not saved yet! Please save the grid", MB_OKCANCEL) != IDOK) return;
    OnLevelChanged();
    if (!mainDialog() || !mainDialog()->getBaseGrid(grid)) {
        AfxMessageBox("Grid initialization error!");
        built = false;
        saved = false;
        return;
    }
    hideMainDialog();
    SelectionSet features;
    if (!startGrid(features)) {
        built = false;
        saved = false;
        highlightSelection(features, false);
        acedSSFree(features);
        showMainDialog(true);
        UpdateData(true);
        return;
    }
    if (factor().form == DefectForm::Line)
        gridLineFeatures(features);
    else
        gridAreaFeatures(features);
    endGrid(features);
    UpdateData(true);
}

// ---- View, Edit, Save ----------------------------------------------------------

void CRFRIDefectPage::OnViewGrid()
{
    if (!grid.isDefined()) return;
    hideMainDialog();
    viewGrid(grid);
    showMainDialog(true);
}

void CRFRIDefectPage::OnEditGrid()
{
    if (!grid.isDefined()) {
        AfxMessageBox("The Grid needs to be defined and built before editing!");
        built = false;
    } else if (!built) {
        AfxMessageBox("Grid needs to be built before editing!");
    } else {
        hideMainDialog();
        editGrid(grid);
        saved = false;
        showMainDialog(true);
    }
    UpdateData(true);
}

void CRFRIDefectPage::OnSaveGrid()
{
    if (!built) {
        AfxMessageBox("Grid has not been built yet!");
        return;
    }
    grid.setTitle(defectTitle);
    std::string path = inDrawingFolder(gridFile);
    if (AfxMessageBox(formatString(factor().saveMessage, path.c_str()), MB_OKCANCEL) != IDOK) return;
    if (grid.writeGrd(path)) saved = true;
    UpdateData(true);
}

}  // namespace vorn::rfri
