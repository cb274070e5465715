// A grid as a coloured raster in its true place and rotation: each cell in
// the colour of its group in the grid's colour table, "N" cells
// transparent, with an optional legend of the colour groups, contour lines
// and the plan drawn over it. The picture for a report.
#pragma once

#include <string>

#include "pictures/picture.h"
#include "pictures/plan_render.h"

class myGrid;

namespace vorn {

struct GridPictureOptions {
    enum class Colors { Default, BlackWhite, File } colors = Colors::Default;
    std::string colorFile;        // "break,colour index" lines, rising breaks
    bool legend = false;
    double contourInterval = 0.0;  // 0: no contours
    const PlanContent* plan = nullptr;
    int width = 1600;
};

// Sets the grid's colour table as the options ask: the default table of
// ten groups, the same breaks in greys, or a table read from a file.
bool applyColors(myGrid& grid, const GridPictureOptions& options, std::string& error);

bool renderGrid(myGrid& grid, const GridPictureOptions& options, const std::string& path, std::string& error);

}  // namespace vorn
