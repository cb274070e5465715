#include <gtest/gtest.h>

#include <string>

#include "shell/cmdstack.h"
#include "shell/vornapp.h"

namespace {

class LoadedApplication : public ::testing::Test {
protected:
    void SetUp() override { acrxEntryPoint(AcRx::kInitAppMsg, nullptr); }
    void TearDown() override { acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr); }
};

TEST(CommandTable, HoldsThirtyTwoTransparentCommandsOfOneGroup)
{
    int count = 0;
    const VornCommandEntry* table = vornCommandTable(count);
    ASSERT_EQ(count, 32);
    for (int k = 0; k < count; ++k) {
        EXPECT_STREQ(table[k].group, "VORNVornmark");
        EXPECT_EQ(std::string(table[k].globalName), std::string("_") + table[k].localName);
        EXPECT_EQ(table[k].flags, 1);
        EXPECT_EQ(table[k].contextMenu, nullptr);
        EXPECT_EQ(table[k].resourceId, -1);
        EXPECT_NE(table[k].handler, nullptr);
    }
    EXPECT_STREQ(table[0].localName, "vorn_setGrid");
    EXPECT_STREQ(table[26].localName, "tabTest");
    EXPECT_STREQ(table[27].localName, "VORNMenu");
    EXPECT_STREQ(table[31].localName, "vorn_RFRI_Mapping");
}

TEST_F(LoadedApplication, RegistersInTableOrder)
{
    const auto& commands = acedRegCmds()->commands();
    ASSERT_EQ(commands.size(), 32u);
    int count = 0;
    const VornCommandEntry* table = vornCommandTable(count);
    for (int k = 0; k < count; ++k) EXPECT_EQ(commands[static_cast<size_t>(k)].globalName, table[k].globalName);
}

TEST_F(LoadedApplication, FindsCommandsWithoutRegardToCaseWithOrWithoutUnderscore)
{
    const AcEdCommand* local = acedRegCmds()->lookupCmd("VORN_SETGRID");
    const AcEdCommand* global = acedRegCmds()->lookupCmd("_vorn_setgrid");
    ASSERT_NE(local, nullptr);
    EXPECT_EQ(local, global);
    EXPECT_EQ(local->localName, "vorn_setGrid");
    EXPECT_EQ(acedRegCmds()->lookupCmd("vorn_nothing"), nullptr);
}

TEST_F(LoadedApplication, CmrrAndHorizStressAreOneBody)
{
    EXPECT_EQ(acedRegCmds()->lookupCmd("vorn_cmrr")->handler, acedRegCmds()->lookupCmd("vorn_horizStress")->handler);
}

TEST_F(LoadedApplication, TheMisspeltMenuMacroNamesNoCommand)
{
    EXPECT_EQ(acedRegCmds()->lookupCmd("vorn_checkClosedPloylines"), nullptr);
    EXPECT_NE(acedRegCmds()->lookupCmd("vorn_checkClosedPolylines"), nullptr);
}

TEST(Application, UnloadRemovesEveryCommand)
{
    acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
    EXPECT_TRUE(acedRegCmds()->commands().empty());
    EXPECT_EQ(acrxEntryPoint(AcRx::kLoadDwgMsg, nullptr), AcRx::kRetOK);
    EXPECT_EQ(acrxEntryPoint(static_cast<AcRx::AppMsgCode>(40), nullptr), AcRx::kRetOK);
}

TEST(CommandStack, RefusesADuplicateNameInAGroup)
{
    AcEdCommandStack stack;
    EXPECT_TRUE(stack.addCommand("G", "_a", "a", 1, nullptr));
    EXPECT_FALSE(stack.addCommand("G", "_A", "b", 1, nullptr));
    EXPECT_TRUE(stack.removeCmd("G", "_a"));
    EXPECT_FALSE(stack.removeCmd("G", "_a"));
}

}  // namespace
