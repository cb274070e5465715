#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "grid/grid.h"

namespace {
namespace fs = std::filesystem;

fs::path commandFolder()
{
    // One folder per test, as the tests may run side by side.
    fs::path folder = fs::temp_directory_path() / "vorn_transfer_command" /
                      ::testing::UnitTest::GetInstance()->current_test_info()->name();
    fs::create_directories(folder);
    return folder;
}

std::string slurp(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

// Runs vornmark with `arguments`; standard output and error land in files.
int vornmark(const std::string& arguments, std::string& out, std::string& err)
{
    fs::path folder = commandFolder();
    std::string command = std::string(VORN_BINARY) + " " + arguments + " >" + (folder / "out.txt").string() + " 2>" +
                          (folder / "err.txt").string();
    int status = std::system(command.c_str());
    out = slurp(folder / "out.txt");
    err = slurp(folder / "err.txt");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Two steps of a 10 by 10 mesh of 120 inch elements; item k of element
// (x, y) of step s holds s * 1000 + k * 100 + x * 10 + y / 10.
fs::path writeElementFile()
{
    fs::path path = commandFolder() / "model.f1";
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

TEST(TransferCommand, SavesTheItemOfTheStepAsAGridFile)
{
    fs::path input = writeElementFile();
    fs::path output = commandFolder() / "stress.grd";
    fs::remove(output);
    std::string out, err;
    ASSERT_EQ(vornmark("transfer " + input.string() + " --step 2 --item 2 " + output.string(), out, err), 0) << err;
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

TEST(TransferCommand, ListPrintsTheRowsOfAllSteps)
{
    fs::path input = writeElementFile();
    std::string out, err;
    ASSERT_EQ(vornmark("transfer " + input.string() + " --list", out, err), 0) << err;
    EXPECT_EQ(out.find(input.string() + "\nItem#\tItem Name\tUnit\tStep\tComments\n1\tSeam Convergence \t ft\t1\t10 X 10\n"), 0u)
        << out;
    EXPECT_NE(out.find("\n10\tOverburden Stress\t psi\t2\t10 X 10\n"), std::string::npos) << out;
}

TEST(TransferCommand, BadChoicesAndFilesGiveTheirExitStatus)
{
    fs::path input = writeElementFile();
    fs::path output = commandFolder() / "none.grd";
    std::string out, err;
    EXPECT_EQ(vornmark("transfer " + input.string() + " --step 3 --item 1 " + output.string(), out, err), 2);
    EXPECT_NE(err.find("steps 1 to 2"), std::string::npos) << err;
    EXPECT_EQ(vornmark("transfer " + input.string() + " --step 1 --item 6 " + output.string(), out, err), 2);
    EXPECT_EQ(vornmark("transfer " + input.string() + " " + output.string(), out, err), 2);
    EXPECT_EQ(vornmark("transfer " + (commandFolder() / "absent.f1").string() + " --list", out, err), 1);
    EXPECT_NE(err.find("File could not be opened: "), std::string::npos) << err;
    EXPECT_FALSE(fs::exists(output));
}
