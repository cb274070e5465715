// The merged plot kinds on large grids of a smooth field with ten colour
// groups, drawn into the stand-alone drawing database:
//   - kind 6 (a solid hatch per column run) of 2000 x 2000 cells, and the
//     drawing saved as DXF;
//   - kind 7 (hatched regions) of 1000 x 1000 cells, whose column runs are
//     united per colour group by halving.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>

#include <map>
#include <vector>

#include "drawing/create.h"
#include "drawing/platform.h"
#include "drawing/region_union.h"
#include "grid/grid.h"
#include "grid/gridplot.h"
#include "host/db_database.h"
#include "host/dxf_codec.h"
#include "host/session.h"

namespace {

using namespace vorn;

// Two gentle waves over the lattice: 0 to 100, ten groups of the default table.
myGrid smoothField(int cells)
{
    myGrid grid;
    grid.setup(cells, cells, 10.0, 10.0, 0.0);
    for (int i = 0; i <= cells; ++i) {
        for (int j = 0; j <= cells; ++j) {
            double x = static_cast<double>(i) / cells, y = static_cast<double>(j) / cells;
            grid.setValue(i, j, 50.0 + 50.0 * std::sin(3.0 * x) * std::cos(2.0 * y));
        }
    }
    grid.buildDefaultColors();
    return grid;
}

// Plots `grid` as `kind` into a new quiet session; the entity count.
size_t plotInto(myGrid& grid, int kind, host::HostDatabase*& drawing, std::unique_ptr<Session>& session)
{
    auto db = std::make_unique<host::HostDatabase>();
    drawing = db.get();
    session = std::make_unique<Session>(std::move(db));
    SessionOptions options;
    options.profilePath = "";
    options.out = nullptr;
    options.err = nullptr;
    std::string error;
    session->open(options, error);
    session->run([&] {
        grid.setPlotOptions(kind, 2, "", false, false);
        grid.plot();
        return 0;
    });
    return drawing->modelSpace().size();
}

void BM_HatchRunsAndSave(benchmark::State& state)
{
    myGrid grid = smoothField(static_cast<int>(state.range(0)));
    std::string path = (std::filesystem::temp_directory_path() / "vorn_bench_hatches.dxf").string();
    size_t entities = 0;
    for (auto _ : state) {
        host::HostDatabase* drawing = nullptr;
        std::unique_ptr<Session> session;
        entities = plotInto(grid, 6, drawing, session);
        std::string error;
        if (!host::saveDxf(path, *drawing, error)) state.SkipWithError(error.c_str());
    }
    state.counters["entities"] = static_cast<double>(entities);
    std::filesystem::remove(path);
}
BENCHMARK(BM_HatchRunsAndSave)->Arg(2000)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_HatchedRegions(benchmark::State& state)
{
    myGrid grid = smoothField(static_cast<int>(state.range(0)));
    size_t entities = 0;
    for (auto _ : state) {
        host::HostDatabase* drawing = nullptr;
        std::unique_ptr<Session> session;
        entities = plotInto(grid, 7, drawing, session);
    }
    state.counters["entities"] = static_cast<double>(entities);
}
BENCHMARK(BM_HatchedRegions)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(3);

// The column runs of each colour as regions, in a quiet session.
std::map<int, std::vector<Entity>> runRegions(myGrid& grid, Session& session)
{
    std::map<int, std::vector<Entity>> byColor;
    session.run([&] {
        forEachColumnRun(grid, [&](const ColumnRun& run) {
            Entity outline;
            makePolylineFromPoints(outline, run.corners, true, 0.0, run.color);
            std::vector<Entity> made;
            platform().database->createRegionsFromCurves({outline}, made);
            byColor[run.color].push_back(made.at(0));
        }, [] { return true; });
        return 0;
    });
    return byColor;
}

// Uniting each colour's runs one at a time against by halving.
void BM_UniteRuns(benchmark::State& state)
{
    myGrid grid = smoothField(static_cast<int>(state.range(0)));
    const bool halving = state.range(1) != 0;
    Session session(std::make_unique<host::HostDatabase>());
    SessionOptions options;
    options.profilePath = "";
    options.out = nullptr;
    options.err = nullptr;
    std::string error;
    session.open(options, error);
    const std::map<int, std::vector<Entity>> runs = runRegions(grid, session);
    for (auto _ : state) {
        std::map<int, std::vector<Entity>> work = runs;
        session.run([&] {
            for (auto& [color, regions] : work) {
                if (halving) {
                    uniteRegionsByHalving(regions);
                } else {
                    for (size_t k = 1; k < regions.size(); ++k)
                        platform().database->booleanOper(regions[0], BoolOperType::Union, regions[k]);
                }
            }
            return 0;
        });
    }
}
BENCHMARK(BM_UniteRuns)->Args({300, 0})->Args({300, 1})->Args({1000, 0})->Args({1000, 1})->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
