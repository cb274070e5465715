// The surface stress command as its pages drive it: defaults by unit
// system, the seam level, the checks of Ok, the `.tmp` file it writes and
// the stress grid of a run.
#include <filesystem>
#include <string>
#include <vector>

#include "grid/grid.h"
#include "base/textnum.h"
#include "stressmodel/topo_stress.h"
#include "tests/stressmodel/fixture.h"

namespace vorn::testing {
namespace {
namespace fs = std::filesystem;

class TopoStress : public ScratchFolderTest {
protected:
    // A surface grid at origin (-100, -100) of 14 x 14 cells of 100 units,
    // every node at `value`, or at `value` + `hill` on the cells (6..7, 6..7).
    std::string surface(double value, double hill = 0.0)
    {
        myGrid grid;
        grid.setOrigin(-100.0, -100.0, 0.0);
        grid.setup(14, 14, 100.0, 100.0, 0.0);
        grid.setAll(value);
        for (int i = 6; i <= 7; ++i)
            for (int j = 6; j <= 7; ++j) grid.setValue(i, j, value + hill);
        grid.writeGrd(path("Surface.grd"));
        return path("Surface.grd");
    }
    // Page 1 and page 2 set up for a run in feet over a 10 x 10 seam grid.
    void prepare(const std::string& surfacePath, int surfaceType = 1)
    {
        ASSERT_TRUE(command.loadSurface(surfacePath));
        command.surfaceType = surfaceType;
        ASSERT_TRUE(command.defineSeamGrid(0.0, 0.0, 10, 10, 100.0, 100.0, 0.0));
        command.outputPath = path("Result.grd");
        command.activateSeamPage();
    }
    CTopoStressCommand command;
};

TEST(TopoStressDefaults, UnitSystemReplacesThePropertiesWhenPageThreeShowsAfterAChange)
{
    CTopoStressCommand command;
    command.properties.modulus = "typed";
    command.activatePropertiesPage();
    EXPECT_EQ(command.properties.modulus, "typed");
    // 2, then 1, then back to 2 before page 3 shows: nothing changed.
    command.setUnitSystem(1);
    command.setUnitSystem(2);
    command.activatePropertiesPage();
    EXPECT_EQ(command.properties.modulus, "typed");
    command.setUnitSystem(3);
    EXPECT_EQ(command.properties.modulus, "typed");
    command.activatePropertiesPage();
    EXPECT_EQ(command.properties.gradient, "24900");
    EXPECT_EQ(command.properties.modulus, "2.07E+10");
    EXPECT_EQ(topoInputPath("/Data/Mine A/Panel_Stress.GRD"), "/Data/Mine A/panel_stress.tmp");
}

TEST_F(TopoStress, SeamLevelIsLockedForThicknessAndAveragedOnlyForElevation)
{
    myGrid seam;
    seam.setup(10, 10, 50.0, 50.0, 0.0);
    seam.setAll(-300.0);
    std::string seamPath = path("seam.grd");
    seam.writeGrd(seamPath);
    ASSERT_TRUE(command.loadSeamGrid(seamPath));
    EXPECT_EQ(command.seamGrid.getTitle(), "Seam Grid Defination");
    EXPECT_DOUBLE_EQ(command.seamMean, -300.0);

    command.useSeamAverage = true;
    command.drawingFolder = "/plans/";
    command.activateSeamPage();
    EXPECT_TRUE(command.levelLocked);
    EXPECT_EQ(command.seamLevel, 0.0);
    EXPECT_FALSE(command.typeSeamLevel(12.0));
    EXPECT_EQ(command.outputPath, "/plans/Untitle.grd");

    command.surfaceType = 0;
    command.topoPath = "/x/hill.grd";
    command.outputPath.clear();
    command.activateSeamPage();
    EXPECT_FALSE(command.levelLocked);
    EXPECT_DOUBLE_EQ(command.seamLevel, -300.0);
    EXPECT_EQ(command.outputPath, "/x/hill_Stress.grd");
    EXPECT_TRUE(command.typeSeamLevel(12.0));
    EXPECT_EQ(command.seamLevel, 12.0);
}

TEST_F(TopoStress, AnExistingOutputFileIsOverwrittenOnlyOnYes)
{
    command.outputPath = "first.grd";
    std::string existing = surface(1.0);
    capture.queuedAnswers = {IDNO};
    command.changeOutputPath(existing);
    EXPECT_EQ(lastBox(), "File existes, Overwrite?");
    EXPECT_EQ(command.outputPath, "first.grd");
    command.changeOutputPath(existing);
    EXPECT_EQ(command.outputPath, existing);
    command.changeOutputPath(path("new.grd"));
    EXPECT_EQ(capture.boxes.size(), 2u);
}

TEST_F(TopoStress, OkChecksThePagesInOrderAndResetsSomeFields)
{
    EXPECT_EQ(command.validate(), 1);
    EXPECT_EQ(lastBox(), "topo grid file name is missing!");
    command.topoPath = "surface.grd";
    ASSERT_TRUE(command.defineSeamGrid(0, 0, 95, 10, 1, 1, 0));
    EXPECT_EQ(command.validate(), 2);
    EXPECT_EQ(lastBox(), "Keldar requires the numbers of elements in X and Y are divisible by 10!");
    ASSERT_TRUE(command.defineSeamGrid(0, 0, 90, 10, 1, 1, 0));
    EXPECT_EQ(command.validate(), 0);

    struct Case {
        std::string CTopoProperties::*field;
        const char* value;
        const char* message;
        const char* after;
    };
    const std::vector<Case> cases = {
        {&CTopoProperties::poisson, "0.51", "Poission Ratio should be larger than 0 and smaller than 0.5!", "0.25"},
        {&CTopoProperties::poisson, "0", "Poission Ratio should be larger than 0 and smaller than 0.5!", "0.25"},
        {&CTopoProperties::modulus, "-5", "Elastic Modulus should be larger than 0 ", "-5"},
        {&CTopoProperties::gradient, "x", "Vertical Stress gradient should be larger than 0 ", "x"},
        {&CTopoProperties::lamination, "0", "Lamination thickness should be larger than 0 ", "0"},
        {&CTopoProperties::relaxation, "0", "OverRelax factor should be larger than 0 ", "1.35"},
        {&CTopoProperties::iterations, "0.9", "Maxmum iteration number should be larger than 0 ", "5000"},
        {&CTopoProperties::convergence, "1e-11", "Convergence Level  should be larger than 0 ", "1e-11"},
    };
    for (const Case& c : cases) {
        command.properties = CTopoProperties::defaultsFor(2);
        command.properties.*c.field = c.value;
        EXPECT_EQ(command.validate(), 3) << c.message;
        EXPECT_EQ(lastBox(), c.message);
        EXPECT_EQ(command.properties.*c.field, c.after);
    }
    command.properties = CTopoProperties::defaultsFor(2);
    command.properties.poisson = "0.5";
    EXPECT_EQ(command.validate(), 0);
}

TEST_F(TopoStress, TmpFileCarriesFeetAsInches)
{
    prepare(surface(900.0), 0);
    command.typeSeamLevel(-100.0);
    ASSERT_EQ(command.run(), 0) << lastBox();
    const std::vector<std::string> tmp = lines(readFile("result.tmp"));
    ASSERT_EQ(tmp.size(), 6u + 14 * 14);
    EXPECT_EQ(std::vector<std::string>(tmp.begin(), tmp.begin() + 7),
              (std::vector<std::string>{"Overburden stress input file", "0.250000,3000000.000000,600.000000,2",
                                        "1200.000000,10,10,0.091667", "0.0,0.0", "1.350000,0.000010,5000",
                                        "1200.000000,14,14,-1200.000000,-1200.000000,12000.000000", "12000.000000"}));
    EXPECT_TRUE(fs::exists("result.out"));
}

TEST_F(TopoStress, FlatSurfaceGivesAGridOfDensityTimesDepth)
{
    prepare(surface(1000.0));
    ASSERT_EQ(command.run(), 0) << lastBox();
    std::string text = readFile("Result.grd");
    const std::vector<std::string> rows = lines(text);
    ASSERT_EQ(rows.size(), 6u + 11 * 11 + 2);
    EXPECT_EQ(std::vector<std::string>(rows.begin(), rows.begin() + 6),
              (std::vector<std::string>{"0.000000", "0.000000", "1000.000000", "1000.000000", "10", "10"}));
    const std::string expected = formatString("%f", static_cast<double>(0.091667f * 12000.0f));
    for (size_t k = 6; k < 6 + 121; ++k) ASSERT_EQ(rows[k], expected) << k;
    EXPECT_EQ(rows[127], "Overburden Stress Calculation");
    EXPECT_EQ(text.substr(text.size() - 28), "\r\nVORN Stability Application");
    EXPECT_NE(readFile("result.out").find("Topographic SOR took 2 iterations to converge\r\n\r\n"
                                          "Propogating the topo. disp. to seam stresses\r\n\r\n"),
              std::string::npos);
    EXPECT_NE(capture.printed.find("\nTopographic SOR took 2 iterations to converge"), std::string::npos);
    EXPECT_NE(capture.printed.find("\nTopoStress are save to " + command.outputPath + "\nTopoModel was finished successfully!"),
              std::string::npos);
    myGrid result;
    EXPECT_TRUE(result.readGrd(command.outputPath, 1));
}

TEST_F(TopoStress, FailuresOfTheRunStopWithTheirMessages)
{
    command.topoPath = surface(1000.0);
    command.outputPath = path("r.grd");
    EXPECT_EQ(command.run(), 1);
    EXPECT_EQ(lastBox(), "\nSeam grid is not defined!");

    ASSERT_TRUE(command.defineSeamGrid(0.0, 0.0, 10, 10, 100.0, 100.0, 0.0));
    command.topoPath = path("none.grd");
    EXPECT_EQ(command.run(), 1);
    EXPECT_NE(capture.printed.find("\ntopo grid file wrong!"), std::string::npos);

    command.topoPath = surface(1000.0);
    command.outputPath = path("no/r.grd");
    EXPECT_EQ(command.run(), 1);
    EXPECT_NE(capture.printed.find("\nFile can not open for write!"), std::string::npos);

    command.outputPath = path("r.grd");
    command.confirmContinue = [](const std::string&) { return false; };
    EXPECT_EQ(command.run(), 1);
    EXPECT_TRUE(fs::exists("r.tmp"));
    EXPECT_FALSE(fs::exists("r.out"));

    fs::create_directory("dir.grd");
    command.outputPath = path("dir.grd");
    command.confirmContinue = [](const std::string&) { return true; };
    EXPECT_EQ(command.run(), 1);
    EXPECT_EQ(lastBox(), "File <" + command.outputPath + "> could not be opened to write!");
    EXPECT_TRUE(fs::exists("dir.out"));
    EXPECT_FALSE(fs::exists("dir.grd.part"));

    command.outputPath = path("r.grd");
    command.setUnitSystem(4);
    command.activatePropertiesPage();
    EXPECT_EQ(command.run(), 1);
    ASSERT_GE(capture.boxes.size(), 2u);
    EXPECT_EQ(capture.boxes[capture.boxes.size() - 2].text, "Can Only Specify a Unit Number up to 4 - RI2c\n");
    EXPECT_EQ(lastBox(), "The Input File was not the Correct Format - OFO1");
    EXPECT_FALSE(fs::exists("r.grd"));
}

}  // namespace
}  // namespace vorn::testing
