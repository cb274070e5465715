#include "commands/commands.h"

#include <memory>
#include <vector>

#include "base/report.h"
#include "commands/command_support.h"
#include "roofrisk/assessment.h"
#include "roofrisk/defect_catalogue.h"
#include "roofrisk/defect_page.h"
#include "roofrisk/rfri_calc_dialog.h"
#include "shell/gridframe.h"

namespace {
// The defect records of a new document take the catalogue's defaults.
[[maybe_unused]] const bool defectDefaultsInstalled = (vorn::rfri::installDefectDefaults(), true);

// Dialog template ids of the twelve defect pages.
constexpr unsigned kFirstDefectPageId = 3001;
}  // namespace

void vorn_RFRI_Draw()
{
    GridFrame frame("Draw the Defects for the RFRI");
    std::vector<std::unique_ptr<vorn::rfri::CRFRIDefectPage>> pages;
    for (int k = 0; k < vorn::rfri::kFactorCount; ++k) {
        pages.push_back(std::make_unique<vorn::rfri::CRFRIDefectPage>(k));
        frame.addPage(vorn::rfri::defectFactor(k).pageCaption, kFirstDefectPageId + static_cast<unsigned>(k),
                      pages.back().get());
    }
    if (frame.run() != IDOK) return;
    acutPrintf("\nLeaving the RFRI Drawing Menus!");
    storeBaseGrid(DocVars().docData());
}

void vorn_RFRI_Calc()
{
    acDocManagerPtr()->pushResourceHandle();
    dlg_RFRI_RFRICalc panel;
    if (panel.DoModal() == IDOK) acutPrintf("\nLeaving the RFRI Calculation!");
    acDocManagerPtr()->popResourceHandle();
}

void vorn_RFRI_Input() { vorn::rfri::assignAssessments(); }

void vorn_RFRI_List() { vorn::rfri::listAssessments(); }

void vorn_RFRI_Label() { vorn::rfri::labelAssessments(); }

void vorn_RFRI_Mapping() { vorn::rfri::mapAssessments(); }
