// The interpolating B-spline that the DXF writer puts beside fit points
// passes through every fit point.
#include <gtest/gtest.h>

#include <cmath>

#include "host/spline_fit.h"

namespace vorn::host {
namespace {

// The curve point at u by de Boor's algorithm.
Point3d evaluate(const SplineControl& s, double u)
{
    const int p = s.degree;
    const int last = static_cast<int>(s.points.size()) - 1;
    int k = p;
    while (k < last && s.knots[k + 1] <= u) ++k;
    std::vector<Point3d> d(s.points.begin() + (k - p), s.points.begin() + k + 1);
    for (int r = 1; r <= p; ++r) {
        for (int j = p; j >= r; --j) {
            double denominator = s.knots[j + 1 + k - r] - s.knots[j + k - p];
            double a = denominator == 0.0 ? 0.0 : (u - s.knots[j + k - p]) / denominator;
            d[j] = {(1 - a) * d[j - 1].x + a * d[j].x, (1 - a) * d[j - 1].y + a * d[j].y, (1 - a) * d[j - 1].z + a * d[j].z};
        }
    }
    return d[p];
}

TEST(SplineFit, PassesThroughTheFitPoints)
{
    const std::vector<std::vector<Point3d>> cases = {
        {{0, 0, 0}, {10, 0, 5}},
        {{0, 0, 1}, {10, 0, 3}, {20, 0, 2}},
        {{0, 0, 0}, {1, 4, 2}, {3, 5, 1}, {7, 1, 0}, {8, 8, 3}, {12, 9, 9}},
    };
    for (int degree : {1, 2, 3}) {
        for (const auto& fit : cases) {
            SplineControl s = interpolateSpline(fit, degree);
            ASSERT_EQ(s.points.size(), fit.size());
            ASSERT_EQ(s.knots.size(), fit.size() + s.degree + 1);
            double total = 0.0;
            for (size_t k = 1; k < fit.size(); ++k) total += fit[k].distanceTo(fit[k - 1]);
            double u = 0.0;
            for (size_t k = 0; k < fit.size(); ++k) {
                if (k > 0) u += fit[k].distanceTo(fit[k - 1]) / total;
                EXPECT_LT(evaluate(s, std::min(u, 1.0)).distanceTo(fit[k]), 1e-9) << degree << " " << k;
            }
        }
    }
    EXPECT_TRUE(interpolateSpline({{1, 1, 1}}, 2).points.empty());
}

}  // namespace
}  // namespace vorn::host
