#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "cmd_scripted.h"
#include "grid/grid.h"
#include "shell/report.h"

namespace {

TEST(SetGridCommand, ANewDrawingShowsTenCellsOfTenAndOkStoresTheDefinitionEverywhere)
{
    ScriptedApp app("ok\n");
    EXPECT_EQ(app.run("vorn_setGrid"), 0);
    const std::string& transcript = app.transcript();
    EXPECT_TRUE(contains(transcript, "[panel \"Define a Grid\" opens, tab \"Grid Dimension\""));
    EXPECT_TRUE(contains(transcript, fieldNote("Cell Width in X Direction:", "10")));
    EXPECT_TRUE(contains(transcript, fieldNote("Number of Cells in Y Direction:", "10")));
    EXPECT_TRUE(contains(transcript, fieldNote("Rotation to X axis (degree)  :", "0")));
    EXPECT_TRUE(contains(transcript, "\nDocument Base Grid for this session is defined!"));
    EXPECT_EQ(app.baseGridRecord(), (std::vector<std::string>{"10", "10", "10", "10", "", "", "0"}));
    EXPECT_EQ(app.profile("GridXNum"), "10");
    EXPECT_EQ(app.profile("GridXCellYW"), "10");
    EXPECT_EQ(app.profile("GridRotA"), "0");
    EXPECT_EQ(app.profile("GridOX"), "");
}

TEST(SetGridCommand, RefusesWidthsBelowOneByTheirIntegerReading)
{
    ScriptedApp app(
        "set \"Cell Width in X Direction:\" 0.9\n"
        "press \"< Preview Grid\"\n"
        "box ok\n"
        "set \"Cell Width in X Direction:\" 1\n"
        "set \"Cell Width in Y Direction:\" 2\n"
        "set \"Number of Cells in X Direction:\" 3\n"
        "set \"Number of Cells in Y Direction:\" 4\n"
        "press \"< Preview Grid\"\n"
        "ok\n");
    EXPECT_EQ(app.run("vorn_setgrid"), 0) << app.scriptError();
    EXPECT_TRUE(contains(app.transcript(), "Error: Size of cells should lager than zero!"));
    // The preview draws the lattice: 4 node columns and 5 node rows.
    EXPECT_EQ(app.entityCount(), 9u);
    EXPECT_EQ(app.baseGridRecord(),
              (std::vector<std::string>{"3", "4", "1", "2", "0.000000", "0.000000", "0"}));
}

TEST(SetGridCommand, AWidthOfHalfIsStoredButComesBackAsTen)
{
    ScriptedApp app(
        "set \"Cell Width in X Direction:\" 0.5\n"
        "ok\n"
        "ok\n");
    app.run("vorn_setGrid");
    EXPECT_EQ(app.profile("GridXCellXW"), "0.5");
    EXPECT_EQ(app.profile("GridXCellYW"), "0.5");
    app.run("tabTest");
    const std::string& transcript = app.transcript();
    size_t second = transcript.rfind("opens, tab");
    ASSERT_NE(second, std::string::npos);
    EXPECT_TRUE(contains(transcript.substr(second), fieldNote("Cell Width in X Direction:", "10")));
    EXPECT_FALSE(contains(transcript, "Error: Size of cells"));
}

TEST(SetGridCommand, GeometryDividesBothCountsByTheXWidth)
{
    ScriptedApp app(
        "press \"< Geometry\"\n"
        "100,200\n"
        "10\n"
        "20\n"
        "ok\n");
    app.run("vorn_setGrid");
    EXPECT_TRUE(contains(app.transcript(), "\nPick a opposite Point(up right corner): "));
    EXPECT_TRUE(contains(app.transcript(), "\nWidth of Cells in Y direction<10.000000>"));
    EXPECT_EQ(app.profile("GridXNum"), "10");
    EXPECT_EQ(app.profile("GridYNum"), "20");
    EXPECT_EQ(app.profile("GridXCellXW"), "10.000000");
    EXPECT_EQ(app.profile("GridXCellYW"), "20.000000");
}

TEST(SetGridCommand, XWidthIsCopiedToYButNotTheOtherWay)
{
    ScriptedApp app(
        "set \"Cell Width in X Direction:\" 7\n"
        "set \"Cell Width in Y Direction:\" 3\n"
        "ok\n");
    app.run("vorn_setGrid");
    EXPECT_EQ(app.profile("GridXCellXW"), "7");
    EXPECT_EQ(app.profile("GridXCellYW"), "3");
}

TEST(SetGridCommand, PickAPointDragsTheOutlineOfADefinedGrid)
{
    ScriptedApp app(
        "press \"Pick a Point\"\n"
        "50,60\n"
        "ok\n");
    app.run("vorn_setGrid");
    EXPECT_TRUE(contains(app.transcript(), "\nNew position:"));
    EXPECT_TRUE(contains(app.transcript(), "[panel \"Define a Grid\" hidden]"));
    EXPECT_EQ(app.entityCount(), 0u);  // the outline is gone again
    EXPECT_EQ(app.profile("GridOX"), "50.000000");
    EXPECT_EQ(app.profile("GridOY"), "60.000000");
}

TEST(SetGridCommand, PickAPointAsksForAPointWhenTheGridIsNotDefined)
{
    ScriptedApp app(
        "set \"Number of Cells in X Direction:\" 1\n"
        "press \"Pick a Point\"\n"
        "5,6\n"
        "ok\n");
    app.run("vorn_setGrid");
    EXPECT_TRUE(contains(app.transcript(), "\nSpecify the orign point of grid (low-left corner): "));
    EXPECT_EQ(app.profile("GridOX"), "5.000000");
}

TEST(SetGridCommand, CellSizeTakesADistance)
{
    ScriptedApp app(
        "press \"< Cell Size [2]\"\n"
        "12.5\n"
        "ok\n");
    app.run("vorn_setGrid");
    EXPECT_TRUE(contains(app.transcript(), "\nInput the size of a cell<10.000000> in Y direction:"));
    EXPECT_EQ(app.profile("GridXCellYW"), "12.500000");
    EXPECT_EQ(app.profile("GridXCellXW"), "10");
}

TEST(SetGridCommand, SavesAndImportsAGridDefinition)
{
    std::string path = (std::filesystem::temp_directory_path() / "vorn_cmd_setgrid_def.grd").string();
    std::remove(path.c_str());
    {
        ScriptedApp app(
            "set \"Number of Cells in X Direction:\" 4\n"
            "press \"Save As ...\"\n"
            "file " + path + "\n"
            "box ok\n"
            "cancel\n");
        app.run("tabTest");
    }
    myGrid saved;
    ASSERT_TRUE(saved.readGrd(path));
    EXPECT_EQ(saved.xNum, 4);
    EXPECT_EQ(saved.title, "Grid Definition");

    ScriptedApp app(
        "press \"Import From ... \"\n"
        "file " + path + "\n"
        "box ok\n"
        "ok\n");
    app.run("vorn_setGrid");
    EXPECT_TRUE(contains(app.transcript(), "Grid file definition loaded!"));
    EXPECT_EQ(app.profile("GridXNum"), "4");
    EXPECT_EQ(app.profile("GridXCellXW"), "10.000000");
    std::remove(path.c_str());
}

TEST(SetGridCommand, ImportRefusesAnUnknownKindOfFile)
{
    std::string path = (std::filesystem::temp_directory_path() / "vorn_cmd_setgrid_plain.txt").string();
    std::fclose(std::fopen(path.c_str(), "w"));
    ScriptedApp app(
        "press \"Import From ... \"\n"
        "file " + path + "\n"
        "box ok\n"
        "cancel\n");
    app.run("vorn_setGrid");
    EXPECT_TRUE(contains(app.transcript(), "Unknown grid file !"));
    std::remove(path.c_str());
}

TEST(TabTestCommand, ChangesTheRecordButWritesNeitherXrecordNorProfile)
{
    ScriptedApp app(
        "set \"Number of Cells in X Direction:\" 33\n"
        "ok\n"
        "ok\n");
    app.run("tabTest");
    EXPECT_TRUE(app.baseGridRecord().empty());
    EXPECT_EQ(app.profile("GridXNum"), "<none>");
    app.run("tabTest");
    size_t second = app.transcript().rfind("opens, tab");
    EXPECT_TRUE(contains(app.transcript().substr(second), fieldNote("Number of Cells in X Direction:", "33")));
}

TEST(SetGridCommand, CancelKeepsTheRecord)
{
    ScriptedApp app(
        "set \"Number of Cells in X Direction:\" 33\n"
        "press \"< Preview Grid\"\n"
        "cancel\n"
        "ok\n");
    app.run("vorn_setGrid");
    EXPECT_EQ(app.profile("GridXNum"), "<none>");
    app.run("tabTest");
    size_t second = app.transcript().rfind("opens, tab");
    EXPECT_TRUE(contains(app.transcript().substr(second), fieldNote("Number of Cells in X Direction:", "10")));
}

}  // namespace
