// Whole commands run over a new drawing with scripted answers.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <optional>

#include "cmd_scripted.h"
#include "grid/grid.h"
#include "shell/docdata.h"

namespace {

using Strings = std::vector<std::string>;

struct ScriptedCase {
    const char* name;
    Strings commands;
    std::string script;
    int status = -1;  // the status every command ends with, when checked
    Strings shown = {};
    Strings absent = {};
    Strings errorParts = {};
    std::vector<std::pair<const char*, const char*>> profile = {};
    std::optional<Strings> record = {};
    int entities = -1;
    std::string reopenShows = {};  // what a later tabTest shows of the record
};

const std::string widthX = "set \"Cell Width in X Direction:\" ";
const std::string countX = "set \"Number of Cells in X Direction:\" ";
const Strings defaultRecord{"10", "10", "10", "10", "", "", "0"};

const ScriptedCase cases[] = {
    {.name = "a new drawing shows ten cells of ten and OK stores them everywhere",
     .commands = {"vorn_setGrid"}, .script = "ok\n", .status = 0,
     .shown = {"[panel \"Define a Grid\" opens, tab \"Grid Dimension\"", fieldNote("Cell Width in X Direction:", "10"),
               fieldNote("Number of Cells in Y Direction:", "10"), fieldNote("Rotation to X axis (degree)  :", "0"),
               "\nDocument Base Grid for this session is defined!"},
     .profile = {{"GridXNum", "10"}, {"GridXCellYW", "10"}, {"GridRotA", "0"}, {"GridOX", ""}},
     .record = defaultRecord},
    {.name = "widths below one are refused by their integer reading; the preview draws the lattice",
     .commands = {"vorn_setgrid"},
     .script = widthX + "0.9\npress \"< Preview Grid\"\nbox ok\n" + widthX + "1\nset \"Cell Width in Y Direction:\" 2\n" +
               countX + "3\nset \"Number of Cells in Y Direction:\" 4\npress \"< Preview Grid\"\nK\nok\n",
     .status = 0, .shown = {"Error: Size of cells should lager than zero!"},
     .record = Strings{"3", "4", "1", "2", "0.000000", "0.000000", "0"}, .entities = 9},
    {.name = "a width of half is stored but comes back as ten", .commands = {"vorn_setGrid"},
     .script = widthX + "0.5\nok\nok\n", .absent = {"Error: Size of cells"},
     .profile = {{"GridXCellXW", "0.5"}, {"GridXCellYW", "0.5"}},
     .reopenShows = fieldNote("Cell Width in X Direction:", "10")},
    {.name = "the X width is copied to Y but not the other way", .commands = {"vorn_setGrid"},
     .script = widthX + "7\nset \"Cell Width in Y Direction:\" 3\nok\n",
     .profile = {{"GridXCellXW", "7"}, {"GridXCellYW", "3"}}},
    {.name = "geometry divides both counts by the X width", .commands = {"vorn_setGrid"},
     .script = "press \"< Geometry\"\n100,200\n10\n20\nok\n",
     .shown = {"\nPick a opposite Point(up right corner): ", "\nWidth of Cells in Y direction<10.000000>"},
     .profile = {{"GridXNum", "10"}, {"GridYNum", "20"}, {"GridXCellXW", "10.000000"}, {"GridXCellYW", "20.000000"}}},
    {.name = "pick a point drags the outline of a defined grid and takes it away", .commands = {"vorn_setGrid"},
     .script = "press \"Pick a Point\"\n50,60\nok\n",
     .shown = {"\nNew position:", "[panel \"Define a Grid\" hidden]"},
     .profile = {{"GridOX", "50.000000"}, {"GridOY", "60.000000"}}, .entities = 0},
    {.name = "pick a point asks for a point when the grid is not defined", .commands = {"vorn_setGrid"},
     .script = countX + "1\npress \"Pick a Point\"\n5,6\nok\n",
     .shown = {"\nSpecify the orign point of grid (low-left corner): "}, .profile = {{"GridOX", "5.000000"}}},
    {.name = "cell size takes a distance", .commands = {"vorn_setGrid"}, .script = "press \"< Cell Size [2]\"\n12.5\nok\n",
     .shown = {"\nInput the size of a cell<10.000000> in Y direction:"},
     .profile = {{"GridXCellYW", "12.500000"}, {"GridXCellXW", "10"}}},
    {.name = "counts are whole numbers from one to 2000", .commands = {"vorn_setGrid"},
     .script = countX + "2001\npress \"< Preview Grid\"\nbox ok\n" + countX + "ten\npress \"Save As ...\"\nbox ok\ncancel\n",
     .shown = {"Please enter an integer between 1 and 2000.", "Please enter an integer. -> OK"}, .entities = 0},
    {.name = "an edited origin is shown in display form and stored in world form", .commands = {"vorn_setGrid"},
     .script = "set \"X Coordinate of Grid Origin:\" 12.5\nok\n",
     .shown = {fieldNote("X Coordinate of Grid Origin:", "12.5000")}, .profile = {{"GridOX", "12.500000"}}},
    {.name = "tabTest changes the record but writes neither xrecord nor profile", .commands = {"tabTest"},
     .script = countX + "33\nok\nok\n", .profile = {{"GridXNum", "<none>"}}, .record = Strings{},
     .reopenShows = fieldNote("Number of Cells in X Direction:", "33")},
    {.name = "cancel keeps the record", .commands = {"vorn_setGrid"},
     .script = countX + "33\npress \"< Preview Grid\"\n<enter>\ncancel\nok\n", .profile = {{"GridXNum", "<none>"}},
     .reopenShows = fieldNote("Number of Cells in X Direction:", "10")},
    {.name = "the end of the script cancels the panel", .commands = {"vorn_setGrid"}, .script = "", .status = 0,
     .shown = {"closes with Cancel"}, .absent = {"Document Base Grid"}},
    {.name = "an unknown caption stops the run naming the line", .commands = {"vorn_setGrid"},
     .script = "# a comment\nset \"No Such Field\" 5\nok\n", .status = 1,
     .errorParts = {"line 2", "has no control \"No Such Field\""}, .profile = {{"GridXNum", "<none>"}}},
    {.name = "an answer of the wrong kind stops the run", .commands = {"vorn_setGrid"}, .script = "10,20\n", .status = 1,
     .errorParts = {"line 1", "Define a Grid"}},
    {.name = "read-only fields are refused", .commands = {"vorn_setGrid"},
     .script = "set \"Total number of Cells:\" 5\n", .status = 1, .errorParts = {"read-only edit"}},
    {.name = "missing tabs are refused", .commands = {"vorn_setGrid"}, .script = "tab \"Build Grid\"\n", .status = 1,
     .errorParts = {"has no tab \"Build Grid\""}},
    {.name = "horizontal stress opens the frame of cmrr", .commands = {"VORN_HORIZSTRESS"}, .script = "cancel\n",
     .shown = {"\"Create Grid for Horizontal Stress Effect on Entries\" opens",
               "\"Create Grid for Horizontal Stress Effect on Entries\" closes with Cancel"}},
    {.name = "a generator frame writes no base grid", .commands = {"_vorn_gridFromContour"},
     .script = countX + "12\nok\n", .shown = {"\"Create Grid from Contours\" opens"}, .record = Strings{}},
    {.name = "RFRI drawing stores the base grid like vorn_setGrid", .commands = {"vorn_RFRI_Draw"}, .script = "ok\n",
     .status = 0, .shown = {"\nLeaving the RFRI Drawing Menus!"},
     .profile = {{"GridYNum", "10"}}, .record = defaultRecord},
    {.name = "the misspelt name is unknown",
     .commands = {"vorn_checkClosedPloylines"}, .script = "",
     .shown = {"Unknown command \"VORN_CHECKCLOSEDPLOYLINES\".  Press F1 for help."}},
    {.name = "the about box hands its addresses to the shell", .commands = {"'_vorn_vornabout"},
     .script = "press \"support@vornmark.example\"\nok\n",
     .shown = {"hands the address \"mailto:support@vornmark.example\" to the shell"}},
};

TEST(ScriptedCommands, DoWhatTheirAnswersAsk)
{
    for (const ScriptedCase& c : cases) {
        SCOPED_TRACE(c.name);
        ScriptedApp app(c.script);
        for (const std::string& command : c.commands) {
            int status = app.run(command);
            if (c.status >= 0) {
                EXPECT_EQ(status, c.status) << app.scriptError();
            }
        }
        const std::string transcript = app.transcript();
        for (const std::string& part : c.shown) EXPECT_TRUE(contains(transcript, part)) << part;
        for (const std::string& part : c.absent) EXPECT_FALSE(contains(transcript, part)) << part;
        for (const std::string& part : c.errorParts) EXPECT_TRUE(contains(app.scriptError(), part)) << app.scriptError();
        for (const auto& [key, value] : c.profile) EXPECT_EQ(app.profile(key), value) << key;
        if (c.record) {
            EXPECT_EQ(app.baseGridRecord(), *c.record);
        }
        if (c.entities >= 0) {
            EXPECT_EQ(app.entityCount(), static_cast<size_t>(c.entities));
        }
        if (c.reopenShows.empty()) continue;
        app.run("tabTest");
        EXPECT_TRUE(contains(app.transcript().substr(app.transcript().rfind("opens, tab")), c.reopenShows));
    }
}

TEST(ScriptedCommands, GridTabShowsRotationZeroWhateverTheRecordHoldsAndTheTotalOfCells)
{
    ScriptedApp app("ok\n");
    DocVars().docData().rotationText = "30";
    DocVars().docData().xNumText = "12";
    app.run("tabTest");
    EXPECT_TRUE(contains(app.transcript(), fieldNote("Rotation to X axis (degree)  :", "0")));
    EXPECT_TRUE(contains(app.transcript(), fieldNote("Total number of Cells:", "120")));
}

TEST(ScriptedCommands, SaveAsWritesAGridDefinitionThatImportReadsBackAndOtherFilesAreRefused)
{
    std::filesystem::path dir = std::filesystem::temp_directory_path();
    std::string path = (dir / "vorn_cmd_setgrid_def.grd").string();
    std::string plain = (dir / "vorn_cmd_setgrid_plain.txt").string();
    std::remove(path.c_str());
    std::fclose(std::fopen(plain.c_str(), "w"));
    ScriptedApp(countX + "4\npress \"Save As ...\"\nfile " + path + "\nbox ok\ncancel\n").run("tabTest");
    myGrid saved;
    ASSERT_TRUE(saved.readGrd(path));
    EXPECT_EQ(saved.xNum, 4);
    EXPECT_EQ(saved.title, "Grid Definition");

    ScriptedApp app("press \"Import From ... \"\nfile " + path + "\nbox ok\nok\n"
                    "press \"Import From ... \"\nfile " + plain + "\nbox ok\ncancel\n");
    app.run("vorn_setGrid");
    EXPECT_TRUE(contains(app.transcript(), "Grid file definition loaded!"));
    EXPECT_EQ(app.profile("GridXNum"), "4");
    EXPECT_EQ(app.profile("GridXCellXW"), "10.000000");
    app.run("vorn_setGrid");
    EXPECT_TRUE(contains(app.transcript(), "Unknown grid file !"));
    std::remove(path.c_str());
    std::remove(plain.c_str());
}

TEST(ScriptedCommands, GridUtilityDefinesANewGridInTheFrameAndSavesIt)
{
    std::string path = (std::filesystem::temp_directory_path() / "vorn_cmd_utility_new.grd").string();
    std::remove(path.c_str());
    ScriptedApp app("press \"New Grid ...\"\n" + countX + "3\nok\nfile " + path +
                    "\npress \"Save As ...\"\nfile " + path + "\nok\n");
    EXPECT_EQ(app.run("vorn_gridUtility"), 0);
    EXPECT_TRUE(contains(app.transcript(), "[panel \"Grid Utility\" opens"));
    EXPECT_TRUE(contains(app.transcript(), "[panel \"Define a Grid\" opens"));
    EXPECT_TRUE(contains(app.transcript(), "New Grid Defined ! ( 3 X 10 ) for " + path));
    EXPECT_FALSE(contains(app.transcript(), "Do you want exit anyway?"));
    myGrid saved;
    ASSERT_TRUE(saved.readGrd(path));
    EXPECT_EQ(saved.xNum, 3);
    EXPECT_EQ(saved.getValue(1, 1), 0.0);
    std::remove(path.c_str());
}

}  // namespace
