#include "generators/features_grid.h"

#include <algorithm>
#include <cmath>

#include "grid/grid.h"

namespace vorn {

namespace {

template <class Vertex, class Position>
void appendDrawn(const std::vector<Vertex>& vertices, bool closed, Position position, std::vector<FeatureSegment>& out)
{
    std::vector<const Vertex*> drawn;
    for (const Vertex& v : vertices)
        if (v.type != 1) drawn.push_back(&v);
    if (drawn.size() == 1) out.push_back({position(*drawn[0]), position(*drawn[0]), 0.0});
    size_t count = closed ? drawn.size() : (drawn.empty() ? 0 : drawn.size() - 1);
    if (drawn.size() < 2) count = 0;
    for (size_t k = 0; k < count; ++k) {
        const Vertex& p = *drawn[k];
        double bulge = 0.0;
        if constexpr (requires { p.bulge; }) bulge = p.bulge;
        out.push_back({position(p), position(*drawn[(k + 1) % drawn.size()]), bulge});
    }
}

double distanceToChord(double px, double py, const FeatureSegment& s)
{
    double dx = s.b.x - s.a.x, dy = s.b.y - s.a.y;
    double len2 = dx * dx + dy * dy;
    double t = len2 > 0.0 ? std::clamp(((px - s.a.x) * dx + (py - s.a.y) * dy) / len2, 0.0, 1.0) : 0.0;
    return std::hypot(s.a.x + t * dx - px, s.a.y + t * dy - py);
}

}  // namespace

std::vector<FeatureSegment> featureSegments(const Entity& entity)
{
    std::vector<FeatureSegment> out;
    if (const auto* pl = entity.as<LwPolyline>()) {
        struct V {
            Point3d p;
            double bulge;
            int type;
        };
        std::vector<V> vs;
        for (const PolyVertex& v : pl->vertices) vs.push_back({{v.point.x, v.point.y, pl->elevation}, v.bulge, 0});
        appendDrawn(vs, pl->closed, [](const V& v) { return v.p; }, out);
    } else if (const auto* p2 = entity.as<Polyline2d>()) {
        double z = p2->elevation;
        appendDrawn(p2->vertices, p2->closed, [z](const Polyline2dVertex& v) { return Point3d{v.position.x, v.position.y, z}; }, out);
    } else if (const auto* p3 = entity.as<Polyline3d>()) {
        appendDrawn(p3->vertices, p3->closed, [](const Polyline3dVertex& v) { return v.position; }, out);
    } else if (const auto* line = entity.as<Line>()) {
        out.push_back({line->start, line->end, 0.0});
    }
    return out;
}

double featureFall(double distance, double influence) { return (influence - distance) * 100.0 / influence; }

double combineFeatureValue(double cell, double value, bool accumulate)
{
    if (accumulate) return std::min(cell + value, 100.0);
    return value > cell ? value : cell;
}

FeatureCells::FeatureCells(const myGrid& grid) : grid_(grid)
{
    stamp_.assign(static_cast<size_t>(grid.xNum + 1) * static_cast<size_t>(grid.yNum + 1), 0u);
}

void FeatureCells::near(const std::vector<FeatureSegment>& segments, double influence, const CellWindow& window,
                        std::vector<CellIndex>& cells)
{
    cells.clear();
    if (++current_ == 0) {
        std::fill(stamp_.begin(), stamp_.end(), 0u);
        current_ = 1;
    }
    const Point3& o = grid_.origin;
    const Vector3& xs = grid_.xStep;
    const Vector3& ys = grid_.yStep;
    const double xs2 = xs.dot(xs), ys2 = ys.dot(ys);
    if (xs2 <= 0.0 || ys2 <= 0.0) return;
    const double step = std::min(grid_.xCellW, grid_.yCellW);
    const int rows = grid_.yNum + 1;

    auto consider = [&](const FeatureSegment& s, double reach, double x0, double y0, double x1, double y1) {
        double umin = 1e300, umax = -1e300, vmin = 1e300, vmax = -1e300;
        for (const auto& [x, y] : {std::pair{x0, y0}, std::pair{x1, y0}, std::pair{x1, y1}, std::pair{x0, y1}}) {
            double u = ((x - o.x) * xs.x + (y - o.y) * xs.y) / xs2;
            double v = ((x - o.x) * ys.x + (y - o.y) * ys.y) / ys2;
            umin = std::min(umin, u);
            umax = std::max(umax, u);
            vmin = std::min(vmin, v);
            vmax = std::max(vmax, v);
        }
        auto clampIndex = [](double value, int lo, int hi) {
            return static_cast<int>(std::clamp(value, static_cast<double>(lo) - 1.0, static_cast<double>(hi) + 1.0));
        };
        int i0 = std::max(window.i0, clampIndex(std::floor(umin - 0.5), window.i0, window.i1));
        int i1 = std::min(window.i1, clampIndex(std::ceil(umax - 0.5), window.i0, window.i1));
        int j0 = std::max(window.j0, clampIndex(std::floor(vmin - 0.5), window.j0, window.j1));
        int j1 = std::min(window.j1, clampIndex(std::ceil(vmax - 0.5), window.j0, window.j1));
        for (int i = i0; i <= i1; ++i)
            for (int j = j0; j <= j1; ++j) {
                unsigned& mark = stamp_[static_cast<size_t>(i) * rows + j];
                if (mark == current_) continue;
                Point3 c;
                grid_.getCellCentre(i, j, c);
                if (distanceToChord(c.x, c.y, s) <= reach) {
                    mark = current_;
                    cells.push_back({i, j});
                }
            }
    };

    for (const FeatureSegment& s : segments) {
        const double length = std::hypot(s.b.x - s.a.x, s.b.y - s.a.y);
        // An arc over the chord stays within |bulge| * chord / 2 of it.
        const double bow = std::abs(s.bulge) * length / 2.0;
        const double scale = std::abs(s.a.x) + std::abs(s.a.y) + std::abs(s.b.x) + std::abs(s.b.y);
        const double reach = influence + bow + 1e-6 * (influence + step) + 1e-9 * scale;
        const int pieces = std::max(1, static_cast<int>(std::min(1e7, std::ceil(length / step))));
        for (int k = 0; k < pieces; ++k) {
            double t0 = static_cast<double>(k) / pieces, t1 = static_cast<double>(k + 1) / pieces;
            double ax = s.a.x + (s.b.x - s.a.x) * t0, ay = s.a.y + (s.b.y - s.a.y) * t0;
            double bx = s.a.x + (s.b.x - s.a.x) * t1, by = s.a.y + (s.b.y - s.a.y) * t1;
            consider(s, reach, std::min(ax, bx) - reach, std::min(ay, by) - reach, std::max(ax, bx) + reach, std::max(ay, by) + reach);
        }
    }
    std::sort(cells.begin(), cells.end(), [](const CellIndex& a, const CellIndex& b) { return a.i != b.i ? a.i < b.i : a.j < b.j; });
}

int rateFeatureCells(myGrid& grid, const std::vector<CellIndex>& cells, double influence, bool accumulate,
                     const FeatureClosestPoint& closest)
{
    int changed = 0;
    for (const CellIndex& cell : cells) {
        Point3 c;
        if (!grid.getCellCentre(cell.i, cell.j, c)) continue;
        Point3d q;
        if (!closest({c.x, c.y, c.z}, q)) continue;
        double d = std::hypot(c.x - q.x, c.y - q.y);
        if (d > influence) continue;
        double& value = grid.values[static_cast<size_t>(cell.i)][cell.j];
        value = combineFeatureValue(value, featureFall(d, influence), accumulate);
        ++changed;
    }
    return changed;
}

}  // namespace vorn
