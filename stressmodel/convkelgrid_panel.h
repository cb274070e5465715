// The panel "Grid Transfer from Keldar Output": an element file's items of
// all steps in a list, one of them previewed on the plan or saved as a grid
// file. The reading is CElementFileReader's (transfer.h).
#pragma once

#include <string>
#include <vector>

#include "drawing/panel_port.h"
#include "stressmodel/transfer.h"

class myGrid;

class dlg_convkelgrid : public vorn::Panel {
public:
    dlg_convkelgrid();

    std::string panelTitle() const override { return "Grid Transfer from Keldar Output"; }
    std::vector<vorn::PanelControl> panelControls() override;

    // "Select": an element file chosen with the file dialog.
    void OnSelect();
    // "Preview...": the selected item drawn as a preview plot.
    void OnPreview();
    // "Transfer...", or a double click on a row of a non-empty list.
    void OnTransfer();
    void OnDoubleClickList();

    // The preview plot of an item's grid: the view zoomed to the grid, the
    // plot drawn as a preview, the view restored.
    static void plotPreview(myGrid& grid);

    // A list row as the list shows it: its five columns without their outer
    // blanks, " | " between them.
    static std::string rowText(const CElementItemRow& row);

    std::string fileLabel;     // "Current Keldar file: None", or the path
    std::string selectedRow;   // the text of the selected row, empty for none
    std::vector<std::string> rowTexts;

private:
    // The first selected row, or false after `noneMessage`.
    bool selectedIndex(const char* noneMessage, size_t& row) const;
    void showRows();

    CElementFileReader reader_;
};
