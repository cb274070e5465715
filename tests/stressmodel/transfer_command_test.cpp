#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "grid/grid.h"
#include "tests/stressmodel/topo_test_util.h"

namespace {
namespace fs = std::filesystem;

struct TransferCommand : ::testing::Test {
    fs::path folder = stresstest::testFolder("vorn_transfer_command");
    std::string out, err;

    int vornmark(const std::string& arguments) { return stresstest::runVornmark(folder, arguments, out, err); }
};

// Two steps of a 10 by 10 mesh of 120 inch elements; item k of element
// (x, y) of step s holds s * 1000 + k * 100 + x * 10 + y / 10.
fs::path writeElementFile(const fs::path& folder)
{
    fs::path path = folder / "model.f1";
    std::ofstream out(path, std::ios::binary);
    out << "  2,     100,          120,  10,  10,          240,          360\r\n";
    out << "  5,Seam Convergence         ,Total Vertical Stress    ,Surface Effect Stress    ,Multiple Seam Stress     ,"
           "Overburden Stress        \r\n";
    out << "  5,                       ft,                      psi,                      psi,                      psi,"
           "                      psi\r\n";
    char line[200];
    for (int s = 1; s <= 2; ++s) {
        for (int x = 1; x <= 10; ++x) {
            for (int y = 1; y <= 10; ++y) {
                double base = s * 1000 + x * 10 + y / 10.0;
                std::snprintf(line, sizeof line, "%12.5g, %12.5g, %12.5g, %12.5g, %12.5g\r\n", base + 100, base + 200,
                              base + 300, base + 400, base + 500);
                out << line;
            }
        }
    }
    return path;
}
}  // namespace

TEST_F(TransferCommand, SavesTheItemOfTheStepAsAGridFile)
{
    fs::path input = writeElementFile(folder);
    fs::path output = folder / "stress.grd";
    fs::remove(output);
    ASSERT_EQ(vornmark("transfer " + input.string() + " --step 2 --item 2 " + output.string()), 0) << err;
    EXPECT_NE(err.find("Convert the item: Total Vertical Stress <2> in step 2"), std::string::npos) << err;
    EXPECT_NE(err.find("File: " + output.string() + " is saved!"), std::string::npos) << err;

    myGrid grid;
    ASSERT_TRUE(grid.readGrd(output.string(), 1));
    EXPECT_EQ(grid.getXNum(), 10);
    EXPECT_DOUBLE_EQ(grid.getXCellW(), 10.0);
    EXPECT_DOUBLE_EQ(grid.getOrigin().x, 240.0);
    EXPECT_DOUBLE_EQ(grid.getOrigin().y, 360.0);
    EXPECT_NEAR(grid.getValue(3, 7), 2000 + 200 + 40 + 0.8, 1e-9);
    EXPECT_EQ(grid.getTitle(), "Convert the item: Total Vertical Stress <2> in step 2");
}

TEST_F(TransferCommand, ListPrintsTheRowsOfAllSteps)
{
    fs::path input = writeElementFile(folder);
    ASSERT_EQ(vornmark("transfer " + input.string() + " --list"), 0) << err;
    EXPECT_EQ(out.find(input.string() + "\nItem#\tItem Name\tUnit\tStep\tComments\n1\tSeam Convergence \t ft\t1\t10 X 10\n"), 0u)
        << out;
    EXPECT_NE(out.find("\n10\tOverburden Stress\t psi\t2\t10 X 10\n"), std::string::npos) << out;
}

TEST_F(TransferCommand, BadChoicesAndFilesGiveTheirExitStatus)
{
    fs::path input = writeElementFile(folder);
    fs::path output = folder / "none.grd";
    EXPECT_EQ(vornmark("transfer " + input.string() + " --step 3 --item 1 " + output.string()), 2);
    EXPECT_NE(err.find("steps 1 to 2"), std::string::npos) << err;
    EXPECT_EQ(vornmark("transfer " + input.string() + " --step 1 --item 6 " + output.string()), 2);
    EXPECT_EQ(vornmark("transfer " + input.string() + " " + output.string()), 2);
    EXPECT_EQ(vornmark("transfer " + (folder / "absent.f1").string() + " --list"), 1);
    EXPECT_NE(err.find("File could not be opened: "), std::string::npos) << err;
    EXPECT_FALSE(fs::exists(output));
}
