// Helpers of the grid tests: temporary files and whole-file reads.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace gridtest {

// A file in a folder of this process: ctest runs tests of one suite side by
// side, each in its own process, and they must not share scratch files.
inline std::string tempFile(const std::string& name)
{
    auto dir = std::filesystem::temp_directory_path() / ("vorn_grid_tests_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    return (dir / name).string();
}

inline std::string slurp(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

inline void spit(const std::string& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace gridtest
