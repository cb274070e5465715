#include "drawing/layers.h"

#include <algorithm>

#include "drawing/database_port.h"
#include "drawing/editor_port.h"
#include "drawing/platform.h"
#include "base/report.h"

using vorn::ErrorStatus;
using vorn::LayerRecord;

namespace {
vorn::DatabasePort& database() { return *vorn::platform().database; }
}  // namespace

ErrorStatus ensureLayer(const std::string& name, int colorIndex)
{
    LayerRecord layer;
    if (!database().findLayer(name, layer)) {
        layer.name = name;
        layer.color = colorIndex;
        vorn::ObjectId id;
        return database().addLayer(layer, id);
    }
    layer.locked = false;
    layer.frozen = false;
    return database().updateLayer(layer);
}

// The layer table changes apply to the drawing at once in every host that
// the port serves, so no separate "apply" step follows.
ErrorStatus ensureWorkingLayer()
{
    ErrorStatus status = ensureLayer(kWorkingLayerName, 7);
    if (status != vorn::eOk) acutPrintf("\nERROR: Couldn't create working layer record.");
    return status;
}

void clearLayerObjects(const std::string& name)
{
    if (name.empty()) return;
    vorn::SelectionSet set;
    if (acedSSGet("X", {}, {vorn::ResultItem::ofText(8, name)}, set) != RTNORM) return;
    for (vorn::ObjectId id : set.ids) acdbEntDel(id);
    acedSSFree(set);
}

void isolateLayers(const std::vector<std::string>& keep, std::vector<std::string>& turnedOff)
{
    for (LayerRecord layer : database().layers()) {
        if (layer.off || layer.frozen || layer.locked) continue;
        if (std::find(keep.begin(), keep.end(), layer.name) != keep.end()) continue;
        layer.off = true;
        if (database().updateLayer(layer) == vorn::eOk) turnedOff.push_back(layer.name);
    }
}

void restoreLayers(const std::vector<std::string>& turnedOff)
{
    for (const std::string& name : turnedOff) {
        LayerRecord layer;
        if (!database().findLayer(name, layer)) continue;
        layer.off = false;
        database().updateLayer(layer);
    }
}

std::vector<std::string> visibleLayerNames()
{
    std::vector<std::string> names;
    for (const LayerRecord& layer : database().layers()) {
        if (!layer.off && !layer.frozen) names.push_back(layer.name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

void fillLayerCombo(std::vector<std::string>& items) { items = visibleLayerNames(); }
void fillLayerList(std::vector<std::string>& items) { items = visibleLayerNames(); }
void fillLayerListCtrl(std::vector<std::string>& items) { items = visibleLayerNames(); }

std::string entityLayerName(vorn::ObjectId id)
{
    vorn::Entity entity;
    if (database().readEntity(id, entity) != vorn::eOk) return {};
    return entity.common.layer;
}
