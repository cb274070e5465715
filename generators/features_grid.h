// Influence of linear geological features (faults, clay veins) on the
// cells of a grid: a cell within the influence distance D of a feature
// gets a value that falls linearly from 100 on the feature to 0 at D;
// features combine by their maximum or by accumulation capped at 100.
//
// The plain form measures the distance from every cell of a feature's
// window. FeatureCells finds, exactly, the cells of the window that can lie
// within D (a superset by a small margin), so the closest point is asked
// only for those: same cells, same distances, same values.
#pragma once

#include <functional>
#include <vector>

#include "drawing/entity_types.h"

class myGrid;

namespace vorn {

// A segment of a feature in plan: a straight chord, or an arc over the
// chord with the polyline's bulge.
struct FeatureSegment {
    Point3d a;
    Point3d b;
    double bulge = 0.0;
};

// The drawn segments of a polyline of any kind or a line, as the curve
// runs (spline control vertices left out, the closing segment included).
std::vector<FeatureSegment> featureSegments(const Entity& entity);

// (D - d) * 100 / D.
double featureFall(double distance, double influence);
// Adds the value (capped at 100) or keeps the greater of the two.
double combineFeatureValue(double cell, double value, bool accumulate);

// A cell index pair, i along X and j along Y.
struct CellIndex {
    int i;
    int j;
};

// An inclusive window of cells.
struct CellWindow {
    int i0, i1, j0, j1;
};

class FeatureCells {
public:
    explicit FeatureCells(const myGrid& grid);

    // The cells of `window` whose centre may lie within `influence` of the
    // feature, in the plain order (i outer, j inner).
    void near(const std::vector<FeatureSegment>& segments, double influence, const CellWindow& window,
              std::vector<CellIndex>& cells);

private:
    const myGrid& grid_;
    std::vector<unsigned> stamp_;
    unsigned current_ = 0;
};

// The closest point of the feature to a cell centre, in plan; false when
// the feature cannot answer.
using FeatureClosestPoint = std::function<bool(const Point3d& centre, Point3d& closestOut)>;

// Rates one feature into the grid over the given cells: d is the plan
// distance from the cell centre to the closest point; a cell farther than
// D is left. Returns the number of cells changed.
int rateFeatureCells(myGrid& grid, const std::vector<CellIndex>& cells, double influence, bool accumulate,
                     const FeatureClosestPoint& closest);

}  // namespace vorn
