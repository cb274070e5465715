#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "shell/report.h"
#include "shell/textfile.h"
#include "shell/textnum.h"
#include "shell/userbreak.h"
#include "stressmodel/topomodel.h"
#include "tests/stressmodel/topo_test_util.h"

namespace {
namespace fs = std::filesystem;

// The lines of a `.tmp` file as the command writes them: a 10 x 10 seam of
// 1200 inch elements under a 12 x 12 surface grid of `thickness` inches.
struct TmpLines {
    std::string title = "Overburden stress input file";
    std::string host = "0.250000,3000000.000000,600.000000,2";
    std::string grid = "1200.000000,10,10,0.091667";
    std::string seam = "0.0,0.0";
    std::string control = "1.350000,0.000010,5000";
    std::string topo = "1200.000000,12,12,-1200.000000,-1200.000000,12000.000000";
    std::vector<double> values = std::vector<double>(144, 12000.0);

    std::string text() const
    {
        std::string out = title + "\r\n" + host + "\r\n" + grid + "\r\n" + seam + "\r\n" + control + "\r\n" + topo;
        for (double v : values) out += vorn::formatString("\r\n%f", v);
        return out;
    }
};

struct TopoModel : ::testing::Test {
    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope{capture};
    fs::path folder;
    CTopoModelDat model;

    void SetUp() override
    {
        folder = stresstest::testFolder("vorn_topo_model");
    }
    // Writes `lines` as model.tmp and reads it; the read's result.
    int read(const TmpLines& lines)
    {
        fs::path path = folder / "model.tmp";
        std::ofstream(path, std::ios::binary) << lines.text();
        model.SetInputPath(path.string());
        return model.ReadInput();
    }
    std::string lastBox() const { return capture.boxes.empty() ? std::string() : capture.boxes.back().text; }
};
}  // namespace

TEST_F(TopoModel, ReadsTheTmpFileAndDerivesTheOutPath)
{
    ASSERT_EQ(read(TmpLines{}), 0) << lastBox();
    EXPECT_EQ(model.outPath, (folder / "model.out").string());
    EXPECT_STREQ(model.title, "Overburden stress input file\n");
    EXPECT_EQ(model.unitCode, 2);
    EXPECT_EQ(model.elementsX, 10);
    EXPECT_FLOAT_EQ(model.density, 0.091667f);
    EXPECT_EQ(model.topoCountY, 12);
    EXPECT_FLOAT_EQ(model.topoX, -1200.0f);
    EXPECT_FLOAT_EQ(model.topoZ, 12000.0f);
    // sqrt(600^2 / (12 (1 - 0.25^2)))
    EXPECT_NEAR(model.lamination, 178.885, 1e-3);
    EXPECT_DOUBLE_EQ(model.topoLoad(12, 12), 12000.0);
}

TEST_F(TopoModel, EveryReadFailureHasItsMessageAndResult)
{
    struct Case {
        void (*spoil)(TmpLines&);
        int result;
        const char* message;
    };
    const std::vector<Case> cases = {
        {[](TmpLines& t) { t.host = "0.25,3000000"; }, 2, "Error reading the host properties - RI2a\n"},
        {[](TmpLines& t) { t.host = "0.25,3000000,600,4"; }, 2, "Can Only Specify a Unit Number up to 4 - RI2c\n"},
        {[](TmpLines& t) { t.grid = "1200.000000,10"; }, 5, "Error reading the general grid information - RI5a\n"},
        {[](TmpLines& t) { t.grid = "1200.000000,95,10,0.091667"; }, 5, "Fine mesh size must be divisible by 10 - RI5b\n"},
        {[](TmpLines& t) { t.grid = "0.000000,10,10,0.091667"; }, 5, "Element width must be non-zero - RI5c\n"},
        {[](TmpLines& t) { t.grid = "1200.000000,0,10,0.091667"; }, 5, "The number of X elements must be non-zero - RI5d\n"},
        {[](TmpLines& t) { t.grid = "1200.000000,10,0,0.091667"; }, 5, "The number of Y elements must be non-zero - RI5e\n"},
        {[](TmpLines& t) { t.seam = "0.0"; }, 6, "Error reading the seam coordinate information - RI6\n"},
        {[](TmpLines& t) { t.control = "1.35,0.00001"; }, 7, "Error reading the program control parameters - RI7a\n"},
        {[](TmpLines& t) { t.topo = "1200.0,12,12,0,0"; }, 2, "Error Reading the Topographic Header Line - RTI2a\n"},
        {[](TmpLines& t) { t.values.pop_back(); }, 3, "Error reading the Topographic Grid Stress - RTI3\n"},
        // Counts of four digits do not fit the three-character fields.
        {[](TmpLines& t) { t.grid = "1200.000000,1000,10,0.091667"; }, 5, "Error reading the general grid information - RI5a\n"},
    };
    for (const Case& c : cases) {
        TmpLines lines;
        c.spoil(lines);
        CTopoModelDat fresh;
        fs::path path = folder / "bad.tmp";
        std::ofstream(path, std::ios::binary) << lines.text();
        fresh.SetInputPath(path.string());
        EXPECT_EQ(fresh.ReadInput(), c.result) << c.message;
        EXPECT_EQ(lastBox(), c.message);
    }
    model.SetInputPath((folder / "absent.tmp").string());
    EXPECT_EQ(model.ReadInput(), 1);
    EXPECT_EQ(lastBox(), "Error in Opening Input File - RI1a\n");
    std::ofstream(folder / "empty.tmp", std::ios::binary) << "";
    model.SetInputPath((folder / "empty.tmp").string());
    EXPECT_EQ(model.ReadInput(), 1);
    EXPECT_EQ(lastBox(), "Error in Reading Title - RI1a\n");
}

TEST_F(TopoModel, PrintInputWritesTheBlocksWithTheUnitTextShiftedByOne)
{
    ASSERT_EQ(read(TmpLines{}), 0);
    ASSERT_EQ(model.PrintInput(), 0);
    std::string out = stresstest::slurp((folder / "model.out").string());
    const std::string expectedStart =
        "Overburden stress input file\r\n\r\n"
        "  IN THE FOLLOWING X,Y,Z REFER TO GLOBAL AXES OR COORDINATES\r\n"
        "  AND X1,X2,X3 OR 1,2,3 REFER TO LOCAL AXES OR COORDINATES\r\n\r\n"
        "  ROCK MASS PROPERTIES\r\n\r\n"
        "  POISSONS RATIO        - 0.250000\r\n"
        "  MODULUS OF ELASTICITY - 3000000.000000\r\n"
        "  LAYER THICKNESS       - 600.000000\r\n"
        "  SYSTEM OF UNITS       - 2\r\n\r\n"
        "  The units system integer is: - 2\r\n"
        "  This means that the parameter values were input to the pre-processor in: \r\n"
        "  - meters and Pascals,\r\n";
    EXPECT_EQ(out.substr(0, expectedStart.size()), expectedStart);
    EXPECT_NE(out.find("  DENSITY OF OVERBURDEN           -- 0.091667\r\n\r\n"
                       "  GLOBAL COORDINATES OF LOCAL ORIGINS AND SEAM THICKNESSES\r\n"
                       "  SEAM NO.         X           Y           Z     THICKNESS\r\n"
                       "        0.00        0.00\r\n\r\n"
                       "  PROGRAM FLOW CONTROL PARAMETERS\r\n\r\n"),
              std::string::npos);
    EXPECT_NE(out.find("  MAXIMUM NO. OF ITERATIONS       -- 5000\r\n"
                       "  STRESS CONVERGENCE CRITERION    -- 0.000010\r\n\r\n"
                       "  TOPOGRAPHIC GRID DETAILS\r\n\r\n"
                       "  X COORDINATE OF TOPOGRAPHIC GRID ORIGIN    -- -1200.000000\r\n"),
              std::string::npos);
    const std::string expectedEnd = "  NO. OF TOPOGRAPHIC BLOCKS ALONG Y AXIS     -- 12\r\n\r\n";
    EXPECT_EQ(out.substr(out.size() - expectedEnd.size()), expectedEnd);

    model.outPath = (folder / "no" / "such" / "model.out").string();
    EXPECT_EQ(model.PrintInput(), 1);
    EXPECT_EQ(lastBox(), "Error in Opening Output File - PI1\n");
}

TEST_F(TopoModel, FlatSurfaceGivesExactlyDensityTimesDepth)
{
    ASSERT_EQ(read(TmpLines{}), 0);
    ASSERT_EQ(model.PrintInput(), 0);
    ASSERT_EQ(model.Run(), 0);
    const double expected = 0.091667f * 12000.0f;
    for (int x = 1; x <= 10; ++x) {
        for (int y = 1; y <= 10; ++y) ASSERT_EQ(model.overburdenStress(x, y), expected) << x << "," << y;
    }
    std::string out = stresstest::slurp((folder / "model.out").string());
    EXPECT_NE(out.find("Topographic SOR took 2 iterations to converge\r\n\r\n"
                       "Propogating the topo. disp. to seam stresses\r\n\r\n"),
              std::string::npos);
    EXPECT_NE(capture.printed.find("\nTopographic SOR took 2 iterations to converge"), std::string::npos);
}

TEST_F(TopoModel, UserBreakCancelsTheRun)
{
    ASSERT_EQ(read(TmpLines{}), 0);
    ASSERT_EQ(model.PrintInput(), 0);
    vorn::requestUserBreak();
    EXPECT_EQ(model.Run(), 1);
    vorn::clearUserBreak();
    EXPECT_EQ(model.cancelled, 1);
    std::string out = stresstest::slurp((folder / "model.out").string());
    const std::string expectedEnd = "Operations are canceled by user\r\n\r\n";
    EXPECT_EQ(out.substr(out.size() - expectedEnd.size()), expectedEnd);
    EXPECT_EQ(out.find("Propogating"), std::string::npos);
}

TEST_F(TopoModel, WriteValuesDoublesTheLastColumnAndRow)
{
    ASSERT_EQ(read(TmpLines{}), 0);
    for (int x = 1; x <= 10; ++x) {
        for (int y = 1; y <= 10; ++y) model.overburdenStress(x, y) = x + y / 100.0;
    }
    fs::path path = folder / "values.txt";
    {
        vorn::TextWriter writer;
        ASSERT_TRUE(writer.open(path.string()));
        model.WriteValues(writer);
    }
    std::string text = stresstest::slurp((path).string());
    std::vector<double> values;
    for (size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at + 2)) values.push_back(_wtof(text.substr(at + 2)));
    ASSERT_EQ(values.size(), 121u);
    EXPECT_DOUBLE_EQ(values[0], 1.01);
    EXPECT_DOUBLE_EQ(values[9], 10.01);
    EXPECT_DOUBLE_EQ(values[10], 10.01);
    EXPECT_DOUBLE_EQ(values[11], 1.02);
    EXPECT_DOUBLE_EQ(values[110], 1.10);
    EXPECT_DOUBLE_EQ(values[120], 10.10);
    EXPECT_EQ(text.substr(0, 2), "\r\n");
}
