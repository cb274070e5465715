#include "generators/contour_grid.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "drawing/segment_tests.h"

namespace vorn {

namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kZero = 1e-10;

// Even-odd test over the window's corners; its edges count as inside.
bool insideWindow(const Point2d (&window)[4], const Point2d& p)
{
    bool inside = false;
    for (int i = 0, j = 3; i < 4; j = i++) {
        const Point2d& a = window[i];
        const Point2d& b = window[j];
        if (cross(a, b, p) == 0.0 && withinSpan(a, b, p)) return true;
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
    }
    return inside;
}

Point2d plan(const Point3d& p) { return {p.x, p.y}; }

// Distance in the maximum norm from p to the segment ab in plan: the
// smallest square around p that the segment meets.
double chebyshevDistance(const Point3d& a, const Point3d& b, const Point3d& p)
{
    double ux = a.x - p.x, uy = a.y - p.y, vx = b.x - a.x, vy = b.y - a.y;
    auto at = [&](double t) {
        t = std::clamp(t, 0.0, 1.0);
        return std::max(std::abs(ux + t * vx), std::abs(uy + t * vy));
    };
    double best = std::min(at(0.0), at(1.0));
    if (vx != 0.0) best = std::min(best, at(-ux / vx));
    if (vy != 0.0) best = std::min(best, at(-uy / vy));
    if (vx != vy) best = std::min(best, at((uy - ux) / (vx - vy)));
    if (vx != -vy) best = std::min(best, at(-(ux + uy) / (vx + vy)));
    return best;
}

double planDistanceSquared(const Point3d& a, const Point3d& b, const Point3d& p)
{
    double dx = b.x - a.x, dy = b.y - a.y;
    double len2 = dx * dx + dy * dy;
    double t = len2 > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / len2, 0.0, 1.0) : 0.0;
    double ex = a.x + t * dx - p.x, ey = a.y + t * dy - p.y;
    return ex * ex + ey * ey;
}

int segmentCount(const ContourLine& contour) { return contour.empty() ? 0 : std::max<int>(1, static_cast<int>(contour.size()) - 1); }

const Point3d& segmentEnd(const ContourLine& contour, int segment)
{
    return contour.size() == 1 ? contour[0] : contour[static_cast<size_t>(segment) + 1];
}

}  // namespace

bool windowCrossesContour(const ContourLine& contour, const Point2d& lower, const Point2d& upper)
{
    if (contour.empty()) return false;
    double x0 = std::min(lower.x, upper.x), x1 = std::max(lower.x, upper.x);
    double y0 = std::min(lower.y, upper.y), y1 = std::max(lower.y, upper.y);
    const Point2d window[4] = {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
    // A contour wholly inside the window's box crosses it.
    bool boxInside = true;
    for (const Point3d& v : contour) boxInside = boxInside && v.x >= x0 && v.x <= x1 && v.y >= y0 && v.y <= y1;
    if (boxInside) return true;
    for (const Point3d& v : contour)
        if (insideWindow(window, plan(v))) return true;
    for (size_t k = 1; k < contour.size(); ++k)
        for (int i = 0, j = 3; i < 4; j = i++)
            if (segmentsMeet(plan(contour[k - 1]), plan(contour[k]), window[j], window[i])) return true;
    return false;
}

double segmentDistance3dSquared(const Point3d& a, const Point3d& b, const Point3d& p, Point3d& closestOut)
{
    double dx = b.x - a.x, dy = b.y - a.y, dz = b.z - a.z;
    double len2 = dx * dx + dy * dy + dz * dz;
    double t = len2 > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy + (p.z - a.z) * dz) / len2, 0.0, 1.0) : 0.0;
    closestOut = {a.x + t * dx, a.y + t * dy, a.z + t * dz};
    double ex = closestOut.x - p.x, ey = closestOut.y - p.y, ez = closestOut.z - p.z;
    return ex * ex + ey * ey + ez * ez;
}

Point3d closestPointOnContour(const ContourLine& contour, const Point3d& p)
{
    Point3d best;
    double bestDistance = std::numeric_limits<double>::infinity();
    for (int s = 0; s < segmentCount(contour); ++s) {
        Point3d q;
        double d = segmentDistance3dSquared(contour[static_cast<size_t>(s)], segmentEnd(contour, s), p, q);
        if (d < bestDistance) {
            bestDistance = d;
            best = q;
        }
    }
    return best;
}

double planAngle(double ux, double uy, double vx, double vy) { return std::atan2(std::abs(ux * vy - uy * vx), ux * vx + uy * vy); }

double contourValueFromClosest(std::vector<Point3d>& q, const Point3d& p)
{
    const size_t n = q.size();
    auto dist = [&p](const Point3d& a) { return std::hypot(a.x - p.x, a.y - p.y); };
    for (size_t a = 0; a < n; ++a)
        for (size_t b = a + 1; b < n; ++b)
            if (dist(q[b]) < dist(q[a])) std::swap(q[a], q[b]);

    const double vx = q[0].x - p.x, vy = q[0].y - p.y;
    bool paired = false;
    for (size_t k = 1; k < n && !paired; ++k) {
        if (planAngle(vx, vy, q[k].x - p.x, q[k].y - p.y) >= kHalfPi) {
            q[1] = q[k];
            paired = true;
        }
    }
    for (size_t k = 1; k < n && !paired; ++k) {
        if (q[k].z - q[0].z > kZero) {
            q[1] = q[k];
            paired = true;
        }
    }

    double value = q[0].z;
    if (n < 2) return value;
    double d0 = dist(q[0]);
    double d1 = std::hypot(q[1].x - q[0].x, q[1].y - q[0].y);
    if (d0 < kZero || d1 < kZero) return value;
    double delta = (q[1].z - q[0].z) / d1 * d0;
    bool opposite = planAngle(vx, vy, q[1].x - p.x, q[1].y - p.y) >= kHalfPi;
    return opposite ? q[0].z + delta : q[0].z - delta;
}

// ---------------------------------------------------------------- index

ContourInterpolator::ContourInterpolator(std::vector<ContourLine> contours, double cellWidth, double searchLimit)
    : contours_(std::move(contours)), cellWidth_(cellWidth)
{
    // The windows a search selects: dx, 2 dx, ... while the next one does
    // not pass the limit (the first is always selected).
    double w = cellWidth;
    widths_.push_back(w);
    while (cellWidth > 0.0 && w + cellWidth <= searchLimit) {
        w += cellWidth;
        widths_.push_back(w);
    }
    for (const ContourLine& c : contours_) {
        bool flat = true;
        for (const Point3d& v : c) flat = flat && v.z == c.front().z;
        flat_.push_back(flat);
    }
    nearest_.assign(contours_.size(), std::numeric_limits<double>::infinity());
    seen_.resize(contours_.size());
    buildIndex();
}

void ContourInterpolator::buildIndex()
{
    double minX = 1e300, minY = 1e300, maxX = -1e300, maxY = -1e300;
    size_t segments = 0;
    for (const ContourLine& c : contours_) {
        segments += static_cast<size_t>(segmentCount(c));
        for (const Point3d& v : c) {
            minX = std::min(minX, v.x);
            maxX = std::max(maxX, v.x);
            minY = std::min(minY, v.y);
            maxY = std::max(maxY, v.y);
        }
    }
    if (segments == 0) return;
    double width = maxX - minX, height = maxY - minY;
    // A few segments to a bucket, and not too many buckets.
    bucket_ = std::max({2.0 * std::sqrt(width * height / static_cast<double>(segments)), std::max(width, height) / 2048.0,
                        cellWidth_ * 0.5, 1e-9});
    originX_ = minX;
    originY_ = minY;
    bucketsX_ = static_cast<int>(width / bucket_) + 1;
    bucketsY_ = static_cast<int>(height / bucket_) + 1;

    auto range = [this](double lo, double hi, double origin, int count, int& first, int& last) {
        first = std::clamp(static_cast<int>(std::floor((lo - origin) / bucket_)), 0, count - 1);
        last = std::clamp(static_cast<int>(std::floor((hi - origin) / bucket_)), 0, count - 1);
    };
    auto forEachSegment = [this, &range](auto&& visit) {
        for (int c = 0; c < static_cast<int>(contours_.size()); ++c) {
            const ContourLine& line = contours_[static_cast<size_t>(c)];
            for (int s = 0; s < segmentCount(line); ++s) {
                const Point3d& a = line[static_cast<size_t>(s)];
                const Point3d& b = segmentEnd(line, s);
                int x0, x1, y0, y1;
                range(std::min(a.x, b.x), std::max(a.x, b.x), originX_, bucketsX_, x0, x1);
                range(std::min(a.y, b.y), std::max(a.y, b.y), originY_, bucketsY_, y0, y1);
                for (int by = y0; by <= y1; ++by)
                    for (int bx = x0; bx <= x1; ++bx)
                        visit(by * bucketsX_ + bx, Entry{c, s, std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)});
            }
        }
    };
    std::vector<int> counts(static_cast<size_t>(bucketsX_) * bucketsY_ + 1, 0);
    forEachSegment([&counts](int bucket, const Entry&) { ++counts[static_cast<size_t>(bucket) + 1]; });
    for (size_t k = 1; k < counts.size(); ++k) counts[k] += counts[k - 1];
    bucketStart_ = counts;
    entries_.resize(static_cast<size_t>(counts.back()));
    forEachSegment([&counts, this](int bucket, const Entry& e) { entries_[static_cast<size_t>(counts[static_cast<size_t>(bucket)]++)] = e; });
}

void ContourInterpolator::beginCell(const Point3d& p)
{
    for (int c : touched_) {
        nearest_[static_cast<size_t>(c)] = std::numeric_limits<double>::infinity();
        seen_[static_cast<size_t>(c)].clear();
    }
    touched_.clear();
    p_ = p;
    centreX_ = static_cast<int>(std::floor((p.x - originX_) / bucket_));
    centreY_ = static_cast<int>(std::floor((p.y - originY_) / bucket_));
    ring_ = -1;
    seenReach_ = -1.0;
}

void ContourInterpolator::visitBucket(int bx, int by)
{
    if (bx < 0 || by < 0 || bx >= bucketsX_ || by >= bucketsY_) return;
    size_t bucket = static_cast<size_t>(by) * bucketsX_ + bx;
    for (int k = bucketStart_[bucket]; k < bucketStart_[bucket + 1]; ++k) {
        const Entry& e = entries_[static_cast<size_t>(k)];
        double& nearest = nearest_[static_cast<size_t>(e.contour)];
        std::vector<int>& seen = seen_[static_cast<size_t>(e.contour)];
        if (seen.empty()) touched_.push_back(e.contour);
        seen.push_back(k);
        // The distance to the segment's box is a lower bound: a segment
        // whose box lies farther than the nearest so far changes nothing.
        double box = std::max({e.x0 - p_.x, p_.x - e.x1, e.y0 - p_.y, p_.y - e.y1, 0.0});
        if (box >= nearest) continue;
        const ContourLine& line = contours_[static_cast<size_t>(e.contour)];
        nearest = std::min(nearest, chebyshevDistance(line[static_cast<size_t>(e.segment)], segmentEnd(line, e.segment), p_));
    }
}

void ContourInterpolator::ensureSeen(double reach)
{
    if (entries_.empty()) return;
    while (seenReach_ < reach) {
        const int r = ++ring_;
        if (r == 0) {
            visitBucket(centreX_, centreY_);
        } else {
            for (int bx = centreX_ - r; bx <= centreX_ + r; ++bx) {
                visitBucket(bx, centreY_ - r);
                visitBucket(bx, centreY_ + r);
            }
            for (int by = centreY_ - r + 1; by <= centreY_ + r - 1; ++by) {
                visitBucket(centreX_ - r, by);
                visitBucket(centreX_ + r, by);
            }
        }
        // Every segment not seen lies wholly outside the visited square.
        bool all = centreX_ - r <= 0 && centreX_ + r >= bucketsX_ - 1 && centreY_ - r <= 0 && centreY_ + r >= bucketsY_ - 1;
        if (all) {
            seenReach_ = std::numeric_limits<double>::infinity();
        } else {
            double left = p_.x - (originX_ + (centreX_ - r) * bucket_);
            double right = originX_ + (centreX_ + r + 1) * bucket_ - p_.x;
            double below = p_.y - (originY_ + (centreY_ - r) * bucket_);
            double above = originY_ + (centreY_ + r + 1) * bucket_ - p_.y;
            seenReach_ = std::min({left, right, below, above}) * (1.0 - 1e-12);
        }
    }
}

void ContourInterpolator::foundAt(double w, double eps, std::vector<int>& found)
{
    found.clear();
    const Point2d lower{p_.x - w, p_.y - w}, upper{p_.x + w, p_.y + w};
    for (int c : touched_) {
        double nearest = nearest_[static_cast<size_t>(c)];
        if (nearest < w - eps || (nearest <= w + eps && windowCrossesContour(contours_[static_cast<size_t>(c)], lower, upper)))
            found.push_back(c);
    }
    std::sort(found.begin(), found.end());
}

Point3d ContourInterpolator::closestOf(int contour)
{
    const ContourLine& line = contours_[static_cast<size_t>(contour)];
    if (!flat_[static_cast<size_t>(contour)]) return closestPointOnContour(line, p_);
    // On a level contour the nearest segment in plan is the nearest in
    // space; the segments within rounding of it in plan are all compared
    // in space. Every segment in reach of that band must have been seen.
    const std::vector<int>& seen = seen_[static_cast<size_t>(contour)];
    const double dz = line.front().z - p_.z;
    double band = 0.0;
    for (size_t done = 0;;) {
        scratch_.resize(seen.size());
        for (; done < seen.size(); ++done) {
            const Entry& e = entries_[static_cast<size_t>(seen[done])];
            scratch_[done] = planDistanceSquared(line[static_cast<size_t>(e.segment)], segmentEnd(line, e.segment), p_);
        }
        double bestPlan = *std::min_element(scratch_.begin(), scratch_.end());
        band = bestPlan + 1e-9 * (1.0 + dz * dz + bestPlan);
        double need = std::sqrt(band) * (1.0 + 1e-9) + 1e-9 * (1.0 + std::abs(p_.x) + std::abs(p_.y));
        if (need <= seenReach_) break;
        ensureSeen(need);
    }
    Point3d best;
    double bestDistance = std::numeric_limits<double>::infinity();
    int bestSegment = -1;
    for (size_t k = 0; k < seen.size(); ++k) {
        if (scratch_[k] > band) continue;
        const int segment = entries_[static_cast<size_t>(seen[k])].segment;
        Point3d q;
        double d = segmentDistance3dSquared(line[static_cast<size_t>(segment)], segmentEnd(line, segment), p_, q);
        if (d < bestDistance || (d == bestDistance && segment < bestSegment)) {
            bestDistance = d;
            best = q;
            bestSegment = segment;
        }
    }
    return best;
}

// The window of step k may hold four contours only when the fourth
// nearest contour (in the maximum norm) lies within it. Steps before that
// are passed over (still shown to the observer); the first step that may
// have four is decided by the crossing test itself.
ContourCellResult ContourInterpolator::valueAt(const Point3d& p, const ContourWindowObserver& observer)
{
    beginCell(p);
    ContourCellResult result;
    std::vector<int> found;
    const double eps = 1e-9 * (1.0 + std::abs(p.x) + std::abs(p.y) + widths_.back());
    const size_t last = widths_.size() - 1;
    size_t shown = 0;
    auto showUpTo = [&](size_t k) {
        for (; shown <= k; ++shown)
            if (observer) observer({p.x - widths_[shown], p.y - widths_[shown]}, {p.x + widths_[shown], p.y + widths_[shown]});
    };
    for (size_t k = 0;;) {
        ensureSeen(widths_[k] + eps);
        const double fourth = fourthNearest();
        // Below `bound` no window can hold four contours.
        const double bound = fourth <= seenReach_ ? fourth - eps : seenReach_ - eps;
        size_t m = static_cast<size_t>(std::lower_bound(widths_.begin() + static_cast<long>(k), widths_.end(), bound) - widths_.begin());
        m = std::min(m, last);
        if (m > k) {
            showUpTo(m - 1);
            k = m;
            continue;
        }
        showUpTo(k);
        foundAt(widths_[k], eps, found);
        result.found = static_cast<int>(found.size());
        if (found.size() >= 4) break;
        if (k == last) return result;
        ++k;
    }
    std::vector<Point3d> closest;
    for (int c : found) closest.push_back(closestOf(c));
    result.enough = true;
    result.value = contourValueFromClosest(closest, p);
    return result;
}

double ContourInterpolator::fourthNearest()
{
    if (touched_.size() < 4) return std::numeric_limits<double>::infinity();
    scratch_.clear();
    for (int c : touched_) scratch_.push_back(nearest_[static_cast<size_t>(c)]);
    std::nth_element(scratch_.begin(), scratch_.begin() + 3, scratch_.end());
    return scratch_[3];
}

}  // namespace vorn
