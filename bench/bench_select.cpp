// Window and crossing selection on a plan of 100 000 closed polylines (a
// 400 x 250 field of pillars), against the spatial index of the stand-alone
// drawing database.
#include <benchmark/benchmark.h>

#include "host/db_database.h"

namespace {

using namespace vorn;

constexpr int kColumns = 400;
constexpr int kRows = 250;
constexpr double kPitch = 100.0;  // pillar 80 x 60 on a 100 ft pitch

host::HostDatabase& plan()
{
    static host::HostDatabase made;
    static bool filled = [] {
        LayerRecord layer;
        layer.name = "Pillars";
        ObjectId id;
        made.addLayer(layer, id);
        for (int row = 0; row < kRows; ++row) {
            for (int col = 0; col < kColumns; ++col) {
                double x = col * kPitch, y = row * kPitch;
                Entity e;
                e.common.layer = "Pillars";
                e.shape = LwPolyline{{{{x, y}}, {{x + 80, y}}, {{x + 80, y + 60}}, {{x, y + 60}}}, true, 0.0, 0.0};
                made.appendToModelSpace(e, id);
            }
        }
        return true;
    }();
    benchmark::DoNotOptimize(filled);
    return made;
}

// A square window of `side` pillars, off the lattice so that its edges cut
// through pillars.
SelectionQuery window(SelectMode mode, int side)
{
    double x0 = 120 * kPitch + 50, y0 = 80 * kPitch + 30;
    return {mode, {{x0, y0}, {x0 + side * kPitch, y0 + side * kPitch}}, {ResultItem::ofText(8, "Pillars"), ResultItem::ofText(0, "LWPOLYLINE,POLYLINE")}};
}

void runQuery(benchmark::State& state, SelectMode mode)
{
    host::HostDatabase& db = plan();
    SelectionQuery query = window(mode, static_cast<int>(state.range(0)));
    std::size_t found = 0;
    for (auto _ : state) {
        std::vector<ObjectId> ids = db.select(query);
        found = ids.size();
        benchmark::DoNotOptimize(ids.data());
    }
    state.counters["selected"] = static_cast<double>(found);
}

void BM_WindowSelect(benchmark::State& state) { runQuery(state, SelectMode::Window); }
void BM_CrossingSelect(benchmark::State& state) { runQuery(state, SelectMode::Crossing); }

// The same filter over the whole drawing ("X"): the cost of visiting every
// entity, for comparison.
void BM_SelectAllByLayer(benchmark::State& state)
{
    host::HostDatabase& db = plan();
    SelectionQuery query{SelectMode::All, {}, {ResultItem::ofText(8, "Pillars")}};
    for (auto _ : state) benchmark::DoNotOptimize(db.select(query).data());
}

void BM_PickNear(benchmark::State& state)
{
    host::HostDatabase& db = plan();
    for (auto _ : state) benchmark::DoNotOptimize(db.entitiesNear({150 * kPitch + 80.5, 90 * kPitch + 30}, 1.0).data());
}

BENCHMARK(BM_WindowSelect)->Arg(1)->Arg(10)->Arg(30)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_CrossingSelect)->Arg(1)->Arg(10)->Arg(30)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SelectAllByLayer)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PickNear)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
