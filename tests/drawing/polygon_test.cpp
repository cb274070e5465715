#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "drawing/plane.h"
#include "drawing/polygon.h"

using vorn::Point2d;
using Poly = std::vector<Point2d>;

namespace {

const Poly kSquare{{0, 0}, {2, 0}, {2, 2}, {0, 2}};

Poly closed(Poly p)
{
    p.push_back(p.front());
    return p;
}

// A regular polygon of n corners around (cx, cy).
Poly regular(int n, double radius, double cx = 0.0, double cy = 0.0)
{
    Poly p;
    for (int i = 0; i < n; ++i) {
        double a = 2.0 * M_PI * i / n;
        p.push_back({cx + radius * std::cos(a), cy + radius * std::sin(a)});
    }
    return p;
}

}  // namespace

TEST(PointInPolygon, EdgesAndCornersAreInside)
{
    for (const Poly& square : {kSquare, closed(kSquare)}) {
        EXPECT_TRUE(pointInPolygon(square, {1, 1}));
        EXPECT_TRUE(pointInPolygon(square, {1, 0}));      // bottom edge, on the ray's line
        EXPECT_TRUE(pointInPolygon(square, {2, 1}));      // right edge
        EXPECT_TRUE(pointInPolygon(square, {0, 0}));      // corner
        EXPECT_TRUE(pointInPolygon(square, {2, 2}));      // corner
        EXPECT_TRUE(pointInPolygon(square, {1, 2 + 5e-11}));  // within the point tolerance
        EXPECT_FALSE(pointInPolygon(square, {1, 2 + 1e-6}));
        EXPECT_FALSE(pointInPolygon(square, {3, 1}));
        EXPECT_FALSE(pointInPolygon(square, {-1, 1}));
    }
    // Fewer than three points contain nothing.
    EXPECT_FALSE(pointInPolygon({}, {0, 0}));
    EXPECT_FALSE(pointInPolygon({{0, 0}}, {0, 0}));
    EXPECT_FALSE(pointInPolygon({{0, 0}, {2, 0}}, {1, 0}));
}

TEST(PointInPolygon, RayThroughAVertexCountsEachEdgeItMeets)
{
    // The ray from the centre of a diamond passes through its right corner,
    // which both edges there report: two crossings, so "outside".
    Poly diamond{{0, -1}, {1, 0}, {0, 1}, {-1, 0}};
    EXPECT_FALSE(pointInPolygon(diamond, {0, 0}));
    EXPECT_TRUE(pointInPolygon(diamond, {0, 0.5}));
    // A ray grazing the top of a triangle meets two edges at their common
    // corner: two crossings, outside as it should be.
    Poly triangle{{0, 0}, {4, 0}, {2, 2}};
    EXPECT_FALSE(pointInPolygon(triangle, {-1, 2}));
}

TEST(PointInPolygon, HorizontalEdgeOnTheRayIsSettledByTheTurnsAround)
{
    // Ray y = 0 from (-1,0) runs along the bottom edge of the square. The
    // left and right edges each meet it at a corner (2 crossings); the bottom
    // edge is parallel, and its end corner (2,0) adds one by the turns of the
    // following vertices: 3 crossings.
    EXPECT_TRUE(pointInPolygon(kSquare, {-1, 0}));
    // Ray y = 2 from (-1,2) along the top edge: the right edge meets it at
    // (2,2) and the left edge at (0,2); the top edge ends at (0,2) with turns
    // of opposite sign around it and adds nothing: 2 crossings.
    EXPECT_FALSE(pointInPolygon(kSquare, {-1, 2}));
    // A step outline with a horizontal edge from (4,1) to (2,1) ahead of the
    // point: the right side (6,1), the ends (4,1) and (2,1) of the two upright
    // edges, and the horizontal edge by its turns make 4 crossings.
    Poly step{{0, 0}, {6, 0}, {6, 2}, {4, 2}, {4, 1}, {2, 1}, {2, 3}, {0, 3}};
    EXPECT_FALSE(pointInPolygon(step, {1, 1}));
    EXPECT_TRUE(pointInPolygon(step, {3, 1}));  // on the horizontal edge itself
    // Ray y = 2 from (1,2): (2,2), the corners (6,2) and (4,2) of the edges
    // meeting there, and the horizontal edge (6,2)-(4,2) by its turns: 4.
    EXPECT_FALSE(pointInPolygon(step, {1, 2}));
    EXPECT_TRUE(pointInPolygon(step, {1, 2.5}));
}

TEST(ClipPolygonArea, OverlapOfSquares)
{
    Poly cell{{1, 1}, {3, 1}, {3, 3}, {1, 3}};
    Poly result;
    EXPECT_NEAR(clipPolygonArea(cell, kSquare, result), 1.0, 1e-12);
    EXPECT_GE(result.size(), 3u);
    // Polygon wholly inside the clip, either way round.
    Poly big{{-1, -1}, {5, -1}, {5, 5}, {-1, 5}};
    Poly reversed(kSquare.rbegin(), kSquare.rend());
    EXPECT_NEAR(overlapArea(big, reversed), 4.0, 1e-12);
    EXPECT_NEAR(overlapArea(kSquare, big), 4.0, 1e-12);
}

TEST(ClipPolygonArea, ClosedAndOpenClipGiveTheSameArea)
{
    Poly clip = regular(6, 1.5, 1, 1);
    Poly polygon = regular(7, 1.2, 0.3, 0.2);
    double open = overlapArea(clip, polygon);
    EXPECT_GT(open, 0.5);
    EXPECT_NEAR(overlapArea(closed(clip), polygon), open, 1e-12);
    EXPECT_NEAR(overlapArea(clip, closed(polygon)), open, 1e-12);
    // An L of area 3 against a cell covering its corner square and half of each arm.
    Poly ell{{0, 0}, {2, 0}, {2, 1}, {1, 1}, {1, 2}, {0, 2}};
    Poly cell{{0, 0}, {1.5, 0}, {1.5, 1.5}, {0, 1.5}};
    EXPECT_NEAR(overlapArea(cell, ell), 2.0, 1e-12);
}

TEST(ClipPolygonArea, DegenerateInputHasNoArea)
{
    Poly result;
    EXPECT_EQ(clipPolygonArea({{0, 0}, {1, 0}}, kSquare, result), 0.0);
    EXPECT_EQ(clipPolygonArea(kSquare, {{0, 0}, {1, 1}}, result), 0.0);
    EXPECT_TRUE(result.empty());
    // Touching along an edge or at a corner only.
    Poly right{{2, 0}, {4, 0}, {4, 2}, {2, 2}};
    Poly corner{{2, 2}, {3, 2}, {3, 3}, {2, 3}};
    EXPECT_EQ(overlapArea(kSquare, right), 0.0);
    EXPECT_EQ(overlapArea(right, kSquare), 0.0);
    EXPECT_EQ(overlapArea(kSquare, corner), 0.0);
    // Disjoint, and a clip with no width.
    EXPECT_EQ(overlapArea(kSquare, {{5, 5}, {6, 5}, {6, 6}}), 0.0);
    EXPECT_EQ(overlapArea({{0, 0}, {1, 1}, {2, 2}}, kSquare), 0.0);
}

TEST(IsClockwise, CountsTurnsNotAreaPlanarDistanceIgnoresHeight)
{
    EXPECT_FALSE(isClockwise(kSquare));
    EXPECT_TRUE(isClockwise(Poly(kSquare.rbegin(), kSquare.rend())));
    EXPECT_FALSE(isClockwise({{0, 0}, {1, 1}}));
    // A figure eight turns left twice and right twice: not clockwise, though
    // one lobe is larger than the other.
    Poly eight{{0, 0}, {4, 4}, {4, 0}, {0, 1}};
    EXPECT_FALSE(isClockwise(eight));
    // A clockwise polygon with one reflex corner still has more right turns.
    Poly arrow{{0, 0}, {1, 2}, {2, 0}, {1, 1}};
    EXPECT_TRUE(isClockwise(arrow));
}

TEST(ConvexHull, SquareWithInnerPointsAndDuplicates)
{
    Poly points{{1, 1}, {2, 2}, {0, 2}, {2, 0}, {0, 0}, {1, 0.5}, {2, 2}, {0, 0}};
    Poly hull;
    convexHull(points, hull);
    // The repeated pivot sorts next to it (distance 0) and stays on the hull;
    // the repeated far corner is popped as collinear.
    EXPECT_EQ(hull, (Poly{{0, 0}, {0, 0}, {2, 0}, {2, 2}, {0, 2}}));
    EXPECT_EQ(points[0].x, 0.0);  // the pivot was swapped to the front
    EXPECT_EQ(points[1].x, 0.0);
    EXPECT_NEAR(overlapArea(hull, kSquare), 4.0, 1e-12);
}

TEST(ConvexHull, CollinearPointsSortNearestFirstAndPivotIsLowestThenLeftmost)
{
    Poly points{{3, 0}, {1, 0}, {0, 0}, {2, 0}};
    Poly hull;
    convexHull(points, hull);
    EXPECT_EQ(points[1].x, 1.0);
    EXPECT_EQ(points[3].x, 3.0);
    // The first three are pushed; the fourth pops the two collinear ones.
    ASSERT_EQ(hull.size(), 2u);
    EXPECT_EQ(hull[1].x, 3.0);
    Poly nearlyLevel{{5, 1e-11}, {1, 0}, {3, 4}};
    convexHull(nearlyLevel, hull);
    EXPECT_EQ(nearlyLevel[0].x, 1.0);
    EXPECT_EQ(hull.size(), 3u);
    Poly few{{1, 1}, {0, 0}};
    convexHull(few, hull);
    EXPECT_EQ(hull.size(), 2u);
    // Planar distance ignores height.
    EXPECT_DOUBLE_EQ(planarDistance(Point2d{0, 0}, Point2d{3, 4}), 5.0);
    EXPECT_DOUBLE_EQ(planarDistance(vorn::Point3d{0, 0, 7}, vorn::Point3d{3, 4, -2}), 5.0);
}
