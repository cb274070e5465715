// `vornmark run COMMAND`: opens a drawing (a new one without --drawing),
// loads the application, runs one command with answers from a script and
// saves the drawing when asked.
#include <cstdio>
#include <string>

#include "app/commands.h"
#include "base/nearest_name.h"
#include "commands/command_help.h"
#include "host/docs_session.h"

namespace vorn::app {
namespace {

struct RunOptions {
    std::string command;
    std::string drawing;
    std::string save;
    std::string script;
    std::string transcript;
};

// "unknown command", with the nearest of the 32 names when one is close.
std::string unknownCommand(const std::string& typed)
{
    std::vector<std::string> names;
    for (const CommandHelp& entry : commandHelp()) names.push_back(entry.name);
    std::string text = "unknown command \"" + typed + "\"";
    std::string nearest = nearestName(typed[0] == '_' ? typed.substr(1) : typed, names);
    if (!nearest.empty()) text += "; did you mean \"" + nearest + "\"?";
    return text + " (vornmark run --help lists the commands)";
}

int runCommand(const RunOptions& options)
{
    SessionOptions sessionOptions;
    sessionOptions.answering = options.script.empty() ? SessionOptions::Answering::None : SessionOptions::Answering::Script;
    sessionOptions.scriptPath = options.script;
    sessionOptions.transcriptPath = options.transcript;
    std::string error;
    auto app = startSession(options.drawing, sessionOptions, false, error);
    if (!app) {
        std::fprintf(stderr, "vornmark: %s\n", error.c_str());
        return kExitFailure;
    }
    if (!app->knowsCommand(options.command)) throw UsageError{unknownCommand(options.command)};
    int status = app->runCommand(options.command);
    std::fputs("\n", stdout);
    if (status == 0 && !options.save.empty() && !app->save(options.save, error)) {
        std::fprintf(stderr, "vornmark: %s: %s\n", options.save.c_str(), error.c_str());
        return kExitFailure;
    }
    return status == 0 ? kExitOk : kExitFailure;
}

CommandGroup group{80, [](CLI::App& parser, Action& action) {
    auto options = std::make_shared<RunOptions>();
    auto* sub = parser.add_subcommand("run", "Run one command of the application on a drawing, answered by a script");
    sub->add_option("COMMAND", options->command, "Command name, any case, with or without the leading underscore")->required();
    sub->add_option("--drawing", options->drawing, "Drawing to open (DXF); a new drawing without it");
    sub->add_option("--save", options->save, "Save the drawing to this DXF file afterwards");
    sub->add_option("--script", options->script, "Script file answering the command's requests");
    sub->add_option("--transcript", options->transcript, "Write everything said and asked to this file");
    sub->footer("\nCommands (name, [menu caption], what it does):\n" + commandListing() +
                "\nvornmark shell: help COMMAND says which panel a command opens.");
    sub->callback([&action, options] { action = [options] { return runCommand(*options); }; });
}};

}  // namespace
}  // namespace vorn::app
