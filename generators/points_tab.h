// The page "Build Grid" of vorn_gridFromPoint: a grid averaged from
// scattered points (drill holes, survey points) taken from entities in the
// drawing, whose elevation is the value, or from a point import file.
#pragma once

#include "generators/linepoint_page.h"
#include "generators/points_grid.h"

class CPointsTab : public vorn::CLinePointPage {
public:
    CPointsTab() : CLinePointPage("grd") {}

    bool fromExternalFile = false;
    // "Interpolations": Simple Average 0, Inverse Distance 1.
    bool simpleAverage = false;
    bool inverseDistance = true;
    std::string minPointsText = "2";
    std::string maxSearchText = "50";
    std::string titleText;

    std::vector<vorn::PanelControl> pageControls() override;
    void OnInitDialog() override;

    void OnBuildGrid();
    void OnDrawGrid();

protected:
    bool writeGrid(const std::string& path) override;

private:
    // The points of the build, in the order of reading; false when the
    // build stops here (the reason shown).
    bool gatherFromDrawing(std::vector<vorn::Point3d>& points);
    bool gatherFromFile(std::vector<vorn::Point3d>& points);
    bool filterAndCheck(std::vector<vorn::Point3d>& points, double searchLimit);
    bool runCells(vorn::PointInterpolator& interpolator, vorn::PointAverage average);
};
