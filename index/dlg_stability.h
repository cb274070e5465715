// The panel "Stability Index Generation": factor index grids with weights
// in a project, the project file, and the composite index grid.
#pragma once

#include <string>
#include <vector>

#include "drawing/panel_port.h"
#include "index/stability_project.h"

class dlg_stability : public vorn::Panel {
public:
    dlg_stability();

    // The list: the factors in order, and which rows are selected.
    std::vector<StabilityFactor> factors;
    std::vector<bool> selected;
    // The edit fields, the label after "Factor Grid:", and the description
    // that no control shows.
    std::string name;
    std::string weighting;
    std::string gridPath;
    std::string description;
    std::string projectPath = kDefaultProjectPath;
    std::string heading;

    std::string panelTitle() const override { return "Stability Index Generation"; }
    std::vector<vorn::PanelControl> panelControls() override;

    // Buttons.
    void OnSelectProject();
    void OnAdd();
    void OnRemove();
    void OnUpdate();
    void OnSelectIndexGrid();
    void OnCreateIndex();
    void OnSaveAndExit();
    void OnExit() { EndDialog(IDCANCEL); }
    // A click on a row toggles its selection; a double click copies it to
    // the fields.
    void onRowClicked(const std::string& rowName);
    void onRowDoubleClicked(const std::string& rowName);

    // Reads a project into the list, as "< Select Project" does after its
    // file dialog.
    void loadProject(const std::string& path);
    // The row of that name, -1 when there is none.
    int findRow(const std::string& rowName) const;

private:
    void setProjectPath(const std::string& path);
    // The three checks of Add and Update; false after their message.
    bool checkFields() const;
    void refreshRows();

    std::vector<std::string> rowNames_;
    std::string clickedRow_;
    std::string doubleClickedRow_;
};
