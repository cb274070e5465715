// The stand-alone drawing database: entities of model space, layer table,
// linetypes, registered applications, named object dictionary with
// xrecords, groups and mline styles, all in memory, with an R-tree over the
// entities' plan boxes for window, crossing and pick queries.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "drawing/database_port.h"
#include "host/select_index.h"

namespace vorn::host {

// Movable, not copyable.
class HostDatabase : public DatabasePort {
public:
    HostDatabase();

    // ---- DatabasePort
    ObjectKind kindOf(ObjectId id) const override;
    bool isErased(ObjectId id) const override;
    ErrorStatus readEntity(ObjectId id, Entity& out) const override;
    ErrorStatus writeEntity(const Entity& entity) override;
    ErrorStatus appendToModelSpace(const Entity& entity, ObjectId& idOut) override;
    ErrorStatus erase(ObjectId id) override;
    std::vector<ObjectId> modelSpace() const override;
    ObjectId lastEntity() const override;
    Extents3d drawingExtents() const override;

    std::vector<LayerRecord> layers() const override;
    bool findLayer(const std::string& name, LayerRecord& out) const override;
    ErrorStatus addLayer(const LayerRecord& layer, ObjectId& idOut) override;
    ErrorStatus updateLayer(const LayerRecord& layer) override;
    std::string currentLayer() const override;
    ErrorStatus setCurrentLayer(const std::string& name) override;

    std::vector<std::string> linetypes() const override;
    bool hasLinetype(const std::string& name) const override;

    void registerApplication(const std::string& name) override;
    bool isApplicationRegistered(const std::string& name) const override;
    std::vector<std::string> registeredApplications() const override;

    ObjectId namedObjectsDictionary() const override;
    std::vector<std::pair<std::string, ObjectId>> dictionaryEntries(ObjectId dictionary) const override;
    ErrorStatus dictionaryGetAt(ObjectId dictionary, const std::string& key, ObjectId& out) const override;
    ErrorStatus addDictionary(ObjectId dictionary, const std::string& key, ObjectId& idOut) override;
    ErrorStatus addXrecord(ObjectId dictionary, const std::string& key, const ResultBuffer& data, ObjectId& idOut) override;
    ErrorStatus readXrecord(ObjectId xrecord, ResultBuffer& out) const override;
    ErrorStatus writeXrecord(ObjectId xrecord, const ResultBuffer& data) override;

    std::vector<Group> groups() const override;
    bool findGroup(const std::string& name, Group& out) const override;
    ErrorStatus addGroup(const Group& group, ObjectId& idOut) override;

    std::vector<MlineStyle> mlineStyles() const override;
    bool findMlineStyle(const std::string& name, MlineStyle& out) const override;
    ErrorStatus addMlineStyle(const MlineStyle& style, ObjectId& idOut) override;

    std::vector<ObjectId> select(const SelectionQuery& query) const override;
    std::vector<ObjectId> entitiesNear(const Point2d& point, double aperture) const override;

    ErrorStatus getStartPoint(const Entity& curve, Point3d& out) const override;
    ErrorStatus getEndPoint(const Entity& curve, Point3d& out) const override;
    bool isClosed(const Entity& curve) const override;
    ErrorStatus getDistAtPoint(const Entity& curve, const Point3d& point, double& out) const override;
    ErrorStatus getPointAtDist(const Entity& curve, double distance, Point3d& out) const override;
    ErrorStatus getClosestPointTo(const Entity& curve, const Point3d& given, const Vector3d& direction, Point3d& out) const override;
    ErrorStatus getArea(const Entity& entity, double& out) const override;
    ErrorStatus getGeomExtents(const Entity& entity, Extents3d& out) const override;
    ErrorStatus intersectInPlan(const Entity& a, const Entity& b, std::vector<Point3d>& points) const override;
    ErrorStatus getOffsetCurves(const Entity& polyline, double distance, std::vector<Entity>& out) const override;
    ErrorStatus createRegionsFromCurves(const std::vector<Entity>& curves, std::vector<Entity>& regionsOut) const override;
    ErrorStatus booleanOper(Entity& a, BoolOperType op, Entity& b) const override;

    // ---- host side
    // Adds a linetype to the table (a drawing being loaded).
    void addLinetype(const std::string& name);
    std::size_t entityCount() const { return entities_.size() - erasedEntities_; }
    // The largest id in use, so a writer can number further records.
    std::uint64_t highestId() const { return nextId_ - 1; }

private:
    struct DictionaryData {
        ObjectId owner;
        std::vector<std::pair<std::string, ObjectId>> entries;
    };
    struct XrecordData {
        ObjectId owner;
        ResultBuffer data;
    };

    ObjectId newId(ObjectKind kind);
    const LayerRecord* layerNamed(const std::string& name) const;
    bool liveEntity(ObjectId id) const;
    bool entityVisible(const Entity& entity) const;
    ErrorStatus checkEntity(const Entity& entity) const;
    void indexEntity(const Entity& entity);
    void unindexEntity(ObjectId id);
    // Brings entities appended since the last query into the index: one by
    // one when they are few, by a packed rebuild when they are many (a
    // drawing being loaded or built).
    void syncIndex() const;
    void rebuildIndex() const;
    // Whether a new entry `key` may go into `dictionary`.
    ErrorStatus checkNewEntry(ObjectId dictionary, const std::string& key) const;
    ErrorStatus addEntry(ObjectId dictionary, const std::string& key, ObjectId entry);
    void eraseObject(ObjectId id);
    void eraseEntity(ObjectId id);
    void eraseDictionaryTree(ObjectId id);
    // Window or crossing test of one candidate against the query figure
    // (polygon, or the rectangle of two corners) and its box.
    bool passesGeometry(const Entity& entity, SelectMode mode, const std::vector<Point2d>& outline, const PlanBox& area) const;

    std::uint64_t nextId_ = 0x100;
    std::unordered_map<std::uint64_t, ObjectKind> kinds_;
    std::unordered_set<std::uint64_t> erased_;
    std::unordered_map<std::uint64_t, Entity> entities_;
    std::size_t erasedEntities_ = 0;
    std::vector<ObjectId> order_;
    std::unordered_map<std::uint64_t, PlanBox> boxes_;
    mutable SpatialIndex index_;
    mutable std::vector<ObjectId> unindexed_;
    std::vector<LayerRecord> layers_;
    std::string currentLayer_ = "0";
    std::vector<std::string> linetypes_;
    std::vector<std::string> applications_;
    ObjectId namedDictionary_;
    std::unordered_map<std::uint64_t, DictionaryData> dictionaries_;
    std::unordered_map<std::uint64_t, XrecordData> xrecords_;
    std::vector<Group> groups_;
    std::vector<MlineStyle> styles_;
};

}  // namespace vorn::host
