#include "drawing/selection.h"

#include <cstdint>
#include <unordered_set>

#include "drawing/layers.h"
#include "base/report.h"

using vorn::ObjectId;
using vorn::SelectionSet;

long selectByLayer(SelectionSet& setOut, const std::string& layers, const std::vector<vorn::Point2d>& points,
                   const std::string& entityTypes)
{
    setOut.ids.clear();
    if (layers.empty()) return 0;
    vorn::ResultBuffer filter{vorn::ResultItem::ofText(8, layers)};
    if (!entityTypes.empty()) filter.push_back(vorn::ResultItem::ofText(0, entityTypes));
    for (size_t i = 0; i < points.size(); ++i) acutPrintf("\nPoint No %i, X = %lf, Y = %lf", static_cast<int>(i), points[i].x, points[i].y);
    const char* mode = "X";
    if (points.size() == 2) {
        mode = "C";
    } else if (points.size() > 2) {
        mode = "CP";
        for (size_t i = 1; i < points.size(); ++i) acutPrintf("\nPoint No %i, X = %lf, Y = %lf", static_cast<int>(i), points[i].x, points[i].y);
    }
    std::vector<vorn::Point2d> corners = points.size() >= 2 ? points : std::vector<vorn::Point2d>{};
    if (acedSSGet(mode, corners, filter, setOut) != RTNORM) return 0;
    return acedSSLength(setOut);
}

long selectIdsByLayer(std::vector<ObjectId>& idsOut, const std::string& layers, const std::string& entityTypes)
{
    return selectIdsInWindow(idsOut, layers, {}, entityTypes);
}

long selectIdsInWindow(std::vector<ObjectId>& idsOut, const std::string& layers, const std::vector<vorn::Point2d>& points,
                       const std::string& entityTypes)
{
    SelectionSet set;
    long count = selectByLayer(set, layers, points, entityTypes);
    selectionToIds(set, idsOut);
    acedSSFree(set);
    return count;
}

void selectionToIds(const SelectionSet& set, std::vector<ObjectId>& idsOut)
{
    idsOut.clear();
    for (long i = 0; i < acedSSLength(set); ++i) idsOut.push_back(acedSSName(set, i));
}

void idsToSelection(const std::vector<ObjectId>& ids, SelectionSet& setOut)
{
    // A set holds each entity once; the hash keeps long lists linear.
    setOut.ids.clear();
    std::unordered_set<std::uint64_t> members;
    for (ObjectId id : ids) {
        if (id.isValid() && members.insert(id.value).second) setOut.ids.push_back(id);
    }
}

namespace {

// Picks objects until a pick fails, collecting their layers.
std::string layersOfPickedObjects()
{
    std::string layers;
    ObjectId id;
    ads_point picked;
    while (acedEntSel("\nSelect object:", id, picked) == RTNORM) {
        if (!layers.empty()) layers += ",";
        layers += entityLayerName(id);
        acutPrintf("\nSelcted Layers: %s", layers.c_str());
    }
    return layers;
}

}  // namespace

bool layerInputCallback(const std::string& keyword, SelectionSet& setOut)
{
    const size_t maxLength = 132;
    std::string reply;
    if (acedGetString(0, "\n[<Input Layer Name>/Extract from object]:", reply) != RTNORM) return false;
    reply = reply.substr(0, maxLength);
    std::string layers = !reply.empty() && (reply[0] == 'E' || reply[0] == 'e') ? layersOfPickedObjects() : reply;
    if (layers.empty()) return false;
    setOut.ids.clear();
    if (acedSSGet("X", {}, {vorn::ResultItem::ofText(8, layers)}, setOut) != RTNORM || acedSSLength(setOut) < 1) {
        acedSSFree(setOut);
        return false;
    }
    return true;
}
