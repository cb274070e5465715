#include "generators/contour_topfile.h"

#include <cstdio>

#include "base/textfile.h"
#include "grid/grid.h"

namespace vorn {

bool writeContourTop(const myGrid& grid, const std::string& path, bool feet)
{
    const double f = feet ? 12.0 : 1.0;
    const int nx = grid.getXNum(), ny = grid.getYNum();
    const std::string temporary = path + ".part";
    TextWriter out;
    if (!out.open(temporary)) return false;
    out.printf("1,%d,%f,%d,%d,%f,%f,%f\n", nx * ny, grid.getXCellW() * f, nx, ny, grid.getOrigin().x * f,
               grid.getOrigin().y * f, grid.getAverage() * f);
    out.write("1,Overburden Depth\n");
    out.write(feet ? "1,Inch\n" : "1,Meter\n");
    for (int i = 0; i < nx; ++i)
        for (int j = 0; j < ny; ++j) {
            out.writeFixed6(grid.values[static_cast<size_t>(i)][j] * f);
            out.write("\n");
        }
    if (!out.close() || std::rename(temporary.c_str(), path.c_str()) != 0) {
        std::remove(temporary.c_str());
        return false;
    }
    return true;
}

}  // namespace vorn
