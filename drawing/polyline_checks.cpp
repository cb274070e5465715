// The polyline commands that check without changing, unless asked: closed
// polylines that overlap or duplicate one another, and contour lines that
// cross or stand at an elevation.
#include <algorithm>
#include <cmath>
#include <set>

#include "drawing/database_port.h"
#include "drawing/drawing_helpers.h"
#include "drawing/entity_geometry.h"
#include "drawing/layers.h"
#include "drawing/platform.h"
#include "drawing/polygon.h"
#include "drawing/polyline_scan.h"
#include "drawing/polyline_utility.h"
#include "drawing/tempgraphics.h"
#include "base/report.h"

using vorn::Entity;
using vorn::ObjectId;
using vorn::Point2d;
using namespace polyline_utility;

namespace {

vorn::DatabasePort& database() { return *vorn::platform().database; }

std::vector<ObjectId> idsAt(const std::vector<ObjectId>& ids, const std::vector<size_t>& indices)
{
    std::vector<ObjectId> out;
    for (size_t k : indices) out.push_back(ids[k]);
    return out;
}

// Selects and keeps the closed curves, telling how many will be checked.
bool selectClosedCurves(const char* purpose, std::vector<ObjectId>& closed)
{
    printBanner(purpose);
    std::vector<ObjectId> ids;
    if (!selectObjects(ids)) return false;
    closed = closedCurves(ids);
    acutPrintf("\n %d objects (Total %d) are closed polylines and will being cross checked!", static_cast<int>(closed.size()),
               static_cast<int>(ids.size()));
    return true;
}

// The meter at each seed, the user break after each pair and seed.
vorn::ScanControl meteredScan()
{
    vorn::ScanControl control;
    control.seedStarted = [](size_t a) { acedSetStatusBarProgressMeterPos(static_cast<int>(a)); };
    control.stopRequested = [] { return acedUsrBrk(); };
    return control;
}

std::vector<Point2d> planVertices(ObjectId id)
{
    std::vector<Point2d> points;
    getEntityVertices2d(id, points);
    return points;
}

vorn::Extents3d extentsOf(const Entity& entity)
{
    vorn::Extents3d box;
    if (database().getGeomExtents(entity, box) != vorn::eOk) return {};
    return box;
}

}  // namespace

// ---------------------------------------------------------------- overlaps

void checkOverlaps()
{
    std::vector<ObjectId> closed;
    if (!selectClosedCurves("\nThis command check all selected objects and find overlaped close polylines.", closed) ||
        !waitForEnter())
        return;
    acutPrintf("\n Processing polylines, please waiting...");
    std::vector<std::vector<Point2d>> polygons;
    for (ObjectId id : closed) polygons.push_back(planVertices(id));
    acedSetStatusBarProgressMeter("Progressing", 0, static_cast<int>(closed.size()) - 1);
    vorn::ScanControl control = meteredScan();
    control.pairFound = [&polygons](size_t, size_t b) { drawPolygonOutline(polygons[b], 6, true); };
    control.seedFinished = [&polygons](size_t a, bool found) {
        if (found) drawPolygonOutline(polygons[a], 6, true);
    };
    std::vector<ObjectId> listed = idsAt(closed, vorn::listedPolygons(vorn::findOverlaps(polygons, control)));
    acedRestoreStatusBar();
    if (listed.empty()) {
        acutPrintf("\nNo polylines overlapped!");
        return;
    }
    acutPrintf("\n%d polylines may overlapped!", static_cast<int>(listed.size()));
    highlightIds(listed, true);
    waitForEnter();
    highlightIds(listed, false);
}

// -------------------------------------------------------------- duplicates

namespace {

std::vector<ObjectId> distinct(const std::vector<ObjectId>& ids)
{
    std::vector<ObjectId> out;
    std::set<ObjectId> seen;
    for (ObjectId id : ids)
        if (id.isValid() && seen.insert(id).second) out.push_back(id);
    return out;
}

int moveToWorkingLayer(const std::vector<ObjectId>& ids)
{
    int moved = 0;
    for (ObjectId id : distinct(ids)) {
        Entity entity;
        if (!readEntity(id, entity)) continue;
        entity.common.layer = kWorkingLayerName;
        moved += database().writeEntity(entity) == vorn::eOk;
    }
    return moved;
}

int removeAll(const std::vector<ObjectId>& ids)
{
    std::vector<ObjectId> targets = distinct(ids);
    eraseIds(targets, false);
    redrawAndFlush();
    return static_cast<int>(std::count_if(targets.begin(), targets.end(), [](ObjectId id) { return database().isErased(id); }));
}

// Offers to move the duplicates to the working layer or delete them.
void actOnDuplicates(const std::vector<ObjectId>& duplicates)
{
    acedInitGet(0, "Move Delete");
    std::string word;
    if (acedGetKword("\n Enter an Option[Move to working layer/Delete/<Do nothing> ]:", word) != RTNORM) return;
    if (word == "Move") acutPrintf("\n%d duplicate polyline are moved to layer.", moveToWorkingLayer(duplicates));
    else if (word == "Delete") acutPrintf("\n%d duplicate polyline are removed.", removeAll(duplicates));
}

}  // namespace

void checkDuplicates()
{
    ensureWorkingLayer();
    std::vector<ObjectId> closed;
    if (!selectClosedCurves("\nThis command check all selected objects and find duplicated close polylines.", closed)) return;
    acutPrintf("\n Processing polylines, please waiting...");
    std::vector<double> areas;
    std::vector<vorn::Extents3d> extents;
    for (ObjectId id : closed) {
        Entity entity;
        areas.push_back(curveArea(id));
        extents.push_back(readEntity(id, entity) ? extentsOf(entity) : vorn::Extents3d{});
    }
    acedSetStatusBarProgressMeter("Finding overlapped polylines", 0, static_cast<int>(closed.size()) - 1);
    vorn::ScanControl control = meteredScan();
    control.pairFound = [&closed](size_t, size_t b) { drawPolygonOutline(planVertices(closed[b]), 6, true); };
    auto common = [&closed](size_t a, size_t b) { return regionOverlapArea(closed[a], closed[b]); };
    std::vector<vorn::PairFinding> findings = vorn::findDuplicates(areas, extents, common, control);
    acedRestoreStatusBar();
    if (findings.empty()) {
        acutPrintf("\nNo polylines are duplicated!");
        return;
    }
    std::vector<ObjectId> kept, duplicates;
    for (const vorn::PairFinding& f : findings) {
        kept.push_back(closed[f.seed]);
        for (size_t b : f.partners) duplicates.push_back(closed[b]);
    }
    acutPrintf("\n%d polylines may duplicated!", static_cast<int>(duplicates.size()));
    highlightIds(kept, true);
    actOnDuplicates(duplicates);
    highlightIds(kept, false);
}

// ---------------------------------------------------------------- contours

namespace {

// The objects whose first vertex stands at the elevation.
void checkContourValue(const std::vector<ObjectId>& ids, double value)
{
    std::vector<ObjectId> listed;
    for (ObjectId id : ids) {
        std::vector<vorn::Point3d> points;
        if (getEntityVertices(id, points) > 0 && std::fabs(points.front().z - value) < vorn::kOverlapTolerance) listed.push_back(id);
    }
    acutPrintf("\n %d in %d contours have elevation of %f", static_cast<int>(listed.size()), static_cast<int>(ids.size()), value);
    highlightIds(listed, true);
}

// The curves of different start elevation that cross in plan.
void checkContourIntersections(const std::vector<ObjectId>& ids)
{
    std::vector<ObjectId> curveIds;
    std::vector<Entity> curves;
    std::vector<double> startZ;
    std::vector<vorn::Extents3d> extents;
    for (ObjectId id : ids) {
        Entity entity;
        vorn::Point3d start;
        if (!readEntity(id, entity) || !vorn::isCurve(entity.kind()) || database().getStartPoint(entity, start) != vorn::eOk) continue;
        curveIds.push_back(id);
        startZ.push_back(start.z);
        extents.push_back(extentsOf(entity));
        curves.push_back(std::move(entity));
    }
    acedSetStatusBarProgressMeter("Check through contours...", 0, static_cast<int>(curves.size()));
    auto meet = [&curves](size_t a, size_t b) { return curvesIntersect(curves[a], curves[b]); };
    auto meter = [](size_t a) { acedSetStatusBarProgressMeterPos(static_cast<int>(a)); };
    std::vector<ObjectId> listed = idsAt(curveIds, vorn::findCrossingContours(startZ, extents, meet, meter));
    acedRestoreStatusBar();
    acutPrintf("\n %d in %d contours may intersected!", static_cast<int>(listed.size()), static_cast<int>(ids.size()));
    highlightIds(listed, true);
}

}  // namespace

void checkContours()
{
    printBanner("\nThis module checks the intersection or specified elevation of contour lines!");
    acedPrompt("\n<Intersection>/[Input the elevation value]:<I>");
    acedInitGet(0, "Intersection");
    double value = 0.0;
    int status = acedGetReal("", value);
    if (status == RTNORM) acutPrintf("\nSelect objects to check value %f :", value);
    else if (status == RTKWORD || status == RTNONE) acedPrompt("\nSelect objects to check intersection:");
    else return;
    acedPrompt("\nSelect objects to check:");
    std::vector<ObjectId> ids;
    if (!selectObjects(ids)) return;
    if (status == RTNORM) checkContourValue(ids, value);
    else checkContourIntersections(ids);
}
