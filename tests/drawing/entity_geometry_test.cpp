#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "drawing/entity_geometry.h"
#include "drawing/platform.h"
#include "drawing/polygon.h"
#include "drawing/polyline_join.h"
#include "host/db_database.h"

using vorn::Entity;
using vorn::LwPolyline;
using vorn::ObjectId;
using vorn::Point2d;

namespace {

LwPolyline polyline(const std::vector<Point2d>& points, bool closed = false, double elevation = 0.0)
{
    LwPolyline pl;
    for (const Point2d& p : points)
        pl.vertices.push_back({p, 0.0, -1.0, -1.0});
    pl.closed = closed;
    pl.elevation = elevation;
    return pl;
}

std::vector<Point2d> square(double x, double y, double size)
{
    return {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}};
}

std::vector<Point2d> planPoints(const Entity& e)
{
    std::vector<Point2d> out;
    for (const vorn::PolyVertex& v : e.as<LwPolyline>()->vertices)
        out.push_back(v.point);
    return out;
}

// A drawing in memory installed as the platform's database.
class DrawingTest : public ::testing::Test {
protected:
    DrawingTest() : guard_(vorn::Platform{&db, nullptr, nullptr, nullptr}) {}

    ObjectId add(vorn::EntityShape shape, int color = vorn::kColorByLayer)
    {
        Entity e{{}, std::move(shape)};
        e.common.colorIndex = color;
        ObjectId id;
        EXPECT_EQ(db.appendToModelSpace(e, id), vorn::eOk);
        return id;
    }

    ObjectId addPolyline(const std::vector<Point2d>& points, bool closed = false, double elevation = 0.0) { return add(polyline(points, closed, elevation)); }

    double area(const Entity& e) { return db.getArea(e, areaOut_) == vorn::eOk ? areaOut_ : -1.0; }

    vorn::host::HostDatabase db;

private:
    double areaOut_ = 0.0;
    vorn::ScopedPlatform guard_;
};

void expectPoints(const std::vector<Point2d>& actual, const std::vector<Point2d>& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i].x, expected[i].x, 1e-9) << "vertex " << i;
        EXPECT_NEAR(actual[i].y, expected[i].y, 1e-9) << "vertex " << i;
    }
}

}  // namespace

TEST_F(DrawingTest, VerticesAreaAndClosureById)
{
    std::vector<Point2d> pts;
    EXPECT_EQ(getEntityVertices2d(addPolyline(square(0, 0, 2), true, 5.0), pts), 5);
    EXPECT_EQ(pts.front(), pts.back());
    EXPECT_EQ(getEntityVertices2d(ObjectId{}, pts), 0);
    ObjectId closedSquare = addPolyline(square(0, 0, 2), true);
    EXPECT_NEAR(curveArea(closedSquare), 4.0, 1e-9);
    EXPECT_TRUE(isClosedCurve(closedSquare));
    EXPECT_FALSE(isClosedCurve(addPolyline(square(0, 0, 2))));
    EXPECT_EQ(curveArea(add(vorn::Text{{0, 0, 0}, 1.0, 0.0, "x"})), -1.0);
    EXPECT_EQ(curveArea(ObjectId{}), -1.0);
}

TEST_F(DrawingTest, RegionOverlapOfClosedCurves)
{
    ObjectId a = addPolyline(square(0, 0, 2), true);
    ObjectId b = addPolyline(square(1, 1, 2), true);
    EXPECT_NEAR(regionOverlapArea(a, b), 1.0, 1e-9);
    EXPECT_NEAR(regionOverlapArea(a, a), 4.0, 1e-9);  // B covers A wholly
    EXPECT_NEAR(regionOverlapArea(a, addPolyline(square(5, 5, 1), true)), 0.0, 1e-9);
    EXPECT_EQ(regionOverlapArea(a, addPolyline(square(0, 0, 1))), -1.0);  // open: no region
    EXPECT_EQ(regionOverlapArea(addPolyline(square(0, 0, 1)), a), -1.0);
    // The source curves are left as they were.
    EXPECT_NEAR(curveArea(a), 4.0, 1e-9);
    EXPECT_FALSE(db.isErased(b));
    // Curves intersect in plan whatever their elevation.
    ObjectId low = addPolyline({{0, 0}, {4, 4}}, false, 0.0);
    ObjectId high = addPolyline({{0, 4}, {4, 0}}, false, 10.0);
    ObjectId apart = addPolyline({{10, 0}, {10, 4}}, false, 0.0);
    EXPECT_TRUE(curvesIntersect(low, high));
    EXPECT_FALSE(curvesIntersect(low, apart));
}

TEST_F(DrawingTest, ClosedCopyNeedsAreaOffsetGoesOutwardEitherWayRound)
{
    Entity copy;
    ASSERT_TRUE(makeClosedPolylineFromEntity(addPolyline({{0, 0}, {3, 0}, {3, 3}}, false, 7.0), copy));
    const LwPolyline& pl = *copy.as<LwPolyline>();
    EXPECT_TRUE(pl.closed);
    EXPECT_EQ(pl.elevation, 0.0);
    EXPECT_EQ(pl.vertices.size(), 3u);
    EXPECT_NEAR(area(copy), 4.5, 1e-9);
    // A closed source keeps its repeated first point as a vertex.
    ASSERT_TRUE(makeClosedPolylineFromEntity(addPolyline(square(0, 0, 1), true), copy));
    EXPECT_EQ(copy.as<LwPolyline>()->vertices.size(), 5u);
    EXPECT_FALSE(makeClosedPolylineFromEntity(addPolyline({{0, 0}, {3, 0}, {6, 0}}), copy));
    EXPECT_FALSE(makeClosedPolylineFromEntity(addPolyline({{0, 0}, {3, 3}}), copy));
    EXPECT_FALSE(makeClosedPolylineFromEntity(add(vorn::PointEntity{{1, 1, 0}}), copy));
    // The offset polyline is built of the vertices as read, the closing
    // point repeated, and is not itself closed: its ends meet at the first
    // corner without a joined corner there.
    std::vector<Point2d> ccw = square(0, 0, 4);
    Entity grown, shrunk;
    ASSERT_TRUE(makeOffsetBoundary(addPolyline(ccw, true), 1.0, grown));
    ASSERT_TRUE(makeOffsetBoundary(addPolyline(ccw, true), -1.0, shrunk));
    expectPoints(planPoints(grown), {{0, -1}, {5, -1}, {5, 5}, {-1, 5}, {-1, 0}});
    expectPoints(planPoints(shrunk), {{0, 1}, {3, 1}, {3, 3}, {1, 3}, {1, 0}});
    EXPECT_FALSE(grown.as<LwPolyline>()->closed);
    // Clockwise the same way outward, along the reversed outline.
    std::vector<Point2d> cw{{0, 0}, {0, 4}, {4, 4}, {4, 0}};
    ASSERT_TRUE(makeOffsetBoundary(addPolyline(cw, true), 1.0, grown));
    expectPoints(planPoints(grown), {{-1, 0}, {-1, 5}, {5, 5}, {5, -1}, {0, -1}});
    Entity none;
    EXPECT_FALSE(makeOffsetBoundary(addPolyline(ccw, true), 5e-11, none));
    EXPECT_FALSE(makeOffsetBoundary(add(vorn::PointEntity{{1, 1, 0}}), 1.0, none));
    // A straight line offsets to a curve of 2 vertices: no boundary.
    EXPECT_FALSE(makeOffsetBoundary(addPolyline({{0, 0}, {4, 0}}), 1.0, none));
}

TEST_F(DrawingTest, CenterLineStripAroundAnOpenLineRingAroundAClosedOne)
{
    Entity strip;
    ASSERT_TRUE(makeCenterLineBoundary(addPolyline({{0, 0}, {10, 0}}), 1.0, strip));
    const LwPolyline& pl = *strip.as<LwPolyline>();
    EXPECT_TRUE(pl.closed);
    EXPECT_EQ(pl.vertices.size(), 4u);
    EXPECT_NEAR(area(strip), 20.0, 1e-9);
    for (const vorn::PolyVertex& v : pl.vertices)
        EXPECT_NEAR(std::fabs(v.point.y), 1.0, 1e-9);
    Entity none;
    EXPECT_FALSE(makeCenterLineBoundary(addPolyline({{0, 0}, {10, 0}}), 0.0, none));
    EXPECT_FALSE(makeCenterLineBoundary(add(vorn::PointEntity{{1, 1, 0}}), 1.0, none));

    // Around a closed line, one curve on each side: the outer one in order,
    // then the inner one backwards, joined at the seam where the line starts.
    Entity ring;
    ASSERT_TRUE(makeCenterLineBoundary(addPolyline(square(0, 0, 6), true), 1.0, ring));
    EXPECT_TRUE(ring.as<LwPolyline>()->closed);
    expectPoints(planPoints(ring), {{0, -1}, {7, -1}, {7, 7}, {-1, 7}, {-1, 0},
                                    {1, 0}, {1, 5}, {5, 5}, {5, 1}, {0, 1}});
    EXPECT_NEAR(area(ring), 64.0 - 0.5 - (16.0 - 0.5), 1e-9);
}

TEST_F(DrawingTest, JoinPolylineSetChainsMeetingEndsOnly)
{
    ObjectId middle = addPolyline({{1, 0}, {2, 0}});
    ObjectId first = addPolyline({{0, 0}, {1, 0}});
    ObjectId last = addPolyline({{3, 0}, {2, 0}});  // reversed
    ObjectId line = add(vorn::Line{{2, 0, 0}, {2, 5, 0}});
    ObjectId apart = addPolyline({{5, 5}, {6, 5}});
    ObjectId higher = addPolyline({{0, 0}, {1, 0}}, false, 2.0);  // same plan, other elevation
    resetPolylineJoinCount();
    std::vector<ObjectId> ids{middle, first, line, last, apart, higher};
    joinPolylineSet(ids);
    EXPECT_EQ(polylineJoinCount(), 2);
    ASSERT_EQ(ids, std::vector<ObjectId>{middle});
    EXPECT_TRUE(db.isErased(first) && db.isErased(last));
    EXPECT_FALSE(db.isErased(line) || db.isErased(apart) || db.isErased(higher));
    Entity joined;
    ASSERT_EQ(db.readEntity(middle, joined), vorn::eOk);
    // Meeting vertices stand twice: 0,1 | 1,2 | 2,3.
    std::vector<double> xs;
    for (const Point2d& p : planPoints(joined))
        xs.push_back(p.x);
    EXPECT_EQ(xs, (std::vector<double>{0, 1, 1, 2, 2, 3}));
    // A reversed duplicate joins too.
    ObjectId a = addPolyline({{0, 0}, {1, 0}, {1, 1}});
    ids = {a, addPolyline({{1, 1}, {1, 0}, {0, 0}})};
    joinPolylineSet(ids);
    EXPECT_EQ(ids, std::vector<ObjectId>{a});
    db.readEntity(a, joined);
    EXPECT_EQ(joined.as<LwPolyline>()->vertices.size(), 6u);
}

TEST_F(DrawingTest, MergeRegionsByColorUnitesEachColour)
{
    auto region = [&](const std::vector<Point2d>& outline) {
        Entity out;
        EXPECT_GT(makeRegionFromCurve(Entity{{}, polyline(outline, true)}, out), 0.0);
        return *out.as<vorn::Region>();
    };
    ObjectId red1 = add(region(square(0, 0, 2)), 1);
    ObjectId green = add(region(square(1, 0, 2)), 3);
    ObjectId red2 = add(region(square(1, 1, 2)), 1);
    ObjectId red3 = add(region(square(10, 10, 1)), 1);
    std::vector<ObjectId> ids{red1, green, red2, red3};
    mergeRegionsByColor(ids);
    EXPECT_EQ(ids, (std::vector<ObjectId>{red1, green}));
    Entity merged;
    ASSERT_EQ(db.readEntity(red1, merged), vorn::eOk);
    EXPECT_EQ(merged.common.colorIndex, 1);
    EXPECT_NEAR(area(merged), 4.0 + 4.0 - 1.0 + 1.0, 1e-9);
    // The emptied partners stay in the drawing.
    EXPECT_FALSE(db.isErased(red2));
    EXPECT_FALSE(db.isErased(red3));
}
