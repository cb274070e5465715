// The spatial index of the stand-alone drawing: plan boxes of entities in an
// R-tree, so window, crossing and pick queries visit only the entities near
// the query instead of the whole drawing.
#pragma once

#include <memory>
#include <vector>

#include "drawing/entity_types.h"

namespace vorn::host {

struct PlanBox {
    double minX = 0.0, minY = 0.0, maxX = 0.0, maxY = 0.0;
};

class SpatialIndex {
public:
    SpatialIndex();
    ~SpatialIndex();
    SpatialIndex(const SpatialIndex&) = delete;
    SpatialIndex& operator=(const SpatialIndex&) = delete;
    SpatialIndex(SpatialIndex&&) noexcept;
    SpatialIndex& operator=(SpatialIndex&&) noexcept;

    void insert(ObjectId id, const PlanBox& box);
    void remove(ObjectId id, const PlanBox& box);
    // Replaces the content in one packed build (fast for a loaded drawing).
    void rebuild(const std::vector<std::pair<PlanBox, ObjectId>>& entries);
    // Ids whose boxes meet the query box.
    std::vector<ObjectId> query(const PlanBox& box) const;
    std::size_t size() const;

private:
    struct Tree;
    std::unique_ptr<Tree> tree_;
};

}  // namespace vorn::host
