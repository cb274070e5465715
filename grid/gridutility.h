// The panel "Grid Utility": the user's workbench for one grid. Load it or
// make a new one, do arithmetic with a value or a second grid, get
// statistics and correlation, plot it and its legend, move its origin,
// edit single cells, and save it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "drawing/panel_port.h"
#include "grid/grid.h"

// The dialog name under which the panel keeps its values.
inline constexpr const char* kGridUtilityDialog = "VORNVornmark::GridUtility";

// The five lines of "Statistic" from a grid's last statistics run.
std::vector<std::string> statisticLines(const myGrid& grid);
// The lines of "Correlation with": both grids' statistics over all their
// cells (run here) and the correlation coefficient.
std::vector<std::string> correlationLines(myGrid& grid, myGrid& other, const std::string& otherPath);

class dlg_gridutility : public vorn::Panel {
public:
    // Defines a new lattice the way the task frame "Define a Grid" does;
    // false when the user cancelled. Installed by the command, which knows
    // the frame.
    std::function<bool(myGrid&)> defineNewGrid;

    std::string panelTitle() const override { return "Grid Utility"; }
    std::vector<vorn::PanelControl> panelControls() override;
    void OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;

    // Buttons of "Current Grid File".
    void OnNewGrid();
    void OnReadFrom();
    void OnSaveAs();
    void OnSelectFile();
    // Buttons of "Grid Value Manage".
    void OnApplyWithGrids();
    void OnApplyToGrid();
    void OnStatistic();
    void OnMovePosition();
    void OnEditor();
    void OnCorrelation();
    // Buttons of "Plot and Settings".
    void OnNewLayer();
    void OnColors();
    void OnPreview() { plotOrPreview(true); }
    void OnLegend();
    void OnPlot() { plotOrPreview(false); }

    // The state, readable by tests.
    const myGrid& currentGrid() const { return grid; }
    bool isSaved() const { return saved; }
    bool isModified() const { return modified; }
    const std::string& logText() const { return log; }

private:
    bool notSaved() const { return modified && !saved; }
    // Adds a line to the log.
    void appendLog(const std::string& text);
    // The log line of an undefined grid; true when the grid is defined.
    bool requireGrid(const char* message = "Grid is not defined!");
    void takeGrid(myGrid&& loaded);
    void changed();
    void plotOrPreview(bool preview);
    void hide() { setHidden(true); }
    void show() { setHidden(false); }
    // Asks for a .grd to read; false when cancelled.
    bool pickGrid(std::string& pathOut);
    void storeValues();
    void refreshLayers();

    std::string path;
    std::string layer;
    std::string value;
    bool groupCheck = false;
    bool colorCheck = false;
    std::string operation = "Add";
    std::string plotKind = "Polygons";
    myGrid grid;
    int xNum = 0;
    int yNum = 0;
    bool saved = false;
    bool modified = false;
    std::string log;

    std::vector<std::string> layers;
};
