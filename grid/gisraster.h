// Grids in the raster formats of GIS tools, through GDAL: GeoTIFF (.tif),
// ESRI ASCII grids (.asc) and Surfer grids (.grd in Surfer 6 text, Surfer 6
// binary or Surfer 7 form, told from the system's own .grd by their first
// bytes).
//
// The lattice maps node for pixel: node (i, j) of a grid is the centre of
// the raster pixel in column i and row yNum - j (rows run north to south),
// so a raster has xNum + 1 columns and yNum + 1 rows. The grid's rotation
// goes into the geotransform; NULL_VALUE cells ("N" in a .grd) are the
// raster's nodata. The title travels as the raster's description where the
// format keeps one.
#pragma once

#include <string>

class myGrid;

namespace vorn {

enum class RasterFormat { None, GeoTiff, EsriAscii, SurferText, SurferBinary, Surfer7 };

// The GIS format of an existing file: by extension for .tif/.tiff/.asc, by
// the header for a .grd ("DSAA", "DSBB", "DSRB"); None for the system's own
// .grd, a .top and everything else.
RasterFormat rasterFormatOfFile(const std::string& path);

// The format a name asks for when written: .tif/.tiff and .asc; None else
// (a .grd is the system's own unless a Surfer form is asked for by name).
RasterFormat rasterFormatOfName(const std::string& path);

// "surfer-text", "surfer-binary", "surfer7": a Surfer form; None else.
RasterFormat surferFormatNamed(const std::string& name);

// Reads a raster into `grid`. False with the cause in `error`.
bool readRaster(const std::string& path, myGrid& grid, std::string& error);

// Writes the nodes of `grid` as a raster, whole or not at all (a temporary
// file renamed over the target). False with the cause in `error`, for
// example a rotated lattice in a format that cannot hold rotation.
bool writeRaster(const myGrid& grid, const std::string& path, RasterFormat format, std::string& error);

// Reads a grid file of any kind the command line takes: a GIS raster by
// `rasterFormatOfFile`, else the system's own reader chosen by the name.
// On a failure of a GIS read the cause is shown in a message box.
bool readAnyGrid(myGrid& grid, const std::string& path);

}  // namespace vorn
