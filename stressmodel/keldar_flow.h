// The command flow of a Keldar stress calculation once a model file is
// chosen, shared by the panel "Keldar Stress Calculation" and the command
// line: the model is taken as the file dialog leaves it, read and printed,
// and after the prompt it runs and reports.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "stressmodel/modeldat.h"

namespace vorn {

// Answers a prompt on the command line: true to go on.
using ConfirmPrompt = std::function<bool(const std::string& prompt)>;

// A new model given the full path of `file`, its name and its title (the
// name without extension). The file's folder becomes the process's current
// folder, where the model writes all its results.
std::unique_ptr<CModelDat> chooseKeldarModel(const std::string& file);

// `ReadInput`, then `PrintInput`, each with its box. False when the model
// is to be discarded (its codes are freed when the print failed).
bool readKeldarModel(CModelDat& model);

// The prompt "\n Keldar Stress Calculation is ready to run, <Enter> to
// continue ...", then `Run` and the closing box. 0 when the run finished,
// 1 when it failed or was cancelled (the solution arrays are freed), 2 when
// the prompt was not answered and nothing ran.
int runKeldarModel(CModelDat& model, const ConfirmPrompt& confirm);

// The closing box of a finished run: the result files of every seam and
// where to transfer them.
std::string keldarSuccessText(const CModelDat& model);

}  // namespace vorn
