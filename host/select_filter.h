// Filter lists of selection sets: entity type (group 0), layer (group 8),
// colour (group 62) and extended data application (-3 with 1001 entries).
// Every entry must hold; an entry's text is a comma list of wildcard
// patterns compared without regard to case.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "drawing/entity_types.h"

namespace vorn::host {

// Wildcards: "*" any run, "?" one character, "#" a digit, "@" a letter, a
// leading "~" negates; "`" takes the next character literally.
bool wildcardMatch(const std::string& pattern, const std::string& text);

// Whether any pattern of a comma list matches.
bool matchesPatternList(const std::string& list, const std::string& text);

class SelectionFilter {
public:
    explicit SelectionFilter(const ResultBuffer& filter);

    // False when the list holds a group code this filter does not know;
    // such a query selects nothing.
    bool supported() const { return supported_; }
    // Conditions on the entity alone (no layer state).
    bool matches(const Entity& entity) const;

private:
    std::vector<std::string> types_;
    std::vector<std::string> layers_;
    std::vector<std::string> applications_;
    std::vector<std::int64_t> colors_;
    bool supported_ = true;
};

}  // namespace vorn::host
