#include "drawing/polyline_scan.h"

#include <algorithm>
#include <iterator>
#include <cmath>
#include <functional>

#include "drawing/extents_index.h"
#include "drawing/polygon.h"

namespace vorn {

namespace {

// Below this area a region overlap may be rounding noise, so the duplicate
// scan does not trust the boxes there and compares areas alone.
constexpr double kNoisyArea = 1e-8;

bool stopRequested(const ScanControl& control) { return control.stopRequested && control.stopRequested(); }

void notifySeed(const ScanControl& control, std::size_t a)
{
    if (control.seedStarted) control.seedStarted(a);
}

// The objects that may pair with a later one: those the R-tree finds near
// it, and those without a box, which it cannot place.
class Candidates {
public:
    explicit Candidates(const std::vector<Extents3d>& boxes) : index_(boxes)
    {
        for (std::size_t k = 0; k < boxes.size(); ++k)
            if (boxes[k].isEmpty()) unboxed_.push_back(k);
    }

    // Later objects near a, ascending; all later ones when a has no box.
    std::vector<std::size_t> after(std::size_t a, std::size_t count, bool boxed) const
    {
        std::vector<std::size_t> later;
        if (!boxed) {
            for (std::size_t b = a + 1; b < count; ++b) later.push_back(b);
            return later;
        }
        later = index_.laterMeeting(a);
        auto firstLater = std::upper_bound(unboxed_.begin(), unboxed_.end(), a);
        if (firstLater != unboxed_.end()) {
            std::vector<std::size_t> merged;
            std::merge(later.begin(), later.end(), firstLater, unboxed_.end(), std::back_inserter(merged));
            later.swap(merged);
        }
        return later;
    }

private:
    ExtentsIndex index_;
    std::vector<std::size_t> unboxed_;
};

// What a candidate is to a seed: passed over unexamined (no stop check
// follows), examined and apart, or a pair.
enum class Verdict { Skipped, Apart, Pair };

// Pairs seed `a` with the candidates `later` as `judge` finds them, with the
// control's notices, and keeps the seed's finding when it found a partner.
// True when a stop was asked for.
bool pairSeed(std::size_t a, const std::vector<std::size_t>& later, const std::function<Verdict(std::size_t)>& judge,
              std::vector<bool>& listed, const ScanControl& control, std::vector<PairFinding>& findings)
{
    PairFinding finding{a, {}};
    bool stop = false;
    for (std::size_t b : later) {
        Verdict verdict = judge(b);
        if (verdict == Verdict::Skipped) continue;
        if (verdict == Verdict::Pair) {
            listed[a] = listed[b] = true;
            finding.partners.push_back(b);
            if (control.pairFound) control.pairFound(a, b);
        }
        if ((stop = stopRequested(control))) break;
    }
    if (control.seedFinished) control.seedFinished(a, !finding.partners.empty());
    if (!finding.partners.empty()) findings.push_back(finding);
    return stop || stopRequested(control);
}

}  // namespace

Extents3d planExtents(const std::vector<Point2d>& points)
{
    Extents3d box;
    for (const Point2d& p : points) box.addPoint({p.x, p.y, 0.0});
    return box;
}

std::vector<PairFinding> findOverlaps(const std::vector<std::vector<Point2d>>& polygons, const ScanControl& control)
{
    std::vector<Extents3d> boxes;
    for (const auto& polygon : polygons) boxes.push_back(planExtents(polygon));
    Candidates candidates(boxes);
    std::vector<bool> listed(polygons.size(), false);
    std::vector<PairFinding> findings;
    for (std::size_t a = 0; a + 1 < polygons.size(); ++a) {
        if (listed[a]) continue;
        notifySeed(control, a);
        std::vector<Point2d> points = polygons[a];
        std::vector<Point2d> hull;
        convexHull(points, hull);
        // A hull of fewer than 3 points clips nothing.
        std::vector<std::size_t> later;
        if (hull.size() >= 3) later = candidates.after(a, polygons.size(), true);
        auto judge = [&](std::size_t b) {
            return overlapArea(hull, polygons[b]) > kOverlapTolerance ? Verdict::Pair : Verdict::Apart;
        };
        if (pairSeed(a, later, judge, listed, control, findings)) break;
    }
    return findings;
}

std::vector<PairFinding> findDuplicates(const std::vector<double>& areas, const std::vector<Extents3d>& extents,
                                        const std::function<double(std::size_t, std::size_t)>& commonArea,
                                        const ScanControl& control)
{
    Candidates candidates(extents);
    std::vector<bool> listed(areas.size(), false);
    std::vector<PairFinding> findings;
    for (std::size_t a = 0; a + 1 < areas.size(); ++a) {
        if (listed[a]) continue;
        notifySeed(control, a);
        double areaA = areas[a];
        if (areaA < 0.0) {
            if (stopRequested(control)) break;
            continue;
        }
        bool boxed = !extents[a].isEmpty() && areaA > kNoisyArea;
        auto judge = [&](std::size_t b) {
            // Areas that differ cannot be one region: no need to intersect.
            if (areas[b] < 0.0 || std::fabs(areaA - areas[b]) > kOverlapTolerance) return Verdict::Skipped;
            double common = commonArea(a, b);
            return common > 0.0 && std::fabs(areaA - common) < kOverlapTolerance ? Verdict::Pair : Verdict::Apart;
        };
        if (pairSeed(a, candidates.after(a, areas.size(), boxed), judge, listed, control, findings)) break;
    }
    return findings;
}

std::vector<std::size_t> findCrossingContours(const std::vector<double>& startZ, const std::vector<Extents3d>& extents,
                                              const std::function<bool(std::size_t, std::size_t)>& meet,
                                              const std::function<void(std::size_t a)>& seedStarted)
{
    Candidates candidates(extents);
    std::vector<bool> listed(startZ.size(), false);
    std::vector<std::size_t> crossing;
    auto list = [&](std::size_t k) {
        if (!listed[k]) crossing.push_back(k);
        listed[k] = true;
    };
    for (std::size_t a = 0; a < startZ.size(); ++a) {
        if (seedStarted) seedStarted(a);
        for (std::size_t b : candidates.after(a, startZ.size(), !extents[a].isEmpty())) {
            // A pair whose contours are both listed already changes nothing.
            if (listed[a] && listed[b]) continue;
            if (std::fabs(startZ[a] - startZ[b]) > kOverlapTolerance && meet(a, b)) {
                list(a);
                list(b);
            }
        }
    }
    return crossing;
}

std::vector<std::size_t> listedPolygons(const std::vector<PairFinding>& findings)
{
    std::vector<std::size_t> listed;
    for (const PairFinding& f : findings) {
        listed.push_back(f.seed);
        listed.insert(listed.end(), f.partners.begin(), f.partners.end());
    }
    return listed;
}

}  // namespace vorn
