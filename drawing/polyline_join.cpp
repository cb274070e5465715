#include "drawing/polyline_join.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <unordered_map>

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

// The ends of the polylines of a join in a hash of plan cells, so that a
// seed finds the polylines that may meet it without reading every other.
class EndIndex {
public:
    void add(std::size_t rank, const Point3d& p) { cells_[keyOf(p.x, p.y)].push_back(rank); }

    // Ranks of the ends in the cells around p (a superset of those within
    // the point tolerance of it).
    template <class Visit>
    void near(const Point3d& p, Visit visit) const
    {
        auto [kx, ky] = keyOf(p.x, p.y);
        for (std::int64_t dx = -1; dx <= 1; ++dx)
            for (std::int64_t dy = -1; dy <= 1; ++dy)
                if (auto found = cells_.find({kx + dx, ky + dy}); found != cells_.end())
                    for (std::size_t rank : found->second) visit(rank);
    }

private:
    using Key = std::pair<std::int64_t, std::int64_t>;
    struct KeyHash {
        std::size_t operator()(const Key& k) const { return std::hash<std::int64_t>()(k.first * 1000003 ^ k.second); }
    };
    // Far wider than the point tolerance, so that points within it lie in
    // the same or a neighbouring cell.
    static constexpr double kCell = 1e-3;
    static Key keyOf(double x, double y)
    {
        return {static_cast<std::int64_t>(std::floor(x / kCell)), static_cast<std::int64_t>(std::floor(y / kCell))};
    }
    std::unordered_map<Key, std::vector<std::size_t>, KeyHash> cells_;
};

// The join over a list of ids in the order the list gives them. Each id in
// turn becomes the seed, unless it was added to an earlier one; the later
// polylines are tried against it in list order, each against the seed's
// ends as they stand when its turn comes, and the whole pass is repeated
// while the seed grows. Only polylines with an end at one of the seed's
// ends are read from the end index, which gives the same joins in the
// same order as trying every later polyline.
class SetJoin {
public:
    explicit SetJoin(const std::vector<ObjectId>& ids) : ids_(ids), lines_(ids.size()), joined_(ids.size(), false)
    {
        for (std::size_t r = 0; r < ids.size(); ++r) {
            Entity entity;
            if (!readPolyline(ids[r], entity) || entity.as<LwPolyline>()->vertices.empty()) continue;
            lines_[r] = *entity.as<LwPolyline>();
            ends_.add(r, startOf(*lines_[r]));
            ends_.add(r, endOf(*lines_[r]));
        }
    }

    // The seeds that grew, in the order they first grew.
    std::vector<ObjectId> run()
    {
        std::vector<ObjectId> grown;
        for (std::size_t seed = 0; seed + 1 < ids_.size(); ++seed) {
            if (joined_[seed] || !lines_[seed]) continue;
            Entity entity;
            while (readPolyline(ids_[seed], entity) && growPass(seed, *entity.as<LwPolyline>())) {
                database()->writeEntity(entity);
                if (grown.empty() || grown.back() != ids_[seed]) grown.push_back(ids_[seed]);
            }
        }
        return grown;
    }

private:
    // One pass of the later polylines against the seed; whether it grew.
    bool growPass(std::size_t seedRank, LwPolyline& seed)
    {
        bool grew = false;
        for (std::size_t from = seedRank + 1;;) {
            std::size_t next = nextMeeting(seed, from);
            if (next == kNone) return grew;
            from = next + 1;
            // One that cannot be erased (a locked layer) is not added either.
            if (database()->erase(ids_[next]) != vorn::eOk) continue;
            appendPolyline(seed, *lines_[next], matchPolylineEnds(seed, *lines_[next]));
            joined_[next] = true;
            ++joinCount;
            grew = true;
        }
    }

    // The first polyline at or after `from` that meets one of the seed's ends.
    std::size_t nextMeeting(const LwPolyline& seed, std::size_t from) const
    {
        std::size_t best = kNone;
        auto consider = [&](std::size_t r) {
            if (r >= from && r < best && !joined_[r] && matchPolylineEnds(seed, *lines_[r]) > 0) best = r;
        };
        ends_.near(startOf(seed), consider);
        ends_.near(endOf(seed), consider);
        return best;
    }

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    const std::vector<ObjectId>& ids_;
    std::vector<std::optional<LwPolyline>> lines_;
    std::vector<bool> joined_;
    EndIndex ends_;
};

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
    std::vector<ObjectId> grown = SetJoin(ids).run();
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
