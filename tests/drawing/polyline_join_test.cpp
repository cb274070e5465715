#include <gtest/gtest.h>

#include <vector>

#include "drawing/entity_geometry.h"
#include "drawing/polyline_join.h"

using vorn::LwPolyline;
using vorn::Point2d;
using vorn::PolyVertex;

namespace {

LwPolyline polyline(std::vector<Point2d> points, double elevation = 0.0)
{
    LwPolyline pl;
    for (size_t i = 0; i < points.size(); ++i)
        pl.vertices.push_back({points[i], 0.1 * static_cast<double>(i + 1), 1.0 + i, 2.0 + i});
    pl.elevation = elevation;
    return pl;
}

std::vector<double> xs(const LwPolyline& pl)
{
    std::vector<double> out;
    for (const PolyVertex& v : pl.vertices)
        out.push_back(v.point.x);
    return out;
}

}  // namespace

TEST(MatchPolylineEnds, FirstMeetingPairInOrder)
{
    LwPolyline a = polyline({{0, 0}, {1, 0}});
    EXPECT_EQ(matchPolylineEnds(a, polyline({{0, 0}, {0, 5}})), 1);
    EXPECT_EQ(matchPolylineEnds(a, polyline({{0, 5}, {0, 0}})), 2);
    EXPECT_EQ(matchPolylineEnds(a, polyline({{1, 0}, {1, 5}})), 3);
    EXPECT_EQ(matchPolylineEnds(a, polyline({{1, 5}, {1, 0}})), 4);
    EXPECT_EQ(matchPolylineEnds(a, polyline({{1, 5e-11}, {1, 5}})), 3);
    EXPECT_EQ(matchPolylineEnds(a, polyline({{1, 1e-6}, {1, 5}})), -1);
    // A reversed duplicate meets at both pairs; start on end wins.
    EXPECT_EQ(matchPolylineEnds(a, polyline({{1, 0}, {0, 0}})), 2);
    // The same plan position at another elevation does not meet.
    EXPECT_EQ(matchPolylineEnds(a, polyline({{1, 0}, {1, 5}}, 3.0)), -1);
}

TEST(AppendPolyline, EachModeAddsAtItsEndModeZeroAtTheNearest)
{
    LwPolyline b = polyline({{10, 0}, {11, 0}, {12, 0}});
    const std::vector<std::vector<double>> expected{
        {12, 11, 10, 0, 1},  // 1: in order, each inserted at the front
        {10, 11, 12, 0, 1},  // 2: last to first, each inserted at the front
        {0, 1, 10, 11, 12},  // 3: in order, appended
        {0, 1, 12, 11, 10},  // 4: last to first, appended
    };
    for (int mode = 1; mode <= 4; ++mode) {
        LwPolyline a = polyline({{0, 0}, {1, 0}});
        ASSERT_TRUE(appendPolyline(a, b, mode));
        EXPECT_EQ(xs(a), expected[mode - 1]) << "mode " << mode;
    }
    // Bulges and widths travel with their vertices, unchanged.
    LwPolyline a = polyline({{0, 0}, {1, 0}});
    appendPolyline(a, b, 4);
    EXPECT_DOUBLE_EQ(a.vertices[2].bulge, 0.3);
    EXPECT_DOUBLE_EQ(a.vertices[2].startWidth, 3.0);
    EXPECT_DOUBLE_EQ(a.vertices[2].endWidth, 4.0);
    // Mode 0 takes the nearest ends; other modes are refused.
    a = polyline({{0, 0}, {1, 0}});
    ASSERT_TRUE(appendPolyline(a, polyline({{5, 5}, {1.5, 0}}), 0));
    EXPECT_EQ(xs(a), (std::vector<double>{0, 1, 1.5, 5}));
    LwPolyline c = polyline({{0, 0}, {1, 0}});
    EXPECT_FALSE(appendPolyline(c, polyline({{5, 5}}), -1));
    EXPECT_FALSE(appendPolyline(c, polyline({{5, 5}}), 5));
    EXPECT_EQ(c.vertices.size(), 2u);
}

TEST(GetEntityVertices, PolylineKindsLinesAndPoints)
{
    std::vector<vorn::Point3d> pts;
    LwPolyline lw = polyline({{0, 0}, {1, 0}, {1, 1}}, 4.0);
    lw.closed = true;
    EXPECT_EQ(getEntityVertices(vorn::Entity{{}, lw}, pts), 4);
    EXPECT_EQ(pts.back(), (vorn::Point3d{0, 0, 4}));

    vorn::Polyline2d p2;
    p2.vertices = {{{0, 0, 2}}, {{5, 5, 2}, 0, 0, 0, vorn::k2dSplineCtlVertex}, {{1, 0, 2}}, {{1, 1, 2}, 0, 0, 0, vorn::k2dSplineFitVertex}};
    EXPECT_EQ(getEntityVertices(vorn::Entity{{}, p2}, pts), 3);
    p2.closed = true;
    EXPECT_EQ(getEntityVertices(vorn::Entity{{}, p2}, pts), 4);
    EXPECT_EQ(pts[3], pts[0]);

    vorn::Polyline3d p3;
    p3.vertices = {{{0, 0, 1}}, {{2, 2, 2}, vorn::k3dControlVertex}, {{1, 0, 3}}};
    EXPECT_EQ(getEntityVertices(vorn::Entity{{}, p3}, pts), 2);
    EXPECT_EQ(pts[1].z, 3.0);

    EXPECT_EQ(getEntityVertices(vorn::Entity{{}, vorn::Line{{0, 0, 0}, {3, 4, 5}}}, pts), 2);
    EXPECT_EQ(getEntityVertices(vorn::Entity{{}, vorn::PointEntity{{7, 8, 9}}}, pts), 1);
    EXPECT_EQ(getEntityVertices(vorn::Entity{{}, vorn::Circle{{0, 0, 0}, 1.0}}, pts), 0);
    EXPECT_TRUE(pts.empty());
}

TEST(ClipPolygonArea, LightweightPolylinesReadVertexByVertex)
{
    LwPolyline cell = polyline({{0, 0}, {1, 0}, {1, 1}, {0, 1}});
    LwPolyline shape = polyline({{0.5, 0.5}, {3, 0.5}, {3, 3}, {0.5, 3}});
    EXPECT_NEAR(clipPolygonArea(cell, shape), 0.25, 1e-12);
    EXPECT_EQ(clipPolygonArea(cell, polyline({{0, 0}, {1, 1}})), 0.0);
}
