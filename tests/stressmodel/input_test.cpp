// Reading the `.inp` model and the `.top` relief: every refusal with its
// result and message, and what a good read leaves behind.
#include <optional>

#include "stressmodel/modeldat.h"
#include "tests/stressmodel/fixture.h"

namespace vorn::testing {
namespace {

class ReadInputTest : public ScratchFolderTest {
protected:
    // Writes `text` (none: no file) as model.inp, reads it into a fresh
    // model and gives the result.
    int read(const std::optional<std::string>& text)
    {
        if (text) writeFile("model.inp", *text);
        model = std::make_unique<CModelDat>();
        model->SetInputPath(path("model.inp"));
        model->SetBaseName("model");
        return model->ReadInput();
    }

    std::unique_ptr<CModelDat> model;
};

struct Refusal {
    const char* name;
    void (*change)(ModelText&);
    int result;
    const char* message;
};

TEST_F(ReadInputTest, EveryRefusalGivesItsResultAndMessageAndKeepsNoCodes)
{
    const std::vector<Refusal> refusals = {
        {"short host line", [](ModelText& t) { t.host = "0.25, 3000000.0"; }, 2, "Error reading the host properties - RI2a\n"},
        {"five seams", [](ModelText& t) { t.host = "0.25, 3000000.0, 600.0,   5,   0"; }, 2,
         "Can Only Specify up to 4 Different Seams - RI2b\n"},
        {"unit code 4", [](ModelText& t) { t.host = "0.25, 3000000.0, 600.0,   1,   4"; }, 2,
         "Can Only Specify a Unit Number up to 4 - RI2c\n"},
        {"no material count", [](ModelText& t) { t.materialCount = "x"; }, 3,
         "Error reading the number of in seam materials - RI3a\n"},
        {"no materials", [](ModelText& t) { t.materialCount = "0"; }, 3,
         "The Number of In Seam Materials Must Be Between 1 and 26 - RI3b\n"},
        {"27 materials", [](ModelText& t) { t.materialCount = "27"; }, 3,
         "The Number of In Seam Materials Must Be Between 1 and 26 - RI3b\n"},
        {"short material", [](ModelText& t) { t.materials[0] = "  1, 300000.0"; }, 4,
         "Error reading the in seam material properties - RI4a\n"},
        {"material type 7", [](ModelText& t) { t.materials[0] = "  7, 1.0, 1.0, 1.0, 1.0, 1.0"; }, 4,
         "The Material Type Number Must Be Between 1 and 6 - RI4b\n"},
        {"short grid", [](ModelText& t) { t.grid = "60.0,  10"; }, 5, "Error reading the general grid information - RI5a\n"},
        {"105 elements", [](ModelText& t) { t.grid = "60.0, 105,  10, 0.09"; }, 5, "Fine mesh size must be divisible by 10 - RI5b\n"},
        {"zero width", [](ModelText& t) { t.grid = "0.0,  10,  10, 0.09"; }, 5, "Element width must be non-zero - RI5c\n"},
        {"zero x", [](ModelText& t) { t.grid = "60.0,   0,  10, 0.09"; }, 5, "The number of X elements must be non-zero - RI5d\n"},
        {"zero y", [](ModelText& t) { t.grid = "60.0,  10,   0, 0.09"; }, 5, "The number of Y elements must be non-zero - RI5e\n"},
        {"short seam", [](ModelText& t) { t.seams[0] = "0.0, 0.0"; }, 6, "Error reading the seam coordinate information - RI6\n"},
        {"short control", [](ModelText& t) { t.control = "1.5, 0.0001"; }, 7, "Error reading the program control parameters - RI7a\n"},
        {"21 steps", [](ModelText& t) { t.control = "1.5, 0.0001, 100, 1, 21, 0, 0, 0"; }, 7,
         "The Number of Steps Must be Less Than 20 - RI7b\n"},
        {"short boundary", [](ModelText& t) { t.boundary = "  0,   0"; }, 8, "Error reading the boundary condition parameters - RI8a\n"},
        {"boundary 2", [](ModelText& t) { t.boundary = "  0,   2,   0,   0"; }, 8,
         "The Boundary Conditions must be either a '0' or a '1' - RI8b\n"},
        {"short off-seam", [](ModelText& t) { t.control = "1.5, 0.0001, 100, 1, 1, 0, 1, 0"; t.offSeam = "  4, 60.0"; }, 9,
         "Error reading the off-seam grid details - RI9a\n"},
        {"off-seam total", [](ModelText& t) { t.control = "1.5, 0.0001, 100, 1, 1, 0, 1, 0"; t.offSeam = "  5, 60.0, 2, 2, 0.0, 0.0, -7000.0"; }, 9,
         "Inconsistent Data in the Offseam Input Line - RI9b\n"},
        {"last code missing", [](ModelText& t) { t.codeRows.back().pop_back(); }, 10, "Error reading the fine mesh codes - RI10b\n"},
    };
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        ModelText text;
        refusal.change(text);
        EXPECT_EQ(read(text.text()), refusal.result);
        EXPECT_EQ(lastBox(), refusal.message);
        EXPECT_FALSE(model->codes.allocated());
    }
    // The codes cut short leave no step file, whole or partial.
    EXPECT_FALSE(std::filesystem::exists("STEP1.CHR"));
    EXPECT_FALSE(std::filesystem::exists("STEP1.CHR.part"));
    EXPECT_EQ(read(""), 1);
    EXPECT_EQ(lastBox(), "Error in Reading Title - RI1a\n");
    std::filesystem::remove("model.inp");
    EXPECT_EQ(read(std::nullopt), 1);
    EXPECT_EQ(lastBox(), "Error in Opening Input File - RI1a\n");
}

TEST_F(ReadInputTest, LimitsThatPass)
{
    ModelText text;
    text.grid = "60.0, 100,  90, 0.09";
    text.countX = 100;
    text.countY = 90;
    text.boundary = " -1,   1,   0,   1";
    text.fillCodes();
    EXPECT_EQ(read(text.text()), 0) << lastBox();
    EXPECT_EQ(model->boundaryNorth, -1);

    text = ModelText();
    text.control = "1.5, 0.0001, 100, 1, 20, 0, 0, 0";
    text.steps = 20;
    text.fillCodes();
    EXPECT_EQ(read(text.text()), 0) << lastBox();
    EXPECT_TRUE(std::filesystem::exists("STEP20.CHR"));
}

TEST_F(ReadInputTest, GoodReadKeepsTheLastStepAndCopiesEachStep)
{
    ModelText text;
    text.control = "1.5, 0.0001, 100, 1, 2, 0, 0, 0";
    text.steps = 2;
    text.fillCodes();
    text.codeRows[10] = "BAAAAAAAAA";  // step 2, north row, x = 1
    text.materials.push_back("  6, 100.0, 50.0, 2.0, 0.0, 0.0");
    ASSERT_EQ(read(text.text()), 0) << lastBox();
    EXPECT_EQ(model->title, "Small test model\n");
    EXPECT_EQ(model->materialType[1], 6);
    EXPECT_EQ(model->codes(1, 1, 10), 'B');
    EXPECT_EQ(model->codes(1, 5, 5), '1');
    const std::string step1 = readFile("STEP1.CHR");
    EXPECT_EQ(step1.substr(0, 12), "AAAAAAAAAA\r\n");
    EXPECT_EQ(lines(step1).size(), 10u);
    EXPECT_EQ(lines(step1)[5], "AAAA11AAAA");
    EXPECT_EQ(lines(readFile("STEP2.CHR"))[0], "BAAAAAAAAA");

    std::filesystem::remove("STEP1.CHR");
    std::filesystem::create_directory("STEP1.CHR");
    EXPECT_EQ(read(text.text()), 10);
    EXPECT_EQ(lastBox(), "Error writing the fine mesh codes - RI10c\n");
}

TEST_F(ReadInputTest, UnitCodesSetNamesAndScalesOnly)
{
    ModelText text;
    text.host = "      0.2500,    3000000.0,        600.0,   1,   2";
    ASSERT_EQ(read(text.text()), 0);
    const float modulusInPascals = model->modulus;
    EXPECT_EQ(model->stressUnit, "Pa");
    text.host = "      0.2500,    3000000.0,        600.0,   1,   3";
    ASSERT_EQ(read(text.text()), 0);
    EXPECT_EQ(model->modulus, modulusInPascals);
    EXPECT_EQ(model->stressUnit, "MPa");
    EXPECT_EQ(model->stressScale, 1e-6);
    text.host = "      0.2500,    3000000.0,        600.0,   1,   1";
    ASSERT_EQ(read(text.text()), 0);
    EXPECT_EQ(model->lengthScale, 1.0 / 12.0);
    EXPECT_EQ(model->headerUnits, "  5,                       ft,                      psi,                      psi,"
                                 "                      psi,                      psi\n");
    text.host = "      0.2500,    3000000.0,        600.0,   1,  -1";
    StandardReporter console;
    ScopedReporter toConsole(console);
    EXPECT_EXIT(read(text.text()), ::testing::ExitedWithCode(1), "Unit Code Out of Range in Input File - PU1");
}

TEST_F(ReadInputTest, TopographyRefusalsAndAGoodRead)
{
    CModelDat topo;
    topo.SetBaseName("model");
    auto readTop = [&topo](const std::string& text) {
        writeFile("model.top", text);
        return topo.ReadTopography();
    };
    std::filesystem::remove("model.top");
    EXPECT_EQ(topo.ReadTopography(), 1);
    EXPECT_EQ(lastBox(), "Error in Opening Topographic Input File - RTI1a\n");
    EXPECT_EQ(readTop("1,4, 10.0, 2\n"), 2);
    EXPECT_EQ(lastBox(), "Error Reading the Topographic Header Line - RTI2a\n");
    EXPECT_EQ(readTop("1,5, 10.0, 2, 2, 0.0, 0.0, 100.0\nitems\nunits\n1\n2\n3\n4\n5\n"), 2);
    EXPECT_EQ(lastBox(), "Inconsistent Data in the Topographic Header Line - RTI2b\n");
    EXPECT_FALSE(topo.topoLoad.allocated());
    EXPECT_EQ(readTop("1,4, 10.0, 2, 2, 0.0, 0.0, 100.0\nitems\nunits\n1\n2\n3\n"), 3);
    EXPECT_EQ(lastBox(), "Error reading the Topographic Grid Stress - RTI3\n");
    // Values that the file cannot hold are missing before anything is
    // allocated; a product past the int range is inconsistent.
    // A count of zero either way is inconsistent too: the plate's rim alone
    // would take memory for the other count.
    for (const char* header : {"1,400000000, 10.0, 20000, 20000, 0.0, 0.0, 100.0\n",
                               "1,0, 10.0, 2147483647, 0, 0.0, 0.0, 100.0\n",
                               "1,0, 10.0, 2000000000, 0, 0.0, 0.0, 100.0\n"}) {
        CModelDat fresh;
        fresh.SetBaseName("model");
        writeFile("model.top", header);
        EXPECT_NE(fresh.ReadTopography(), 0) << header;
        EXPECT_FALSE(fresh.topoLoad.allocated()) << header;
    }
    EXPECT_EQ(readTop("1,-2147483648, 10.0, 65536, 32768, 0.0, 0.0, 100.0\n"), 2);
    EXPECT_EQ(lastBox(), "Inconsistent Data in the Topographic Header Line - RTI2b\n");
    EXPECT_EQ(readTop("7,4, 10.0, 2, 2, -5.0, 6.0, 100.0\r\n  1,Height\r\n  1,in\r\n1\r\n2\r\n3\r\n4\r\n"), 0);
    EXPECT_FLOAT_EQ(topo.topoX, -5.0f);
    EXPECT_EQ(topo.topoLoad(1, 2), 2.0);  // y runs inner
    EXPECT_EQ(topo.topoLoad(2, 1), 3.0);
    EXPECT_EQ(topo.topoConvergence.lowX(), 0);
    EXPECT_EQ(topo.topoConvergence.highY(), 3);
}

}  // namespace
}  // namespace vorn::testing
