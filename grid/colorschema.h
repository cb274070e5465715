// The colour schema: the table that maps value ranges to colour indices,
// the panel "Color Schema Setting" on which the user edits it, and the
// shared continuous palette that plots and some pages colour by.
//
// CColorRainbow is both the panel and the model of a table: myGrid uses an
// unseen instance of it to derive default tables from a value range.
#pragma once

#include <string>
#include <vector>

#include "drawing/panel_port.h"
#include "grid/gridgeom.h"

// A colour table: entries (x = value break, y = colour index), rising in x.
using ColorTable = std::vector<vorn::Point2>;

// The colour indices of the rainbow, in order, and the greys of "B/W".
inline constexpr unsigned kRainbowColors[10] = {174, 170, 190, 200, 210, 230, 10, 30, 40, 50};
inline constexpr unsigned kGreyColors[5] = {250, 251, 252, 253, 254};

// The name under which the panel keeps its dialog data.
inline constexpr const char* kColorSchemaDialog = "VORNVornmark::ColorSchema";

class CColorRainbow : public vorn::Panel {
public:
    // The breaks and colours of `groups` groups over the range of a and b.
    void setRange(double a, double b, int groups);
    // The table; a model with no entries first takes the range 0 to 100.
    const ColorTable& getTable();
    // Opens the panel on a copy of this table.
    void setTable(const ColorTable& given) { table = given; }

    // The model as it stands.
    const std::vector<unsigned>& groupColors() const { return colors; }
    const std::vector<double>& valueBreaks() const { return breaks; }
    // The rows of the preview list, from the highest group down, and the
    // RGB of each row's swatch.
    const std::vector<std::string>& listRows() const { return rows; }
    const std::vector<unsigned long>& listSwatches() const { return swatches; }

    // The panel.
    std::string panelTitle() const override { return "Color Schema Setting"; }
    std::vector<vorn::PanelControl> panelControls() override;
    void OnInitDialog() override;
    void OnOK() override;

    // Buttons.
    void OnReset();
    void OnAdd();
    void OnDeleteSelection();
    void OnBlackWhite();
    void OnDefault();
    // A double click on the selected row of the list.
    void OnRowDoubleClick();

private:
    // `count` colours spread over the rainbow.
    void fillDefaultColors(size_t count);
    void rebuildList();
    void showFields();
    void readFields();
    // The selected row, -1 for none.
    int selectedRow() const;

    ColorTable table;
    std::vector<unsigned> colors;
    std::vector<double> breaks;
    double minimum = 0.0;
    double maximum = 100.0;
    double interval = 10.0;
    double newBreak = 0.0;

    // The fields as the panel shows them.
    std::string minimumText, maximumText, intervalText, newBreakText;
    std::string selectedRowText;
    std::vector<std::string> rows;
    std::vector<unsigned long> swatches;
};

// ---- the shared continuous palette ---------------------------------------

// Sets the range of the palette; `useSix` picks the black and white list of
// six entries instead of the colour list. Fills the default lists when empty.
void setColorRange(double min, double max, bool useSix);
// The colour of a value on the palette: 7 with no list or no range.
int colorOfValue(double value);
// True when the palette has no colour lists yet; loads the default lists.
bool colorPaletteIsEmpty();
void loadDefaultColorPalette();
