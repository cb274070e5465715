// The panel "RFRI Calculation" of vorn_RFRI_Calc: the twelve defect grid
// files of the drawing's folder with their checks, the defaults made for
// the missing ones, and the final grid to calculate, view and save.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "drawing/panel_port.h"
#include "roofrisk/rfri_calculation.h"

class dlg_RFRI_RFRICalc : public vorn::Panel {
public:
    dlg_RFRI_RFRICalc();

    std::string panelTitle() const override { return "RFRI Calculation"; }
    std::vector<vorn::PanelControl> panelControls() override;
    void OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;

    // Buttons.
    void OnCalculate();
    void OnViewGrid();
    void OnSaveGrid();

    const std::string finalFile = vorn::rfri::kFinalFile;
    const std::string finalTitle = vorn::rfri::kFinalTitle;
    bool finalSaved = false;
    vorn::rfri::CRFRICalculation calc;

    // What a row shows: its two disabled check boxes and its file name.
    struct RowView {
        bool found = false;
        bool valid = false;
        std::string fileText;
    };
    std::array<RowView, vorn::rfri::kFactorCount> rowViews;

private:
    void showRows();
    bool checkCalculated() const;
};
