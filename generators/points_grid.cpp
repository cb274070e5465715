#include "generators/points_grid.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/textfile.h"
#include "base/textnum.h"
#include "drawing/drawing_helpers.h"

namespace vorn {

namespace {

double planDistance(const Point3d& a, const Point3d& b) { return std::hypot(a.x - b.x, a.y - b.y); }

double planDistanceSquared(const Point3d& a, const Point3d& b)
{
    double dx = a.x - b.x, dy = a.y - b.y;
    return dx * dx + dy * dy;
}

// Relative band inside which a squared distance does not settle the
// comparison with a radius and the distance itself is compared.
constexpr double kBand = 1e-9;

}  // namespace

double pointCellValue(const std::vector<Point3d>& points, const std::vector<int>& listed, const Point3d& centre,
                      PointAverage average)
{
    if (listed.size() == 1) return points[static_cast<size_t>(listed[0])].z;
    double sum = 0.0;
    if (average == PointAverage::Simple) {
        for (int k : listed) sum += points[static_cast<size_t>(k)].z;
        return sum / static_cast<double>(listed.size());
    }
    double weights = 0.0;
    for (int k : listed) {
        const Point3d& p = points[static_cast<size_t>(k)];
        double d = planDistance(centre, p);
        if (d < 1e-10) break;
        sum += p.z / d;
        weights += 1.0 / d;
    }
    return sum / weights;
}

PointInterpolator::PointInterpolator(std::vector<Point3d> points, double cellWidth, double searchLimit, int minPoints)
    : points_(std::move(points)), minPoints_(std::max(1, minPoints))
{
    // The radii a search passes: dx first, then one more while the grown
    // radius stays below the limit.
    double r = cellWidth;
    radii_.push_back(r);
    while (cellWidth > 0.0 && r + cellWidth < searchLimit) {
        r += cellWidth;
        radii_.push_back(r);
    }
    if (points_.empty()) return;
    double minX = 1e300, minY = 1e300, maxX = -1e300, maxY = -1e300;
    for (const Point3d& p : points_) {
        minX = std::min(minX, p.x);
        maxX = std::max(maxX, p.x);
        minY = std::min(minY, p.y);
        maxY = std::max(maxY, p.y);
    }
    double width = maxX - minX, height = maxY - minY;
    double n = static_cast<double>(points_.size());
    bucket_ = std::max({std::sqrt(2.0 * width * height / n), std::max(width, height) / 2048.0, 1e-9});
    if (width * height == 0.0) bucket_ = std::max({std::max(width, height) / std::max(1.0, n / 2.0), cellWidth, 1e-9});
    originX_ = minX;
    originY_ = minY;
    bucketsX_ = static_cast<int>(width / bucket_) + 1;
    bucketsY_ = static_cast<int>(height / bucket_) + 1;
    std::vector<int> counts(static_cast<size_t>(bucketsX_) * bucketsY_ + 1, 0);
    std::vector<int> bucketOf(points_.size());
    for (size_t k = 0; k < points_.size(); ++k) {
        int bx = std::min(bucketsX_ - 1, static_cast<int>((points_[k].x - originX_) / bucket_));
        int by = std::min(bucketsY_ - 1, static_cast<int>((points_[k].y - originY_) / bucket_));
        bucketOf[k] = by * bucketsX_ + bx;
        ++counts[static_cast<size_t>(bucketOf[k]) + 1];
    }
    for (size_t k = 1; k < counts.size(); ++k) counts[k] += counts[k - 1];
    bucketStart_ = counts;
    bucketPoints_.resize(points_.size());
    for (size_t k = 0; k < points_.size(); ++k) bucketPoints_[static_cast<size_t>(counts[static_cast<size_t>(bucketOf[k])]++)] = static_cast<int>(k);
}

template <class Visit> void PointInterpolator::forBucketsWithin(const Point3d& c, double radius, Visit&& visit) const
{
    if (bucketsX_ == 0) return;
    auto index = [this](double v, double origin, int count) {
        double b = std::floor((v - origin) / bucket_);
        return static_cast<int>(std::clamp(b, -1.0, static_cast<double>(count)));
    };
    int x0 = std::max(0, index(c.x - radius, originX_, bucketsX_)), x1 = std::min(bucketsX_ - 1, index(c.x + radius, originX_, bucketsX_));
    int y0 = std::max(0, index(c.y - radius, originY_, bucketsY_)), y1 = std::min(bucketsY_ - 1, index(c.y + radius, originY_, bucketsY_));
    for (int by = y0; by <= y1; ++by)
        for (int bx = x0; bx <= x1; ++bx) {
            size_t bucket = static_cast<size_t>(by) * bucketsX_ + bx;
            for (int k = bucketStart_[bucket]; k < bucketStart_[bucket + 1]; ++k) visit(bucketPoints_[static_cast<size_t>(k)]);
        }
}

// The distance of the minPoints-th nearest point, approximately (from
// squared distances), or infinity when it lies beyond `beyond`.
double PointInterpolator::kthDistanceBound(const Point3d& c, double beyond)
{
    const size_t k = static_cast<size_t>(minPoints_);
    if (points_.size() < k || bucketsX_ == 0) return std::numeric_limits<double>::infinity();
    nearest_.clear();
    const int cx = static_cast<int>(std::floor((c.x - originX_) / bucket_));
    const int cy = static_cast<int>(std::floor((c.y - originY_) / bucket_));
    auto visit = [&](int bx, int by) {
        if (bx < 0 || by < 0 || bx >= bucketsX_ || by >= bucketsY_) return;
        size_t bucket = static_cast<size_t>(by) * bucketsX_ + bx;
        for (int m = bucketStart_[bucket]; m < bucketStart_[bucket + 1]; ++m) {
            double d = planDistanceSquared(c, points_[static_cast<size_t>(bucketPoints_[static_cast<size_t>(m)])]);
            if (nearest_.size() == k && d >= nearest_.back()) continue;
            if (nearest_.size() == k) nearest_.pop_back();
            nearest_.insert(std::upper_bound(nearest_.begin(), nearest_.end(), d), d);
        }
    };
    for (int r = 0;; ++r) {
        if (r == 0) {
            visit(cx, cy);
        } else {
            for (int bx = cx - r; bx <= cx + r; ++bx) {
                visit(bx, cy - r);
                visit(bx, cy + r);
            }
            for (int by = cy - r + 1; by <= cy + r - 1; ++by) {
                visit(cx - r, by);
                visit(cx + r, by);
            }
        }
        bool all = cx - r <= 0 && cx + r >= bucketsX_ - 1 && cy - r <= 0 && cy + r >= bucketsY_ - 1;
        double cover = std::min({c.x - (originX_ + (cx - r) * bucket_), originX_ + (cx + r + 1) * bucket_ - c.x,
                                 c.y - (originY_ + (cy - r) * bucket_), originY_ + (cy + r + 1) * bucket_ - c.y});
        bool settled = nearest_.size() == k && nearest_.back() <= cover * cover;
        if (all || settled || cover > beyond) break;
    }
    if (nearest_.size() < k || nearest_.back() > beyond * beyond) return std::numeric_limits<double>::infinity();
    return std::sqrt(nearest_.back());
}

void PointInterpolator::search(const Point3d& c, std::vector<int>& listed)
{
    listed.clear();
    const double limit = radii_.back() * (1.0 + kBand);
    const double kth = kthDistanceBound(c, limit);
    size_t m = radii_.size() - 1;
    if (!std::isinf(kth)) {
        auto first = std::lower_bound(radii_.begin(), radii_.end(), kth * (1.0 - kBand));
        m = std::min(static_cast<size_t>(first - radii_.begin()), radii_.size() - 1);
    }
    for (;; ++m) {
        const double r = radii_[m];
        const double inner = r * r * (1.0 - kBand), outer = r * r * (1.0 + kBand);
        listed.clear();
        forBucketsWithin(c, r * (1.0 + kBand), [&](int k) {
            const Point3d& p = points_[static_cast<size_t>(k)];
            double d = planDistanceSquared(c, p);
            if (d < inner || (d <= outer && planDistance(c, p) <= r)) listed.push_back(k);
        });
        if (static_cast<int>(listed.size()) >= minPoints_ || m + 1 == radii_.size()) break;
    }
    std::sort(listed.begin(), listed.end());
}

bool readPointFile(const std::string& path, std::vector<Point3d>& pointsOut, int& cause)
{
    pointsOut.clear();
    TextReader reader;
    cause = kFileNone;
    if (!reader.open(path, &cause)) return false;
    std::string line;
    std::vector<std::string> fields;
    while (reader.readLine(line)) {
        char separator = line.find(',') != std::string::npos ? ',' : ' ';
        if (splitFields(line, fields, separator) != 3) continue;
        pointsOut.push_back({_wtof(fields[0]), _wtof(fields[1]), _wtof(fields[2])});
    }
    return true;
}

}  // namespace vorn
