// The topography page's own .top writer: the overburden grid that the
// topographic stress model reads, with a unit factor and unit names. It
// differs from the grid files' writeTop: every line ends in a line feed,
// and values, width and origin are scaled by the factor (12 under feet,
// so the file carries inches; 1 under metres).
#pragma once

#include <string>

class myGrid;

namespace vorn {

// Writes `grid` to `path` through a temporary file in the same folder;
// false (and no file changed) when it cannot be written.
bool writeContourTop(const myGrid& grid, const std::string& path, bool feet);

}  // namespace vorn
