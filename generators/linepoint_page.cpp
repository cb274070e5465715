#include "generators/linepoint_page.h"

#include <filesystem>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/drawing_helpers.h"
#include "drawing/editor_port.h"
#include "drawing/layers.h"
#include "drawing/prompts.h"
#include "drawing/tempgraphics.h"
#include "grid/colorschema.h"

namespace vorn {

// ---------------------------------------------------------------- layers

void LayerListField::fill()
{
    fillLayerList(items);
    selected.assign(items.size(), false);
    choice.clear();
    join();
}

void LayerListField::toggleChoice()
{
    for (size_t k = 0; k < items.size(); ++k)
        if (items[k] == choice) selected[k] = !selected[k];
    join();
}

bool LayerListField::select(const std::string& layer)
{
    for (size_t k = 0; k < items.size(); ++k) {
        if (!iequals(items[k], layer)) continue;
        selected[k] = true;
        join();
        return true;
    }
    return false;
}

void LayerListField::clear()
{
    selected.assign(items.size(), false);
    choice.clear();
    join();
}

std::vector<std::string> LayerListField::selectedNames() const
{
    std::vector<std::string> names;
    for (size_t k = 0; k < items.size(); ++k)
        if (selected[k]) names.push_back(items[k]);
    return names;
}

void LayerListField::join() { joined = joinSelectedItems(items, selected, ","); }

PanelControl LayerListField::listControl(const std::string& caption, std::function<void()> afterChange)
{
    return vorn::listControl(caption, choice, items, [this, afterChange] {
        toggleChoice();
        if (afterChange) afterChange();
    });
}

PanelControl LayerListField::joinedControl(const std::string& caption) { return readOnlyControl(caption, joined); }

// ---------------------------------------------------------------- output

namespace {

bool hasExtension(const std::string& name, const std::string& extension)
{
    std::string tail = "." + extension;
    return name.size() >= tail.size() && iequals(std::string_view(name).substr(name.size() - tail.size()), tail);
}

}  // namespace

void OutputFileField::reset(const std::string& name)
{
    text = name;
    accepted_ = name;
}

void OutputFileField::onEdited()
{
    if (!text.empty() && !hasExtension(text, extension_)) text += "." + extension_;
    std::error_code error;
    if (text != accepted_ && std::filesystem::exists(text, error) &&
        AfxMessageBox("File Exists, Do you want to Overwrite it?", MB_YESNO | MB_ICONQUESTION) == IDNO) {
        text = accepted_;
        return;
    }
    accepted_ = text;
}

void OutputFileField::pick()
{
    std::string name = text;
    if (!pickFileName(false, extension_, name)) return;
    text = name;
    accepted_ = name;
}

// ---------------------------------------------------------------- page

bool CLinePointPage::defineGrid() { return mainDialog() && mainDialog()->getBaseGrid(grid_); }

void CLinePointPage::OnSaveGrid()
{
    if (!built) return;
    std::string name = output.text;
    if (name.empty() && !pickFileName(false, output.extension(), name)) return;
    output.reset(name);
    if (AfxMessageBox(formatString("Grid value will be saved to < %s >", name.c_str()), MB_OKCANCEL) != IDOK) return;
    if (writeGrid(name)) saved = true;
}

void CLinePointPage::offerSaveOnCancel()
{
    if (built && !saved && AfxMessageBox("The Grid is not saved! Save it?", MB_YESNO | MB_ICONQUESTION) == IDYES) OnSaveGrid();
}

void CLinePointPage::OnPickLayer()
{
    hideMainDialog();
    ObjectId id;
    ads_point picked;
    while (acedEntSel("\nSelect any object in the layer", id, picked) == RTNORM) {
        std::string layer = entityLayerName(id);
        layers.select(layer);
        acutPrintf("\nselected layer: %s", layer.c_str());
    }
    showMainDialog(true);
}

// ---------------------------------------------------------------- cells

std::vector<Point2d> cellOutline(const myGrid& grid, int i, int j)
{
    auto node = [&grid](int a, int b) {
        return Point2d{grid.origin.x + a * grid.xStep.x + b * grid.yStep.x, grid.origin.y + a * grid.xStep.y + b * grid.yStep.y};
    };
    return {node(i, j), node(i + 1, j), node(i + 1, j + 1), node(i, j + 1)};
}

void drawValueCell(const myGrid& grid, int i, int j, double value)
{
    drawPolygonOutline(cellOutline(grid, i, j), colorOfValue(value), true);
}

std::vector<Point2d> worldOutline(const myGrid& grid)
{
    std::vector<Point2> corners;
    grid.getOutline(corners);
    std::vector<Point2d> outline;
    for (const Point2& c : corners) outline.push_back({c.x, c.y});
    return outline;
}

std::vector<Point2d> userOutline(const myGrid& grid)
{
    std::vector<Point2d> outline;
    for (const Point2d& c : worldOutline(grid)) {
        ads_point user;
        acdbWcs2Ucs({c.x, c.y, 0.0}, user);
        outline.push_back({user.x, user.y});
    }
    return outline;
}

bool readIntegerField(const std::string& text, int lo, int hi, int& value)
{
    size_t used = 0;
    bool whole = false;
    try {
        value = std::stoi(text, &used);
        whole = text.find_first_not_of(" \t", used) == std::string::npos;
    } catch (const std::exception&) {
        whole = false;
    }
    if (!whole) {
        AfxMessageBox("Please enter an integer.", MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    if (value < lo || value > hi) {
        AfxMessageBox(formatString("Please enter an integer between %d and %d.", lo, hi), MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    return true;
}

std::pair<PanelControl, PanelControl> CLinePointPage::drawAndSaveButtons(std::function<void()> draw)
{
    PanelControl drawButton = buttonControl("< &Draw Grid", std::move(draw));
    PanelControl saveButton = buttonControl("< &Save Grid", [this] { OnSaveGrid(); });
    drawButton.readOnly = !built;
    saveButton.readOnly = !(built && !saved);
    return {drawButton, saveButton};
}

}  // namespace vorn
