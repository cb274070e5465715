// The command line for a newcomer: help listings, nearest-name hints, the
// added error lines, lossy conversions and the console lines of a run.
#include <fstream>
#include <regex>

#include "commands/command_help.h"
#include "commands/vornapp.h"
#include "tests/app/cli_fixture.h"

namespace {
std::string example(const std::string& name) { return std::string(VORN_SOURCE_DIR) + "/examples/" + name; }
bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }
}  // namespace

TEST(CommandHelp, NamesEveryCommandOfTheTableInOrderWithItsMenuCaption)
{
    int count = 0;
    const VornCommandEntry* table = vornCommandTable(count);
    std::vector<vorn::CommandHelp> help = vorn::commandHelp();
    ASSERT_EQ(help.size(), static_cast<size_t>(count));
    for (int k = 0; k < count; ++k) EXPECT_EQ(help[static_cast<size_t>(k)].name, table[k].localName);
    EXPECT_EQ(vorn::findCommandHelp("_VORN_SETGRID")->caption, "Define Base Grid");
    EXPECT_EQ(vorn::findCommandHelp("vorn_clearWorkingLayer")->caption, "Clear Objects in Layer");
    // The menu's "Close Polylines" item names a misspelt command, so the
    // command itself has no caption; neither has vorn_cmrr.
    EXPECT_EQ(vorn::findCommandHelp("vorn_checkClosedPolylines")->caption, "");
    EXPECT_EQ(vorn::findCommandHelp("vorn_cmrr")->caption, "");
    EXPECT_EQ(vorn::findCommandHelp("vorn_nothing"), nullptr);
}

TEST_F(Cli, HelpListsTheCommandsAndExplainsOne)
{
    ASSERT_EQ(vornmark("run --help"), 0);
    std::string listing = read("out.txt");
    for (const vorn::CommandHelp& entry : vorn::commandHelp()) EXPECT_TRUE(has(listing, "  " + entry.name + " ")) << entry.name;
    EXPECT_TRUE(has(listing, "[Final Stability Index] integrates") || has(listing, "[Final Stability Index] combine"));

    write("typed.txt", "help\nhelp vorn_seamgrid\nhelp vorn_nothing\nquit\n");
    ASSERT_EQ(vornmark("shell < " + path("typed.txt")), 0);
    std::string shell = read("out.txt");
    EXPECT_TRUE(has(shell, "  vorn_RFRI_Mapping"));
    EXPECT_TRUE(has(shell, "vorn_seamGrid: build the seam file"));
    EXPECT_TRUE(has(shell, "Opens: the frame \"Seam Grid Generator for Keldar\""));
    EXPECT_TRUE(has(shell, "Menu: Vornmark > Seam Grid Generation for Keldar."));
    EXPECT_TRUE(has(shell, "No command \"vorn_nothing\""));
}

TEST_F(Cli, OptionHelpShowsPlainChoices)
{
    ASSERT_EQ(vornmark("genfactor --help"), 0);
    std::string help = read("out.txt");
    EXPECT_TRUE(has(help, "linear|step|exponential|none"));
    EXPECT_FALSE(has(help, "->"));
    ASSERT_EQ(vornmark("topostress --help"), 0);
    EXPECT_TRUE(has(read("out.txt"), "--units 1|2|3|4"));
    EXPECT_EQ(vornmark("topostress a.grd b.grd --units 5"), 2);
}

TEST_F(Cli, UnknownCommandsNameTheNearestKnownOne)
{
    EXPECT_EQ(vornmark("gird info x.grd"), 2);
    EXPECT_TRUE(has(read("err.txt"), "unknown command \"vornmark gird\"; did you mean \"vornmark grid\"?"));
    EXPECT_EQ(vornmark("grid inof x.grd"), 2);
    EXPECT_TRUE(has(read("err.txt"), "did you mean \"vornmark grid info\"?"));
    EXPECT_EQ(vornmark("zzzzzz"), 2);
    EXPECT_FALSE(has(read("err.txt"), "did you mean"));
    EXPECT_EQ(vornmark("run vorn_setgird"), 2);
    EXPECT_TRUE(has(read("err.txt"), "did you mean \"vorn_setGrid\"?"));
}

TEST_F(Cli, FailuresAddALineNamingTheFileAndTheReason)
{
    // The system's literal text stays; the added line follows it.
    EXPECT_EQ(vornmark("grid info " + path("missing.grd")), 1);
    std::string err = read("err.txt");
    EXPECT_TRUE(has(err, "le could not be opened: "));
    EXPECT_TRUE(has(err, "vornmark: " + path("missing.grd") + ": No such file or directory\n"));

    // The stress model's coded messages get the file and the cause too.
    EXPECT_EQ(vornmark("keldar " + path("none.inp") + " </dev/null"), 1);
    EXPECT_TRUE(has(read("err.txt"), "vornmark: " + path("none.inp") + ": No such file or directory\n"));
    EXPECT_EQ(vornmark("transfer " + path("none.f1") + " --list"), 1);
    EXPECT_TRUE(has(read("err.txt"), "vornmark: " + path("none.f1") + ": No such file or directory\n"));

    write("bad.grd", "not a grid\n");
    EXPECT_EQ(vornmark("grid info " + path("bad.grd")), 1);
    EXPECT_TRUE(has(read("err.txt"), "vornmark: " + path("bad.grd") + ": could not be read as a grid file"));

    // A write that fails gives status 1 even where the system's closing
    // message reports success.
    const std::string nowhere = path("no/such/folder/out.grd");
    EXPECT_EQ(vornmark("genfactor " + example("depth.grd") + " " + nowhere + " --function linear --tendency normal"), 1);
    EXPECT_TRUE(has(read("out.txt"), "finished!"));
    EXPECT_TRUE(has(read("err.txt"), "vornmark: " + nowhere + ": cannot be written: the folder"));
    fs::create_directories(dir / "folder.grd");
    EXPECT_EQ(vornmark("grid convert " + example("depth.grd") + " " + path("folder.grd")), 1);
    EXPECT_TRUE(has(read("err.txt"), "cannot be written: it is a folder"));
}

TEST_F(Cli, ConversionToTopSaysWhatIsLost)
{
    ASSERT_EQ(vornmark("grid convert " + example("depth.grd") + " " + path("depth.top")), 0);
    EXPECT_EQ(read("err.txt"), "vornmark: " + path("depth.top") +
                                   ": a .top file keeps the cells only: the last row and column of nodes and the title "
                                   "are not kept\n");
    ASSERT_EQ(vornmark("grid convert " + path("depth.top") + " " + path("back.grd")), 0);
    EXPECT_EQ(read("err.txt"), "");
}

TEST_F(Cli, ElementFilesAreDescribedByTheElementReaderAndRunsKeepConsoleLinesOnAPipe)
{
    fs::copy_file(example("keldar/small.inp"), dir / "small.inp");
    ASSERT_EQ(vornmark("keldar " + path("small.inp") + " </dev/null"), 0) << read("err.txt");
    ASSERT_EQ(vornmark("grid info " + path("small.f1")), 0);
    std::string out = read("out.txt");
    EXPECT_TRUE(has(out, "Element file of 1 step(s), 5 item(s) a step"));
    EXPECT_TRUE(has(out, "Lattice: 20 x 10 elements of width 5 ft"));
    EXPECT_TRUE(has(out, "Total Vertical Stress"));
    EXPECT_EQ(vornmark("grid convert " + path("small.f1") + " " + path("x.grd")), 2);
    EXPECT_TRUE(has(read("err.txt"), "vornmark transfer"));

    // A mined element code "0" is refused in the stress routine: its console
    // lines reach standard error when it is a pipe, verbatim.
    std::ifstream in(dir / "small.inp");
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    text[text.rfind("AAAA")] = '0';
    write("zero.inp", text);
    EXPECT_EQ(vornmark("keldar " + path("zero.inp") + " </dev/null"), 1);
    EXPECT_TRUE(has(read("err.txt"), "Material Code Out of Range in Element Stress Routine - ES1\ni = "));
}
