// Selection sets and picks of the stand-alone database: candidates come from
// the spatial index, then the filter, visibility and the exact plan figure
// decide.
#include <algorithm>
#include <cmath>

#include "drawing/geometry_curves.h"
#include "drawing/segment_tests.h"
#include "host/db_database.h"
#include "host/select_filter.h"

namespace vorn::host {

namespace {

using Chains = std::vector<std::vector<Point2d>>;

// Even-odd test; points on the boundary count as inside.
bool insidePolygon(const std::vector<Point2d>& polygon, const Point2d& p)
{
    bool inside = false;
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const Point2d& a = polygon[i];
        const Point2d& b = polygon[j];
        if (cross(a, b, p) == 0.0 && withinSpan(a, b, p)) return true;
        if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
    }
    return inside;
}

bool anyEdgeMeets(const std::vector<Point2d>& polygon, const Point2d& a, const Point2d& b)
{
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++)
        if (segmentsMeet(a, b, polygon[j], polygon[i])) return true;
    return false;
}

// Whether two closed segments cross at a single interior point.
bool properlyCross(const Point2d& a, const Point2d& b, const Point2d& c, const Point2d& d)
{
    double d1 = cross(c, d, a), d2 = cross(c, d, b), d3 = cross(a, b, c), d4 = cross(a, b, d);
    return straddle(d1, d2) && straddle(d3, d4);
}

bool whollyInside(const Chains& chains, const std::vector<Point2d>& polygon)
{
    for (const auto& chain : chains) {
        for (const Point2d& p : chain)
            if (!insidePolygon(polygon, p)) return false;
        for (std::size_t k = 1; k < chain.size(); ++k)
            for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++)
                if (properlyCross(chain[k - 1], chain[k], polygon[j], polygon[i])) return false;
    }
    return true;
}

bool crosses(const Chains& chains, const std::vector<Point2d>& polygon)
{
    for (const auto& chain : chains) {
        for (const Point2d& p : chain)
            if (insidePolygon(polygon, p)) return true;
        for (std::size_t k = 1; k < chain.size(); ++k)
            if (anyEdgeMeets(polygon, chain[k - 1], chain[k])) return true;
    }
    return false;
}

std::vector<Point2d> rectangle(const Point2d& a, const Point2d& b)
{
    double x0 = std::min(a.x, b.x), x1 = std::max(a.x, b.x), y0 = std::min(a.y, b.y), y1 = std::max(a.y, b.y);
    return {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
}

PlanBox boxOf(const std::vector<Point2d>& points)
{
    PlanBox box{points[0].x, points[0].y, points[0].x, points[0].y};
    for (const Point2d& p : points) {
        box.minX = std::min(box.minX, p.x);
        box.minY = std::min(box.minY, p.y);
        box.maxX = std::max(box.maxX, p.x);
        box.maxY = std::max(box.maxY, p.y);
    }
    return box;
}

bool boxInside(const PlanBox& inner, const PlanBox& outer)
{
    return inner.minX >= outer.minX && inner.maxX <= outer.maxX && inner.minY >= outer.minY && inner.maxY <= outer.maxY;
}

double distanceToSegment(const Point2d& p, const Point2d& a, const Point2d& b)
{
    double dx = b.x - a.x, dy = b.y - a.y;
    double len2 = dx * dx + dy * dy;
    double t = len2 > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / len2, 0.0, 1.0) : 0.0;
    return std::hypot(p.x - (a.x + dx * t), p.y - (a.y + dy * t));
}

double distanceToChains(const Chains& chains, const Point2d& p)
{
    double best = 1e300;
    for (const auto& chain : chains) {
        if (chain.size() == 1) best = std::min(best, p.distanceTo(chain[0]));
        for (std::size_t k = 1; k < chain.size(); ++k) best = std::min(best, distanceToSegment(p, chain[k - 1], chain[k]));
    }
    return best;
}

bool polygonMode(SelectMode mode) { return mode == SelectMode::WindowPolygon || mode == SelectMode::CrossingPolygon; }

}  // namespace

bool HostDatabase::passesGeometry(const Entity& entity, SelectMode mode, const std::vector<Point2d>& outline, const PlanBox& area) const
{
    bool window = mode == SelectMode::Window || mode == SelectMode::WindowPolygon;
    if (!polygonMode(mode)) {
        // A box wholly inside the window settles both rectangle modes.
        auto box = boxes_.find(entity.common.id.value);
        if (box != boxes_.end() && boxInside(box->second, area)) return true;
        if (window) return false;
    }
    Chains chains = planOutline(entity);
    return window ? whollyInside(chains, outline) : crosses(chains, outline);
}

std::vector<ObjectId> HostDatabase::select(const SelectionQuery& query) const
{
    SelectionFilter filter(query.filter);
    std::vector<ObjectId> result;
    if (!filter.supported()) return result;
    if (query.mode == SelectMode::All) {
        for (ObjectId id : order_)
            if (!isErased(id) && filter.matches(entities_.at(id.value))) result.push_back(id);
        return result;
    }
    std::size_t needed = polygonMode(query.mode) ? 3 : 2;
    if (query.points.size() < needed) return result;
    // The query figure and its box are the same for every candidate.
    std::vector<Point2d> outline = polygonMode(query.mode) ? query.points : rectangle(query.points[0], query.points[1]);
    PlanBox area = boxOf(outline);
    syncIndex();
    for (ObjectId id : index_.query(area)) {
        if (isErased(id)) continue;
        const Entity& entity = entities_.at(id.value);
        if (entityVisible(entity) && filter.matches(entity) && passesGeometry(entity, query.mode, outline, area)) result.push_back(id);
    }
    std::sort(result.begin(), result.end());
    return result;
}

std::vector<ObjectId> HostDatabase::entitiesNear(const Point2d& point, double aperture) const
{
    std::vector<std::pair<double, ObjectId>> found;
    PlanBox box{point.x - aperture, point.y - aperture, point.x + aperture, point.y + aperture};
    syncIndex();
    for (ObjectId id : index_.query(box)) {
        if (isErased(id)) continue;
        const Entity& entity = entities_.at(id.value);
        if (!entityVisible(entity)) continue;
        double distance = distanceToChains(planOutline(entity), point);
        if (distance <= aperture) found.push_back({distance, id});
    }
    std::sort(found.begin(), found.end());
    std::vector<ObjectId> ids;
    for (const auto& [distance, id] : found) ids.push_back(id);
    return ids;
}

}  // namespace vorn::host
