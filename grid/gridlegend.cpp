// The two legends: of a grid (with group percentages) and of a colour table
// alone. Both are a column of solid hatched boxes, one per colour group,
// with the value breaks beside them, placed by two picked corners.
#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/create.h"
#include "drawing/database_port.h"
#include "drawing/drag.h"
#include "drawing/drawing_helpers.h"
#include "drawing/editor_port.h"
#include "drawing/platform.h"
#include "grid/grid.h"
#include "grid/gridplot.h"

using vorn::ObjectId;
using vorn::Point2d;
using vorn::Point3d;

namespace {

// What a legend shows: n groups with colours and breaks (break n on top),
// and the groups' shares when they were counted.
struct LegendContent {
    int groups = 0;
    std::function<int(int)> colorOf;
    std::function<double(int)> breakOf;
    std::vector<double> shares;
    int precision = -1;
    std::string layer;
};

struct LegendBox {
    Point3d lower;
    Point3d upper;
    double rowHeight = 0.0;
};

// The two corners, ordered and in world coordinates. False on a cancel or
// a degenerate pair (`degenerate` set for the latter).
bool pickLegendBox(int groups, LegendBox& box, bool& degenerate)
{
    degenerate = false;
    Point3d first, second;
    if (acedGetPoint(nullptr, "\nPick a Position Point:", first) != RTNORM) return false;
    if (acedGetCorner(first, "\nPick Another Corner Point:", second) != RTNORM) return false;
    Point3d lower{std::min(first.x, second.x), std::min(first.y, second.y), 0.0};
    Point3d upper{std::max(first.x, second.x), std::max(first.y, second.y), 0.0};
    acdbUcs2Wcs(lower, box.lower);
    acdbUcs2Wcs(upper, box.upper);
    box.rowHeight = (box.upper.y - box.lower.y) / groups;
    degenerate = std::fabs(box.upper.x - box.lower.x) < 1e-10 || std::fabs(box.rowHeight) < 1e-10;
    return !degenerate;
}

ObjectId addText(const Point3d& position, double height, const std::string& text, const std::string& layer)
{
    vorn::Entity entity;
    entity.shape = vorn::Text{position, height, 0.0, text};
    entity.common.colorIndex = vorn::kColorByLayer;
    entity.common.layer = layer.empty() ? vorn::platform().database->currentLayer() : layer;
    ObjectId id;
    return appendToModelSpace(id, entity) == vorn::eOk ? id : ObjectId{};
}

std::string breakText(double value, int precision)
{
    std::string text;
    acdbRToS(value, -1, precision, text);
    return text;
}

std::vector<ObjectId> drawLegend(const LegendContent& content, const LegendBox& box)
{
    std::vector<ObjectId> ids;
    const double h = box.rowHeight;
    const double textX = box.upper.x + 0.33 * h;
    auto keepId = [&ids](ObjectId id) {
        if (id.isValid()) ids.push_back(id);
    };
    for (int g = 0; g < content.groups; ++g) {
        double bottom = box.lower.y + g * h;
        std::vector<Point2d> rectangle = {{box.lower.x, bottom}, {box.upper.x, bottom}, {box.upper.x, bottom + h},
                                          {box.lower.x, bottom + h}};
        ObjectId hatch;
        if (addHatchFromPolygon(hatch, rectangle, content.colorOf(g), content.layer) == vorn::eOk) keepId(hatch);
        keepId(addText({textX, bottom, 0.0}, 0.33 * h, breakText(content.breakOf(g), content.precision), content.layer));
        if (!content.shares.empty()) {
            std::string percent = vorn::formatString("%0.f%%", content.shares[g] * 100.0);
            keepId(addText({textX, bottom + 0.5 * h, 0.0}, 0.33 * h, percent, content.layer));
        }
    }
    keepId(addText({textX, box.lower.y + content.groups * h, 0.0}, 0.33 * h,
                   breakText(content.breakOf(content.groups), content.precision), content.layer));
    return ids;
}

// The Move/Delete/Ok loop. True when the legend stays ("Ok" or Enter).
bool placeLegend(std::vector<ObjectId>& ids, const LegendBox& box)
{
    for (;;) {
        acedInitGet(0, "Move Delete Ok");
        std::string answer;
        int status = acedGetKword("\nEnter an Option [Move/Delete/<Ok>]:", answer);
        if (status == RTNONE || (status == RTNORM && answer.empty()) || answer == "Ok") return true;
        if (status != RTNORM && status != RTKWORD) return true;
        if (answer == "Delete") {
            eraseIds(ids, true);
            ids.clear();
            return false;
        }
        if (answer == "Move") {
            vorn::SelectionSet set;
            for (ObjectId id : ids) acedSSAdd(id, set);
            setDragBase(box.lower, 0.0, 1.0);
            Point3d to;
            if (dragToNewPosition(set, dragMoveCallback, to) == RTNORM) {
                double matrix[4][4];
                dragMoveCallback(to, matrix);
                acedXformSS(set, matrix);
            }
            acedSSFree(set);
        }
    }
}

// Each group's share of the cells that hold a value.
std::vector<double> groupShares(myGrid& grid, int groups)
{
    std::vector<double> counts(static_cast<size_t>(groups), 0.0);
    double total = 0.0;
    std::string text;
    for (int i = 0; i < grid.xNum; ++i) {
        for (int j = 0; j < grid.yNum; ++j) {
            grid.getValueText(i, j, text);
            if (vorn::iequals(text, "N")) continue;
            int g = grid.getValueGroup(grid.values[i][j]);
            if (g >= 0 && g < groups) counts[g] += 1.0;
            total += 1.0;
        }
    }
    for (double& count : counts) count = total > 0.0 ? count / total : 0.0;
    return counts;
}

}  // namespace

void drawGridLegend(myGrid& grid, const std::string& layer, bool makeGroup, std::string& message)
{
    if (!grid.isDefined()) {
        message = "Grid is not defined!";
        return;
    }
    const int groups = grid.getGroupCount();
    if (groups < 1) {
        AfxMessageBox("Invalid grid color group definition!");
        return;
    }
    LegendBox box;
    bool degenerate = false;
    if (!pickLegendBox(groups, box, degenerate)) {
        if (degenerate) message = "Invalid point pair!";
        return;
    }
    acedInitGet(0, "Yes No");
    std::string answer;
    int status = acedGetKword("\nCompute Group Percentage? [No/<Yes>]:", answer);
    if (status == RTCAN || status == RTERROR) return;
    LegendContent content;
    content.groups = groups;
    content.colorOf = [&grid](int g) { return grid.getGroupColor(g); };
    content.breakOf = [&grid](int k) { return grid.getGroupBreak(k); };
    content.layer = layer;
    if (answer != "No") content.shares = groupShares(grid, groups);
    std::vector<ObjectId> ids = drawLegend(content, box);
    if (!placeLegend(ids, box) || !makeGroup) return;
    std::string name;
    addGroup(name, ids, kGridLegendGroupName);
    message = std::string(kGridLegendGroupName) + " is created!";
}

void drawColorLegend(const ColorTable& table, int precision)
{
    if (table.size() < 2) return;
    const int groups = static_cast<int>(table.size()) - 1;
    LegendBox box;
    bool degenerate = false;
    if (!pickLegendBox(groups, box, degenerate)) {
        if (degenerate) acutPrintf("Invalid point pair!");
        return;
    }
    LegendContent content;
    content.groups = groups;
    content.colorOf = [&table](int g) { return static_cast<int>(table[g].y); };
    content.breakOf = [&table](int k) { return table[k].x; };
    content.precision = precision;
    std::vector<ObjectId> ids = drawLegend(content, box);
    if (!placeLegend(ids, box)) return;
    std::string name;
    addGroup(name, ids, kColorLegendGroupName);
}
