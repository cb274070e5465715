// Uniting many regions into one. Uniting them one at a time into a growing
// region costs a pass over the growing outline for every member, which is
// quadratic for the thousands of small pieces of a coloured grid; uniting
// them in pairs, then the pairs in pairs (halving), gives the same region
// with each piece handled about log2(n) times.
#pragma once

#include <functional>
#include <vector>

#include "drawing/entity_types.h"

// Unites the regions of `regions` into `regions.front()` by halving through
// the platform's region union; the others are consumed and the list keeps
// the one result. `interrupted` is asked after each union; when it answers
// true the work stops, the list holds what stands, and the answer is false.
// An empty list gives true and stays empty.
bool uniteRegionsByHalving(std::vector<vorn::Entity>& regions, const std::function<bool()>& interrupted = {});

