#include "stressmodel/keldar_flow.h"

#include <filesystem>

#include "base/report.h"
#include "base/textnum.h"

namespace vorn {

std::unique_ptr<CModelDat> chooseKeldarModel(const std::string& file)
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

bool readKeldarModel(CModelDat& model)
{
    if (model.ReadInput() != 0) {
        AfxMessageBox("The Input File was not the Correct Format - OFO1");
        return false;
    }
    AfxMessageBox("The Input File was Successfully Read");
    if (model.PrintInput() != 0) {
        AfxMessageBox("Could not Write the Output File - OFO2");
        model.FreeCodes();
        return false;
    }
    return true;
}

std::string keldarSuccessText(const CModelDat& model)
{
    std::string text = "Keldar was finished successfully!";
    text += "\nResults were saved to File(s):";
    for (int s = 1; s <= model.GetSeamCount(); ++s)
        text += formatString("\n\t<%s.f%d> for Seam %d", model.GetBaseName().c_str(), s, s);
    text += "\nTo transfer results to stability grid files:\n\t Stability Model -> Transfer Keldar/Mulsim Results";
    return text;
}

int runKeldarModel(CModelDat& model, const ConfirmPrompt& confirm)
{
    if (!confirm("\n Keldar Stress Calculation is ready to run, <Enter> to continue ...")) return 2;
    if (model.Run() != 0) {
        model.FreeArrays();
        AfxMessageBox("Keldar was finished unsuccessfully!");
        return 1;
    }
    AfxMessageBox(keldarSuccessText(model));
    return 0;
}

}  // namespace vorn
