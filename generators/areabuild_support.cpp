#include "generators/areabuild_support.h"

#include "base/report.h"
#include "drawing/create.h"
#include "drawing/drawing_helpers.h"
#include "drawing/entity_geometry.h"
#include "drawing/polygon.h"
#include "drawing/tempgraphics.h"
#include "generators/overlapcheck.h"

using vorn::Point2d;

std::vector<Point2d> gridOutline(const myGrid& grid)
{
    std::vector<vorn::Point2> corners;
    grid.getOutline(corners);
    std::vector<Point2d> outline;
    for (const vorn::Point2& p : corners) outline.push_back(toPlan(p));
    return outline;
}

void dropOutsideGrid(vorn::SelectionSet& set, const std::vector<Point2d>& outline)
{
    std::vector<Point2d> polygon, clipped;
    for (long k = set.length() - 1; k >= 0; --k) {
        vorn::ObjectId id = set.ids[static_cast<size_t>(k)];
        getEntityVertices2d(id, polygon);
        if (!(clipPolygonArea(outline, polygon, clipped) > 1e-10)) acedSSDel(id, set);
    }
}

bool forEachPolygonWindow(const myGrid& grid, const vorn::SelectionSet& set, AreaCover& cover,
                          const std::function<void(const CellWindow&)>& step)
{
    std::vector<Point2d> polygon;
    for (long k = 0; k < set.length(); ++k) {
        acedSetStatusBarProgressMeterPos(static_cast<int>(k));
        if (getEntityVertices2d(set.ids[static_cast<size_t>(k)], polygon) < 1) continue;
        CellWindow window = polygonCellWindow(grid, polygon);
        if (window.spansCells()) {
            drawPolygonOutline({window.corners, window.corners + 4}, 6, true);
            cover.setPolygon(polygon);
            step(window);
        }
        if (acedUsrBrk()) {
            acutPrintf("\nUser interrupted!!");
            return false;
        }
    }
    return true;
}

bool drawOverlaps(const vorn::SelectionSet& set, double limit)
{
    std::vector<std::vector<Point2d>> polygons(set.ids.size());
    for (size_t k = 0; k < set.ids.size(); ++k) getEntityVertices2d(set.ids[k], polygons[k]);
    bool any = false;
    forEachOverlap(polygons, limit, [&](size_t a, size_t b) {
        drawPolygonOutline(polygons[a], 6, true);
        drawPolygonOutline(polygons[b], 6, true);
        any = true;
    });
    return any;
}

namespace {
std::vector<Point2d> framedCell(const myGrid& grid, int i, int j)
{
    std::vector<Point2d> corners;
    cellOutline(grid, i, j, corners);
    Point2d centre = cellCentre(grid, i, j);
    std::vector<Point2d> frame(corners);
    frame.push_back(corners[0]);
    for (const Point2d& c : corners)
        frame.push_back({centre.x + (c.x - centre.x) * 0.8, centre.y + (c.y - centre.y) * 0.8});
    return frame;
}
}  // namespace

CellFrames::CellFrames(const myGrid& grid, std::function<int(double)> colorOf)
    : grid_(grid), colorOf_(std::move(colorOf))
{
    frames_.reserve(static_cast<size_t>(grid.xNum) * static_cast<size_t>(grid.yNum));
    for (int i = 0; i < grid.xNum; ++i) {
        for (int j = 0; j < grid.yNum; ++j) {
            vorn::ObjectId id;
            addPolylineFromPoints(id, framedCell(grid, i, j), true, 0.0, colorOf_(grid.values[i][j]));
            frames_.push_back(id);
        }
    }
    flushGraphics();
}

CellPick CellFrames::pick(const char* prompt)
{
    CellPick result;
    ads_point point;
    if (acedGetPoint(nullptr, prompt, point) != RTNORM) return result;
    result.picked = true;
    ads_point world;
    acdbUcs2Wcs(point, world);
    grid_.getCellOfPoint({world.x, world.y}, result.i, result.j);
    result.inside = result.i >= 0 && result.j >= 0;
    if (!result.inside) acutPrintf("\nSorry,this point (%f,%f) is outside the grid!", point.x, point.y);
    return result;
}

void CellFrames::recolor(int i, int j)
{
    size_t k = static_cast<size_t>(i) * static_cast<size_t>(grid_.yNum) + static_cast<size_t>(j);
    setEntityColorLayer(frames_[k], colorOf_(grid_.values[i][j]), "");
    flushGraphics();
}

void CellFrames::erase()
{
    if (frames_.empty()) return;
    eraseIds(frames_, true);
    frames_.clear();
}
