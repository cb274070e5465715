// `vornmark shell [DRAWING.dxf]`: the interactive command line. Commands
// are typed by name; prompts are answered on the terminal and panels are
// shown as numbered forms. "save [FILE]" writes the drawing, "quit" ends;
// "unload" and "load" send the application those messages, "menubar"
// lists the pull-downs on the host's menu bar and "help" the commands.
#include <cstdio>
#include <string>

#include "app/commands.h"
#include "commands/command_help.h"
#include "host/docs_session.h"
#include "host/host_text.h"
#include "base/textnum.h"

namespace vorn::app {
namespace {

bool readCommandLine(std::string& line)
{
    std::fputs("\nCommand: ", stdout);
    std::fflush(stdout);
    char buffer[4096];
    if (!std::fgets(buffer, sizeof buffer, stdin)) return false;
    line = trimBlanks(buffer);
    return true;
}

void saveCommand(AppSession& app, const std::string& path)
{
    std::string error;
    if (app.save(path, error))
        std::printf("Saved %s\n", app.drawingPath().c_str());
    else
        std::printf("Cannot save the drawing: %s (save FILE.dxf)\n", error.c_str());
}

void printMenuBar(const HostMenuBar& bar)
{
    std::string line;
    for (const std::string& name : bar.bar()) line += (line.empty() ? "" : " | ") + name;
    std::printf("%s\n", line.c_str());
}

// "help" lists the commands and the shell's own words; "help COMMAND"
// describes one command.
void printHelp(const std::string& topic)
{
    if (topic.empty()) {
        std::printf("Commands (name, [menu caption], what it does):\n%s", commandListing().c_str());
        std::printf("\nShell: help [COMMAND], save [FILE.dxf], load, unload, menubar, quit\n");
        return;
    }
    if (const CommandHelp* help = findCommandHelp(topic))
        std::printf("%s", commandDetail(*help).c_str());
    else
        std::printf("No command \"%s\"; help lists the commands.\n", topic.c_str());
}

int runShell(const std::string& drawing)
{
    SessionOptions options;
    options.answering = SessionOptions::Answering::Terminal;
    std::string error;
    auto app = startSession(drawing, options, true, error);
    if (!app) {
        std::fprintf(stderr, "vornmark: %s\n", error.c_str());
        return kExitFailure;
    }
    std::string line;
    while (readCommandLine(line)) {
        std::string word = line.substr(0, line.find(' '));
        if (word.empty()) continue;
        if (iequals(word, "quit") || iequals(word, "exit")) break;
        if (iequals(word, "save"))
            saveCommand(*app, trimBlanks(line.substr(word.size())));
        else if (iequals(word, "load"))
            app->load();
        else if (iequals(word, "unload"))
            app->unload();
        else if (iequals(word, "help"))
            printHelp(trimBlanks(line.substr(word.size())));
        else if (iequals(word, "menubar"))
            printMenuBar(app->menuBar());
        else
            app->runCommand(word);
    }
    std::fputs("\n", stdout);
    return kExitOk;
}

CommandGroup group{81, [](CLI::App& parser, Action& action) {
    auto drawing = std::make_shared<std::string>();
    auto* sub = parser.add_subcommand("shell", "Interactive command line of the application");
    sub->add_option("DRAWING", *drawing, "Drawing to open (DXF); a new drawing without it");
    sub->callback([&action, drawing] { action = [drawing] { return runShell(*drawing); }; });
}};

}  // namespace
}  // namespace vorn::app
