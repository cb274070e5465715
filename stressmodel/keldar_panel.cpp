#include "stressmodel/keldar_panel.h"

#include "drawing/platform.h"
#include "drawing/ui_port.h"
#include "stressmodel/keldar_flow.h"

std::vector<vorn::PanelControl> dlg_keldar::panelControls()
{
    using namespace vorn;
    return {readOnlyControl("Input File Name: (.inp)", inputPath), buttonControl("&Select File", [this] { OnSelectFile(); }),
            buttonControl("&Run", [this] { OnRun(); }), buttonControl("&Exit", [this] { OnExit(); })};
}

void dlg_keldar::OnSelectFile()
{
    vorn::UiPort* ui = vorn::platform().ui;
    if (!ui) return;
    vorn::FileDialogRequest request;
    request.forOpen = true;
    request.defaultExtension = ".inp";
    request.filter = "Input Files (*.inp)|*.inp|All Files (*.*)|*.*||";
    std::string chosen;
    if (!ui->fileDialog(request, chosen)) return;
    // A new choice replaces a model read before.
    ready = false;
    model_ = vorn::chooseKeldarModel(chosen);
    if (!vorn::readKeldarModel(*model_)) {
        model_.reset();
        return;
    }
    inputPath = model_->inputPath;
    ready = true;
}

void dlg_keldar::OnRun()
{
    if (!ready) {
        AfxMessageBox("Sorry, Not Ready to run yet!");
        return;
    }
    EndDialog(IDOK);
}

void dlg_keldar::OnExit()
{
    if (ready) model_.reset();
    ready = false;
    EndDialog(IDCANCEL);
}
