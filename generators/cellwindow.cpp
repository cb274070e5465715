#include "generators/cellwindow.h"

#include <algorithm>
#include <cmath>

using vorn::Point2d;

namespace {

// A point turned by `angle` about `centre`, as the platform's 2-D point
// rotation does it.
Point2d rotatedAbout(const Point2d& p, double angle, const Point2d& centre)
{
    double c = std::cos(angle);
    double s = std::sin(angle);
    double dx = p.x - centre.x;
    double dy = p.y - centre.y;
    return {centre.x + c * dx - s * dy, centre.y + s * dx + c * dy};
}

}  // namespace

CellWindow polygonCellWindow(const myGrid& grid, const std::vector<Point2d>& vertices)
{
    CellWindow window;
    if (vertices.empty()) return window;
    Point2d origin{grid.origin.x, grid.origin.y};
    Point2d low{1e300, 1e300};
    Point2d high{-1e300, -1e300};
    for (const Point2d& vertex : vertices) {
        Point2d p = rotatedAbout(vertex, -grid.rotAngle, origin);
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    window.corners[0] = rotatedAbout(low, grid.rotAngle, origin);
    window.corners[1] = rotatedAbout({high.x, low.y}, grid.rotAngle, origin);
    window.corners[2] = rotatedAbout(high, grid.rotAngle, origin);
    window.corners[3] = rotatedAbout({low.x, high.y}, grid.rotAngle, origin);
    grid.getCellOfPointClamped(toGridPoint(window.corners[0]), window.iLow, window.jLow);
    grid.getCellOfPointClamped(toGridPoint(window.corners[2]), window.iHigh, window.jHigh);
    return window;
}

void cellOutline(const myGrid& grid, int i, int j, std::vector<Point2d>& cornersOut)
{
    cornersOut.resize(4);
    vorn::Point2 p;
    grid.getNodeXY(i, j, p);
    cornersOut[0] = toPlan(p);
    grid.getNodeXY(i + 1, j, p);
    cornersOut[1] = toPlan(p);
    grid.getNodeXY(i + 1, j + 1, p);
    cornersOut[2] = toPlan(p);
    grid.getNodeXY(i, j + 1, p);
    cornersOut[3] = toPlan(p);
}

Point2d cellCentre(const myGrid& grid, int i, int j)
{
    vorn::Point3 centre;
    grid.getCellCentre(i, j, centre);
    return {centre.x, centre.y};
}

Point2d toPlan(const vorn::Point2& p) { return {p.x, p.y}; }
vorn::Point2 toGridPoint(const Point2d& p) { return {p.x, p.y}; }
