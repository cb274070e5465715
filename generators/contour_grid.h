// Interpolation of a surface from contour lines, cell by cell: a square
// window around the cell centre grows by one cell width until it crosses
// at least four contours; the closest point of each contour is found, the
// nearest contour is paired with one on the opposite side (or the first
// higher one), and the value interpolates (or extrapolates) between them.
//
// ContourInterpolator gives the same numbers as the plain window-by-window
// search over every contour, in the same order, through a bucket index of
// the contours' segments. The plain pieces that both share stand here too.
#pragma once

#include <functional>
#include <vector>

#include "drawing/geom_types.h"

namespace vorn {

// A contour as its vertices, in the order of selection; arcs count as
// chords. z of a vertex is the contour's elevation there.
using ContourLine = std::vector<Point3d>;

// Whether the closed window [lower, upper] crosses the contour: a vertex
// inside it (its edges included) or a segment meeting one of its edges.
// This is the crossing test of a window selection.
bool windowCrossesContour(const ContourLine& contour, const Point2d& lower, const Point2d& upper);

// The point of the contour closest to p in space: the first segment (in
// vertex order) at the smallest distance wins.
Point3d closestPointOnContour(const ContourLine& contour, const Point3d& p);

// Squared distance in space from p to the segment ab, and the closest point.
double segmentDistance3dSquared(const Point3d& a, const Point3d& b, const Point3d& p, Point3d& closestOut);

// Angle in [0, pi] between two plan vectors, as the platform's angleTo.
double planAngle(double ux, double uy, double vx, double vy);

// The value of a cell from the closest points of the contours found, in
// their selection order (at least one): the exchange sort by plan distance,
// the opposite neighbour (or the first higher one) moved to position 1, and
// the interpolation between the two. Reorders `closest`.
double contourValueFromClosest(std::vector<Point3d>& closest, const Point3d& p);

// The result of the search around one cell centre.
struct ContourCellResult {
    bool enough = false;  // at least four contours before the search limit
    double value = 0.0;   // the value when enough
    int found = 0;        // contours in the last window
};

// Called with the lower and upper corner of every window selected, in
// world coordinates (the page prints them as the selection does).
using ContourWindowObserver = std::function<void(const Point2d& lower, const Point2d& upper)>;

class ContourInterpolator {
public:
    // `cellWidth` is the growth of the window (dx); `searchLimit` ends it.
    ContourInterpolator(std::vector<ContourLine> contours, double cellWidth, double searchLimit);

    // The search and value for the cell centre p (z: the cell's value).
    ContourCellResult valueAt(const Point3d& p, const ContourWindowObserver& observer = {});

    const std::vector<ContourLine>& contours() const { return contours_; }

private:
    // A segment in a bucket, with its box in plan.
    struct Entry {
        int contour;
        int segment;
        double x0, y0, x1, y1;
    };

    void buildIndex();
    void beginCell(const Point3d& p);
    // Visits rings of buckets until everything within `reach` (maximum
    // norm) of the cell centre has been seen.
    void ensureSeen(double reach);
    void visitBucket(int bx, int by);
    // The contours crossing the window of half-width w, in selection order;
    // those whose distance is within eps of w take the crossing test.
    void foundAt(double w, double eps, std::vector<int>& found);
    // The fourth smallest distance seen, in the maximum norm.
    double fourthNearest();
    Point3d closestOf(int contour);

    std::vector<ContourLine> contours_;
    std::vector<bool> flat_;  // all vertices at one elevation
    double cellWidth_;
    std::vector<double> widths_;  // the windows the search can reach, in order

    // Bucket grid over all segments.
    double originX_ = 0.0, originY_ = 0.0, bucket_ = 1.0;
    int bucketsX_ = 0, bucketsY_ = 0;
    std::vector<int> bucketStart_;
    std::vector<Entry> entries_;

    // State of the current cell.
    Point3d p_;
    int centreX_ = 0, centreY_ = 0;
    int ring_ = -1;
    double seenReach_ = -1.0;
    std::vector<std::vector<int>> seen_;  // per contour, the entries seen
    std::vector<double> nearest_;  // per contour, smallest maximum-norm distance seen
    std::vector<double> scratch_;
    std::vector<int> touched_;
};

}  // namespace vorn
