// Plain point and vector types of the grid's lattice geometry.
#pragma once

#include <cmath>

namespace vorn {

struct Vector3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    double dot(const Vector3& o) const { return x * o.x + y * o.y + z * o.z; }
    double length() const { return std::sqrt(x * x + y * y + z * z); }
    Vector3 operator*(double s) const { return {x * s, y * s, z * s}; }
    Vector3 operator-(const Vector3& o) const { return {x - o.x, y - o.y, z - o.z}; }
};

struct Point2 {
    double x = 0.0;
    double y = 0.0;
    bool operator==(const Point2&) const = default;
};

struct Point3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    bool operator==(const Point3&) const = default;
};

}  // namespace vorn
