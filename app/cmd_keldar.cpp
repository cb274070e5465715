// `vornmark keldar MODEL.inp`: the stress calculation as the command runs it
// once a model file is chosen: the model's folder becomes the current
// folder, the model is read and printed, the run starts after Enter and the
// closing box names the result files.
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <unistd.h>

#include "app/cli_util.h"
#include "app/commands.h"
#include "base/report.h"
#include "base/userbreak.h"
#include "stressmodel/keldar_flow.h"

namespace vorn::app {
namespace {

// The command line prompt before the run: a line from the terminal, or
// Enter in a batch run.
void promptToContinue(const std::string& prompt)
{
    acutPrintf("%s", prompt.c_str());
    std::fflush(stdout);
    if (isatty(STDIN_FILENO)) {
        std::string answer;
        std::getline(std::cin, answer);
    } else {
        acutPrintf("\n");
    }
}

int runKeldar(const std::string& file)
{
    // The model's folder becomes the current folder: name the file by its
    // full path in the lines added after a failure.
    const std::string path = std::filesystem::absolute(file).string();
    std::unique_ptr<CModelDat> model = vorn::chooseKeldarModel(file);
    if (!vorn::readKeldarModel(*model)) {
        finishTerminalLine();
        explainReadFailure(path, "a stress model (.inp); the code at the end of the message above tells which line");
        return kExitFailure;
    }
    const int result = vorn::runKeldarModel(*model, [](const std::string& prompt) {
        promptToContinue(prompt);
        installUserBreakHandler();
        return true;
    });
    finishTerminalLine();
    if (result != 0) explainRunFailure(path, "the stress run");
    return result == 0 ? kExitOk : kExitFailure;
}

CommandGroup group{40, [](CLI::App& parser, Action& action) {
    auto file = std::make_shared<std::string>();
    CLI::App* sub = parser.add_subcommand("keldar", "Read, print and run a Keldar stress model; results beside the model");
    sub->add_option("MODEL", *file, "the model input file (.inp)")->required();
    sub->callback([file, &action] { action = [file] { return runKeldar(*file); }; });
}};

}  // namespace
}  // namespace vorn::app
