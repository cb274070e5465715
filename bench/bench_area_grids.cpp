// The area builds on a large plan: a 2000 x 2000 base grid of 5 ft cells
// under a panel of 10 000 pillars (every other one rotated) and two gob
// areas. The builds of the two pages run in the stand-alone host over a
// drawing that is already loaded (its making is not timed), from the button
// press to the finished grid, without the plot that follows: the Area Based
// build of the area boundary factor, and the seam grid. A third case times
// the cell loop of the pillars alone.
#include <benchmark/benchmark.h>

#include <cmath>
#include <functional>
#include <memory>

#include "generators/areacover.h"
#include "generators/areafacttab.h"
#include "generators/cellwindow.h"
#include "generators/seamtab.h"
#include "host/docs_session.h"

namespace {

using vorn::Point2d;

constexpr int kColumns = 100;
constexpr int kRows = 100;
constexpr double kPitch = 90.0;   // pillars of 60 x 60 ft, entries of 30 ft
constexpr double kPillar = 60.0;
constexpr double kCell = 5.0;
constexpr int kCells = 2000;

std::vector<Point2d> pillarOutline(int column, int row)
{
    double cx = 20.0 + column * kPitch + kPillar / 2, cy = 20.0 + row * kPitch + kPillar / 2;
    double angle = (column + row) % 2 ? 0.26 : 0.0;  // every other pillar turned by 15 degrees
    double c = std::cos(angle), s = std::sin(angle), h = kPillar / 2;
    std::vector<Point2d> points;
    for (Point2d d : {Point2d{-h, -h}, Point2d{h, -h}, Point2d{h, h}, Point2d{-h, h}})
        points.push_back({cx + c * d.x - s * d.y, cy + s * d.x + c * d.y});
    return points;
}

const std::vector<std::vector<Point2d>> gobOutlines{
    {{0, 9040}, {10000, 9040}, {10000, 9990}, {0, 9990}},
    {{9100, 100}, {9900, 300}, {9950, 4000}, {9500, 8800}, {9150, 8000}},
};

void addPolygon(vorn::host::HostDatabase& db, const std::string& layer, const std::vector<Point2d>& points)
{
    vorn::Entity e;
    e.common.layer = layer;
    vorn::LwPolyline polyline;
    for (const Point2d& p : points) polyline.vertices.push_back({p});
    polyline.closed = true;
    e.shape = polyline;
    vorn::ObjectId id;
    db.appendToModelSpace(e, id);
}

std::unique_ptr<vorn::host::HostDatabase> panelPlan(const std::string& pillarLayer)
{
    auto db = std::make_unique<vorn::host::HostDatabase>();
    vorn::ObjectId id;
    for (const char* name : {pillarLayer.c_str(), "Gob"}) {
        vorn::LayerRecord layer;
        layer.name = name;
        db->addLayer(layer, id);
    }
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column) addPolygon(*db, pillarLayer, pillarOutline(column, row));
    for (const auto& gob : gobOutlines) addPolygon(*db, "Gob", gob);
    return db;
}

// The base grid of the frame: 2000 x 2000 cells of 5 ft from (0,0).
void defineBaseGrid(CProMainTab& frame)
{
    const std::string count = std::to_string(kCells), width = "5", zero = "0";
    frame.xNumText = frame.yNumText = count;
    frame.xCellText = frame.yCellText = width;
    frame.originXText = frame.originYText = frame.rotationText = zero;
}

// Runs `build` in a session over a fresh copy of the plan, with `answers`
// for the build's questions; stops the benchmark when it does not finish.
void runBuild(benchmark::State& state, const std::string& pillarLayer, const std::string& answers,
              const std::function<bool()>& build)
{
    for (auto _ : state) {
        state.PauseTiming();
        auto app = std::make_unique<vorn::AppSession>(panelPlan(pillarLayer), "");
        vorn::SessionOptions options;
        options.answering = vorn::SessionOptions::Answering::Script;
        options.scriptText = answers;
        options.profilePath = "";
        options.out = nullptr;
        options.err = nullptr;
        std::string error;
        app->open(options, false, error);
        bool finished = false;
        state.ResumeTiming();
        app->session().run([&] {
            finished = build();
            return 0;
        });
        state.PauseTiming();
        if (!finished) {
            state.SkipWithError("the build did not finish");
            break;
        }
        app.reset();
        state.ResumeTiming();
    }
}

// The boundaries lie on the working layer already; Area Based at 50 %.
void BM_AreaFactorBuild(benchmark::State& state)
{
    runBuild(state, "VORN_Working_Layer", "Yes\n", [] {
        CProMainTab frame;
        defineBaseGrid(frame);
        CAreaFactTab page;
        frame.addPage("Build Grid", IDD_AREAFACTTAB, &page);
        page.OnInitDialog();
        return page.buildGrid();
    });
}

void BM_SeamGridBuild(benchmark::State& state)
{
    runBuild(state, "Pillars", "Yes\nYes\n", [] {
        CProMainTab frame;
        defineBaseGrid(frame);
        CSeamTab page;
        frame.addPage("Build Grid", IDD_SEAMTAB, &page);
        page.OnInitDialog();
        page.pillarLayers.choose("Pillars");
        page.gobLayers.choose("Gob");
        return page.buildGrid();
    });
}

// The pillars' cell loop alone, without the drawing.
void BM_PillarCellLoop(benchmark::State& state)
{
    myGrid grid;
    grid.setup(kCells, kCells, kCell, kCell, 0.0);
    std::vector<std::vector<Point2d>> pillars;
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column) pillars.push_back(pillarOutline(column, row));
    double threshold = minAreaThreshold(grid, true, 50);
    AreaCover cover;
    for (auto _ : state) {
        grid.setAll(0.0);
        for (const auto& pillar : pillars) {
            CellWindow window = polygonCellWindow(grid, pillar);
            if (!window.spansCells()) continue;
            cover.setPolygon(pillar);
            cover.addArea(grid, window, threshold);
        }
        classifyPillarCells(grid, threshold);
        benchmark::DoNotOptimize(grid.values[0][0]);
    }
}

}  // namespace

BENCHMARK(BM_AreaFactorBuild)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SeamGridBuild)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PillarCellLoop)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_MAIN();
