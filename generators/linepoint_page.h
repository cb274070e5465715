// What the pages of the contour, point and linear feature grids share: the
// layer list with its joined string, the output file field, the page's own
// grid with the flags built and saved, saving, drawing, and the cell
// outlines drawn in the colour of their value while a grid is built.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "drawing/geom_types.h"
#include "grid/grid.h"
#include "shell/promaintab.h"

namespace vorn {

// A list of the drawing's visible layers in which several can be selected.
// A script chooses an item to select it, and chooses it again to clear it;
// the selected names, in list order and joined by ",", are `joined`.
class LayerListField {
public:
    std::vector<std::string> items;
    std::vector<bool> selected;
    std::string choice;
    std::string joined;

    void fill();
    // The choice toggles that item.
    void toggleChoice();
    // Selects a layer by name (as a pick does); false when it is not listed.
    bool select(const std::string& layer);
    void clear();
    std::vector<std::string> selectedNames() const;

    PanelControl listControl(const std::string& caption, std::function<void()> afterChange = {});
    PanelControl joinedControl(const std::string& caption);

private:
    void join();
};

// The output file name: a new name gets the extension when it lacks it,
// and an existing file must be confirmed or the old name comes back.
class OutputFileField {
public:
    explicit OutputFileField(std::string extension) : extension_(std::move(extension)) {}
    std::string text;

    void reset(const std::string& name);
    void setExtension(const std::string& extension) { extension_ = extension; }
    const std::string& extension() const { return extension_; }
    void onEdited();
    // "Pick a file": the save dialog for the extension.
    void pick();

private:
    std::string extension_;
    std::string accepted_;
};

// The base of the three pages: a grid of its own and the flags.
class CLinePointPage : public CAcUiTabChildDialogExt {
public:
    explicit CLinePointPage(const std::string& extension) : output(extension) {}

    OutputFileField output;
    LayerListField layers;
    bool built = false;
    bool saved = false;

    myGrid& grid() { return grid_; }

    // "< &Save Grid": allowed only when built; asks the name when empty and
    // confirms it; saved is set after a successful write.
    void OnSaveGrid();
    // After the frame was cancelled: a built grid that is not saved may
    // still be saved.
    void offerSaveOnCancel();
    // "<Pick Layer": picks objects until a pick fails, selecting each
    // object's layer in the list.
    void OnPickLayer();

protected:
    // The "< &Draw Grid" button running `draw`, usable once a grid is built,
    // and "< &Save Grid", usable while the built grid is not saved.
    std::pair<PanelControl, PanelControl> drawAndSaveButtons(std::function<void()> draw);
    // Writes the grid; false when the file could not be written.
    virtual bool writeGrid(const std::string& path) = 0;
    // The frame's lattice into the page's grid.
    bool defineGrid();

    myGrid grid_;
};

// The outline of cell (i, j) for i <= nx, j <= ny (the row and column
// beyond the lattice included).
std::vector<Point2d> cellOutline(const myGrid& grid, int i, int j);
// Draws it in the colour of `value` on the shared palette.
void drawValueCell(const myGrid& grid, int i, int j, double value);
// The grid's outline in user coordinates.
std::vector<Point2d> userOutline(const myGrid& grid);
// The grid's outline in world coordinates.
std::vector<Point2d> worldOutline(const myGrid& grid);

// An integer field read as the dialog does, with its range message.
bool readIntegerField(const std::string& text, int lo, int hi, int& value);

}  // namespace vorn
