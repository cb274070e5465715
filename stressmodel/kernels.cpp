#include "stressmodel/kernels.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "stressmodel/influence_fft.h"
#include "stressmodel/sor.h"

namespace vorn {

IndexWindow stressWindow(double centre, double radius, int count)
{
    int lo = static_cast<int>(centre - radius - 0.5);
    int hi = static_cast<int>(centre + radius + 0.5);
    if (lo < 1) {
        lo = 1;
        if (hi < 1) hi = 0;
    }
    if (hi > count) {
        hi = count;
        if (lo > count) lo = count + 1;
    }
    return {lo, hi};
}

namespace {

// Scratch of the separable sums, kept between calls so that a solver run
// allocates only when a larger grid comes along.
struct Workspace {
    std::vector<IndexWindow> windowsY;      // per source column
    std::vector<std::size_t> bandStart;     // per source column, into the bands
    std::vector<double> expBand;            // exp(-b) over the column's window
    std::vector<double> ringBand;           // (b - 1) exp(-b) over the window
    std::vector<double> sumExp;             // per target column
    std::vector<double> sumRing;            // per target column
};

Workspace& workspace()
{
    static thread_local Workspace space;
    return space;
}

double centreOf(double origin, int index, double width) { return origin + (index - 0.5) * width; }

// The y factors of every source column over its window of target columns:
// b = dy^2 / D, exp(-b) and (b - 1) exp(-b).
void buildColumnBands(Workspace& space, const KernelField& source, const KernelField& target, double spread,
                      double radius, double ratio, double offsetY)
{
    space.windowsY.resize(static_cast<std::size_t>(source.countY) + 1);
    space.bandStart.resize(static_cast<std::size_t>(source.countY) + 1);
    std::size_t total = 0;
    for (int j = 1; j <= source.countY; ++j) {
        IndexWindow w = stressWindow((j - 0.5) * ratio + 0.5 + offsetY, radius, target.countY);
        space.windowsY[j] = w;
        space.bandStart[j] = total;
        if (w.hi >= w.lo) total += static_cast<std::size_t>(w.hi - w.lo + 1);
    }
    space.expBand.resize(total);
    space.ringBand.resize(total);
    for (int j = 1; j <= source.countY; ++j) {
        const double ys = centreOf(source.originY, j, source.width);
        const IndexWindow w = space.windowsY[j];
        double* e = space.expBand.data() + space.bandStart[j];
        double* r = space.ringBand.data() + space.bandStart[j];
        for (int l = w.lo; l <= w.hi; ++l) {
            const double dy = centreOf(target.originY, l, target.width) - ys;
            const double b = dy * dy / spread;
            const double eb = std::exp(-b);
            e[l - w.lo] = eb;
            r[l - w.lo] = (b - 1) * eb;
        }
    }
}

// Sums one source row along y: for every target column l, the source values
// weighted by the column factors of the windows that reach l.
void sumSourceRow(Workspace& space, const double* row, int countY, int targetCountY)
{
    space.sumExp.assign(static_cast<std::size_t>(targetCountY) + 1, 0.0);
    space.sumRing.assign(static_cast<std::size_t>(targetCountY) + 1, 0.0);
    double* sumE = space.sumExp.data();
    double* sumR = space.sumRing.data();
    for (int j = 1; j <= countY; ++j) {
        const double u = row[j - 1];
        const IndexWindow w = space.windowsY[j];
        if (u == 0 || w.hi < w.lo) continue;
        const double* e = space.expBand.data() + space.bandStart[j] - w.lo;
        const double* r = space.ringBand.data() + space.bandStart[j] - w.lo;
        for (int l = w.lo; l <= w.hi; ++l) {
            sumE[l] += u * e[l];
            sumR[l] += u * r[l];
        }
    }
}

}  // namespace

bool propagateStress(const KernelField& source, const KernelField& target, double distance, const KernelRock& rock,
                     const RowCallback& beforeRow)
{
    if (fullWindowConvolution(source, target, distance) && convolutionPays(source, target))
        return propagateStressByConvolution(source, target, distance, rock, beforeRow);
    return propagateStressSeparable(source, target, distance, rock, beforeRow);
}

bool propagateStressSeparable(const KernelField& source, const KernelField& target, double distance,
                              const KernelRock& rock, const RowCallback& beforeRow)
{
    const double lamination = rock.lamination;
    const double prefactor = rock.modulus / (lamination * kEightPi * distance * distance);
    const double spread = static_cast<double>(rock.lamination * 4.0f) * std::fabs(distance);
    const double w = target.width;
    const double radius = std::fabs(distance) * 10 / w;
    const double ratio = source.width / w;
    const double offsetX = (source.originX - target.originX) / w;
    const double offsetY = (source.originY - target.originY) / w;
    const double scale = prefactor * (source.width * source.width);

    Workspace& space = workspace();
    buildColumnBands(space, source, target, spread, radius, ratio, offsetY);
    for (int i = 1; i <= source.countX; ++i) {
        if (beforeRow && !beforeRow(i, source.countX)) return false;
        const IndexWindow wx = stressWindow((i - 0.5) * ratio + 0.5 + offsetX, radius, target.countX);
        if (wx.hi < wx.lo) continue;
        sumSourceRow(space, &source.at(i, 1), source.countY, target.countY);
        const double xs = centreOf(source.originX, i, source.width);
        const double* sumE = space.sumExp.data();
        const double* sumR = space.sumRing.data();
        for (int k = wx.lo; k <= wx.hi; ++k) {
            const double dx = centreOf(target.originX, k, w) - xs;
            const double a = dx * dx / spread;
            const double ea = std::exp(-a);
            // (a + b - 1) e^(-a-b) = a e^-a * e^-b + e^-a * (b - 1) e^-b
            const double fx = scale * a * ea;
            const double gx = scale * ea;
            double* out = &target.at(k, 1) - 1;
            for (int l = 1; l <= target.countY; ++l) out[l] += fx * sumE[l] + gx * sumR[l];
        }
    }
    return true;
}

void remoteDisplacement(const KernelField& source, const KernelField& target, double distance,
                        const KernelRock& rock, const std::function<void(int row)>& afterRow)
{
    const double c = source.width;
    const double prefactor = (1 / (static_cast<double>(rock.lamination) * kEightPi * distance)) * (c * c);
    const double spread = static_cast<double>(rock.lamination * 4.0f) * std::fabs(distance);

    // exp(-dy^2 / D) of every source column and target column, all columns.
    std::vector<double> columnExp(static_cast<std::size_t>(source.countY) * target.countY);
    for (int j = 1; j <= source.countY; ++j) {
        const double ys = centreOf(source.originY, j, c);
        for (int l = 1; l <= target.countY; ++l) {
            const double dy = centreOf(target.originY, l, target.width) - ys;
            columnExp[static_cast<std::size_t>(j - 1) * target.countY + (l - 1)] = std::exp(-(dy * dy / spread));
        }
    }
    std::vector<double> rowSum(static_cast<std::size_t>(target.countY));
    for (int i = 1; i <= source.countX; ++i) {
        std::fill(rowSum.begin(), rowSum.end(), 0.0);
        const double* row = &source.at(i, 1);
        for (int j = 1; j <= source.countY; ++j) {
            const double u = row[j - 1];
            if (u == 0) continue;
            const double* e = columnExp.data() + static_cast<std::size_t>(j - 1) * target.countY;
            for (int l = 0; l < target.countY; ++l) rowSum[l] += u * e[l];
        }
        const double xs = centreOf(source.originX, i, c);
        for (int k = 1; k <= target.countX; ++k) {
            const double dx = centreOf(target.originX, k, target.width) - xs;
            const double weight = prefactor * std::exp(-(dx * dx / spread));
            double* out = &target.at(k, 1);
            for (int l = 0; l < target.countY; ++l) out[l] += weight * rowSum[l];
        }
        if (afterRow) afterRow(i);
    }
}

int solveLoadedPlate(double* convergence, std::ptrdiff_t stride, const KernelField& load,
                     const PlateSettings& settings,
                     const std::function<void(int iteration, const SweepChange& change)>& report,
                     const std::function<bool()>& beforeIteration)
{
    const double a = settings.overRelaxation * 0.25;
    const double b = 1.0 - settings.overRelaxation;
    const float twoOverLE = 2.0f / (settings.rock.lamination * settings.rock.modulus);
    const double g = twoOverLE * (load.width * load.width * a);
    int counter = 1;
    double largest = settings.tolerance + 1.0f;
    auto rhs = [&load](int x, int y) { return load.at(x, y); };
    while (std::fabs(largest) > settings.tolerance) {
        if (counter > settings.maxIterations) break;
        if (beforeIteration && !beforeIteration()) break;
        const SweepChange change = sorSweep(convergence, stride, load.countX, load.countY, a, b, g, rhs);
        largest = change.change;
        if (counter % 100 == 0 && report) report(counter, change);
        ++counter;
    }
    return counter;
}

}  // namespace vorn
