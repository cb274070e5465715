// Plan boxes of a list of objects in an R-tree, so that a pair test that
// needs the two boxes to meet visits only the neighbours of each object
// instead of every later one.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "drawing/geom_types.h"

namespace vorn {

class ExtentsIndex {
public:
    // Indexes the boxes in plan, each widened by a margin of 1e-6 plus 1e-9
    // of its largest coordinate so that a box that only touches another
    // within the geometry's tolerances still meets it. Empty boxes are left
    // out and meet nothing.
    explicit ExtentsIndex(const std::vector<Extents3d>& boxes);
    ~ExtentsIndex();
    ExtentsIndex(const ExtentsIndex&) = delete;
    ExtentsIndex& operator=(const ExtentsIndex&) = delete;

    // The indices after `index` whose boxes meet its box, in ascending order.
    std::vector<std::size_t> laterMeeting(std::size_t index) const;

private:
    struct Tree;
    std::unique_ptr<Tree> tree_;
};

}  // namespace vorn
