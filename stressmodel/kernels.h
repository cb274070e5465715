// Influence kernels of the laminated rock mass and the plate relaxation, as
// free functions on plain arrays, for the seam model (CModelDat) and the
// overburden front end alike.
//
//   KernelField    a view of element values indexed from 1: `at(k, l)` with
//                  k in 1..countX, l in 1..countY; element (k, l + 1) follows
//                  (k, l), and `stride` leads from (k, l) to (k + 1, l). Its
//                  width and the corner (originX, originY) of element (1, 1)
//                  place the centres at origin + (index - 0.5) * width.
//   KernelRock     the host rock's modulus E and lamination length L, floats
//                  as the model keeps them.
//   propagateStress(source, target, distance, rock, beforeRow)
//                  adds to target the vertical stress that the convergence
//                  field source causes at the signed vertical distance, each
//                  source element within its square window of half-width
//                  10 |distance| (+ half an element) around it. `beforeRow`
//                  (optional) is called with (i, countX) before source row i;
//                  returning false stops at once (target keeps the rows
//                  done) and the function returns false.
//   remoteDisplacement(source, target, distance, rock, afterRow)
//                  adds the displacement the field causes, over all target
//                  elements; `afterRow` is called after each source row.
//   A mirror seam is the source negated: negate before, restore after.
//
//   PlateSettings, solveLoadedPlate(convergence, stride, load, settings, report)
//                  the topographic plate: over-relaxed Gauss-Seidel sweeps of
//                  the plate equation under `load` (its counts and width are
//                  the plate's), fixed rim, until the
//                  largest change of a sweep is within the tolerance or the
//                  sweeps run out; `report` gets every hundredth iteration,
//                  and `beforeIteration` (optional) is asked before each
//                  one: false ends the sweeps there.
//                  Returns the iteration counter (one more than the sweeps).
//
// Both sums are evaluated as separable sums: with T = (dx^2 + dy^2) / D the
// factor (T - 1) exp(-T) is a sum of products of a function of dx and a
// function of dy, so a source row is first summed along y for every target
// column and then spread along x, which costs a few small matrix products
// instead of one exponential per source and target pair. Large passes in
// which every source element reaches the whole target go through FFT
// convolutions instead (influence_fft.h).
#pragma once

#include <cstddef>
#include <functional>

namespace vorn {

struct KernelField {
    double* values = nullptr;  // element (1, 1)
    std::ptrdiff_t stride = 0; // from (k, l) to (k + 1, l)
    int countX = 0;
    int countY = 0;
    double width = 0;
    double originX = 0;
    double originY = 0;

    double& at(int k, int l) const { return values[(k - 1) * stride + (l - 1)]; }
};

struct KernelRock {
    float modulus = 0;
    float lamination = 0;
};

// 8 pi as the model writes it.
inline constexpr double kEightPi = 25.132741228718345;

// The range lo..hi of target indices (1..count) that a source element
// centred at target index position `centre` reaches with window half-width
// `radius`, truncated towards zero; lo > hi when the window misses.
struct IndexWindow {
    int lo;
    int hi;
};
IndexWindow stressWindow(double centre, double radius, int count);

using RowCallback = std::function<bool(int row, int rowCount)>;

bool propagateStress(const KernelField& source, const KernelField& target, double distance, const KernelRock& rock,
                     const RowCallback& beforeRow = {});
// propagateStress by the separable sums alone, whatever the sizes.
bool propagateStressSeparable(const KernelField& source, const KernelField& target, double distance,
                              const KernelRock& rock, const RowCallback& beforeRow = {});
void remoteDisplacement(const KernelField& source, const KernelField& target, double distance,
                        const KernelRock& rock, const std::function<void(int row)>& afterRow = {});

struct PlateSettings {
    KernelRock rock;
    float overRelaxation = 1;
    float tolerance = 0;
    int maxIterations = 0;
};

// The largest change of one sweep and where it happened.
struct SweepChange {
    double change = 0;
    int x = 0;
    int y = 0;
};

// `convergence` points at rim element (0, 0) of a (countX + 2) x (countY + 2)
// block with the given stride; `load` is a KernelField over the interior.
int solveLoadedPlate(double* convergence, std::ptrdiff_t stride, const KernelField& load,
                     const PlateSettings& settings,
                     const std::function<void(int iteration, const SweepChange& change)>& report = {},
                     const std::function<bool()>& beforeIteration = {});

}  // namespace vorn
