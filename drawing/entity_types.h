// The entity model of the drawing as plain values: what the system reads
// from and makes in the drawing. An entity is copied out of the database by
// id, changed as a value and written back; a host converts these values to
// and from its own objects.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "drawing/geom_types.h"

namespace vorn {

// Identifier of a database object (entity, layer, dictionary, xrecord,
// group, mline style). 0 is the null id. Copied by value.
struct ObjectId {
    std::uint64_t value = 0;

    bool isValid() const { return value != 0; }
    bool isNull() const { return value == 0; }
    friend bool operator==(const ObjectId&, const ObjectId&) = default;
    friend auto operator<=>(const ObjectId&, const ObjectId&) = default;
};

// Colour index values with a meaning of their own.
inline constexpr int kColorByBlock = 0;
inline constexpr int kColorByLayer = 256;

// Properties every entity has.
struct EntityCommon {
    ObjectId id;                       // null until appended
    std::string layer = "0";
    int colorIndex = kColorByLayer;
    std::string linetype = "ByLayer";
    double linetypeScale = 1.0;
    bool visible = true;
    // Extended entity data: sections each headed by a 1001 entry with the
    // registered application name, followed by its 1000-1071 entries.
    ResultBuffer xdata;
    // Objects notified of changes (a hatch on its associated boundary).
    std::vector<ObjectId> reactors;
    friend bool operator==(const EntityCommon&, const EntityCommon&) = default;
};

// Lightweight polyline vertex. A width below 0 stands for the polyline's
// constant width.
struct PolyVertex {
    Point2d point;
    double bulge = 0.0;
    double startWidth = -1.0;
    double endWidth = -1.0;
    friend bool operator==(const PolyVertex&, const PolyVertex&) = default;
};

struct LwPolyline {
    std::vector<PolyVertex> vertices;
    bool closed = false;
    double elevation = 0.0;
    double constantWidth = 0.0;
    friend bool operator==(const LwPolyline&, const LwPolyline&) = default;
};

// Vertex types of the heavy polylines; type 1 is a spline control vertex in
// both kinds and is not part of the drawn outline.
enum Vertex2dType : int { k2dVertex = 0, k2dSplineCtlVertex = 1, k2dSplineFitVertex = 2, k2dCurveFitVertex = 3 };
enum Vertex3dType : int { k3dSimpleVertex = 0, k3dControlVertex = 1, k3dFitVertex = 2 };

struct Polyline2dVertex {
    Point3d position;  // z is the polyline's elevation
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
    int type = k2dVertex;
    friend bool operator==(const Polyline2dVertex&, const Polyline2dVertex&) = default;
};

struct Polyline2d {
    std::vector<Polyline2dVertex> vertices;
    bool closed = false;
    double elevation = 0.0;
    double defaultStartWidth = 0.0;
    double defaultEndWidth = 0.0;
    friend bool operator==(const Polyline2d&, const Polyline2d&) = default;
};

struct Polyline3dVertex {
    Point3d position;
    int type = k3dSimpleVertex;
    friend bool operator==(const Polyline3dVertex&, const Polyline3dVertex&) = default;
};

struct Polyline3d {
    std::vector<Polyline3dVertex> vertices;
    bool closed = false;
    friend bool operator==(const Polyline3d&, const Polyline3d&) = default;
};

struct Line {
    Point3d start;
    Point3d end;
    friend bool operator==(const Line&, const Line&) = default;
};

struct PointEntity {
    Point3d position;
    friend bool operator==(const PointEntity&, const PointEntity&) = default;
};

// Angles in radians, counter-clockwise from the X axis, in the plane z of
// the centre.
struct Arc {
    Point3d center;
    double radius = 0.0;
    double startAngle = 0.0;
    double endAngle = 0.0;
    friend bool operator==(const Arc&, const Arc&) = default;
};

struct Circle {
    Point3d center;
    double radius = 0.0;
    friend bool operator==(const Circle&, const Circle&) = default;
};

struct Text {
    Point3d position;
    double height = 1.0;
    double rotation = 0.0;  // radians
    std::string text;
    // Justification: horizontal 0 left, 1 centre, 2 right; vertical 0
    // baseline, 1 bottom, 2 middle, 3 top. Unless both are 0 the text
    // stands at `alignment`.
    int horizontalMode = 0;
    int verticalMode = 0;
    Point3d alignment{};
    friend bool operator==(const Text&, const Text&) = default;
};

// A hatch boundary loop: points with bulges (bulges may be empty: all 0).
struct HatchLoop {
    int loopType = 1;  // 1 external; other platform loop flags kept as given
    std::vector<Point2d> points;
    std::vector<double> bulges;
    friend bool operator==(const HatchLoop&, const HatchLoop&) = default;
};

struct Hatch {
    std::string patternName = "SOLID";
    int patternType = 1;  // 1 predefined
    bool solidFill = true;
    int hatchStyle = 0;   // 0 normal
    bool associative = false;
    double elevation = 0.0;
    Vector3d normal{0.0, 0.0, 1.0};
    std::vector<HatchLoop> loops;
    std::vector<ObjectId> associatedIds;  // boundary objects of an associative hatch
    friend bool operator==(const Hatch&, const Hatch&) = default;
};

// A closed ring of a region: points without the repeated first point.
using Ring = std::vector<Point2d>;

struct RegionFace {
    Ring outer;
    std::vector<Ring> holes;
    friend bool operator==(const RegionFace&, const RegionFace&) = default;
};

// A region as polygons with holes; several faces after a union of disjoint
// parts. Outer rings run counter-clockwise, holes clockwise.
struct Region {
    std::vector<RegionFace> faces;
    double elevation = 0.0;
    friend bool operator==(const Region&, const Region&) = default;
};

// 3-D face: four corners (a triangle repeats the third).
struct Face {
    Point3d corners[4];
    friend bool operator==(const Face&, const Face&) = default;
};

// 2-D solid: four corners in the platform's "Z" order (a triangle repeats
// the third).
struct Solid {
    Point3d corners[4];
    friend bool operator==(const Solid&, const Solid&) = default;
};

struct Spline {
    int degree = 2;
    double fitTolerance = 0.0;
    std::vector<Point3d> fitPoints;
    friend bool operator==(const Spline&, const Spline&) = default;
};

struct Mline {
    std::string styleName = "STANDARD";
    int justification = 2;  // 0 top, 1 zero, 2 bottom
    double scale = 1.0;
    Vector3d normal{0.0, 0.0, 1.0};
    bool closed = false;
    std::vector<Point3d> vertices;
    friend bool operator==(const Mline&, const Mline&) = default;
};

enum class EntityKind { LwPolyline, Polyline2d, Polyline3d, Line, Point, Arc, Circle, Text, Hatch, Region, Face, Solid, Spline, Mline };

using EntityShape = std::variant<LwPolyline, Polyline2d, Polyline3d, Line, PointEntity, Arc, Circle, Text, Hatch, Region, Face, Solid, Spline, Mline>;

struct Entity {
    EntityCommon common;
    EntityShape shape;

    EntityKind kind() const { return static_cast<EntityKind>(shape.index()); }
    ObjectId id() const { return common.id; }
    template <class T> T* as() { return std::get_if<T>(&shape); }
    template <class T> const T* as() const { return std::get_if<T>(&shape); }
    friend bool operator==(const Entity&, const Entity&) = default;
};

// The DXF type name of a kind ("LWPOLYLINE", "POLYLINE" for both heavy
// kinds, "LINE", "POINT", "ARC", "CIRCLE", "TEXT", "HATCH", "REGION",
// "3DFACE", "SOLID", "SPLINE", "MLINE").
const char* dxfTypeName(EntityKind kind);

// The class name the platform gives a kind ("AcDbPolyline", "AcDb2dPolyline",
// "AcDb3dPolyline", "AcDbLine", ...).
const char* className(EntityKind kind);

// Curves: polylines of all kinds, lines, arcs, circles, splines.
bool isCurve(EntityKind kind);

// The extended data of one application (its 1001 head and the entries up to
// the next 1001), empty when the entity has none.
ResultBuffer xdataOf(const EntityCommon& common, const std::string& application);

// Replaces the sections of the applications named by the 1001 heads in
// `data` (a section with a head and nothing behind it removes that
// application's data), keeping the data of other applications.
void setXData(EntityCommon& common, const ResultBuffer& data);

// The names of the applications with extended data on the entity.
std::vector<std::string> xdataApplications(const EntityCommon& common);

}  // namespace vorn
