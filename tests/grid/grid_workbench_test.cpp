// The panels and loops of the grid workbench driven by scripts: the colour
// schema panel, the cell editor and the grid utility.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "grid/colorschema.h"
#include "grid/grid.h"
#include "grid/grideditor.h"
#include "grid/gridutility.h"
#include "host/panel_driver.h"
#include "tests/grid/grid_test_util.h"
#include "tests/host/wrappers_fixture.h"

namespace vorn {
namespace {

class Workbench : public ScriptedHost {
protected:
    // A new session with a panel driver, answered by `script`.
    void begin(const std::string& script)
    {
        start(script);
        driver_ = std::make_unique<PanelDriver>(session().answers(), session().transcript());
        session().setPanels(driver_.get());
    }
    bool says(const std::string& part) { return transcript().find(part) != std::string::npos; }

private:
    std::unique_ptr<PanelDriver> driver_;
};

std::vector<double> breaksOf(const myGrid& grid)
{
    std::vector<double> result;
    for (const Point2& entry : grid.getColorTable()) result.push_back(entry.x);
    return result;
}

std::vector<int> colorsOf(const myGrid& grid)
{
    std::vector<int> result;
    for (const Point2& entry : grid.getColorTable()) result.push_back(static_cast<int>(entry.y));
    return result;
}

myGrid diagonalGrid(int n, double width)
{
    myGrid grid;
    grid.setup(n, n, width, width, 0.0);
    for (int i = 0; i <= n; ++i)
        for (int j = 0; j <= n; ++j) grid.setValue(i, j, i + j);
    return grid;
}

// ---- colour schema panel ------------------------------------------------------

TEST_F(Workbench, ColorPanelButtons)
{
    struct {
        const char* name;
        std::string script;
        std::vector<double> breaks;
        std::vector<int> colors;
    } const cases[] = {
        {"Reset with 0, 100, 30 reaches past the maximum",
         "set \"Minimum:\" 0\nset \"Maximum:\" 100\nset \"Interval:\" 30\npress \"Reset >>\"\nok\n",
         {0, 30, 60, 90, 120}, {174, 200, 10, 50, 174}},
        {"bad numbers make Reset do nothing", "set \"Interval:\" -3\npress \"Reset >>\"\nset \"Maximum:\" x\npress \"Reset >>\"\nok\n",
         {0, 50, 100}, {174, 50, 174}},
        {"Add inserts in order and ignores an existing break",
         "set \"Break:\" 50\npress \"Add >>\"\nset \"Break:\" 25\npress \"Add >>\"\nset \"Break:\" 150\npress \"Add >>\"\nok\n",
         {0, 25, 50, 100, 150}, {174, 50, 174, 50, 174}},
        {"B/W greys repeat by the modulo",
         "set \"Interval:\" 10\npress \"Reset >>\"\npress \"B/W\"\nok\n", {0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100},
         {250, 251, 252, 253, 254, 250, 251, 252, 253, 254, 250}},
        {"delete the selected row after the question",
         "choose \"Preview Color\" \"50 - 100\"\npress \"Delete Selection\"\nbox yes\nok\n", {0, 100}, {174, 50}},
        {"a double click picks a row's colour", "choose \"Preview Color\" \"0 - 50\"\npress \"Row Color ...\"\n5\nok\n",
         {0, 50, 100}, {5, 50, 5}},
        {"Cancel keeps the table", "press \"B/W\"\ncancel\n", {0, 50, 100}, {174, 50, 174}},
    };
    for (const auto& c : cases) {
        begin(c.script);
        myGrid grid;
        grid.setColorTable({{0, 174}, {50, 50}, {100, 174}});
        run([&] { grid.editColors(); });
        EXPECT_EQ(breaksOf(grid), c.breaks) << c.name;
        EXPECT_EQ(colorsOf(grid), c.colors) << c.name;
    }
}

TEST_F(Workbench, ColorPanelListsRowsFromTheTopAndWritesColoursUnderTheOtherKey)
{
    begin("ok\n");
    myGrid grid;
    grid.setColorTable({{0, 1}, {5, 2}, {10, 3}});
    run([&] { grid.editColors(); });
    EXPECT_TRUE(says("[panel \"Color Schema Setting\" opens"));
    CColorRainbow panel;
    panel.setTable(grid.getColorTable());
    run([&] { panel.OnInitDialog(); });
    EXPECT_EQ(panel.listRows(), (std::vector<std::string>{"5 - 10", "0 - 5"}));
    std::string written, read;
    run([&] {
        written = platform().ui->dialogData(kColorSchemaDialog, "RainBowColor", "");
        read = platform().ui->dialogData(kColorSchemaDialog, "CRainBowColor", "");
    });
    EXPECT_EQ(written, "1,2");
    EXPECT_EQ(read, "") << "the opening reads another key";
}

// ---- cell editor ----------------------------------------------------------------

TEST_F(Workbench, EditorEnterAtOnceAsksNothing)
{
    begin("<enter>\n");
    myGrid grid = diagonalGrid(3, 10.0);
    bool accepted = true;
    run([&] { accepted = editGrid(grid); });
    EXPECT_FALSE(accepted);
    EXPECT_TRUE(says("\nExit grid editor without changes."));
    EXPECT_FALSE(says("accept the changes"));
    EXPECT_TRUE(database().modelSpace().empty()) << "cells and drag point erased";
}

TEST_F(Workbench, EditorAssignsTheAverageAndAcceptsOrRejects)
{
    struct {
        const char* name;
        const char* last;
        bool accepted;
    } const cases[] = {{"Enter accepts", "<enter>", true}, {"NO rejects", "NO", false}, {"N rejects", "N", false}};
    for (const auto& c : cases) {
        begin(std::string("15,15\n25,5\n45,45\n<enter>\n<enter>\n<enter>\n") + c.last + "\n");
        myGrid grid = diagonalGrid(3, 10.0);
        bool accepted = !c.accepted;
        run([&] { accepted = editGrid(grid); });
        EXPECT_EQ(accepted, c.accepted) << c.name;
        EXPECT_TRUE(says("[status: Cell(1,1) Value: 2.00]")) << c.name;
        EXPECT_TRUE(says("\nThe point is outside of the Grid<45.000000,45.000000>!")) << c.name;
        EXPECT_TRUE(says("\nAverage value at the 2 cells is: 2.000000.")) << c.name;
        EXPECT_TRUE(says("\nChange 2 selected cell values to <2.000000>:")) << c.name;
        EXPECT_TRUE(says("\n2 grid cells are assigned to 2.000000.")) << c.name;
        EXPECT_EQ(grid.getValue(1, 1), 2.0);
    }
}

TEST_F(Workbench, EditorTakesARotatedGridBackUnrotatedWithTheNewValue)
{
    begin("15,15\n<enter>\n7\n<enter>\nY\n");
    myGrid grid = diagonalGrid(3, 10.0);
    grid.setup(3, 3, 10.0, 10.0, 30.0);
    bool accepted = false;
    run([&] { accepted = editGrid(grid); });
    ASSERT_TRUE(accepted);
    EXPECT_EQ(grid.getValue(1, 1), 7.0);
    EXPECT_LT(grid.getRotation(), 0.01);
}

TEST_F(Workbench, EditorSelectionModesCountCells)
{
    struct {
        const char* name;
        std::string steps;
        const char* count;
    } const cases[] = {
        {"window takes the cells wholly inside", "W\n1,1\n29,29\n", "\n1 cells added into selection."},
        {"crossing takes the clamped range", "C\n1,1\n29,29\n", "\n9 cells added into selection."},
        {"ALL", "A\n", "\n16 cells added into selection."},
        {"fence", "F\n5,5\n35,5\n<enter>\n", "\n4 cells added into selection."},
        {"fence with undo", "F\n5,5\n35,35\nU\n35,5\n<enter>\n", "\n4 cells added into selection."},
        {"a fence of one point takes nothing", "F\n5,5\n<enter>\n", "\n0 cells added into selection."},
        {"crossing polygon", "CP\n5,5\n25,5\n25,25\n5,25\n<enter>\n", "\n9 cells added into selection."},
        {"window polygon", "WP\n5,5\n25,5\n25,25\n5,25\n<enter>\n", "\n1 cells added into selection."},
        {"remove all after all", "A\nR\nA\n", "\n16 cells removed from selection."},
        {"a cell is not taken twice", "15,15\n15,15\n", "\n0 cells added into selection."},
    };
    for (const auto& c : cases) {
        begin(c.steps + "<esc>\n");
        myGrid grid = diagonalGrid(4, 10.0);
        run([&] { editGrid(grid); });
        EXPECT_TRUE(says(c.count)) << c.name << "\n" << transcript();
    }
}

TEST_F(Workbench, EditGridFileWritesBackWhatWasAccepted)
{
    std::string path = gridtest::tempFile("edit_me.grd");
    myGrid grid = diagonalGrid(3, 10.0);
    grid.writeGrd(path);
    begin("5,5\n<enter>\n9\n<enter>\n<enter>\n");
    run([&] { editGridFile(path); });
    EXPECT_TRUE(says("\nSaved grid to " + path + "."));
    myGrid back;
    ASSERT_TRUE(back.readGrd(path, 1));
    EXPECT_EQ(back.getValue(0, 0), 9.0);

    begin("");
    run([&] { editGridFile(gridtest::tempFile("missing.grd")); });
    EXPECT_TRUE(says("\nCan not load grid file: "));
}

// ---- grid utility -----------------------------------------------------------------

class Utility : public Workbench {
protected:
    void SetUp() override
    {
        main = gridtest::tempFile("utility_main.grd");
        small = gridtest::tempFile("utility_small.grd");
        myGrid grid = diagonalGrid(4, 10.0);
        grid.setValue(4, 0, -4.0);  // last row: no cell sees it
        grid.writeGrd(main);
        myGrid other;
        other.setup(2, 2, 10.0, 10.0, 0.0);
        other.setAll(100.0);
        other.setValue(1, 1, 200.0);
        other.writeGrd(small);
    }
    // Runs the panel on `script` after loading the main grid.
    void utility(const std::string& script)
    {
        begin("press \"Select File ...\"\nfile " + main + "\n" + script);
        run([&] { panel.DoModal(); });
    }
    std::string main, small;
    dlg_gridutility panel;
};

TEST_F(Utility, SquareRootMissesTheNegativeOfTheLastRow)
{
    utility("choose \"Operations:\" \"Square Root\"\nset \"Value:\" 1\npress \"Apply to Grid\"\nbox ok\ncancel\nbox yes\n");
    EXPECT_TRUE(says("Apply <Square Root> to grid cells!"));
    EXPECT_TRUE(std::isnan(panel.currentGrid().getValue(4, 0)));
    EXPECT_DOUBLE_EQ(panel.currentGrid().getValue(2, 2), 2.0);
    EXPECT_NE(panel.logText().find("Apply <Square Root> to grid cells! Done!"), std::string::npos);
}

TEST_F(Utility, ApplyToGridRefusals)
{
    utility("press \"Apply to Grid\"\nset \"Value:\" 0\npress \"Apply to Grid\"\nbox ok\n"
            "set \"Value:\" 2\nchoose \"Operations:\" \"Divide\"\npress \"Apply to Grid\"\nbox cancel\n"
            "choose \"Operations:\" \"Add\"\npress \"Apply to Grid\"\nbox ok\nok\nbox yes\n");
    EXPECT_TRUE(says("No Zero value makes sense!!"));
    EXPECT_TRUE(says("Apply <Divide> to grid cells with value <2>!"));
    EXPECT_TRUE(says("Apply <Add> to grid cells with value < 2 >!"));
    EXPECT_TRUE(says("Grid is modified but not saved, Do you want exit anyway?"));
    EXPECT_DOUBLE_EQ(panel.currentGrid().getValue(1, 1), 4.0);
}

TEST_F(Utility, ReadFromFillsFromNearestEdgeWhileApplyWithGridsLeavesIt)
{
    utility("press \"Read from ...\"\nfile " + small + "\nbox ok\nbox ok\ncancel\nbox yes\n");
    EXPECT_DOUBLE_EQ(panel.currentGrid().getValue(0, 0), 100.0);
    EXPECT_DOUBLE_EQ(panel.currentGrid().getValue(3, 3), 200.0) << "beyond the small grid: its edge cell";
    EXPECT_DOUBLE_EQ(panel.currentGrid().getValue(4, 4), 200.0) << "the last row and column too";

    dlg_gridutility second;
    begin("press \"Select File ...\"\nfile " + main + "\nchoose \"Operations:\" \"Add\"\npress \"Apply with Grids...\"\nfile " +
          small + "\nbox ok\ncancel\nbox yes\n");
    run([&] { second.DoModal(); });
    EXPECT_DOUBLE_EQ(second.currentGrid().getValue(0, 0), 100.0);
    EXPECT_DOUBLE_EQ(second.currentGrid().getValue(1, 1), 202.0);
    EXPECT_DOUBLE_EQ(second.currentGrid().getValue(3, 3), 6.0) << "outside the small grid: left alone";
}

TEST_F(Utility, SaveMoveWarnSequence)
{
    std::string saved = gridtest::tempFile("utility_saved.grd");
    utility("press \"Save As ...\"\nfile " + saved + "\npress \"< Move Position\"\n50,60\nok\n");
    EXPECT_FALSE(says("Do you want exit anyway?")) << "a move after a save does not warn";
    EXPECT_TRUE(panel.hasEnded());
    EXPECT_EQ(panel.currentGrid().origin.x, 50.0);
    EXPECT_NE(panel.logText().find("Origin position moved from (0.000000,0.000000) to (50.000000,60.000000)"), std::string::npos);

    dlg_gridutility second;
    begin("press \"Select File ...\"\nfile " + main + "\npress \"Save As ...\"\nfile " + saved +
          "\nset \"Value:\" 1\npress \"Apply to Grid\"\nbox ok\nok\nbox no\nok\nbox yes\n");
    run([&] { second.DoModal(); });
    EXPECT_TRUE(says("Grid is modified but not saved, Do you want exit anyway? -> No]"));
    EXPECT_EQ(second.endResult(), IDOK);
}

TEST_F(Utility, StatisticKeepsItsPercentAndCorrelation)
{
    utility("press \"Statistic\"\n<enter>\n<enter>\n30\npress \"Statistic\"\n<enter>\n<enter>\n<enter>\n"
            "press \"Correlation with\"\nfile " + main + "\ncancel\n");
    EXPECT_TRUE(says("\nInput area percentage criteria of grid cell inside/outside polygons<50>:"));
    EXPECT_TRUE(says("\nInput area percentage criteria of grid cell inside/outside polygons<30>:"));
    EXPECT_TRUE(says("\nStatistics:\nTotal Sample: 16\nMean: 3.000000"));
    EXPECT_TRUE(says("\nCorrelation Coefficent: 1.000000."));
    EXPECT_NE(panel.logText().find("Grid: " + main), std::string::npos);
}

TEST_F(Utility, PlotPreviewAndPersistentValues)
{
    utility("choose \"Type:\" \"Hatchs\"\ncheck \"Group\" on\npress \"< Plot\"\nYes\n<enter>\npress \"< Preview\"\n<enter>\nok\n");
    EXPECT_TRUE(says("Plot Hatchs on layer 0 in black/white to group [No/<Yes>]:"));
    EXPECT_TRUE(database().modelSpace().size() >= 4u);
    Group group;
    EXPECT_TRUE(database().findGroup("Vorn_Grid_Group", group));
    EXPECT_NE(panel.logText().find("Preview Hatchs on layer 0 in black/white to group"), std::string::npos);
    std::string type;
    run([&] { type = platform().ui->dialogData(kGridUtilityDialog, "TYPE", ""); });
    EXPECT_EQ(type, "Hatchs");
}

}  // namespace
}  // namespace vorn
