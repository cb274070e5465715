// The colour table members of myGrid: value to group and colour, the
// default table and the colour schema panel on it.
#include <cmath>
#include <cstdlib>

#include "base/report.h"
#include "grid/colorschema.h"
#include "grid/grid.h"

int myGrid::getGroupCount()
{
    if (colorBreaks.empty()) buildDefaultColors();
    return static_cast<int>(colorBreaks.size()) - 1;
}

int myGrid::getGroupColor(int g)
{
    if (colorBreaks.empty()) buildDefaultColors();
    int groups = static_cast<int>(colorBreaks.size()) - 1;
    if (groups <= 0) return static_cast<int>(colorBreaks.empty() ? 7.0 : colorBreaks[0].y);
    return static_cast<int>(colorBreaks[std::abs(g) % groups].y);
}

int myGrid::getValueGroup(double value) const
{
    const int n = static_cast<int>(colorBreaks.size());
    if (n == 0) return -1;
    for (int k = 1; k <= n - 2; ++k) {
        if (colorBreaks[k].x > value) return k - 1;
    }
    return n - 2;
}

int myGrid::getValueColor(double value)
{
    if (colorBreaks.empty()) buildDefaultColors();
    int group = getValueGroup(value);
    return static_cast<int>(colorBreaks[group < 0 ? 0 : group].y);
}

double myGrid::getGroupBreak(int k) const
{
    if (colorBreaks.empty()) return 0.0;
    return colorBreaks[static_cast<size_t>(std::abs(k)) % colorBreaks.size()].x;
}

void myGrid::buildDefaultColors()
{
    double min = 0.0;
    double max = 0.0;
    getMinMax(min, max);
    CColorRainbow model;
    model.setRange(std::floor(min), std::ceil(max), 10);
    colorBreaks = model.getTable();
}

void myGrid::editColors()
{
    if (colorBreaks.empty()) buildDefaultColors();
    CColorRainbow panel;
    panel.setTable(colorBreaks);
    if (panel.DoModal() == IDOK) colorBreaks = panel.getTable();
}
