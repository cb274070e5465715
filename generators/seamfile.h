// The seam file for the outside pre-processor: a header line and a text map
// of one-character element codes, top row of the plan first.
#pragma once

#include <string>

#include "grid/grid.h"

struct SeamCodes {
    char pillar = 'A';
    char entry = '1';
    char gob = 'S';
};

// The code of a cell value: gob below -1e-10, pillar above 1e-10, else entry.
char seamCode(double value, const SeamCodes& codes);

// Writes "nx,ny,x,y" (the origin is the grid's corner (0,0)), then the rows
// from j = ny - 1 down to 0, each of nx codes; CR LF line ends. The file is
// written under a temporary name in its folder and renamed over the target
// when complete. False when it cannot be written; the target is untouched.
bool writeSeamFile(const std::string& path, const myGrid& grid, const SeamCodes& codes);
