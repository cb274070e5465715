#include <gtest/gtest.h>

#include "cmd_scripted.h"

namespace {

TEST(ScriptErrors, AnUnknownCaptionStopsTheRunNamingTheLine)
{
    ScriptedApp app("# a comment\nset \"No Such Field\" 5\nok\n");
    EXPECT_EQ(app.run("vorn_setGrid"), 1);
    EXPECT_TRUE(contains(app.scriptError(), "line 2")) << app.scriptError();
    EXPECT_TRUE(contains(app.scriptError(), "has no control \"No Such Field\"")) << app.scriptError();
    EXPECT_EQ(app.profile("GridXNum"), "<none>");
}

TEST(ScriptErrors, AnAnswerOfTheWrongKindStopsTheRun)
{
    ScriptedApp app("10,20\n");
    EXPECT_EQ(app.run("vorn_setGrid"), 1);
    EXPECT_TRUE(contains(app.scriptError(), "line 1")) << app.scriptError();
    EXPECT_TRUE(contains(app.scriptError(), "Define a Grid")) << app.scriptError();
}

TEST(ScriptErrors, ReadOnlyFieldsAndMissingTabsAreRefused)
{
    ScriptedApp readOnly("set \"Total number of Cells:\" 5\n");
    EXPECT_EQ(readOnly.run("vorn_setGrid"), 1);
    EXPECT_TRUE(contains(readOnly.scriptError(), "read-only edit")) << readOnly.scriptError();

    ScriptedApp tab("tab \"Build Grid\"\n");
    EXPECT_EQ(tab.run("vorn_setGrid"), 1);
    EXPECT_TRUE(contains(tab.scriptError(), "has no tab \"Build Grid\"")) << tab.scriptError();
}

TEST(ScriptErrors, TheEndOfTheScriptCancelsThePanel)
{
    ScriptedApp app("");
    EXPECT_EQ(app.run("vorn_setGrid"), 0);
    EXPECT_TRUE(contains(app.transcript(), "closes with Cancel"));
    EXPECT_FALSE(contains(app.transcript(), "Document Base Grid"));
}

}  // namespace
