// The page "Build Grid" of vorn_gridFromContour and vorn_topoGrid: a grid
// interpolated from contour polylines. In plain mode it saves a .grd file
// with a description; in topography mode the overburden depth as a .top
// file for the topographic stress model, in feet (written as inches) or
// metres, from surface contours or from elevations above a seam level.
#pragma once

#include "generators/contour_grid.h"
#include "generators/linepoint_page.h"

class CTopoTab : public vorn::CLinePointPage {
public:
    // The mode is set by the command before the page initialises.
    explicit CTopoTab(bool topography);

    bool topography() const { return topography_; }

    // "Seam Level :" in topography mode, "Description:" in plain mode.
    std::string seamLevelText;
    // "Contour Type": none chosen until the user chooses.
    bool overburden = false;
    bool elevation = false;
    // "Units": Feet 0, Meters 1.
    int units = 0;

    std::vector<vorn::PanelControl> pageControls() override;
    void OnInitDialog() override;

    void OnBuildGrid();
    void OnDrawGrid();
    void onElevationChosen();
    void onOverburdenChosen();

protected:
    bool writeGrid(const std::string& path) override;

private:
    bool checkBeforeBuild();
    std::vector<vorn::ContourLine> readContours(double reach);
    bool runCells(const std::vector<vorn::ContourLine>& contours, double searchLimit);
    void pickSeamLevel();

    bool topography_;
    bool elevationWasChosen_ = false;
    bool feetRadio_ = false, metersRadio_ = false;
};
