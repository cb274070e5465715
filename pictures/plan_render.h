// The drawing as a plan picture: every entity kind the host keeps, on the
// layers that are on and thawed, in the CAD colours, fitted to the extents
// or to a window, with a scale bar and a north arrow.
#pragma once

#include <string>
#include <vector>

#include "drawing/database_port.h"
#include "drawing/entity_types.h"
#include "pictures/picture.h"

namespace vorn {

struct PlanPictureOptions {
    std::vector<std::string> layers;  // only these layers (any case); all when empty
    Window window;                    // empty: the extents of what is drawn
    int width = 1600;                 // pixels
    bool blackBackground = false;
};

// What a plan picture draws: the entities of model space in their order,
// the layer table and the multi-line styles.
struct PlanContent {
    std::vector<Entity> entities;
    std::vector<LayerRecord> layers;
    std::vector<MlineStyle> mlineStyles;
};

// The extents of the entities on the shown layers (`onlyLayers`: all when empty).
Window planExtents(const PlanContent& plan, const std::vector<std::string>& onlyLayers);

// Draws the entities onto a picture fitted to its window (used for plans on
// their own and over grids).
void drawEntities(const Picture& picture, const PlanContent& plan, const std::vector<std::string>& onlyLayers);

// Writes the plan picture to `path` (PNG, SVG or PDF by extension).
bool renderPlan(const PlanContent& plan, const PlanPictureOptions& options, const std::string& path, std::string& error);

}  // namespace vorn
