// The project file, the composite index and the panel "Stability Index
// Generation" driven by scripts.
#include <gtest/gtest.h>

#include "../shell/cmd_scripted.h"
#include "base/report.h"
#include "index/stability_project.h"
#include "index_test_util.h"

using indextest::slurp;
using indextest::spit;
namespace fs = std::filesystem;

namespace {

class Project : public indextest::ScratchDir {};

const std::vector<StabilityFactor> twoFactors{{"depth", "/g/depth_index.grd", "depth (grid: 4 * 4)", "50"},
                                              {"stress", "/g/stress_index.grd", "", "0.5"}};

// Answers every save question Yes and every save dialog with `output`.
CompositeQuestions answering(const std::string& output)
{
    CompositeQuestions q;
    q.askSave = [](const std::string&) { return true; };
    q.choosePath = [output](std::string& path) {
        path = output;
        return true;
    };
    return q;
}

}  // namespace

TEST_F(Project, FileHasALineEndBeforeEachFieldAndNoneAtTheEnd)
{
    ASSERT_TRUE(writeProject(path("p.prj"), twoFactors));
    EXPECT_EQ(slurp(path("p.prj")), "2\r\ndepth\r\n/g/depth_index.grd\r\ndepth (grid: 4 * 4)\r\n50\r\n"
                                    "stress\r\n/g/stress_index.grd\r\n\r\n0.5");
    ASSERT_TRUE(writeProject(path("empty.prj"), {}));
    EXPECT_EQ(slurp(path("empty.prj")), "0");

    std::vector<StabilityFactor> read{{"old", "", "", ""}};
    EXPECT_EQ(readProject(path("p.prj"), read), ProjectReadStatus::Complete);
    EXPECT_EQ(read, twoFactors);
    EXPECT_EQ(readProject(path("empty.prj"), read), ProjectReadStatus::Complete);
    EXPECT_TRUE(read.empty());
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 2) << "no temporary left behind";
}

TEST_F(Project, ReadingStopsAtAMissingLineKeepingTheFactorsBefore)
{
    struct Case {
        std::string text;
        ProjectReadStatus status;
        size_t factors;
    } cases[] = {
        {"3\nA\na.grd\n\n50\nB\nb.grd", ProjectReadStatus::Truncated, 1},
        {"", ProjectReadStatus::Truncated, 0},
        {"-2\nA\na.grd\n\n50", ProjectReadStatus::Complete, 0},
        {"1\r\nA\r\na.grd\r\nd\r\n7", ProjectReadStatus::Complete, 1},
    };
    for (const Case& c : cases) {
        spit(path("c.prj"), c.text);
        std::vector<StabilityFactor> read{{"old", "", "", ""}};
        EXPECT_EQ(readProject(path("c.prj"), read), c.status) << c.text;
        EXPECT_EQ(read.size(), c.factors) << c.text;
    }
    std::vector<StabilityFactor> kept{{"old", "", "", ""}};
    EXPECT_EQ(readProject(path("missing.prj"), kept), ProjectReadStatus::Unopened);
    EXPECT_EQ(kept.size(), 1u);
}

TEST_F(Project, OneFactorSpanningTwentyToEightyComesOutZeroToHundred)
{
    indextest::writeGrid(path("a.grd"), 4, 4, 10, 0, 0, [](int i, int j) { return 20.0 + 60.0 * ((i + j) % 5) / 4.0; });
    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope(capture);
    std::string written;
    ASSERT_TRUE(createCompositeIndex({{"a", path("a.grd"), "", "30"}}, "demo.prj", answering(path("out.grd")), &written));
    EXPECT_EQ(written, path("out.grd"));
    myGrid out = indextest::readGrid(path("out.grd"));
    double min = 0, max = 0;
    out.getMinMax(min, max);
    EXPECT_DOUBLE_EQ(min, 0.0);
    EXPECT_DOUBLE_EQ(max, 100.0);
    EXPECT_EQ(out.getTitle(), "Composite Stability Index for Project: demo.prj");
    ASSERT_EQ(capture.boxes.size(), 1u);
    EXPECT_EQ(capture.boxes[0].text, "Final Index saved to grid file: " + path("out.grd"));
}

TEST_F(Project, AFlatGridKeepsItsValueAndAHalfGridAddsZeroOutside)
{
    indextest::writeGrid(path("flat.grd"), 4, 4, 10, 0, 0, [](int, int) { return 42.0; });
    indextest::writeGrid(path("half.grd"), 2, 4, 10, 0, 0, [](int, int) { return 10.0; });
    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope(capture);

    ASSERT_TRUE(createCompositeIndex({{"f", path("flat.grd"), "", "3"}}, "p.prj", answering(path("flat_out.grd"))));
    EXPECT_DOUBLE_EQ(indextest::readGrid(path("flat_out.grd")).getValue(1, 1), 42.0 * 3 * (1.0 / 3));

    // Weights 1 and 0.5: the sum is 42 + 5 where the half grid lies, 42
    // beyond it, and in the row and column past the cells.
    myGrid sum;
    CompositeSum s = sumFactorGrids({{"f", path("flat.grd"), "", "1"}, {"h", path("half.grd"), "", "0.5"}}, "p.prj", sum);
    ASSERT_TRUE(s.ok);
    EXPECT_DOUBLE_EQ(s.totalWeight, 1.5);
    EXPECT_DOUBLE_EQ(sum.getValue(1, 3), 47.0);
    EXPECT_DOUBLE_EQ(sum.getValue(2, 1), 42.0);
    EXPECT_DOUBLE_EQ(sum.getValue(1, 4), 42.0);
}

TEST_F(Project, FailuresWriteNothing)
{
    indextest::writeGrid(path("a.grd"), 4, 4, 10, 0, 0, [](int i, int) { return i; });
    spit(path("foreign.grd"), "not a grid\n");
    struct Case {
        std::vector<StabilityFactor> factors;
        std::string message;
        bool printed;
    } cases[] = {
        {{{"a", path("a.grd"), "", "1"}, {"m", path("missing.grd"), "", "1"}}, "Grid File Read fail: " + path("missing.grd"), false},
        {{{"x", path("foreign.grd"), "", "1"}}, "Grid File Read fail: " + path("foreign.grd"), false},
        {{{"a", path("a.grd"), "", "abc"}}, "\nStrange! Total Weight could not be zero!", true},
        {{{"a", path("a.grd"), "", "1"}, {"b", path("a.grd"), "", "-1"}}, "\nStrange! Total Weight could not be zero!", true},
    };
    for (const Case& c : cases) {
        vorn::CaptureReporter capture;
        vorn::ScopedReporter scope(capture);
        EXPECT_FALSE(createCompositeIndex(c.factors, "p.prj", answering(path("out.grd"))));
        if (c.printed) {
            EXPECT_EQ(capture.printed, c.message);
        } else {
            ASSERT_FALSE(capture.boxes.empty());
            EXPECT_EQ(capture.boxes.back().text, c.message);
        }
        EXPECT_FALSE(fs::exists(path("out.grd"))) << c.message;
    }
}

TEST_F(Project, NoToTheSaveQuestionDropsTheGrid)
{
    indextest::writeGrid(path("a.grd"), 4, 4, 10, 0, 0, [](int i, int) { return i; });
    CompositeQuestions q = answering(path("out.grd"));
    std::string asked;
    q.askSave = [&asked](const std::string& message) {
        asked = message;
        return false;
    };
    EXPECT_FALSE(createCompositeIndex({{"a", path("a.grd"), "", "1"}}, "/x/p.prj", q));
    EXPECT_EQ(asked, "Final index for project: /x/p.prj produced! Do you want to save?");
    EXPECT_FALSE(fs::exists(path("out.grd")));
}

// ---- the panel

class StabilityPanel : public indextest::ScratchDir {
protected:
    std::string run(const std::string& script)
    {
        ScriptedApp app(script);
        app.run("vorn_StabilityIndex");
        error = app.scriptError();
        return app.transcript();
    }
    std::string error;
};

TEST_F(StabilityPanel, AddRefusesHalfAWeightYetTheSumUsesItsDecimalValue)
{
    indextest::writeGrid(path("a.grd"), 4, 4, 10, 0, 0, [](int i, int) { return 20.0 + i; }, "depth");
    std::string t = run("press \"< Select Index Grid\"\nfile " + path("a.grd") +
                        "\nset \"Name\" depth\nset \"Weighting Factor\" 0.5\npress \"Add\"\nbox ok\n"
                        "set \"Weighting Factor\" 2\npress \"Add\"\npress \"Add\"\nbox ok\n"
                        "press \"Remove\"\nbox ok\n"
                        "set \"Name\" other\npress \"Update\"\nbox ok\n"
                        "set \"Name\" depth\nset \"Weighting Factor\" 0.5\npress \"Update\"\nbox ok\n"
                        "press \"Save and Exit\"\nfile " + path("p.prj") + "\n");
    EXPECT_EQ(error, "");
    EXPECT_TRUE(contains(t, "Weighting Factor must larger than zero!")) << t;
    EXPECT_TRUE(contains(t, "The entry with same name is already in the list!"));
    EXPECT_TRUE(contains(t, "No items were selected!"));
    EXPECT_TRUE(contains(t, "This entry not in the list!"));
    // Update checks the weight's integer value too, so the "2" stays.
    EXPECT_EQ(slurp(path("p.prj")), "1\r\ndepth\r\n" + path("a.grd") + "\r\n (grid: 4 * 4)\r\n2");
}

TEST_F(StabilityPanel, ATruncatedProjectListsWhatWasReadUnderTheOldHeading)
{
    spit(path("t.prj"), "2\nA\na.grd\n\n50\nB\n");
    std::string t = run("press \"< Select Project\"\nfile " + path("t.prj") +
                        "\nchoose \"Factor List\" A\npress \"Remove\"\npress \"Remove\"\nbox ok\ncancel\n");
    EXPECT_TRUE(contains(t, "static \"Current Project:\" = \"Current Project: Project1.prj\"")) << t;
    EXPECT_TRUE(contains(t, "No items were selected!"));
    EXPECT_EQ(slurp(path("t.prj")), "2\nA\na.grd\n\n50\nB\n");
}

TEST_F(StabilityPanel, CreateIndexAsksAndSavesBesideTheProject)
{
    indextest::writeGrid(path("a.grd"), 4, 4, 10, 0, 0, [](int i, int j) { return i * j; });
    writeProject(path("p.prj"), {{"a", path("a.grd"), "", "50"}, {"b", path("a.grd"), "", "25"}});
    std::string t = run("press \"< Select Project\"\nfile " + path("p.prj") +
                        "\nchoose \"Factor List (double click)\" b\npress \"Create Index\"\nbox yes\nfile " +
                        path("p.grd") + "\nbox ok\npress \"Exit\"\n");
    EXPECT_EQ(error, "");
    EXPECT_TRUE(contains(t, "Final index for project: " + path("p.prj") + " produced! Do you want to save?")) << t;
    EXPECT_TRUE(contains(t, "edit \"Weighting Factor\" = \"25\""));
    EXPECT_TRUE(contains(t, "Final Index saved to grid file: " + path("p.grd")));
    EXPECT_DOUBLE_EQ(indextest::readGrid(path("p.grd")).getValue(3, 3), 100.0);
}
