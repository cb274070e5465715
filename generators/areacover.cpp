#include "generators/areacover.h"

#include <cmath>

double minAreaThreshold(const myGrid& grid, bool areaBased, int percent)
{
    return areaBased ? grid.xCellW * grid.yCellW * percent * 0.01 : 0.5;
}

void AreaCover::setPolygon(const std::vector<vorn::Point2d>& polygon)
{
    polygon_.assign(polygon.begin(), polygon.end());
    clip_.setPolygon(polygon_);
}

double AreaCover::areaInCell(const myGrid& grid, int i, int j)
{
    cellOutline(grid, i, j, cell_);
    return clip_.areaInside(cell_);
}

bool AreaCover::centreInside(const myGrid& grid, int i, int j) const
{
    return pointInPolygon(polygon_, cellCentre(grid, i, j));
}

namespace {
template <class CellStep>
void forEachWindowCell(const CellWindow& window, CellStep step)
{
    for (int j = window.jLow; j <= window.jHigh; ++j)
        for (int i = window.iLow; i <= window.iHigh; ++i) step(i, j);
}
}  // namespace

void AreaCover::addArea(myGrid& grid, const CellWindow& window, double threshold)
{
    forEachWindowCell(window, [&](int i, int j) {
        if (grid.values[i][j] < threshold) grid.values[i][j] += areaInCell(grid, i, j);
    });
}

void AreaCover::markCentresBelow(myGrid& grid, const CellWindow& window, double threshold)
{
    forEachWindowCell(window, [&](int i, int j) {
        if (grid.values[i][j] < threshold && centreInside(grid, i, j)) grid.values[i][j] = 1.0;
    });
}

void AreaCover::markCentresNotAbove(myGrid& grid, const CellWindow& window, double threshold)
{
    forEachWindowCell(window, [&](int i, int j) {
        if (!(grid.values[i][j] > threshold) && centreInside(grid, i, j)) grid.values[i][j] = 1.0;
    });
}

void AreaCover::subtractArea(myGrid& grid, const CellWindow& window)
{
    forEachWindowCell(window, [&](int i, int j) {
        if (!(grid.values[i][j] > 0.0)) grid.values[i][j] -= areaInCell(grid, i, j);
    });
}

void AreaCover::markGobCentres(myGrid& grid, const CellWindow& window)
{
    forEachWindowCell(window, [&](int i, int j) {
        if (!(std::fabs(grid.values[i][j]) > 0.0) && centreInside(grid, i, j)) grid.values[i][j] = -1.0;
    });
}

void applyInsideOutside(myGrid& grid, double threshold, double inside, double outside)
{
    for (int i = 0; i < grid.xNum; ++i)
        for (int j = 0; j < grid.yNum; ++j) grid.values[i][j] = grid.values[i][j] >= threshold ? inside : outside;
}

void classifyPillarCells(myGrid& grid, double threshold)
{
    for (int i = 0; i < grid.xNum; ++i)
        for (int j = 0; j < grid.yNum; ++j) grid.values[i][j] = grid.values[i][j] >= threshold ? 1.0 : 0.0;
}

void classifyGobCells(myGrid& grid, double threshold)
{
    for (int i = 0; i < grid.xNum; ++i) {
        for (int j = 0; j < grid.yNum; ++j) {
            double& v = grid.values[i][j];
            if (v <= -threshold)
                v = -1.0;
            else if (v < 0.0)
                v = 0.0;
        }
    }
}
