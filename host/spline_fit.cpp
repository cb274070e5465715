#include "host/spline_fit.h"

#include <algorithm>
#include <cmath>

namespace vorn::host {
namespace {

// The basis functions of `degree` that are not zero at u, which lie in the
// knot span `span` (The NURBS Book, A2.2).
std::vector<double> basisFunctions(int span, double u, int degree, const std::vector<double>& knots)
{
    std::vector<double> n(degree + 1, 0.0), left(degree + 1), right(degree + 1);
    n[0] = 1.0;
    for (int j = 1; j <= degree; ++j) {
        left[j] = u - knots[span + 1 - j];
        right[j] = knots[span + j] - u;
        double saved = 0.0;
        for (int r = 0; r < j; ++r) {
            double denominator = right[r + 1] + left[j - r];
            double temp = denominator == 0.0 ? 0.0 : n[r] / denominator;
            n[r] = saved + right[r + 1] * temp;
            saved = left[j - r] * temp;
        }
        n[j] = saved;
    }
    return n;
}

int findSpan(int lastPoint, int degree, double u, const std::vector<double>& knots)
{
    if (u >= knots[lastPoint + 1]) return lastPoint;
    auto it = std::upper_bound(knots.begin() + degree, knots.begin() + lastPoint + 1, u);
    return static_cast<int>(it - knots.begin()) - 1;
}

}  // namespace

SplineControl interpolateSpline(const std::vector<Point3d>& fit, int degree)
{
    SplineControl result;
    const int n = static_cast<int>(fit.size()) - 1;
    if (n < 1) return result;
    const int p = std::clamp(degree, 1, n);
    result.degree = p;

    // Chord-length parameters; equal steps where the points coincide.
    std::vector<double> params(n + 1, 0.0);
    double total = 0.0;
    for (int k = 1; k <= n; ++k) total += fit[k].distanceTo(fit[k - 1]);
    for (int k = 1; k <= n; ++k)
        params[k] = total > 0.0 ? params[k - 1] + fit[k].distanceTo(fit[k - 1]) / total : static_cast<double>(k) / n;
    params[n] = 1.0;

    // Clamped knots, the inner ones averaged over p parameters.
    result.knots.assign(n + p + 2, 0.0);
    for (int j = 1; j <= n - p; ++j) {
        double sum = 0.0;
        for (int i = j; i < j + p; ++i) sum += params[i];
        result.knots[j + p] = sum / p;
    }
    for (int k = n + 1; k <= n + p + 1; ++k) result.knots[k] = 1.0;

    // The collocation matrix is banded: row k holds the p+1 basis values of
    // its span. Gaussian elimination without pivoting keeps the band.
    const int width = 2 * p + 1;
    std::vector<double> band(static_cast<size_t>(n + 1) * width, 0.0);
    auto at = [&](int row, int col) -> double& { return band[static_cast<size_t>(row) * width + (col - row + p)]; };
    for (int k = 0; k <= n; ++k) {
        int span = findSpan(n, p, params[k], result.knots);
        std::vector<double> basis = basisFunctions(span, params[k], p, result.knots);
        for (int i = 0; i <= p; ++i) {
            int col = span - p + i;
            if (std::abs(col - k) <= p) at(k, col) = basis[i];
        }
    }
    std::vector<Point3d> rhs = fit;
    for (int j = 0; j <= n; ++j) {
        double pivot = at(j, j);
        if (pivot == 0.0) continue;
        for (int r = j + 1; r <= std::min(n, j + p); ++r) {
            double factor = at(r, j) / pivot;
            if (factor == 0.0) continue;
            for (int c = j; c <= std::min(n, j + p); ++c) at(r, c) -= factor * at(j, c);
            rhs[r] = {rhs[r].x - factor * rhs[j].x, rhs[r].y - factor * rhs[j].y, rhs[r].z - factor * rhs[j].z};
        }
    }
    result.points.assign(n + 1, {});
    for (int j = n; j >= 0; --j) {
        Point3d sum = rhs[j];
        for (int c = j + 1; c <= std::min(n, j + p); ++c) {
            const Point3d& q = result.points[c];
            double a = at(j, c);
            sum = {sum.x - a * q.x, sum.y - a * q.y, sum.z - a * q.z};
        }
        double pivot = at(j, j);
        result.points[j] = pivot == 0.0 ? fit[j] : Point3d{sum.x / pivot, sum.y / pivot, sum.z / pivot};
    }
    return result;
}

}  // namespace vorn::host
