#include "drawing/extents_index.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <boost/iterator/function_output_iterator.hpp>

namespace bg = boost::geometry;
namespace bgi = boost::geometry::index;

namespace vorn {

namespace {

using BoxPoint = bg::model::point<double, 2, bg::cs::cartesian>;
using Box = bg::model::box<BoxPoint>;
using Value = std::pair<Box, std::size_t>;

Box widened(const Extents3d& e)
{
    double largest = std::max({std::fabs(e.minPoint.x), std::fabs(e.minPoint.y), std::fabs(e.maxPoint.x), std::fabs(e.maxPoint.y)});
    double margin = 1e-6 + 1e-9 * largest;
    return Box{BoxPoint{e.minPoint.x - margin, e.minPoint.y - margin}, BoxPoint{e.maxPoint.x + margin, e.maxPoint.y + margin}};
}

}  // namespace

struct ExtentsIndex::Tree {
    bgi::rtree<Value, bgi::rstar<16>> rtree;
    std::vector<Box> boxes;
    std::vector<bool> present;
};

ExtentsIndex::ExtentsIndex(const std::vector<Extents3d>& boxes) : tree_(std::make_unique<Tree>())
{
    std::vector<Value> values;
    for (std::size_t k = 0; k < boxes.size(); ++k) {
        tree_->boxes.push_back(boxes[k].isEmpty() ? Box{} : widened(boxes[k]));
        tree_->present.push_back(!boxes[k].isEmpty());
        if (!boxes[k].isEmpty()) values.push_back({tree_->boxes.back(), k});
    }
    tree_->rtree = bgi::rtree<Value, bgi::rstar<16>>(values);  // packed build
}

ExtentsIndex::~ExtentsIndex() = default;

std::vector<std::size_t> ExtentsIndex::laterMeeting(std::size_t index) const
{
    std::vector<std::size_t> later;
    if (index >= tree_->boxes.size() || !tree_->present[index]) return later;
    tree_->rtree.query(bgi::intersects(tree_->boxes[index]) &&
                           bgi::satisfies([index](const Value& v) { return v.second > index; }),
                       boost::make_function_output_iterator([&later](const Value& v) { later.push_back(v.second); }));
    std::sort(later.begin(), later.end());
    return later;
}

}  // namespace vorn
