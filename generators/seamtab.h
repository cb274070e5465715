// The page "Build Grid" of the seam grid for the stress model: each square
// cell becomes pillar, gob or entry from the closed polylines of the pillar
// and gob layers, and the page writes the seam file of element codes.
#pragma once

#include <string>
#include <vector>

#include "drawing/editor_port.h"
#include "generators/gridpage_fields.h"
#include "generators/seamfile.h"
#include "grid/grid.h"
#include "shell/promaintab.h"

inline constexpr unsigned IDD_SEAMTAB = 212;

class CSeamTab : public CAcUiTabChildDialogExt {
public:
    OutputFileField outputFile{"txt"};
    LayerChoiceList pillarLayers;
    LayerChoiceList gobLayers;
    bool middlePoint = false;
    bool areaBased = true;
    std::string minAreaText = "50";
    std::string pillarCode = "A";
    std::string entryCode = "1";
    std::string gobCode = "S";

    bool built = false;
    bool saved = false;
    bool changedByHand = false;
    // 1.0 pillar, 0.0 entry, -1.0 gob.
    myGrid grid;

    std::vector<vorn::PanelControl> pageControls() override;
    void OnInitDialog() override;
    void OnMainDialogCancel() override;

    bool saveEnabled() const { return built && (!saved || changedByHand); }

    // " &Build Grid ...": the build, then the code plot of a finished grid.
    void OnBuildGrid();
    // The build alone; true when it finished.
    bool buildGrid();
    void OnEditCells();
    void OnDrawGrid();
    void OnSaveGrid();
    void OnPillarLayer();
    void OnGobLayer();
    void OnPreviewPillars();
    void OnPreviewGobs();

private:
    void chooseAlgorithm(bool area);
    // A row checked in one list is unchecked in the other.
    void keepApart(LayerChoiceList& checked, size_t row, LayerChoiceList& other);
    // Steps 6 to 15 of a build; false when it stopped at a question.
    bool buildFromPolygons(std::vector<vorn::ObjectId>& pillarIds, int percent);
    bool askForGob(vorn::SelectionSet& pillars, vorn::SelectionSet& gobs, const std::vector<vorn::Point2d>& outline);
    void coverPillars(const vorn::SelectionSet& pillars, double threshold);
    void coverGobs(const vorn::SelectionSet& gobs, double threshold);
    SeamCodes codes();
};

// Keeps at most the first character of an element code field.
void limitToOneCharacter(std::string& code);
