// Writing and reading a 2000 x 2000 .grd (4 million value lines), the
// largest grid the grid panel allows. Throughput is reported in bytes/s.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>

#include "grid/grid.h"

namespace {
constexpr int kCells = 2000;

std::string benchPath() { return (std::filesystem::temp_directory_path() / "vorn_bench_2000.grd").string(); }

myGrid& largeGrid()
{
    static myGrid grid;
    if (!grid.isDefined()) {
        grid.setup(kCells, kCells, 10.0, 10.0, 0.0);
        for (int i = 0; i <= kCells; ++i)
            for (int j = 0; j <= kCells; ++j) grid.setValue(i, j, 500.0 + 250.0 * std::sin(i * 0.01) * std::cos(j * 0.013));
        grid.setTitle("Benchmark grid");
    }
    return grid;
}

void BM_WriteGrd2000(benchmark::State& state)
{
    myGrid& grid = largeGrid();
    for (auto _ : state) grid.writeGrd(benchPath());
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(std::filesystem::file_size(benchPath())));
}
BENCHMARK(BM_WriteGrd2000)->Unit(benchmark::kMillisecond);

void BM_ReadGrd2000(benchmark::State& state)
{
    largeGrid().writeGrd(benchPath());
    myGrid grid;
    for (auto _ : state) benchmark::DoNotOptimize(grid.readGrd(benchPath(), 1));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(std::filesystem::file_size(benchPath())));
}
BENCHMARK(BM_ReadGrd2000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
