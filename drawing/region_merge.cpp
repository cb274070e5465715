#include "drawing/region_merge.h"

#include <map>

#include "drawing/database_port.h"
#include "drawing/platform.h"
#include "drawing/region_union.h"
#include "drawing/tempgraphics.h"

using vorn::Entity;
using vorn::ObjectId;

namespace {

// The positions in the list of the regions of one colour, the first included.
struct ColorGroup {
    std::vector<size_t> members;
};

// Unites the members of one colour into the first; the others become null
// regions. Members that cannot be read are left as they are.
void uniteGroup(std::vector<ObjectId>& ids, const ColorGroup& group, std::vector<bool>& dropped)
{
    vorn::DatabasePort& db = *vorn::platform().database;
    std::vector<Entity> regions;
    std::vector<size_t> read;
    for (size_t position : group.members) {
        Entity entity;
        if (db.readEntity(ids[position], entity) != vorn::eOk) continue;
        regions.push_back(std::move(entity));
        read.push_back(position);
    }
    if (read.size() < 2) return;
    Entity first = regions.front();
    uniteRegionsByHalving(regions);
    first.shape = regions.front().shape;
    db.writeEntity(first);
    for (size_t k = 1; k < read.size(); ++k) {
        Entity emptied;
        if (db.readEntity(ids[read[k]], emptied) != vorn::eOk) continue;
        emptied.shape = vorn::Region{};
        db.writeEntity(emptied);
        dropped[read[k]] = true;
    }
}

}  // namespace

void mergeRegionsByColor(std::vector<ObjectId>& ids)
{
    vorn::DatabasePort* db = vorn::platform().database;
    if (!db) return;
    std::map<int, ColorGroup> groups;
    std::vector<int> order;
    for (size_t k = 0; k < ids.size(); ++k) {
        Entity entity;
        if (db->readEntity(ids[k], entity) != vorn::eOk || !entity.as<vorn::Region>()) continue;
        auto [it, isNew] = groups.try_emplace(entity.common.colorIndex);
        if (isNew) order.push_back(entity.common.colorIndex);
        it->second.members.push_back(k);
    }
    std::vector<bool> dropped(ids.size(), false);
    for (int color : order) {
        uniteGroup(ids, groups[color], dropped);
        flushGraphics();
    }
    size_t kept = 0;
    for (size_t k = 0; k < ids.size(); ++k)
        if (!dropped[k]) ids[kept++] = ids[k];
    ids.resize(kept);
}
