// The defect pages of vorn_RFRI_Draw: one page design for all twelve
// factors of the catalogue. A page draws defect features on its factor's
// layer, each feature's level in its constant width, turns them into a grid
// by the factor's form (line, area maximum, area overwrite), and saves the
// grid under the factor's file name in the drawing's folder.
#pragma once

#include <string>
#include <vector>

#include "drawing/editor_port.h"
#include "grid/grid.h"
#include "roofrisk/defect_catalogue.h"
#include "shell/promaintab.h"

namespace vorn::rfri {

// The path of a bare file name in the drawing's folder.
std::string inDrawingFolder(const std::string& file);

class CRFRIDefectPage : public CAcUiTabChildDialogExt {
public:
    // The page of catalogue factor `factor` (0 to 11).
    explicit CRFRIDefectPage(int factor);

    std::vector<vorn::PanelControl> pageControls() override;
    void OnInitDialog() override;
    void OnTabActivation(bool active) override;
    void OnMainDialogOK() override { storeToContainer(); }

    // The page exchange: true loads the page from the frame, false stores it.
    void UpdateData(bool load);
    void loadFromContainer();
    void storeToContainer();

    // Field event and buttons.
    void OnLevelChanged();
    void OnDrawDefects();
    void OnMakeGrid();
    void OnViewGrid();
    void OnEditGrid();
    void OnSaveGrid();
    void OnSetDetails() {}

    const DefectFactor& factor() const { return defectFactor(number_); }

    int levelIndex = 0;
    int lastIndex = 0;
    std::vector<int> levels;
    std::string defectLayer;
    int defectColor = 0;
    std::string gridFile;
    std::string defectTitle;
    std::vector<double> reach;
    bool taper = false;
    bool built = false;
    bool saved = false;
    myGrid grid;

    // The combo box "Assessment Value": the chosen text.
    std::string levelText;

private:
    // The combo box's position, -1 when nothing is chosen.
    int comboSelection() const;
    void setCombo(int index);
    void setLevelIndex(int index);
    void copyFromFrame();
    void copyToFrame();

    // Draw Defects.
    void printCurrentLevel() const;
    void takeKeyword();
    void drawFeature(const ads_point& firstUser);

    // Make Grid.
    bool startGrid(vorn::SelectionSet& features);
    void endGrid(vorn::SelectionSet& features);
    void gridLineFeatures(vorn::SelectionSet& features);
    void gridAreaFeatures(vorn::SelectionSet& features);
    // The level position of a feature, -1 to skip it; `entity` is read.
    int featureIndex(vorn::ObjectId id, vorn::Entity& entity) const;
    void gridLineFeature(const vorn::Entity& feature, int index);
    void gridAreaFeature(vorn::ObjectId id, int index);

    int number_;
    bool saveEnabled_ = false;
};

}  // namespace vorn::rfri
