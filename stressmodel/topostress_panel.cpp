#include "stressmodel/topostress_panel.h"

#include "base/textnum.h"
#include "drawing/prompts.h"
#include "grid/grid.h"
#include "shell/gridframe.h"
#include "stressmodel/convkelgrid_panel.h"

using vorn::PanelControl;

// ---------------------------------------------------------------- page 1

std::vector<PanelControl> dlg_topostresstab1::pageControls()
{
    using namespace vorn;
    CTopoStressCommand& command = owner_.command;
    auto units = [this](bool& field, int system) {
        return [this, &field, system] {
            if (field) owner_.command.setUnitSystem(system);
            showState();
        };
    };
    auto surface = [this](bool& field, int type) {
        return [this, &field, type] {
            if (field) owner_.command.surfaceType = type;
            showState();
        };
    };
    return {radioControl("inches/Psi", inches, units(inches, 1)),
            radioControl("feet/Psi", feet, units(feet, 2)),
            radioControl("meters/Pa", meters, units(meters, 3)),
            radioControl("Overburden Thickness", thickness, surface(thickness, 1)),
            radioControl("Elevation", elevation, surface(elevation, 0)),
            readOnlyControl("Topographic File", command.topoPath),
            staticControl("Topographic Grid", command.surfaceDescription),
            buttonControl("Load Topographic File", [this] { OnLoadTopographicFile(); }),
            buttonControl("< Preview Grid", [this] { OnPreviewGrid(); })};
}

void dlg_topostresstab1::showState()
{
    const CTopoStressCommand& command = owner_.command;
    inches = command.unitSystem == 1;
    feet = command.unitSystem == 2;
    meters = command.unitSystem == 3;
    thickness = command.surfaceType != 0;
    elevation = command.surfaceType == 0;
}

void dlg_topostresstab1::OnLoadTopographicFile()
{
    std::string path;
    if (!pickFileName(true, "grd", path)) return;
    owner_.command.loadSurface(path);
}

void dlg_topostresstab1::OnPreviewGrid()
{
    const std::string& path = owner_.command.topoPath;
    if (path.empty()) return;
    myGrid grid;
    if (!grid.readGrd(path, 1)) {
        AfxMessageBox("Grid file read fails");
        return;
    }
    owner_.plotHidden(grid);
}

// ---------------------------------------------------------------- page 2

std::vector<PanelControl> dlg_topostresstab2::pageControls()
{
    using namespace vorn;
    CTopoStressCommand& command = owner_.command;
    PanelControl average = checkControl("Use Seam Average Value", command.useSeamAverage, [this] { onAverageChecked(); });
    PanelControl level = editControl("Seam Level (" + topoLengthText(command.unitSystem) + ")", levelText,
                                     [this] { onLevelEdited(); });
    average.readOnly = level.readOnly = command.levelLocked;
    return {staticControl("Seam Grid", command.seamDescription),
            average,
            level,
            editControl("Output File Name", outputText, [this] { onOutputEdited(); }),
            checkControl("Preview Result", command.previewResult),
            buttonControl("New ...", [this] { OnNew(); }),
            buttonControl("From File ...", [this] { OnFromFile(); }),
            buttonControl("< Preview Grid", [this] { OnPreviewGrid(); }),
            buttonControl("Pick output file name", [this] { OnPickOutputFileName(); })};
}

void dlg_topostresstab2::OnActivate()
{
    owner_.command.activateSeamPage();
    outputText = owner_.command.outputPath;
    showLevel();
}

void dlg_topostresstab2::showLevel() { levelText = vorn::formatString("%f", owner_.command.seamLevel); }

void dlg_topostresstab2::onAverageChecked()
{
    CTopoStressCommand& command = owner_.command;
    if (command.levelLocked) {
        // The box is disabled for a surface of overburden thickness.
        command.useSeamAverage = !command.useSeamAverage;
        return;
    }
    if (command.useSeamAverage) command.seamLevel = command.seamMean;
    showLevel();
}

void dlg_topostresstab2::onLevelEdited()
{
    if (!owner_.command.typeSeamLevel(_wtof(levelText))) showLevel();
}

void dlg_topostresstab2::onOutputEdited()
{
    owner_.command.changeOutputPath(outputText);
    outputText = owner_.command.outputPath;
}

void dlg_topostresstab2::OnPickOutputFileName()
{
    std::string path = outputText;
    if (!pickFileName(false, "grd", path)) return;
    owner_.command.outputPath = outputText = path;
}

void dlg_topostresstab2::OnNew()
{
    CTopoStressCommand& command = owner_.command;
    if (command.seamGrid.isDefined() && AfxMessageBox("Current Grid will be discarded!", MB_OKCANCEL) != IDOK) return;
    owner_.setHidden(true);
    CProMainTab frame;
    CGridTab gridPage;
    frame.setTitle("Grid Definition of Vornmark Modules");
    frame.addPage("Grid Parameters", IDD_GRIDTAB, &gridPage);
    if (frame.DoModal() == IDOK) {
        myGrid lattice;
        if (frame.getBaseGrid(lattice)) command.takeSeamGrid(lattice);
    }
    owner_.setHidden(false);
}

void dlg_topostresstab2::OnFromFile()
{
    std::string path;
    if (!pickFileName(true, "grd", path)) return;
    owner_.command.loadSeamGrid(path);
}

void dlg_topostresstab2::OnPreviewGrid()
{
    if (owner_.command.seamGrid.isDefined()) owner_.plotHidden(owner_.command.seamGrid);
}

// ---------------------------------------------------------------- page 3

std::vector<PanelControl> dlg_topostresstab3::pageControls()
{
    using namespace vorn;
    CTopoProperties& p = owner_.command.properties;
    const int units = owner_.command.propertiesUnits();
    const std::string length = topoLengthText(units);
    const std::string stress = topoStressText(units);
    return {editControl("Elastic Modulus (" + stress + ") :", p.modulus),
            editControl("Poission's Ratio :", p.poisson),
            editControl("Lamination(layer) Thickness (" + length + ") :", p.lamination),
            editControl("Vertical Stress Gradient (" + stress + "/" + length + ") :", p.gradient),
            editControl("OverRelax Factor :", p.relaxation),
            editControl("Disp. Convergence Level (" + length + ") :", p.convergence),
            editControl("Max. Number of Iterations :", p.iterations)};
}

void dlg_topostresstab3::OnActivate() { owner_.command.activatePropertiesPage(); }

// ---------------------------------------------------------------- the panel

dlg_topostress::dlg_topostress() : surfacePage(*this), seamPage(*this), propertiesPage(*this)
{
    surfacePage.showState();
}

std::vector<std::string> dlg_topostress::panelTabs() const
{
    return {" Surface Grid ", " Seam Grid ", " Properties&&Controls "};
}

std::vector<PanelControl> dlg_topostress::panelControls()
{
    std::vector<PanelControl> controls;
    switch (activeTab_) {
    case 0: controls = surfacePage.pageControls(); break;
    case 1: controls = seamPage.pageControls(); break;
    default: controls = propertiesPage.pageControls(); break;
    }
    controls.push_back(vorn::buttonControl("OK", [this] { OnOK(); }));
    controls.push_back(vorn::buttonControl("Cancel", [this] { OnCancel(); }));
    return controls;
}

void dlg_topostress::selectPanelTab(int index)
{
    activeTab_ = index;
    if (index == 0) surfacePage.showState();
    if (index == 1) seamPage.OnActivate();
    if (index == 2) propertiesPage.OnActivate();
}

void dlg_topostress::OnOK()
{
    const int failedPage = command.validate();
    if (failedPage != 0) {
        selectPanelTab(failedPage - 1);
        return;
    }
    EndDialog(IDOK);
}

void dlg_topostress::plotHidden(myGrid& grid)
{
    setHidden(true);
    dlg_convkelgrid::plotPreview(grid);
    setHidden(false);
}
