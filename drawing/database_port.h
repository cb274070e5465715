// The drawing database part of the platform port: entities by id, symbol
// tables, named storage, selection sets and the geometry of curves that the
// system asks of the platform. Entities travel as values (drawing/
// entity_types.h): reading an entity is "open for read, copy, close",
// writing one is "open for write, set, close". Interactive picks and prompts
// belong to the editor port.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "drawing/entity_types.h"
#include "drawing/geom_types.h"

namespace vorn {

// What kind of database object an id names.
enum class ObjectKind { None, Entity, Layer, Dictionary, Xrecord, Group, MlineStyle };

struct LayerRecord {
    ObjectId id;  // set by the database
    std::string name;
    int color = 7;
    std::string linetype = "Continuous";
    bool off = false;
    bool frozen = false;
    bool locked = false;
};

struct Group {
    ObjectId id;  // set by the database
    std::string name;
    std::string description;
    bool selectable = true;
    std::vector<ObjectId> members;
};

struct MlineStyleElement {
    double offset = 0.0;
    int color = kColorByLayer;
    std::string linetype = "BYLAYER";
};

struct MlineStyle {
    ObjectId id;  // set by the database
    std::string name;
    std::string description;
    int fillColor = kColorByLayer;
    bool fillOn = false;
    bool showMiters = false;
    bool startSquareCap = false;
    bool endSquareCap = false;
    bool startRoundCap = false;
    bool endRoundCap = false;
    bool startInnerArcs = false;
    bool endInnerArcs = false;
    double startAngle = 1.5707963267948966;
    double endAngle = 1.5707963267948966;
    std::vector<MlineStyleElement> elements;
};

// Selection modes of the platform's selection sets.
enum class SelectMode {
    All,              // "X": the whole database, visible or not
    Window,           // "W": wholly inside the rectangle of two corners
    Crossing,         // "C": inside or crossing the rectangle
    WindowPolygon,    // "WP": wholly inside the polygon
    CrossingPolygon,  // "CP": inside or crossing the polygon
};

// A selection query. `filter` is a filter list as the platform takes it:
// group 0 entity type names and group 8 layer names, each a comma list
// with wildcards ("*", "?"), compared without regard to case; a -3 entry
// followed by 1001 application names selects objects with extended data of
// one of those applications. Entries of different codes must all match.
// Window and crossing modes see only visible objects (entity visible, layer
// on and thawed).
struct SelectionQuery {
    SelectMode mode = SelectMode::All;
    std::vector<Point2d> points;  // 2 corners, or the polygon
    ResultBuffer filter;
};

// Boolean operations on regions, in the platform's numbering.
enum class BoolOperType : int { Union = 0, Intersect = 1, Subtract = 2 };

class DatabasePort {
public:
    virtual ~DatabasePort() = default;

    // ---- objects and entities
    virtual ObjectKind kindOf(ObjectId id) const = 0;
    virtual bool isErased(ObjectId id) const = 0;
    // Copies the entity out; eNullObjectId, eWasErased or eNotThatKindOfClass
    // when the id names no live entity.
    virtual ErrorStatus readEntity(ObjectId id, Entity& out) const = 0;
    // Replaces the entity named by `entity.common.id` (not its id);
    // eOnLockedLayer when its old or new layer is locked.
    virtual ErrorStatus writeEntity(const Entity& entity) = 0;
    // Appends to model space, creating nothing else: the layer must exist
    // (eKeyNotFound otherwise) and every xdata application be registered
    // (eNotApplicable otherwise). Sets `idOut`.
    virtual ErrorStatus appendToModelSpace(const Entity& entity, ObjectId& idOut) = 0;
    // Erases an entity or a non-entity object (dictionary entries are
    // removed from their dictionary, group members from their groups).
    virtual ErrorStatus erase(ObjectId id) = 0;
    // Live entities of model space in the order they were appended.
    virtual std::vector<ObjectId> modelSpace() const = 0;
    // The last live entity appended, null when there is none.
    virtual ObjectId lastEntity() const = 0;
    // Geometric extents of all visible entities (empty for none).
    virtual Extents3d drawingExtents() const = 0;

    // ---- layer table; layer "0" always exists. Names compare without case.
    virtual std::vector<LayerRecord> layers() const = 0;
    virtual bool findLayer(const std::string& name, LayerRecord& out) const = 0;
    // eDuplicateKey when the name exists, eInvalidInput for a bad name.
    virtual ErrorStatus addLayer(const LayerRecord& layer, ObjectId& idOut) = 0;
    // Updates the layer of that name (colour, linetype, states).
    virtual ErrorStatus updateLayer(const LayerRecord& layer) = 0;
    virtual std::string currentLayer() const = 0;
    // eKeyNotFound for an unknown name; a frozen layer cannot be current.
    virtual ErrorStatus setCurrentLayer(const std::string& name) = 0;

    // ---- linetypes ("ByLayer", "ByBlock", "Continuous" always exist)
    virtual std::vector<std::string> linetypes() const = 0;
    virtual bool hasLinetype(const std::string& name) const = 0;

    // ---- registered applications
    virtual void registerApplication(const std::string& name) = 0;
    virtual bool isApplicationRegistered(const std::string& name) const = 0;
    virtual std::vector<std::string> registeredApplications() const = 0;

    // ---- named object dictionary and xrecords. Keys compare without case.
    virtual ObjectId namedObjectsDictionary() const = 0;
    // Entries of a dictionary in the order they were added.
    virtual std::vector<std::pair<std::string, ObjectId>> dictionaryEntries(ObjectId dictionary) const = 0;
    virtual ErrorStatus dictionaryGetAt(ObjectId dictionary, const std::string& key, ObjectId& out) const = 0;
    // A new dictionary or xrecord under `key`; an existing entry of that key
    // is erased first (the platform's setAt replaces).
    virtual ErrorStatus addDictionary(ObjectId dictionary, const std::string& key, ObjectId& idOut) = 0;
    virtual ErrorStatus addXrecord(ObjectId dictionary, const std::string& key, const ResultBuffer& data, ObjectId& idOut) = 0;
    virtual ErrorStatus readXrecord(ObjectId xrecord, ResultBuffer& out) const = 0;
    virtual ErrorStatus writeXrecord(ObjectId xrecord, const ResultBuffer& data) = 0;

    // ---- groups (the group dictionary). Names compare without case.
    virtual std::vector<Group> groups() const = 0;
    virtual bool findGroup(const std::string& name, Group& out) const = 0;
    // eDuplicateKey when the name is taken; invalid ids are dropped.
    virtual ErrorStatus addGroup(const Group& group, ObjectId& idOut) = 0;

    // ---- multi-line styles (the mline style dictionary; "STANDARD" exists)
    virtual std::vector<MlineStyle> mlineStyles() const = 0;
    virtual bool findMlineStyle(const std::string& name, MlineStyle& out) const = 0;
    virtual ErrorStatus addMlineStyle(const MlineStyle& style, ObjectId& idOut) = 0;

    // ---- selection sets: matching entity ids in model space order
    virtual std::vector<ObjectId> select(const SelectionQuery& query) const = 0;
    // Visible entities passing within `aperture` of the point in plan,
    // nearest first (entity picks).
    virtual std::vector<ObjectId> entitiesNear(const Point2d& point, double aperture) const = 0;

    // ---- curve geometry on entity values (database entities or temporary
    // ones). Bulged polyline segments are arcs. eNotApplicable for a kind
    // that is no curve (or no area, for getArea).
    virtual ErrorStatus getStartPoint(const Entity& curve, Point3d& out) const = 0;
    virtual ErrorStatus getEndPoint(const Entity& curve, Point3d& out) const = 0;
    virtual bool isClosed(const Entity& curve) const = 0;
    // Length along the curve from its start to a point on it (eInvalidInput
    // when the point is not on the curve).
    virtual ErrorStatus getDistAtPoint(const Entity& curve, const Point3d& point, double& out) const = 0;
    // The point at a length along the curve (eInvalidInput beyond its ends).
    virtual ErrorStatus getPointAtDist(const Entity& curve, double distance, Point3d& out) const = 0;
    // The point of the curve closest to `given` when both are projected
    // along `direction` (use (0,0,1) for the closest point in plan).
    virtual ErrorStatus getClosestPointTo(const Entity& curve, const Point3d& given, const Vector3d& direction, Point3d& out) const = 0;
    // Enclosed area of a curve (open curves as if closed) or a region;
    // hatches give the area of their loops.
    virtual ErrorStatus getArea(const Entity& entity, double& out) const = 0;
    virtual ErrorStatus getGeomExtents(const Entity& entity, Extents3d& out) const = 0;
    // Points where the two entities meet when both are projected on the
    // plane z = 0 (on both operands, no extension); the points carry z 0.
    virtual ErrorStatus intersectInPlan(const Entity& a, const Entity& b, std::vector<Point3d>& points) const = 0;
    // Offset curves of a lightweight polyline at `distance` in its plane:
    // positive to the right of the direction of travel (outward for a
    // counter-clockwise closed polyline). Segments meet at extended corners;
    // a closed polyline shrunk apart gives several curves, or none when it
    // vanishes. The results are lightweight polylines with the source's
    // common properties.
    virtual ErrorStatus getOffsetCurves(const Entity& polyline, double distance, std::vector<Entity>& out) const = 0;
    // One region for each closed curve (closed polylines of any kind, circles,
    // closed splines); open curves are eInvalidInput. Arcs are followed by
    // chords within a small tolerance. The regions take the curves' common
    // properties and are not in the database.
    virtual ErrorStatus createRegionsFromCurves(const std::vector<Entity>& curves, std::vector<Entity>& regionsOut) const = 0;
    // `a` becomes a op b; `b` is emptied as the platform consumes it.
    virtual ErrorStatus booleanOper(Entity& a, BoolOperType op, Entity& b) const = 0;
};

}  // namespace vorn
