// The line and area rules that turn a defect feature into grid values.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "roofrisk/defect_raster.h"

namespace {

using namespace vorn::rfri;
using vorn::Point2d;
using vorn::Point3d;

// A grid of n by n cells of width w at the origin, every cell at `fill`.
myGrid makeGrid(int n, double w, double fill, double rotation = 0.0)
{
    myGrid grid;
    grid.setup(n, n, w, w, rotation);
    grid.setAll(fill);
    return grid;
}

// The closest point of the segment a-b.
ClosestPoint segment(Point2d a, Point2d b)
{
    return [a, b](const Point3d& p) {
        double dx = b.x - a.x, dy = b.y - a.y;
        double t = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
        return Point3d{a.x + t * dx, a.y + t * dy, 0.0};
    };
}

std::vector<Point2d> rectangle(double x0, double y0, double x1, double y1)
{
    return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}, {x0, y0}};
}

void applyArea(myGrid& grid, const std::vector<Point2d>& polygon, double value, bool overwrite)
{
    AlignedBox box = gridAlignedBox(grid, polygon);
    CellRange range;
    if (areaCellRange(grid, box, range)) rasteriseArea(grid, range, polygon, value, overwrite);
}

TEST(LineRule, CellsWithinTheReachRiseAndACentreAtExactlyTheReachCounts)
{
    myGrid grid = makeGrid(10, 1.0, 1.0);
    grid.setValue(5, 4, 9.0);
    CellRange range = lineCellRange(grid, {0, 5}, {10, 5}, 1.5);
    rasteriseLine(grid, range, 1.5, 4.0, false, segment({0, 5}, {10, 5}));
    // Centres lie at y = j + 0.5: rows 3 and 6 at exactly 1.5 from y = 5.
    for (int j = 0; j < 10; ++j) {
        double expected = (j >= 3 && j <= 6) ? 4.0 : 1.0;
        EXPECT_EQ(grid.getValue(2, j), expected) << j;
    }
    EXPECT_EQ(grid.getValue(5, 4), 9.0);  // never lowered
}

TEST(LineRule, TaperFadesTheValueWithDistance)
{
    myGrid grid = makeGrid(10, 1.0, 0.0);
    CellRange range = lineCellRange(grid, {0, 5}, {10, 5}, 2.0);
    rasteriseLine(grid, range, 2.0, 4.0, true, segment({0, 5}, {10, 5}));
    EXPECT_DOUBLE_EQ(grid.getValue(3, 4), 3.0);  // d = 0.5
    EXPECT_DOUBLE_EQ(grid.getValue(3, 3), 1.0);  // d = 1.5
}

TEST(AreaRule, MaximumKeepsTheGreatestInEitherOrderAndOverwriteTakesTheLast)
{
    const auto a = rectangle(1, 1, 5, 5);
    const auto b = rectangle(3, 3, 8, 8);
    for (bool aFirst : {true, false}) {
        myGrid maximum = makeGrid(10, 1.0, 1.0);
        myGrid overwrite = makeGrid(10, 1.0, 0.0);
        for (int step = 0; step < 2; ++step) {
            bool takeA = (step == 0) == aFirst;
            applyArea(maximum, takeA ? a : b, takeA ? 3.0 : 5.0, false);
            applyArea(overwrite, takeA ? a : b, takeA ? -5.0 : 25.0, true);
        }
        EXPECT_EQ(maximum.getValue(3, 3), 5.0);
        EXPECT_EQ(maximum.getValue(1, 1), 3.0);
        EXPECT_EQ(maximum.getValue(9, 9), 1.0);
        EXPECT_EQ(overwrite.getValue(3, 3), aFirst ? 25.0 : -5.0);
        EXPECT_EQ(overwrite.getValue(1, 1), -5.0);
    }
}

TEST(AreaRule, ALevelOneFeatureChangesNothingOnAMaximumPage)
{
    myGrid grid = makeGrid(10, 1.0, 1.0);
    applyArea(grid, rectangle(0, 0, 10, 10), 1.0, false);
    for (int i = 0; i < 10; ++i) EXPECT_EQ(grid.getValue(i, i), 1.0);
}

TEST(AreaRule, AFeatureWithinOneColumnOrRowSetsNothing)
{
    myGrid grid = makeGrid(10, 1.0, 1.0);
    applyArea(grid, rectangle(2.1, 0.5, 2.9, 9.5), 5.0, false);  // one column, nine rows
    applyArea(grid, rectangle(0.5, 6.2, 9.5, 6.8), 5.0, false);  // one row
    double lowest = 0.0, highest = 0.0;
    grid.getMinMax(lowest, highest);
    EXPECT_EQ(highest, 1.0);
}

TEST(AreaRule, HalfASquareUnitIsAbsolute)
{
    // Cells of 0.5 by 0.5 have 0.25 square units: even covered whole, never set.
    myGrid small = makeGrid(10, 0.5, 1.0);
    applyArea(small, rectangle(0, 0, 5, 5), 5.0, false);
    EXPECT_EQ(small.getValue(4, 4), 1.0);
    // A cell of 1 by 1 covered by exactly half is set; just under half is not.
    myGrid grid = makeGrid(10, 1.0, 1.0);
    applyArea(grid, rectangle(2.5, 2.0, 4.0, 4.0), 5.0, false);
    applyArea(grid, rectangle(6.51, 2.0, 8.0, 4.0), 5.0, false);
    EXPECT_EQ(grid.getValue(2, 2), 5.0);
    EXPECT_EQ(grid.getValue(6, 2), 1.0);
    EXPECT_EQ(grid.getValue(7, 2), 5.0);
}

TEST(AreaRule, ABoxInTheGridsOwnFrameOnARotatedGrid)
{
    myGrid grid = makeGrid(10, 1.0, 1.0, 30.0);
    // The cells (2..3, 2..3) as a polygon in world coordinates.
    std::vector<Point2d> cells;
    for (auto [i, j] : {std::pair{2, 2}, {4, 2}, {4, 4}, {2, 4}, {2, 2}}) {
        vorn::Point2 p;
        grid.getNodeXY(i, j, p);
        cells.push_back({p.x, p.y});
    }
    AlignedBox box = gridAlignedBox(grid, cells);
    CellRange range;
    ASSERT_TRUE(areaCellRange(grid, box, range));
    rasteriseArea(grid, range, cells, 4.0, false);
    EXPECT_EQ(grid.getValue(2, 2), 4.0);
    EXPECT_EQ(grid.getValue(3, 3), 4.0);
    EXPECT_EQ(grid.getValue(1, 2), 1.0);
    EXPECT_EQ(grid.getValue(4, 3), 1.0);
}

}  // namespace
