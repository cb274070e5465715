// The point grid: the indexed search against the plain pass over all
// points for each radius, the averages, and the point import file.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>

#include "generators/points_grid.h"

using vorn::PointAverage;
using vorn::PointInterpolator;
using vorn::Point3d;

namespace {

// The plain search: all points within R, R growing by dx while too few are
// listed and R stays below the limit.
std::vector<int> plainSearch(const std::vector<Point3d>& points, const Point3d& c, double dx, double searchLimit,
                             int minPoints)
{
    std::vector<int> listed;
    double r = dx;
    do {
        listed.clear();
        for (int k = 0; k < static_cast<int>(points.size()); ++k)
            if (std::hypot(points[k].x - c.x, points[k].y - c.y) <= r) listed.push_back(k);
        r += dx;
    } while (static_cast<int>(listed.size()) < minPoints && r < searchLimit);
    return listed;
}

bool sameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

std::string tempPath(const std::string& name)
{
    auto dir = std::filesystem::temp_directory_path() / ("vorn_points_tests_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    return (dir / name).string();
}

}  // namespace

TEST(PointGrid, IndexedSearchGivesThePlainListsAndValuesOnRandomLayouts)
{
    std::mt19937 random(7);
    for (int layout = 0; layout < 150; ++layout) {
        const double dx = layout % 2 ? 10.0 : 3.0;
        const int span = 14;
        // Points on a lattice of half cells: at cell centres, at exact
        // radii from them, repeated, and some far outside.
        std::uniform_int_distribution<int> coordinate(-6, 2 * span + 6);
        std::vector<Point3d> points;
        int count = 1 + layout % 25;
        for (int k = 0; k < count; ++k)
            points.push_back({coordinate(random) * dx * 0.5, coordinate(random) * dx * 0.5, static_cast<double>(k % 7)});
        if (layout % 5 == 0) points.push_back(points.front());
        const int minPoints = 1 + layout % 10;
        const double limit = span * dx * ((layout % 4) * 0.25);
        PointInterpolator fast(points, dx, limit, minPoints);
        std::vector<int> listed;
        for (int i = 0; i <= span; ++i)
            for (int j = 0; j <= span; ++j) {
                Point3d c{(i + 0.5) * dx, (j + 0.5) * dx, 0.0};
                std::vector<int> expected = plainSearch(points, c, dx, limit, minPoints);
                fast.search(c, listed);
                ASSERT_EQ(expected, listed) << "layout " << layout << " cell " << i << "," << j;
                if (expected.empty()) continue;
                for (PointAverage average : {PointAverage::Simple, PointAverage::InverseDistance}) {
                    double a = vorn::pointCellValue(points, expected, c, average);
                    double b = vorn::pointCellValue(fast.points(), listed, c, average);
                    ASSERT_TRUE(sameBits(a, b) || (std::isnan(a) && std::isnan(b)));
                }
            }
    }
}

TEST(PointGrid, AveragesAndThePointAtTheCentre)
{
    const Point3d c{0, 0, 0};
    const std::vector<Point3d> points = {{1, 0, 10}, {0, 3, 40}, {0, 0, 99}};
    // Inverse distance, exponent 1: (10/1 + 40/3) / (1 + 1/3).
    EXPECT_DOUBLE_EQ(vorn::pointCellValue(points, {0, 1}, c, PointAverage::InverseDistance), (10.0 + 40.0 / 3.0) / (1.0 + 1.0 / 3.0));
    EXPECT_DOUBLE_EQ(vorn::pointCellValue(points, {0, 1}, c, PointAverage::Simple), 25.0);
    // A single point gives its value under both.
    EXPECT_EQ(vorn::pointCellValue(points, {1}, c, PointAverage::InverseDistance), 40.0);
    // A point at the centre first: 0/0; later: the sums walked so far.
    EXPECT_TRUE(std::isnan(vorn::pointCellValue(points, {2, 0, 1}, c, PointAverage::InverseDistance)));
    EXPECT_DOUBLE_EQ(vorn::pointCellValue(points, {0, 2, 1}, c, PointAverage::InverseDistance), 10.0);
}

TEST(PointGrid, SearchRadiusRules)
{
    const std::vector<Point3d> points = {{25, 0, 1}, {5, 0, 2}, {0, 15, 3}};
    std::vector<int> listed;
    // Min. Points 1: the first radius with any point.
    PointInterpolator one(points, 10.0, 100.0, 1);
    one.search({0, 0, 0}, listed);
    EXPECT_EQ(listed, (std::vector<int>{1}));
    // Three wanted: R grows to 30, and the list keeps the order of reading.
    PointInterpolator three(points, 10.0, 100.0, 3);
    three.search({0, 0, 0}, listed);
    EXPECT_EQ(listed, (std::vector<int>{0, 1, 2}));
    // A limit of 0: one pass at R = dx.
    PointInterpolator none(points, 10.0, 0.0, 3);
    none.search({0, 0, 0}, listed);
    EXPECT_EQ(listed, (std::vector<int>{1}));
    // A pass exactly at the limit does not run.
    PointInterpolator atLimit(points, 10.0, 20.0, 3);
    atLimit.search({0, 0, 0}, listed);
    EXPECT_EQ(listed, (std::vector<int>{1}));
}

TEST(PointGrid, ImportFileLines)
{
    const std::string path = tempPath("points.txt");
    std::ofstream(path, std::ios::binary) << "x,y,z\r\n"                 // three fields: read as 0, 0, 0
                                          << "1.5,2.5,3.5\r\n"
                                          << "  4   5  6  \n"            // blanks folded
                                          << "7\t8\t9\n"                 // tabs: one field, skipped
                                          << "1,2\n"                     // two fields
                                          << "1 2 3 4\n"                 // four fields
                                          << "\n"
                                          << "10, 20 ,30";               // last line without a line end
    std::vector<Point3d> points;
    int cause = 0;
    ASSERT_TRUE(vorn::readPointFile(path, points, cause));
    const std::vector<Point3d> expected = {{0, 0, 0}, {1.5, 2.5, 3.5}, {4, 5, 6}, {10, 20, 30}};
    EXPECT_EQ(points, expected);

    std::ofstream(path, std::ios::binary) << "";
    ASSERT_TRUE(vorn::readPointFile(path, points, cause));
    EXPECT_TRUE(points.empty());
    // Bytes of every value read without harm; lines of three fields count.
    std::string bytes;
    for (int k = 0; k < 4096; ++k) bytes += static_cast<char>((k * 37) & 0xff);
    std::ofstream(path, std::ios::binary) << bytes;
    EXPECT_TRUE(vorn::readPointFile(path, points, cause));
    EXPECT_FALSE(vorn::readPointFile(tempPath("missing/none.txt"), points, cause));
    EXPECT_NE(cause, 0);

    // A million lines are read in one pass.
    {
        std::ofstream big(path, std::ios::binary);
        for (int k = 0; k < 1000000; ++k) big << k << ",2," << (k % 13) << "\n";
    }
    ASSERT_TRUE(vorn::readPointFile(path, points, cause));
    EXPECT_EQ(points.size(), 1000000u);
    EXPECT_EQ(points.back(), (Point3d{999999, 2, 999999 % 13}));
}
