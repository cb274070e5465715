#include "pictures/plan_render.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "base/textnum.h"
#include "drawing/geometry_curves.h"

namespace vorn {

namespace {

constexpr double kArcStep = 0.05;

struct LayerStyle {
    int color = 7;
    bool shown = true;
};

std::map<std::string, LayerStyle> layerStyles(const std::vector<LayerRecord>& layers)
{
    std::map<std::string, LayerStyle> styles;
    for (const LayerRecord& layer : layers)
        styles[toLower(layer.name)] = {std::abs(layer.color), !layer.off && !layer.frozen && layer.color >= 0};
    return styles;
}

bool wanted(const Entity& entity, const std::map<std::string, LayerStyle>& styles, const std::vector<std::string>& only)
{
    if (!entity.common.visible) return false;
    auto style = styles.find(toLower(entity.common.layer));
    if (style != styles.end() && !style->second.shown) return false;
    if (only.empty()) return true;
    for (const std::string& name : only)
        if (iequals(name, entity.common.layer)) return true;
    return false;
}

int colorOf(const Entity& entity, const std::map<std::string, LayerStyle>& styles)
{
    if (entity.common.colorIndex != kColorByLayer && entity.common.colorIndex != kColorByBlock)
        return entity.common.colorIndex;
    auto style = styles.find(toLower(entity.common.layer));
    return style == styles.end() ? 7 : style->second.color;
}

void tracePoints(const Picture& p, const std::vector<Point2d>& points, bool close)
{
    cairo_t* cr = p.cr();
    for (size_t k = 0; k < points.size(); ++k) {
        double x = p.deviceX(points[k].x), y = p.deviceY(points[k].y);
        k == 0 ? cairo_move_to(cr, x, y) : cairo_line_to(cr, x, y);
    }
    if (close) cairo_close_path(cr);
}

void fillRings(const Picture& p, const std::vector<std::vector<Point2d>>& rings)
{
    cairo_new_path(p.cr());
    for (const auto& ring : rings) tracePoints(p, ring, true);
    cairo_set_fill_rule(p.cr(), CAIRO_FILL_RULE_EVEN_ODD);
    cairo_fill(p.cr());
}

// A polyline of constant width is drawn as a band of that width in plan.
double constantWidthOf(const Entity& entity)
{
    if (const LwPolyline* lw = entity.as<LwPolyline>()) return lw->constantWidth;
    if (const Polyline2d* pl = entity.as<Polyline2d>()) return pl->defaultStartWidth;
    return 0.0;
}

void strokeCurve(const Picture& p, const Entity& entity)
{
    Path path;
    if (!curvePath(entity, path)) return;
    std::vector<Point2d> points = flatten(path, kArcStep);
    if (points.empty()) return;
    cairo_new_path(p.cr());
    tracePoints(p, points, false);
    double width = constantWidthOf(entity) * p.scale();
    cairo_set_line_width(p.cr(), std::max(1.0, width));
    cairo_stroke(p.cr());
    cairo_set_line_width(p.cr(), 1.0);
}

void drawText(const Picture& p, const Text& text)
{
    cairo_t* cr = p.cr();
    double size = text.height * p.scale();
    if (size < 1.0) return;
    cairo_save(cr);
    cairo_move_to(cr, p.deviceX(text.position.x), p.deviceY(text.position.y));
    cairo_rotate(cr, -text.rotation);
    cairo_select_font_face(cr, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, size);
    cairo_show_text(cr, text.text.c_str());
    cairo_restore(cr);
}

void drawCorners(const Picture& p, const Point3d corners[4], bool solid)
{
    // A solid's third and fourth corners stand crosswise; a face's do not.
    const int order[4] = {0, 1, solid ? 3 : 2, solid ? 2 : 3};
    std::vector<Point2d> ring;
    for (int k : order) ring.push_back({corners[k].x, corners[k].y});
    cairo_new_path(p.cr());
    tracePoints(p, ring, true);
    solid ? cairo_fill(p.cr()) : cairo_stroke(p.cr());
}

// The elements' offsets from the vertices: the style's (STANDARD's +0.5 and
// -0.5 when the style is unknown), moved by the justification (0 top: the
// vertices on the highest element, 1 zero, 2 bottom: on the lowest) and scaled.
std::vector<double> mlineOffsets(const Mline& mline, const std::vector<MlineStyle>& styles)
{
    std::vector<double> offsets{0.5, -0.5};
    for (const MlineStyle& style : styles) {
        if (!iequals(style.name, mline.styleName) || style.elements.empty()) continue;
        offsets.clear();
        for (const MlineStyleElement& element : style.elements) offsets.push_back(element.offset);
        break;
    }
    const auto [low, high] = std::minmax_element(offsets.begin(), offsets.end());
    const double shift = mline.justification == 0 ? *high : mline.justification == 2 ? *low : 0.0;
    for (double& offset : offsets) offset = (offset - shift) * mline.scale;
    return offsets;
}

Point2d unitOf(double x, double y)
{
    double length = std::hypot(x, y);
    return length > 0.0 ? Point2d{x / length, y / length} : Point2d{1.0, 0.0};
}

// At each vertex the way across the line for an offset of 1: the left
// normal at the ends, the bisector of the corner, lengthened to keep the
// offset square to both segments, between them.
std::vector<Point2d> mlineMiters(const Mline& mline)
{
    const auto& v = mline.vertices;
    const size_t n = v.size();
    std::vector<Point2d> miters(n);
    for (size_t k = 0; k < n; ++k) {
        const Point3d& next = v[(k + 1) % n];
        const Point3d& prev = v[(k + n - 1) % n];
        const bool hasNext = k + 1 < n || mline.closed, hasPrev = k > 0 || mline.closed;
        Point2d out = hasNext ? unitOf(next.x - v[k].x, next.y - v[k].y) : unitOf(v[k].x - prev.x, v[k].y - prev.y);
        Point2d in = hasPrev ? unitOf(v[k].x - prev.x, v[k].y - prev.y) : out;
        Point2d left{-out.y, out.x};
        Point2d miter = unitOf(left.x - in.y, left.y + in.x);
        double along = miter.x * left.x + miter.y * left.y;
        miters[k] = along > 1e-6 ? Point2d{miter.x / along, miter.y / along} : left;
    }
    return miters;
}

void drawMline(const Picture& p, const Mline& mline, const std::vector<MlineStyle>& styles)
{
    if (mline.vertices.size() < 2) return;
    const std::vector<Point2d> miters = mlineMiters(mline);
    for (double offset : mlineOffsets(mline, styles)) {
        std::vector<Point2d> line;
        for (size_t k = 0; k < mline.vertices.size(); ++k)
            line.push_back({mline.vertices[k].x + miters[k].x * offset, mline.vertices[k].y + miters[k].y * offset});
        cairo_new_path(p.cr());
        tracePoints(p, line, mline.closed);
        cairo_stroke(p.cr());
    }
}

void drawEntity(const Picture& p, const Entity& entity, const std::vector<MlineStyle>& mlineStyles)
{
    switch (entity.kind()) {
    case EntityKind::Point: {
        const Point3d& at = entity.as<PointEntity>()->position;
        cairo_new_path(p.cr());
        cairo_arc(p.cr(), p.deviceX(at.x), p.deviceY(at.y), 1.5, 0, 2 * M_PI);
        cairo_fill(p.cr());
        break;
    }
    case EntityKind::Text: drawText(p, *entity.as<Text>()); break;
    case EntityKind::Hatch: {
        std::vector<std::vector<Point2d>> rings;
        for (const HatchLoop& loop : entity.as<Hatch>()->loops) rings.push_back(flatten(hatchLoopPath(loop), kArcStep));
        fillRings(p, rings);
        break;
    }
    case EntityKind::Region:
        for (const RegionFace& face : entity.as<Region>()->faces) {
            std::vector<std::vector<Point2d>> rings{face.outer};
            rings.insert(rings.end(), face.holes.begin(), face.holes.end());
            fillRings(p, rings);
        }
        break;
    case EntityKind::Solid: drawCorners(p, entity.as<Solid>()->corners, true); break;
    case EntityKind::Face: drawCorners(p, entity.as<Face>()->corners, false); break;
    case EntityKind::Mline: drawMline(p, *entity.as<Mline>(), mlineStyles); break;
    default: strokeCurve(p, entity); break;
    }
}

}  // namespace

Window planExtents(const PlanContent& plan, const std::vector<std::string>& onlyLayers)
{
    auto styles = layerStyles(plan.layers);
    Window window;
    for (const Entity& entity : plan.entities) {
        if (!wanted(entity, styles, onlyLayers)) continue;
        Extents3d extents;
        if (!entityExtents(entity, extents)) continue;
        window.add(extents.minPoint.x, extents.minPoint.y);
        window.add(extents.maxPoint.x, extents.maxPoint.y);
    }
    return window;
}

void drawEntities(const Picture& picture, const PlanContent& plan, const std::vector<std::string>& onlyLayers)
{
    auto styles = layerStyles(plan.layers);
    for (const Entity& entity : plan.entities) {
        if (!wanted(entity, styles, onlyLayers)) continue;
        picture.setColor(colorOf(entity, styles));
        drawEntity(picture, entity, plan.mlineStyles);
    }
}

bool renderPlan(const PlanContent& plan, const PlanPictureOptions& options, const std::string& path, std::string& error)
{
    PictureFormat format = pictureFormatOfName(path);
    if (format == PictureFormat::None) {
        error = "the output must end in .png, .svg or .pdf";
        return false;
    }
    Window window = options.window.empty() ? planExtents(plan, options.layers) : options.window;
    Picture picture(path, format, window, options.width, 0, options.blackBackground);
    if (!picture.ok()) {
        error = "the picture could not be made";
        return false;
    }
    drawEntities(picture, plan, options.layers);
    picture.drawScaleBarAndNorth();
    return picture.finish(error);
}

}  // namespace vorn
