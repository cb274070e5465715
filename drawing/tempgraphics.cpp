#include "drawing/tempgraphics.h"

#include "drawing/database_port.h"
#include "drawing/platform.h"

using vorn::Point2d;
using vorn::Point3d;

void drawPolygonOutline(const std::vector<Point2d>& points, int color, bool close)
{
    std::vector<Point3d> points3d;
    for (const Point2d& point : points) points3d.push_back({point.x, point.y, 0.0});
    drawPolygonOutline3d(points3d, color, close);
}

void drawPolygonOutline3d(const std::vector<Point3d>& points, int color, bool close)
{
    if (points.size() < 2) return;
    std::vector<Point3d> user;
    for (const Point3d& point : points) {
        Point3d converted;
        acdbWcs2Ucs({point.x, point.y, 0.0}, converted);
        user.push_back(converted);
    }
    for (size_t i = 0; i + 1 < user.size(); ++i) acedGrDraw(user[i], user[i + 1], color, 1);
    if (close) acedGrDraw(user.back(), user.front(), color, 1);
    flushGraphics();
}

void drawRectangleOutline(const Point2d& lower, const Point2d& upper, int color)
{
    drawPolygonOutline({lower, {upper.x, lower.y}, upper, {lower.x, upper.y}}, color, true);
}

void drawPointMarker(const Point2d& point, int pixelSize, int color)
{
    double half = pixelsToDrawing(pixelSize) / 2.0;
    drawRectangleOutline({point.x - half, point.y - half}, {point.x + half, point.y + half}, color);
}

void flushGraphics() { acedUpdateDisplay(); }

void redrawAndFlush()
{
    acedRedraw();
    flushGraphics();
}

namespace {

bool readView(Point3d& center, double& height, Point3d& screen)
{
    vorn::ResultItem value;
    if (acedGetVar("VIEWCTR", value) != RTNORM) return false;
    center = value.point;
    if (acedGetVar("SCREENSIZE", value) != RTNORM) return false;
    screen = value.point;
    if (acedGetVar("VIEWSIZE", value) != RTNORM) return false;
    height = value.real;
    return true;
}

}  // namespace

double pixelsToDrawing(double pixels)
{
    Point3d center, screen;
    double height = 0.0;
    if (!readView(center, height, screen) || screen.y == 0.0) return -1.0;
    return pixels * height / screen.y;
}

bool viewRectangle(Point3d& lower, Point3d& upper, Point3d& center)
{
    Point3d screen;
    double height = 0.0;
    if (!readView(center, height, screen) || screen.y == 0.0) return false;
    double halfHeight = height * 0.5;
    double halfWidth = height * screen.x / screen.y * 0.5;
    center.z = 0.0;
    lower = {center.x - halfWidth, center.y - halfHeight, 0.0};
    upper = {center.x + halfWidth, center.y + halfHeight, 0.0};
    return true;
}

void highlightEntity(vorn::ObjectId id, bool on)
{
    vorn::Platform& platform = vorn::platform();
    if (!id.isValid() || !platform.editor || !platform.database) return;
    vorn::Entity entity;
    if (platform.database->readEntity(id, entity) != vorn::eOk) return;
    platform.editor->highlight(id, on);
}

void highlightIds(const std::vector<vorn::ObjectId>& ids, bool on)
{
    for (vorn::ObjectId id : ids) highlightEntity(id, on);
}

void highlightSelection(const vorn::SelectionSet& set, bool on) { highlightIds(set.ids, on); }
