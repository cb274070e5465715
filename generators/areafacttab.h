// The page "Build Grid" of the area boundary factor: cells inside the
// boundary polylines of the working layer take one value, cells outside
// another, by the middle point or by the covered area of each cell.
#pragma once

#include <string>
#include <vector>

#include "drawing/editor_port.h"
#include "generators/gridpage_fields.h"
#include "grid/grid.h"
#include "shell/promaintab.h"

inline constexpr unsigned IDD_AREAFACTTAB = 211;

class CAreaFactTab : public CAcUiTabChildDialogExt {
public:
    OutputFileField outputFile{"grd"};
    std::string description;
    std::string insideText = "100";
    std::string outsideText = "0";
    bool middlePoint = false;
    bool areaBased = true;
    std::string minAreaText = "50";
    bool removeBoundaries = false;

    bool built = false;
    bool saved = false;
    bool changed = false;
    myGrid grid;

    std::vector<vorn::PanelControl> pageControls() override;
    void OnInitDialog() override;
    void OnMainDialogCancel() override;
    bool okEnabled() override { return !saveEnabled(); }

    bool saveEnabled() const { return (built || changed) && !saved; }

    // "< &Build Grid": the build, then the code plot of a finished grid.
    void OnBuildGrid();
    // The build alone; true when it finished.
    bool buildGrid();
    void OnCheckBoundaries();
    void OnChangeCells();
    void OnDrawGrid();
    void OnSaveGrid();

private:
    void chooseAlgorithm(bool area);
    // Steps 5 to 10 of a build on the selected boundaries; false when it
    // ended as cancelled.
    bool buildFromBoundaries(vorn::SelectionSet& set, int inside, int outside, int percent);
};
