// The page "Grid Dimension", first in every task frame: it edits the
// document's base grid definition, kept as strings until a grid is made.
#pragma once

#include <string>
#include <vector>

#include "shell/promaintab.h"

class CGridTab : public CAcUiTabChildDialogExt {
public:
    // Origin in the current user coordinate system, as displayed.
    std::string originUcsXText, originUcsYText;
    // Origin in world coordinates, "%f".
    std::string originXText, originYText;
    std::string rotationText;
    std::string xCellText, yCellText;
    std::string xNumText, yNumText;
    std::string totalText;
    // The cell counts of the spin controls.
    int xNum = 100;
    int yNum = 100;

    std::vector<vorn::PanelControl> pageControls() override;
    void OnTabActivation(bool active) override;
    bool OnKillActive() override { return validate(); }
    void OnMainDialogOK() override { copyToFrame(); }

    // Reads and checks the fields; on success the world origin is updated
    // and the strings go to the frame.
    bool validate();

    // Field events.
    void onOriginEdited();
    void onXCellEdited();

    // Buttons.
    void OnPickPoint();
    void OnCellSizeX();
    void OnCellSizeY();
    void OnGeometry();
    void OnPreviewGrid();
    void OnSaveAs();
    void OnImportFrom();

private:
    bool readCounts();
    bool checkCellWidth(const std::string& text);
    void showOriginWorld(double x, double y);
    void showCounts();
    void copyToFrame();
    // A grid set up from the fields, origin in world coordinates.
    bool buildGrid(myGrid& grid) const;
    void askCellSize(std::string& width, const char* prompt);
    void takeGridDefinition(const myGrid& grid);
};
