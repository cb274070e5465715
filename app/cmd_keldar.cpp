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
#include "base/textnum.h"
#include "base/userbreak.h"
#include "stressmodel/modeldat.h"

namespace vorn::app {
namespace {

// Takes the model as the file dialog leaves it: path, name, title, and its
// folder as the process's current folder, where all results go.
std::unique_ptr<CModelDat> chooseModel(const std::string& file)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path path = fs::absolute(file, error);
    fs::current_path(path.parent_path(), error);
    auto model = std::make_unique<CModelDat>();
    model->SetInputPath(path.string());
    model->SetInputFile(path.filename().string());
    model->SetBaseName(path.stem().string());
    return model;
}

// The command line prompt before the run: a line from the terminal, or
// Enter in a batch run.
void promptToContinue()
{
    acutPrintf("\n Keldar Stress Calculation is ready to run, <Enter> to continue ...");
    std::fflush(stdout);
    if (isatty(STDIN_FILENO)) {
        std::string answer;
        std::getline(std::cin, answer);
    } else {
        acutPrintf("\n");
    }
}

std::string successText(const CModelDat& model)
{
    std::string text = "Keldar was finished successfully!";
    text += "\nResults were saved to File(s):";
    for (int s = 1; s <= model.GetSeamCount(); ++s)
        text += formatString("\n\t<%s.f%d> for Seam %d", model.GetBaseName().c_str(), s, s);
    text += "\nTo transfer results to stability grid files:\n\t Stability Model -> Transfer Keldar/Mulsim Results";
    return text;
}

int runKeldar(const std::string& file)
{
    std::unique_ptr<CModelDat> model = chooseModel(file);
    if (model->ReadInput() != 0) {
        AfxMessageBox("The Input File was not the Correct Format - OFO1");
        return kExitFailure;
    }
    AfxMessageBox("The Input File was Successfully Read");
    if (model->PrintInput() != 0) {
        AfxMessageBox("Could not Write the Output File - OFO2");
        model->FreeCodes();
        return kExitFailure;
    }
    promptToContinue();
    installUserBreakHandler();
    if (model->Run() != 0) {
        model->FreeArrays();
        AfxMessageBox("Keldar was finished unsuccessfully!");
        finishTerminalLine();
        return kExitFailure;
    }
    AfxMessageBox(successText(*model));
    finishTerminalLine();
    return kExitOk;
}

CommandGroup group{40, [](CLI::App& parser, Action& action) {
    auto file = std::make_shared<std::string>();
    CLI::App* sub = parser.add_subcommand("keldar", "Read, print and run a Keldar stress model; results beside the model");
    sub->add_option("MODEL", *file, "the model input file (.inp)")->required();
    sub->callback([file, &action] { action = [file] { return runKeldar(*file); }; });
}};

}  // namespace
}  // namespace vorn::app
