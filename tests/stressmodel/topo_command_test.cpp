#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "grid/grid.h"
#include "tests/stressmodel/topo_test_util.h"

namespace {
namespace fs = std::filesystem;

// A folder of its own for each test, holding copies of the example grids.
struct TopoCommand : ::testing::Test {
    fs::path folder;
    std::string out, err;

    void SetUp() override
    {
        folder = stresstest::testFolder("vorn_topo_command");
        for (const char* name : {"surface.grd", "seam.grd"}) {
            fs::copy_file(fs::path(VORN_SOURCE_DIR) / "examples" / "topo" / name, folder / name);
        }
    }
    int vornmark(const std::string& arguments) { return stresstest::runVornmark(folder, "topostress " + arguments, out, err); }
};
}  // namespace

TEST_F(TopoCommand, ExampleSurfaceOverASeamGridFileGivesTheStressGrid)
{
    ASSERT_EQ(vornmark("surface.grd Panel_Stress.grd --seam-grid seam.grd"), 0) << out << err;
    EXPECT_TRUE(fs::exists(folder / "panel_stress.tmp"));
    EXPECT_TRUE(fs::exists(folder / "panel_stress.out"));
    EXPECT_NE(out.find("\nTopoStress are save to Panel_Stress.grd\nTopoModel was finished successfully!"), std::string::npos)
        << out;
    myGrid result;
    ASSERT_TRUE(result.readGrd((folder / "Panel_Stress.grd").string(), 1));
    EXPECT_EQ(result.getXNum(), 40);
    EXPECT_DOUBLE_EQ(result.getOrigin().x, 1000.0);
    EXPECT_EQ(result.getTitle(), "Overburden Stress Calculation");
    double low = 0, high = 0;
    ASSERT_TRUE(result.getMinMax(low, high));
    // About 1.1 psi per foot of an overburden of 800 to 1200 feet.
    EXPECT_GT(low, 800.0);
    EXPECT_LT(high, 1400.0);
}

TEST_F(TopoCommand, SeamGridDefinitionAndElevationSurface)
{
    ASSERT_EQ(vornmark("surface.grd def.grd --seam-cells 20,20 --seam-cell-width 100 --seam-origin 2000,2000 "
                       "--surface elevation --seam-level 100 --units 1 --gradient 0.1"),
              0)
        << out << err;
    std::string tmp = stresstest::slurp((folder / "def.tmp").string());
    EXPECT_EQ(tmp.substr(0, tmp.find("\r\n0.0,0.0")),
              "Overburden stress input file\r\n0.250000,3000000.000000,600.000000,1\r\n100.000000,20,20,0.100000");
    EXPECT_NE(tmp.find("\r\n100.000000,60,60,-2000.000000,-2000.000000,"), std::string::npos);
}

TEST_F(TopoCommand, BadOptionsAreUsageErrorsAndFailedChecksAreFailures)
{
    EXPECT_EQ(vornmark("surface.grd out.txt --seam-grid seam.grd"), 2);
    EXPECT_EQ(vornmark("surface.grd out.grd --seam-grid seam.grd --seam-level 5"), 2);
    EXPECT_EQ(vornmark("surface.grd out.grd --seam-grid seam.grd --units 5"), 2);
    EXPECT_EQ(vornmark("surface.grd out.grd --seam-grid seam.grd --seam-cells 10,10"), 2);

    EXPECT_EQ(vornmark("surface.grd out.grd --seam-grid seam.grd --poisson 0.7"), 1);
    EXPECT_NE(err.find("Poission Ratio should be larger than 0 and smaller than 0.5!"), std::string::npos) << err;
    EXPECT_EQ(vornmark("surface.grd out.grd --seam-cells 95,10 --seam-cell-width 10"), 1);
    EXPECT_NE(err.find("Keldar requires the numbers of elements in X and Y are divisible by 10!"), std::string::npos) << err;
    EXPECT_EQ(vornmark("surface.grd out.grd"), 1);
    EXPECT_NE(err.find("\nSeam grid is not defined!"), std::string::npos) << err;
    EXPECT_EQ(vornmark("surface.grd out.grd --seam-grid seam.grd --units 4"), 1);
    EXPECT_NE(err.find("The Input File was not the Correct Format - OFO1"), std::string::npos) << err;
    EXPECT_FALSE(fs::exists(folder / "out.grd"));
}
