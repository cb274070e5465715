#include "host/db_database.h"

#include <algorithm>

#include "drawing/geometry_curves.h"
#include "base/textnum.h"

namespace vorn::host {

namespace {

bool validSymbolName(const std::string& name)
{
    if (name.empty() || name.size() > 255) return false;
    return name.find_first_of("<>/\\\":;?*|,=`") == std::string::npos;
}

template <class Records>
auto findNamed(Records& records, const std::string& name)
{
    return std::find_if(records.begin(), records.end(), [&](const auto& r) { return iequals(r.name, name); });
}

template <class Record>
bool copyNamed(const std::vector<Record>& records, const std::string& name, Record& out)
{
    auto it = findNamed(records, name);
    if (it == records.end()) return false;
    out = *it;
    return true;
}

bool containsName(const std::vector<std::string>& names, const std::string& name)
{
    return std::any_of(names.begin(), names.end(), [&](const std::string& n) { return iequals(n, name); });
}

PlanBox planBoxOf(const Extents3d& e) { return {e.minPoint.x, e.minPoint.y, e.maxPoint.x, e.maxPoint.y}; }

}  // namespace

HostDatabase::HostDatabase()
{
    ObjectId ignored;
    LayerRecord zero;
    zero.name = std::string(1, '0');
    addLayer(zero, ignored);
    linetypes_ = {"ByBlock", "ByLayer", "Continuous"};
    applications_ = {"ACAD"};
    namedDictionary_ = newId(ObjectKind::Dictionary);
    dictionaries_[namedDictionary_.value] = DictionaryData{};
    MlineStyle standard;
    standard.name = "STANDARD";
    standard.elements = {{0.5, kColorByLayer, "BYLAYER"}, {-0.5, kColorByLayer, "BYLAYER"}};
    addMlineStyle(standard, ignored);
}

ObjectId HostDatabase::newId(ObjectKind kind)
{
    ObjectId id{nextId_++};
    kinds_[id.value] = kind;
    return id;
}

// ---- objects and entities

ObjectKind HostDatabase::kindOf(ObjectId id) const
{
    auto it = kinds_.find(id.value);
    return it == kinds_.end() ? ObjectKind::None : it->second;
}

bool HostDatabase::isErased(ObjectId id) const { return erased_.count(id.value) != 0; }

bool HostDatabase::liveEntity(ObjectId id) const { return entities_.count(id.value) != 0 && !isErased(id); }

ErrorStatus HostDatabase::readEntity(ObjectId id, Entity& out) const
{
    if (id.isNull()) return eNullObjectId;
    if (isErased(id)) return eWasErased;
    auto it = entities_.find(id.value);
    if (it == entities_.end()) return kindOf(id) == ObjectKind::None ? eNullObjectId : eNotThatKindOfClass;
    out = it->second;
    return eOk;
}

ErrorStatus HostDatabase::checkEntity(const Entity& entity) const
{
    if (layerNamed(entity.common.layer) == nullptr) return eKeyNotFound;
    for (const std::string& app : xdataApplications(entity.common))
        if (!isApplicationRegistered(app)) return eNotApplicable;
    return eOk;
}

ErrorStatus HostDatabase::writeEntity(const Entity& entity)
{
    ObjectId id = entity.common.id;
    if (id.isNull()) return eNullObjectId;
    if (isErased(id)) return eWasErased;
    auto it = entities_.find(id.value);
    if (it == entities_.end()) return eNotThatKindOfClass;
    if (ErrorStatus status = checkEntity(entity); status != eOk) return status;
    if (layerNamed(it->second.common.layer)->locked || layerNamed(entity.common.layer)->locked) return eOnLockedLayer;
    unindexEntity(id);
    it->second = entity;
    indexEntity(it->second);
    return eOk;
}

ErrorStatus HostDatabase::appendToModelSpace(const Entity& entity, ObjectId& idOut)
{
    if (ErrorStatus status = checkEntity(entity); status != eOk) return status;
    ObjectId id = newId(ObjectKind::Entity);
    Entity& stored = entities_[id.value] = entity;
    stored.common.id = id;
    order_.push_back(id);
    indexEntity(stored);
    idOut = id;
    return eOk;
}

void HostDatabase::indexEntity(const Entity& entity)
{
    Extents3d extents;
    if (!entityExtents(entity, extents)) return;
    boxes_[entity.common.id.value] = planBoxOf(extents);
    unindexed_.push_back(entity.common.id);
}

void HostDatabase::syncIndex() const
{
    if (unindexed_.empty()) return;
    if (unindexed_.size() > index_.size() / 4) {
        rebuildIndex();
        return;
    }
    for (ObjectId id : unindexed_)
        if (auto it = boxes_.find(id.value); it != boxes_.end()) index_.insert(id, it->second);
    unindexed_.clear();
}

void HostDatabase::unindexEntity(ObjectId id)
{
    syncIndex();
    auto it = boxes_.find(id.value);
    if (it == boxes_.end()) return;
    index_.remove(id, it->second);
    boxes_.erase(it);
}

void HostDatabase::rebuildIndex() const
{
    unindexed_.clear();
    std::vector<std::pair<PlanBox, ObjectId>> entries;
    entries.reserve(boxes_.size());
    for (const auto& [id, box] : boxes_) entries.push_back({box, ObjectId{id}});
    index_.rebuild(entries);
}

ErrorStatus HostDatabase::erase(ObjectId id)
{
    if (id.isNull()) return eNullObjectId;
    if (isErased(id)) return eWasErased;
    switch (kindOf(id)) {
    case ObjectKind::None: return eNullObjectId;
    case ObjectKind::Layer: return eNotApplicable;
    case ObjectKind::Entity:
        if (layerNamed(entities_.at(id.value).common.layer)->locked) return eOnLockedLayer;
        eraseEntity(id);
        return eOk;
    default: eraseObject(id); return eOk;
    }
}

void HostDatabase::eraseEntity(ObjectId id)
{
    erased_.insert(id.value);
    ++erasedEntities_;
    unindexEntity(id);
    for (Group& group : groups_) std::erase(group.members, id);
}

void HostDatabase::eraseObject(ObjectId id)
{
    for (auto& [key, dictionary] : dictionaries_)
        std::erase_if(dictionary.entries, [id](const auto& entry) { return entry.second == id; });
    std::erase_if(groups_, [id](const Group& g) { return g.id == id; });
    std::erase_if(styles_, [id](const MlineStyle& s) { return s.id == id; });
    eraseDictionaryTree(id);
}

void HostDatabase::eraseDictionaryTree(ObjectId id)
{
    erased_.insert(id.value);
    auto it = dictionaries_.find(id.value);
    if (it == dictionaries_.end()) return;
    for (const auto& entry : it->second.entries) eraseDictionaryTree(entry.second);
    it->second.entries.clear();
}

std::vector<ObjectId> HostDatabase::modelSpace() const
{
    std::vector<ObjectId> ids;
    ids.reserve(order_.size());
    for (ObjectId id : order_)
        if (!isErased(id)) ids.push_back(id);
    return ids;
}

ObjectId HostDatabase::lastEntity() const
{
    for (auto it = order_.rbegin(); it != order_.rend(); ++it)
        if (!isErased(*it)) return *it;
    return {};
}

Extents3d HostDatabase::drawingExtents() const
{
    Extents3d all;
    for (ObjectId id : order_) {
        if (isErased(id)) continue;
        const Entity& entity = entities_.at(id.value);
        Extents3d e;
        if (entityVisible(entity) && entityExtents(entity, e)) all.addExtents(e);
    }
    return all;
}

bool HostDatabase::entityVisible(const Entity& entity) const
{
    const LayerRecord* layer = layerNamed(entity.common.layer);
    return entity.common.visible && layer != nullptr && !layer->off && !layer->frozen;
}

// ---- layers, linetypes, applications

const LayerRecord* HostDatabase::layerNamed(const std::string& name) const
{
    auto it = findNamed(layers_, name);
    return it == layers_.end() ? nullptr : &*it;
}

std::vector<LayerRecord> HostDatabase::layers() const { return layers_; }

bool HostDatabase::findLayer(const std::string& name, LayerRecord& out) const { return copyNamed(layers_, name, out); }

ErrorStatus HostDatabase::addLayer(const LayerRecord& layer, ObjectId& idOut)
{
    if (!validSymbolName(layer.name)) return eInvalidInput;
    if (layerNamed(layer.name) != nullptr) return eDuplicateKey;
    layers_.push_back(layer);
    layers_.back().id = idOut = newId(ObjectKind::Layer);
    return eOk;
}

ErrorStatus HostDatabase::updateLayer(const LayerRecord& layer)
{
    auto it = findNamed(layers_, layer.name);
    if (it == layers_.end()) return eKeyNotFound;
    ObjectId id = it->id;
    std::string name = it->name;
    *it = layer;
    it->id = id;
    it->name = name;
    return eOk;
}

std::string HostDatabase::currentLayer() const { return currentLayer_; }

ErrorStatus HostDatabase::setCurrentLayer(const std::string& name)
{
    const LayerRecord* layer = layerNamed(name);
    if (layer == nullptr) return eKeyNotFound;
    if (layer->frozen) return eInvalidInput;
    currentLayer_ = layer->name;
    return eOk;
}

std::vector<std::string> HostDatabase::linetypes() const { return linetypes_; }
bool HostDatabase::hasLinetype(const std::string& name) const { return containsName(linetypes_, name); }

void HostDatabase::addLinetype(const std::string& name)
{
    if (!hasLinetype(name)) linetypes_.push_back(name);
}

void HostDatabase::registerApplication(const std::string& name)
{
    if (!isApplicationRegistered(name)) applications_.push_back(name);
}

bool HostDatabase::isApplicationRegistered(const std::string& name) const { return containsName(applications_, name); }
std::vector<std::string> HostDatabase::registeredApplications() const { return applications_; }

// ---- dictionaries and xrecords

ObjectId HostDatabase::namedObjectsDictionary() const { return namedDictionary_; }

std::vector<std::pair<std::string, ObjectId>> HostDatabase::dictionaryEntries(ObjectId dictionary) const
{
    auto it = dictionaries_.find(dictionary.value);
    if (it == dictionaries_.end() || isErased(dictionary)) return {};
    return it->second.entries;
}

ErrorStatus HostDatabase::dictionaryGetAt(ObjectId dictionary, const std::string& key, ObjectId& out) const
{
    auto it = dictionaries_.find(dictionary.value);
    if (it == dictionaries_.end() || isErased(dictionary)) return eNotThatKindOfClass;
    for (const auto& [name, id] : it->second.entries) {
        if (iequals(name, key)) {
            out = id;
            return eOk;
        }
    }
    return eKeyNotFound;
}

ErrorStatus HostDatabase::addEntry(ObjectId dictionary, const std::string& key, ObjectId entry)
{
    ObjectId old;
    if (dictionaryGetAt(dictionary, key, old) == eOk) eraseObject(old);
    dictionaries_.at(dictionary.value).entries.push_back({key, entry});
    return eOk;
}

ErrorStatus HostDatabase::checkNewEntry(ObjectId dictionary, const std::string& key) const
{
    if (dictionaries_.count(dictionary.value) == 0 || isErased(dictionary)) return eNotThatKindOfClass;
    return key.empty() ? eInvalidInput : eOk;
}

ErrorStatus HostDatabase::addDictionary(ObjectId dictionary, const std::string& key, ObjectId& idOut)
{
    if (ErrorStatus status = checkNewEntry(dictionary, key); status != eOk) return status;
    idOut = newId(ObjectKind::Dictionary);
    dictionaries_[idOut.value] = DictionaryData{dictionary, {}};
    return addEntry(dictionary, key, idOut);
}

ErrorStatus HostDatabase::addXrecord(ObjectId dictionary, const std::string& key, const ResultBuffer& data, ObjectId& idOut)
{
    if (ErrorStatus status = checkNewEntry(dictionary, key); status != eOk) return status;
    idOut = newId(ObjectKind::Xrecord);
    xrecords_[idOut.value] = XrecordData{dictionary, data};
    return addEntry(dictionary, key, idOut);
}

ErrorStatus HostDatabase::readXrecord(ObjectId xrecord, ResultBuffer& out) const
{
    if (isErased(xrecord)) return eWasErased;
    auto it = xrecords_.find(xrecord.value);
    if (it == xrecords_.end()) return eNotThatKindOfClass;
    out = it->second.data;
    return eOk;
}

ErrorStatus HostDatabase::writeXrecord(ObjectId xrecord, const ResultBuffer& data)
{
    if (isErased(xrecord)) return eWasErased;
    auto it = xrecords_.find(xrecord.value);
    if (it == xrecords_.end()) return eNotThatKindOfClass;
    it->second.data = data;
    return eOk;
}

// ---- groups and mline styles

std::vector<Group> HostDatabase::groups() const { return groups_; }

bool HostDatabase::findGroup(const std::string& name, Group& out) const { return copyNamed(groups_, name, out); }

ErrorStatus HostDatabase::addGroup(const Group& group, ObjectId& idOut)
{
    if (group.name.empty()) return eInvalidInput;
    if (findNamed(groups_, group.name) != groups_.end()) return eDuplicateKey;
    Group stored = group;
    std::erase_if(stored.members, [this](ObjectId id) { return !liveEntity(id); });
    stored.id = idOut = newId(ObjectKind::Group);
    groups_.push_back(std::move(stored));
    return eOk;
}

std::vector<MlineStyle> HostDatabase::mlineStyles() const { return styles_; }

bool HostDatabase::findMlineStyle(const std::string& name, MlineStyle& out) const { return copyNamed(styles_, name, out); }

ErrorStatus HostDatabase::addMlineStyle(const MlineStyle& style, ObjectId& idOut)
{
    if (!validSymbolName(style.name)) return eInvalidInput;
    if (findNamed(styles_, style.name) != styles_.end()) return eDuplicateKey;
    styles_.push_back(style);
    styles_.back().id = idOut = newId(ObjectKind::MlineStyle);
    return eOk;
}

}  // namespace vorn::host
