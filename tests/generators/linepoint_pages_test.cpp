// The pages "Build Grid" of the contour, point and linear feature commands,
// driven through scripts over a small drawing, down to the files saved.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "grid/grid.h"
#include "tests/shell/cmd_scripted.h"

namespace {

namespace fs = std::filesystem;
using vorn::Entity;

std::string scratch(const std::string& name)
{
    fs::path dir = fs::temp_directory_path() / ("vorn_linepoint_pages_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    fs::remove(dir / name);
    return (dir / name).string();
}

std::string slurp(const std::string& path)
{
    std::stringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

size_t occurrences(const std::string& text, const std::string& part)
{
    size_t count = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

// A drawing with horizontal contours at the given heights (elevation base
// + y), drill holes, and one fault along x = 40.
std::unique_ptr<vorn::host::HostDatabase> geology(const std::vector<double>& contourYs, double base)
{
    auto db = std::make_unique<vorn::host::HostDatabase>();
    vorn::ObjectId id;
    for (const char* name : {"Contours", "Holes", "Faults"}) {
        vorn::LayerRecord layer;
        layer.name = name;
        db->addLayer(layer, id);
    }
    for (double y : contourYs) {
        Entity e;
        e.common.layer = "Contours";
        e.shape = vorn::LwPolyline{{{{-50, y}}, {{130, y}}}, false, base + y, 0.0};
        db->appendToModelSpace(e, id);
    }
    Entity fault;
    fault.common.layer = "Faults";
    fault.shape = vorn::LwPolyline{{{{40, -10}}, {{40, 90}}}, false, 0.0, 0.0};
    db->appendToModelSpace(fault, id);
    for (double x : {10.0, 50.0})
        for (double y : {10.0, 70.0}) {
            Entity hole;
            hole.common.layer = "Holes";
            hole.shape = vorn::PointEntity{{x, y, x + y}};
            db->appendToModelSpace(hole, id);
        }
    return db;
}

// A 4 x 4 lattice of cells 20 wide at the origin, then the page.
const std::string kLattice =
    "set \"Cell Width in X Direction:\" 20\nset \"Number of Cells in X Direction:\" 4\n"
    "set \"Number of Cells in Y Direction:\" 4\ntab \"Build Grid\"\n";

std::string saveTo(const std::string& caption, const std::string& path)
{
    return "set \"" + caption + "\" " + path + "\npress \"< &Save Grid\"\nbox ok\n";
}

}  // namespace

TEST(LinePointPages, TopographyFromContoursInFeetAndFromElevationsInMetres)
{
    const std::string top = scratch("surface.top");
    ScriptedApp app(kLattice + "choose \"Contour Layers\" Contours\npress \"< &Build Grid\"\n<enter>\n<enter>\n" +
                        saveTo("Output File <.top>", top) + "ok\n",
                    geology({0, 20, 40, 60, 80}, 100.0));
    EXPECT_EQ(app.run("vorn_topoGrid"), 0) << app.scriptError();
    // Between opposite contours the value is linear in y: 110 at y = 10.
    // Feet: everything in inches, lines ending in CR LF.
    const std::string text = slurp(top);
    EXPECT_EQ(text.substr(0, text.find("\r\n1320.")),
              "1,16,240.000000,4,4,0.000000,0.000000,1680.000000\r\n1,Overburden Depth\r\n1,Inch");
    EXPECT_NE(text.find("\r\n1320.000000\r\n1560.000000\r\n1800.000000\r\n2040.000000\r\n1320.000000"), std::string::npos);
    EXPECT_TRUE(contains(app.transcript(), "\nTotal 5 related contour lines found in specified layers."));
    EXPECT_TRUE(contains(app.transcript(), "\nPoint No 0, X = -10.000000, Y = -10.000000"));

    const std::string seam = scratch("seam.top");
    ScriptedApp elevation(kLattice + "choose \"Contour Layers\" Contours\ncheck \"Elevation\" on\ncheck \"Meters\" on\n"
                                     "press \"< &Build Grid\"\n<enter>\n<enter>\n" + saveTo("Output File <.top>", seam) + "ok\n",
                          geology({0, 20, 40, 60, 80}, 2500.0));
    EXPECT_EQ(elevation.run("vorn_topoGrid"), 0) << elevation.scriptError();
    EXPECT_NE(slurp(seam).find("1,Meter\r\n510.000000\r\n530.000000"), std::string::npos);

    // Choosing "Elevation" again takes the seam level from a picked polyline.
    const std::string level = scratch("picked.top");
    ScriptedApp picked(kLattice + "choose \"Contour Layers\" Contours\ncheck \"Elevation\" on\ncheck \"Elevation\" on\n"
                                  "pick 5,20\ncheck \"Meters\" on\npress \"< &Build Grid\"\n<enter>\n<enter>\n" +
                           saveTo("Output File <.top>", level) + "ok\n",
                       geology({0, 20, 40, 60, 80}, 2500.0));
    EXPECT_EQ(picked.run("vorn_topoGrid"), 0) << picked.scriptError();
    EXPECT_TRUE(contains(picked.transcript(), "\nPick a polyline object to retrieve the seam elevation:"));
    EXPECT_NE(slurp(level).find("1,Meter\r\n-10.000000\r\n10.000000"), std::string::npos) << slurp(level).substr(0, 80);
}

TEST(LinePointPages, ContourPageChecks)
{
    struct Case {
        const char* what;
        const char* command;
        std::string script;
        std::vector<double> contours;
        std::string shown;
    };
    const Case cases[] = {
        {"no layer", "vorn_gridFromContour", kLattice + "press \"< &Build Grid\"\nbox ok\ncancel\n", {0, 20}, "No layer is selected!"},
        {"square cells for Keldar", "vorn_topoGrid",
         kLattice.substr(0, kLattice.find("tab")) + "set \"Cell Width in Y Direction:\" 10\ntab \"Build Grid\"\n"
             "choose \"Contour Layers\" Contours\npress \"< &Build Grid\"\nbox ok\ncancel\n",
         {0, 20}, "Keldar grid requires square elements! You need to redefine the cell width!!"},
        {"no contour over the grid", "vorn_gridFromContour",
         kLattice + "choose \"Contour Layers\" Contours\npress \"< &Build Grid\"\ncancel\n", {500, 600},
         "\nNo related contour line in specified layers!"},
    };
    for (const Case& c : cases) {
        ScriptedApp app(c.script, geology(c.contours, 0.0));
        app.run(c.command);
        EXPECT_TRUE(contains(app.transcript(), c.shown)) << c.what << "\n" << app.transcript();
    }
}

TEST(LinePointPages, ThreeContoursLeaveEveryCellTooFew)
{
    const std::string grd = scratch("three.grd");
    ScriptedApp app(kLattice + "choose \"Contour Layers\" Contours\nset \"Description:\" three\npress \"< &Build Grid\"\n<enter>\n<enter>\n" +
                        saveTo("Output File <.grd>", grd) + "ok\n",
                    geology({0, 20, 40}, 0.0));
    EXPECT_EQ(app.run("vorn_gridFromContour"), 0) << app.scriptError();
    EXPECT_EQ(occurrences(app.transcript(), "\n too few contour lines to grid point "), 25u);  // rows nx and ny too
    myGrid grid;
    ASSERT_TRUE(grid.readGrd(grd));
    EXPECT_EQ(grid.getTitle(), "three");
    EXPECT_EQ(grid.getValue(2, 2), 0.0);
}

TEST(LinePointPages, PointGridFromFileAndFromTheDrawing)
{
    const std::string points = scratch("holes.txt");
    std::ofstream(points, std::ios::binary) << "10,10,1\n30 10 3\n10,30,11\n30,30,13\n50,30,15\n30,50,33\n";
    const std::string grd = scratch("points.grd");
    ScriptedApp app(kLattice + "check \"From External File\" on\ncheck \"Simple Average\" on\nset \"Min. Points:\" 1\n"
                                "set \"Max. Search R (%):\" 100\n"
                                "press \"< &Build Grid\"\nfile " + points + "\nbox ok\n<enter>\n<enter>\n" +
                        saveTo("Output File (.grd) :", grd) + "ok\n",
                    geology({}, 0.0));
    EXPECT_EQ(app.run("vorn_gridFromPoint"), 0) << app.scriptError();
    EXPECT_TRUE(contains(app.transcript(), "\n6 point are imported from " + points));
    EXPECT_TRUE(contains(app.transcript(), "Only 6 points for 16 grid size!"));
    myGrid grid;
    ASSERT_TRUE(grid.readGrd(grd));
    // Cell (1,1) averages itself and its four neighbours at R = 20.
    EXPECT_DOUBLE_EQ(grid.getValue(1, 1), (13.0 + 3.0 + 11.0 + 15.0 + 33.0) / 5.0);
    // Cell (3,3) finds none at 20 and 40; at 60 three (the limit is 80).
    EXPECT_NEAR(grid.getValue(3, 3), (33.0 + 15.0 + 13.0) / 3.0, 1e-6);  // "%f" in the file

    // From the drawing: the holes' elevations; inverse distance.
    ScriptedApp drawing(kLattice + "choose \"Define Point Layers\" Holes\npress \"< &Build Grid\"\nbox ok\n<enter>\n<enter>\nok\n",
                        geology({}, 0.0));
    EXPECT_EQ(drawing.run("vorn_gridFromPoint"), 0) << drawing.scriptError();
    EXPECT_TRUE(contains(drawing.transcript(), "\n4 points are obtained in layers: Holes"));
}

TEST(LinePointPages, PointFileProblems)
{
    const std::string tabs = scratch("tabs.txt");
    std::ofstream(tabs, std::ios::binary) << "10\t10\t1\n30\t10\t3\n";
    const std::string flat = scratch("flat.txt");
    std::ofstream(flat, std::ios::binary) << "10,10,5\n30,10,5\n";
    const std::string far = scratch("far.txt");
    std::ofstream(far, std::ios::binary) << "1e9,1e9,5\n";
    const std::string run = kLattice + "check \"From External File\" on\npress \"< &Build Grid\"\nfile ";
    struct Case {
        std::string file;
        std::string shown;
        std::string boxes;
    };
    const Case cases[] = {
        {tabs, "No point are imported from " + tabs, "box ok\n"},
        {flat, "All points have same z value!", "box ok\nbox ok\n"},
        {far, "No points is related!", "box ok\n"},
    };
    for (const auto& [file, shown, boxes] : cases) {
        ScriptedApp app(run + file + "\n" + boxes + "cancel\n", geology({}, 0.0));
        app.run("vorn_gridFromPoint");
        EXPECT_TRUE(app.scriptError().empty()) << app.scriptError();
        EXPECT_TRUE(contains(app.transcript(), shown)) << file << "\n" << app.transcript();
        EXPECT_FALSE(contains(app.transcript(), "points are in search ranges")) << file;
    }
}

TEST(LinePointPages, FeatureGridFallsFromTheFault)
{
    const std::string grd = scratch("faults.grd");
    ScriptedApp app(kLattice + "press \"<Pick Layer\"\npick 40,50\n<enter>\nset \"Influence Distance:\" 20\n"
                                "set \"Grid Title\" Faults\npress \"< &Build Grid\"\n<enter>\n<enter>\n" +
                        saveTo("Output File (.grd) :", grd) + "ok\n",
                    geology({}, 0.0));
    EXPECT_EQ(app.run("vorn_geoFeatures"), 0) << app.scriptError();
    EXPECT_TRUE(contains(app.transcript(), "\nselected layer: Faults"));
    EXPECT_TRUE(contains(app.transcript(), "\nTotal number of features found: 1 in Layers: Faults"));
    myGrid grid;
    ASSERT_TRUE(grid.readGrd(grd));
    EXPECT_EQ(grid.getTitle(), "Faults");
    EXPECT_DOUBLE_EQ(grid.getValue(1, 2), 50.0);  // 10 from the fault
    EXPECT_DOUBLE_EQ(grid.getValue(0, 2), 0.0);   // 30 away
}

TEST(LinePointPages, FeatureChecksAndTheUnsavedGridOnCancel)
{
    ScriptedApp zero(kLattice + "choose \"Define Feature Layers\" Faults\nset \"Influence Distance:\" 0\n"
                                "press \"< &Build Grid\"\nbox ok\ncancel\n",
                     geology({}, 0.0));
    zero.run("vorn_geoFeatures");
    EXPECT_TRUE(contains(zero.transcript(), "Influence distance must greater than zero!!"));

    const std::string grd = scratch("later.grd");
    ScriptedApp later(kLattice + "choose \"Define Feature Layers\" Faults\nset \"Output File (.grd) :\" " + grd +
                          "\npress \"< &Build Grid\"\n<enter>\n<enter>\ncancel\nbox yes\nbox ok\n",
                      geology({}, 0.0));
    later.run("vorn_geoFeatures");
    EXPECT_TRUE(contains(later.transcript(), "The Grid is not saved! Save it?"));
    EXPECT_TRUE(fs::exists(grd));
}
