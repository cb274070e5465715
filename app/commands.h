// The command groups of the `vornmark` executable. Each app/*.cpp file adds
// its subcommands to the parser through a static CommandGroup, so a new
// group is one new file.
#pragma once

#include <functional>
#include <string>

#include <CLI/CLI.hpp>

namespace vorn::app {

// Exit status of a command: 0 success, 1 the system reported a failure,
// 2 bad usage.
enum ExitStatus : int { kExitOk = 0, kExitFailure = 1, kExitUsage = 2 };

// What a parsed command runs; set by the subcommand's callback.
using Action = std::function<int()>;

// Adds subcommands to `parser`; a subcommand stores its work in `action`.
using GroupSetup = std::function<void(CLI::App& parser, Action& action)>;

struct CommandGroup {
    // `order` sorts the groups in the help text.
    CommandGroup(int order, GroupSetup setup);
};

// Thrown by an action for bad usage found after parsing (exit status 2).
struct UsageError {
    std::string message;
};

}  // namespace vorn::app
