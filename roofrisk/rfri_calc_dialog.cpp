#include "roofrisk/rfri_calc_dialog.h"

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/prompts.h"
#include "roofrisk/defect_page.h"
#include "roofrisk/grid_views.h"
#include "shell/docdata.h"

using namespace vorn::rfri;

namespace {
constexpr size_t kFileTextLimit = 132;

// The caption of a group of controls.
vorn::PanelControl groupCaption(const std::string& caption)
{
    vorn::PanelControl control;
    control.caption = caption;
    control.kind = vorn::ControlKind::Static;
    return control;
}
}  // namespace

dlg_RFRI_RFRICalc::dlg_RFRI_RFRICalc() : calc(drawingFolder()) {}

std::vector<vorn::PanelControl> dlg_RFRI_RFRICalc::panelControls()
{
    using namespace vorn;
    std::vector<PanelControl> controls;
    const char* group = "";
    for (int k = 0; k < kFactorCount; ++k) {
        const DefectFactor& factor = defectFactor(k);
        RowView& row = rowViews[static_cast<size_t>(k)];
        if (std::string(group) != factor.calcGroup) {
            group = factor.calcGroup;
            controls.push_back(groupCaption(group));
        }
        PanelControl found = checkControl("Found", row.found);
        PanelControl valid = checkControl("Valid", row.valid);
        found.readOnly = valid.readOnly = true;
        controls.push_back(found);
        controls.push_back(valid);
        controls.push_back(editControl(factor.calcRow, row.fileText, [&row] {
            if (row.fileText.size() > kFileTextLimit) row.fileText.resize(kFileTextLimit);
        }));
        controls.push_back(buttonControl("Select File...", [] {}));
    }
    controls.push_back(buttonControl("Calculate RFRI", [this] { OnCalculate(); }));
    controls.push_back(buttonControl("View Grid", [this] { OnViewGrid(); }));
    controls.push_back(buttonControl("Save Grid", [this] { OnSaveGrid(); }));
    return controls;
}

// Both boxes show whether the file was found; a row that is not found and
// valid gets its default file.
void dlg_RFRI_RFRICalc::showRows()
{
    for (int k = 0; k < kFactorCount; ++k) {
        const CalcRow& row = calc.rows[static_cast<size_t>(k)];
        RowView& view = rowViews[static_cast<size_t>(k)];
        view.found = row.found;
        view.valid = row.found;
        view.fileText = row.gridFile;
    }
}

void dlg_RFRI_RFRICalc::OnInitDialog()
{
    const CDocData& data = DocVars().docData();
    calc.setFileNames(data.defects, data.defectsReady);
    calc.scanFiles();
    if (!calc.haveBase) {
        acutPrintf("\nYou need to build RFRI grids before running this command");
        return;
    }
    showRows();
    calc.makeDefaultFiles();
}

void dlg_RFRI_RFRICalc::OnCalculate() { calc.calculate(); }

bool dlg_RFRI_RFRICalc::checkCalculated() const
{
    if (calc.calculated) return true;
    AfxMessageBox("The final RFRI Grid has not been calculated yet!");
    return false;
}

void dlg_RFRI_RFRICalc::OnViewGrid()
{
    if (!checkCalculated()) return;
    setHidden(true);
    viewGrid(calc.finalGrid);
    setHidden(false);
}

void dlg_RFRI_RFRICalc::OnSaveGrid()
{
    if (!checkCalculated()) return;
    calc.finalGrid.setTitle(finalTitle);
    std::string path = inDrawingFolder(finalFile);
    if (AfxMessageBox(vorn::formatString("The Final RFRI Values will be saved to < %s >", path.c_str()), MB_OKCANCEL) != IDOK) {
        return;
    }
    if (calc.finalGrid.writeGrd(path)) finalSaved = true;
}

// The default files live only as long as the panel.
void dlg_RFRI_RFRICalc::OnOK()
{
    calc.removeDefaultFiles();
    EndDialog(IDOK);
}

void dlg_RFRI_RFRICalc::OnCancel()
{
    calc.removeDefaultFiles();
    EndDialog(IDCANCEL);
}
