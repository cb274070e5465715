// The overlap and duplicate checks on a plan of pillars and the join of
// entry segments: whole commands run in the stand-alone host on 20 000
// polylines, and the pair scans against the plain quadratic loops they
// replace on smaller plans.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>

#include "drawing/entity_geometry.h"
#include "drawing/platform.h"
#include "drawing/polygon.h"
#include "drawing/polyline_join.h"
#include "drawing/polyline_scan.h"
#include "host/docs_session.h"

namespace {

using namespace vorn;

constexpr double kPitch = 100.0;  // pillars 80 x 60 on a 100 ft pitch

// A field of pillars: every 97th pillar has a reversed copy (a duplicate),
// every 89th a neighbour shifted into it (an overlap). Far from the origin,
// as on a mine plan.
std::vector<std::vector<Point2d>> pillarPlan(int count)
{
    const int columns = static_cast<int>(std::ceil(std::sqrt(count * 2.0)));
    std::vector<std::vector<Point2d>> plan;
    for (int k = 0; static_cast<int>(plan.size()) < count; ++k) {
        double x = 512000.0 + (k % columns) * kPitch, y = 4210000.0 + (k / columns) * kPitch;
        std::vector<Point2d> pillar{{x, y}, {x + 80, y}, {x + 80, y + 60}, {x, y + 60}, {x, y}};
        plan.push_back(pillar);
        if (k % 97 == 0) plan.push_back({pillar.rbegin(), pillar.rend()});
        if (k % 89 == 0) plan.push_back({{x + 70, y + 10}, {x + 90, y + 10}, {x + 90, y + 30}, {x + 70, y + 30}, {x + 70, y + 10}});
    }
    plan.resize(static_cast<size_t>(count));
    return plan;
}

std::unique_ptr<host::HostDatabase> pillarDrawing(int count)
{
    auto db = std::make_unique<host::HostDatabase>();
    for (const auto& pillar : pillarPlan(count)) {
        LwPolyline pl;
        for (size_t i = 0; i + 1 < pillar.size(); ++i) pl.vertices.push_back({pillar[i]});
        pl.closed = true;
        Entity e;
        e.shape = pl;
        ObjectId id;
        db->appendToModelSpace(e, id);
    }
    return db;
}

// Entries as open two-vertex segments: chains of 10 along rows of a
// lattice, appended in a scattered order.
std::unique_ptr<host::HostDatabase> entryDrawing(int count)
{
    auto db = std::make_unique<host::HostDatabase>();
    const int chains = count / 10;
    for (int k = 0; k < count; ++k) {
        int chain = (k * 7919) % chains, step = k % 10;
        double x = 512000.0 + step * kPitch, y = 4210000.0 + chain * kPitch;
        Entity e;
        e.shape = LwPolyline{{{{x, y}}, {{x + kPitch, y}}}, false, 0.0, 0.0};
        ObjectId id;
        db->appendToModelSpace(e, id);
    }
    return db;
}

// One command on a new drawing, answered by the script.
void runCommand(benchmark::State& state, const char* command, const char* script,
                std::unique_ptr<host::HostDatabase> (*drawing)(int) = pillarDrawing)
{
    int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        AppSession app(drawing(count), "");
        SessionOptions options;
        options.answering = SessionOptions::Answering::Script;
        options.scriptText = script;
        options.profilePath = "";
        options.out = nullptr;
        options.err = nullptr;
        std::string error;
        app.open(options, false, error);
        state.ResumeTiming();
        benchmark::DoNotOptimize(app.runCommand(command));
    }
}

void BM_CheckOverlapsCommand(benchmark::State& state) { runCommand(state, "vorn_checkOverlaps", "select all\n<enter>\n<enter>\n"); }
void BM_CheckDuplicatesCommand(benchmark::State& state) { runCommand(state, "vorn_checkDuplicates", "select all\n<enter>\n"); }
void BM_JoinPolylinesCommand(benchmark::State& state)
{
    runCommand(state, "vorn_joinPolylines", "select all\nYes\n<enter>\n", entryDrawing);
}
BENCHMARK(BM_JoinPolylinesCommand)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_CheckOverlapsCommand)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_CheckDuplicatesCommand)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(1);

// ---- the scans on values, fast and plain

void BM_OverlapScan(benchmark::State& state)
{
    auto plan = pillarPlan(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(findOverlaps(plan, {}));
}

void BM_OverlapPlainLoop(benchmark::State& state)
{
    auto plan = pillarPlan(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::vector<bool> listed(plan.size(), false);
        for (size_t a = 0; a + 1 < plan.size(); ++a) {
            if (listed[a]) continue;
            std::vector<Point2d> points = plan[a], hull;
            convexHull(points, hull);
            for (size_t b = a + 1; b < plan.size(); ++b)
                if (overlapArea(hull, plan[b]) > 1e-10) listed[a] = listed[b] = true;
        }
        benchmark::DoNotOptimize(listed);
    }
}
BENCHMARK(BM_OverlapScan)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OverlapPlainLoop)->Arg(500)->Arg(2000)->Unit(benchmark::kMillisecond);

// The duplicate scan over the drawing's region overlap: pillars of one size
// all have equal areas, so the plain loop sends every pair to the region test.
void duplicateScan(benchmark::State& state, bool plain)
{
    auto db = pillarDrawing(static_cast<int>(state.range(0)));
    ScopedPlatform installed(Platform{db.get(), nullptr, nullptr, nullptr});
    std::vector<ObjectId> ids = db->modelSpace();
    std::vector<double> areas;
    std::vector<Extents3d> boxes;
    for (ObjectId id : ids) {
        Entity e;
        db->readEntity(id, e);
        Extents3d box;
        db->getGeomExtents(e, box);
        areas.push_back(curveArea(id));
        boxes.push_back(box);
    }
    auto common = [&ids](size_t a, size_t b) { return regionOverlapArea(ids[a], ids[b]); };
    for (auto _ : state) {
        if (!plain) {
            benchmark::DoNotOptimize(findDuplicates(areas, boxes, common, {}));
            continue;
        }
        int found = 0;
        for (size_t a = 0; a + 1 < ids.size(); ++a)
            for (size_t b = a + 1; b < ids.size(); ++b)
                if (std::fabs(areas[a] - areas[b]) <= 1e-10 && std::fabs(common(a, b) - areas[a]) < 1e-10) ++found;
        benchmark::DoNotOptimize(found);
    }
}
void BM_DuplicateScan(benchmark::State& state) { duplicateScan(state, false); }
void BM_DuplicatePlainLoop(benchmark::State& state) { duplicateScan(state, true); }
BENCHMARK(BM_DuplicateScan)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DuplicatePlainLoop)->Arg(200)->Arg(400)->Unit(benchmark::kMillisecond);

// The join as first written, every remaining polyline read against each
// seed, on the same entries.
void BM_JoinPlainLoop(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto db = entryDrawing(static_cast<int>(state.range(0)));
        ScopedPlatform installed(Platform{db.get(), nullptr, nullptr, nullptr});
        std::vector<ObjectId> ids = db->modelSpace();
        state.ResumeTiming();
        while (ids.size() > 1) {
            ObjectId seedId = ids.front();
            ids.erase(ids.begin());
            Entity seed;
            db->readEntity(seedId, seed);
            bool grew = false;
            for (size_t k = 0; k < ids.size();) {
                Entity other;
                db->readEntity(ids[k], other);
                int mode = matchPolylineEnds(*seed.as<LwPolyline>(), *other.as<LwPolyline>());
                if (mode < 0 || db->erase(ids[k]) != eOk) {
                    ++k;
                    continue;
                }
                appendPolyline(*seed.as<LwPolyline>(), *other.as<LwPolyline>(), mode);
                ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(k));
                grew = true;
            }
            if (!grew) continue;
            db->writeEntity(seed);
            ids.insert(ids.begin(), seedId);
        }
    }
}
BENCHMARK(BM_JoinPlainLoop)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
