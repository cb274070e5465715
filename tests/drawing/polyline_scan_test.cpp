// The pair scans of the polyline checks against the plain quadratic loops
// they stand for: same findings in the same order on random plans.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "drawing/polygon.h"
#include "drawing/polyline_scan.h"

using vorn::Extents3d;
using vorn::PairFinding;
using vorn::Point2d;
using Polygons = std::vector<std::vector<Point2d>>;

namespace {

// The overlap check as written: every later polygon against the seed's hull.
std::vector<PairFinding> literalOverlaps(const Polygons& polygons)
{
    std::vector<bool> listed(polygons.size(), false);
    std::vector<PairFinding> findings;
    for (size_t a = 0; a + 1 < polygons.size(); ++a) {
        if (listed[a]) continue;
        std::vector<Point2d> points = polygons[a], hull;
        convexHull(points, hull);
        PairFinding f{a, {}};
        for (size_t b = a + 1; b < polygons.size(); ++b) {
            if (overlapArea(hull, polygons[b]) > 1e-10) {
                listed[a] = listed[b] = true;
                f.partners.push_back(b);
            }
        }
        if (!f.partners.empty()) findings.push_back(f);
    }
    return findings;
}

// The duplicate check as written: areas compared per pair, then the overlap.
std::vector<PairFinding> literalDuplicates(const std::vector<double>& areas,
                                           const std::function<double(size_t, size_t)>& common)
{
    std::vector<bool> listed(areas.size(), false);
    std::vector<PairFinding> findings;
    for (size_t a = 0; a + 1 < areas.size(); ++a) {
        if (listed[a] || areas[a] < 0.0) continue;
        PairFinding f{a, {}};
        for (size_t b = a + 1; b < areas.size(); ++b) {
            if (areas[b] < 0.0 || std::fabs(areas[a] - areas[b]) > 1e-10) continue;
            double o = common(a, b);
            if (o > 0.0 && std::fabs(areas[a] - o) < 1e-10) {
                listed[a] = listed[b] = true;
                f.partners.push_back(b);
            }
        }
        if (!f.partners.empty()) findings.push_back(f);
    }
    return findings;
}

std::vector<size_t> literalContours(const std::vector<double>& z, const std::function<bool(size_t, size_t)>& meet)
{
    std::vector<size_t> listed;
    auto list = [&listed](size_t k) {
        if (std::find(listed.begin(), listed.end(), k) == listed.end()) listed.push_back(k);
    };
    for (size_t a = 0; a < z.size(); ++a)
        for (size_t b = a + 1; b < z.size(); ++b)
            if (std::fabs(z[a] - z[b]) > 1e-10 && meet(a, b)) {
                list(a);
                list(b);
            }
    return listed;
}

double shoelace(const std::vector<Point2d>& p)
{
    double sum = 0.0;
    for (size_t i = 0; i < p.size(); ++i) sum += p[i].x * p[(i + 1) % p.size()].y - p[(i + 1) % p.size()].x * p[i].y;
    return std::fabs(sum) / 2.0;
}

// Rectangles and triangles on a field where many meet, some touching along
// an edge, some repeated (forwards or backwards), a few degenerate. Whole
// coordinates far from the origin, as on a mine plan.
Polygons randomPlan(unsigned seed, int count)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> at(0, 60), size(1, 8), kind(0, 9);
    const double x0 = 512000.0, y0 = 4210000.0;
    Polygons plan;
    for (int k = 0; k < count; ++k) {
        int choice = kind(random);
        if (choice == 0 && !plan.empty()) {
            std::vector<Point2d> copy = plan[std::uniform_int_distribution<size_t>(0, plan.size() - 1)(random)];
            if (random() % 2) std::reverse(copy.begin(), copy.end());
            plan.push_back(copy);
            continue;
        }
        double x = x0 + at(random), y = y0 + at(random), w = size(random), h = size(random);
        if (choice == 1)
            plan.push_back({{x, y}, {x + w, y}, {x + w, y}});  // no area
        else if (choice < 5)
            plan.push_back({{x, y}, {x + w, y}, {x, y + h}});
        else
            plan.push_back({{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}, {x, y}});
    }
    return plan;
}

bool segmentsMeet(const std::vector<Point2d>& s, const std::vector<Point2d>& t)
{
    auto side = [](Point2d a, Point2d b, Point2d c) { return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x); };
    double d1 = side(s[0], s[1], t[0]), d2 = side(s[0], s[1], t[1]);
    double d3 = side(t[0], t[1], s[0]), d4 = side(t[0], t[1], s[1]);
    return d1 * d2 <= 0.0 && d3 * d4 <= 0.0 && std::max(s[0].x, s[1].x) >= std::min(t[0].x, t[1].x) &&
           std::max(t[0].x, t[1].x) >= std::min(s[0].x, s[1].x) && std::max(s[0].y, s[1].y) >= std::min(t[0].y, t[1].y) &&
           std::max(t[0].y, t[1].y) >= std::min(s[0].y, s[1].y);
}

}  // namespace

TEST(PolylineScan, OverlapsAndDuplicatesMatchThePlainLoops)
{
    for (unsigned seed = 1; seed <= 12; ++seed) {
        Polygons plan = randomPlan(seed, 150);
        std::vector<PairFinding> expected = literalOverlaps(plan);
        EXPECT_EQ(vorn::findOverlaps(plan, {}), expected) << "seed " << seed;
        EXPECT_FALSE(expected.empty());

        std::vector<double> areas;
        std::vector<Extents3d> boxes;
        for (const auto& p : plan) {
            areas.push_back(p.size() == 3 && p[1] == p[2] ? -1.0 : shoelace(p));
            boxes.push_back(vorn::planExtents(p));
        }
        auto common = [&plan](size_t a, size_t b) { return overlapArea(plan[a], plan[b]); };
        std::vector<PairFinding> duplicates = literalDuplicates(areas, common);
        EXPECT_EQ(vorn::findDuplicates(areas, boxes, common, {}), duplicates) << "seed " << seed;
        EXPECT_FALSE(duplicates.empty());
    }
}

TEST(PolylineScan, ContoursMatchThePlainLoop)
{
    for (unsigned seed = 1; seed <= 12; ++seed) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> at(0.0, 100.0);
        Polygons lines;
        std::vector<double> z;
        std::vector<Extents3d> boxes;
        for (int k = 0; k < 200; ++k) {
            lines.push_back({{at(random), at(random)}, {at(random), at(random)}});
            z.push_back(static_cast<double>(random() % 3));
            boxes.push_back(vorn::planExtents(lines.back()));
        }
        auto meet = [&lines](size_t a, size_t b) { return segmentsMeet(lines[a], lines[b]); };
        EXPECT_EQ(vorn::findCrossingContours(z, boxes, meet, {}), literalContours(z, meet)) << "seed " << seed;
    }
}

TEST(PolylineScan, HooksSeeEachFindingAndABreakEndsTheScan)
{
    Polygons plan{{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{5, 5}, {15, 5}, {15, 15}, {5, 15}}, {{50, 0}, {60, 0}, {60, 10}},
                  {{55, 1}, {58, 1}, {58, 3}}, {{100, 0}, {101, 0}, {101, 1}}};
    std::vector<std::pair<size_t, size_t>> pairs;
    std::vector<size_t> seeds, finished;
    vorn::ScanControl control;
    control.seedStarted = [&seeds](size_t a) { seeds.push_back(a); };
    control.pairFound = [&pairs](size_t a, size_t b) { pairs.push_back({a, b}); };
    control.seedFinished = [&finished](size_t a, bool found) {
        if (found) finished.push_back(a);
    };
    std::vector<PairFinding> findings = vorn::findOverlaps(plan, control);
    EXPECT_EQ(vorn::listedPolygons(findings), (std::vector<size_t>{0, 1, 2, 3}));
    EXPECT_EQ(pairs, (std::vector<std::pair<size_t, size_t>>{{0, 1}, {2, 3}}));
    EXPECT_EQ(seeds, (std::vector<size_t>{0, 2}));  // listed polygons are no seeds
    EXPECT_EQ(finished, (std::vector<size_t>{0, 2}));

    control.stopRequested = [] { return true; };
    EXPECT_EQ(vorn::listedPolygons(vorn::findOverlaps(plan, control)), (std::vector<size_t>{0, 1}));
}
