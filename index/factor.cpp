#include "index/factor.h"

#include "grid/grid.h"
#include "base/report.h"
#include "base/textnum.h"

namespace {

// 100 * r^n with the square formed by multiplication.
double scaled(double r, int n) { return n == 2 ? 100.0 * (r * r) : 100.0 * r; }

// Linear and exponential share the bands; under "Inverse" the outer bands
// stay as under "Normal", so the index jumps at both limits.
double banded(double v, const FactorConversion& s, int n)
{
    const double L = s.lower;
    const double U = s.upper;
    if (v < L) return 0.0;
    if (v >= L && v <= U) {
        double r = s.tendency == kTendencyNormal ? (v - L) / (U - L) : (U - v) / (U - L);
        return scaled(r, n);
    }
    if (v > U) return 100.0;
    return v;
}

double step(double v, const FactorConversion& s)
{
    if (s.tendency != kTendencyNormal && s.tendency != kTendencyInverse) return v;
    const double high = s.tendency == kTendencyNormal ? 100.0 : 0.0;
    if (v > s.lower) return high;
    if (v <= s.lower) return 100.0 - high;
    return v;
}

}  // namespace

double normaliseFactorValue(double v, const FactorConversion& settings)
{
    switch (settings.function) {
    case kFunctionLinear: return banded(v, settings, 1);
    case kFunctionExponential: return banded(v, settings, 2);
    case kFunctionStep: return step(v, settings);
    default: return v;
    }
}

void normaliseFactorGrid(myGrid& grid, const FactorConversion& settings)
{
    for (int i = 0; i <= grid.xNum; ++i) {
        for (int j = 0; j <= grid.yNum; ++j) {
            double v = 0.0;
            if (grid.getValueChecked(i, j, v)) grid.setValue(i, j, normaliseFactorValue(v, settings));
        }
    }
}

FactorConversionResult runFactorConversion(const FactorConversion& settings)
{
    FactorConversionResult result;
    myGrid grid;
    result.read = grid.readGrd(settings.inputPath, 1);
    acutPrintf("\nLoad from file %s", settings.inputPath.c_str());
    grid.setTitle(settings.description);

    normaliseFactorGrid(grid, settings);

    if (settings.preview) grid.plot();
    result.written = grid.writeGrd(settings.outputPath);

    std::string saved = vorn::formatString("\nIndex has been saved to grid file< %s >", settings.outputPath.c_str());
    AfxMessageBox(saved);
    acutPrintf("%s", saved.c_str());
    acutPrintf("\nIndividual Factor Normalization/Formulization finished!");
    return result;
}
