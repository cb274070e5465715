#include <gtest/gtest.h>

#include "cmd_scripted.h"

namespace {

TEST(Handlers, CmrrAndHorizStressOpenTheSameFrame)
{
    ScriptedApp app("cancel\ncancel\n");
    app.run("vorn_cmrr");
    app.run("VORN_HORIZSTRESS");
    const std::string& transcript = app.transcript();
    size_t first = transcript.find("\"Create Grid for Horizontal Stress Effect on Entries\" opens");
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(transcript.find("\"Create Grid for Horizontal Stress Effect on Entries\" opens", first + 1), std::string::npos);
    EXPECT_TRUE(contains(transcript, "vorn_horizStress: the page \"Build Grid\" (horizontal stress) is not available in this build."));
}

TEST(Handlers, AGeneratorFrameSavesTheBaseGridOnOkButWritesNothingElse)
{
    ScriptedApp app("set \"Number of Cells in X Direction:\" 12\nok\n");
    app.run("_vorn_gridFromContour");
    EXPECT_TRUE(contains(app.transcript(), "\"Create Grid from Contours\" opens"));
    EXPECT_TRUE(app.baseGridRecord().empty());
}

TEST(Handlers, RfriDrawStoresTheBaseGridLikeSetGrid)
{
    ScriptedApp app("ok\n");
    app.run("vorn_RFRI_Draw");
    EXPECT_TRUE(contains(app.transcript(), "the twelve defect pages is not available in this build."));
    EXPECT_TRUE(contains(app.transcript(), "\nLeaving the RFRI Drawing Menus!"));
    EXPECT_EQ(app.baseGridRecord().size(), 7u);
    EXPECT_EQ(app.profile("GridYNum"), "10");
}

TEST(Handlers, CommandsOfLaterPartsSaySoAndTheMisspeltNameIsUnknown)
{
    ScriptedApp app("");
    app.run("vorn_keldar");
    app.run("vorn_checkClosedPloylines");
    EXPECT_TRUE(contains(app.transcript(), "vorn_keldar: the solver panel dlg_keldar is not available in this build."));
    EXPECT_TRUE(contains(app.transcript(), "Unknown command \"VORN_CHECKCLOSEDPLOYLINES\".  Press F1 for help."));
}

TEST(Handlers, TheAboutBoxHandsItsAddressesToTheShell)
{
    ScriptedApp app("press \"support@vornmark.example\"\nok\n");
    app.run("'_vorn_vornabout");
    EXPECT_TRUE(contains(app.transcript(), "hands the address \"mailto:support@vornmark.example\" to the shell"));
}

}  // namespace
