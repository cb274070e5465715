// `vornmark menu`: loads the application into a host menu bar and prints
// the pull-down it builds, one item a line: caption, macro (control
// characters shown as ^C) and help text, separated by tabs.
#include <cstdio>
#include <string>

#include "app/commands.h"
#include "host/menu_bar.h"
#include "commands/menu.h"
#include "commands/vornapp.h"

namespace vorn::app {
namespace {

int printMenu()
{
    HostMenuBar bar;
    setMenuAutomation(&bar);
    acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    std::string text;
    CVornMenu record = buildVornMenu();
    if (const HostPopup* popup = bar.menu(record.menuName)) {
        text = popup->name() + "\n";
        popup->describe(text, 1);
    }
    acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
    setMenuAutomation(nullptr);
    std::fputs(text.c_str(), stdout);
    return text.empty() ? kExitFailure : kExitOk;
}

CommandGroup group{90, [](CLI::App& parser, Action& action) {
    auto* sub = parser.add_subcommand("menu", "Print the pull-down menu that the application builds");
    sub->callback([&action] { action = printMenu; });
}};

}  // namespace
}  // namespace vorn::app
