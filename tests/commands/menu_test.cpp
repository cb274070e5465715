#include <gtest/gtest.h>

#include "host/menu_bar.h"
#include "commands/menu.h"
#include "commands/vornapp.h"

namespace {

using vorn::HostMenuBar;
using vorn::HostPopup;

TEST(MenuRecord, KeepsTheMisspeltMacroAndTrimsAndDerivesItsItems)
{
    CVornMenu menu = buildVornMenu();
    ASSERT_EQ(menu.labels.size(), 39u);
    ASSERT_EQ(menu.macros.size(), 39u);
    ASSERT_EQ(menu.helpTexts.size(), 39u);
    EXPECT_EQ(menu.macros[31], "\x03\x03vorn_checkClosedPloylines ");
    EXPECT_EQ(vorn::visibleMacro(menu.macros[0]), "^C^C_vorn_setgrid ");

    CVornMenu record;
    record.menuName = "M";
    record.addItem("   ", "x", "");
    EXPECT_TRUE(record.labels.empty());
    record.addItem("  &A&b  ", "  cmd  ", "");
    EXPECT_EQ(record.labels[0], "&A&b");
    EXPECT_EQ(record.macros[0], "\x03\x03" "cmd ");
    EXPECT_EQ(record.helpTexts[0], "Ab -- M Command.");
}

class MenuOnHostBar : public ::testing::Test {
protected:
    void SetUp() override { vorn::setMenuAutomation(&bar); }
    void TearDown() override { vorn::setMenuAutomation(nullptr); }
    bool shown() const { return bar.isOnMenuBar("Vornmark"); }
    HostMenuBar bar;
};

TEST_F(MenuOnHostBar, InstallsInFrontOfTheLastTwoPullDownsWithTheSubMenu)
{
    vorn::installMenu(buildVornMenu());
    ASSERT_EQ(bar.bar().size(), 6u);
    EXPECT_EQ(bar.bar()[3], "Vornmark");
    const HostPopup* popup = bar.menu("Vornmark");
    ASSERT_NE(popup, nullptr);
    // 28 items before the sub-menu, the sub-menu, a separator and the about item.
    ASSERT_EQ(popup->items().size(), 31u);
    const HostPopup::Item& sub = popup->items()[28];
    ASSERT_EQ(sub.kind, HostPopup::Item::Kind::SubMenu);
    EXPECT_EQ(sub.label, "&Polyline Utilities");
    ASSERT_EQ(sub.subMenu->items().size(), 8u);
    EXPECT_EQ(sub.subMenu->items()[6].kind, HostPopup::Item::Kind::Separator);
    EXPECT_EQ(sub.subMenu->items().back().macro, "\x03\x03vorn_clearWorkingLayer ");
    EXPECT_EQ(popup->items()[30].label, "About Vornmark");
}

TEST_F(MenuOnHostBar, LoadAndVornMenuToggleAndTheMenuOutlivesAnUnload)
{
    acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    EXPECT_TRUE(shown());
    const AcEdCommand* command = acedRegCmds()->lookupCmd("VORNMenu");
    ASSERT_NE(command, nullptr);
    command->handler();
    EXPECT_FALSE(shown());
    command->handler();
    EXPECT_TRUE(shown());
    acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
    EXPECT_TRUE(shown());
    EXPECT_EQ(acedRegCmds()->lookupCmd("VORNMenu"), nullptr);
    acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    EXPECT_FALSE(shown());
    acedRegCmds()->lookupCmd("_VORNMenu")->handler();
    EXPECT_TRUE(shown());
    acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
    // The pop-up is built once; toggling never adds its items again.
    EXPECT_EQ(bar.menu("Vornmark")->items().size(), 31u);
}

// A bar of one pull-down that already holds the menu.
class ShortMenuBar : public vorn::MenuAutomation {
public:
    int menuBarCount() const override { return 1; }
    vorn::MenuPopup* findMenu(const std::string&) override { return &popup; }
    vorn::MenuPopup& addMenu(const std::string&) override { return popup; }
    bool isOnMenuBar(const std::string&) const override { return false; }
    void insertInMenuBar(const std::string&, int index) override { insertedAt = index; }
    void removeFromMenuBar(const std::string&) override {}
    vorn::HostPopup popup{"Vornmark"};
    int insertedAt = -1;
};

TEST(MenuOnShortBar, GoesToIndexOneAndAnExistingMenuKeepsItsItems)
{
    ShortMenuBar bar;
    vorn::setMenuAutomation(&bar);
    vorn::installMenu(buildVornMenu());
    vorn::setMenuAutomation(nullptr);
    EXPECT_EQ(bar.insertedAt, 1);
    EXPECT_TRUE(bar.popup.items().empty());
}

}  // namespace
