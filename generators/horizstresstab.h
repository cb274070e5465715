// The page "Build Grid" of the horizontal stress grid: each entry, drawn as
// projection lines along its centre, rates its cells by how squarely it
// runs across the maximum horizontal stress.
#pragma once

#include <string>
#include <vector>

#include "drawing/editor_port.h"
#include "generators/gridpage_fields.h"
#include "grid/grid.h"
#include "shell/promaintab.h"

inline constexpr unsigned IDD_HORIZSTRESSTAB = 213;

class CHorizonStressTab : public CAcUiTabChildDialogExt {
public:
    OutputFileField outputFile{"grd"};
    LayerChoiceList entryLayers;
    std::string widthText = "20";
    // The orientation as shown, and as held in radians (0 to pi).
    std::string orientationText = "0";
    double orientation = 0.0;
    std::string title = "Horizontal Stress";

    bool built = false;
    bool saved = false;
    myGrid grid;

    std::vector<vorn::PanelControl> pageControls() override;
    void OnInitDialog() override;
    void OnTabActivation(bool active) override;
    void OnMainDialogCancel() override;

    void OnBuildGrid();
    void OnDrawGrid();
    void OnSaveGrid();
    void OnPickLayer();
    void OnPickDistance();
    void OnPickOrientation();

private:
    // Steps 4 to 9 of a build; false when it ended as cancelled.
    bool rateEntries(double halfWidth);
    bool rateLine(const std::vector<vorn::Point3d>& points, double halfWidth);
    ads_point gridOriginUser() const;
};
