// A grid from scattered points (drill holes, survey points): each cell
// averages the points near its centre, in a search radius that grows by one
// cell width until enough points are found or the limit is reached.
//
// PointInterpolator gives the same numbers as the plain pass over all
// points for every radius, summed in the same order (the order of reading),
// through a bucket index of the points. The point import file is read here.
#pragma once

#include <string>
#include <vector>

#include "drawing/geom_types.h"

namespace vorn {

enum class PointAverage { Simple = 0, InverseDistance = 1 };

// The value of a cell from the listed points, in the order of reading:
// one point gives its z; several the simple average, or the inverse
// distance average whose walk stops at a point closer than 1e-10 (a first
// such point gives 0/0).
double pointCellValue(const std::vector<Point3d>& points, const std::vector<int>& listed, const Point3d& centre,
                      PointAverage average);

class PointInterpolator {
public:
    // `cellWidth` is the first radius and its growth (dx); `searchLimit`
    // ends the growth; at least `minPoints` are wanted.
    PointInterpolator(std::vector<Point3d> points, double cellWidth, double searchLimit, int minPoints);

    // The points within the final radius around `centre`, in reading order
    // (empty: no point for this cell).
    void search(const Point3d& centre, std::vector<int>& listed);

    const std::vector<Point3d>& points() const { return points_; }

private:
    double kthDistanceBound(const Point3d& centre, double beyond);
    template <class Visit> void forBucketsWithin(const Point3d& centre, double radius, Visit&& visit) const;

    std::vector<Point3d> points_;
    std::vector<double> radii_;  // the radii a search can reach, in order
    int minPoints_;

    double originX_ = 0.0, originY_ = 0.0, bucket_ = 1.0;
    int bucketsX_ = 0, bucketsY_ = 0;
    std::vector<int> bucketStart_;
    std::vector<int> bucketPoints_;
    std::vector<double> nearest_;  // scratch: the smallest distances so far
};

// Reads the point import file: a line holding a comma splits at commas,
// any other at single blanks after runs of blanks are folded; exactly three
// fields give x, y and z; other lines are skipped. False when the file
// cannot be opened (`cause` set to the file error cause).
bool readPointFile(const std::string& path, std::vector<Point3d>& pointsOut, int& cause);

}  // namespace vorn
