// The panel "Keldar Stress Calculation": the choice of a model file, read
// and printed at once, and the decision to run it. The run itself follows
// after the panel closes (see keldar_flow.h).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "drawing/panel_port.h"
#include "stressmodel/modeldat.h"

class dlg_keldar : public vorn::Panel {
public:
    std::string panelTitle() const override { return "Keldar Stress Calculation"; }
    std::vector<vorn::PanelControl> panelControls() override;
    void OnCancel() override { OnExit(); }

    // "&Select File": a model file is chosen, read and printed.
    void OnSelectFile();
    // "&Run": closes the panel with IDOK once a model is ready.
    void OnRun();
    // "&Exit": closes the panel, discarding a ready model.
    void OnExit();

    // The model to run after "&Run"; the caller owns it from then on.
    std::unique_ptr<CModelDat> takeModel() { return std::move(model_); }

    bool ready = false;
    std::string inputPath;  // the read-only field "Input File Name: (.inp)"

private:
    std::unique_ptr<CModelDat> model_;
};
