// The panel "Mapping Stability Index on Entries": an index grid cut into a
// region per cell, coloured by value, united by colour when asked, and
// covered by solid hatches on a mapping layer.
#pragma once

#include <string>
#include <vector>

#include "drawing/editor_port.h"
#include "drawing/panel_port.h"
#include "grid/grid.h"

// A cell's piece of the map on its way to the drawing: a whole cell is
// kept as its indices and colour only; a cell cut by pillars carries its
// region.
struct MapPiece {
    int i = 0;
    int j = 0;
    int color = 7;
    int cutRegion = -1;  // index into the cut regions, -1 for a whole cell
};

class dlg_indexmapping : public vorn::Panel {
public:
    dlg_indexmapping() = default;

    myGrid indexGrid;
    std::string gridPath;
    std::string gridInfo;
    std::string mappingLayer;
    std::string pillarLayers;
    int filter = 0;
    double threshold = 0.0;
    bool blackWhite = false;
    std::string status = "<Analyze> to create new region with grid file;  <Pick Region> to get existing regions.";
    std::vector<vorn::ObjectId> newRegions;
    std::vector<vorn::ObjectId> pickedRegions;
    bool combined = false;

    std::string panelTitle() const override { return "Mapping Stability Index on Entries"; }
    std::vector<vorn::PanelControl> panelControls() override;
    void OnInitDialog() override;
    void OnCancel() override;

    // Buttons.
    void OnPickFile();
    void OnPreview();
    void OnAnalyze();
    void OnPickRegion();
    void OnHatch();
    void OnPickLayer();
    void OnNewLayer();

    // Reads the index grid as "Pick the file" does after its dialog; false
    // after "Read grid file error!".
    bool loadGrid(const std::string& path);
    // Selects the named layers in the pillar list (those it offers).
    void selectPillarLayers(const std::vector<std::string>& layers);
    int total() const { return static_cast<int>(newRegions.size() + pickedRegions.size()); }
    // Whether "Pre&view Grid" and "&Hatch" can be pressed.
    bool previewEnabled() const { return previewEnabled_; }
    bool hatchEnabled() const { return total() >= 1; }

private:
    // Analyze, step by step.
    bool checkAnalyze();
    bool selectPillars(vorn::SelectionSet& pillars);
    void filterPass(myGrid& work);
    bool pillarPass(myGrid& work, const vorn::SelectionSet& pillars);
    bool cellPass(const myGrid& work, std::vector<MapPiece>& pieces, std::vector<vorn::Entity>& cutRegions);
    bool cutCell(const std::string& mark, int i, int j, vorn::Entity& cellRegion);
    void finishAnalyze(std::vector<MapPiece>& pieces, std::vector<vorn::Entity>& cutRegions);
    void appendRegion(vorn::Region region, int color, std::vector<vorn::ObjectId>& ids);
    std::vector<vorn::ObjectId> appendPieces(const std::vector<MapPiece>& pieces, std::vector<vorn::Entity>& cutRegions);
    std::vector<vorn::ObjectId> appendUnitedByColor(const std::vector<MapPiece>& pieces,
                                                    std::vector<vorn::Entity>& cutRegions);
    // Hatch, step by step.
    bool hatchNewRegions(std::vector<vorn::ObjectId>& hatches, int& position);
    bool hatchPickedRegions(std::vector<vorn::ObjectId>& hatches, int& position);

    void readFields();
    void showFields();
    void refreshLayers();
    void rebuildPillarLayers();
    void updateStatus();
    void onFilterChanged();

    bool previewEnabled_ = false;
    std::string thresholdText_ = "0";
    bool allValues_ = true;
    bool largerThan_ = false;
    bool smallThan_ = false;
    std::vector<std::string> comboLayers_;
    std::vector<std::string> listLayers_;
    std::vector<bool> listSelected_;
    std::string clickedLayer_;
};
