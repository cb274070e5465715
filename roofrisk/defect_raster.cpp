#include "roofrisk/defect_raster.h"

#include <algorithm>
#include <cmath>

#include "drawing/polygon.h"

namespace vorn::rfri {

namespace {

Point2 toGrid(const Point2d& p) { return {p.x, p.y}; }

// Rotates `p` about `centre` by `angle` radians.
Point2d rotated(const Point2d& p, const Point2d& centre, double angle)
{
    double c = std::cos(angle);
    double s = std::sin(angle);
    double dx = p.x - centre.x;
    double dy = p.y - centre.y;
    return {centre.x + dx * c - dy * s, centre.y + dx * s + dy * c};
}

}  // namespace

CellRange lineCellRange(const myGrid& grid, const Point2d& lower, const Point2d& upper, double reach)
{
    CellRange range;
    grid.getCellOfPointClamped({lower.x - reach, lower.y - reach}, range.i0, range.j0);
    grid.getCellOfPointClamped({upper.x + reach, upper.y + reach}, range.i1, range.j1);
    return range;
}

void rasteriseLine(myGrid& grid, const CellRange& range, double reach, double value, bool taper,
                   const ClosestPoint& closest)
{
    for (int i = range.i0; i <= range.i1; ++i) {
        for (int j = range.j0; j <= range.j1; ++j) {
            Point3 centre;
            if (!grid.getCellCentre(i, j, centre)) continue;
            Point3d centre3d{centre.x, centre.y, 0.0};
            double d = planarDistance(centre3d, closest(centre3d));
            if (d > reach) continue;
            double candidate = taper ? ((reach - d) / reach) * value : value;
            if (grid.getValue(i, j) < candidate) grid.setValue(i, j, candidate);
        }
    }
}

AlignedBox gridAlignedBox(const myGrid& grid, const std::vector<Point2d>& vertices)
{
    Point2 node;
    grid.getNodeXY(0, 0, node);
    Point2d centre{node.x, node.y};
    double angle = grid.getRotation();
    Point2d lower{1e300, 1e300};
    Point2d upper{-1e300, -1e300};
    for (const Point2d& vertex : vertices) {
        Point2d p = rotated(vertex, centre, -angle);
        lower = {std::min(lower.x, p.x), std::min(lower.y, p.y)};
        upper = {std::max(upper.x, p.x), std::max(upper.y, p.y)};
    }
    AlignedBox box;
    for (const Point2d& corner : {lower, Point2d{upper.x, lower.y}, upper, Point2d{lower.x, upper.y}}) {
        box.corners.push_back(rotated(corner, centre, angle));
    }
    box.lower = rotated(lower, centre, angle);
    box.upper = rotated(upper, centre, angle);
    return box;
}

bool areaCellRange(const myGrid& grid, const AlignedBox& box, CellRange& range)
{
    grid.getCellOfPointClamped(toGrid(box.lower), range.i0, range.j0);
    grid.getCellOfPointClamped(toGrid(box.upper), range.i1, range.j1);
    return range.i0 < range.i1 && range.j0 < range.j1;
}

void rasteriseArea(myGrid& grid, const CellRange& range, const std::vector<Point2d>& polygon, double value,
                   bool overwrite)
{
    std::vector<Point2d> cell(4);
    std::vector<Point2d> clipped;
    for (int i = range.i0; i <= range.i1; ++i) {
        for (int j = range.j0; j <= range.j1; ++j) {
            const int corners[4][2] = {{i, j}, {i + 1, j}, {i + 1, j + 1}, {i, j + 1}};
            for (int k = 0; k < 4; ++k) {
                Point2 node;
                grid.getNodeXY(corners[k][0], corners[k][1], node);
                cell[static_cast<size_t>(k)] = {node.x, node.y};
            }
            double area = std::fabs(clipPolygonArea(cell, polygon, clipped));
            if (area < kMinCoveredArea) continue;
            if (overwrite || grid.getValue(i, j) < value) grid.setValue(i, j, value);
        }
    }
}

}  // namespace vorn::rfri
