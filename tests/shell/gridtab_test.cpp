#include <gtest/gtest.h>

#include "cmd_scripted.h"
#include "shell/docdata.h"

namespace {

TEST(GridTab, CountsAreHeldToWholeNumbersFromOneTo2000)
{
    ScriptedApp app(
        "set \"Number of Cells in X Direction:\" 2001\n"
        "press \"< Preview Grid\"\n"
        "box ok\n"
        "set \"Number of Cells in X Direction:\" ten\n"
        "press \"Save As ...\"\n"
        "box ok\n"
        "cancel\n");
    app.run("vorn_setGrid");
    EXPECT_TRUE(contains(app.transcript(), "Please enter an integer between 1 and 2000."));
    EXPECT_TRUE(contains(app.transcript(), "Please enter an integer. -> OK"));
    EXPECT_EQ(app.entityCount(), 0u);
}

TEST(GridTab, ShowsRotationZeroWhateverTheRecordHoldsAndTheTotalOfCells)
{
    ScriptedApp app("ok\n");
    DocVars().docData().rotationText = "30";
    DocVars().docData().xNumText = "12";
    app.run("tabTest");
    EXPECT_TRUE(contains(app.transcript(), fieldNote("Rotation to X axis (degree)  :", "0")));
    EXPECT_TRUE(contains(app.transcript(), fieldNote("Total number of Cells:", "120")));
}

TEST(GridTab, EditedOriginIsShownInDisplayFormAndStoredInWorldForm)
{
    ScriptedApp app(
        "set \"X Coordinate of Grid Origin:\" 12.5\n"
        "ok\n");
    app.run("vorn_setGrid");
    EXPECT_TRUE(contains(app.transcript(), fieldNote("X Coordinate of Grid Origin:", "12.5000")));
    EXPECT_EQ(app.profile("GridOX"), "12.500000");
}

}  // namespace
