#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "grid/grid.h"
#include "base/report.h"

using vorn::Point2;
using vorn::Point3;

namespace {
myGrid makeGrid(int xn, int yn, double w, double h, double degrees = 0.0)
{
    myGrid g;
    g.setOrigin(Point2{100.0, 200.0});
    EXPECT_TRUE(g.setup(xn, yn, w, h, degrees));
    for (int i = 0; i <= xn; ++i)
        for (int j = 0; j <= yn; ++j) g.setValue(i, j, i * 10.0 + j);
    return g;
}

std::pair<int, int> cellOf(const myGrid& g, double x, double y, bool clamped = false)
{
    int i = 0, j = 0;
    if (clamped) g.getCellOfPointClamped({x, y}, i, j);
    else g.getCellOfPoint({x, y}, i, j);
    return {i, j};
}
}  // namespace

TEST(GridDefinition, CountsAndWidthsDecide)
{
    myGrid g;
    EXPECT_FALSE(g.isDefined());
    EXPECT_FALSE(g.setup(0, 5, 1, 1, 0));
    EXPECT_EQ(g.getXNum(), 0);
    EXPECT_TRUE(g.setup(1, 5, 1, 1, 0));
    EXPECT_FALSE(g.isDefined());
    EXPECT_FALSE(g.setup(3, 3, 1, 0.00009, 0));  // Y width is tested by setup
    EXPECT_TRUE(g.setup(3, 3, 0.0001, 1, 0));    // X width is not, but 0.0001 is undefined
    EXPECT_FALSE(g.isDefined());
    EXPECT_TRUE(g.setup(2, 2, 0.00011, 0.00011, 0));
    EXPECT_TRUE(g.isDefined());
    EXPECT_FALSE(g.setup(-3, 2, 1, 1, 0));
}

TEST(GridDefinition, SetupFillsEveryNodeAndReplacesTheLattice)
{
    myGrid g;
    g.setFillValue(7.0);
    ASSERT_TRUE(g.setup(4, 3, 2, 2, 0));
    EXPECT_EQ(g.getValue(4, 3), 7.0);
    g.setFillValue(-1.0);
    ASSERT_TRUE(g.setup(6, 5, 1, 1, 30));
    EXPECT_EQ(g.getValue(6, 5), -1.0);
    EXPECT_EQ(g.getValue(7, 5), 0.0);
    EXPECT_DOUBLE_EQ(g.getRotation(), 30 * 3.1415926 / 180.0);
    EXPECT_NE(g.getRotation(), 30 * M_PI / 180.0);
}

TEST(GridDefinition, CopyGeometryPassesRadiansAsDegrees)
{
    myGrid source = makeGrid(5, 4, 2, 3, 30);
    myGrid copy;
    ASSERT_TRUE(copy.copyGeometry(source, true));
    EXPECT_DOUBLE_EQ(copy.getRotation(), source.getRotation() * 3.1415926 / 180.0);
    EXPECT_EQ(copy.getValue(5, 4), source.getValue(5, 4));
    EXPECT_EQ(copy.origin.x, 100.0);
    myGrid blank;
    blank.setFillValue(9);
    ASSERT_TRUE(blank.copyGeometry(source, false));
    EXPECT_EQ(blank.getValue(2, 2), 9.0);
    myGrid undefined;
    EXPECT_FALSE(blank.copyGeometry(undefined, true));
    ASSERT_TRUE(source.copyGeometry(source, true));
    EXPECT_EQ(source.getValue(3, 2), 32.0);
}

TEST(GridPlacement, PointToCellOnAStraightLattice)
{
    myGrid g = makeGrid(10, 5, 2, 4);  // origin (100, 200), far corner (120, 220)
    EXPECT_EQ(cellOf(g, 100, 200), std::make_pair(-1, -1));
    EXPECT_EQ(cellOf(g, 100, 200, true), std::make_pair(0, 0));
    EXPECT_EQ(cellOf(g, 120, 220), std::make_pair(-2, -2));
    EXPECT_EQ(cellOf(g, 120, 220, true), std::make_pair(9, 4));
    EXPECT_EQ(cellOf(g, 105.5, 213.9), std::make_pair(2, 3));
    EXPECT_EQ(cellOf(g, 99, 230), std::make_pair(-1, -2));
}

TEST(GridPlacement, PointToCellOnARotatedLatticeInvertsCellCentres)
{
    myGrid g = makeGrid(8, 6, 3, 2, 35);
    for (int i = 0; i < 8; ++i) {
        for (int j = 0; j < 6; ++j) {
            Point3 c;
            ASSERT_TRUE(g.getCellCentre(i, j, c));
            EXPECT_EQ(cellOf(g, c.x, c.y), std::make_pair(i, j));
        }
    }
    Point2 corner;
    g.getNodeXY(0, 0, corner);
    EXPECT_EQ(cellOf(g, corner.x - 1, corner.y - 1).first, -1);
}

TEST(GridRanges, CellsVersusNodes)
{
    myGrid g = makeGrid(4, 3, 1, 1);
    EXPECT_EQ(g.getValue(4, 3), 43.0);
    EXPECT_EQ(g.getValue(5, 3), 0.0);
    double v = -1;
    EXPECT_FALSE(g.getValueChecked(-1, 0, v));
    EXPECT_FALSE(g.setValue(0, 4, 1.0));
    std::vector<Point2> poly;
    EXPECT_FALSE(g.getCellPolygon(4, 3, poly));
    EXPECT_TRUE(g.getCellPolygon(3, 2, poly));
    EXPECT_EQ(poly[2], (Point2{104, 203}));
    Point3 centre;
    EXPECT_TRUE(g.getCellCentre(4, 3, centre));
    EXPECT_FALSE(g.getCellCentre(5, 3, centre));

    g.setAll(1.0);
    EXPECT_EQ(g.getValue(3, 2), 1.0);
    EXPECT_EQ(g.getValue(4, 0), 40.0);  // the node column beyond the cells keeps its value
    EXPECT_DOUBLE_EQ(g.getAverage(), 1.0);

    g.addValue(2.0);  // all nodes
    EXPECT_EQ(g.getValue(4, 3), 45.0);
    g.multiplyValue(2.0);
    EXPECT_EQ(g.getValue(0, 0), 6.0);
    myGrid other = makeGrid(4, 3, 1, 1);
    g.addGrid(other);
    EXPECT_EQ(g.getValue(4, 3), 133.0);
}

TEST(GridMeasures, MinMaxAverageAndRescaleLookAtCells)
{
    myGrid g = makeGrid(3, 2, 1, 1);
    g.setValue(3, 2, 1000.0);  // a node outside the cells
    double min = 0, max = 0;
    ASSERT_TRUE(g.getMinMax(min, max));
    EXPECT_EQ(min, 0.0);
    EXPECT_EQ(max, 21.0);
    g.rescale(100, 0);
    EXPECT_DOUBLE_EQ(g.getValue(2, 1), 100.0);
    EXPECT_DOUBLE_EQ(g.getValue(0, 0), 0.0);
    EXPECT_DOUBLE_EQ(g.getValue(3, 2), 1000.0 * 100.0 / 21.0);  // all nodes are mapped

    myGrid flat;
    flat.setFillValue(5);
    flat.setup(3, 3, 1, 1, 0);
    flat.rescale(0, 100);
    EXPECT_EQ(flat.getValue(1, 1), 5.0);
}

TEST(GridMeasures, CorrelationThroughTheTextForm)
{
    myGrid a = makeGrid(5, 5, 1, 1);
    EXPECT_NEAR(a.getCorrelation(a), 1.0, 1e-12);
    myGrid b = makeGrid(5, 4, 1, 1);
    EXPECT_EQ(a.getCorrelation(b), 0.0);
    myGrid c = makeGrid(5, 5, 1, 1);
    c.multiplyValue(-1);
    EXPECT_NEAR(a.getCorrelation(c), -1.0, 1e-12);
    c.setValue(0, 0, NULL_VALUE * 2);  // skipped pair at (0,0): means start from 0
    EXPECT_NEAR(a.getCorrelation(c), -1.0, 1e-9);
}

TEST(GridValues, NullValueTextAndSetValueText)
{
    myGrid g = makeGrid(2, 2, 1, 1);
    std::string text;
    g.setValue(0, 0, NULL_VALUE);
    ASSERT_TRUE(g.getValueText(0, 0, text));
    EXPECT_EQ(text, "-100000000000000000000.000000");
    g.setValue(0, 0, -2e20);
    g.getValueText(0, 0, text);
    EXPECT_EQ(text, "N");
    EXPECT_TRUE(g.setValueText(1, 1, "  3.25xyz"));
    EXPECT_EQ(g.getValue(1, 1), 3.25);
    EXPECT_FALSE(g.getValueText(3, 0, text));
}

TEST(GridDescribe, ReportsTheLatticeAndPrintsOnRequest)
{
    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope(capture);
    myGrid g = makeGrid(3, 2, 1.5, 2);
    g.setTitle("Depth");
    std::string text = g.describe(true);
    EXPECT_EQ(text,
              "Depth\r\nGrid Orign: 100.000000,  200.000000,  0.000000\r\nGrid Resolution in X: 3, in Y: 2"
              "\r\nCell width in X: 1.500000, in Y: 2.000000\r\nValue Max: 21.000000, Min: 0.000000\n");
    EXPECT_EQ(capture.printed, "\n" + text);
    myGrid undefined;
    EXPECT_EQ(undefined.describe(false), "\nGrid not defined!");
}
