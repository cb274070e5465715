// Helpers of the stability index tests: a scratch folder, grids written
// from a value function, whole-file reads.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

#include <unistd.h>

#include "grid/grid.h"

namespace indextest {

namespace fs = std::filesystem;

class ScratchDir : public ::testing::Test {
protected:
    void SetUp() override
    {
        dir = fs::temp_directory_path() /
              ("vorn_index_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }
    std::string path(const std::string& name) const { return (dir / name).string(); }

    fs::path dir;
};

inline std::string slurp(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

inline void spit(const std::string& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }

// A grid of nx by ny cells of width w from (x0, y0), every node set to
// value(i, j), written to `path` under `title`.
inline void writeGrid(const std::string& path, int nx, int ny, double w, double x0, double y0,
                      const std::function<double(int, int)>& value, const std::string& title = "")
{
    myGrid grid;
    grid.setOrigin(x0, y0, 0.0);
    grid.setup(nx, ny, w, w, 0.0);
    for (int i = 0; i <= nx; ++i)
        for (int j = 0; j <= ny; ++j) grid.setValue(i, j, value(i, j));
    grid.setTitle(title);
    grid.writeGrd(path);
}

inline myGrid readGrid(const std::string& path)
{
    myGrid grid;
    grid.readGrd(path, 1);
    return grid;
}

}  // namespace indextest
