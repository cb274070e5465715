#include "stressmodel/convkelgrid_panel.h"

#include <algorithm>

#include "drawing/editor_port.h"
#include "drawing/prompts.h"
#include "grid/grid.h"

dlg_convkelgrid::dlg_convkelgrid() { fileLabel = reader_.fileLabel(); }

std::vector<vorn::PanelControl> dlg_convkelgrid::panelControls()
{
    using namespace vorn;
    return {staticControl("Current Keldar file:", fileLabel),
            listControl("Item# | Item Name | Unit | Step | Comments", selectedRow, rowTexts),
            buttonControl("Select", [this] { OnSelect(); }),
            buttonControl("Preview...", [this] { OnPreview(); }),
            buttonControl("Transfer...", [this] { OnTransfer(); }),
            buttonControl("&Exit", [this] { EndDialog(IDCANCEL); })};
}

namespace {
std::string trimmed(const std::string& text)
{
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}
}  // namespace

std::string dlg_convkelgrid::rowText(const CElementItemRow& row)
{
    std::string text;
    for (const std::string* column : {&row.number, &row.name, &row.unit, &row.step, &row.comments}) {
        if (!text.empty()) text += " | ";
        text += trimmed(*column);
    }
    return text;
}

void dlg_convkelgrid::showRows()
{
    rowTexts.clear();
    for (const CElementItemRow& row : reader_.rows()) rowTexts.push_back(rowText(row));
    if (std::find(rowTexts.begin(), rowTexts.end(), selectedRow) == rowTexts.end()) selectedRow.clear();
    fileLabel = reader_.fileLabel();
}

void dlg_convkelgrid::OnSelect()
{
    std::string path;
    if (!pickFileName(true, "f*;*.F*", path)) return;
    reader_.selectFile(path);
    showRows();
}

bool dlg_convkelgrid::selectedIndex(const char* noneMessage, size_t& row) const
{
    auto found = std::find(rowTexts.begin(), rowTexts.end(), selectedRow);
    if (selectedRow.empty() || found == rowTexts.end()) {
        AfxMessageBox(noneMessage);
        return false;
    }
    row = static_cast<size_t>(found - rowTexts.begin());
    return true;
}

void dlg_convkelgrid::OnTransfer()
{
    size_t row = 0;
    if (!selectedIndex("No items were selected!\n", row)) return;
    reader_.transferRow(row, [](std::string& path) { return pickFileName(false, "grd", path); });
}

void dlg_convkelgrid::OnDoubleClickList()
{
    if (!rowTexts.empty()) OnTransfer();
}

void dlg_convkelgrid::plotPreview(myGrid& grid)
{
    vorn::Point2 low, high;
    grid.getNodeXY(0, 0, low);
    grid.getNodeXY(grid.getXNum(), grid.getYNum(), high);
    acedZoomWindow(ads_point{low.x, low.y, 0.0}, ads_point{high.x, high.y, 0.0});
    grid.setPlotOptions(3, 2, "", true, false);
    grid.plot();
    acedZoomPrevious();
}

void dlg_convkelgrid::OnPreview()
{
    size_t row = 0;
    if (!selectedIndex("No items were selected!", row)) return;
    setHidden(true);
    myGrid grid;
    if (reader_.previewRow(row, grid)) plotPreview(grid);
    setHidden(false);
}
