#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "grid/grid.h"
#include "shell/report.h"
#include "shell/textnum.h"
#include "stressmodel/topo_stress.h"
#include "tests/stressmodel/topo_test_util.h"

namespace {
namespace fs = std::filesystem;

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::stringstream s(text);
    for (std::string line; std::getline(s, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

struct TopoStress : ::testing::Test {
    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope{capture};
    fs::path folder;
    CTopoStressCommand command;

    void SetUp() override
    {
        folder = stresstest::testFolder("vorn_topo_stress");
    }
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
        std::string path = (folder / "Surface.grd").string();
        grid.writeGrd(path);
        return path;
    }
    // Page 1 and page 2 set up for a run in feet over a 10 x 10 seam grid.
    void prepare(const std::string& surfacePath, int surfaceType = 1)
    {
        ASSERT_TRUE(command.loadSurface(surfacePath));
        command.surfaceType = surfaceType;
        ASSERT_TRUE(command.defineSeamGrid(0.0, 0.0, 10, 10, 100.0, 100.0, 0.0));
        command.outputPath = (folder / "Result.grd").string();
        command.activateSeamPage();
    }
    std::string lastBox() const { return capture.boxes.empty() ? std::string() : capture.boxes.back().text; }
};
}  // namespace

TEST(TopoStressDefaults, PropertiesAndLabelsFollowTheUnitSystem)
{
    CTopoProperties feet = CTopoProperties::defaultsFor(2);
    EXPECT_EQ(feet.lamination, "50");
    EXPECT_EQ(feet.gradient, "1.1");
    EXPECT_EQ(CTopoProperties::defaultsFor(1).gradient, "0.0917");
    EXPECT_EQ(CTopoProperties::defaultsFor(3).modulus, "2.07E+10");
    EXPECT_EQ(CTopoProperties::defaultsFor(4).convergence, "0.0000001");
    EXPECT_EQ(topoLengthText(1), "in.");
    EXPECT_EQ(topoLengthText(2), "ft.");
    EXPECT_EQ(topoLengthText(4), "m");
    EXPECT_EQ(topoStressText(2), "psi");
    EXPECT_EQ(topoStressText(3), "Pa");
    EXPECT_EQ(topoStressText(4), "MPa");

    CTopoStressCommand command;
    EXPECT_EQ(command.unitSystem, 2);
    EXPECT_EQ(command.surfaceType, 1);
    command.properties.modulus = "typed";
    command.setUnitSystem(2);
    EXPECT_EQ(command.properties.modulus, "typed");
    command.setUnitSystem(3);
    EXPECT_EQ(command.properties.gradient, "24900");
}

TEST(TopoStressPaths, TmpFileNameIsLowerCasedBesideTheOutput)
{
    EXPECT_EQ(vorn::topoInputPath("/Data/Mine A/Panel_Stress.GRD"), "/Data/Mine A/panel_stress.tmp");
    EXPECT_EQ(vorn::topoInputPath("out.grd"), "out.tmp");
}

TEST_F(TopoStress, SeamLevelIsLockedForThicknessAndAveragedOnlyForElevation)
{
    myGrid seam;
    seam.setup(10, 10, 50.0, 50.0, 0.0);
    seam.setAll(-300.0);
    std::string seamPath = (folder / "seam.grd").string();
    seam.writeGrd(seamPath);
    ASSERT_TRUE(command.loadSeamGrid(seamPath));
    EXPECT_EQ(command.seamGrid.getTitle(), "Seam Grid Defination");
    EXPECT_DOUBLE_EQ(command.seamMean, -300.0);

    command.useSeamAverage = true;
    command.activateSeamPage();
    EXPECT_TRUE(command.levelLocked);
    EXPECT_EQ(command.seamLevel, 0.0);
    EXPECT_FALSE(command.typeSeamLevel(12.0));
    EXPECT_EQ(command.outputPath, (fs::current_path() / "Untitle.grd").string());

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
    command.changeOutputPath((folder / "new.grd").string());
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
    std::vector<std::string> lines = linesOf(stresstest::slurp((folder / "result.tmp").string()));
    ASSERT_EQ(lines.size(), 6u + 14 * 14);
    EXPECT_EQ(lines[0], "Overburden stress input file");
    EXPECT_EQ(lines[1], "0.250000,3000000.000000,600.000000,2");
    EXPECT_EQ(lines[2], "1200.000000,10,10,0.091667");
    EXPECT_EQ(lines[3], "0.0,0.0");
    EXPECT_EQ(lines[4], "1.350000,0.000010,5000");
    EXPECT_EQ(lines[5], "1200.000000,14,14,-1200.000000,-1200.000000,12000.000000");
    EXPECT_EQ(lines[6], "12000.000000");
    EXPECT_TRUE(fs::exists(folder / "result.out"));
}

TEST_F(TopoStress, FlatSurfaceGivesAGridOfDensityTimesDepth)
{
    prepare(surface(1000.0));
    ASSERT_EQ(command.run(), 0) << lastBox();
    std::string text = stresstest::slurp((folder / "Result.grd").string());
    std::vector<std::string> lines = linesOf(text);
    ASSERT_EQ(lines.size(), 6u + 11 * 11 + 2);
    EXPECT_EQ(std::vector<std::string>(lines.begin(), lines.begin() + 6),
              (std::vector<std::string>{"0.000000", "0.000000", "1000.000000", "1000.000000", "10", "10"}));
    const std::string expected = vorn::formatString("%f", static_cast<double>(0.091667f * 12000.0f));
    for (size_t k = 6; k < 6 + 121; ++k) ASSERT_EQ(lines[k], expected) << k;
    EXPECT_EQ(lines[127], "Overburden Stress Calculation");
    EXPECT_EQ(text.substr(text.size() - 28), "\r\nVORN Stability Application");
    EXPECT_NE(capture.printed.find("\nTopoStress are save to " + command.outputPath + "\nTopoModel was finished successfully!"),
              std::string::npos);
    myGrid result;
    EXPECT_TRUE(result.readGrd(command.outputPath, 1));
}

TEST_F(TopoStress, AHillRaisesTheStressBelowIt)
{
    prepare(surface(1000.0, 200.0));
    ASSERT_EQ(command.run(), 0) << lastBox();
    myGrid result;
    ASSERT_TRUE(result.readGrd(command.outputPath, 1));
    // Surface cells 6 and 7 lie over seam cells 5 and 6.
    EXPECT_GT(result.getValue(5, 5), result.getValue(0, 0));
    EXPECT_GT(result.getValue(5, 5), 0.091667f * 12000.0f);
}

TEST_F(TopoStress, FailuresOfTheRunStopWithTheirMessages)
{
    command.topoPath = surface(1000.0);
    command.outputPath = (folder / "r.grd").string();
    EXPECT_EQ(command.run(), 1);
    EXPECT_EQ(lastBox(), "\nSeam grid is not defined!");

    ASSERT_TRUE(command.defineSeamGrid(0.0, 0.0, 10, 10, 100.0, 100.0, 0.0));
    command.topoPath = (folder / "none.grd").string();
    EXPECT_EQ(command.run(), 1);
    EXPECT_NE(capture.printed.find("\ntopo grid file wrong!"), std::string::npos);

    command.topoPath = surface(1000.0);
    command.outputPath = (folder / "no" / "r.grd").string();
    EXPECT_EQ(command.run(), 1);
    EXPECT_NE(capture.printed.find("\nFile can not open for write!"), std::string::npos);

    command.outputPath = (folder / "r.grd").string();
    command.confirmContinue = [](const std::string&) { return false; };
    EXPECT_EQ(command.run(), 1);
    EXPECT_TRUE(fs::exists(folder / "r.tmp"));
    EXPECT_FALSE(fs::exists(folder / "r.out"));

    fs::create_directory(folder / "dir.grd");
    command.outputPath = (folder / "dir.grd").string();
    command.confirmContinue = [](const std::string&) { return true; };
    EXPECT_EQ(command.run(), 1);
    EXPECT_EQ(lastBox(), "File <" + command.outputPath + "> could not be opened to write!");
    EXPECT_TRUE(fs::exists(folder / "dir.out"));

    command.outputPath = (folder / "r.grd").string();
    command.setUnitSystem(4);
    EXPECT_EQ(command.run(), 1);
    ASSERT_GE(capture.boxes.size(), 2u);
    EXPECT_EQ(capture.boxes[capture.boxes.size() - 2].text, "Can Only Specify a Unit Number up to 4 - RI2c\n");
    EXPECT_EQ(lastBox(), "The Input File was not the Correct Format - OFO1");
    EXPECT_FALSE(fs::exists(folder / "r.grd"));
}
