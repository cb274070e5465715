// The material laws at their branch points, and the element stress routine
// with its refusals of bad codes.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "base/report.h"
#include "stressmodel/materials.h"
#include "stressmodel/modeldat.h"

namespace vorn {
namespace {

TEST(MaterialLaw, BranchPointsAndInverses)
{
    const float softening[5] = {3000, 0.01f, 1000, 0.03f, 0.3f};
    const MaterialLaw two = MaterialLaw::from(kStrainSofteningCoal, softening);
    EXPECT_NEAR(two.stress(0.005), 1500, 1e-9);
    EXPECT_DOUBLE_EQ(two.stress(static_cast<double>(0.01f)), 3000);
    EXPECT_NEAR(two.stress(0.02), 2000, 1e-3);
    EXPECT_DOUBLE_EQ(two.stress(static_cast<double>(0.03f)), 1000);
    EXPECT_DOUBLE_EQ(two.stress(0.5), 1000);
    EXPECT_LT(two.stress(-0.01), 0);  // an opening element stays elastic
    EXPECT_NEAR(softeningStrain(softening, 1500), 0.005, 1e-9);

    const float plastic[5] = {3000, 0.01f, 5000, 0.3f, 0};
    EXPECT_NEAR(MaterialLaw::from(kElasticPlasticCoal, plastic).stress(0.11), 3500, 1e-3);

    const float bilinear[5] = {500, 0.2f, 2000, 2, 0.3f};
    EXPECT_DOUBLE_EQ(MaterialLaw::from(kBilinearHardeningGob, bilinear).stress(2 * static_cast<double>(0.2f)), 500);
    EXPECT_NEAR(bilinearGobStrain(bilinear, 250), 0.2, 1e-7);
    EXPECT_NEAR(bilinearGobStrain(bilinear, 2500), 2.4, 1e-6);

    const float hardening[5] = {200, 100000, 2000, 1.5f, 0.3f};
    const MaterialLaw five = MaterialLaw::from(kStrainHardeningGob, hardening);
    EXPECT_EQ(five.stress(0), 0);
    // the height factor enters the inverse twice
    EXPECT_NEAR(hardeningGobStrain(hardening, five.stress(0.09)), 0.09 * 1.5, 1e-12);

    const float linear[5] = {300000, 1, 0, 0, 0};
    EXPECT_DOUBLE_EQ(MaterialLaw::from(kLinearElasticCoal, linear).stress(0.01), 3000);
    const float gob[5] = {1000, 1, 2, 0, 0};
    EXPECT_DOUBLE_EQ(MaterialLaw::from(kLinearElasticGob, gob).stress(0.5), 250);

    EXPECT_EXIT(elasticPlasticStrain(softening, 3001), ::testing::ExitedWithCode(1),
                "Primitive Stress is Greater Than Peak Stress - EPS1");
    EXPECT_EXIT(softeningStrain(softening, 3001), ::testing::ExitedWithCode(1), "Stress is Greater Than Peak Stress - SSS1");
}

// The run form of every law gives the element by element form's numbers
// bit for bit, over strains on both sides of every branch point.
TEST(MaterialLaw, RunsMatchElementByElement)
{
    const float properties[6][5] = {{300000, 0, 0, 0, 0},    {3000, 0.01f, 800, 0.03f, 0},
                                    {4000, 0.012f, 0.3f, 0, 0}, {200, 0.2f, 2000, 2, 0},
                                    {200, 100000, 2000, 1, 0.3f}, {500, 0, 1.5f, 0, 0}};
    std::vector<double> u;
    for (int k = -200; k <= 4000; ++k) u.push_back(k * 7.3e-3);
    const double thickness = 72;
    for (int type = 1; type <= 6; ++type) {
        const MaterialLaw law = MaterialLaw::from(type, properties[type - 1]);
        std::vector<double> run(u.size());
        law.stressRun(u.data(), run.data(), static_cast<int>(u.size()), thickness);
        for (std::size_t k = 0; k < u.size(); ++k) {
            const double one = law.stress(u[k] / thickness);
            ASSERT_EQ(std::memcmp(&one, &run[k], sizeof one), 0) << "type " << type << " u " << u[k];
        }
    }
}

// A 2 x 1 seam of one material, with E the host modulus.
class ElementStressTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        model.seamCount = 1;
        model.elementsX = 2;
        model.elementsY = 1;
        model.modulus = 1000;
        model.poisson = 0.25f;
        model.layerThickness = 100;
        model.materialCount = 1;
        model.materialType[0] = kLinearElasticCoal;
        model.materialProperty[0][0] = 400;
        model.Initialize();
        codes.allocate(1, 2, 1, 1, "allocation failure 1 in cmatrix()");
        codes(1, 1) = 'A';
        codes(2, 1) = 'A';
    }
    int run(double thickness = 1) { return model.ElementStress(model.convergence[1], model.verticalStress[1], codes, thickness); }

    CModelDat model;
    IndexedMatrix<char> codes;
    CaptureReporter capture;
    ScopedReporter scoped{capture};
};

TEST_F(ElementStressTest, MinedElementTakesLoadGraduallyAfterFullClosure)
{
    codes(2, 1) = '1';
    model.convergence(1, 2, 1) = 1;
    ASSERT_EQ(run(), 0);
    EXPECT_EQ(model.verticalStress(1, 2, 1), 0);
    model.convergence(1, 2, 1) = 2;
    ASSERT_EQ(run(), 0);
    EXPECT_DOUBLE_EQ(model.verticalStress(1, 2, 1), 0.1 * 1000);
    ASSERT_EQ(run(), 0);
    EXPECT_DOUBLE_EQ(model.verticalStress(1, 2, 1), 0.19 * 1000);
    const std::string warning = "Material Strain Greater Than 1 in Element Stress Routine - ES1a\n"
                                "i = 2, j = 1, integer code = 27\n";
    EXPECT_EQ(capture.consoleText, warning + warning);  // on the console only
    EXPECT_TRUE(capture.boxes.empty());
}

TEST_F(ElementStressTest, BadCodesStopAtTheFirst)
{
    model.convergence(1, 1, 1) = 0.5;
    ASSERT_EQ(run(2), 0);
    EXPECT_DOUBLE_EQ(model.verticalStress(1, 1, 1), 100);

    codes(2, 1) = '0';
    EXPECT_EQ(run(), 1);
    ASSERT_EQ(capture.boxes.size(), 1u);
    EXPECT_EQ(capture.boxes[0].text, "Material Code Out of Range in Element Stress Routine - ES1\n");
    EXPECT_NE(capture.consoleText.find("i = 2, j = 1, integer code = 26\n"), std::string::npos);

    codes(2, 1) = 'a';
    EXPECT_EQ(run(), 2);
    ASSERT_EQ(capture.boxes.size(), 3u);
    EXPECT_EQ(capture.boxes[1].text, "Material Code Out of Range in Element Stress Routine - ES2\n");
    EXPECT_EQ(capture.boxes[2].text, "i = 2, j = 1, integer code = 32\n");

    codes(2, 1) = 'B';  // a material the table does not define
    EXPECT_EQ(run(), 5);
    EXPECT_EQ(capture.boxes.back().text, "Material Code Out of Range in Element Stress Routine - ES5\n");
    EXPECT_NE(capture.consoleText.find("i = 2, j = 1, integer code = 1\n"), std::string::npos);
}

}  // namespace
}  // namespace vorn
