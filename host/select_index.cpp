#include "host/select_index.h"

#include <iterator>

#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>

namespace bg = boost::geometry;
namespace bgi = boost::geometry::index;

namespace vorn::host {

namespace {
using BoxPoint = bg::model::point<double, 2, bg::cs::cartesian>;
using Box = bg::model::box<BoxPoint>;
using Value = std::pair<Box, std::uint64_t>;

Box toBox(const PlanBox& b) { return Box{BoxPoint{b.minX, b.minY}, BoxPoint{b.maxX, b.maxY}}; }
}  // namespace

struct SpatialIndex::Tree {
    bgi::rtree<Value, bgi::quadratic<16>> rtree;
};

SpatialIndex::SpatialIndex() : tree_(std::make_unique<Tree>()) {}
SpatialIndex::~SpatialIndex() = default;
SpatialIndex::SpatialIndex(SpatialIndex&&) noexcept = default;
SpatialIndex& SpatialIndex::operator=(SpatialIndex&&) noexcept = default;

void SpatialIndex::insert(ObjectId id, const PlanBox& box) { tree_->rtree.insert(Value{toBox(box), id.value}); }

void SpatialIndex::remove(ObjectId id, const PlanBox& box) { tree_->rtree.remove(Value{toBox(box), id.value}); }

void SpatialIndex::rebuild(const std::vector<std::pair<PlanBox, ObjectId>>& entries)
{
    std::vector<Value> values;
    values.reserve(entries.size());
    for (const auto& [box, id] : entries) values.push_back({toBox(box), id.value});
    tree_->rtree = bgi::rtree<Value, bgi::quadratic<16>>(values);
}

std::vector<ObjectId> SpatialIndex::query(const PlanBox& box) const
{
    std::vector<Value> found;
    tree_->rtree.query(bgi::intersects(toBox(box)), std::back_inserter(found));
    std::vector<ObjectId> ids;
    ids.reserve(found.size());
    for (const Value& v : found) ids.push_back(ObjectId{v.second});
    return ids;
}

std::size_t SpatialIndex::size() const { return tree_->rtree.size(); }

}  // namespace vorn::host
