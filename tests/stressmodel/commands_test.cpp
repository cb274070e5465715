// The stress commands run as the executable: exit status, messages and the
// files they leave.
#include <filesystem>
#include <string>

#include "grid/grid.h"
#include "tests/stressmodel/fixture.h"

namespace vorn::testing {
namespace {
namespace fs = std::filesystem;

using KeldarCommand = ScratchFolderTest;

TEST_F(KeldarCommand, RunsBesideTheModelAndFailsOnBadInput)
{
    ModelText text;
    fs::create_directory("models");
    writeFile("models/tiny.inp", text.text());
    EXPECT_EQ(vornmark("keldar models/tiny.inp"), 0);
    EXPECT_NE(err.find("The Input File was Successfully Read"), std::string::npos);
    EXPECT_NE(err.find("Keldar was finished successfully!\nResults were saved to File(s):\n\t<tiny.f1> for Seam 1"),
              std::string::npos);
    EXPECT_EQ(out.rfind("\n Keldar Stress Calculation is ready to run, <Enter> to continue ...", 0), 0u);
    for (const char* file : {"tiny.out", "tiny.f1", "STEP1.CHR"}) EXPECT_TRUE(fs::exists(folder_ / "models" / file)) << file;

    writeFile("models/bad.inp", "title only\n");
    EXPECT_EQ(vornmark("keldar models/bad.inp"), 1);
    EXPECT_NE(err.find("The Input File was not the Correct Format - OFO1"), std::string::npos);

    text.codeRows[0][0] = '0';
    writeFile("models/refused.inp", text.text());
    EXPECT_EQ(vornmark("keldar models/refused.inp"), 1);
    EXPECT_NE(err.find("Keldar was finished unsuccessfully!"), std::string::npos);
}

using TransferCommand = ScratchFolderTest;

TEST_F(TransferCommand, SavesTheItemOfAStepOrListsTheRows)
{
    writeFile("model.f1", elementFile(2, 10, 10, 120.0, "ft"));
    ASSERT_EQ(vornmark("transfer model.f1 --step 2 --item 2 stress.grd"), 0) << err;
    EXPECT_NE(err.find("Convert the item: Total Vertical Stress <2> in step 2"), std::string::npos) << err;
    EXPECT_NE(err.find("File: stress.grd is saved!"), std::string::npos) << err;
    myGrid grid;
    ASSERT_TRUE(grid.readGrd(path("stress.grd"), 1));
    EXPECT_NEAR(grid.getValue(3, 7), sampleValue(2, 4, 8, 2), 1e-9);

    ASSERT_EQ(vornmark("transfer model.f1 --list"), 0) << err;
    EXPECT_EQ(out.find("model.f1\nItem#\tItem Name\tUnit\tStep\tComments\n1\tSeam Convergence \t ft\t1\t10 X 10\n"), 0u) << out;
    EXPECT_NE(out.find("\n10\tOverburden Stress\t psi\t2\t10 X 10\n"), std::string::npos) << out;
}

TEST_F(TransferCommand, BadChoicesAndFilesGiveTheirExitStatus)
{
    writeFile("model.f1", elementFile(2, 10, 10, 120.0));
    EXPECT_EQ(vornmark("transfer model.f1 --step 3 --item 1 none.grd"), 2);
    EXPECT_NE(err.find("steps 1 to 2"), std::string::npos) << err;
    EXPECT_EQ(vornmark("transfer model.f1 --step 1 --item 6 none.grd"), 2);
    EXPECT_EQ(vornmark("transfer model.f1 none.grd"), 2);
    EXPECT_EQ(vornmark("transfer absent.f1 --list"), 1);
    EXPECT_NE(err.find("File could not be opened: "), std::string::npos) << err;
    EXPECT_FALSE(fs::exists("none.grd"));
}

// Copies of the example grids in the scratch folder.
class TopoCommand : public ScratchFolderTest {
protected:
    void SetUp() override
    {
        ScratchFolderTest::SetUp();
        for (const char* name : {"surface.grd", "seam.grd"})
            fs::copy_file(fs::path(VORN_SOURCE_DIR) / "examples" / "topo" / name, folder_ / name);
    }
};

TEST_F(TopoCommand, ExampleSurfaceOverASeamGridFileGivesTheStressGrid)
{
    ASSERT_EQ(vornmark("topostress surface.grd Panel_Stress.grd --seam-grid seam.grd"), 0) << out << err;
    EXPECT_TRUE(fs::exists("panel_stress.tmp"));
    EXPECT_TRUE(fs::exists("panel_stress.out"));
    EXPECT_NE(out.find("\nTopoStress are save to Panel_Stress.grd\nTopoModel was finished successfully!"), std::string::npos)
        << out;
    myGrid result;
    ASSERT_TRUE(result.readGrd(path("Panel_Stress.grd"), 1));
    EXPECT_EQ(result.getXNum(), 40);
    EXPECT_DOUBLE_EQ(result.getOrigin().x, 1000.0);
    double low = 0, high = 0;
    ASSERT_TRUE(result.getMinMax(low, high));
    // About 1.1 psi per foot of an overburden of 800 to 1200 feet.
    EXPECT_GT(low, 800.0);
    EXPECT_LT(high, 1400.0);
}

TEST_F(TopoCommand, SeamGridDefinitionAndElevationSurface)
{
    ASSERT_EQ(vornmark("topostress surface.grd def.grd --seam-cells 20,20 --seam-cell-width 100 --seam-origin 2000,2000 "
                       "--surface elevation --seam-level 100 --units 1 --gradient 0.1"),
              0)
        << out << err;
    const std::string tmp = readFile("def.tmp");
    EXPECT_EQ(tmp.substr(0, tmp.find("\r\n0.0,0.0")),
              "Overburden stress input file\r\n0.250000,3000000.000000,600.000000,1\r\n100.000000,20,20,0.100000");
    EXPECT_NE(tmp.find("\r\n100.000000,60,60,-2000.000000,-2000.000000,"), std::string::npos);
}

TEST_F(TopoCommand, BadOptionsAreUsageErrorsAndFailedChecksAreFailures)
{
    for (const char* options : {"out.txt --seam-grid seam.grd", "out.grd --seam-grid seam.grd --seam-level 5",
                                "out.grd --seam-grid seam.grd --units 5", "out.grd --seam-grid seam.grd --seam-cells 10,10"})
        EXPECT_EQ(vornmark(std::string("topostress surface.grd ") + options), 2) << options;

    const std::pair<const char*, const char*> failures[] = {
        {"--seam-grid seam.grd --poisson 0.7", "Poission Ratio should be larger than 0 and smaller than 0.5!"},
        {"--seam-grid seam.grd --units 4", "The Input File was not the Correct Format - OFO1"},
    };
    for (const auto& [options, message] : failures) {
        EXPECT_EQ(vornmark(std::string("topostress surface.grd out.grd ") + options), 1) << options;
        EXPECT_NE(err.find(message), std::string::npos) << err;
    }
    EXPECT_FALSE(fs::exists("out.grd"));
}

}  // namespace
}  // namespace vorn::testing
