// Plain value types of drawing geometry shared by the platform port, the
// plane geometry and the hosts: points, vectors, extents, status codes and
// result buffers (typed value lists as the CAD program's resbuf chains).
#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

namespace vorn {

// The global point tolerance of the platform: point equality and "lies on
// a curve" tests use it.
inline constexpr double kPointTolerance = 1e-10;

struct Point2d {
    double x = 0.0;
    double y = 0.0;

    bool isEqualTo(const Point2d& o, double tol = kPointTolerance) const { return std::hypot(x - o.x, y - o.y) <= tol; }
    double distanceTo(const Point2d& o) const { return std::hypot(x - o.x, y - o.y); }
    friend bool operator==(const Point2d&, const Point2d&) = default;
};

struct Point3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    bool isEqualTo(const Point3d& o, double tol = kPointTolerance) const { return distanceTo(o) <= tol; }
    double distanceTo(const Point3d& o) const { return std::sqrt((x - o.x) * (x - o.x) + (y - o.y) * (y - o.y) + (z - o.z) * (z - o.z)); }
    Point2d to2d() const { return {x, y}; }
    friend bool operator==(const Point3d&, const Point3d&) = default;
};

struct Vector3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    friend bool operator==(const Vector3d&, const Vector3d&) = default;
};

// Axis-aligned box; empty until a point is added.
struct Extents3d {
    Point3d minPoint{1e300, 1e300, 1e300};
    Point3d maxPoint{-1e300, -1e300, -1e300};

    bool isEmpty() const { return minPoint.x > maxPoint.x; }
    void addPoint(const Point3d& p);
    void addExtents(const Extents3d& e);
};

// Status of a drawing operation, after the CAD program's error status:
// 0 is success. The numbers of the first few follow the platform.
enum ErrorStatus : int {
    eOk = 0,
    eNotImplementedYet = 1,
    eNotApplicable = 2,
    eInvalidInput = 3,
    eInvalidIndex = 26,
    eNullObjectId = 16,
    eWasErased = 32,
    eKeyNotFound = 56,
    eDuplicateKey = 57,
    eNotThatKindOfClass = 40,
    eOnLockedLayer = 76,
    eDegenerateGeometry = 80,
    eGeneralModelingFailure = 148,
};

// Result buffer type codes beyond the DXF group codes.
enum ResultType : int {
    RTNONE = 5000,
    RTREAL = 5001,
    RTPOINT = 5002,
    RTSHORT = 5003,
    RTSTR = 5005,
    RTPICKS = 5007,
    RT3DPOINT = 5009,
    RTLONG = 5010,
};

// One buffer of a result buffer chain: a type (a DXF group code or one of
// the RT codes) and its value in the member that the type calls for.
struct ResultItem {
    int restype = RTNONE;
    double real = 0.0;      // reals
    Point3d point;          // 2-D and 3-D points (z 0 for 2-D)
    std::int64_t integer = 0;  // shorts, longs, handles, selection sets
    std::string text;       // strings, application names, layer names

    static ResultItem ofText(int code, std::string value);
    static ResultItem ofReal(int code, double value);
    static ResultItem ofInt(int code, std::int64_t value);
    static ResultItem ofPoint(int code, const Point3d& value);
    friend bool operator==(const ResultItem&, const ResultItem&) = default;
};

// A result buffer chain as a list; an empty list is the null chain.
using ResultBuffer = std::vector<ResultItem>;

// How a result type code stores its value.
enum class ValueKind { Text, Real, Integer, Point, EntityName };

// The value kind of a DXF group code (or RT code) in data and xdata, by the
// DXF ranges: 0-9 text, 10-37 point, 38-59 real, 60-99 integer, 1000-1009
// text (1004 binary kept as text), 1010-1059 real or point, 1060-1071
// integer, RT codes by their meaning.
ValueKind valueKindOfCode(int code);

}  // namespace vorn
