// Helpers of the grid tests: temporary files and whole-file reads.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace gridtest {

inline std::string tempFile(const std::string& name)
{
    auto dir = std::filesystem::temp_directory_path() / "vorn_grid_tests";
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
