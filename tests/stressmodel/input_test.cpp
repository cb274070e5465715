// Reading the `.inp` model and the `.top` relief: every refusal with its
// result and message, and what a good read leaves behind.
#include <functional>

#include "tests/stressmodel/model_fixture.h"

namespace vorn::testing {
namespace {

class ReadInputTest : public ScratchFolderTest {
protected:
    // Writes the model, reads it, and gives the result; the last box text
    // lands in `message`.
    int read(const ModelText& text)
    {
        writeFile("model->inp", text.text());
        model = std::make_unique<CModelDat>();
        model->SetInputPath((folder_ / "model->inp").string());
        model->SetBaseName("model");
        CaptureReporter capture;
        ScopedReporter scoped(capture);
        const int result = model->ReadInput();
        message = capture.boxes.empty() ? std::string() : capture.boxes.back().text;
        return result;
    }
    static ModelText base()
    {
        ModelText text;
        text.fillCodes();
        return text;
    }

    std::unique_ptr<CModelDat> model = std::make_unique<CModelDat>();
    std::string message;
};

struct Refusal {
    const char* name;
    std::function<void(ModelText&)> change;
    int result;
    const char* message;
};

TEST_F(ReadInputTest, EveryRefusalGivesItsResultAndMessage)
{
    const std::vector<Refusal> refusals = {
        {"empty file", [](ModelText& t) { t = ModelText{}; t.title.clear(); t.host.clear(); }, 0, nullptr},
        {"short host line", [](ModelText& t) { t.host = "0.25, 3000000.0"; }, 2, "Error reading the host properties - RI2a\n"},
        {"five seams", [](ModelText& t) { t.host = "0.25, 3000000.0, 600.0,   5,   0"; }, 2,
         "Can Only Specify up to 4 Different Seams - RI2b\n"},
        {"unit code 4", [](ModelText& t) { t.host = "0.25, 3000000.0, 600.0,   1,   4"; }, 2,
         "Can Only Specify a Unit Number up to 4 - RI2c\n"},
        {"no material count", [](ModelText& t) { t.materialCount = "x"; }, 3,
         "Error reading the number of in seam materials - RI3a\n"},
        {"no materials", [](ModelText& t) { t.materialCount = "0"; }, 3,
         "The Number of In Seam Materials Must Be Between 1 and 26 - RI3b\n"},
        {"negative materials", [](ModelText& t) { t.materialCount = "-1"; }, 3,
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
        ModelText text = base();
        refusal.change(text);
        if (!refusal.message) {
            writeFile("model->inp", "");
            model = std::make_unique<CModelDat>();
            model->SetInputPath((folder_ / "model->inp").string());
            CaptureReporter capture;
            ScopedReporter scoped(capture);
            EXPECT_EQ(model->ReadInput(), 1);
            ASSERT_EQ(capture.boxes.size(), 1u);
            EXPECT_EQ(capture.boxes[0].text, "Error in Reading Title - RI1a\n");
            continue;
        }
        EXPECT_EQ(read(text), refusal.result);
        EXPECT_EQ(message, refusal.message);
        EXPECT_FALSE(model->codes.allocated());
    }
}

TEST_F(ReadInputTest, MissingFileIsRefusedFirst)
{
    model->SetInputPath((folder_ / "absent.inp").string());
    CaptureReporter capture;
    ScopedReporter scoped(capture);
    EXPECT_EQ(model->ReadInput(), 1);
    EXPECT_EQ(capture.boxes.at(0).text, "Error in Opening Input File - RI1a\n");
}

TEST_F(ReadInputTest, LimitsThatPass)
{
    ModelText text = base();
    text.grid = "60.0, 100,  90, 0.09";
    text.countX = 100;
    text.countY = 90;
    text.boundary = " -1,   1,   0,   1";
    text.fillCodes();
    EXPECT_EQ(read(text), 0) << message;
    EXPECT_EQ(model->boundaryNorth, -1);

    text = base();
    text.control = "1.5, 0.0001, 100, 1, 20, 0, 0, 0";
    text.steps = 20;
    text.fillCodes();
    EXPECT_EQ(read(text), 0) << message;
    EXPECT_TRUE(std::filesystem::exists("STEP20.CHR"));
}

TEST_F(ReadInputTest, GoodReadKeepsTheLastStepAndCopiesEachStep)
{
    ModelText text = base();
    text.control = "1.5, 0.0001, 100, 1, 2, 0, 0, 0";
    text.steps = 2;
    text.fillCodes();
    text.codeRows[10] = "BAAAAAAAAA";  // step 2, north row, x = 1
    text.materials.push_back("  6, 100.0, 50.0, 2.0, 0.0, 0.0");
    ASSERT_EQ(read(text), 0) << message;
    EXPECT_EQ(model->title, "Small test model\n");
    EXPECT_FLOAT_EQ(model->modulus, 3000000.0f);
    EXPECT_EQ(model->materialType[1], 6);
    EXPECT_EQ(model->codes(1, 1, 10), 'B');
    EXPECT_EQ(model->codes(1, 5, 5), '1');
    const std::vector<std::string> step1 = lines(readFile("STEP1.CHR"));
    ASSERT_EQ(step1.size(), 10u);
    EXPECT_EQ(step1[0], "AAAAAAAAAA");
    EXPECT_EQ(step1[5], "AAAA11AAAA");
    EXPECT_EQ(lines(readFile("STEP2.CHR"))[0], "BAAAAAAAAA");
    EXPECT_NE(readFile("STEP1.CHR").find("\r\n"), std::string::npos);
}

TEST_F(ReadInputTest, UnwritableStepFileIsRefused)
{
    std::filesystem::create_directory("STEP1.CHR");
    EXPECT_EQ(read(base()), 10);
    EXPECT_EQ(message, "Error writing the fine mesh codes - RI10c\n");
}

TEST_F(ReadInputTest, UnitCodesSetNamesAndScalesOnly)
{
    ModelText text = base();
    text.host = "      0.2500,    3000000.0,        600.0,   1,   2";
    ASSERT_EQ(read(text), 0);
    const float modulusInPascals = model->modulus;
    EXPECT_EQ(model->stressUnit, "Pa");
    text.host = "      0.2500,    3000000.0,        600.0,   1,   3";
    ASSERT_EQ(read(text), 0);
    EXPECT_EQ(model->modulus, modulusInPascals);
    EXPECT_EQ(model->lengthUnit, "m");
    EXPECT_EQ(model->stressUnit, "MPa");
    EXPECT_EQ(model->stressScale, 1e-6);
    text.host = "      0.2500,    3000000.0,        600.0,   1,   1";
    ASSERT_EQ(read(text), 0);
    EXPECT_EQ(model->lengthUnit, "ft");
    EXPECT_EQ(model->lengthScale, 1.0 / 12.0);
    EXPECT_EQ(model->headerUnits, "  5,                       ft,                      psi,                      psi,"
                                 "                      psi,                      psi\n");
}

TEST_F(ReadInputTest, NegativeUnitCodeEndsTheProcess)
{
    ModelText text = base();
    text.host = "      0.2500,    3000000.0,        600.0,   1,  -1";
    writeFile("model->inp", text.text());
    model->SetInputPath((folder_ / "model->inp").string());
    EXPECT_EXIT(model->ReadInput(), ::testing::ExitedWithCode(1), "Unit Code Out of Range in Input File - PU1");
}

class ReadTopographyTest : public ScratchFolderTest {
protected:
    int read(const std::string& text, std::string& message)
    {
        if (!text.empty()) writeFile("model.top", text);
        model.SetBaseName("model");
        CaptureReporter capture;
        ScopedReporter scoped(capture);
        const int result = model.ReadTopography();
        message = capture.boxes.empty() ? std::string() : capture.boxes.back().text;
        return result;
    }
    CModelDat model;
};

TEST_F(ReadTopographyTest, RefusalsAndAGoodRead)
{
    std::string message;
    EXPECT_EQ(read("", message), 1);
    EXPECT_EQ(message, "Error in Opening Topographic Input File - RTI1a\n");
    EXPECT_EQ(read("1,4, 10.0, 2\n", message), 2);
    EXPECT_EQ(message, "Error Reading the Topographic Header Line - RTI2a\n");
    EXPECT_EQ(read("1,5, 10.0, 2, 2, 0.0, 0.0, 100.0\nitems\nunits\n1\n2\n3\n4\n5\n", message), 2);
    EXPECT_EQ(message, "Inconsistent Data in the Topographic Header Line - RTI2b\n");
    EXPECT_FALSE(model.topoLoad.allocated());
    EXPECT_EQ(read("1,4, 10.0, 2, 2, 0.0, 0.0, 100.0\nitems\nunits\n1\n2\n3\n", message), 3);
    EXPECT_EQ(message, "Error reading the Topographic Grid Stress - RTI3\n");
    EXPECT_EQ(read("7,4, 10.0, 2, 2, -5.0, 6.0, 100.0\r\n  1,Height\r\n  1,in\r\n1\r\n2\r\n3\r\n4\r\n", message), 0);
    EXPECT_EQ(model.topoCountX, 2);
    EXPECT_FLOAT_EQ(model.topoX, -5.0f);
    EXPECT_FLOAT_EQ(model.topoZ, 100.0f);
    EXPECT_EQ(model.topoLoad(1, 2), 2.0);  // y runs inner
    EXPECT_EQ(model.topoLoad(2, 1), 3.0);
    EXPECT_EQ(model.topoConvergence.lowX(), 0);
    EXPECT_EQ(model.topoConvergence.highY(), 3);
}

}  // namespace
}  // namespace vorn::testing
