// The overburden model behind the surface stress command: reading its
// `.tmp` input, the `.out` log, the flat-surface answer and the values it
// hands back to the grid.
#include <string>
#include <vector>

#include "base/textfile.h"
#include "base/textnum.h"
#include "base/userbreak.h"
#include "stressmodel/topomodel.h"
#include "tests/stressmodel/fixture.h"

namespace vorn::testing {
namespace {

// The lines of a `.tmp` file as the command writes them: a 10 x 10 seam of
// 1200 inch elements under a 12 x 12 surface grid of 12000 inches.
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
        for (double v : values) out += formatString("\r\n%f", v);
        return out;
    }
};

class TopoModel : public ScratchFolderTest {
protected:
    // Writes `lines` as model.tmp and reads it into a fresh model.
    int read(const TmpLines& lines)
    {
        writeFile("model.tmp", lines.text());
        model = std::make_unique<CTopoModelDat>();
        model->SetInputPath(path("model.tmp"));
        return model->ReadInput();
    }
    std::unique_ptr<CTopoModelDat> model = std::make_unique<CTopoModelDat>();
};

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
        // A surface without a value one way is refused before the plate's
        // rim takes memory for the other count.
        {[](TmpLines& t) { t.topo = "12.0,2000000000,0,0,0,0.0"; }, 3, "Error reading the Topographic Grid Stress - RTI3\n"},
        {[](TmpLines& t) { t.topo = "12.0,-5,-5,0,0,0.0"; }, 3, "Error reading the Topographic Grid Stress - RTI3\n"},
        // Counts of four digits do not fit the three-character fields.
        {[](TmpLines& t) { t.grid = "1200.000000,1000,10,0.091667"; }, 5, "Error reading the general grid information - RI5a\n"},
    };
    for (const Case& c : cases) {
        TmpLines lines;
        c.spoil(lines);
        EXPECT_EQ(read(lines), c.result) << c.message;
        EXPECT_EQ(lastBox(), c.message);
    }
    writeFile("empty.tmp", "");
    for (const auto& [name, message] : {std::pair{"empty.tmp", "Error in Reading Title - RI1a\n"},
                                        std::pair{"absent.tmp", "Error in Opening Input File - RI1a\n"}}) {
        model->SetInputPath(path(name));
        EXPECT_EQ(model->ReadInput(), 1);
        EXPECT_EQ(lastBox(), message);
    }
}

TEST_F(TopoModel, PrintInputWritesTheBlocksWithTheUnitTextShiftedByOne)
{
    ASSERT_EQ(read(TmpLines{}), 0);
    EXPECT_EQ(model->outPath, path("model.out"));
    ASSERT_EQ(model->PrintInput(), 0);
    const std::string log = readFile("model.out");
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
    EXPECT_EQ(log.substr(0, expectedStart.size()), expectedStart);
    EXPECT_NE(log.find("  SEAM NO.         X           Y           Z     THICKNESS\r\n"
                       "        0.00        0.00\r\n\r\n"),
              std::string::npos);
    const std::string expectedEnd = "  NO. OF TOPOGRAPHIC BLOCKS ALONG Y AXIS     -- 12\r\n\r\n";
    EXPECT_EQ(log.substr(log.size() - expectedEnd.size()), expectedEnd);

    model->outPath = path("no/such/model.out");
    EXPECT_EQ(model->PrintInput(), 1);
    EXPECT_EQ(lastBox(), "Error in Opening Output File - PI1\n");
}

TEST_F(TopoModel, UserBreakCancelsTheRun)
{
    ASSERT_EQ(read(TmpLines{}), 0);
    ASSERT_EQ(model->PrintInput(), 0);
    requestUserBreak();
    EXPECT_EQ(model->Run(), 1);
    clearUserBreak();
    EXPECT_EQ(model->cancelled, 1);
    const std::string log = readFile("model.out");
    const std::string expectedEnd = "Operations are canceled by user\r\n\r\n";
    EXPECT_EQ(log.substr(log.size() - expectedEnd.size()), expectedEnd);
    EXPECT_EQ(log.find("Propogating"), std::string::npos);
}

TEST_F(TopoModel, WriteValuesDoublesTheLastColumnAndRow)
{
    ASSERT_EQ(read(TmpLines{}), 0);
    for (int x = 1; x <= 10; ++x)
        for (int y = 1; y <= 10; ++y) model->overburdenStress(x, y) = x + y / 100.0;
    {
        TextWriter writer;
        ASSERT_TRUE(writer.open("values.txt"));
        model->WriteValues(writer);
    }
    const std::string text = readFile("values.txt");
    EXPECT_EQ(text.substr(0, 2), "\r\n");
    std::vector<double> values;
    for (size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at + 2)) values.push_back(_wtof(text.substr(at + 2)));
    ASSERT_EQ(values.size(), 121u);
    const std::pair<int, double> expected[] = {{0, 1.01}, {9, 10.01}, {10, 10.01}, {11, 1.02}, {110, 1.10}, {120, 10.10}};
    for (const auto& [index, value] : expected) EXPECT_DOUBLE_EQ(values[index], value) << index;
}

}  // namespace
}  // namespace vorn::testing
