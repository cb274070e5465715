#include "drawing/region_union.h"

#include "drawing/database_port.h"
#include "drawing/platform.h"

bool uniteRegionsByHalving(std::vector<vorn::Entity>& regions, const std::function<bool()>& interrupted)
{
    vorn::DatabasePort* db = vorn::platform().database;
    if (!db) return regions.size() <= 1;
    // Each pass unites neighbours 0+1, 2+3, ... and keeps the results in
    // order, so the list halves until one region is left.
    while (regions.size() > 1) {
        size_t kept = 0;
        for (size_t k = 0; k < regions.size(); k += 2) {
            if (k + 1 < regions.size()) {
                db->booleanOper(regions[k], vorn::BoolOperType::Union, regions[k + 1]);
                if (interrupted && interrupted()) {
                    if (kept != k) regions[kept] = std::move(regions[k]);
                    regions.resize(kept + 1);
                    return false;
                }
            }
            if (kept != k) regions[kept] = std::move(regions[k]);
            ++kept;
        }
        regions.resize(kept);
    }
    return true;
}
