// The cell loops of the area builds against their plain forms: the reused
// clip gives the very numbers of clipPolygonArea, the window limits the work
// without changing a cell, and the threshold passes classify as stated.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "drawing/polygon.h"
#include "generators/areacover.h"
#include "generators/cellwindow.h"
#include "generators/overlapcheck.h"

namespace {

using vorn::Point2d;
using Polygon = std::vector<Point2d>;

myGrid makeGrid(int nx, int ny, double width, double degrees = 0.0, Point2d origin = {0, 0})
{
    myGrid grid;
    grid.setOrigin(origin.x, origin.y, 0.0);
    grid.setup(nx, ny, width, width, degrees);
    return grid;
}

Polygon rectangle(double x0, double y0, double x1, double y1, bool repeatFirst = true)
{
    Polygon p{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
    if (repeatFirst) p.push_back(p.front());
    return p;
}

Polygon rotatedRectangle(Point2d centre, double w, double h, double angle)
{
    Polygon p;
    double c = std::cos(angle), s = std::sin(angle);
    for (Point2d d : {Point2d{-w / 2, -h / 2}, Point2d{w / 2, -h / 2}, Point2d{w / 2, h / 2}, Point2d{-w / 2, h / 2}})
        p.push_back({centre.x + c * d.x - s * d.y, centre.y + s * d.x + c * d.y});
    p.push_back(p.front());
    return p;
}

// The literal loop: every cell of the whole grid, j outer, i inner, each
// clipped through the allocating clipPolygonArea.
void referenceAddArea(myGrid& grid, const Polygon& polygon, const CellWindow& window, double threshold)
{
    std::vector<Point2d> corners, result;
    for (int j = window.jLow; j <= window.jHigh; ++j) {
        for (int i = window.iLow; i <= window.iHigh; ++i) {
            if (!(grid.values[i][j] < threshold)) continue;
            cellOutline(grid, i, j, corners);
            grid.values[i][j] += clipPolygonArea(corners, polygon, result);
        }
    }
}

std::vector<Polygon> randomPlan(std::mt19937& random, int count, double extent)
{
    std::uniform_real_distribution<double> at(-0.1 * extent, 1.1 * extent), size(1.0, 0.08 * extent),
        angle(0.0, 3.2);
    std::vector<Polygon> plan;
    for (int k = 0; k < count; ++k) plan.push_back(rotatedRectangle({at(random), at(random)}, size(random), size(random), angle(random)));
    return plan;
}

TEST(AreaCover, ReusedClipGivesTheNumbersOfThePlainClipOnAnyPolygon)
{
    const std::vector<Polygon> polygons{
        rectangle(1, 1, 9, 7),
        rotatedRectangle({5, 5}, 6, 3, 0.7),
        {{0, 0}, {10, 10}, {10, 0}, {0, 10}},          // self-crossing bow tie
        {{2, 2}, {2, 2}, {8, 2}, {8, 2}, {8, 8}},      // repeated points
        {{1, 1}, {9, 9}},                              // two vertices
        {{1, 1}, {5, 5}, {9, 9}, {1, 1}},              // no area
        {{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}},       // huge
    };
    PolygonClipArea reused;
    std::vector<Point2d> corners, result;
    for (double degrees : {0.0, 30.0}) {
        myGrid grid = makeGrid(6, 5, 2.0, degrees);
        for (const Polygon& polygon : polygons) {
            reused.setPolygon(polygon);
            for (int i = 0; i < grid.xNum; ++i)
                for (int j = 0; j < grid.yNum; ++j) {
                    cellOutline(grid, i, j, corners);
                    EXPECT_EQ(reused.areaInside(corners), clipPolygonArea(corners, polygon, result));
                }
        }
    }
}

TEST(AreaCover, WindowedLoopEqualsTheLiteralLoopOnARandomPlan)
{
    std::mt19937 random(7);
    for (double degrees : {0.0, 25.0}) {
        myGrid fast = makeGrid(60, 50, 5.0, degrees, {3, -2});
        myGrid plain = makeGrid(60, 50, 5.0, degrees, {3, -2});
        fast.setAll(0.0);
        plain.setAll(0.0);
        double threshold = minAreaThreshold(fast, true, 50);
        AreaCover cover;
        for (const Polygon& polygon : randomPlan(random, 80, 300.0)) {
            CellWindow window = polygonCellWindow(fast, polygon);
            if (!window.spansCells()) continue;
            cover.setPolygon(polygon);
            cover.addArea(fast, window, threshold);
            referenceAddArea(plain, polygon, window, threshold);
        }
        for (int i = 0; i < fast.xNum; ++i)
            for (int j = 0; j < fast.yNum; ++j) ASSERT_EQ(fast.values[i][j], plain.values[i][j]) << i << "," << j;
    }
}

TEST(AreaCover, WindowMissesNoCoveredCellOfARotatedGrid)
{
    myGrid grid = makeGrid(40, 40, 2.5, 35.0, {10, 10});
    Polygon polygon = rotatedRectangle({30, 50}, 17, 9, 1.1);
    CellWindow window = polygonCellWindow(grid, polygon);
    ASSERT_TRUE(window.spansCells());
    std::vector<Point2d> corners, result;
    for (int i = 0; i < grid.xNum; ++i)
        for (int j = 0; j < grid.yNum; ++j) {
            cellOutline(grid, i, j, corners);
            bool inWindow = i >= window.iLow && i <= window.iHigh && j >= window.jLow && j <= window.jHigh;
            if (!inWindow) {
                EXPECT_EQ(clipPolygonArea(corners, polygon, result), 0.0) << i << "," << j;
            }
        }
}

TEST(AreaCover, PolygonInsideOneRowOrColumnLeavesNoTrace)
{
    myGrid grid = makeGrid(10, 10, 10.0);
    EXPECT_FALSE(polygonCellWindow(grid, rectangle(12, 31, 58, 38)).spansCells());  // one row
    EXPECT_FALSE(polygonCellWindow(grid, rectangle(41, 5, 49, 95)).spansCells());   // one column
    EXPECT_FALSE(polygonCellWindow(grid, rectangle(500, 500, 600, 600)).spansCells());  // beyond the grid
    EXPECT_FALSE(polygonCellWindow(grid, {}).spansCells());
    CellWindow window = polygonCellWindow(grid, rectangle(-50, 15, 25, 1e12));
    EXPECT_EQ(window.iLow, 0);
    EXPECT_EQ(window.jLow, 1);
    EXPECT_EQ(window.iHigh, 2);
    EXPECT_EQ(window.jHigh, 9);
}

struct CoverCase {
    const char* name;
    std::vector<Polygon> polygons;
    int percent;
    double expected;  // value of cell (1,1) after the inside/outside pass, inside 100, outside 0
};

TEST(AreaCover, AreaRuleAccumulatesAndStopsAtTheThreshold)
{
    const CoverCase cases[] = {
        {"two halves reach 50 % together", {rectangle(0, 0, 15, 30), rectangle(15, 0, 30, 30)}, 50, 100},
        {"one half alone reaches 50 %", {rectangle(0, 0, 15, 30)}, 50, 100},
        {"less than half stays outside", {rectangle(0, 0, 14.9, 30)}, 50, 0},
        {"two 30 % pieces reach 50 %", {rectangle(0, 0, 13, 30), rectangle(17, 0, 30, 30)}, 50, 100},
        {"a full cover reaches 100 %", {rectangle(0, 0, 30, 30)}, 100, 100},
    };
    for (const CoverCase& c : cases) {
        myGrid grid = makeGrid(3, 3, 10.0);
        grid.setAll(0.0);
        double threshold = minAreaThreshold(grid, true, c.percent);
        AreaCover cover;
        for (const Polygon& p : c.polygons) {
            cover.setPolygon(p);
            cover.addArea(grid, polygonCellWindow(grid, p), threshold);
        }
        applyInsideOutside(grid, threshold, 100, 0);
        EXPECT_EQ(grid.values[1][1], c.expected) << c.name;
    }
}

TEST(AreaCover, FullCellTakesNoFurtherArea)
{
    myGrid grid = makeGrid(3, 3, 10.0);
    grid.setAll(0.0);
    AreaCover cover;
    for (int k = 0; k < 3; ++k) {
        cover.setPolygon(rectangle(0, 0, 30, 30));
        cover.addArea(grid, polygonCellWindow(grid, rectangle(0, 0, 30, 30)), 50.0);
    }
    EXPECT_DOUBLE_EQ(grid.values[1][1], 100.0);
}

TEST(AreaCover, MiddlePointMarksCellsWhoseCentreIsInside)
{
    myGrid grid = makeGrid(4, 4, 10.0);
    grid.setAll(0.0);
    AreaCover cover;
    Polygon p = rectangle(0, 0, 25, 14);  // centres (5,5), (15,5), and (25,5) on the edge
    cover.setPolygon(p);
    cover.markCentresBelow(grid, polygonCellWindow(grid, p), 0.5);
    applyInsideOutside(grid, 0.5, 7, 3);
    EXPECT_EQ(grid.values[0][0], 7);
    EXPECT_EQ(grid.values[2][0], 7);  // centre (25,5) on the edge counts as inside
    EXPECT_EQ(grid.values[3][0], 3);
    EXPECT_EQ(grid.values[0][1], 3);
}

TEST(SeamCover, PillarsWinOverGobAndSmallGobReturnsToEntry)
{
    for (bool areaBased : {true, false}) {
        myGrid grid = makeGrid(4, 2, 10.0);
        grid.setAll(0.0);
        double threshold = minAreaThreshold(grid, areaBased, 50);
        AreaCover cover;
        auto pillar = [&](const Polygon& p) {
            cover.setPolygon(p);
            CellWindow w = polygonCellWindow(grid, p);
            areaBased ? cover.addArea(grid, w, threshold) : cover.markCentresNotAbove(grid, w, threshold);
        };
        auto gob = [&](const Polygon& p) {
            cover.setPolygon(p);
            CellWindow w = polygonCellWindow(grid, p);
            areaBased ? cover.subtractArea(grid, w) : cover.markGobCentres(grid, w);
        };
        pillar(rectangle(0, 0, 15, 20));  // cell 0 whole, cell 1 half
        if (areaBased) classifyPillarCells(grid, threshold);
        gob(rectangle(15, 0, 40, 20));  // cell 1 other half, cell 2 whole, cell 3 whole
        gob(rectangle(0, 7, 40, 13));   // a strip: 30 % of every cell
        if (areaBased) classifyGobCells(grid, threshold);
        EXPECT_EQ(grid.values[0][0], 1.0) << areaBased;
        EXPECT_EQ(grid.values[1][0], 1.0) << "half pillar, half gob is pillar";
        EXPECT_EQ(grid.values[2][0], -1.0);
        EXPECT_EQ(grid.values[3][0], -1.0);
    }
    myGrid grid = makeGrid(2, 2, 10.0);
    grid.setAll(0.0);
    AreaCover cover;
    Polygon strip = rectangle(0, 7, 20, 13);
    cover.setPolygon(strip);
    cover.subtractArea(grid, polygonCellWindow(grid, strip));
    classifyGobCells(grid, 50.0);
    EXPECT_EQ(grid.values[0][0], 0.0) << "gob below the threshold is entry";
}

TEST(OverlapCheck, FindsThePairsOfTheFullComparison)
{
    std::mt19937 random(3);
    std::vector<Polygon> plan = randomPlan(random, 60, 200.0);
    std::vector<std::pair<size_t, size_t>> found, expected;
    forEachOverlap(plan, 1e-10, [&](size_t a, size_t b) { found.emplace_back(a, b); });
    for (size_t a = 0; a + 1 < plan.size(); ++a) {
        Polygon points = plan[a], hull;
        convexHull(points, hull);
        for (size_t b = a + 1; b < plan.size(); ++b)
            if (overlapArea(hull, plan[b]) > 1e-10) expected.emplace_back(a, b);
    }
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(found, expected);
}

}  // namespace
