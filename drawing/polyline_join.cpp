#include "drawing/polyline_join.h"

#include <algorithm>
#include <array>

#include "drawing/database_port.h"
#include "drawing/platform.h"
#include "drawing/tempgraphics.h"

using vorn::Entity;
using vorn::LwPolyline;
using vorn::ObjectId;
using vorn::Point3d;
using vorn::PolyVertex;

namespace {

int joinCount = 0;

vorn::DatabasePort* database() { return vorn::platform().database; }

Point3d startOf(const LwPolyline& pl)
{
    const vorn::Point2d& p = pl.vertices.front().point;
    return {p.x, p.y, pl.elevation};
}

// A closed polyline ends where it starts.
Point3d endOf(const LwPolyline& pl)
{
    const vorn::Point2d& p = pl.closed ? pl.vertices.front().point : pl.vertices.back().point;
    return {p.x, p.y, pl.elevation};
}

// The pairs of ends in the order of the modes 1 to 4.
std::array<std::pair<Point3d, Point3d>, 4> endPairs(const LwPolyline& a, const LwPolyline& b)
{
    return {{{startOf(a), startOf(b)}, {startOf(a), endOf(b)}, {endOf(a), startOf(b)}, {endOf(a), endOf(b)}}};
}

int nearestEnds(const LwPolyline& a, const LwPolyline& b)
{
    auto pairs = endPairs(a, b);
    int best = 0;
    for (int m = 1; m < 4; ++m)
        if (pairs[m].first.distanceTo(pairs[m].second) < pairs[best].first.distanceTo(pairs[best].second))
            best = m;
    return best + 1;
}

bool readPolyline(ObjectId id, Entity& out)
{
    return database()->readEntity(id, out) == vorn::eOk && out.as<LwPolyline>();
}

// Tries every other polyline of the list against the seed, erasing those
// added to it; answers whether the seed grew.
bool growSeed(LwPolyline& seed, std::vector<ObjectId>& ids)
{
    bool grew = false;
    for (size_t k = 0; k < ids.size();) {
        Entity other;
        int mode = readPolyline(ids[k], other) ? matchPolylineEnds(seed, *other.as<LwPolyline>()) : -1;
        // The other is erased first: one that cannot be erased (a locked
        // layer) must not be added to the seed as well.
        if (mode < 0 || database()->erase(ids[k]) != vorn::eOk) {
            ++k;
            continue;
        }
        appendPolyline(seed, *other.as<LwPolyline>(), mode);
        ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(k));
        ++joinCount;
        grew = true;
    }
    return grew;
}

// Unites the region at `later` into `merged` when their colours agree; the
// emptied partner is written back and stays in the drawing.
bool uniteSameColor(Entity& merged, ObjectId later)
{
    Entity partner;
    if (database()->readEntity(later, partner) != vorn::eOk || !partner.as<vorn::Region>() ||
        partner.common.colorIndex != merged.common.colorIndex)
        return false;
    if (database()->booleanOper(merged, vorn::BoolOperType::Union, partner) != vorn::eOk)
        return false;
    database()->writeEntity(partner);
    database()->writeEntity(merged);
    flushGraphics();
    return true;
}

}  // namespace

int matchPolylineEnds(const LwPolyline& a, const LwPolyline& b)
{
    if (a.vertices.empty() || b.vertices.empty())
        return -1;
    auto pairs = endPairs(a, b);
    for (int m = 0; m < 4; ++m)
        if (pairs[m].first.isEqualTo(pairs[m].second))
            return m + 1;
    return -1;
}

bool appendPolyline(LwPolyline& a, const LwPolyline& b, int mode)
{
    if (mode < 0 || mode > 4 || a.vertices.empty() || b.vertices.empty())
        return false;
    if (mode == 0)
        mode = nearestEnds(a, b);
    const std::vector<PolyVertex>& added = b.vertices;
    switch (mode) {
    case 1:
        for (const PolyVertex& v : added)
            a.vertices.insert(a.vertices.begin(), v);
        break;
    case 2:
        for (auto v = added.rbegin(); v != added.rend(); ++v)
            a.vertices.insert(a.vertices.begin(), *v);
        break;
    case 3:
        a.vertices.insert(a.vertices.end(), added.begin(), added.end());
        break;
    default:
        a.vertices.insert(a.vertices.end(), added.rbegin(), added.rend());
        break;
    }
    return true;
}

void joinPolylineSet(std::vector<ObjectId>& ids)
{
    if (ids.size() < 2 || !database())
        return;
    std::vector<ObjectId> grown;
    while (ids.size() > 1) {
        ObjectId seedId = ids.front();
        ids.erase(ids.begin());
        Entity seed;
        if (!readPolyline(seedId, seed) || !growSeed(*seed.as<LwPolyline>(), ids))
            continue;
        database()->writeEntity(seed);
        ids.insert(ids.begin(), seedId);
        if (std::find(grown.begin(), grown.end(), seedId) == grown.end())
            grown.push_back(seedId);
    }
    ids = grown;
}

int polylineJoinCount() { return joinCount; }

void resetPolylineJoinCount() { joinCount = 0; }

void mergeRegionsByColor(std::vector<ObjectId>& ids)
{
    if (!database())
        return;
    for (size_t i = 0; i < ids.size(); ++i) {
        Entity merged;
        if (database()->readEntity(ids[i], merged) != vorn::eOk || !merged.as<vorn::Region>())
            continue;
        for (size_t k = ids.size() - 1; k > i; --k)
            if (uniteSameColor(merged, ids[k]))
                ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(k));
    }
}
