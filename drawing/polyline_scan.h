// The pair scans of the polyline checks, on values: which closed polygons
// may overlap, which closed curves duplicate one another, which contours of
// different elevation cross. Each visits the pairs a before b in the order
// of the selection and reports in that order; pairs that cannot count are
// cut through an R-tree of plan boxes (boxes apart cannot share area or
// meet), and the duplicate scan compares areas before it asks for the
// costly overlap.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "drawing/geom_types.h"

namespace vorn {

// What a scan tells its caller while it runs, and how it learns of a user
// break. Every hook may be left empty.
struct ScanControl {
    std::function<void(std::size_t a)> seedStarted;              // a becomes the seed
    std::function<void(std::size_t a, std::size_t b)> pairFound;  // b counts against a
    std::function<void(std::size_t a, bool found)> seedFinished;
    // Polled after each pair tested and after each seed; true ends the scan.
    std::function<bool()> stopRequested;
};

// A seed and the later polygons that count against it, in order.
struct PairFinding {
    std::size_t seed = 0;
    std::vector<std::size_t> partners;
    friend bool operator==(const PairFinding&, const PairFinding&) = default;
};

// The overlap check: for each polygon a not yet listed (a seed or a partner
// of an earlier seed), every later polygon b that its convex hull overlaps
// by more than 1e-10 in area. The hull stands in for a, so a polygon in a
// concave bay of another counts.
std::vector<PairFinding> findOverlaps(const std::vector<std::vector<Point2d>>& polygons, const ScanControl& control);

// The duplicate check over curves with their areas (negative: no area) and
// plan extents: for each a not yet kept or found a duplicate, each later b
// of the same area within 1e-10 whose common area with a (from
// `commonArea`, the region overlap) is above 0 and within 1e-10 of a's.
std::vector<PairFinding> findDuplicates(const std::vector<double>& areas, const std::vector<Extents3d>& extents,
                                        const std::function<double(std::size_t, std::size_t)>& commonArea,
                                        const ScanControl& control);

// The contour intersection check: the contours of the pairs a before b
// whose start elevations differ by more than 1e-10 and which meet in plan
// (`meet`), each once, in the order they are first found. No user break.
std::vector<std::size_t> findCrossingContours(const std::vector<double>& startZ, const std::vector<Extents3d>& extents,
                                              const std::function<bool(std::size_t, std::size_t)>& meet,
                                              const std::function<void(std::size_t a)>& seedStarted);

// The polygons listed by the findings: each seed, then its partners (a
// partner listed before is listed again).
std::vector<std::size_t> listedPolygons(const std::vector<PairFinding>& findings);

// Plan box of a point list (empty for none).
Extents3d planExtents(const std::vector<Point2d>& points);

}  // namespace vorn
