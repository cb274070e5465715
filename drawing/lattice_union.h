// The union of many cells of a regular lattice as one region, in one pass
// over the lattice: the outline is traced along the cell edges that part
// member cells from the others, so the cost grows with the cells and not
// with the number of unions. It covers exactly the member cells, as
// uniting the cell regions one by one (or by halving) would.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "drawing/entity_types.h"

// The cells (i, j), 0 <= i < nx, 0 <= j < ny, whose label
// (labels[i * ny + j]) equals `label`, as a region. `node(i, j)` places
// the lattice node (i, j); cell (i, j) has the corners (i, j), (i+1, j),
// (i+1, j+1), (i, j+1), counter-clockwise. Outer rings run
// counter-clockwise and holes clockwise; nodes where the outline runs
// straight on are left out, and two member cells that meet only at a
// corner lie on separate rings. No member cell gives an empty region.
vorn::Region uniteLatticeCells(int nx, int ny, const std::vector<std::int32_t>& labels, std::int32_t label,
                               const std::function<vorn::Point2d(int i, int j)>& node);
