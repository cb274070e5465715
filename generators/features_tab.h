// The page "Build Grid" of vorn_geoFeatures: the influence of linear
// geological features (faults, clay veins) drawn as polylines, falling from
// 100 on a feature to 0 at the influence distance.
#pragma once

#include "drawing/editor_port.h"
#include "generators/features_grid.h"
#include "generators/linepoint_page.h"

class CGeoFeatureTab : public vorn::CLinePointPage {
public:
    CGeoFeatureTab() : CLinePointPage("grd") {}

    std::string distanceText;
    bool accumulation = false;
    std::string titleText;

    std::vector<vorn::PanelControl> pageControls() override;
    void OnInitDialog() override;
    void OnTabActivation(bool active) override;

    void OnBuildGrid();
    void OnDrawGrid();
    void OnPickDistance();

protected:
    bool writeGrid(const std::string& path) override;

private:
    bool checkBeforeBuild(double& influence);
    // Rates every feature of the set; false when the user broke off.
    bool rateFeatures(const vorn::SelectionSet& set, double influence);
};
