// The layer choice: the drawing's layers that are neither off nor frozen
// as rows with check boxes (column "Item"), a button that checks the layer
// of an object picked in the drawing, and a switch that lets only one row
// be checked. OK leaves the checked layers, in row order, joined by ",".
// In a script each row is the check box captioned by its layer's name.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "drawing/panel_port.h"

class CSelectLayerDlg : public vorn::Panel {
public:
    // The caption given at run time stands in for the resource's title
    // "Layer Selection".
    explicit CSelectLayerDlg(std::string caption = "Select Layers") : caption_(std::move(caption)) {}

    struct Row {
        std::string layer;
        bool checked = false;
    };
    std::vector<Row> rows;
    // When set, checking a row unchecks all others.
    bool singleChoice = false;
    // The checked layers joined by ",", set by OK.
    std::string result;

    std::string panelTitle() const override { return caption_; }
    std::vector<vorn::PanelControl> panelControls() override;
    void OnInitDialog() override;
    void OnOK() override;

    // Buttons and field events.
    void OnPickLayer();
    void onRowChecked(std::size_t row);
    // Checks the row of that layer (any case); false when no row has it.
    bool checkLayer(const std::string& layer);

private:
    std::string caption_;
};
