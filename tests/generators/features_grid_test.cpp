// The linear feature grid: the cells found near a feature against every
// cell of its window, with the host's closest point, and the combination
// rules of the values.
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "generators/features_grid.h"
#include "grid/grid.h"
#include "host/db_database.h"

using vorn::Entity;
using vorn::Point3d;

namespace {

struct FeatureRun {
    Entity entity;
    vorn::CellWindow window;
};

vorn::CellWindow windowOf(const myGrid& grid, const vorn::host::HostDatabase& db, const Entity& feature, double d)
{
    vorn::Extents3d e;
    db.getGeomExtents(feature, e);
    int i0, j0, i1, j1;
    grid.getCellOfPointClamped({e.minPoint.x - d, e.minPoint.y - d}, i0, j0);
    grid.getCellOfPointClamped({e.maxPoint.x + d, e.maxPoint.y + d}, i1, j1);
    return {std::min(i0, i1), std::max(i0, i1), std::min(j0, j1), std::max(j0, j1)};
}

// Rates the features into a fresh grid, over every window cell (plain) or
// over the cells found near each feature (fast).
void rate(myGrid& grid, const std::vector<Entity>& features, double d, bool accumulate, bool fast)
{
    vorn::host::HostDatabase db;
    grid.setAll(0.0);
    vorn::FeatureCells nearCells(grid);
    std::vector<vorn::CellIndex> cells;
    for (const Entity& feature : features) {
        vorn::CellWindow w = windowOf(grid, db, feature, d);
        if (fast) {
            nearCells.near(vorn::featureSegments(feature), d, w, cells);
        } else {
            cells.clear();
            for (int i = w.i0; i <= w.i1; ++i)
                for (int j = w.j0; j <= w.j1; ++j) cells.push_back({i, j});
        }
        vorn::rateFeatureCells(grid, cells, d, accumulate, [&](const Point3d& c, Point3d& q) {
            return db.getClosestPointTo(feature, c, {0, 0, 1}, q) == vorn::eOk;
        });
    }
}

Entity polyline(std::vector<vorn::PolyVertex> vertices, bool closed = false)
{
    Entity e;
    e.shape = vorn::LwPolyline{std::move(vertices), closed, 0.0, 0.0};
    return e;
}

std::vector<Entity> randomFeatures(std::mt19937& random, int count, double dx, int span)
{
    std::uniform_int_distribution<int> coordinate(-6, 2 * span + 6);
    std::uniform_int_distribution<int> length(1, 6);
    std::uniform_int_distribution<int> kind(0, 5);
    const double bulges[] = {0.0, 0.0, 0.5, -0.4, 2.0, -1.5};
    std::vector<Entity> features;
    for (int f = 0; f < count; ++f) {
        int k = kind(random);
        int n = length(random);
        auto point = [&] { return vorn::Point2d{coordinate(random) * dx * 0.5, coordinate(random) * dx * 0.5}; };
        if (k == 0) {
            Entity e;
            vorn::Polyline3d p3;
            for (int v = 0; v < n + 1; ++v) p3.vertices.push_back({{point().x, point().y, v * 7.0}, 0});
            e.shape = p3;
            features.push_back(e);
        } else if (k == 1) {
            Entity e;
            vorn::Point2d a = point(), b = f % 2 ? a : point();  // zero-length now and then
            e.shape = vorn::Line{{a.x, a.y, 0}, {b.x, b.y, 0}};
            features.push_back(e);
        } else {
            std::vector<vorn::PolyVertex> vs;
            for (int v = 0; v < n; ++v) vs.push_back({point(), bulges[(f + v) % 6], -1, -1});
            features.push_back(polyline(vs, k == 2));
        }
    }
    return features;
}

bool sameGrid(const myGrid& a, const myGrid& b)
{
    for (int i = 0; i <= a.xNum; ++i)
        if (std::memcmp(a.values[i], b.values[i], sizeof(double) * (a.yNum + 1)) != 0) return false;
    return true;
}

}  // namespace

TEST(FeatureGrid, NearCellsGiveThePlainGridOnRandomLayouts)
{
    std::mt19937 random(5);
    for (int layout = 0; layout < 60; ++layout) {
        const double dx = layout % 2 ? 5.0 : 2.0;
        const int span = 16;
        myGrid plain, fast;
        for (myGrid* g : {&plain, &fast}) {
            g->setOrigin(0.0, 0.0, 0.0);
            g->setup(span, span - 3, dx, dx * (layout % 3 ? 1.0 : 1.5), layout % 4 == 0 ? 30.0 : 0.0);
        }
        std::vector<Entity> features = randomFeatures(random, 1 + layout % 8, dx, span);
        // Influence distances that land exactly on cell centres too.
        const double d = dx * (0.5 + layout % 4);
        for (bool accumulate : {false, true}) {
            rate(plain, features, d, accumulate, false);
            rate(fast, features, d, accumulate, true);
            ASSERT_TRUE(sameGrid(plain, fast)) << "layout " << layout << (accumulate ? " accumulated" : "");
        }
    }
}

TEST(FeatureGrid, CrossingFeaturesTakeTheMaximumOrTheCappedSum)
{
    myGrid grid;
    grid.setOrigin(0.0, 0.0, 0.0);
    grid.setup(10, 10, 10.0, 10.0, 0.0);
    // Two faults crossing at the centre of cell (4, 4), and a cell centre
    // exactly at the influence distance of the first.
    std::vector<Entity> faults = {polyline({{{45, -10}}, {{45, 110}}}), polyline({{{-10, 45}}, {{110, 45}}})};
    rate(grid, faults, 20.0, false, true);
    EXPECT_DOUBLE_EQ(grid.getValue(4, 4), 100.0);
    EXPECT_DOUBLE_EQ(grid.getValue(5, 5), 50.0);  // 10 from each: the greater of 50 and 50
    EXPECT_DOUBLE_EQ(grid.getValue(6, 0), 0.0);   // 20 from the first, far from the second
    rate(grid, faults, 20.0, true, true);
    EXPECT_DOUBLE_EQ(grid.getValue(5, 5), 100.0);  // 50 + 50
    EXPECT_DOUBLE_EQ(grid.getValue(4, 4), 100.0);  // 100 + 100, capped
    EXPECT_DOUBLE_EQ(grid.getValue(5, 0), 50.0);   // the second is 40 away
}

TEST(FeatureGrid, SegmentsOfEachKind)
{
    vorn::Polyline2d heavy;
    heavy.closed = true;
    heavy.elevation = 4.0;
    heavy.vertices = {{{0, 0, 0}, 0.5}, {{5, 5, 0}, 0.0, 0, 0, vorn::k2dSplineCtlVertex}, {{10, 0, 0}}, {{10, 10, 0}}};
    Entity e;
    e.shape = heavy;
    std::vector<vorn::FeatureSegment> s = vorn::featureSegments(e);
    ASSERT_EQ(s.size(), 3u);  // the control vertex left out, the closing segment in
    EXPECT_EQ(s[0].bulge, 0.5);
    EXPECT_EQ(s[2].b, (Point3d{0, 0, 4}));
    EXPECT_EQ(vorn::featureSegments(polyline({{{3, 4}}})).size(), 1u);
}
