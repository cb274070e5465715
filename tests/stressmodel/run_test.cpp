// Whole runs of small models: the level loop as the `.out` log shows it,
// the topographic stage on a flat surface and the
// result file layouts.
#include <algorithm>
#include <regex>

#include "base/userbreak.h"
#include "stressmodel/modeldat.h"
#include "tests/stressmodel/fixture.h"

namespace vorn::testing {
namespace {

struct Pass {
    int step;
    int level;
    int largest;
};

class RunTest : public ScratchFolderTest {
protected:
    // Reads, prints and runs the model; gives Run's result.
    int run(const ModelText& text)
    {
        if (load(text) != 0 || model->PrintInput() != 0) return -100;
        return model->Run();
    }
    // Writes and reads the model as `model.inp`.
    int load(const ModelText& text)
    {
        writeFile("model.inp", text.text());
        model = std::make_unique<CModelDat>();
        model->SetInputPath(path("model.inp"));
        model->SetBaseName("model");
        return model->ReadInput();
    }
    static ModelText twoSeamsTwoSteps()
    {
        ModelText text;
        text.host = "      0.2500,    3000000.0,        600.0,   2,   0";
        text.seams.push_back("0.0, 0.0, -7680.0,         60.0");
        text.control = "        1.50,     0.000001,    2000,   1,   2,   1,   0,   0";
        text.steps = 2;
        text.fillCodes();
        return text;
    }
    // The solution passes of the log: the first seamCount lines of a step
    // are its first solution, then one pass per seamCount lines.
    std::vector<Pass> passes(int seams) const
    {
        const std::regex took(R"(SOR took (-?\d+) iterations \d+ secs to converge - Step (\d+), Seam (\d+), Level (\d))");
        std::vector<Pass> result;
        for (const std::string& line : lines(readFile("model.out"))) {
            std::smatch m;
            if (!std::regex_search(line, m, took)) continue;
            const int seam = std::stoi(m[3]);
            if (seam == 1) result.push_back({std::stoi(m[2]), std::stoi(m[4]), 0});
            result.back().largest = std::max(result.back().largest, std::stoi(m[1]));
        }
        return result;
    }

    std::unique_ptr<CModelDat> model;
};

const int kThreshold[4] = {20, 100, 500, 1000};

TEST_F(RunTest, OneSeamWithoutSurfaceMakesOnePassPerLevel)
{
    ModelText text;
    ASSERT_EQ(run(text), 0);
    std::vector<int> levels;
    for (const Pass& p : passes(1)) levels.push_back(p.level);
    EXPECT_EQ(levels, (std::vector<int>{3, 3, 2, 1, 0}));
    const std::string log = readFile("model.out");
    EXPECT_EQ(log.find("Calculating Interseam"), std::string::npos);
    EXPECT_EQ(log.find("Calculating Mirror"), std::string::npos);
}

TEST_F(RunTest, LevelsSettleByTheirThresholdsAndCarryTheCountToTheNextStep)
{
    // A loose tolerance ends step 1 with a pass of one iteration, so step 2
    // skips the external stresses at level 3 once; a tight one does not.
    std::vector<bool> recalculatedAtStep2;
    for (const char* tolerance : {"0.000001", "0.01"}) {
        SCOPED_TRACE(tolerance);
        ModelText text = twoSeamsTwoSteps();
        text.control = std::string("        1.50, ") + tolerance + ",    2000,   1,   2,   1,   0,   0";
        ASSERT_EQ(run(text), 0);
        const std::vector<Pass> all = passes(2);
        for (int step = 1; step <= 2; ++step) {
            std::vector<Pass> p;
            std::copy_if(all.begin(), all.end(), std::back_inserter(p), [step](const Pass& x) { return x.step == step; });
            ASSERT_GE(p.size(), 5u);
            for (std::size_t n = 1; n + 1 < p.size(); ++n) {
                const bool repeat = p[n].largest > kThreshold[p[n].level];
                EXPECT_EQ(p[n + 1].level, repeat ? p[n].level : p[n].level - 1) << "pass " << n;
            }
            EXPECT_EQ(p.back().level, 0);
            EXPECT_LE(p.back().largest, 20);
        }
        const Pass lastOfStep1 = *std::find_if(all.rbegin(), all.rend(), [](const Pass& x) { return x.step == 1; });
        const std::string log = readFile("model.out");
        const bool recalculated =
            log.find("Calculating Interseam Stresses - Step 2, Seam 1 on Seam 2, Level 3") != std::string::npos;
        EXPECT_EQ(recalculated, lastOfStep1.largest > 1);
        EXPECT_NE(log.find("Calculating Mirror-Image Stresses - Step 1, Seam 2 on Seam 2, Level 0"), std::string::npos);
        recalculatedAtStep2.push_back(recalculated);
    }
    EXPECT_EQ(recalculatedAtStep2, (std::vector<bool>{true, false}));
}

TEST_F(RunTest, AFailedSeamEndsOnlyTheFirstSolutionOfAStep)
{
    ModelText text = twoSeamsTwoSteps();
    text.codeRows[15][3] = '0';  // seam 2 of step 1 holds a refused code
    EXPECT_EQ(run(text), 1);

    // In a level pass the failed seam counts as settled and the pass goes on.
    text = twoSeamsTwoSteps();
    text.codeRows[35][3] = '0';  // seam 2 of step 2, the codes the read leaves
    ASSERT_EQ(load(text), 0);
    model->Initialize();
    TextWriter log;
    ASSERT_TRUE(log.open("model.out"));
    int largest = 1001;
    EXPECT_TRUE(model->SolveLevel(2, 0, largest, log));
    log.close();
    EXPECT_GT(largest, 0);
    EXPECT_NE(readFile("model.out").find("SOR took -1 iterations 0 secs to converge - Step 2, Seam 2, Level 0"),
              std::string::npos);
}

TEST_F(RunTest, UserBreakEndsTheRunAsAFailure)
{
    ModelText text;
    ASSERT_EQ(load(text), 0);
    ASSERT_EQ(model->PrintInput(), 0);
    requestUserBreak();
    EXPECT_EQ(model->Run(), 1);
    EXPECT_EQ(model->cancelled, 1);
    EXPECT_FALSE(userBreakRequested());
    const std::string log = readFile("model.out");
    EXPECT_NE(log.find("Reading in material codes for Step 1, Seam 1"), std::string::npos);
    EXPECT_EQ(log.find("SOR took"), std::string::npos);
}

TEST_F(RunTest, FlatSurfaceGivesTheOverburdenOfTheDatumExactly)
{
    ModelText text = twoSeamsTwoSteps();
    ASSERT_EQ(load(text), 0);
    model->topographicStress = 1;
    std::string top = "1,400, 100.0, 20, 20, -400.0, -400.0, 7200.0\r\n  1,Height\r\n  1,in\r\n";
    for (int n = 0; n < 400; ++n) top += "   7200.0000\r\n";
    writeFile("model.top", top);
    model->Initialize();
    ASSERT_EQ(model->TopographicStress(), 0);
    for (int s = 1; s <= 2; ++s) {
        const float above = model->topoZ - (model->seamZ[s] - model->seamZ[1]);
        const double expected = model->density * above;
        for (int x = 1; x <= 10; ++x)
            for (int y = 1; y <= 10; ++y) ASSERT_EQ(model->overburdenStress(s, x, y), expected);
    }
    const std::string log = readFile("model.out");
    EXPECT_NE(log.find("Topographic SOR took 2 iterations to converge\r\n"), std::string::npos);
    EXPECT_NE(log.find("  DISTANCE ABOVE SEAM 1 OF TOPOGRAPHIC DATUM -- 7200.000000\r\n"), std::string::npos);
    EXPECT_FALSE(model->topoLoad.allocated());
}

TEST_F(RunTest, ResultFileLayouts)
{
    ModelText text = twoSeamsTwoSteps();
    text.control = "        1.50,     0.000001,    2000,   1,   2,   1,   1,   0";
    text.offSeam = "      6,        300.0,   3,   2, -100.000000, 50.000000, -7000.000000";
    ASSERT_EQ(run(text), 0);

    const std::vector<std::string> f1 = lines(readFile("model.f1"));
    ASSERT_EQ(f1.size(), 3u + 2 * 100);
    EXPECT_EQ(f1[0], "  2,     100,           60,  10,  10,            0,            0");
    EXPECT_EQ(f1[1], "  5,Seam Convergence         ,Total Vertical Stress    ,Surface Effect Stress    "
                     ",Multiple Seam Stress     ,Overburden Stress        ");
    EXPECT_EQ(f1[2], "  5,                       in,                      psi,                      psi,"
                     "                      psi,                      psi");
    EXPECT_TRUE(std::regex_match(f1[3], std::regex(R"(( *[-0-9.e+]+, ){4} *[-0-9.e+]+)")));
    EXPECT_EQ(lines(readFile("model.f2")).size(), 3u + 2 * 100);

    const std::vector<std::string> off = lines(readFile("model.off"));
    ASSERT_EQ(off.size(), 3u + 2 * 6);
    EXPECT_EQ(off[0], "  2,       6,          300,   3,   2,         -100,           50");
    EXPECT_EQ(off[1], "  1,Off-seam Displacment");
    EXPECT_EQ(off[2], "  1,in");

    const std::vector<std::string> outLines = lines(readFile("model.out"));
    EXPECT_EQ(outLines[0], "Small test model");
    EXPECT_EQ(outLines[1], "");
    EXPECT_NE(std::find(outLines.begin(), outLines.end(), "       1        0.00        0.00    -7680.00       60.00"), outLines.end());
    EXPECT_NE(std::find(outLines.begin(), outLines.end(), "  Linear Elastic Coal"), outLines.end());
    EXPECT_NE(std::find(outLines.begin(), outLines.end(), "     FINE MESH, STEP = 2, SEAM = 2"), outLines.end());
    EXPECT_NE(std::find(outLines.begin(), outLines.end(), "Total Time for Off-Seam Displacement Calculations was 0 secs."), outLines.end());

    // The cumulative table adds the per-step sums again: its loops are the
    // sum of the seam tables' totals over the steps.
    int seamTotals = 0, finalTotal = 0;
    bool inFinal = false;
    for (std::size_t n = 0; n < outLines.size(); ++n) {
        if (outLines[n] == "Final Cumulative Profile Information for all Steps and Seams.") inFinal = true;
        if (outLines[n].rfind("             ", 0) == 0 && n > 0 && outLines[n - 1][0] == '-') {
            (inFinal ? finalTotal : seamTotals) += std::stoi(outLines[n]);
        }
    }
    EXPECT_EQ(finalTotal, seamTotals);
    EXPECT_GT(finalTotal, 0);

    ASSERT_EQ(run(text), 0);  // a rerun replaces the files
    EXPECT_EQ(lines(readFile("model.f1")).size(), 3u + 2 * 100);
    EXPECT_EQ(lines(readFile("model.off")).size(), 3u + 2 * 6);
}

}  // namespace
}  // namespace vorn::testing
