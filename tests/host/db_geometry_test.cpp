// Curve and region geometry answered by the stand-alone database.
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "host/db_database.h"
#include "drawing/geometry_curves.h"

namespace vorn::host {
namespace {

constexpr double kPi = std::numbers::pi;
const Vector3d kPlan{0, 0, 1};

Entity entityOf(EntityShape shape) { return Entity{{}, std::move(shape)}; }

Entity polyline(std::vector<PolyVertex> vertices, bool closed = false, double elevation = 0.0)
{
    return entityOf(LwPolyline{std::move(vertices), closed, elevation, 0.0});
}

Entity square(double x0, double y0, double size, bool clockwise = false)
{
    std::vector<PolyVertex> v{{{x0, y0}}, {{x0 + size, y0}}, {{x0 + size, y0 + size}}, {{x0, y0 + size}}};
    if (clockwise) std::reverse(v.begin(), v.end());
    return polyline(v, true);
}

double area(const HostDatabase& db, const Entity& e)
{
    double a = -1.0;
    EXPECT_EQ(db.getArea(e, a), eOk);
    return a;
}

TEST(DbCurves, BulgedSegmentsAreArcsForLengthPointsAndArea)
{
    HostDatabase db;
    // A circle of radius 5 from two half-circle segments.
    Entity circle = polyline({{{0, 0}, 1.0}, {{10, 0}, 1.0}}, true, 3.0);
    EXPECT_NEAR(area(db, circle), kPi * 25.0, 1e-9);
    Point3d p;
    ASSERT_EQ(db.getPointAtDist(circle, kPi * 5.0 / 2.0, p), eOk);  // a quarter turn
    EXPECT_NEAR(p.x, 5.0, 1e-9);
    EXPECT_NEAR(p.y, -5.0, 1e-9);  // bulge +1 runs counter-clockwise: below the chord first
    EXPECT_NEAR(p.z, 3.0, 1e-12);
    double d = 0.0;
    ASSERT_EQ(db.getDistAtPoint(circle, {10, 0, 3}, d), eOk);
    EXPECT_NEAR(d, kPi * 5.0, 1e-9);
    EXPECT_EQ(db.getPointAtDist(circle, 100.0, p), eInvalidInput);
    EXPECT_EQ(db.getDistAtPoint(circle, {5, 0, 0}, d), eInvalidInput);  // the centre is not on it
    Point3d end;
    db.getEndPoint(circle, end);
    EXPECT_TRUE(end.isEqualTo({0, 0, 3}));
    EXPECT_TRUE(db.isClosed(circle));
}

TEST(DbCurves, ClosestPointInPlanKeepsTheCurvesElevation)
{
    HostDatabase db;
    Entity contour = polyline({{{0, 0}}, {{10, 0}}, {{10, 10}}}, false, 250.0);
    Point3d q;
    ASSERT_EQ(db.getClosestPointTo(contour, {4, -3, 0}, kPlan, q), eOk);
    EXPECT_TRUE(q.isEqualTo({4, 0, 250}));
    ASSERT_EQ(db.getClosestPointTo(contour, {20, 20, 7}, kPlan, q), eOk);
    EXPECT_TRUE(q.isEqualTo({10, 10, 250}));
    EXPECT_EQ(db.getClosestPointTo(contour, {0, 0, 0}, {1, 0, 0}, q), eNotImplementedYet);
    Entity text = entityOf(Text{});
    EXPECT_EQ(db.getClosestPointTo(text, {0, 0, 0}, kPlan, q), eNotApplicable);
}

TEST(DbCurves, IntersectionsInPlanIgnoreElevationExtentsReachQuadrants)
{
    HostDatabase db;
    Entity low = polyline({{{0, 0}}, {{10, 10}}}, false, 100.0);
    Entity high = polyline({{{0, 10}}, {{10, 0}}}, false, 200.0);
    auto crossings = [&db](const Entity& a, const Entity& b) {
        std::vector<Point3d> points;
        EXPECT_EQ(db.intersectInPlan(a, b, points), eOk);
        return points;
    };
    std::vector<Point3d> points = crossings(low, high);
    ASSERT_EQ(points.size(), 1u);
    EXPECT_TRUE(points[0].isEqualTo({5, 5, 0}));

    Entity circle = entityOf(Circle{{0, 0, 0}, 5.0});
    Entity line = entityOf(Line{{-10, 3, 0}, {10, 3, 0}});
    points = crossings(circle, line);
    ASSERT_EQ(points.size(), 2u);
    EXPECT_NEAR(std::abs(points[0].x), 4.0, 1e-9);

    Entity arc = entityOf(Arc{{0, 0, 0}, 5.0, 0.0, kPi});  // upper half only: a line below misses it
    Entity below = entityOf(Line{{-10, -3, 0}, {10, -3, 0}});
    EXPECT_TRUE(crossings(arc, below).empty());

    // Touching squares meet along an edge: the overlap's ends come back.
    EXPECT_EQ(crossings(square(0, 0, 1), square(1, 0, 1)).size(), 2u);
    // The extents of an arc reach its quadrants.
    Entity quarter = entityOf(Arc{{0, 0, 0}, 2.0, -kPi / 4, kPi / 4});
    Extents3d e;
    ASSERT_EQ(db.getGeomExtents(quarter, e), eOk);
    EXPECT_NEAR(e.maxPoint.x, 2.0, 1e-12);
    EXPECT_NEAR(e.minPoint.x, std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(e.maxPoint.y, std::sqrt(2.0), 1e-12);
}

TEST(DbOffsets, ClosedPolylinesGrowToTheRightOfTravel)
{
    HostDatabase db;
    for (bool clockwise : {false, true}) {
        std::vector<Entity> out;
        ASSERT_EQ(db.getOffsetCurves(square(0, 0, 10, clockwise), clockwise ? -1.0 : 1.0, out), eOk);
        ASSERT_EQ(out.size(), 1u);
        const auto* pl = out[0].as<LwPolyline>();
        ASSERT_NE(pl, nullptr);
        EXPECT_TRUE(pl->closed);
        EXPECT_EQ(pl->vertices.size(), 4u);
        EXPECT_NEAR(area(db, out[0]), 144.0, 1e-9) << "clockwise " << clockwise;
    }
    std::vector<Entity> inward, round;
    db.getOffsetCurves(square(0, 0, 10), -2.0, inward);
    ASSERT_EQ(inward.size(), 1u);
    EXPECT_NEAR(area(db, inward[0]), 36.0, 1e-9);
    // Bulged segments stay concentric arcs.
    db.getOffsetCurves(polyline({{{0, 0}, 1.0}, {{10, 0}, 1.0}}, true), 1.0, round);
    ASSERT_EQ(round.size(), 1u);
    EXPECT_NEAR(area(db, round[0]), kPi * 36.0, 1e-9);
    // Shrinking apart gives several curves, or none.
    // A dumbbell: two 10 x 10 squares joined by a 2 wide neck.
    Entity dumbbell = polyline({{{0, 0}}, {{10, 0}}, {{10, 4}}, {{20, 4}}, {{20, 0}}, {{30, 0}}, {{30, 10}}, {{20, 10}}, {{20, 6}}, {{10, 6}}, {{10, 10}}, {{0, 10}}}, true);
    std::vector<Entity> out;
    ASSERT_EQ(db.getOffsetCurves(dumbbell, -1.5, out), eOk);
    EXPECT_EQ(out.size(), 2u);
    out.clear();
    ASSERT_EQ(db.getOffsetCurves(square(0, 0, 10), -6.0, out), eOk);
    EXPECT_TRUE(out.empty());
}

TEST(DbOffsets, OpenPolylineShiftsWithExtendedCornersAndDropsFolds)
{
    HostDatabase db;
    std::vector<Entity> out;
    ASSERT_EQ(db.getOffsetCurves(polyline({{{0, 0}}, {{10, 0}}, {{10, 10}}}), 1.0, out), eOk);
    ASSERT_EQ(out.size(), 1u);
    const auto& v = out[0].as<LwPolyline>()->vertices;
    ASSERT_EQ(v.size(), 3u);
    EXPECT_TRUE(v[0].point.isEqualTo({0, -1}));
    EXPECT_TRUE(v[1].point.isEqualTo({11, -1}));
    EXPECT_TRUE(v[2].point.isEqualTo({11, 10}));
    EXPECT_EQ(db.getOffsetCurves(entityOf(Line{}), 1.0, out), eNotApplicable);

    // A short rise between two turns to the left; offset by 2 to the left
    // its offset piece would run backwards and is dropped.
    out.clear();
    ASSERT_EQ(db.getOffsetCurves(polyline({{{0, 0}}, {{10, 0}}, {{10, 1}}, {{0, 5}}}), -2.0, out), eOk);
    ASSERT_EQ(out.size(), 1u);
    const auto& folded = out[0].as<LwPolyline>()->vertices;
    ASSERT_EQ(folded.size(), 3u);
    EXPECT_TRUE(folded[0].point.isEqualTo({0, 2}));
    EXPECT_NEAR(folded[1].point.y, 2.0, 1e-12);
    EXPECT_NEAR(folded[2].point.y, 5.0 - 20.0 / std::sqrt(116.0), 1e-12);
}

TEST(DbRegions, ClosedCurvesMakeRegionsThatUniteAndSubtract)
{
    HostDatabase db;
    std::vector<Entity> regions;
    ASSERT_EQ(db.createRegionsFromCurves({square(0, 0, 10), square(5, 5, 10)}, regions), eOk);
    ASSERT_EQ(regions.size(), 2u);
    Entity a = regions[0], b = regions[1];
    ASSERT_EQ(db.booleanOper(a, BoolOperType::Subtract, b), eOk);
    EXPECT_NEAR(area(db, a), 75.0, 1e-9);
    EXPECT_TRUE(b.as<Region>()->faces.empty());

    Entity c = regions[0], d = regions[1];
    ASSERT_EQ(db.booleanOper(c, BoolOperType::Union, d), eOk);
    EXPECT_NEAR(area(db, c), 175.0, 1e-9);

    // A hole: a small square subtracted from inside a big one.
    std::vector<Entity> nested;
    db.createRegionsFromCurves({square(0, 0, 10), square(4, 4, 2)}, nested);
    ASSERT_EQ(db.booleanOper(nested[0], BoolOperType::Subtract, nested[1]), eOk);
    const Region& holed = *nested[0].as<Region>();
    ASSERT_EQ(holed.faces.size(), 1u);
    EXPECT_EQ(holed.faces[0].holes.size(), 1u);
    EXPECT_GT(ringArea(holed.faces[0].outer), 0.0);
    EXPECT_NEAR(area(db, nested[0]), 96.0, 1e-9);
}

TEST(DbRegions, OpenOrDegenerateCurvesMakeNoRegionHatchLoopsNestAsHoles)
{
    HostDatabase db;
    std::vector<Entity> regions;
    EXPECT_EQ(db.createRegionsFromCurves({polyline({{{0, 0}}, {{1, 0}}, {{1, 1}}})}, regions), eInvalidInput);
    EXPECT_EQ(db.createRegionsFromCurves({polyline({{{0, 0}}, {{1, 0}}, {{2, 0}}}, true)}, regions), eDegenerateGeometry);
    // A bow tie crosses itself.
    EXPECT_EQ(db.createRegionsFromCurves({polyline({{{0, 0}}, {{2, 2}}, {{2, 0}}, {{0, 1}}}, true)}, regions), eGeneralModelingFailure);
    EXPECT_TRUE(regions.empty());
    Entity circle = entityOf(Circle{{0, 0, 0}, 1.0});
    ASSERT_EQ(db.createRegionsFromCurves({circle}, regions), eOk);
    EXPECT_NEAR(area(db, regions[0]), kPi, 1e-3);
    // A hatch takes nested loops as holes.
    Hatch h;
    h.loops = {{1, {{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {}}, {0, {{2, 2}, {4, 2}, {4, 4}, {2, 4}}, {}}};
    EXPECT_NEAR(area(db, entityOf(h)), 96.0, 1e-9);
}

}  // namespace
}  // namespace vorn::host
