// A drawing's entities as GIS vector features through GDAL/OGR: closed
// curves, regions, hatches, solids and faces as polygons (holes kept),
// open curves as lines, points and texts as points. Each feature carries
// its layer, its entity type, its colour index (a colour "by layer"
// resolved to the layer's) and its extended data as text, so that a
// hatched stability map opens in a GIS with its classes.
#pragma once

#include <string>
#include <vector>

#include "drawing/database_port.h"
#include "drawing/entity_types.h"

namespace vorn {

struct VectorExportCounts {
    int polygons = 0;
    int lines = 0;
    int points = 0;
};

// The OGR driver for an output name: .gpkg, .shp, .geojson/.json; "" else.
std::string vectorDriverOfName(const std::string& path);

// Writes the entities on the layers named in `onlyLayers` (all when empty)
// to `path`. GeoPackage gets the layers "polygons", "lines" and "points";
// a shapefile set gets PATH for polygons and PATH_lines.shp,
// PATH_points.shp beside it; GeoJSON one collection of mixed features.
// False with the cause in `error`.
bool exportVectors(const std::vector<Entity>& entities, const std::vector<LayerRecord>& layers,
                   const std::vector<std::string>& onlyLayers, const std::string& path, VectorExportCounts& counts,
                   std::string& error);

// The extended data of an entity as one line: "APP: value, value; APP2: ...".
std::string xdataText(const ResultBuffer& xdata);

}  // namespace vorn
