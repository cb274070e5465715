// Plane and space points of the geometry.
#pragma once

namespace vorn {

struct Point2d {
    double x = 0.0;
    double y = 0.0;
};

struct Point3d {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

}  // namespace vorn
