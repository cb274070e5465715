// Index mapping of a 1000 x 1000 index grid with ten colour groups and
// combining on, from the grid file to the saved drawing: <Analyze> (a
// region per cell, united by colour) and <Hatch> of the panel "Mapping
// Stability Index on Entries", then the DXF file.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "grid/grid.h"
#include "host/docs_session.h"
#include "index/dlg_indexmapping.h"

namespace {

namespace fs = std::filesystem;

fs::path folder()
{
    static fs::path dir = fs::temp_directory_path() / ("vorn_bench_mapping_" + std::to_string(::getpid()));
    return dir;
}

// A smooth index field of n x n cells of 10 units, written once.
std::string indexGrid(int n)
{
    std::string path = (folder() / "index.grd").string();
    if (fs::exists(path)) return path;
    fs::create_directories(folder());
    myGrid grid;
    grid.setup(n, n, 10.0, 10.0, 0.0);
    for (int i = 0; i <= n; ++i)
        for (int j = 0; j <= n; ++j) grid.setValue(i, j, 50 + 50 * std::sin(i / 90.0) * std::cos(j / 130.0));
    grid.writeGrd(path);
    return path;
}

// A plan with one pillar inside the grid on the layer "Pillars".
std::unique_ptr<vorn::host::HostDatabase> plan()
{
    auto db = std::make_unique<vorn::host::HostDatabase>();
    vorn::LayerRecord layer;
    layer.name = "Pillars";
    vorn::ObjectId id;
    db->addLayer(layer, id);
    vorn::Entity pillar;
    pillar.common.layer = "Pillars";
    pillar.shape = vorn::LwPolyline{{{{105, 105}}, {{185, 105}}, {{185, 165}}, {{105, 165}}}, true, 0.0, 0.0};
    db->appendToModelSpace(pillar, id);
    return db;
}

void BM_IndexMappingToDxf(benchmark::State& state)
{
    std::string grid = indexGrid(static_cast<int>(state.range(0)));
    std::string output = (folder() / "mapped.dxf").string();
    for (auto _ : state) {
        vorn::AppSession app(plan(), "");
        vorn::SessionOptions options;
        options.answering = vorn::SessionOptions::Answering::Script;
        options.scriptText = "<enter>\nYes\n<enter>\n<enter>\nYes\n";
        options.profilePath = "";
        options.out = nullptr;
        options.err = nullptr;
        std::string error;
        app.open(options, false, error);
        app.session().run([&grid] {
            dlg_indexmapping panel;
            panel.OnInitDialog();
            panel.loadGrid(grid);
            panel.mappingLayer = "MAP";
            panel.selectPillarLayers({"Pillars"});
            panel.OnAnalyze();
            panel.OnHatch();
            return 0;
        });
        app.save(output, error);
    }
    state.counters["dxf_bytes"] = static_cast<double>(fs::file_size(output));
}
BENCHMARK(BM_IndexMappingToDxf)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::filesystem::remove_all(folder());
    return 0;
}
