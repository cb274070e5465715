// The pages "Grid File" and "Function" of vorn_genFactor driven by scripts.
#include <gtest/gtest.h>

#include "../shell/cmd_scripted.h"
#include "index_test_util.h"

using indextest::slurp;
namespace fs = std::filesystem;

namespace {

class GenFactorPanel : public indextest::ScratchDir {
protected:
    void SetUp() override
    {
        ScratchDir::SetUp();
        indextest::writeGrid(path("depth.grd"), 4, 4, 10, 0, 0, [](int i, int j) { return 10.0 * i + j; }, "Depth");
        indextest::writeGrid(path("flat.grd"), 4, 4, 10, 0, 0, [](int, int) { return 7.0; });
    }
    std::string run(const std::string& script)
    {
        ScriptedApp app(script);
        status = app.run("vorn_genFactor");
        error = app.scriptError();
        return app.transcript();
    }
    std::string pickInput(const std::string& name) { return "press \"Select a Grid File\"\nfile " + path(name) + "\n"; }

    int status = -1;
    std::string error;
};

}  // namespace

TEST_F(GenFactorPanel, TheFilePageProposesTheOutputAndDescription)
{
    std::string t = run(pickInput("depth.grd") + "cancel\n");
    EXPECT_TRUE(contains(t, "Input Grid: 4 X 4 ;\r\nGrid Value Min: 0.000000, Max: 33.000000")) << t;
    EXPECT_TRUE(contains(t, fieldNote("Output Grid File:", path("depth_index.grd"))));
    EXPECT_TRUE(contains(t, fieldNote("Description:", "Depth Index")));
    EXPECT_FALSE(fs::exists(path("depth_index.grd")));
}

TEST_F(GenFactorPanel, LeavingTheFilePageNeedsAGridAndAnOutput)
{
    std::string t = run("ok\nbox ok\nfile <esc>\n" + pickInput("depth.grd") +
                        "set \"Output Grid File:\" \"\"\nok\nbox ok\ncancel\n");
    EXPECT_EQ(error, "");
    EXPECT_TRUE(contains(t, "Input Grid file is not ready !")) << t;
    EXPECT_TRUE(contains(t, "Output file name is missing!"));
    EXPECT_FALSE(contains(t, "tab \"Function\""));
}

TEST_F(GenFactorPanel, LinearSpansMinToMaxAndRunsOnOk)
{
    std::string t = run(pickInput("depth.grd") + "ok\nchoose \"Functions\" Linear\nok\n<enter>\nbox ok\n");
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(contains(t, fieldNote("Upper:", "33"))) << t;
    EXPECT_TRUE(contains(t, "\n <Enter> key to continue ...")) << "the preview plot waits, then goes";
    EXPECT_TRUE(contains(t, "Index has been saved to grid file< " + path("depth_index.grd") + " >"));
    myGrid out = indextest::readGrid(path("depth_index.grd"));
    EXPECT_DOUBLE_EQ(out.getValue(3, 3), 100.0);
    EXPECT_NEAR(out.getValue(1, 2), 100.0 * 12.0 / 33.0, 1e-6);
    EXPECT_EQ(out.getTitle(), "Depth Index");
}

// "Step" keeps the upper bound on the lower one, "Exponential" leaves it at
// the midpoint while the lower one is typed.
TEST_F(GenFactorPanel, StepFollowsTheLowerBoundExponentialDoesNot)
{
    std::string step = run(pickInput("depth.grd") + "ok\nchoose \"Functions\" Step\nset \"Lower:\" 5\ncancel\n");
    EXPECT_TRUE(contains(step, fieldNote("Upper:", "5"))) << step;
    std::string exponential = run(pickInput("depth.grd") + "ok\nchoose \"Functions\" Exponential\nset \"Lower:\" 4\ncancel\n");
    EXPECT_TRUE(contains(exponential, fieldNote("Lower:", "4"))) << exponential;
    EXPECT_TRUE(contains(exponential, fieldNote("Upper:", "16.5")));
}

TEST_F(GenFactorPanel, AFlatGridWarnsRefusesLinearAndStepsToOneValue)
{
    std::string warned = run(pickInput("flat.grd") + "cancel\n");
    EXPECT_TRUE(contains(warned, "\r\nValue interval is very small!")) << warned;
    std::string t = run(pickInput("flat.grd") + "ok\nchoose \"Functions\" Linear\nok\nbox ok\n" +
                        "choose \"Functions\" Step\ncheck \"Preview Final Grid\" off\nok\nbox ok\n");
    EXPECT_TRUE(contains(t, "Limit bound error: Upper limit has to greater than lower limit!"));
    myGrid out = indextest::readGrid(path("flat_index.grd"));
    EXPECT_DOUBLE_EQ(out.getValue(0, 0), 0.0);
    EXPECT_DOUBLE_EQ(out.getValue(3, 2), 0.0);
}

TEST_F(GenFactorPanel, NoFunctionCopiesTheGridUnderTheNewTitle)
{
    run(pickInput("depth.grd") + "set \"Description:\" Copy\nok\nok\n<enter>\nbox ok\n");
    myGrid out = indextest::readGrid(path("depth_index.grd"));
    EXPECT_DOUBLE_EQ(out.getValue(2, 3), 23.0);
    EXPECT_EQ(out.getTitle(), "Copy");
}
