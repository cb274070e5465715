#include <gtest/gtest.h>

#include <string>

#include "commands/cmdstack.h"
#include "commands/vornapp.h"

namespace {

TEST(CommandTable, HoldsThirtyTwoCommandsRegisteredInTableOrder)
{
    int count = 0;
    const VornCommandEntry* table = vornCommandTable(count);
    ASSERT_EQ(count, 32);
    acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    const auto& commands = acedRegCmds()->commands();
    ASSERT_EQ(commands.size(), 32u);
    for (int k = 0; k < count; ++k) {
        EXPECT_NE(table[k].handler, nullptr);
        EXPECT_EQ(commands[static_cast<size_t>(k)].globalName, table[k].globalName);
    }
    acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
}

TEST(CommandTable, LookupIgnoresCaseAndUnderscoreAndUnloadRemovesEveryCommand)
{
    acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    AcEdCommandStack* stack = acedRegCmds();
    const AcEdCommand* local = stack->lookupCmd("VORN_SETGRID");
    ASSERT_NE(local, nullptr);
    EXPECT_EQ(local, stack->lookupCmd("_vorn_setgrid"));
    EXPECT_EQ(local->localName, "vorn_setGrid");
    EXPECT_EQ(stack->lookupCmd("vorn_nothing"), nullptr);
    EXPECT_EQ(stack->lookupCmd("vorn_cmrr")->handler, stack->lookupCmd("vorn_horizStress")->handler);
    // The menu's macro is misspelt; the command is not.
    EXPECT_EQ(stack->lookupCmd("vorn_checkClosedPloylines"), nullptr);
    EXPECT_NE(stack->lookupCmd("vorn_checkClosedPolylines"), nullptr);
    acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
    EXPECT_TRUE(stack->commands().empty());
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
