// The colour schema: default tables from a range, the value-to-group search
// and the shared continuous palette.
#include <gtest/gtest.h>

#include <vector>

#include "grid/colorschema.h"
#include "grid/grid.h"

namespace {

std::vector<double> breaksOf(const ColorTable& table)
{
    std::vector<double> result;
    for (const vorn::Point2& entry : table) result.push_back(entry.x);
    return result;
}

std::vector<double> steps(double from, double step, int count)
{
    std::vector<double> result;
    for (int k = 0; k < count; ++k) result.push_back(from + k * step);
    return result;
}

struct RangeCase {
    const char* name;
    double a, b;
    int groups;
    std::vector<double> breaks;
};

const RangeCase rangeCases[] = {
    {"a flat range becomes 0 to 10", 5.0, 5.0, 10, steps(0.0, 1.0, 11)},
    {"0 to 105 rounds the interval down to 10", 0.0, 105.0, 10, steps(0.0, 10.0, 11)},
    {"0 to 95 keeps the interval 9.5", 0.0, 95.0, 10, steps(0.0, 9.5, 11)},
    {"the bounds may come in either order", 95.0, 0.0, 10, steps(0.0, 9.5, 11)},
    {"no groups asked means two", 0.0, 4.0, 0, {0.0, 2.0, 4.0}},
    {"rounding can give more groups than asked", 0.0, 215.0, 20, steps(0.0, 10.0, 22)},
    {"the top break can lie below the maximum", 3.0, 250.0, 10, steps(3.0, 24.0, 11)},
};

TEST(ColorSchema, SetRangeBreaks)
{
    for (const RangeCase& c : rangeCases) {
        CColorRainbow model;
        model.setRange(c.a, c.b, c.groups);
        EXPECT_EQ(breaksOf(model.getTable()), c.breaks) << c.name;
    }
}

TEST(ColorSchema, DefaultColorsSpreadOverTheRainbowAndTheLastEntryTakesTheFirst)
{
    CColorRainbow ten;
    ten.setRange(0.0, 100.0, 10);
    const ColorTable& table = ten.getTable();
    ASSERT_EQ(table.size(), 11u);
    for (int k = 0; k < 10; ++k) EXPECT_EQ(table[k].y, kRainbowColors[k]) << k;
    EXPECT_EQ(table[10].y, kRainbowColors[0]);

    CColorRainbow three;
    three.setRange(0.0, 3.0, 3);
    EXPECT_EQ(three.groupColors(), (std::vector<unsigned>{174, 210, 50}));

    CColorRainbow empty;
    EXPECT_EQ(empty.getTable().size(), 11u) << "an empty model takes 0 to 100 in ten groups";
}

TEST(ColorSchema, ValueToGroupAndColor)
{
    myGrid grid;
    grid.setColorTable({{0.0, 1.0}, {10.0, 2.0}, {20.0, 3.0}, {30.0, 4.0}});
    struct {
        double value;
        int group;
        int color;
    } const cases[] = {{-5.0, 0, 1}, {0.0, 0, 1}, {9.99, 0, 1}, {10.0, 1, 2}, {25.0, 2, 3}, {30.0, 2, 3}, {1e9, 2, 3}};
    for (const auto& c : cases) {
        EXPECT_EQ(grid.getValueGroup(c.value), c.group) << c.value;
        EXPECT_EQ(grid.getValueColor(c.value), c.color) << c.value;
    }
    EXPECT_EQ(grid.getGroupCount(), 3);
    EXPECT_EQ(grid.getGroupColor(-4), 2) << "abs(g) % groups";
    EXPECT_EQ(grid.getGroupBreak(5), 10.0) << "k % entries";

    myGrid bare;
    EXPECT_EQ(bare.getValueGroup(1.0), -1) << "no table is built for the group search";
}

TEST(ColorSchema, DefaultTableOfAGridUsesFloorAndCeilOfItsCells)
{
    myGrid grid;
    grid.setup(3, 3, 1.0, 1.0, 0.0);
    grid.setAll(5.0);
    grid.setValue(3, 3, 999.0);  // outside the cells: not looked at
    EXPECT_EQ(grid.getGroupCount(), 10);
    EXPECT_EQ(grid.getGroupBreak(10), 10.0) << "a flat grid is coloured over 0 to 10";

    grid.setValue(0, 0, 0.4);
    grid.setValue(1, 1, 104.2);
    grid.buildDefaultColors();
    EXPECT_EQ(breaksOf(grid.getColorTable()), steps(0.0, 10.0, 11)) << "0 to 105";
}

TEST(ColorSchema, SharedPalette)
{
    setColorRange(0.0, 90.0, false);
    EXPECT_EQ(colorOfValue(-1.0), 100);
    EXPECT_EQ(colorOfValue(0.0), 100);
    EXPECT_EQ(colorOfValue(15.0), 90);
    EXPECT_EQ(colorOfValue(90.0), 10);
    EXPECT_EQ(colorOfValue(1000.0), 10);
    setColorRange(0.0, 50.0, true);
    EXPECT_EQ(colorOfValue(0.0), 255);
    EXPECT_EQ(colorOfValue(50.0), 250);
    setColorRange(7.0, 7.0, false);
    EXPECT_EQ(colorOfValue(7.0), 7) << "no range";
}

}  // namespace
