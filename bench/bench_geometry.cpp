// The per-cell work of the area generators: the convex clip of one grid cell
// against a large boundary polygon, and the point-in-polygon test of a cell
// centre.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "drawing/polygon.h"

using vorn::Point2d;

namespace {

// A wavy ring of n vertices around the origin (not convex), radius 100.
std::vector<Point2d> wavyPolygon(int n)
{
    std::vector<Point2d> p;
    for (int i = 0; i < n; ++i) {
        double a = 2.0 * M_PI * i / n;
        double r = 100.0 + 8.0 * std::sin(12.0 * a);
        p.push_back({r * std::cos(a), r * std::sin(a)});
    }
    return p;
}

std::vector<Point2d> cell(double x, double y, double size)
{
    return {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}};
}

void BM_ClipCellAgainstPolygon(benchmark::State& state)
{
    std::vector<Point2d> polygon = wavyPolygon(static_cast<int>(state.range(0)));
    // A cell on the wavy rim, so the clip cuts the outline.
    std::vector<Point2d> clip = cell(98.0, -2.0, 4.0);
    std::vector<Point2d> result;
    for (auto _ : state) {
        double area = clipPolygonArea(clip, polygon, result);
        benchmark::DoNotOptimize(area);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ClipCellAgainstPolygon)->Arg(1000)->Arg(100);

void BM_ClipCellInsidePolygon(benchmark::State& state)
{
    std::vector<Point2d> polygon = wavyPolygon(1000);
    std::vector<Point2d> clip = cell(10.0, 10.0, 4.0);
    for (auto _ : state)
        benchmark::DoNotOptimize(overlapArea(clip, polygon));
}
BENCHMARK(BM_ClipCellInsidePolygon);

void BM_PointInPolygon(benchmark::State& state)
{
    std::vector<Point2d> polygon = wavyPolygon(1000);
    for (auto _ : state)
        benchmark::DoNotOptimize(pointInPolygon(polygon, {12.0, 12.0}));
}
BENCHMARK(BM_PointInPolygon);

}  // namespace

BENCHMARK_MAIN();
