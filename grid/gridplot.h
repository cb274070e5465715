// Plots of a grid beyond the members of myGrid: the column runs that the
// merged plot kinds draw, the legends, and the names of the plot groups.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "drawing/geom_types.h"
#include "grid/colorschema.h"

class myGrid;

// The groups that plots and code views make (numbered when taken).
inline constexpr const char* kGridGroupName = "Vorn_Grid_Group";
inline constexpr const char* kCodeGroupName = "KelGrid";
inline constexpr const char* kGridLegendGroupName = "VORN Grid Lengend";
inline constexpr const char* kColorLegendGroupName = "VORN Lengend";

// The captions of the plot kinds in the list "Type:" and the words of the
// messages, by plotType.
inline constexpr const char* kPlotKindCaptions[8] = {"Polygons", "Points", "Faces", "Solids",
                                                     "Splines", "3d Lines", "Hatchs", "Hatched Regions"};
inline constexpr const char* kPlotKindWords[8] = {"polygon", "points", "faces", "solids",
                                                  "splines", "3d lines", "Hatchs", "Hatched Regions"};

// A run of cells of one colour in a column: its quadrilateral (lower left,
// lower right, upper right, upper left) and colour.
struct ColumnRun {
    std::vector<vorn::Point2d> corners;
    int color = 0;
};

// Walks the columns i = 0 .. xNum-1, merging cells along j while their
// colour (by the grid's table) stays the same; `flush` gets each run, and
// `columnDone` is asked after each column (false stops the walk).
void forEachColumnRun(myGrid& grid, const std::function<void(const ColumnRun&)>& flush,
                      const std::function<bool()>& columnDone);

// The legend of "< Legend": picks its place, asks for the group
// percentages, draws and offers Move/Delete/Ok. Messages for the panel's
// message line go to `message`.
void drawGridLegend(myGrid& grid, const std::string& layer, bool makeGroup, std::string& message);

// The legend of a colour table alone (at least two entries); texts at the
// given precision, in model space, grouped as "VORN Lengend".
void drawColorLegend(const ColorTable& table, int precision);
