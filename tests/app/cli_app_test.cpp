// The executable's run, menu and error paths, from the outside.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/app/cli_fixture.h"
#include "tests/shell/cmd_scripted.h"

namespace {

// The strings of the xrecord VornBaseGrid in a saved drawing, read back.
std::vector<std::string> baseGridOf(const std::string& path)
{
    std::string error;
    return ScriptedApp("", vorn::openDrawing(path, error)).baseGridRecord();
}

TEST_F(Cli, MenuPrintsItemsWithVisibleMacros)
{
    ASSERT_EQ(vornmark("menu"), 0);
    EXPECT_NE(read("out.txt").find("About Vornmark\t^C^C'_vorn_vornabout \tAbout Vornmark System for Mines\n"),
              std::string::npos);
}

TEST_F(Cli, RunSavesTheBaseGridInTheDrawingAndTheProfile)
{
    write("setgrid.scr",
          "# a 100 by 200 rectangle with widths 10 and 20\n"
          "press \"< Geometry\"\n100,200\n10\n20\n"
          "set \"X Coordinate of Grid Origin:\" 0\n"
          "ok\n");
    ASSERT_EQ(vornmark("run _VORN_SETGRID --script " + path("setgrid.scr") + " --save " + path("out.dxf") +
                       " --transcript " + path("transcript.txt")),
              0)
        << read("err.txt");
    const std::vector<std::string> baseGrid{"10", "20", "10.000000", "20.000000", "0.000000", "0.000000", "0"};
    EXPECT_EQ(baseGridOf(path("out.dxf")), baseGrid);
    std::string profile = read("profile.ini");
    EXPECT_NE(profile.find("[Settings]"), std::string::npos);
    EXPECT_NE(profile.find("GridYNum=20"), std::string::npos);
    std::string transcript = read("transcript.txt");
    EXPECT_NE(transcript.find("Pick a opposite Point(up right corner): 100,200"), std::string::npos);
    EXPECT_NE(transcript.find("closes with OK"), std::string::npos);

    // The saved drawing opens again, and tabTest leaves its xrecord alone.
    write("tabtest.scr", "set \"Number of Cells in X Direction:\" 5\nok\n");
    ASSERT_EQ(vornmark("run tabTest --drawing " + path("out.dxf") + " --script " + path("tabtest.scr") + " --save " +
                       path("again.dxf")),
              0)
        << read("err.txt");
    EXPECT_EQ(baseGridOf(path("again.dxf")), baseGrid);
}

TEST_F(Cli, BadCommandsAndScriptsAndCommandsNotBuiltGiveTheirStatus)
{
    EXPECT_EQ(vornmark("run vorn_noSuchCommand"), 2);
    EXPECT_NE(read("err.txt").find("unknown command"), std::string::npos);
    EXPECT_EQ(vornmark("run vorn_setGrid --script " + path("missing.scr")), 1);
    write("wrong.scr", "press \"Nothing Here\"\n");
    EXPECT_EQ(vornmark("run vorn_setGrid --script " + path("wrong.scr")), 1);
    EXPECT_NE(read("err.txt").find("line 1"), std::string::npos);
}

TEST_F(Cli, ShellRunsTypedCommandsAndQuits)
{
    write("typed.txt", "vorn_setgrid\nok\nsave " + path("shell.dxf") + "\nquit\n");
    ASSERT_EQ(vornmark("shell < " + path("typed.txt")), 0) << read("err.txt");
    std::string out = read("out.txt");
    EXPECT_NE(out.find("Command: "), std::string::npos);
    EXPECT_NE(out.find("== Define a Grid =="), std::string::npos);
    EXPECT_NE(out.find("Document Base Grid for this session is defined!"), std::string::npos);
    EXPECT_TRUE(fs::exists(dir / "shell.dxf"));
}

TEST_F(Cli, ShellKeepsThePullDownOnTheBarAcrossAnUnload)
{
    write("typed.txt", "unload\nmenubar\nload\nmenubar\nVORNMenu\nmenubar\nquit\n");
    ASSERT_EQ(vornmark("shell < " + path("typed.txt")), 0) << read("err.txt");
    std::string out = read("out.txt");
    std::string withMenu = "File | Edit | View | Vornmark | Window | Help\n";
    std::string without = "File | Edit | View | Window | Help\n";
    size_t first = out.find(withMenu);
    size_t second = out.find(without, first);
    ASSERT_NE(first, std::string::npos);
    ASSERT_NE(second, std::string::npos);
    EXPECT_NE(out.find(withMenu, second), std::string::npos);
}

}  // namespace
