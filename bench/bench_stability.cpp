// The composite stability index of four 2000 x 2000 factor grids on one
// lattice, .grd in and .grd out, as "Create Index" makes it (compare with
// bench/stability_vs_gdal.sh, which times gdal_calc.py on the same sum).
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "base/report.h"
#include "grid/grid.h"
#include "index/stability_project.h"

namespace {

namespace fs = std::filesystem;

fs::path folder()
{
    static fs::path dir = fs::temp_directory_path() / ("vorn_bench_stability_" + std::to_string(::getpid()));
    return dir;
}

// Four smooth factor grids of n x n cells, written once.
std::vector<StabilityFactor> factors(int n)
{
    static std::vector<StabilityFactor> made;
    if (!made.empty()) return made;
    fs::create_directories(folder());
    const char* weights[] = {"50", "30", "15", "5"};
    for (int k = 0; k < 4; ++k) {
        myGrid grid;
        grid.setup(n, n, 1.0, 1.0, 0.0);
        for (int i = 0; i <= n; ++i)
            for (int j = 0; j <= n; ++j)
                grid.setValue(i, j, 50 + 50 * std::sin(i / (40.0 + 7 * k)) * std::cos(j / (55.0 + 5 * k)));
        std::string path = (folder() / ("f" + std::to_string(k) + ".grd")).string();
        grid.writeGrd(path);
        made.push_back({"f" + std::to_string(k), path, "", weights[k]});
    }
    return made;
}

void BM_CompositeOfFourGrids(benchmark::State& state)
{
    std::vector<StabilityFactor> list = factors(static_cast<int>(state.range(0)));
    std::string output = (folder() / "composite.grd").string();
    CompositeQuestions questions;
    questions.askSave = [](const std::string&) { return true; };
    questions.choosePath = [&output](std::string& path) {
        path = output;
        return true;
    };
    vorn::CaptureReporter quiet;
    vorn::ScopedReporter scope(quiet);
    for (auto _ : state) benchmark::DoNotOptimize(createCompositeIndex(list, "bench.prj", questions));
}
BENCHMARK(BM_CompositeOfFourGrids)->Arg(2000)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    std::filesystem::remove_all(folder());
    return 0;
}
