// Stress model timings: the influence sum plain and separable, the seam
// solver's sweep with the material laws, and `vornmark keldar` on the
// example panel.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "base/report.h"
#include "stressmodel/influence_fft.h"
#include "stressmodel/modeldat.h"
#include "stressmodel/sor.h"
#include "tests/stressmodel/plain_kernels.h"

namespace {

constexpr int kSide = 200;
const vorn::KernelRock kRock{3.0e6f, 179.0f};

struct Fields {
    std::vector<double> source, target;
    vorn::KernelField sourceField, targetField;

    Fields() : source(kSide * kSide), target(kSide * kSide)
    {
        for (int n = 0; n < kSide * kSide; ++n) source[n] = 0.01 + 1e-4 * (n % 37);
        sourceField = {source.data(), kSide, kSide, kSide, 60, 0, 0};
        targetField = {target.data(), kSide, kSide, kSide, 60, 0, 0};
    }
};

// A seam 1000 ft deep mirrored: distance 24000 in, window of 4000 elements.
constexpr double kDistance = -24000;

void PropagateStressPlain(benchmark::State& state)
{
    Fields f;
    for (auto _ : state) {
        vorn::plainPropagate(f.sourceField, f.targetField, kDistance, kRock);
        benchmark::DoNotOptimize(f.target.data());
    }
}
BENCHMARK(PropagateStressPlain)->Unit(benchmark::kMillisecond)->Iterations(1);

void PropagateStressSeparable(benchmark::State& state)
{
    Fields f;
    for (auto _ : state) {
        vorn::propagateStress(f.sourceField, f.targetField, kDistance, kRock);
        benchmark::DoNotOptimize(f.target.data());
    }
}
BENCHMARK(PropagateStressSeparable)->Unit(benchmark::kMillisecond);

// A full-window pass (a mirror seam 1200 ft deep) on N x N seams: the
// separable sums against the FFT convolutions that the solver chooses for
// large seams.
struct SquareFields {
    std::vector<double> source, target;
    vorn::KernelField sourceField, targetField;

    explicit SquareFields(int side) : source(static_cast<std::size_t>(side) * side), target(source.size())
    {
        for (std::size_t n = 0; n < source.size(); ++n) source[n] = 0.01 + 1e-4 * static_cast<double>(n % 37);
        sourceField = {source.data(), side, side, side, 60, 0, 0};
        targetField = {target.data(), side, side, side, 60, 0, 0};
    }
};
constexpr double kMirrorDistance = -28800;

void FullWindowSeparable(benchmark::State& state)
{
    SquareFields f(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        vorn::propagateStressSeparable(f.sourceField, f.targetField, kMirrorDistance, kRock);
        benchmark::DoNotOptimize(f.target.data());
    }
}
BENCHMARK(FullWindowSeparable)->Arg(200)->Arg(400)->Arg(800)->Unit(benchmark::kMillisecond)->Iterations(1);

void FullWindowConvolution(benchmark::State& state)
{
    SquareFields f(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        vorn::propagateStressByConvolution(f.sourceField, f.targetField, kMirrorDistance, kRock);
        benchmark::DoNotOptimize(f.target.data());
    }
}
BENCHMARK(FullWindowConvolution)->Arg(200)->Arg(400)->Arg(800)->Unit(benchmark::kMillisecond)->Iterations(1);

// A 300 x 300 seam of coal pillars, rib elements, entries and gob.
struct SeamFixture {
    CModelDat model;
    vorn::CaptureReporter quiet;

    SeamFixture()
    {
        model.seamCount = 1;
        model.elementsX = model.elementsY = 300;
        model.elementWidth = 60;
        model.modulus = 3.0e6f;
        model.poisson = 0.25f;
        model.layerThickness = 600;
        model.density = 0.0917f;
        model.seamZ[1] = -7200;
        model.seamThickness[1] = 72;
        model.overRelaxation = 1.8f;
        model.materialCount = 3;
        const float core[5] = {4000, 0.012f, 0, 0.3f, 0};
        const float rib[5] = {2000, 0.008f, 800, 0.03f, 0.3f};
        const float gob[5] = {200, 100000, 2000, 1, 0.3f};
        const int types[3] = {3, 2, 5};
        const float* properties[3] = {core, rib, gob};
        for (int m = 0; m < 3; ++m) {
            model.materialType[m] = types[m];
            for (int p = 0; p < 5; ++p) model.materialProperty[m][p] = properties[m][p];
        }
        model.Initialize();
        vorn::ccubix(model.codes, 1, 1, 1, 300, 1, 300);
        for (int x = 1; x <= 300; ++x)
            for (int y = 1; y <= 300; ++y) {
                const int px = x % 16, py = y % 16;
                char code = px < 4 || py < 4 ? '1' : (px == 4 || py == 4 || px == 15 || py == 15 ? 'B' : 'A');
                model.codes(1, x, y) = y < 100 ? 'C' : code;
                model.convergence(1, x, y) = 0.1;
            }
    }
};

void SorSweepWithElementStress(benchmark::State& state)
{
    SeamFixture seam;
    CModelDat& m = seam.model;
    vorn::ScopedReporter scoped(seam.quiet);
    const double a = m.overRelaxation * 0.25, b = 1.0 - m.overRelaxation;
    const double g = (2 / (m.lamination * m.modulus)) * (60.0 * 60.0 * a);
    const double* o = m.overburdenStress[1].at(1, 1);
    const double* s = m.verticalStress[1].at(1, 1);
    auto load = [=](int x, int y) {
        const std::ptrdiff_t k = (x - 1) * 300 + (y - 1);
        return s[k] - o[k];
    };
    for (auto _ : state) {
        m.ElementStress(m.convergence[1], m.verticalStress[1], m.codes[1], m.seamThickness[1]);
        m.MirrorBoundaries(m.convergence[1]);
        benchmark::DoNotOptimize(vorn::sorSweep(m.convergence[1].at(0, 0), m.convergence[1].stride(), 300, 300, a, b, g, load));
    }
    state.SetItemsProcessed(state.iterations() * 300 * 300);
}
BENCHMARK(SorSweepWithElementStress)->Unit(benchmark::kMicrosecond);

// `vornmark keldar` on the example panel, in a scratch copy of its folder.
void KeldarExamplePanel(benchmark::State& state)
{
    namespace fs = std::filesystem;
    const fs::path binary = fs::read_symlink("/proc/self/exe").parent_path().parent_path() / "app" / "vornmark";
    const fs::path example = fs::path(__FILE__).parent_path().parent_path() / "examples" / "keldar";
    const fs::path scratch = fs::temp_directory_path() / "vorn_bench_keldar";
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove_all(scratch);
        fs::create_directories(scratch);
        for (const char* file : {"panel.inp", "panel.top"}) fs::copy_file(example / file, scratch / file);
        state.ResumeTiming();
        const std::string command = binary.string() + " keldar " + (scratch / "panel.inp").string() + " < /dev/null > /dev/null 2>&1";
        if (std::system(command.c_str()) != 0) state.SkipWithError("vornmark keldar failed");
    }
    fs::remove_all(scratch);
}
BENCHMARK(KeldarExamplePanel)->Unit(benchmark::kSecond)->Iterations(1);

// The example panel scaled to N x N elements (examples/keldar/make_panel.py
// --size N): the whole run in this process, read, print, solve and write,
// so that the cpu time is the solver's. The model files are made once per
// size, outside the timing.
void KeldarScaledPanel(benchmark::State& state)
{
    namespace fs = std::filesystem;
    const int size = static_cast<int>(state.range(0));
    const fs::path generator = fs::path(__FILE__).parent_path().parent_path() / "examples" / "keldar" / "make_panel.py";
    const fs::path scratch = fs::temp_directory_path() / ("vorn_bench_panel_" + std::to_string(size));
    fs::remove_all(scratch);
    const std::string make = "python3 " + generator.string() + " --size " + std::to_string(size) + " --out " + scratch.string();
    if (std::system(make.c_str()) != 0) {
        state.SkipWithError("make_panel.py failed");
        return;
    }
    const fs::path before = fs::current_path();
    fs::current_path(scratch);
    vorn::CaptureReporter quiet;
    vorn::ScopedReporter scoped(quiet);
    for (auto _ : state) {
        CModelDat model;
        model.SetInputPath((scratch / "panel.inp").string());
        model.SetInputFile("panel.inp");
        model.SetBaseName("panel");
        if (model.ReadInput() != 0 || model.PrintInput() != 0 || model.Run() != 0) state.SkipWithError("the run failed");
    }
    fs::current_path(before);
    fs::remove_all(scratch);
}
BENCHMARK(KeldarScaledPanel)->Arg(100)->Arg(200)->Arg(300)->Arg(400)->Arg(800)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
