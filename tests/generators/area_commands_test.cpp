// Whole builds of the area factor, seam and horizontal stress pages, driven
// by scripts from the page "Grid Dimension" to the written file.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "../shell/cmd_scripted.h"
#include "grid/grid.h"
#include "host/db_database.h"

namespace {

using vorn::Point2d;

struct Shape {
    const char* layer;
    std::vector<Point2d> points;
    bool closed = true;
};

std::unique_ptr<vorn::host::HostDatabase> drawingOf(const std::vector<Shape>& shapes)
{
    auto db = std::make_unique<vorn::host::HostDatabase>();
    vorn::ObjectId id;
    for (const Shape& shape : shapes) {
        vorn::LayerRecord layer;
        layer.name = shape.layer;
        db->addLayer(layer, id);
        if (shape.points.empty()) continue;
        vorn::Entity e;
        e.common.layer = shape.layer;
        vorn::LwPolyline polyline;
        for (const Point2d& p : shape.points) polyline.vertices.push_back({p});
        polyline.closed = shape.closed;
        e.shape = polyline;
        db->appendToModelSpace(e, id);
    }
    return db;
}

std::vector<Point2d> box(double x0, double y0, double x1, double y1) { return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}; }

std::string scratch(const char* name)
{
    auto folder = std::filesystem::temp_directory_path() / ("vorn_area_commands_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    std::filesystem::remove(folder / name);
    return (folder / name).string();
}

std::string fileBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

// The base grid: origin 0,0, cells of `width`, `count` by `count`.
std::string gridPage(double width, int count)
{
    std::ostringstream s;
    s << "set \"Cell Width in X Direction:\" " << width << "\nset \"Number of Cells in X Direction:\" " << count
      << "\nset \"Number of Cells in Y Direction:\" " << count << "\n";
    return s.str();
}

const std::vector<Shape> zonePlan{
    {"Zones", box(0, 0, 50, 50)},
    {"Zones", box(60, 60, 95, 95)},
    {"Zones", {{0, 90}, {30, 99}}, false},  // open: skipped at the question
    {"Zones", box(300, 300, 400, 400)},     // outside the grid
};

bool insideZone(int i, int j)
{
    // Cells of 10: the second zone covers half of column 9 and of row 9,
    // a quarter of cell (9,9).
    return (i < 5 && j < 5) || (i >= 6 && j >= 6 && !(i == 9 && j == 9));
}

TEST(AreaFactorCommand, BuildsBoundariesAndTheGridAndSavesIt)
{
    std::string out = scratch("zones.grd");
    std::string script = gridPage(10, 10) +
                         "tab \"Create Boundary\"\nchoose \"Layer list\" Zones\nset \"Influence Range :\" 0\n"
                         "press \"< Create from Polylines in Layer \"\nNo\nYes\n"
                         "tab \"Build Grid\"\nset \"Output File (.grd) :\" " + out.substr(0, out.size() - 4) + "\n"
                         "set \"Grid Description\" Zones\nset \"Inside Boundary:\" 80\nset \"Outside Boundary:\" 20\n"
                         "check \"Remove Boundaries\" on\npress \"< &Build Grid\"\nYes\n<enter>\n"
                         "press \"< &Save Grid\"\nbox ok\nok\n";
    ScriptedApp app(script, drawingOf(zonePlan));
    EXPECT_EQ(app.run("vorn_sFactorInArea"), 0);
    EXPECT_EQ(app.scriptError(), "");
    const std::string& said = app.transcript();
    EXPECT_TRUE(contains(said, "Create boundaries from open polylines? [No/<Yes>]:"));
    EXPECT_TRUE(contains(said, "4 polylines are in layers < Zones >.\nTotal 3 new boundary polylines will be created in drawing!"));
    EXPECT_TRUE(contains(said, "Working layers: VORN_Working_Layer\n3 Boundary objects existed, 2 are related to the grid!"));
    EXPECT_TRUE(contains(said, "\nBoundary polylines are removed!"));
    EXPECT_EQ(app.entityCount(), 4u) << "the boundaries are removed again";
    myGrid grid;
    ASSERT_TRUE(grid.readGrd(out));
    EXPECT_EQ(grid.getTitle(), "Zones");
    for (int i = 0; i < 10; ++i)
        for (int j = 0; j < 10; ++j) EXPECT_EQ(grid.values[i][j], insideZone(i, j) ? 80.0 : 20.0) << i << "," << j;
}

TEST(AreaFactorCommand, MiddlePointBuildWithCellsChangedByHand)
{
    std::string out = scratch("middle.grd");
    std::string script = "tab \"Build Grid\"\ncheck \"Middle Point\" on\nset \"Output File (.grd) :\" " + out + "\n"
                         "press \"< Check Boundaries\"\nbox ok\npress \"< &Build Grid\"\nYes\n<enter>\n"
                         "press \"< Change Cells\"\n5,5\n95,95\n<esc>\npress \"< &Save Grid\"\nbox ok\nok\n";
    ScriptedApp app(script, drawingOf({{"VORN_Working_Layer", box(0, 0, 25, 14)}}));
    EXPECT_EQ(app.run("vorn_sFactorInArea"), 0);
    EXPECT_EQ(app.scriptError(), "");
    const std::string& said = app.transcript();
    EXPECT_TRUE(contains(said, "Working layers: VORN_Working_Layer\n1 Boundary objects existed, 1 are related to the grid!"));
    EXPECT_FALSE(contains(said, "Check overlpped polylines")) << "the overlap check belongs to the area rule";
    EXPECT_TRUE(contains(said, "\nCell(1,1) is change to opening!"));
    EXPECT_TRUE(contains(said, "\nCell(10,10) is change to pillar!"));
    EXPECT_EQ(app.entityCount(), 1u) << "the cell frames are erased";
    myGrid grid;
    ASSERT_TRUE(grid.readGrd(out));
    for (int i = 0; i < 10; ++i)
        for (int j = 0; j < 10; ++j) {
            double expected = (i == 1 || i == 2) && j == 0 ? 100.0 : 0.0;  // cell (0,0) was reversed by hand
            if (i == 9 && j == 9) expected = 1.0;                         // the bare pillar value
            EXPECT_EQ(grid.values[i][j], expected) << i << "," << j;
        }
}

struct RefusalCase {
    const char* name;
    std::vector<Shape> plan;
    std::string script;
    std::string shown;
    bool keepsDialog = true;  // refused before the dialog gives way to the drawing
};

TEST(AreaFactorCommand, RefusesBadInputBeforeTouchingTheDrawing)
{
    const RefusalCase cases[] = {
        {"inside equal to outside", zonePlan,
         "tab \"Build Grid\"\nset \"Inside Boundary:\" 50\nset \"Outside Boundary:\" 50\npress \"< &Build Grid\"\nbox ok\ncancel\n",
         "Error: Inside boundary factor is equal to outside factor!"},
        {"no boundaries", zonePlan, "tab \"Build Grid\"\npress \"< &Build Grid\"\nbox ok\ncancel\n",
         "No boundary objects were in Layer < VORN_Working_Layer > !"},
        {"a value beyond the limits", zonePlan,
         "tab \"Build Grid\"\nset \"Inside Boundary:\" 101\npress \"< &Build Grid\"\nbox ok\ncancel\n",
         "Please enter an integer between 0 and 100."},
        {"no layer chosen", zonePlan, "tab \"Create Boundary\"\npress \"< Create from Polylines in Layer \"\nbox ok\ncancel\n",
         "No specified layer!"},
        {"an empty layer", {{"Empty", {}, false}},
         "tab \"Create Boundary\"\nchoose \"Layer list\" Empty\npress \"< Create from Polylines in Layer \"\nbox ok\ncancel\n",
         "No Polyline objects were in Layers < Empty > !", false},
        {"centre lines without a range", zonePlan,
         "tab \"Create Boundary\"\nset \"Influence Range :\" 0\npress \"< Create from Center Lines\"\nbox ok\ncancel\n",
         "Range should not be zero!"},
    };
    for (const RefusalCase& c : cases) {
        ScriptedApp app(c.script, drawingOf(c.plan));
        app.run("vorn_sFactorInArea");
        EXPECT_EQ(app.scriptError(), "") << c.name;
        EXPECT_TRUE(contains(app.transcript(), c.shown)) << c.name << "\n" << app.transcript();
        EXPECT_EQ(contains(app.transcript(), "hidden"), !c.keepsDialog) << c.name;
    }
}

TEST(AreaFactorCommand, BoundariesOnlyOutsideTheGridCancelTheBuild)
{
    std::string script = "tab \"Create Boundary\"\nchoose \"Layer list\" Far\nset \"Influence Range :\" 0\n"
                         "press \"< Create from Polylines in Layer \"\nYes\n"
                         "tab \"Build Grid\"\npress \"< &Build Grid\"\nbox ok\ncancel\n";
    ScriptedApp app(script, drawingOf({{"Far", box(500, 500, 600, 600)}, {"Far", {{1, 1}, {1, 1}, {1, 1}}}}));
    app.run("vorn_sFactorInArea");
    EXPECT_TRUE(contains(app.transcript(), "1 Boundary objects existed, 0 are related to the grid!"));
    EXPECT_FALSE(contains(app.transcript(), "Building grid"));
}

TEST(AreaFactorCommand, RangeButtonTakesTheFirstDigitOnly)
{
    std::string script = "tab \"Create Boundary\"\npress \"< &Range\"\n125.5\ncancel\n";
    ScriptedApp app(script, drawingOf(zonePlan));
    app.run("vorn_sFactorInArea");
    EXPECT_TRUE(contains(app.transcript(), fieldNote("Influence Range :", "1")));
}

TEST(AreaFactorCommand, DeleteBoundariesByPickThenAll)
{
    std::string script = "tab \"Create Boundary\"\npress \"< Delete Boundaries\"\npick 0,25\npick 1000,1000\nAll\ncancel\n";
    ScriptedApp app(script, drawingOf({{"VORN_Working_Layer", box(0, 0, 50, 50)},
                                       {"VORN_Working_Layer", box(60, 60, 95, 95)},
                                       {"VORN_Working_Layer", {{200, 0}, {220, 20}}, false}}));
    app.run("vorn_sFactorInArea");
    const std::string& said = app.transcript();
    EXPECT_TRUE(contains(said, "\n3 objects in the working layers < VORN_Working_Layer >"));
    EXPECT_TRUE(contains(said, "\n[Select an object to delete:<All>]:"));
    EXPECT_TRUE(contains(said, "\nSelected object has been erased!"));
    EXPECT_TRUE(contains(said, "\n[<Select an object to delete>/All]:"));
    EXPECT_TRUE(contains(said, "\nAll 2 objects have been erased"));
    EXPECT_EQ(app.entityCount(), 0u);
}

const std::vector<Shape> seamPlan{
    {"Pillars", box(10, 10, 30, 30)},
    {"Pillars", box(50, 10, 72.5, 30)},  // half of column 14
    {"Pillars", box(40, 70, 60, 90)},    // inside the gob: pillars win
    {"Gob", box(0, 60, 100, 100)},
};

char seamCell(int i, int j)
{
    bool pillar = (i >= 2 && i <= 5 && j >= 2 && j <= 5) || (i >= 10 && i <= 14 && j >= 2 && j <= 5) ||
                  (i >= 8 && i <= 11 && j >= 14 && j <= 17);
    if (pillar) return 'P';
    return j >= 12 ? 'G' : '.';
}

TEST(SeamGridCommand, BuildsAndWritesTheSeamFile)
{
    std::string out = scratch("seam.txt");
    std::string script = gridPage(5, 20) +
                         "tab \"Build Grid\"\nchoose \"Pillar Layer\" Pillars\nchoose \"Gob Layer\" Gob\n"
                         "choose \"Gob Layer\" Pillars\nchoose \"Pillar Layer\" Pillars\n"
                         "set \"Pillar:\" PX\nset \"Entry:\" .\nset \"Gob:\" G\n"
                         "set \"Output File (.txt) :\" " + out + "\npress \" &Build Grid ...\"\nYes\nYes\n<enter>\n"
                         "press \" &Save Grid ...\"\nbox ok\nok\n";
    ScriptedApp app(script, drawingOf(seamPlan));
    EXPECT_EQ(app.run("vorn_seamGrid"), 0);
    EXPECT_EQ(app.scriptError(), "");
    const std::string& said = app.transcript();
    EXPECT_TRUE(contains(said, "Pillar layers: Pillars\n3 Pillar objects were selected, 3 are related to the grid!"));
    EXPECT_TRUE(contains(said, "Gob layers: Gob\n1 Gob polygons were selected!\nDo you want to continue?"));
    std::string expected = "20,20,0.000000,0.000000\r\n";
    for (int j = 19; j >= 0; --j) {
        for (int i = 0; i < 20; ++i) expected += seamCell(i, j);
        expected += "\r\n";
    }
    EXPECT_EQ(fileBytes(out), expected);
}

TEST(SeamGridCommand, RefusesOblongCellsAndMissingLayers)
{
    {
        ScriptedApp app("tab \"Build Grid\"\npress \" &Build Grid ...\"\nbox ok\ncancel\n", drawingOf(seamPlan));
        app.run("vorn_seamGrid");
        EXPECT_TRUE(contains(app.transcript(), "No pillar layer is selected!"));
        EXPECT_EQ(app.scriptError(), "");
    }
    {
        std::string script = "set \"Cell Width in X Direction:\" 5\nset \"Cell Width in Y Direction:\" 4\n"
                             "tab \"Build Grid\"\nchoose \"Pillar Layer\" Pillars\npress \" &Build Grid ...\"\nbox ok\ncancel\n";
        ScriptedApp app(script, drawingOf(seamPlan));
        app.run("vorn_seamGrid");
        EXPECT_TRUE(contains(app.transcript(), "Keldar grid requires square elements! You need redefine the cell width!!"));
    }
}

TEST(SeamGridCommand, EditCellsCyclesGobEntryPillar)
{
    std::string out = scratch("edited.txt");
    std::string script = gridPage(5, 20) +
                         "tab \"Build Grid\"\nchoose \"Pillar Layer\" Pillars\nchoose \"Gob Layer\" Gob\n"
                         "set \"Output File (.txt) :\" " + out + "\npress \" &Build Grid ...\"\nYes\nYes\n<enter>\n"
                         "press \" Edit Cells ...\"\n2,2\n2,2\n2,97\n500,500\n<esc>\n"
                         "press \" &Save Grid ...\"\nbox ok\nok\n";
    ScriptedApp app(script, drawingOf(seamPlan));
    app.run("vorn_seamGrid");
    const std::string& said = app.transcript();
    EXPECT_TRUE(contains(said, "\nCell(1,1) is change to pillar!"));
    EXPECT_TRUE(contains(said, "\nCell(1,1) is change to gob!"));
    EXPECT_TRUE(contains(said, "\nCell(1,20) is change to opening!"));
    EXPECT_TRUE(contains(said, "\nSorry,this point (500.000000,500.000000) is outside the grid!"));
    std::string text = fileBytes(out);
    EXPECT_EQ(text.substr(text.size() - 22), "S1111111111111111111\r\n") << "bottom row, cell (1,1) now gob";
    EXPECT_EQ(text.substr(text.find("\r\n") + 2, 2), "1S") << "top row, cell (1,20) now entry";
}

TEST(HorizontalStressCommand, RatesEntriesAgainstTheStressAndSaves)
{
    std::string out = scratch("stress.grd");
    std::string script = gridPage(10, 10) +
                         "tab \"Build Grid\"\nchoose \"Entry Projection Layers\" Entries\nset \"Width of Entries\" 10\n"
                         "press \"Pick a orientation\"\n30\nset \"Output File (.grd) :\" " + out + "\n"
                         "press \"< &Build Grid\"\n<enter>\n<enter>\npress \"< &Save Grid\"\nbox ok\nok\n";
    ScriptedApp app(script, drawingOf({{"Entries", {{0, 25}, {100, 25}}, false},
                                       {"Entries", {{55, 0}, {55, 100}}, false},
                                       {"Entries", {{300, 300}, {400, 400}}, false}}));
    EXPECT_EQ(app.run("vorn_cmrr"), 0);
    EXPECT_EQ(app.scriptError(), "");
    EXPECT_TRUE(contains(app.transcript(), "\nTotal number of projection lines found: 2 in Layers: Entries"));
    myGrid grid;
    ASSERT_TRUE(grid.readGrd(out));
    EXPECT_EQ(grid.getTitle(), "Horizontal Stress");
    for (int i = 0; i < 10; ++i) {
        for (int j = 0; j < 10; ++j) {
            double expected = i == 5 ? 86.60254 : j == 2 ? 50.0 : 0.0;
            EXPECT_NEAR(grid.values[i][j], expected, 1e-5) << i << "," << j;
        }
    }
}

TEST(HorizontalStressCommand, ClosedPolylineRatesItsClosingSegment)
{
    std::string out = scratch("closed.grd");
    std::string script = "tab \"Build Grid\"\nchoose \"Entry Projection Layers\" Entries\nset \"Width of Entries\" 10\n"
                         "set \"Output File (.grd) :\" " + out + "\npress \"< &Build Grid\"\n<enter>\n<enter>\n"
                         "press \"< &Save Grid\"\nbox ok\nok\n";
    ScriptedApp app(script, drawingOf({{"Entries", box(15, 15, 85, 85)}}));
    app.run("vorn_horizStress");
    myGrid grid;
    ASSERT_TRUE(grid.readGrd(out));
    EXPECT_EQ(grid.values[1][4], 100.0) << "the closing segment, across a stress at 0";
    EXPECT_EQ(grid.values[8][4], 100.0);
    EXPECT_EQ(grid.values[4][1], 0.0) << "along the stress";
    EXPECT_EQ(grid.values[4][4], 0.0);
}

TEST(HorizontalStressCommand, RefusesMissingLayerAndWidth)
{
    const std::pair<std::string, std::string> cases[] = {
        {"tab \"Build Grid\"\npress \"< &Build Grid\"\nbox ok\ncancel\n", "Select layer name first!!"},
        {"tab \"Build Grid\"\nchoose \"Entry Projection Layers\" Entries\nset \"Width of Entries\" -1\n"
         "press \"< &Build Grid\"\nbox ok\ncancel\n",
         "entry width must biger than zero!!?"},
    };
    for (const auto& [script, shown] : cases) {
        ScriptedApp app(script, drawingOf({{"Entries", {{0, 25}, {100, 25}}, false}}));
        app.run("vorn_horizStress");
        EXPECT_TRUE(contains(app.transcript(), shown)) << app.transcript();
        EXPECT_EQ(app.scriptError(), "");
    }
}

}  // namespace
