#include "shell/gridtab.h"

#include "drawing/editor_port.h"
#include "grid/grid.h"
#include "base/report.h"
#include "base/textnum.h"

using vorn::formatString;

namespace {

std::string userText(double value)
{
    std::string text;
    acdbRToS(value, 2, -1, text);
    return text;
}

// An integer field as the dialog reads it: blanks around a whole number.
bool readIntField(const std::string& text, int& value)
{
    size_t used = 0;
    try {
        value = std::stoi(text, &used);
    } catch (const std::exception&) {
        return false;
    }
    return text.find_first_not_of(" \t", used) == std::string::npos;
}

// The dialog's own check of a count field: an integer from 1 to 2000.
bool readCountField(const std::string& text, int& value)
{
    if (!readIntField(text, value)) {
        AfxMessageBox("Please enter an integer.", MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    if (value < 1 || value > 2000) {
        AfxMessageBox("Please enter an integer between 1 and 2000.", MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    return true;
}

}  // namespace

std::vector<vorn::PanelControl> CGridTab::pageControls()
{
    using namespace vorn;
    return {
        editControl("X Coordinate of Grid Origin:", originUcsXText, [this] { onOriginEdited(); }),
        editControl("Y Coordinate of Grid Origin:", originUcsYText, [this] { onOriginEdited(); }),
        readOnlyControl("Rotation to X axis (degree)  :", rotationText),
        buttonControl("Pick a Point", [this] { OnPickPoint(); }),
        buttonControl("< Geometry", [this] { OnGeometry(); }),
        editControl("Cell Width in X Direction:", xCellText, [this] { onXCellEdited(); }),
        buttonControl("< Cell Size", [this] { OnCellSizeX(); }),
        editControl("Cell Width in Y Direction:", yCellText),
        buttonControl("< Cell Size", [this] { OnCellSizeY(); }),
        editControl("Number of Cells in X Direction:", xNumText),
        editControl("Number of Cells in Y Direction:", yNumText),
        readOnlyControl("Total number of Cells:", totalText),
        buttonControl("< Preview Grid", [this] { OnPreviewGrid(); }),
        buttonControl("Save As ...", [this] { OnSaveAs(); }),
        buttonControl("Import From ... ", [this] { OnImportFrom(); }),
    };
}

// Each time the page is shown its fields are rebuilt from the frame. The
// rotation is always shown as "0": grids made through a frame are never
// rotated.
void CGridTab::OnTabActivation(bool active)
{
    if (!active) return;
    CProMainTab* frame = mainDialog();
    if (!frame) return;
    originXText = frame->originXText;
    originYText = frame->originYText;
    xCellText = frame->xCellText;
    yCellText = frame->yCellText;
    ads_point user;
    acdbWcs2Ucs({_wtof(originXText), _wtof(originYText), 0.0}, user);
    originUcsXText = userText(user.x);
    originUcsYText = userText(user.y);
    xNum = _wtoi(frame->xNumText);
    yNum = _wtoi(frame->yNumText);
    showCounts();
    rotationText.assign(1, '0');  // assign() keeps g++ 12 from a false -Wrestrict
}

void CGridTab::showCounts()
{
    xNumText = formatString("%d", xNum);
    yNumText = formatString("%d", yNum);
    totalText = formatString("%d", xNum * yNum);
}

bool CGridTab::readCounts()
{
    int x = 0;
    int y = 0;
    if (!readCountField(xNumText, x) || !readCountField(yNumText, y)) return false;
    xNum = x;
    yNum = y;
    showCounts();
    return true;
}

// The integer reading of a width is the test, so "0.9" is refused.
bool CGridTab::checkCellWidth(const std::string& text)
{
    if (_wtoi(text) >= 1) return true;
    AfxMessageBox("Error: Size of cells should lager than zero!", MB_OK);
    return false;
}

bool CGridTab::validate()
{
    if (!readCounts()) return false;
    if (!checkCellWidth(xCellText) || !checkCellWidth(yCellText)) return false;
    ads_point world;
    acdbUcs2Wcs({_wtof(originUcsXText), _wtof(originUcsYText), 0.0}, world);
    originXText = formatString("%f", world.x);
    originYText = formatString("%f", world.y);
    copyToFrame();
    return true;
}

void CGridTab::copyToFrame()
{
    CProMainTab* frame = mainDialog();
    if (!frame) return;
    frame->xNumText = xNumText;
    frame->yNumText = yNumText;
    frame->xCellText = xCellText;
    frame->yCellText = yCellText;
    frame->rotationText = rotationText;
    frame->originXText = originXText;
    frame->originYText = originYText;
}

void CGridTab::onOriginEdited()
{
    originUcsXText = userText(_wtof(originUcsXText));
    originUcsYText = userText(_wtof(originUcsYText));
    validate();
}

// A square cell is the default: the X width is copied into Y.
void CGridTab::onXCellEdited() { yCellText = xCellText; }

void CGridTab::showOriginWorld(double x, double y)
{
    originUcsXText = userText(x);
    originUcsYText = userText(y);
    ads_point world;
    acdbUcs2Wcs({x, y, 0.0}, world);
    originXText = formatString("%f", world.x);
    originYText = formatString("%f", world.y);
}

bool CGridTab::buildGrid(myGrid& grid) const
{
    ads_point world;
    acdbUcs2Wcs({_wtof(originUcsXText), _wtof(originUcsYText), 0.0}, world);
    grid.setOrigin(world.x, world.y, 0.0);
    grid.setup(_wtoi(xNumText), _wtoi(yNumText), _wtof(xCellText), _wtof(yCellText), _wtof(rotationText));
    return grid.isDefined();
}
