// The contour interpolation: the indexed search against the plain window
// by window search over every contour, and the rules of the value.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>

#include "generators/contour_grid.h"

using vorn::ContourInterpolator;
using vorn::ContourLine;
using vorn::Point2d;
using vorn::Point3d;

namespace {

// The plain search: every window selects over every contour, each found
// contour gives its closest point over all its segments.
vorn::ContourCellResult plainContourValue(const std::vector<ContourLine>& contours, const Point3d& p, double dx,
                                          double searchLimit, int* windows = nullptr)
{
    vorn::ContourCellResult result;
    std::vector<int> found;
    double w = dx;
    int count = 0;
    for (;;) {
        found.clear();
        ++count;
        for (int c = 0; c < static_cast<int>(contours.size()); ++c)
            if (vorn::windowCrossesContour(contours[c], {p.x - w, p.y - w}, {p.x + w, p.y + w})) found.push_back(c);
        w += dx;
        result.found = static_cast<int>(found.size());
        if (w > searchLimit && found.size() < 4) {
            if (windows) *windows = count;
            return result;
        }
        if (found.size() >= 4) break;
    }
    if (windows) *windows = count;
    std::vector<Point3d> closest;
    for (int c : found) closest.push_back(vorn::closestPointOnContour(contours[c], p));
    result.enough = true;
    result.value = vorn::contourValueFromClosest(closest, p);
    return result;
}

bool sameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

// Contours on a lattice of half cells, so that window edges meet vertices
// and segments exactly; elevations repeat; some are 3-D, some closed, some
// a single vertex.
std::vector<ContourLine> randomContours(std::mt19937& random, int count, double dx, int span, double offset)
{
    std::uniform_int_distribution<int> coordinate(-4, 2 * span + 4);
    std::uniform_int_distribution<int> length(1, 7);
    std::uniform_int_distribution<int> level(0, 5);
    std::uniform_int_distribution<int> kind(0, 9);
    std::vector<ContourLine> contours;
    for (int c = 0; c < count; ++c) {
        ContourLine line;
        double z = 100.0 + 10.0 * level(random);
        int n = length(random);
        int k = kind(random);
        for (int v = 0; v < n; ++v) {
            double vz = k == 0 ? z + v * 3.5 : z;
            line.push_back({offset + coordinate(random) * dx * 0.5, offset + coordinate(random) * dx * 0.5, vz});
        }
        if (k == 1 && n > 2) line.push_back(line.front());
        contours.push_back(line);
    }
    return contours;
}

}  // namespace

TEST(ContourGrid, IndexedSearchGivesThePlainValuesOnRandomLayouts)
{
    std::mt19937 random(11);
    for (int layout = 0; layout < 120; ++layout) {
        const double dx = layout % 3 == 0 ? 10.0 : 2.5;
        const int span = 12;
        // Far from the origin now and then, as in state plane coordinates.
        const double offset = layout % 7 == 0 ? 1234567.0 : 0.0;
        std::vector<ContourLine> contours = randomContours(random, 3 + layout % 9, dx, span, offset);
        const double limit = span * dx * (layout % 4 == 0 ? 0.3 : 1.0);
        ContourInterpolator fast(contours, dx, limit);
        for (int i = 0; i <= span; ++i)
            for (int j = 0; j <= span; ++j) {
                Point3d p{offset + (i + 0.5) * dx, offset + (j + 0.5) * dx, layout % 5 == 0 ? 7.0 : 0.0};
                int plainWindows = 0, fastWindows = 0;
                vorn::ContourCellResult expected = plainContourValue(contours, p, dx, limit, &plainWindows);
                vorn::ContourCellResult got = fast.valueAt(p, [&](const Point2d&, const Point2d&) { ++fastWindows; });
                ASSERT_EQ(expected.enough, got.enough) << "layout " << layout << " cell " << i << "," << j;
                ASSERT_EQ(expected.found, got.found) << "layout " << layout << " cell " << i << "," << j;
                ASSERT_EQ(plainWindows, fastWindows);
                if (expected.enough) {
                    ASSERT_TRUE(sameBits(expected.value, got.value)) << expected.value << " " << got.value;
                }
            }
    }
}

TEST(ContourGrid, ValueRules)
{
    const Point3d p{0.0, 0.0, 0.0};
    struct Case {
        const char* what;
        std::vector<Point3d> closest;
        double value;
    };
    const Case cases[] = {
        // Nearest 100 at 1 to the left, 110 at 3 to the right: interpolated.
        {"opposite sides", {{3, 0, 110}, {-1, 0, 100}, {0, 5, 120}, {0, -6, 90}}, 102.5},
        // Both nearest on one side: the value goes on beyond the nearest.
        {"one side", {{1, 0, 100}, {3, 0, 110}, {4, 0, 120}, {5, 0, 130}}, 95.0},
        // No opposite one: the first higher one pairs with the nearest.
        {"first higher", {{1, 0, 100}, {2, 0, 100}, {3, 0, 130}, {4, 0, 90}}, 85.0},
        // A centre on a contour takes its elevation.
        {"on a contour", {{2, 0, 110}, {0, 0, 100}, {-3, 0, 90}, {0, 4, 130}}, 100.0},
    };
    for (const Case& c : cases) {
        std::vector<Point3d> q = c.closest;
        EXPECT_DOUBLE_EQ(vorn::contourValueFromClosest(q, p), c.value) << c.what;
    }
}

TEST(ContourGrid, ThreeContoursAreTooFewEverywhere)
{
    std::vector<ContourLine> contours = {{{0, 0, 10}, {100, 0, 10}}, {{0, 50, 20}, {100, 50, 20}}, {{0, 90, 30}, {100, 90, 30}}};
    ContourInterpolator interpolator(contours, 10.0, 100.0);
    int windows = 0;
    vorn::ContourCellResult result = interpolator.valueAt({45, 45, 0}, [&](const Point2d&, const Point2d&) { ++windows; });
    EXPECT_FALSE(result.enough);
    EXPECT_EQ(result.found, 3);
    EXPECT_EQ(windows, 10);  // dx, 2 dx, ... up to the limit
}

TEST(ContourGrid, WindowCrossingCountsTouchingEdgesAndCorners)
{
    const ContourLine vertical{{10, -5, 0}, {10, 5, 0}};
    EXPECT_TRUE(vorn::windowCrossesContour(vertical, {0, 0}, {10, 10}));    // on the edge
    EXPECT_FALSE(vorn::windowCrossesContour(vertical, {0, 0}, {9.99, 10}));
    const ContourLine corner{{12, -2, 0}, {8, 2, 0}};  // through the corner (10, 0)
    EXPECT_TRUE(vorn::windowCrossesContour(corner, {10, 0}, {20, 10}));
    const ContourLine inside{{2, 2, 0}, {3, 3, 0}};
    EXPECT_TRUE(vorn::windowCrossesContour(inside, {0, 0}, {10, 10}));
}
