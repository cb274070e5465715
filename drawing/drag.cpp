#include "drawing/drag.h"

#include <cmath>

#include "drawing/database_port.h"
#include "drawing/platform.h"

using vorn::Point2d;
using vorn::Point3d;

namespace {

struct DragBase {
    Point3d point;
    double angle = 0.0;  // radians
    double scale = 1.0;
};

DragBase& dragBase()
{
    static DragBase base;
    return base;
}

void setIdentity(double m[4][4])
{
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c) m[r][c] = r == c ? 1.0 : 0.0;
    }
}

// Rotation by `angle` and scaling by `scale` about `center`, in plan.
void setAboutPoint(double m[4][4], const Point3d& center, double angle, double scale)
{
    setIdentity(m);
    double c = std::cos(angle) * scale;
    double s = std::sin(angle) * scale;
    m[0][0] = c;
    m[0][1] = -s;
    m[1][0] = s;
    m[1][1] = c;
    m[0][3] = center.x - c * center.x + s * center.y;
    m[1][3] = center.y - s * center.x - c * center.y;
}

// Applies a plan transform to the geometry of an entity value.
class Transformer {
public:
    explicit Transformer(const double (*m)[4]) : m_(m)
    {
        scale_ = std::sqrt(std::fabs(m[0][0] * m[1][1] - m[0][1] * m[1][0]));
        angle_ = std::atan2(m[1][0], m[0][0]);
    }

    Point2d operator()(const Point2d& p) const { return {m_[0][0] * p.x + m_[0][1] * p.y + m_[0][3], m_[1][0] * p.x + m_[1][1] * p.y + m_[1][3]}; }
    Point3d operator()(const Point3d& p) const
    {
        Point2d q = (*this)(Point2d{p.x, p.y});
        return {q.x, q.y, p.z + m_[2][3]};
    }

    void apply(vorn::EntityShape& shape) const
    {
        std::visit([this](auto& s) { transform(s); }, shape);
    }

private:
    void transform(vorn::LwPolyline& s) const
    {
        for (vorn::PolyVertex& v : s.vertices) {
            v.point = (*this)(v.point);
            if (v.startWidth > 0.0) v.startWidth *= scale_;
            if (v.endWidth > 0.0) v.endWidth *= scale_;
        }
        s.constantWidth *= scale_;
        s.elevation += m_[2][3];
    }
    void transform(vorn::Polyline2d& s) const
    {
        for (vorn::Polyline2dVertex& v : s.vertices) v.position = (*this)(v.position);
        s.elevation += m_[2][3];
    }
    void transform(vorn::Polyline3d& s) const
    {
        for (vorn::Polyline3dVertex& v : s.vertices) v.position = (*this)(v.position);
    }
    void transform(vorn::Line& s) const
    {
        s.start = (*this)(s.start);
        s.end = (*this)(s.end);
    }
    void transform(vorn::PointEntity& s) const { s.position = (*this)(s.position); }
    void transform(vorn::Arc& s) const
    {
        s.center = (*this)(s.center);
        s.radius *= scale_;
        s.startAngle += angle_;
        s.endAngle += angle_;
    }
    void transform(vorn::Circle& s) const
    {
        s.center = (*this)(s.center);
        s.radius *= scale_;
    }
    void transform(vorn::Text& s) const
    {
        s.position = (*this)(s.position);
        s.alignment = (*this)(s.alignment);
        s.height *= scale_;
        s.rotation += angle_;
    }
    void transform(vorn::Hatch& s) const
    {
        for (vorn::HatchLoop& loop : s.loops) transformRing(loop.points);
        s.elevation += m_[2][3];
    }
    void transform(vorn::Region& s) const
    {
        for (vorn::RegionFace& face : s.faces) {
            transformRing(face.outer);
            for (vorn::Ring& hole : face.holes) transformRing(hole);
        }
        s.elevation += m_[2][3];
    }
    void transform(vorn::Face& s) const { transformCorners(s.corners); }
    void transform(vorn::Solid& s) const { transformCorners(s.corners); }
    void transform(vorn::Spline& s) const
    {
        for (Point3d& p : s.fitPoints) p = (*this)(p);
    }
    void transform(vorn::Mline& s) const
    {
        for (Point3d& p : s.vertices) p = (*this)(p);
        s.scale *= scale_;
    }
    void transformRing(std::vector<Point2d>& ring) const
    {
        for (Point2d& p : ring) p = (*this)(p);
    }
    void transformCorners(Point3d (&corners)[4]) const
    {
        for (Point3d& p : corners) p = (*this)(p);
    }

    const double (*m_)[4];
    double scale_ = 1.0;
    double angle_ = 0.0;
};

}  // namespace

void setDragBase(const Point3d& basePoint, double baseAngleDegrees, double baseScale)
{
    dragBase() = DragBase{basePoint, baseAngleDegrees * std::acos(-1.0) / 180.0, baseScale};
}

int dragMoveCallback(const Point3d& cursor, double matrix[4][4])
{
    setIdentity(matrix);
    matrix[0][3] = cursor.x - dragBase().point.x;
    matrix[1][3] = cursor.y - dragBase().point.y;
    matrix[2][3] = cursor.z - dragBase().point.z;
    return RTNORM;
}

int dragRotateCallback(const Point3d& cursor, double matrix[4][4])
{
    setAboutPoint(matrix, dragBase().point, acutAngle(dragBase().point, cursor) - dragBase().angle, 1.0);
    return RTNORM;
}

int dragScaleCallback(const Point3d& cursor, double matrix[4][4])
{
    double scale = dragBase().scale != 0.0 ? acutDistance(dragBase().point, cursor) / dragBase().scale : 1.0;
    setAboutPoint(matrix, dragBase().point, 0.0, scale);
    return RTNORM;
}

int dragToNewPosition(const vorn::SelectionSet& set, const vorn::DragCallback& callback, Point3d& pointOut)
{
    return acedDragGen(set, "\nNew position:", 0, callback, pointOut);
}

int acedXformSS(const vorn::SelectionSet& set, const double matrix[4][4])
{
    vorn::DatabasePort* database = vorn::platform().database;
    if (!database) return RTERROR;
    Transformer transformer(matrix);
    int status = RTNORM;
    for (vorn::ObjectId id : set.ids) {
        vorn::Entity entity;
        if (database->readEntity(id, entity) != vorn::eOk) continue;
        transformer.apply(entity.shape);
        if (database->writeEntity(entity) != vorn::eOk) status = RTERROR;
    }
    return status;
}
