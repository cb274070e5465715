// The nearest of a set of names to a mistyped one, for "did you mean" hints.
#pragma once

#include <string>
#include <vector>

namespace vorn {

// The name closest to `typed` by edit distance, case ignored; a name that
// starts with `typed` counts as close. "" when nothing is close enough to be
// a likely slip (more than a third of the letters wrong).
std::string nearestName(const std::string& typed, const std::vector<std::string>& names);

}  // namespace vorn
