// Drawing a grid into the drawing: the eight plot kinds, the code view and
// the view test. Every entity made goes to one id list, so that a preview
// can erase what it drew.
#include <algorithm>
#include <string>
#include <vector>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/create.h"
#include "drawing/database_port.h"
#include "drawing/drawing_helpers.h"
#include "drawing/editor_port.h"
#include "drawing/layers.h"
#include "drawing/platform.h"
#include "drawing/polygon.h"
#include "drawing/region_union.h"
#include "drawing/tempgraphics.h"
#include "grid/colorschema.h"
#include "grid/grid.h"
#include "grid/gridplot.h"

using vorn::ObjectId;
using vorn::Point2d;
using vorn::Point3d;

namespace {

Point2d node2d(const myGrid& grid, int i, int j)
{
    vorn::Point2 p;
    grid.getNodeXY(i, j, p);
    return {p.x, p.y};
}

Point3d node3d(const myGrid& grid, int i, int j)
{
    vorn::Point3 p;
    grid.getNodeXYZ(i, j, p);
    return {p.x, p.y, p.z};
}

std::vector<Point2d> cellCorners(const myGrid& grid, int i, int j)
{
    return {node2d(grid, i, j), node2d(grid, i + 1, j), node2d(grid, i + 1, j + 1), node2d(grid, i, j + 1)};
}

void keep(std::vector<ObjectId>& ids, vorn::ErrorStatus status, ObjectId id)
{
    if (status == vorn::eOk && id.isValid()) ids.push_back(id);
}

void plotCells(myGrid& grid, bool faces, std::vector<ObjectId>& ids)
{
    for (int i = 0; i < grid.xNum; ++i) {
        for (int j = 0; j < grid.yNum; ++j) {
            int color = grid.getValueColor(grid.values[i][j]);
            ObjectId id;
            if (faces) {
                std::vector<Point3d> corners = {node3d(grid, i, j), node3d(grid, i + 1, j), node3d(grid, i + 1, j + 1),
                                                node3d(grid, i, j + 1)};
                keep(ids, addFace(id, corners, color, grid.layerName), id);
            } else {
                keep(ids, addPolylineFromPoints(id, cellCorners(grid, i, j), true, 0.0, color, grid.layerName), id);
            }
        }
        flushGraphics();
    }
}

void plotPoints(myGrid& grid, std::vector<ObjectId>& ids)
{
    for (int i = 0; i <= grid.xNum; ++i) {
        for (int j = 0; j <= grid.yNum; ++j) {
            ObjectId id;
            keep(ids, addPoint(id, node3d(grid, i, j), grid.getValueColor(grid.values[i][j]), grid.layerName), id);
        }
        flushGraphics();
    }
}

// Green fit splines along every lattice line, the columns first.
void plotSplines(myGrid& grid, std::vector<ObjectId>& ids)
{
    constexpr int kSplineColor = 3;
    for (int i = 0; i <= grid.xNum; ++i) {
        std::vector<Point3d> points;
        for (int j = 0; j <= grid.yNum; ++j) points.push_back(node3d(grid, i, j));
        ObjectId id;
        keep(ids, addSpline(id, points, kSplineColor, grid.layerName), id);
        flushGraphics();
    }
    for (int j = 0; j <= grid.yNum; ++j) {
        std::vector<Point3d> points;
        for (int i = 0; i <= grid.xNum; ++i) points.push_back(node3d(grid, i, j));
        ObjectId id;
        keep(ids, addSpline(id, points, kSplineColor, grid.layerName), id);
        flushGraphics();
    }
}

void plotLines(myGrid& grid, std::vector<ObjectId>& ids)
{
    for (int i = 0; i <= grid.xNum; ++i) {
        for (int j = 0; j <= grid.yNum; ++j) {
            int color = grid.getValueColor(grid.values[i][j]);
            Point3d here = node3d(grid, i, j);
            ObjectId id;
            if (i < grid.xNum) keep(ids, addLine(id, here, node3d(grid, i + 1, j), color, grid.layerName), id);
            if (j < grid.yNum) keep(ids, addLine(id, here, node3d(grid, i, j + 1), color, grid.layerName), id);
        }
        flushGraphics();
    }
}

void plotSolidRuns(myGrid& grid, std::vector<ObjectId>& ids)
{
    forEachColumnRun(grid, [&](const ColumnRun& run) {
        std::vector<Point3d> corners;
        for (const Point2d& p : run.corners) corners.push_back({p.x, p.y, 0.0});
        ObjectId id;
        keep(ids, addSolid(id, corners, run.color, grid.layerName), id);
    }, [] { flushGraphics(); return true; });
}

void plotHatchRuns(myGrid& grid, std::vector<ObjectId>& ids)
{
    forEachColumnRun(grid, [&](const ColumnRun& run) {
        ObjectId id;
        keep(ids, addHatchFromPolygon(id, run.corners, run.color, grid.layerName), id);
    }, [] { flushGraphics(); return true; });
}

// Hatch of one group's region by the "hatch" command, as the user would.
void hatchRegion(vorn::Entity& region, int color, const std::string& layer, std::vector<ObjectId>& ids)
{
    region.common.colorIndex = color;
    if (!layer.empty()) region.common.layer = layer;
    ObjectId regionId;
    if (appendToModelSpace(regionId, region) != vorn::eOk) return;
    ids.push_back(regionId);
    vorn::SelectionSet set;
    acedSSAdd(regionId, set);
    vorn::ResultItem echo;
    bool hadEcho = acedGetVar("CMDECHO", echo) == RTNORM;
    acedSetVar("CMDECHO", vorn::ResultItem::ofInt(vorn::RTSHORT, 0));
    acedHatchSolid(set);
    if (hadEcho) acedSetVar("CMDECHO", echo);
    acedSSFree(set);
    ObjectId hatch = acdbEntLast();
    if (hatch.isValid() && hatch != regionId) {
        setEntityColorLayer(hatch, color, layer);
        ids.push_back(hatch);
    }
}

// Kind 7: column runs become regions, and each colour group's regions are
// united into one and hatched. Returns false when the user broke off.
bool plotHatchedRegions(myGrid& grid, std::vector<ObjectId>& ids)
{
    bool interrupted = false;
    acutPrintf("\nCreating base regions ...");
    acedSetStatusBarProgressMeter("Creating base regions ...", 1, grid.xNum);
    std::vector<vorn::Entity> regions;
    int column = 0;
    forEachColumnRun(grid, [&](const ColumnRun& run) {
        vorn::Entity outline;
        if (makePolylineFromPoints(outline, run.corners, true, 0.0, run.color) != vorn::eOk) return;
        std::vector<vorn::Entity> made;
        if (vorn::platform().database->createRegionsFromCurves({outline}, made) == vorn::eOk) {
            for (vorn::Entity& region : made) {
                region.common.colorIndex = run.color;
                if (!grid.layerName.empty()) region.common.layer = grid.layerName;
                regions.push_back(std::move(region));
            }
        }
        drawPolygonOutline(run.corners, run.color, true);
    }, [&] {
        acedSetStatusBarProgressMeterPos(++column);
        flushGraphics();
        if (!acedUsrBrk()) return true;
        regions.clear();
        interrupted = true;
        return false;
    });
    redrawAndFlush();
    acutPrintf("\n Combining base regions ...");
    const int groups = grid.getGroupCount();
    for (int g = 0; g < groups && !interrupted; ++g) {
        const int color = grid.getGroupColor(g);
        acedSetStatusBarProgressMeter(vorn::formatString("Combining regions for color <%d> ...", color).c_str(), 0,
                                      static_cast<int>(regions.size()));
        // The list is walked from its last entry to its first.
        std::vector<vorn::Entity> ofColor;
        for (size_t k = regions.size(); k-- > 0;) {
            if (regions[k].common.colorIndex != color) continue;
            ofColor.push_back(std::move(regions[k]));
            regions.erase(regions.begin() + static_cast<long>(k));
        }
        if (!uniteRegionsByHalving(ofColor, [] { return acedUsrBrk(); })) interrupted = true;
        // A group that occurs nowhere has no region and draws nothing.
        if (!interrupted && !ofColor.empty()) hatchRegion(ofColor.front(), color, grid.layerName, ids);
    }
    acedRestoreStatusBar();
    acutPrintf("\n %d Hatchs are generated", static_cast<int>(ids.size() / 2));
    if (!interrupted) return true;
    eraseIds(ids, true);
    ids.clear();
    acutPrintf("\nOperation is interrupted by user");
    return false;
}

}  // namespace

void forEachColumnRun(myGrid& grid, const std::function<void(const ColumnRun&)>& flush,
                      const std::function<bool()>& columnDone)
{
    for (int i = 0; i < grid.xNum; ++i) {
        const double* column = grid.values[i];
        ColumnRun run;
        int start = 0;
        run.color = grid.getValueColor(column[0]);
        auto emit = [&](int end) {
            run.corners = {node2d(grid, i, start), node2d(grid, i + 1, start), node2d(grid, i + 1, end),
                           node2d(grid, i, end)};
            flush(run);
        };
        for (int j = 1; j < grid.yNum; ++j) {
            int color = grid.getValueColor(column[j]);
            if (color == run.color) continue;
            emit(j);
            start = j;
            run.color = color;
        }
        emit(grid.yNum);
        if (columnDone && !columnDone()) return;
    }
}

void myGrid::plot()
{
    if (!isDefined()) {
        acutPrintf("\n Grid id not defined!");
        return;
    }
    if (!isInView()) acutPrintf("\nAttention: Grid may be drawn outside the view!");
    if (!layerName.empty()) ensureLayer(layerName, 7);
    double min = 0.0;
    double max = 0.0;
    getMinMax(min, max);
    setColorRange(min, max, colorMode == 1);
    if (colorBreaks.empty()) buildDefaultColors();

    std::vector<ObjectId> ids;
    switch (plotType) {
    case 0: plotCells(*this, false, ids); break;
    case 1: plotPoints(*this, ids); break;
    case 2: plotCells(*this, true, ids); break;
    case 3: plotSolidRuns(*this, ids); break;
    case 4: plotSplines(*this, ids); break;
    case 5: plotLines(*this, ids); break;
    case 6: plotHatchRuns(*this, ids); break;
    case 7:
        if (!plotHatchedRegions(*this, ids)) return;
        break;
    default: break;
    }

    if (previewOnly) {
        std::string answer;
        acedGetString(0, "\n <Enter> key to continue ...", answer);
        eraseIds(ids, false);
    } else if (makeGroup) {
        std::string name;
        addGroup(name, ids, kGridGroupName);
    }
    flushGraphics();
}

bool myGrid::isInView() const
{
    Point3d lower, upper, center;
    if (!viewRectangle(lower, upper, center)) return false;
    std::vector<Point2d> view = {{lower.x, lower.y}, {upper.x, lower.y}, {upper.x, upper.y}, {lower.x, upper.y}};
    std::vector<vorn::Point2> outline;
    getOutline(outline);
    std::vector<Point2d> corners;
    for (const vorn::Point2& p : outline) corners.push_back({p.x, p.y});
    return overlapArea(view, corners) > 1e-10;
}

// ---- the code view ------------------------------------------------------------

namespace {

struct CodeStyle {
    const char* name;
    int color;
};
constexpr CodeStyle kOpeningStyle{"MineGrid_Opening", 3};
constexpr CodeStyle kPillarStyle{"MineGrid_Pillar", 1};
constexpr CodeStyle kGobStyle{"MineGrid_Gob", 2};

void ensureCodeStyles()
{
    for (const CodeStyle& style : {kOpeningStyle, kPillarStyle, kGobStyle}) {
        ObjectId id;
        // The linetype is asked for by a name that is not found, so the
        // styles fall back to "Continuous".
        ensureMlineStyle(id, style.name, style.color, "countinous");
    }
}

void plotLattice(myGrid& grid, std::vector<ObjectId>& ids)
{
    auto lineColor = [](int index) { return index % 10 == 0 ? 6 : 7; };
    for (int i = 0; i <= grid.xNum; ++i) {
        ObjectId id;
        keep(ids, addPolylineFromPoints(id, {node2d(grid, i, 0), node2d(grid, i, grid.yNum)}, false, 0.0, lineColor(i)), id);
        flushGraphics();
    }
    for (int j = 0; j <= grid.yNum; ++j) {
        ObjectId id;
        keep(ids, addPolylineFromPoints(id, {node2d(grid, 0, j), node2d(grid, grid.xNum, j)}, false, 0.0, lineColor(j)), id);
        flushGraphics();
    }
}

const char* codeStyleOf(double value)
{
    if (value > 1e-10) return kPillarStyle.name;
    if (value < -1e-10) return kGobStyle.name;
    return kOpeningStyle.name;
}

void plotCodedCells(myGrid& grid, bool coded, std::vector<ObjectId>& ids)
{
    const bool mlines = coded && grid.xCellW > 2.0 && grid.yCellW > 2.0;
    for (int i = 0; i < grid.xNum; ++i) {
        for (int j = 0; j < grid.yNum; ++j) {
            double v = grid.values[i][j];
            ObjectId id;
            if (mlines)
                keep(ids, addMline(id, cellCorners(grid, i, j), true, 0.0, codeStyleOf(v)), id);
            else
                keep(ids, addPolylineFromPoints(id, cellCorners(grid, i, j), true, 0.0, grid.getValueColor(v)), id);
        }
        flushGraphics();
    }
}

}  // namespace

void myGrid::plotCodes(int mode)
{
    if (!isDefined()) {
        acutPrintf("\n Grid id not defined!");
        return;
    }
    if (!isInView()) acutPrintf("\nAttention: Grid may be drawn outside the view!");
    ensureCodeStyles();
    std::vector<ObjectId> ids;
    if (mode == 1)
        plotLattice(*this, ids);
    else
        plotCodedCells(*this, mode != 2, ids);
    flushGraphics();
    acedInitGet(RSG_OTHER, "Keep");
    std::string answer;
    acedGetKword("\nEnter <K> to Keep the grid/<any other key to continue ...>", answer);
    if (answer == "Keep") {
        std::string name;
        addGroup(name, ids, kCodeGroupName);
    } else {
        eraseIds(ids, true);
    }
}
