// The `vornmark` executable: builds the parser from the registered command
// groups, runs the chosen command and maps its result to an exit status.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/commands.h"

namespace vorn::app {

namespace {
struct Registered {
    int order;
    GroupSetup setup;
};

std::vector<Registered>& registry()
{
    static std::vector<Registered> groups;
    return groups;
}

int runParser(int argc, char** argv)
{
    CLI::App parser{"Vornmark: ground-stability analysis for underground coal mines", "vornmark"};
    parser.set_version_flag("--version", "vornmark 0.1.0");
    parser.require_subcommand(1);

    std::vector<Registered> groups = registry();
    std::stable_sort(groups.begin(), groups.end(), [](const Registered& a, const Registered& b) { return a.order < b.order; });
    Action action;
    for (const Registered& group : groups) group.setup(parser, action);

    try {
        parser.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        int code = parser.exit(error);
        return code == 0 ? kExitOk : kExitUsage;
    }
    if (!action) return kExitUsage;
    try {
        return action();
    } catch (const UsageError& error) {
        std::fprintf(stderr, "vornmark: %s\n", error.message.c_str());
        return kExitUsage;
    }
}
}  // namespace

CommandGroup::CommandGroup(int order, GroupSetup setup) { registry().push_back({order, std::move(setup)}); }

}  // namespace vorn::app

int main(int argc, char** argv) { return vorn::app::runParser(argc, argv); }
