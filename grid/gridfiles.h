// Choosing a grid reader by the file's name, as the grid panels do.
#pragma once

#include <string>

class myGrid;

namespace vorn {

enum class GridFileKind { Grd, Top, Unknown };

// The lower-cased path holding ".grd" at a position other than the first is
// a .grd file; one holding ".top" or ".f" a .top file; anything else unknown.
GridFileKind gridFileKindOf(const std::string& path);

// Reads `path` with the reader its name calls for; an unknown name shows
// "Unknown grid file !" and gives false.
bool readGridByName(myGrid& grid, const std::string& path, int loadValues);

}  // namespace vorn
