// The join of a polyline set through its end index against the plain form
// that tries every remaining polyline against each seed.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "drawing/database_port.h"
#include "drawing/platform.h"
#include "drawing/polyline_join.h"
#include "host/db_database.h"

using vorn::Entity;
using vorn::LwPolyline;
using vorn::ObjectId;

namespace {

vorn::DatabasePort& database() { return *vorn::platform().database; }

bool readPolyline(ObjectId id, Entity& out) { return database().readEntity(id, out) == vorn::eOk && out.as<LwPolyline>(); }

// The join as first written: the first id is the seed, every other id is
// read and tried in turn, and a seed that grew goes back to the front.
void plainJoin(std::vector<ObjectId>& ids, int& count)
{
    std::vector<ObjectId> grown;
    while (ids.size() > 1) {
        ObjectId seedId = ids.front();
        ids.erase(ids.begin());
        Entity seed;
        if (!readPolyline(seedId, seed)) continue;
        bool grew = false;
        for (size_t k = 0; k < ids.size();) {
            Entity other;
            int mode = readPolyline(ids[k], other) ? matchPolylineEnds(*seed.as<LwPolyline>(), *other.as<LwPolyline>()) : -1;
            if (mode < 0 || database().erase(ids[k]) != vorn::eOk) {
                ++k;
                continue;
            }
            appendPolyline(*seed.as<LwPolyline>(), *other.as<LwPolyline>(), mode);
            ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(k));
            ++count;
            grew = true;
        }
        if (!grew) continue;
        database().writeEntity(seed);
        ids.insert(ids.begin(), seedId);
        if (std::find(grown.begin(), grown.end(), seedId) == grown.end()) grown.push_back(seedId);
    }
    ids = grown;
}

// Polylines of 1 to 3 vertices on a small lattice far from the origin, so
// that ends meet often and at nodes where several meet; some at another
// elevation, some on a locked layer, a line among them.
std::unique_ptr<vorn::host::HostDatabase> randomLattice(unsigned seed, std::vector<ObjectId>& ids)
{
    auto db = std::make_unique<vorn::host::HostDatabase>();
    vorn::LayerRecord locked;
    locked.name = "Locked";
    locked.locked = true;
    ObjectId layerId;
    db->addLayer(locked, layerId);
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> node(0, 5), vertices(1, 3), pick(0, 19);
    for (int k = 0; k < 120; ++k) {
        Entity e;
        int kind = pick(random);
        if (kind == 0) {
            e.shape = vorn::Line{{1e5 + node(random), 2e5, 0}, {1e5 + node(random), 2e5 + node(random), 0}};
        } else {
            LwPolyline pl;
            for (int v = vertices(random); v > 0; --v)
                pl.vertices.push_back({{1e5 + node(random) * 10.0, 2e5 + node(random) * 10.0}});
            pl.elevation = kind == 1 ? 5.0 : 0.0;
            e.shape = pl;
            if (kind == 2) e.common.layer = "Locked";
        }
        ObjectId id;
        db->appendToModelSpace(e, id);
        ids.push_back(id);
    }
    return db;
}

}  // namespace

TEST(JoinPolylineSet, SameJoinsInTheSameOrderAsTryingEveryPolyline)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::vector<ObjectId> plainIds, fastIds;
        auto plainDb = randomLattice(seed, plainIds);
        auto fastDb = randomLattice(seed, fastIds);
        ASSERT_EQ(plainIds, fastIds);
        int plainCount = 0;
        {
            vorn::ScopedPlatform installed(vorn::Platform{plainDb.get(), nullptr, nullptr, nullptr});
            plainJoin(plainIds, plainCount);
        }
        vorn::ScopedPlatform installed(vorn::Platform{fastDb.get(), nullptr, nullptr, nullptr});
        resetPolylineJoinCount();
        joinPolylineSet(fastIds);
        EXPECT_EQ(fastIds, plainIds) << "seed " << seed;
        EXPECT_EQ(polylineJoinCount(), plainCount) << "seed " << seed;
        EXPECT_GT(plainCount, 10);
        ASSERT_EQ(fastDb->modelSpace(), plainDb->modelSpace()) << "seed " << seed;
        for (ObjectId id : plainDb->modelSpace()) {
            Entity a, b;
            plainDb->readEntity(id, a);
            fastDb->readEntity(id, b);
            EXPECT_EQ(a, b) << "seed " << seed;
        }
    }
}
