#include "generators/points_tab.h"

#include <algorithm>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/database_port.h"
#include "drawing/platform.h"
#include "drawing/polygon.h"
#include "drawing/prompts.h"
#include "drawing/selection.h"
#include "drawing/tempgraphics.h"
#include "grid/colorschema.h"

using vorn::formatString;
using vorn::PanelControl;
using vorn::Point3d;

void CPointsTab::OnInitDialog()
{
    output.reset(drawingFolder() + "Untitled.grd");
    layers.fill();
}

std::vector<PanelControl> CPointsTab::pageControls()
{
    using namespace vorn;
    auto [draw, save] = drawAndSaveButtons([this] { OnDrawGrid(); });
    return {
        editControl("Output File (.grd) :", output.text, [this] { output.onEdited(); }),
        buttonControl("Pick a file", [this] { output.pick(); }),
        // Selecting layers clears the file choice, and the reverse.
        layers.listControl("Define Point Layers", [this] { fromExternalFile = false; }),
        layers.joinedControl("Selected Layers"),
        buttonControl("Pick a Layer", [this] {
            OnPickLayer();
            if (!layers.joined.empty()) fromExternalFile = false;
        }),
        checkControl("From External File", fromExternalFile, [this] {
            if (fromExternalFile) layers.clear();
        }),
        radioControl("Simple Average", simpleAverage, [this] { inverseDistance = !simpleAverage; }),
        radioControl("Inverse Distance", inverseDistance, [this] { simpleAverage = !inverseDistance; }),
        editControl("Min. Points:", minPointsText),
        editControl("Max. Search R (%):", maxSearchText),
        editControl("Grid Title", titleText),
        buttonControl("< &Build Grid", [this] { OnBuildGrid(); }),
        draw,
        save,
    };
}

void CPointsTab::OnDrawGrid()
{
    if (!built) return;
    hideMainDialog();
    grid_.plotCodes(2);
    showMainDialog(true);
}

bool CPointsTab::writeGrid(const std::string& path)
{
    grid_.setTitle(titleText);
    return grid_.writeGrd(path);
}

// Points are entities' positions, and samples every dx along curves.
bool CPointsTab::gatherFromDrawing(std::vector<Point3d>& points)
{
    if (layers.joined.empty()) {
        AfxMessageBox("No layer is selected!");
        return false;
    }
    vorn::SelectionSet set;
    if (selectByLayer(set, layers.joined, {}, kSurveyPointTypes) < 1) {
        AfxMessageBox("No related point objects in specified layers!");
        return false;
    }
    vorn::DatabasePort& db = *vorn::platform().database;
    const double step = grid_.xCellW;
    for (vorn::ObjectId id : set.ids) {
        vorn::Entity entity;
        if (db.readEntity(id, entity) != vorn::eOk) continue;
        if (const auto* point = entity.as<vorn::PointEntity>()) {
            points.push_back(point->position);
            continue;
        }
        Point3d end;
        double length = 0.0;
        if (db.getEndPoint(entity, end) != vorn::eOk || db.getDistAtPoint(entity, end, length) != vorn::eOk) continue;
        for (double d = 0.0; d <= length; d += step) {
            Point3d sample;
            if (db.getPointAtDist(entity, d, sample) == vorn::eOk) points.push_back(sample);
        }
    }
    acedSSFree(set);
    if (points.empty()) {
        AfxMessageBox("No points is available!");
        return false;
    }
    acutPrintf("\n%d points are obtained in layers: %s", static_cast<int>(points.size()), layers.joined.c_str());
    return true;
}

bool CPointsTab::gatherFromFile(std::vector<Point3d>& points)
{
    std::string path;
    if (!pickFileName(true, "txt", path)) return false;
    int cause = 0;
    if (!vorn::readPointFile(path, points, cause)) {
        AfxMessageBox(formatString("Can't open file %s, error = %u\n", path.c_str(), static_cast<unsigned>(cause)));
        return false;
    }
    if (points.empty()) {
        AfxMessageBox(formatString("No point are imported from %s", path.c_str()));
        return false;
    }
    acutPrintf("\n%d point are imported from %s", static_cast<int>(points.size()), path.c_str());
    return true;
}

// Keeps the points inside the outline widened by the search limit (along
// the drawing's axes), and checks that there are enough of them.
bool CPointsTab::filterAndCheck(std::vector<Point3d>& points, double searchLimit)
{
    acutPrintf("\nfiltering the points...");
    std::vector<vorn::Point2d> outline = vorn::worldOutline(grid_);
    const double r = searchLimit;
    const double shifts[4][2] = {{-r, -r}, {r, -r}, {r, r}, {-r, r}};
    for (size_t k = 0; k < 4; ++k) {
        outline[k].x += shifts[k][0];
        outline[k].y += shifts[k][1];
    }
    for (size_t k = points.size(); k-- > 0;)
        if (!pointInPolygon(outline, {points[k].x, points[k].y})) points.erase(points.begin() + static_cast<long>(k));
    if (points.empty()) {
        AfxMessageBox("No points is related!");
        return false;
    }
    const int count = static_cast<int>(points.size());
    if (count < grid_.yCellW * grid_.xNum * 0.5 &&
        AfxMessageBox(formatString("Only %d points for %d grid size!", count, grid_.xNum * grid_.yNum), MB_OKCANCEL) != IDOK)
        return false;
    auto [low, high] = std::minmax_element(points.begin(), points.end(), [](const Point3d& a, const Point3d& b) { return a.z < b.z; });
    if (high->z - low->z <= 1e-10) {
        AfxMessageBox("All points have same z value!");
        return false;
    }
    setColorRange(low->z, high->z, false);
    return true;
}

void CPointsTab::OnBuildGrid()
{
    if (built && !saved && AfxMessageBox("grid is not saved yet! continue to rebuild", MB_OKCANCEL) != IDOK) return;
    built = saved = false;
    int minPoints = 0, percent = 0;
    if (!vorn::readIntegerField(minPointsText, 1, 10, minPoints) ||
        !vorn::readIntegerField(maxSearchText, -2147483647 - 1, 2147483647, percent))
        return;
    if (!defineGrid()) {
        AfxMessageBox("Grid definition error!");
        return;
    }
    std::vector<Point3d> points;
    if (!(fromExternalFile ? gatherFromFile(points) : gatherFromDrawing(points))) return;
    const double searchLimit = grid_.xNum * grid_.xCellW * percent * 0.01;
    if (!filterAndCheck(points, searchLimit)) return;
    hideMainDialog();
    acutPrintf("\nTotal %ld points are in search ranges", static_cast<long>(points.size()));
    acutPrintf("\nGrid(%d X %d) is going to be built from these points!", grid_.xNum, grid_.yNum);
    std::string reply;
    bool cancelled = acedGetString(0, "\n <Enter> key to continue ...", reply) == RTCAN;
    if (!cancelled) {
        acedSetStatusBarProgressMeter("Building grids...", 0, grid_.xNum * grid_.yNum);
        vorn::PointInterpolator interpolator(std::move(points), grid_.xCellW, searchLimit, minPoints);
        cancelled = !runCells(interpolator, simpleAverage ? vorn::PointAverage::Simple : vorn::PointAverage::InverseDistance);
    }
    redrawAndFlush();
    acedRestoreStatusBar();
    if (!cancelled) grid_.plotCodes(2);
    showMainDialog(true);
    built = !cancelled;
    saved = false;
}

// The cell loop, the row and column beyond the lattice included; false
// when the user broke off.
bool CPointsTab::runCells(vorn::PointInterpolator& interpolator, vorn::PointAverage average)
{
    std::vector<int> listed;
    for (int i = 0; i <= grid_.xNum; ++i) {
        for (int j = 0; j <= grid_.yNum; ++j) {
            acedSetStatusBarProgressMeterPos(j + i * grid_.yNum);
            vorn::Point3 c;
            grid_.getCellCentre(i, j, c);
            const Point3d centre{c.x, c.y, c.z};
            interpolator.search(centre, listed);
            if (listed.empty()) {
                acutPrintf("\nCan not find point for cell : %d,%d", i, j);
                continue;
            }
            double value = vorn::pointCellValue(interpolator.points(), listed, centre, average);
            vorn::drawValueCell(grid_, i, j, value);
            grid_.values[static_cast<size_t>(i)][j] = value;
            if (acedUsrBrk()) {
                acutPrintf("\nCanceled by user!");
                return false;
            }
        }
    }
    return true;
}
