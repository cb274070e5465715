// The final RFRI grid from the twelve defect files of a folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "base/report.h"
#include "roofrisk/rfri_calculation.h"

namespace {

namespace fs = std::filesystem;
using namespace vorn::rfri;

class Calculation : public ::testing::Test {
protected:
    void SetUp() override
    {
        folder = fs::temp_directory_path() / ("vorn_rfri_calc_" + std::to_string(::getpid()));
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    void TearDown() override { fs::remove_all(folder); }

    std::string path(int factor) const { return (folder / defectFactor(factor).gridFile).string(); }

    // A grid file of 4 by 3 cells of width 10 at (100, 200) with every node at `value`.
    void writeFactor(int factor, double value, int xNum = 4, double originX = 100.0)
    {
        myGrid grid;
        grid.setOrigin(originX, 200.0, 0.0);
        grid.setFillValue(value);
        grid.setup(xNum, 3, 10.0, 10.0, 0.0);
        ASSERT_TRUE(grid.writeGrd(path(factor)));
    }

    // Scan, defaults and sum, as the panel's opening and "Calculate RFRI" do.
    CRFRICalculation run()
    {
        CRFRICalculation calc(folder.string());
        calc.scanFiles();
        calc.makeDefaultFiles();
        calc.calculate();
        return calc;
    }

    fs::path folder;
    vorn::CaptureReporter out;
    vorn::ScopedReporter scoped{out};
};

TEST_F(Calculation, OneValidFileGivesElevenDefaultsOnItsLattice)
{
    writeFactor(2, 3.0);
    CRFRICalculation calc = run();
    EXPECT_TRUE(calc.rows[2].found && calc.rows[2].valid && !calc.rows[2].defaultMade);
    for (int k : {0, 1, 3, 11}) EXPECT_TRUE(calc.rows[static_cast<size_t>(k)].defaultMade) << k;
    EXPECT_NE(out.printed.find("\nThe base grid definition was set from file " + path(2) + " "), std::string::npos);
    EXPECT_NE(out.printed.find("\nA default file was created for the Seismic"), std::string::npos);
    EXPECT_NE(out.printed.find("\nThe Final RFRI Grid has been Calculated"), std::string::npos);
    // Every factor at "Unknown" 3, both adjustments 0: 45 * 1.11.
    EXPECT_NEAR(calc.finalGrid.getValue(1, 1), 49.95, 1e-9);
    EXPECT_EQ(calc.finalGrid.getXNum(), 4);
    EXPECT_TRUE(fs::exists(path(0)));
}

TEST_F(Calculation, TheFormulaWeighsEachFactor)
{
    struct Case {
        double factors;
        double seismic;
        double rate;
        double expected;
    };
    const Case cases[] = {{1, 0, 0, 16.65}, {5, 0, 0, 83.25}, {5, 25, 30, 138.25}, {1, -5, -5, 6.65}};
    for (const Case& c : cases) {
        for (int k = 0; k < 10; ++k) writeFactor(k, c.factors);
        writeFactor(10, c.seismic);
        writeFactor(11, c.rate);
        CRFRICalculation calc = run();
        for (const CalcRow& row : calc.rows) EXPECT_FALSE(row.defaultMade);
        // Every node takes part, the extra row and column too.
        EXPECT_NEAR(calc.finalGrid.getValue(0, 0), c.expected, 1e-9);
        EXPECT_NEAR(calc.finalGrid.getValue(4, 3), c.expected, 1e-9);
    }
    // A single factor counts with its weight: shear rupture twice.
    for (int k = 0; k < 12; ++k) writeFactor(k, 0.0);
    writeFactor(3, 1.0);
    EXPECT_NEAR(run().finalGrid.getValue(2, 2), 2.22, 1e-9);
}

TEST_F(Calculation, FilesThatDoNotFitAreReplacedAndDefaultsRemovedAgain)
{
    writeFactor(0, 2.0);
    writeFactor(1, 2.0, 5);            // another column count
    writeFactor(2, 2.0, 4, 101.0);     // another origin
    std::ofstream(path(3)) << "not a grid\n";  // foreign
    writeFactor(4, 2.0);
    fs::resize_file(path(4), fs::file_size(path(4)) / 2);  // truncated
    writeFactor(5, 2.0);
    CRFRICalculation calc = run();
    EXPECT_TRUE(calc.rows[1].found && !calc.rows[1].valid && calc.rows[1].defaultMade);
    EXPECT_TRUE(calc.rows[2].found && !calc.rows[2].valid && calc.rows[2].defaultMade);
    EXPECT_TRUE(calc.rows[3].found && !calc.rows[3].valid);
    EXPECT_TRUE(calc.rows[4].found && !calc.rows[4].valid);
    EXPECT_FALSE(calc.rows[5].defaultMade);
    // The replaced file now holds the default of the lattice read last.
    myGrid replaced;
    ASSERT_TRUE(replaced.readGrd(path(2)));
    EXPECT_EQ(replaced.getValue(0, 0), 3.0);
    vorn::Point2 node;
    replaced.getNodeXY(0, 0, node);
    EXPECT_EQ(node.x, 100.0);

    // Removal acts on the bare names in the current directory.
    fs::path before = fs::current_path();
    fs::current_path(folder);
    calc.removeDefaultFiles();
    fs::current_path(before);
    for (int k : {1, 2, 3, 4, 6, 11}) EXPECT_FALSE(fs::exists(path(k))) << k;
    for (int k : {0, 5}) EXPECT_TRUE(fs::exists(path(k))) << k;
}

TEST_F(Calculation, ADefaultOutsideTheCurrentDirectoryIsNotRemovedThere)
{
    writeFactor(0, 1.0);
    CRFRICalculation calc = run();
    fs::path other = folder / "elsewhere";
    fs::create_directories(other);
    std::ofstream(other / defectFactor(1).gridFile) << "a file of the user\n";
    fs::path before = fs::current_path();
    fs::current_path(other);
    calc.removeDefaultFiles();
    fs::current_path(before);
    EXPECT_TRUE(fs::exists(other / defectFactor(1).gridFile));
}

TEST_F(Calculation, WithoutAnyFileThereIsNoBase)
{
    CRFRICalculation calc(folder.string());
    calc.scanFiles();
    EXPECT_FALSE(calc.makeDefaultFiles());
    EXPECT_FALSE(calc.calculate());
    EXPECT_FALSE(calc.calculated);
    EXPECT_EQ(out.printed, "\nYou need to build RFRI grids before running this command"
                           "\nYou need to build RFRI grids before running this command");
    EXPECT_TRUE(fs::is_empty(folder));
}

}  // namespace
