// The buttons of the page "Grid Dimension": each gives way to the drawing
// or a file while it works.
#include "drawing/create.h"
#include "drawing/editor_port.h"
#include "drawing/prompts.h"
#include "grid/grid.h"
#include "shell/gridtab.h"
#include "base/report.h"
#include "base/textnum.h"

using vorn::formatString;

namespace {

ads_point userOrigin(const CGridTab& page) { return {_wtof(page.originUcsXText), _wtof(page.originUcsYText), 0.0}; }

std::vector<vorn::Point2d> planPoints(const std::vector<vorn::Point2>& points)
{
    std::vector<vorn::Point2d> plan;
    for (const vorn::Point2& p : points) plan.push_back({p.x, p.y});
    return plan;
}

// The grid's outline as a temporary closed polyline on the current layer.
vorn::ObjectId addOutline(const myGrid& grid)
{
    std::vector<vorn::Point2> corners;
    grid.getOutline(corners);
    vorn::ObjectId id;
    addPolylineFromPoints(id, planPoints(corners), true, 0.0, vorn::kColorByLayer);
    return id;
}

// Drags the outline by a translation from `base`; true with the new point.
bool dragOutline(const myGrid& grid, const ads_point& base, ads_point& moved)
{
    vorn::ObjectId outline = addOutline(grid);
    vorn::SelectionSet set;
    acedSSAdd(outline, set);
    auto translate = [base](const vorn::Point3d& cursor, double matrix[4][4]) {
        for (int r = 0; r < 4; ++r)
            for (int c = 0; c < 4; ++c) matrix[r][c] = r == c ? 1.0 : 0.0;
        matrix[0][3] = cursor.x - base.x;
        matrix[1][3] = cursor.y - base.y;
        return RTNORM;
    };
    int status = acedDragGen(set, "\nNew position:", 0, translate, moved);
    acedSSFree(set);
    acdbEntDel(outline);
    return status == RTNORM;
}

}  // namespace

void CGridTab::OnPickPoint()
{
    hideMainDialog();
    myGrid grid;
    ads_point point;
    bool picked = false;
    if (buildGrid(grid))
        picked = dragOutline(grid, userOrigin(*this), point);
    else
        picked = acedGetPoint(nullptr, "\nSpecify the orign point of grid (low-left corner): ", point) == RTNORM;
    if (picked) showOriginWorld(point.x, point.y);
    showMainDialog(true);
}

void CGridTab::askCellSize(std::string& width, const char* prompt)
{
    hideMainDialog();
    ads_point base = userOrigin(*this);
    double distance = 0.0;
    acedInitGet(RSG_NOZERO | RSG_NONEG | RSG_2D, "");
    if (acedGetDist(&base, formatString(prompt, _wtof(width)).c_str(), distance) == RTNORM)
        width = formatString("%f", distance);
    showMainDialog(true);
}

void CGridTab::OnCellSizeX() { askCellSize(xCellText, "\nInput the size of a cell<%f> in X direction:"); }
void CGridTab::OnCellSizeY() { askCellSize(yCellText, "\nInput the size of a cell<%f> in Y direction:"); }

namespace {
// Asks for a width from `base`; Enter keeps it, false on cancel.
bool askWidth(const ads_point& base, const char* prompt, std::string& width)
{
    double distance = 0.0;
    int status = acedGetDist(&base, formatString(prompt, width.c_str()).c_str(), distance);
    if (status == RTNORM) width = formatString("%f", distance);
    return status == RTNORM || status == RTNONE;
}
}  // namespace

// The counts of a rectangle from the origin to a corner. Both counts are
// divided by the X width.
void CGridTab::OnGeometry()
{
    hideMainDialog();
    validate();
    ads_point base = userOrigin(*this);
    ads_point corner;
    if (acedGetCorner(base, "\nPick a opposite Point(up right corner): ", corner) == RTNORM &&
        askWidth(base, "\nWidth of Cells in X direction<%s>", xCellText)) {
        yCellText = xCellText;
        if (askWidth(base, "\nWidth of Cells in Y direction<%s>", yCellText)) {
            double xWidth = _wtof(xCellText);
            if (xWidth > 0.0 && _wtof(yCellText) > 0.0) {
                int xCount = static_cast<int>((corner.x - base.x) / xWidth);
                int yCount = static_cast<int>((corner.y - base.y) / xWidth);
                if (xCount >= 1 && yCount >= 1) {
                    xNum = xCount;
                    yNum = yCount;
                    showCounts();
                }
            }
        }
    }
    showMainDialog(true);
}

void CGridTab::OnPreviewGrid()
{
    if (!validate()) return;
    myGrid grid;
    buildGrid(grid);
    hideMainDialog();
    grid.plotCodes(1);
    showMainDialog(true);
}

void CGridTab::OnSaveAs()
{
    if (!validate()) return;
    std::string path = drawingFolder() + "Untitled.grd";
    if (!pickFileName(false, "grd", path)) return;
    if (AfxMessageBox("Save Grid Definition to file: " + path, MB_OKCANCEL) != IDOK) return;
    myGrid grid;
    buildGrid(grid);
    grid.setTitle("Grid Definition");
    grid.writeGrd(path);
}

void CGridTab::takeGridDefinition(const myGrid& grid)
{
    originXText = formatString("%f", grid.origin.x);
    originYText = formatString("%f", grid.origin.y);
    ads_point user;
    acdbWcs2Ucs({grid.origin.x, grid.origin.y, 0.0}, user);
    acdbRToS(user.x, 2, -1, originUcsXText);
    acdbRToS(user.y, 2, -1, originUcsYText);
    xCellText = formatString("%f", grid.xCellW);
    yCellText = formatString("%f", grid.yCellW);
    xNum = grid.xNum;
    yNum = grid.yNum;
    showCounts();
    rotationText = formatString("%f", grid.rotAngle);
}

// Only the header of the file counts: the lattice is taken, not the values.
void CGridTab::OnImportFrom()
{
    std::string path;
    if (!pickFileName(true, "grd", path)) return;
    std::string lower = vorn::toLower(path);
    size_t grd = lower.find(".grd");
    myGrid grid;
    bool read = false;
    if (grd != std::string::npos && grd != 0) {
        read = grid.readGrd(path, 0);
    } else if (lower.find(".top") != std::string::npos || lower.find(".f") != std::string::npos) {
        read = grid.readTop(path, 0);
    } else {
        AfxMessageBox("Unknown grid file !");
        return;
    }
    if (!read) return;
    if (!grid.isDefined()) {
        AfxMessageBox("Grid file definition is not correct!");
        return;
    }
    takeGridDefinition(grid);
    AfxMessageBox("Grid file definition loaded!");
}
