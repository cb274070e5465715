#include "generators/boundtab.h"

#include <cmath>
#include <cstdlib>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/create.h"
#include "drawing/database_port.h"
#include "drawing/drawing_helpers.h"
#include "drawing/editor_port.h"
#include "drawing/entity_geometry.h"
#include "drawing/layers.h"
#include "drawing/platform.h"
#include "drawing/prompts.h"
#include "drawing/selection.h"
#include "drawing/tempgraphics.h"

using vorn::formatString;
using vorn::ObjectId;

namespace {

void setClosed(vorn::Entity& polyline)
{
    if (auto* lw = polyline.as<vorn::LwPolyline>()) lw->closed = true;
}

bool isPolyline(ObjectId id)
{
    vorn::Entity entity;
    vorn::DatabasePort* database = vorn::platform().database;
    return database && database->readEntity(id, entity) == vorn::eOk && isPolylineEntity(entity);
}

std::string doubleText(double value) { return formatString("%.15g", value); }

std::vector<vorn::Point2d> planVertices(ObjectId id)
{
    std::vector<vorn::Point2d> points;
    getEntityVertices2d(id, points);
    return points;
}

}  // namespace

double rangeFromFirstDigit(double distance)
{
    std::string text;
    acdbRToS(distance, 2, -1, text);
    return std::atof(text.substr(0, 1).c_str());
}

void confirmNewBoundaries(const std::string& message, const std::vector<ObjectId>& made)
{
    highlightIds(made, true);
    if (askYesNo(message, 6) != 6) eraseIds(made, true);
    highlightIds(made, false);
}

std::vector<vorn::PanelControl> CBoundTab::pageControls()
{
    using namespace vorn;
    return {
        layers.control("Layer list"),
        buttonControl("Pick a layer", [this] { OnPickLayer(); }),
        editControl("Influence Range :", rangeText),
        buttonControl("< &Range", [this] { OnRange(); }),
        buttonControl("< Create from Polylines in Layer ", [this] { OnCreateFromLayers(); }),
        buttonControl("< Create from Center Lines", [this] { OnCreateFromCenterLines(); }),
        buttonControl("< Create from Area Boundary", [this] { OnCreateFromAreaBoundary(); }),
        buttonControl("< Check Boundaries", [this] { OnCheckBoundaries(); }),
        buttonControl("< Delete Boundaries", [this] { OnDeleteBoundaries(); }),
    };
}

void CBoundTab::OnInitDialog()
{
    std::vector<std::string> names;
    fillLayerList(names);
    layers.fill(names);
    if (mainDialog()) rangeText = doubleText(_wtof(mainDialog()->xCellText));
}

double CBoundTab::range() const { return _wtof(rangeText); }

bool CBoundTab::addBoundary(vorn::Entity& boundary, std::vector<ObjectId>& made)
{
    ensureWorkingLayer();
    boundary.common.layer = kWorkingLayerName;
    ObjectId id;
    if (appendToModelSpace(id, boundary) != vorn::eOk) return false;
    made.push_back(id);
    highlightEntity(id, true);
    return true;
}

void CBoundTab::copyAsClosed(const vorn::SelectionSet& set, std::vector<ObjectId>& made)
{
    int openAnswer = 0;  // 0: not asked yet; 6 keep open ones, 7 skip them
    for (ObjectId id : set.ids) {
        if (!isClosedCurve(id)) {
            if (openAnswer == 0) {
                drawPolygonOutline(planVertices(id), 6, false);
                openAnswer = askYesNo("Create boundaries from open polylines?", 6);
                if (openAnswer == 2) return;
            }
            if (openAnswer != 6) continue;
        }
        vorn::Entity copy;
        if (!makeClosedPolylineFromEntity(id, copy)) continue;
        setClosed(copy);
        addBoundary(copy, made);
    }
}

void CBoundTab::OnCreateFromLayers()
{
    if (layers.joined.empty()) {
        AfxMessageBox("No specified layer!");
        return;
    }
    hideMainDialog();
    vorn::SelectionSet set;
    long count = selectByLayer(set, layers.joined, {}, kPolylineTypes);
    if (count < 1) {
        AfxMessageBox(formatString("No Polyline objects were in Layers < %s > !", layers.joined.c_str()));
        showMainDialog(true);
        return;
    }
    std::vector<ObjectId> made;
    if (std::fabs(range()) > 1e-10) {
        for (ObjectId id : set.ids) {
            vorn::Entity boundary;
            if (makeCenterLineBoundary(id, range(), boundary)) addBoundary(boundary, made);
        }
    } else {
        copyAsClosed(set, made);
    }
    confirmNewBoundaries(formatString("%ld polylines are in layers < %s >.\nTotal %ld new boundary polylines will be "
                                      "created in drawing!",
                                      count, layers.joined.c_str(), static_cast<long>(made.size())),
                         made);
    acedSSFree(set);
    showMainDialog(true);
}

bool CBoundTab::makeAroundCenterLine(ObjectId id, vorn::Entity& boundary)
{
    return makeCenterLineBoundary(id, range(), boundary);
}

bool CBoundTab::makeFromAreaBoundary(ObjectId id, vorn::Entity& boundary)
{
    if (!isPolyline(id)) {
        acutPrintf("\nNot a polyline!");
        return false;
    }
    if (!isClosedCurve(id)) {
        acutPrintf("\nNot a closed polyline!");
        return false;
    }
    bool made = false;
    if (std::fabs(range()) <= 1e-10) {
        made = makeClosedPolylineFromEntity(id, boundary);
        if (made) setClosed(boundary);
    } else {
        made = makeOffsetBoundary(id, range(), boundary);
    }
    if (!made) acutPrintf("\n No boundary is created for this center line!");
    return made;
}

void CBoundTab::createFromPicks(const char* prompt, bool (CBoundTab::*make)(ObjectId, vorn::Entity&))
{
    std::vector<ObjectId> made;
    for (;;) {
        ObjectId id;
        ads_point picked;
        int status = acedEntSel(prompt, id, picked);
        if (status == RTCAN || (status == RTERROR && lastPickErrno() == vorn::kErrnoNullInput)) break;
        if (status != RTNORM) continue;
        vorn::Entity boundary;
        if (!(this->*make)(id, boundary)) continue;
        if (addBoundary(boundary, made)) flushGraphics();
    }
    confirmNewBoundaries(
        formatString("Total %ld new boundary polylines will be created in drawing!", static_cast<long>(made.size())),
        made);
}

void CBoundTab::OnCreateFromCenterLines()
{
    if (std::fabs(range()) < 1e-10) {
        AfxMessageBox("Range should not be zero!");
        return;
    }
    hideMainDialog();
    acutPrintf("\nMake a closed area around a center polylines:");
    createFromPicks("\nSelect a center polyline:", &CBoundTab::makeAroundCenterLine);
    showMainDialog(true);
}

void CBoundTab::OnCreateFromAreaBoundary()
{
    hideMainDialog();
    createFromPicks("\nSelect a Closed Polyline:", &CBoundTab::makeFromAreaBoundary);
    showMainDialog(true);
}

void CBoundTab::OnCheckBoundaries()
{
    hideMainDialog();
    vorn::SelectionSet set;
    long count = selectByLayer(set, kWorkingLayerName, {}, kPolylineTypes);
    if (count < 1) {
        AfxMessageBox(formatString("No Polyline objects were in Layers < %s > !", kWorkingLayerName));
    } else {
        highlightSelection(set, true);
        acutPrintf("\n%ld polylines are in layers < %s >.", count, kWorkingLayerName);
        std::string reply;
        acedGetString(0, "\n <Enter> to continue ...", reply);
        highlightSelection(set, false);
    }
    acedSSFree(set);
    showMainDialog(true);
}

namespace {

// Erases what is left of the set, with the count.
void eraseRest(vorn::SelectionSet& set)
{
    long rest = set.length();
    eraseIds(set.ids, true);
    set.ids.clear();
    acutPrintf("\nAll %ld objects have been erased", rest);
}

// Picks objects of the set one by one to erase them, or All for the rest.
void deleteByPicks(vorn::SelectionSet& set)
{
    bool erasedOne = false;
    while (set.length() > 0) {
        acedInitGet(0, "All");
        ObjectId id;
        ads_point picked;
        int status = acedEntSel(erasedOne ? "\n[<Select an object to delete>/All]:" : "\n[Select an object to delete:<All>]:",
                                id, picked);
        bool enter = status == RTERROR && lastPickErrno() == vorn::kErrnoNullInput;
        if (status == RTKWORD || (enter && !erasedOne)) {
            eraseRest(set);
            return;
        }
        if (status == RTCAN || enter) return;
        if (status != RTNORM || !set.contains(id)) continue;
        highlightEntity(id, false);
        eraseIds({id}, true);
        set.remove(id);
        erasedOne = true;
        acutPrintf("\nSelected object has been erased!");
    }
}

}  // namespace

void CBoundTab::OnDeleteBoundaries()
{
    hideMainDialog();
    vorn::SelectionSet set;
    long count = selectByLayer(set, kWorkingLayerName, {}, "");
    if (count < 1) {
        AfxMessageBox("There are no objects in the working layers!");
    } else {
        highlightSelection(set, true);
        acutPrintf("\n%ld objects in the working layers < %s >", count, kWorkingLayerName);
        deleteByPicks(set);
        highlightSelection(set, false);
    }
    acedSSFree(set);
    showMainDialog(true);
}

void CBoundTab::OnRange()
{
    hideMainDialog();
    double distance = 0.0;
    if (acedGetDist(nullptr, "\nOffset Distance:", distance) == RTNORM)
        rangeText = doubleText(rangeFromFirstDigit(distance));
    showMainDialog(true);
}

void CBoundTab::OnPickLayer()
{
    hideMainDialog();
    pickLayersByObject(layers, "\nSelect any object in the layer");
    showMainDialog(true);
}
