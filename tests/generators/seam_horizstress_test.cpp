// The seam file byte for byte, and the rating of entries against the
// horizontal stress.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <sstream>

#include "generators/horizstress_rating.h"
#include "generators/seamfile.h"

namespace {

std::string fileBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string scratchPath(const char* name)
{
    return (std::filesystem::temp_directory_path() / (std::string("vorn_gen_") + name)).string();
}

TEST(SeamFile, TopRowFirstWithCodesAndCrLf)
{
    myGrid grid;
    grid.setOrigin(-100.5, 20.0, 0.0);
    grid.setup(3, 2, 5.0, 5.0, 0.0);
    grid.setAll(0.0);
    grid.values[0][0] = 1.0;     // pillar, bottom left
    grid.values[2][1] = -1.0;    // gob, top right
    grid.values[1][1] = -1e-11;  // within the tolerance: entry
    std::string path = scratchPath("seam.txt");
    ASSERT_TRUE(writeSeamFile(path, grid, SeamCodes{}));
    EXPECT_EQ(fileBytes(path), "3,2,-100.500000,20.000000\r\n11S\r\nA11\r\n");
    ASSERT_TRUE(writeSeamFile(path, grid, SeamCodes{'P', '0', 'G'}));
    EXPECT_EQ(fileBytes(path), "3,2,-100.500000,20.000000\r\n00G\r\nP00\r\n");
    EXPECT_FALSE(std::filesystem::exists(path + ".part"));
    std::filesystem::remove(path);
}

TEST(SeamFile, UnwritableTargetFailsAndLeavesNothing)
{
    myGrid grid;
    grid.setup(2, 2, 1.0, 1.0, 0.0);
    std::string path = scratchPath("no_such_folder/seam.txt");
    EXPECT_FALSE(writeSeamFile(path, grid, SeamCodes{}));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(HorizontalStress, RatingFoldsDirectionsAndDifferences)
{
    const double deg = std::numbers::pi / 180.0;
    struct Case {
        double segment, stress, rating;
    };
    const Case cases[] = {
        {0, 0, 0},     {180, 0, 0},   {90, 0, 100},  {270, 0, 100}, {120, 30, 100},
        {75, 30, 70.710678118654755}, {300, 30, 100}, {210, 30, 0}, {359.999, 0, 0.0017453292},
    };
    for (const Case& c : cases)
        EXPECT_NEAR(entryRating(c.segment * deg, c.stress * deg), c.rating, 1e-6) << c.segment << " against " << c.stress;
}

TEST(HorizontalStress, CellsWithinHalfTheWidthTakeTheHighestRating)
{
    myGrid grid;
    grid.setup(10, 10, 10.0, 10.0, 0.0);
    grid.setAll(0.0);
    // Along y = 50: centres at y 45 and 55 lie exactly at half the width.
    rateSegmentCells(grid, {0, 50}, {100, 50}, 5.0, 40.0);
    EXPECT_EQ(grid.values[3][4], 40.0);
    EXPECT_EQ(grid.values[3][5], 40.0);
    EXPECT_EQ(grid.values[3][3], 0.0);
    // A crossing entry rated higher wins where they meet, a lower one does not.
    rateSegmentCells(grid, {35, 0}, {35, 100}, 5.0, 90.0);
    rateSegmentCells(grid, {0, 45}, {100, 45}, 1.0, 10.0);
    EXPECT_EQ(grid.values[3][4], 90.0);
    EXPECT_EQ(grid.values[5][4], 40.0);
    grid.setAll(0.0);
    rateSegmentCells(grid, {15, 15}, {15, 15}, 5.0, 50.0);  // a segment of no length
    EXPECT_EQ(grid.values[1][1], 50.0);
    EXPECT_EQ(grid.values[2][2], 0.0);
}

TEST(HorizontalStress, NarrowEntryBetweenCentresMissesAllCells)
{
    myGrid grid;
    grid.setup(4, 4, 10.0, 10.0, 0.0);
    grid.setAll(0.0);
    rateSegmentCells(grid, {0, 20}, {40, 20}, 4.0, 100.0);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_EQ(grid.values[i][j], 0.0);
}

}  // namespace
