// Pictures and GIS rasters at report size: a 2000 x 2000 grid with its
// legend to PNG, a plan of 100 000 polylines to PNG, and the GeoTIFF write
// of the 2000 x 2000 grid (compare `gdal_translate` of the same data from an
// ESRI ASCII grid).
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "grid/gisraster.h"
#include "grid/grid.h"
#include "pictures/grid_render.h"
#include "pictures/plan_render.h"

namespace fs = std::filesystem;
using namespace vorn;

namespace {

std::string scratch(const std::string& name)
{
    static const fs::path dir = [] {
        fs::path d = fs::temp_directory_path() / ("vorn_bench_pictures_" + std::to_string(::getpid()));
        fs::create_directories(d);
        return d;
    }();
    return (dir / name).string();
}

// A smooth surface with a few "N" holes, 2000 x 2000 cells.
myGrid& largeGrid()
{
    static myGrid grid = [] {
        myGrid g;
        const int n = 2000;
        g.setup(n, n, 5.0, 5.0, 0.0);
        g.setOrigin(10000.0, 20000.0, 0.0);
        for (int i = 0; i <= n; ++i)
            for (int j = 0; j <= n; ++j) g.setValue(i, j, 300.0 + 80.0 * std::sin(i * 0.004) * std::cos(j * 0.003) + 0.01 * i);
        for (int i = 900; i < 1000; ++i)
            for (int j = 900; j < 1000; ++j) g.setValue(i, j, NULL_VALUE);
        return g;
    }();
    return grid;
}

// 100 000 closed pillar outlines of five vertices over 10 layers.
PlanContent largePlan()
{
    PlanContent plan;
    for (int k = 0; k < 10; ++k) plan.layers.push_back({{}, "L" + std::to_string(k), k + 1});
    for (int k = 0; k < 100000; ++k) {
        const double x = (k % 400) * 30.0, y = (k / 400) * 30.0;
        LwPolyline outline;
        outline.closed = true;
        outline.vertices = {{{x, y}}, {{x + 20, y}}, {{x + 22, y + 10}}, {{x + 20, y + 20}}, {{x, y + 20}}};
        Entity entity{{}, outline};
        entity.common.layer = "L" + std::to_string(k % 10);
        plan.entities.push_back(std::move(entity));
    }
    return plan;
}

void BM_RenderGrid2000WithLegendToPng(benchmark::State& state)
{
    myGrid& grid = largeGrid();
    GridPictureOptions options;
    options.legend = true;
    options.width = 2000;
    std::string error;
    for (auto _ : state)
        if (!renderGrid(grid, options, scratch("grid.png"), error)) state.SkipWithError(error.c_str());
}
BENCHMARK(BM_RenderGrid2000WithLegendToPng)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RenderPlan100kPolylinesToPng(benchmark::State& state)
{
    static const PlanContent plan = largePlan();
    PlanPictureOptions options;
    options.width = 2000;
    std::string error;
    for (auto _ : state)
        if (!renderPlan(plan, options, scratch("plan.png"), error)) state.SkipWithError(error.c_str());
}
BENCHMARK(BM_RenderPlan100kPolylinesToPng)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_WriteGeoTiff2000(benchmark::State& state)
{
    myGrid& grid = largeGrid();
    std::string error;
    for (auto _ : state)
        if (!writeRaster(grid, scratch("grid.tif"), RasterFormat::GeoTiff, error)) state.SkipWithError(error.c_str());
}
BENCHMARK(BM_WriteGeoTiff2000)->Unit(benchmark::kMillisecond)->UseRealTime();

// Writes the ESRI ASCII form of the same grid for the `gdal_translate`
// comparison (kept at VORN_BENCH_ASC when that is set).
void BM_WriteEsriAscii2000(benchmark::State& state)
{
    myGrid& grid = largeGrid();
    const char* keep = std::getenv("VORN_BENCH_ASC");
    std::string error;
    for (auto _ : state)
        if (!writeRaster(grid, keep ? keep : scratch("grid.asc"), RasterFormat::EsriAscii, error))
            state.SkipWithError(error.c_str());
}
BENCHMARK(BM_WriteEsriAscii2000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    fs::remove_all(fs::path(scratch("x")).parent_path());
    return 0;
}
