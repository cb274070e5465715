// The grids from contours, points and linear features at full size, with
// the fast forms the pages use:
//   - point grid, 2000 x 2000 cells from 2 000 drill holes, Inverse
//     Distance, against `gdal_grid -a invdist:power=1:radius1=R:radius2=R:
//     min_points=N` on the same points and lattice (run in the same process
//     through the shell, when gdal_grid is installed);
//   - contour grid, 1000 x 1000 cells from 60 contour lines of 500 vertices;
//   - feature grid, 2000 x 2000 cells with 200 faults.
// The cell outlines and window lines that the pages draw and print are not
// part of the measure: these are the numbers of the build alone.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

#include "generators/contour_grid.h"
#include "generators/features_grid.h"
#include "generators/points_grid.h"
#include "grid/grid.h"
#include "host/db_database.h"

namespace {

using namespace vorn;

constexpr int kPointCells = 2000;
constexpr double kPointCell = 10.0;
constexpr int kMinPoints = 4;
constexpr int kSearchPercent = 50;
// GDAL takes every point within a fixed radius; this one holds about
// twice the wanted points on average, near the radius our search ends at.
constexpr double kGdalRadius = 800.0;

std::vector<Point3d> drillHoles()
{
    std::mt19937 random(2000);
    std::uniform_real_distribution<double> coordinate(0.0, kPointCells * kPointCell);
    std::vector<Point3d> holes;
    for (int k = 0; k < 2000; ++k) {
        double x = coordinate(random), y = coordinate(random);
        holes.push_back({x, y, 300.0 + 50.0 * std::sin(x / 3000.0) + 40.0 * std::cos(y / 2500.0)});
    }
    return holes;
}

void BM_PointGridInverseDistance(benchmark::State& state)
{
    std::vector<Point3d> holes = drillHoles();
    myGrid grid;
    grid.setup(kPointCells, kPointCells, kPointCell, kPointCell, 0.0);
    const double searchLimit = kPointCells * kPointCell * kSearchPercent * 0.01;
    for (auto _ : state) {
        PointInterpolator interpolator(holes, kPointCell, searchLimit, kMinPoints);
        std::vector<int> listed;
        for (int i = 0; i <= grid.xNum; ++i)
            for (int j = 0; j <= grid.yNum; ++j) {
                Point3 c;
                grid.getCellCentre(i, j, c);
                Point3d centre{c.x, c.y, c.z};
                interpolator.search(centre, listed);
                if (!listed.empty()) grid.values[i][j] = pointCellValue(holes, listed, centre, PointAverage::InverseDistance);
            }
        benchmark::DoNotOptimize(grid.values[1][1]);
    }
}
BENCHMARK(BM_PointGridInverseDistance)->Unit(benchmark::kSecond)->Iterations(1);

// gdal_grid on the same holes and lattice (cell centres of 2000 x 2000).
void BM_PointGridGdal(benchmark::State& state)
{
    namespace fs = std::filesystem;
    fs::path dir = fs::temp_directory_path() / "vorn_bench_gdal";
    fs::create_directories(dir);
    {
        std::ofstream csv(dir / "holes.csv");
        csv << "x,y,z\n";
        csv.precision(17);
        for (const Point3d& p : drillHoles()) csv << p.x << "," << p.y << "," << p.z << "\n";
        std::ofstream(dir / "holes.vrt") << "<OGRVRTDataSource><OGRVRTLayer name=\"holes\"><SrcDataSource>" << (dir / "holes.csv").string()
                                         << "</SrcDataSource><GeometryType>wkbPoint</GeometryType>"
                                            "<GeometryField encoding=\"PointFromColumns\" x=\"x\" y=\"y\" z=\"z\"/>"
                                            "</OGRVRTLayer></OGRVRTDataSource>\n";
    }
    char command[1024];
    std::snprintf(command, sizeof command,
                  "gdal_grid -q -a invdist:power=1:radius1=%g:radius2=%g:min_points=%d -zfield z -txe 0 %g -tye 0 %g "
                  "-outsize %d %d -ot Float64 -of GTiff -l holes %s %s",
                  kGdalRadius, kGdalRadius, kMinPoints, kPointCells * kPointCell, kPointCells * kPointCell, kPointCells,
                  kPointCells, (dir / "holes.vrt").c_str(), (dir / "holes.tif").c_str());
    if (std::system("command -v gdal_grid >/dev/null 2>&1") != 0) {
        state.SkipWithError("gdal_grid is not installed");
        return;
    }
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        int status = std::system(command);
        auto end = std::chrono::steady_clock::now();
        if (status != 0) state.SkipWithError("gdal_grid failed");
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
    fs::remove_all(dir);
}
BENCHMARK(BM_PointGridGdal)->Unit(benchmark::kSecond)->Iterations(1)->UseManualTime();

// 60 wavy contours across a 1000 x 1000 grid, 500 vertices each.
std::vector<ContourLine> wavyContours()
{
    std::vector<ContourLine> contours;
    for (int c = 0; c < 60; ++c) {
        ContourLine line;
        double base = -20.0 + c * 1040.0 / 59.0;
        for (int v = 0; v < 500; ++v) {
            double x = -20.0 + v * 1040.0 / 499.0;
            line.push_back({x, base + 12.0 * std::sin(x / 80.0 + c * 0.3), 1000.0 + 10.0 * c});
        }
        contours.push_back(line);
    }
    return contours;
}

void BM_ContourGrid(benchmark::State& state)
{
    myGrid grid;
    grid.setup(1000, 1000, 1.0, 1.0, 0.0);
    for (auto _ : state) {
        ContourInterpolator interpolator(wavyContours(), 1.0, 1000.0);
        for (int i = 0; i <= grid.xNum; ++i)
            for (int j = 0; j <= grid.yNum; ++j) {
                Point3 c;
                grid.getCellCentre(i, j, c);
                ContourCellResult cell = interpolator.valueAt({c.x, c.y, c.z});
                if (cell.enough) grid.values[i][j] = cell.value;
            }
        benchmark::DoNotOptimize(grid.values[1][1]);
    }
}
BENCHMARK(BM_ContourGrid)->Unit(benchmark::kSecond)->Iterations(1);

// 200 faults of 8 segments, a few hundred cells long, influence 2 cells.
std::vector<Entity> faults()
{
    std::mt19937 random(200);
    std::uniform_real_distribution<double> start(0.0, 2000.0);
    std::uniform_real_distribution<double> turn(-0.4, 0.4);
    std::vector<Entity> features;
    for (int f = 0; f < 200; ++f) {
        LwPolyline line;
        double x = start(random), y = start(random), heading = start(random);
        for (int v = 0; v < 9; ++v) {
            line.vertices.push_back({{x, y}});
            heading += turn(random);
            x += 40.0 * std::cos(heading);
            y += 40.0 * std::sin(heading);
        }
        Entity e;
        e.shape = line;
        features.push_back(e);
    }
    return features;
}

void BM_FeatureGrid(benchmark::State& state)
{
    host::HostDatabase db;
    std::vector<Entity> features = faults();
    myGrid grid;
    grid.setup(2000, 2000, 1.0, 1.0, 0.0);
    const double influence = 2.0;
    for (auto _ : state) {
        grid.setAll(0.0);
        FeatureCells nearCells(grid);
        std::vector<CellIndex> cells;
        for (const Entity& feature : features) {
            Extents3d e;
            db.getGeomExtents(feature, e);
            int i0, j0, i1, j1;
            grid.getCellOfPointClamped({e.minPoint.x - influence, e.minPoint.y - influence}, i0, j0);
            grid.getCellOfPointClamped({e.maxPoint.x + influence, e.maxPoint.y + influence}, i1, j1);
            nearCells.near(featureSegments(feature), influence, {i0, i1, j0, j1}, cells);
            rateFeatureCells(grid, cells, influence, false, [&](const Point3d& c, Point3d& q) {
                return db.getClosestPointTo(feature, c, {0, 0, 1}, q) == eOk;
            });
        }
        benchmark::DoNotOptimize(grid.values[1][1]);
    }
}
BENCHMARK(BM_FeatureGrid)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
