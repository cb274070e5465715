// Statistics of a grid's cells inside and outside polygons of the drawing.
#include <algorithm>
#include <cmath>
#include <vector>

#include "drawing/editor_port.h"
#include "drawing/entity_geometry.h"
#include "drawing/polygon.h"
#include "grid/grid.h"

using vorn::Point2d;

namespace {

std::vector<std::vector<Point2d>> readPolygons(const std::vector<vorn::ObjectId>& ids)
{
    std::vector<std::vector<Point2d>> polygons;
    for (vorn::ObjectId id : ids) {
        std::vector<Point2d> points;
        getEntityVertices2d(id, points);
        polygons.push_back(std::move(points));
    }
    return polygons;
}

struct CellRange {
    int i0 = 0, i1 = -1, j0 = 0, j1 = -1;
};

// The union of the clamped cells of the polygons' bounding boxes.
CellRange rangeOfPolygons(const myGrid& grid, const std::vector<std::vector<Point2d>>& polygons)
{
    CellRange range{grid.xNum, -1, grid.yNum, -1};
    for (const std::vector<Point2d>& polygon : polygons) {
        if (polygon.empty()) continue;
        vorn::Point2 lower{polygon[0].x, polygon[0].y}, upper = lower;
        for (const Point2d& p : polygon) {
            lower = {std::min(lower.x, p.x), std::min(lower.y, p.y)};
            upper = {std::max(upper.x, p.x), std::max(upper.y, p.y)};
        }
        int ia, ja, ib, jb;
        grid.getCellOfPointClamped(lower, ia, ja);
        grid.getCellOfPointClamped(upper, ib, jb);
        range.i0 = std::min({range.i0, ia, ib});
        range.i1 = std::max({range.i1, ia, ib});
        range.j0 = std::min({range.j0, ja, jb});
        range.j1 = std::max({range.j1, ja, jb});
    }
    return range;
}

// The chosen cell as a crossed quadrilateral, corners 0, 2, 1, 3.
void drawBowTie(const std::vector<Point2d>& cell)
{
    const int order[5] = {0, 2, 1, 3, 0};
    for (int k = 0; k < 4; ++k) {
        const Point2d& a = cell[order[k]];
        const Point2d& b = cell[order[k + 1]];
        acedGrDraw({a.x, a.y, 0.0}, {b.x, b.y, 0.0}, 2, 0);
    }
}

}  // namespace

void myGrid::computeStatistics(const std::vector<vorn::ObjectId>& inclusions,
                               const std::vector<vorn::ObjectId>& exclusions, double percent)
{
    statCount = 0;
    statMin = statMax = statMean = statStdDev = 0.0;
    minCells.clear();
    maxCells.clear();
    if (values.empty()) return;

    const std::vector<std::vector<Point2d>> included = readPolygons(inclusions);
    const std::vector<std::vector<Point2d>> excluded = readPolygons(exclusions);
    const bool anyPolygon = !included.empty() || !excluded.empty();
    CellRange range = included.empty() ? CellRange{0, xNum - 1, 0, yNum - 1} : rangeOfPolygons(*this, included);
    const double cellArea = xCellW * yCellW;
    const double threshold = std::max(cellArea * percent * 0.01, 0.0001);

    double sum = 0.0;
    double sumSq = 0.0;
    acedSetStatusBarProgressMeter("Processing ...", range.i0, range.i1);
    for (int i = range.i0; i <= range.i1; ++i) {
        acedSetStatusBarProgressMeterPos(i);
        for (int j = range.j0; j <= range.j1; ++j) {
            std::vector<vorn::Point2> corners;
            if (!getCellPolygon(i, j, corners)) continue;
            std::vector<Point2d> cell;
            for (const vorn::Point2& p : corners) cell.push_back({p.x, p.y});
            double covered = included.empty() ? cellArea : 0.0;
            for (const std::vector<Point2d>& polygon : included) covered += overlapArea(cell, polygon);
            for (const std::vector<Point2d>& polygon : excluded) covered -= overlapArea(cell, polygon);
            if (covered < threshold) continue;
            if (anyPolygon) drawBowTie(cell);

            const double v = values[i][j];
            const vorn::Point2 here{static_cast<double>(i), static_cast<double>(j)};
            if (statCount == 0) {
                statMin = statMax = v;
                minCells = {here};
                maxCells = {here};
                statCount = 1;
                sum = v;
                sumSq = v * v;
                continue;
            }
            ++statCount;
            sum += v;
            sumSq += v * v;
            if (v < statMin) {
                statMin = v;
                minCells = {here};
            } else if (std::fabs(v - statMin) < 1e-10) {
                minCells.push_back(here);
            }
            if (v > statMax) {
                statMax = v;
                maxCells = {here};
            } else if (std::fabs(v - statMax) < 1e-10) {
                maxCells.push_back(here);
            }
        }
    }
    acedRestoreStatusBar();
    if (statCount >= 1) {
        statMean = sum / statCount;
        statStdDev = std::sqrt(sumSq / statCount - statMean * statMean);
    }
}
