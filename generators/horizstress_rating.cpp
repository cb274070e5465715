#include "generators/horizstress_rating.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/polygon.h"
#include "generators/cellwindow.h"

double entryRating(double angle, double theta)
{
    const double pi = std::numbers::pi;
    double x = std::fabs(angle - (angle > pi ? pi : 0.0) - theta);
    if (x > pi / 2) x = pi - x;
    return std::sin(x) * 100.0;
}

vorn::Point2d closestOnSegment(const vorn::Point2d& a, const vorn::Point2d& b, const vorn::Point2d& p)
{
    double dx = b.x - a.x;
    double dy = b.y - a.y;
    double len2 = dx * dx + dy * dy;
    double t = len2 > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / len2, 0.0, 1.0) : 0.0;
    return {a.x + t * dx, a.y + t * dy};
}

SegmentWindow segmentCellWindow(const myGrid& grid, const vorn::Point2d& a, const vorn::Point2d& b, double h)
{
    SegmentWindow window;
    vorn::Point2 low{std::min(a.x, b.x) - h, std::min(a.y, b.y) - h};
    vorn::Point2 high{std::max(a.x, b.x) + h, std::max(a.y, b.y) + h};
    grid.getCellOfPointClamped(low, window.iLow, window.jLow);
    grid.getCellOfPointClamped(high, window.iHigh, window.jHigh);
    return window;
}

void rateSegmentCells(myGrid& grid, const vorn::Point2d& a, const vorn::Point2d& b, double h, double rating)
{
    SegmentWindow window = segmentCellWindow(grid, a, b, h);
    for (int i = window.iLow; i <= window.iHigh; ++i) {
        for (int j = window.jLow; j <= window.jHigh; ++j) {
            vorn::Point2d c = cellCentre(grid, i, j);
            if (planarDistance(c, closestOnSegment(a, b, c)) <= h && rating > grid.values[i][j])
                grid.values[i][j] = rating;
        }
    }
}
