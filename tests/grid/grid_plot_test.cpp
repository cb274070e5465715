// Plots, code views, legends and statistics of a grid drawn into a scripted
// host's drawing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "drawing/database_port.h"
#include "drawing/platform.h"
#include "base/userbreak.h"
#include "drawing/region_union.h"
#include "grid/grid.h"
#include "grid/gridplot.h"
#include "tests/host/wrappers_fixture.h"

namespace vorn {
namespace {

// A grid of x by y cells of width w with value f(i, j) at every node.
myGrid makeGrid(int x, int y, double w, double (*f)(int, int))
{
    myGrid grid;
    grid.setup(x, y, w, w, 0.0);
    for (int i = 0; i <= x; ++i)
        for (int j = 0; j <= y; ++j) grid.setValue(i, j, f(i, j));
    return grid;
}

double diagonal(int i, int j) { return i + j; }
double flat(int, int) { return 5.0; }
double bands(int i, int) { return i < 2 ? 0.0 : 100.0; }

class GridPlot : public ScriptedHost {
protected:
    // Entity counts by DXF type name.
    std::map<std::string, int> kinds()
    {
        std::map<std::string, int> counts;
        for (ObjectId id : database().modelSpace()) {
            Entity e;
            database().readEntity(id, e);
            ++counts[dxfTypeName(e.kind())];
        }
        return counts;
    }
    void plot(myGrid& grid, int type, bool preview = false, bool group = false, const std::string& layer = "")
    {
        grid.setPlotOptions(type, 2, layer, preview, group);
        run([&] { grid.plot(); });
    }
};

TEST_F(GridPlot, EachKindMakesItsEntities)
{
    struct {
        int type;
        std::map<std::string, int> made;
    } const cases[] = {
        {0, {{"LWPOLYLINE", 12}}},
        {1, {{"POINT", 20}}},
        {2, {{"3DFACE", 12}}},
        {4, {{"SPLINE", 9}}},
        {5, {{"LINE", 31}}},
        {8, {}},
    };
    for (const auto& c : cases) {
        start("");
        myGrid grid = makeGrid(3, 4, 10.0, diagonal);
        plot(grid, c.type);
        EXPECT_EQ(kinds(), c.made) << "kind " << c.type;
    }
}

TEST_F(GridPlot, EntitiesTakeTheTableColourAndTheLayer)
{
    myGrid grid = makeGrid(3, 4, 10.0, diagonal);
    grid.setColorTable({{0.0, 11.0}, {4.0, 22.0}, {100.0, 33.0}});
    plot(grid, 1, false, false, "PLOTS");
    for (ObjectId id : database().modelSpace()) {
        Entity e;
        database().readEntity(id, e);
        const Point3d& p = e.as<PointEntity>()->position;
        EXPECT_EQ(e.common.colorIndex, p.z < 4.0 ? 11 : 22) << "point at z " << p.z;
        EXPECT_EQ(e.common.layer, "PLOTS");
    }
    LayerRecord layer;
    ASSERT_TRUE(database().findLayer("PLOTS", layer));
    EXPECT_EQ(layer.color, 7);
}

TEST_F(GridPlot, SplinesAreGreenWhateverTheTable)
{
    myGrid grid = makeGrid(3, 4, 10.0, diagonal);
    plot(grid, 4);
    for (ObjectId id : database().modelSpace()) {
        Entity e;
        database().readEntity(id, e);
        EXPECT_EQ(e.common.colorIndex, 3);
    }
}

TEST_F(GridPlot, RunsMergeAlongColumnsByColour)
{
    myGrid one = makeGrid(6, 5, 10.0, flat);
    plot(one, 6);
    EXPECT_EQ(kinds(), (std::map<std::string, int>{{"HATCH", 6}})) << "one group: one hatch per column";

    start("");
    myGrid diag = makeGrid(3, 3, 10.0, diagonal);
    diag.setColorTable({{0.0, 1.0}, {2.0, 2.0}, {10.0, 3.0}});
    plot(diag, 3);
    // Column 0: values 0,1 | 2; column 1: 1 | 2,3; column 2: all >= 2.
    EXPECT_EQ(kinds(), (std::map<std::string, int>{{"SOLID", 5}}));
}

TEST_F(GridPlot, PreviewPromptsAndErases)
{
    start("<enter>\n");
    myGrid grid = makeGrid(3, 4, 10.0, diagonal);
    plot(grid, 0, true);
    EXPECT_TRUE(database().modelSpace().empty());
    EXPECT_NE(transcript().find(" <Enter> key to continue ..."), std::string::npos);
}

TEST_F(GridPlot, UndefinedGridAndGridOutsideTheView)
{
    myGrid none;
    plot(none, 0);
    EXPECT_NE(transcript().find("\n Grid id not defined!"), std::string::npos);
    myGrid far = makeGrid(3, 3, 1.0, flat);
    far.setOrigin(1e7, 1e7, 0.0);
    run([&] { EXPECT_FALSE(far.isInView()); });
    plot(far, 0);
    EXPECT_NE(transcript().find("\nAttention: Grid may be drawn outside the view!"), std::string::npos);
    EXPECT_EQ(database().modelSpace().size(), 9u);
}

TEST_F(GridPlot, SecondGroupIsNumbered)
{
    myGrid grid = makeGrid(2, 2, 10.0, diagonal);
    plot(grid, 0, false, true);
    plot(grid, 0, false, true);
    Group first, second;
    EXPECT_TRUE(database().findGroup("Vorn_Grid_Group", first));
    ASSERT_TRUE(database().findGroup("Vorn_Grid_Group1", second));
    EXPECT_EQ(second.members.size(), 4u);
}

TEST_F(GridPlot, HatchedRegionsOnePerOccurringGroup)
{
    myGrid grid = makeGrid(4, 3, 10.0, bands);  // groups 0 and 9 of ten occur
    plot(grid, 7);
    EXPECT_EQ(kinds(), (std::map<std::string, int>{{"HATCH", 2}, {"REGION", 2}}));
    EXPECT_NE(transcript().find("\n 2 Hatchs are generated"), std::string::npos);
    for (ObjectId id : database().modelSpace()) {
        Entity e;
        database().readEntity(id, e);
        double area = 0.0;
        database().getArea(e, area);
        EXPECT_NEAR(area, 600.0, 1e-6) << "each band covers 2 x 3 cells";
    }
}

TEST_F(GridPlot, UserBreakErasesTheHatchedRegions)
{
    myGrid grid = makeGrid(4, 3, 10.0, bands);
    grid.setPlotOptions(7, 2, "", false, false);
    run([&] {
        requestUserBreak();
        grid.plot();
    });
    EXPECT_TRUE(database().modelSpace().empty());
    EXPECT_NE(transcript().find("\nOperation is interrupted by user"), std::string::npos);
}

// The union of one group's runs one at a time, as the reference of halving.
double areaOneAtATime(std::vector<Entity> regions)
{
    DatabasePort& db = *platform().database;
    Entity result = regions.back();
    for (size_t k = regions.size() - 1; k-- > 0;) db.booleanOper(result, BoolOperType::Union, regions[k]);
    double area = 0.0;
    db.getArea(result, area);
    return area;
}

double wave(int i, int j) { return 50.0 + 40.0 * std::sin(i * 0.7) * std::cos(j * 0.5); }

TEST_F(GridPlot, HalvingUnionCoversWhatOneAtATimeCovers)
{
    myGrid grid = makeGrid(14, 11, 3.0, wave);
    run([&] {
        std::map<int, std::vector<Entity>> byColor;
        forEachColumnRun(grid, [&](const ColumnRun& run) {
            Entity outline;
            makePolylineFromPoints(outline, run.corners, true, 0.0, run.color);
            std::vector<Entity> made;
            platform().database->createRegionsFromCurves({outline}, made);
            byColor[run.color].push_back(made.at(0));
        }, [] { return true; });
        ASSERT_GT(byColor.size(), 3u);
        for (auto& [color, regions] : byColor) {
            double reference = areaOneAtATime(regions);
            ASSERT_TRUE(uniteRegionsByHalving(regions));
            ASSERT_EQ(regions.size(), 1u);
            double area = 0.0;
            platform().database->getArea(regions[0], area);
            EXPECT_NEAR(area, reference, 1e-6) << "colour " << color;
        }
    });
}

TEST_F(GridPlot, CodeViewStylesAndKeep)
{
    struct {
        double width;
        const char* answer;
        std::map<std::string, int> kept;
    } const cases[] = {
        {3.0, "K", {{"MLINE", 4}}},
        {2.0, "Keep", {{"LWPOLYLINE", 4}}},
        {3.0, "<enter>", {}},
        {3.0, "x", {}},
    };
    for (const auto& c : cases) {
        start(std::string(c.answer) + "\n");
        myGrid grid;
        grid.setup(2, 2, c.width, c.width, 0.0);
        grid.setValue(0, 0, 1e-11);
        grid.setValue(1, 0, 4.0);
        grid.setValue(0, 1, -4.0);
        run([&] { grid.plotCodes(3); });
        EXPECT_EQ(kinds(), c.kept) << c.width << " " << c.answer;
        Group group;
        EXPECT_EQ(database().findGroup("KelGrid", group), !c.kept.empty());
        MlineStyle style;
        EXPECT_TRUE(database().findMlineStyle("MineGrid_Gob", style));
        EXPECT_EQ(style.elements.at(0).linetype, "Continuous");
        if (c.kept.count("MLINE")) {
            std::map<std::string, int> styles;
            for (ObjectId id : database().modelSpace()) {
                Entity e;
                database().readEntity(id, e);
                ++styles[e.as<Mline>()->styleName];
            }
            EXPECT_EQ(styles, (std::map<std::string, int>{{"MineGrid_Opening", 2}, {"MineGrid_Pillar", 1}, {"MineGrid_Gob", 1}}));
        }
    }
}

TEST_F(GridPlot, LatticeEveryTenthLineMagenta)
{
    start("K\n");
    myGrid grid = makeGrid(12, 3, 1.0, flat);
    run([&] { grid.plotCodes(1); });
    int magenta = 0;
    for (ObjectId id : database().modelSpace()) {
        Entity e;
        database().readEntity(id, e);
        magenta += e.common.colorIndex == 6;
    }
    EXPECT_EQ(database().modelSpace().size(), 17u);
    EXPECT_EQ(magenta, 3) << "columns 0 and 10, row 0";
}

TEST_F(GridPlot, GridLegendWithPercentages)
{
    start("0,0\n10,50\n<enter>\n<enter>\n");
    myGrid grid = makeGrid(4, 3, 10.0, bands);
    grid.setColorTable({{0.0, 1.0}, {20.0, 2.0}, {40.0, 3.0}, {60.0, 4.0}, {80.0, 5.0}, {100.0, 6.0}});
    std::string message;
    run([&] { drawGridLegend(grid, "", true, message); });
    EXPECT_EQ(kinds(), (std::map<std::string, int>{{"HATCH", 5}, {"TEXT", 11}}));
    EXPECT_EQ(message, "VORN Grid Lengend is created!");
    std::vector<std::string> texts;
    for (ObjectId id : database().modelSpace()) {
        Entity e;
        database().readEntity(id, e);
        if (const Text* t = e.as<Text>()) texts.push_back(t->text);
    }
    EXPECT_NE(std::find(texts.begin(), texts.end(), "50%"), texts.end());
    EXPECT_NE(std::find(texts.begin(), texts.end(), "0%"), texts.end());
}

TEST_F(GridPlot, LegendRefusalsAndDelete)
{
    start("0,0\n0,50\n");
    myGrid grid = makeGrid(4, 3, 10.0, bands);
    std::string message;
    run([&] { drawGridLegend(grid, "", false, message); });
    EXPECT_EQ(message, "Invalid point pair!");

    start("0,0\n10,50\nNo\nD\n");
    run([&] { drawGridLegend(grid, "", false, message); });
    EXPECT_TRUE(database().modelSpace().empty());

    myGrid none;
    run([&] { drawGridLegend(none, "", false, message); });
    EXPECT_EQ(message, "Grid is not defined!");
}

TEST_F(GridPlot, ColorLegendIsGrouped)
{
    start("0,0\n10,30\nOk\n");
    run([&] { drawColorLegend({{0.0, 1.0}, {5.0, 2.0}, {10.0, 3.0}}, 2); });
    EXPECT_EQ(kinds(), (std::map<std::string, int>{{"HATCH", 2}, {"TEXT", 3}}));
    Group group;
    EXPECT_TRUE(database().findGroup("VORN Lengend", group));
}

TEST_F(GridPlot, StatisticsOverAllCellsAndInsidePolygons)
{
    myGrid grid = makeGrid(4, 4, 10.0, diagonal);
    run([&] { grid.computeStatistics({}, {}, 50.0); });
    EXPECT_EQ(grid.getStatCount(), 16);
    EXPECT_DOUBLE_EQ(grid.getStatMean(), 3.0);
    EXPECT_DOUBLE_EQ(grid.getStatMin(), 0.0);
    EXPECT_EQ(grid.getMinCellCount(), 1);
    EXPECT_EQ(grid.getMaxCellCount(), 1);
    EXPECT_NEAR(grid.getStatStdDev(), std::sqrt(2.5), 1e-12);

    // A square of side 10 at (5, 5) covers a quarter of four cells, half
    // of none: at 20 percent the four count, at 50 none.
    ObjectId square = addSquare("AREAS", 5.0, 5.0);
    run([&] { grid.computeStatistics({square}, {}, 20.0); });
    EXPECT_EQ(grid.getStatCount(), 4);
    EXPECT_DOUBLE_EQ(grid.getStatMean(), 1.0);
    EXPECT_EQ(grid.getMaxCellCount(), 1);
    EXPECT_EQ(grid.getMinCellCount(), 1);
    run([&] { grid.computeStatistics({square}, {}, 50.0); });
    EXPECT_EQ(grid.getStatCount(), 0);
    EXPECT_EQ(grid.getStatMean(), 0.0);

    ObjectId hole = addSquare("AREAS", 0.0, 0.0);
    run([&] { grid.computeStatistics({}, {hole}, 50.0); });
    EXPECT_EQ(grid.getStatCount(), 15) << "cell (0,0) excluded";
}

}  // namespace
}  // namespace vorn
