#include "generators/seamfile.h"

#include <cstdio>
#include <filesystem>

#include "base/textfile.h"

char seamCode(double value, const SeamCodes& codes)
{
    if (value < -1e-10) return codes.gob;
    if (value > 1e-10) return codes.pillar;
    return codes.entry;
}

namespace {
bool writeRows(vorn::TextWriter& out, const myGrid& grid, const SeamCodes& codes)
{
    vorn::Point2 corner;
    grid.getNodeXY(0, 0, corner);
    out.printf("%d,%d,%f,%f\n", grid.xNum, grid.yNum, corner.x, corner.y);
    std::string row;
    for (int j = grid.yNum - 1; j >= 0; --j) {
        row.clear();
        for (int i = 0; i < grid.xNum; ++i) row.push_back(seamCode(grid.values[i][j], codes));
        row.push_back('\n');
        out.write(row);
    }
    return out.close();
}
}  // namespace

bool writeSeamFile(const std::string& path, const myGrid& grid, const SeamCodes& codes)
{
    std::string temporary = path + ".part";
    vorn::TextWriter out;
    if (!out.open(temporary)) return false;
    std::error_code error;
    if (!writeRows(out, grid, codes)) {
        std::filesystem::remove(temporary, error);
        return false;
    }
    std::filesystem::rename(temporary, path, error);
    if (!error) return true;
    std::filesystem::remove(temporary, error);
    return false;
}
