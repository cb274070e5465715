#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <limits>

#include "grid/grid.h"
#include "index/factor.h"
#include "base/report.h"

namespace {
FactorConversion settings(int function, int tendency, double lower = 10.0, double upper = 20.0)
{
    FactorConversion s;
    s.function = function;
    s.tendency = tendency;
    s.lower = lower;
    s.upper = upper;
    return s;
}

}  // namespace

TEST(FactorNormalisation, TheTableOfFunctionsAndTendencies)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    struct Case {
        double v;
        int function;
        int tendency;
        double expected;
    };
    // Limits 10 and 20: the bands at L and U, the Inverse jumps just
    // outside them, Step at its limit, unknown functions and NaN kept.
    const Case cases[] = {
        {10.0, kFunctionLinear, kTendencyNormal, 0.0},
        {20.0, kFunctionLinear, kTendencyNormal, 100.0},
        {15.0, kFunctionLinear, kTendencyNormal, 50.0},
        {10.0, kFunctionLinear, kTendencyInverse, 100.0},
        {20.0, kFunctionLinear, kTendencyInverse, 0.0},
        {std::nextafter(10.0, 0.0), kFunctionLinear, kTendencyInverse, 0.0},
        {std::nextafter(20.0, 30.0), kFunctionLinear, kTendencyInverse, 100.0},
        {15.0, kFunctionExponential, kTendencyNormal, 25.0},
        {12.0, kFunctionExponential, kTendencyInverse, 100.0 * (0.8 * 0.8)},
        {-5.0, kFunctionExponential, kTendencyNormal, 0.0},
        {99.0, kFunctionExponential, kTendencyNormal, 100.0},
        {10.0, kFunctionStep, kTendencyNormal, 0.0},
        {10.0, kFunctionStep, kTendencyInverse, 100.0},
        {10.5, kFunctionStep, kTendencyNormal, 100.0},
        {1e9, kFunctionStep, kTendencyInverse, 0.0},
        {10.5, kFunctionStep, 7, 10.5},
        {12.5, kFunctionNone, kTendencyNormal, 12.5},
        {12.5, 3, kTendencyNormal, 12.5},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(normaliseFactorValue(c.v, settings(c.function, c.tendency)), c.expected)
            << c.v << " function " << c.function << " tendency " << c.tendency;
    }
    EXPECT_TRUE(std::isnan(normaliseFactorValue(nan, settings(kFunctionLinear, kTendencyNormal))));
    EXPECT_TRUE(std::isnan(normaliseFactorValue(nan, settings(kFunctionStep, kTendencyInverse))));
    EXPECT_TRUE(std::isnan(normaliseFactorValue(5.0, settings(kFunctionExponential, kTendencyNormal, 5.0, 5.0))));
}

TEST(FactorConversionRun, ConvertsAllNodesAndReports)
{
    auto dir = std::filesystem::temp_directory_path() / ("vorn_factor_tests_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    myGrid g;
    g.setup(2, 2, 1, 1, 0);
    for (int i = 0; i <= 2; ++i)
        for (int j = 0; j <= 2; ++j) g.setValue(i, j, 10.0 + i + j);
    g.setValue(2, 2, 1000.0);  // a node beyond the cells takes part too
    g.setTitle("Depth");
    std::string in = (dir / "in.grd").string();
    std::string out = (dir / "out.grd").string();
    ASSERT_TRUE(g.writeGrd(in));

    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope(capture);
    FactorConversion s = settings(kFunctionLinear, kTendencyNormal, 10.0, 14.0);
    s.inputPath = in;
    s.outputPath = out;
    s.description = "Depth Index";
    FactorConversionResult result = runFactorConversion(s);
    EXPECT_TRUE(result.read && result.written);
    EXPECT_EQ(capture.printed, "\nLoad from file " + in + "\nIndex has been saved to grid file< " + out + " >" +
                                   "\nIndividual Factor Normalization/Formulization finished!");
    ASSERT_EQ(capture.boxes.size(), 1u);
    EXPECT_EQ(capture.boxes[0].text, "\nIndex has been saved to grid file< " + out + " >");

    myGrid index;
    ASSERT_TRUE(index.readGrd(out, 1));
    EXPECT_EQ(index.getTitle(), "Depth Index");
    EXPECT_EQ(index.getValue(1, 1), 50.0);
    EXPECT_EQ(index.getValue(2, 2), 100.0);

    s.function = kFunctionNone;
    runFactorConversion(s);
    index.readGrd(out, 1);
    EXPECT_EQ(index.getValue(2, 2), 1000.0);
    EXPECT_EQ(index.getTitle(), "Depth Index");
}
