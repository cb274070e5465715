// The panel "Overburden Stress Calculation" with its three tab pages on a
// tab control of its own: " Surface Grid ", " Seam Grid " and
// " Properties&&Controls ". The pages edit the state of a
// CTopoStressCommand (topo_stress.h), which checks and runs it after OK.
#pragma once

#include <string>
#include <vector>

#include "drawing/panel_port.h"
#include "stressmodel/topo_stress.h"

class dlg_topostress;

// Page 1: the surface grid and the unit system.
class dlg_topostresstab1 {
public:
    explicit dlg_topostresstab1(dlg_topostress& owner) : owner_(owner) {}
    std::vector<vorn::PanelControl> pageControls();
    // The radio buttons show the command's state.
    void showState();

    void OnLoadTopographicFile();
    void OnPreviewGrid();

    bool inches = false, feet = false, meters = false;
    bool thickness = false, elevation = false;

private:
    dlg_topostress& owner_;
};

// Page 2: the seam grid, its level and the output file.
class dlg_topostresstab2 {
public:
    explicit dlg_topostresstab2(dlg_topostress& owner) : owner_(owner) {}
    std::vector<vorn::PanelControl> pageControls();
    void OnActivate();

    void OnNew();
    void OnFromFile();
    void OnPreviewGrid();
    void OnPickOutputFileName();
    void onOutputEdited();
    void onLevelEdited();
    void onAverageChecked();

    std::string levelText;
    std::string outputText;

private:
    void showLevel();
    dlg_topostress& owner_;
};

// Page 3: the rock properties and the controls of the solver, as text.
class dlg_topostresstab3 {
public:
    explicit dlg_topostresstab3(dlg_topostress& owner) : owner_(owner) {}
    std::vector<vorn::PanelControl> pageControls();
    void OnActivate();

private:
    dlg_topostress& owner_;
};

class dlg_topostress : public vorn::Panel {
public:
    dlg_topostress();

    std::string panelTitle() const override { return "Overburden Stress Calculation"; }
    std::vector<vorn::PanelControl> panelControls() override;
    std::vector<std::string> panelTabs() const override;
    int panelActiveTab() const override { return activeTab_; }
    void selectPanelTab(int index) override;
    // Checks the pages in order; the page that fails is activated.
    void OnOK() override;

    // Draws a grid as a preview plot with the panel hidden.
    void plotHidden(myGrid& grid);

    CTopoStressCommand command;
    dlg_topostresstab1 surfacePage;
    dlg_topostresstab2 seamPage;
    dlg_topostresstab3 propertiesPage;

private:
    int activeTab_ = 0;
};
