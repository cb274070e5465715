#include "grid/grideditor.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/create.h"
#include "drawing/drawing_helpers.h"
#include "drawing/editor_port.h"
#include "drawing/entity_geometry.h"
#include "drawing/polygon.h"
#include "drawing/tempgraphics.h"
#include "grid/colorschema.h"
#include "grid/grid.h"

using vorn::ObjectId;
using vorn::Point2d;
using vorn::Point3d;

namespace {

// The grid under edit, for the cursor tracker: a drag callback has no
// context of its own. Only one editor runs at a time.
const myGrid* trackedGrid = nullptr;

using Cell = std::pair<int, int>;

struct CellRange {
    int i0 = 0, i1 = -1, j0 = 0, j1 = -1;
};

std::vector<Point2d> cellOutline(const myGrid& grid, int i, int j)
{
    std::vector<vorn::Point2> corners;
    grid.getCellPolygon(i, j, corners);
    std::vector<Point2d> result;
    for (const vorn::Point2& p : corners) result.push_back({p.x, p.y});
    return result;
}

vorn::Entity polylineOf(const std::vector<Point2d>& points, bool closed)
{
    vorn::Entity entity;
    makePolylineFromPoints(entity, points, closed, 0.0, vorn::kColorByLayer);
    return entity;
}

// The cells between the clamped cells of the lower left and upper right
// corners of the points' bounding box.
CellRange rangeOf(const myGrid& grid, const std::vector<Point2d>& points)
{
    vorn::Point2 lower{points[0].x, points[0].y}, upper = lower;
    for (const Point2d& p : points) {
        lower = {std::min(lower.x, p.x), std::min(lower.y, p.y)};
        upper = {std::max(upper.x, p.x), std::max(upper.y, p.y)};
    }
    CellRange range;
    grid.getCellOfPointClamped(lower, range.i0, range.j0);
    grid.getCellOfPointClamped(upper, range.i1, range.j1);
    if (range.i0 > range.i1) std::swap(range.i0, range.i1);
    if (range.j0 > range.j1) std::swap(range.j0, range.j1);
    return range;
}

class GridEditor {
public:
    explicit GridEditor(const myGrid& grid) { workGrid.copyGeometry(grid, true); }

    bool run(myGrid& grid);

private:
    void drawCells();
    void loop();
    // One selection step from the prompt's answer; false ends the loop.
    bool selectionStep(int status, const Point3d& point);
    void takeCells(const std::vector<Cell>& cells);
    std::vector<Cell> allCells() const;
    bool pickWindow(bool crossing, std::vector<Cell>& cells);
    // Points of a fence or polygon; false on a cancel.
    bool pickPoints(const char* first, const char* next, std::vector<Point2d>& points);
    std::vector<Cell> cellsOnFence(const std::vector<Point2d>& points) const;
    std::vector<Cell> cellsInPolygon(const std::vector<Point2d>& points, bool crossing) const;
    void assign();
    void newSelection();
    bool finish(myGrid& grid);
    ObjectId cellEntity(const Cell& cell) const { return cellIds[static_cast<size_t>(cell.first) * workGrid.yNum + cell.second]; }

    myGrid workGrid;
    std::vector<ObjectId> cellIds;
    std::vector<Cell> selection;
    std::set<Cell> selected;
    bool modified = false;
    bool removing = false;
    ObjectId dragPoint;
    vorn::SelectionSet dragSet;
};

void GridEditor::drawCells()
{
    double min = 0.0, max = 0.0;
    workGrid.getMinMax(min, max);
    setColorRange(min, max, false);
    acedSetStatusBarProgressMeter("Initializing Grid Editor ...", 0, workGrid.xNum);
    for (int i = 0; i < workGrid.xNum; ++i) {
        acedSetStatusBarProgressMeterPos(i);
        for (int j = 0; j < workGrid.yNum; ++j) {
            ObjectId id;
            addPolylineFromPoints(id, cellOutline(workGrid, i, j), true, 0.0, colorOfValue(workGrid.values[i][j]));
            cellIds.push_back(id);
        }
        flushGraphics();
    }
    acedRestoreStatusBar();
    vorn::Point2 corner;
    workGrid.getNodeXY(0, 0, corner);
    addPoint(dragPoint, {corner.x, corner.y, 0.0}, 7);
    acedSSAdd(dragPoint, dragSet);
}

bool GridEditor::run(myGrid& grid)
{
    if (colorPaletteIsEmpty()) loadDefaultColorPalette();
    trackedGrid = &workGrid;
    drawCells();
    loop();
    bool accepted = finish(grid);
    trackedGrid = nullptr;
    return accepted;
}

void GridEditor::loop()
{
    for (;;) {
        const char* keywords = removing ? "WINDOW,W CROSSING,C ALL,A FENCE,F WPOLYGON,WP CPOLYGON,CP"
                                        : "WINDOW,W CROSSING,C ALL,A FENCE,F WPOLYGON,WP CPOLYGON,CP REMOVE,R";
        const char* prompt = removing ? "\nRemove Grid Cells[Window/Crossing/ALL/Fence/WPolygon/CPolygon]:"
                                      : "\nSelect Grid Cells[Window/Crossing/ALL/Fence/WPolygon/CPolygon/Remove]:";
        acedGrText(-1, prompt + 1, 0);
        acedInitGet(0, keywords);
        Point3d point;
        int status = acedDragGen(dragSet, prompt, 0, trackGridCursor, point);
        if (!selectionStep(status, point)) return;
    }
}

bool GridEditor::selectionStep(int status, const Point3d& point)
{
    if (status == RTCAN || status == RTERROR) return false;
    if (status == RTNONE) {
        if (selection.empty()) return false;
        assign();
        newSelection();
        return true;
    }
    std::vector<Cell> cells;
    bool chosen = false;
    if (status == RTNORM) {
        int i = -1, j = -1;
        workGrid.getCellOfPoint({point.x, point.y}, i, j);
        if (i < 0 || j < 0) {
            acutPrintf("\nThe point is outside of the Grid<%f,%f>!", point.x, point.y);
            return true;
        }
        cells.push_back({i, j});
        chosen = true;
    } else if (status == RTKWORD) {
        std::string keyword;
        acedGetInput(keyword);
        keyword = vorn::toLower(keyword);
        std::vector<Point2d> points;
        if (keyword == "remove") {
            removing = true;
            return true;
        } else if (keyword == "all") {
            cells = allCells();
            chosen = true;
        } else if (keyword == "window" || keyword == "crossing") {
            chosen = pickWindow(keyword == "crossing", cells);
        } else if (keyword == "fence") {
            if (pickPoints("\nSpecify first fence point:", "\nPick next fence point or UNDO:", points)) {
                if (points.size() >= 2) cells = cellsOnFence(points);
                chosen = true;
            }
        } else if (keyword == "wpolygon" || keyword == "cpolygon") {
            if (pickPoints("\nSpecify first polygon point:", "\nPick next polygon point or UNDO:", points)) {
                if (points.size() >= 2) cells = cellsInPolygon(points, keyword == "cpolygon");
                chosen = true;
            }
        }
    }
    if (chosen) takeCells(cells);
    return true;
}

void GridEditor::takeCells(const std::vector<Cell>& cells)
{
    int count = 0;
    for (const Cell& cell : cells) {
        if (removing) {
            if (selected.erase(cell) == 0) continue;
            selection.erase(std::find(selection.begin(), selection.end(), cell));
            highlightEntity(cellEntity(cell), false);
        } else {
            if (!selected.insert(cell).second) continue;
            selection.push_back(cell);
            highlightEntity(cellEntity(cell), true);
        }
        ++count;
    }
    acutPrintf(removing ? "\n%d cells removed from selection." : "\n%d cells added into selection.", count);
    acutPrintf("\n%d grid cells are in current selection.", static_cast<int>(selection.size()));
    removing = false;
}

std::vector<Cell> GridEditor::allCells() const
{
    std::vector<Cell> cells;
    for (int i = 0; i < workGrid.xNum; ++i)
        for (int j = 0; j < workGrid.yNum; ++j) cells.push_back({i, j});
    return cells;
}

bool GridEditor::pickWindow(bool crossing, std::vector<Cell>& cells)
{
    Point3d first, second;
    if (acedGetPoint(nullptr, "\nPick the first corner:", first) != RTNORM) return false;
    if (acedGetCorner(first, "Pick the oppsite corner:", second) != RTNORM) return false;
    std::vector<Point2d> corners = {{first.x, first.y}, {second.x, first.y}, {second.x, second.y}, {first.x, second.y}};
    CellRange range = rangeOf(workGrid, corners);
    vorn::Entity rectangle = polylineOf(corners, true);
    for (int i = range.i0; i <= range.i1; ++i) {
        for (int j = range.j0; j <= range.j1; ++j) {
            if (crossing || !curvesIntersect(polylineOf(cellOutline(workGrid, i, j), true), rectangle))
                cells.push_back({i, j});
        }
    }
    return true;
}

bool GridEditor::pickPoints(const char* first, const char* next, std::vector<Point2d>& points)
{
    Point3d point;
    if (acedGetPoint(nullptr, first, point) != RTNORM) return false;
    std::vector<Point3d> picked = {point};
    for (;;) {
        acedInitGet(0, "UNDO,U");
        int status = acedGetPoint(&picked.back(), next, point);
        if (status == RTNONE) break;
        if (status == RTKWORD) {
            if (picked.size() > 1) picked.pop_back();
            redrawAndFlush();
            for (size_t k = 1; k < picked.size(); ++k) acedGrDraw(picked[k - 1], picked[k], 7, 0);
            continue;
        }
        if (status != RTNORM) return false;
        acedGrDraw(picked.back(), point, 7, 0);
        picked.push_back(point);
    }
    for (const Point3d& p : picked) points.push_back({p.x, p.y});
    redrawAndFlush();
    return true;
}

std::vector<Cell> GridEditor::cellsOnFence(const std::vector<Point2d>& points) const
{
    std::vector<Cell> cells;
    vorn::Entity fence = polylineOf(points, false);
    CellRange range = rangeOf(workGrid, points);
    for (int i = range.i0; i <= range.i1; ++i)
        for (int j = range.j0; j <= range.j1; ++j)
            if (curvesIntersect(polylineOf(cellOutline(workGrid, i, j), true), fence)) cells.push_back({i, j});
    return cells;
}

std::vector<Cell> GridEditor::cellsInPolygon(const std::vector<Point2d>& points, bool crossing) const
{
    std::vector<Cell> cells;
    vorn::Entity polygon = polylineOf(points, true);
    CellRange range = rangeOf(workGrid, points);
    for (int i = range.i0; i <= range.i1; ++i) {
        for (int j = range.j0; j <= range.j1; ++j) {
            std::vector<Point2d> outline = cellOutline(workGrid, i, j);
            bool meets = curvesIntersect(polylineOf(outline, true), polygon);
            if (meets ? crossing : pointInPolygon(points, outline[0])) cells.push_back({i, j});
        }
    }
    return cells;
}

void GridEditor::assign()
{
    double sum = 0.0;
    int count = 0;
    for (const Cell& cell : selection) {
        double v = 0.0;
        if (!workGrid.getValueChecked(cell.first, cell.second, v)) continue;
        sum += v;
        ++count;
    }
    double average = count > 0 ? sum / count : 0.0;
    acutPrintf("\nAverage value at the %d cells is: %f.", static_cast<int>(selection.size()), average);
    double value = average;
    std::string prompt = vorn::formatString("\nChange %d selected cell values to <%f>:", static_cast<int>(selection.size()), average);
    int status = acedGetReal(prompt.c_str(), value);
    if (status == RTNONE) value = average;
    else if (status != RTNORM) return;
    for (const Cell& cell : selection) {
        workGrid.setValue(cell.first, cell.second, value);
        setEntityColorLayer(cellEntity(cell), colorOfValue(value), "");
    }
    acutPrintf("\n%d grid cells are assigned to %f.", static_cast<int>(selection.size()), value);
    modified = true;
}

void GridEditor::newSelection()
{
    for (const Cell& cell : selection) highlightEntity(cellEntity(cell), false);
    selection.clear();
    selected.clear();
    acutPrintf("\nNew selection begins ...");
}

bool GridEditor::finish(myGrid& grid)
{
    acedSSFree(dragSet);
    eraseIds(cellIds, false);
    eraseIds({dragPoint}, true);
    bool accept = false;
    if (modified) {
        acedInitGet(0, "YES,Y NO,N");
        std::string answer;
        int status = acedGetKword("\nGrid values modified, accept the changes?<YES>:", answer);
        accept = status != RTCAN && !vorn::iequals(answer, "NO");
    }
    if (accept) {
        grid.copyGeometry(workGrid, true);
        return true;
    }
    acutPrintf("\nExit grid editor without changes.");
    return false;
}

}  // namespace

int trackGridCursor(const Point3d& cursor, double matrix[4][4])
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c) matrix[r][c] = r == c ? 1.0 : 0.0;
    matrix[0][3] = cursor.x;
    matrix[1][3] = cursor.y;
    matrix[2][3] = cursor.z;
    if (!trackedGrid) return RTNORM;
    int i = -1, j = -1;
    trackedGrid->getCellOfPoint({cursor.x, cursor.y}, i, j);
    if (i < 0 || j < 0) return RTNORM;
    acedRedraw();
    std::vector<Point2d> c = cellOutline(*trackedGrid, i, j);
    auto at = [&c](int k) { return Point3d{c[k].x, c[k].y, 0.0}; };
    for (int k = 0; k < 4; ++k) acedGrDraw(at(k), at((k + 1) % 4), -1, 0);
    acedGrDraw(at(0), at(2), -1, 0);
    acedGrDraw(at(1), at(3), -1, 0);
    acedGrText(-1, vorn::formatString("Cell(%d,%d) Value: %.2f", i, j, trackedGrid->getValue(i, j)).c_str(), 0);
    return RTNORM;
}

bool editGrid(myGrid& grid)
{
    GridEditor editor(grid);
    return editor.run(grid);
}

void editGridFile(const std::string& path)
{
    if (path.empty()) return;
    myGrid grid;
    if (!grid.readGrd(path, 1)) {
        acutPrintf("\nCan not load grid file: %s", path.c_str());
        return;
    }
    if (!editGrid(grid)) return;
    grid.writeGrd(path);
    acutPrintf("\nSaved grid to %s.", path.c_str());
}
