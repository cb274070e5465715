// The `vornmark` executable: builds the parser from the registered command
// groups, runs the chosen command and maps its result to an exit status.
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/commands.h"
#include "base/nearest_name.h"
#include "base/report.h"

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

// A word where a subcommand is required that names none: "unknown command",
// with the nearest subcommand when one is close. Empty when the words are
// fine as far as subcommands go (the parser judges the rest).
std::string unknownSubcommand(CLI::App& parser, int argc, char** argv)
{
    CLI::App* level = &parser;
    std::string path = "vornmark";
    for (int k = 1; k < argc && level->get_require_subcommand_min() > 0; ++k) {
        std::string word = argv[k];
        if (word.empty()) return "";
        if (word[0] == '-') continue;  // the flags of a level take no value
        std::vector<std::string> names;
        CLI::App* next = nullptr;
        for (CLI::App* sub : level->get_subcommands({})) {
            names.push_back(sub->get_name());
            if (sub->check_name(word)) next = sub;
        }
        if (!next) {
            std::string text = "unknown command \"" + path + " " + word + "\"";
            std::string nearest = nearestName(word, names);
            if (!nearest.empty()) text += "; did you mean \"" + path + " " + nearest + "\"?";
            return text + " (" + path + " --help lists the commands)";
        }
        level = next;
        path += " " + word;
    }
    return "";
}

int runParser(int argc, char** argv)
{
    CLI::App parser{"Vornmark: ground-stability analysis for underground coal mines", "vornmark"};
    parser.set_version_flag("--version", "vornmark 0.1.0");
    parser.require_subcommand(1);
    parser.fallthrough();
    bool verbose = false;
    parser.add_flag("--verbose", verbose, "show the console lines of a run on a terminal too (the progress line stands in for them)");

    std::vector<Registered> groups = registry();
    std::stable_sort(groups.begin(), groups.end(), [](const Registered& a, const Registered& b) { return a.order < b.order; });
    Action action;
    for (const Registered& group : groups) group.setup(parser, action);

    std::string unknown = unknownSubcommand(parser, argc, argv);
    if (!unknown.empty()) {
        std::fprintf(stderr, "vornmark: %s\n", unknown.c_str());
        return kExitUsage;
    }
    try {
        parser.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        int code = parser.exit(error);
        return code == 0 ? kExitOk : kExitUsage;
    }
    setConsoleVerbose(verbose);
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
