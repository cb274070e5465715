// The .grd and .top grid files, byte for byte. Both are text files with CR LF
// line ends; the readers accept LF as well.
#include "grid/gridfiles.h"

#include <cstdio>

#include "grid/grid.h"
#include "base/report.h"
#include "base/textfile.h"
#include "base/textnum.h"

namespace {

constexpr const char* kHeaderLineErrors[6] = {
    "Error in reading first line!", "Error in reading second line!", "Error in reading third line!",
    "Error in reading fourth line!", "Error in reading fifth line!", "Error in reading sixth line!",
};
constexpr int kTopCountLimit = 2000;

bool openForReading(vorn::TextReader& file, const std::string& path)
{
    int cause = 0;
    if (file.open(path, &cause)) return true;
    AfxMessageBox(vorn::shiftedByCause("File could not be opened: ", cause));
    return false;
}

bool openForWriting(vorn::TextWriter& file, const std::string& path, const char* message)
{
    int cause = 0;
    if (file.openReplacing(path, &cause)) return true;
    AfxMessageBox(vorn::shiftedByCause(message, cause));
    return false;
}

// Each value takes a line of at least one byte: a file with fewer bytes left
// than the values its header claims cannot hold them, and a full read
// refuses it before anything is allocated for them.
bool canHoldValues(const vorn::TextReader& file, double valueCount)
{
    return valueCount <= static_cast<double>(file.bytesLeft());
}

// A header-only read sets up the lattice whatever follows the header, but
// not one larger than this (32 MB of nodes) that the file cannot hold.
constexpr double kHeaderOnlyNodeLimit = 1 << 22;

// Whether a read may allocate `valueCount` nodes for a file: a full read
// only what the file can hold, a header-only read up to the limit as well.
bool mayAllocate(const vorn::TextReader& file, double valueCount, int loadValues)
{
    return canHoldValues(file, valueCount) || (loadValues != 1 && valueCount <= kHeaderOnlyNodeLimit);
}

double readGrdValue(const std::string& line)
{
    if (line.size() == 1 && (line[0] == 'N' || line[0] == 'n')) return NULL_VALUE;
    return _wtof(line);
}

// A file without the application mark comes from a program that puts its
// values on nodes: each cell becomes the mean of its four corner nodes.
void averageForeignNodes(myGrid& grid)
{
    for (int j = 0; j < grid.yNum; ++j) {
        for (int i = 0; i < grid.xNum; ++i) {
            grid.values[i][j] = 0.25 * (grid.getValue(i, j) + grid.getValue(i + 1, j) +
                                        grid.getValue(i + 1, j + 1) + grid.getValue(i, j + 1));
        }
    }
}

}  // namespace

bool myGrid::readGrd(const std::string& path, int loadValues)
{
    vorn::TextReader file;
    if (!openForReading(file, path)) return false;
    std::string line;
    double header[4] = {};
    int counts[2] = {};
    for (int k = 0; k < 6; ++k) {
        if (!file.readLine(line)) {
            AfxMessageBox(kHeaderLineErrors[k]);
            return false;
        }
        if (k < 4) header[k] = _wtof(line);
        else counts[k - 4] = _wtoi(line);
    }
    if (counts[0] < 1 || counts[1] < 1) {
        AfxMessageBox("Error in calculating number of cells!");
        return false;
    }
    double xWidth = (header[3] - header[1]) / counts[0];
    double yWidth = (header[2] - header[0]) / counts[1];
    if (canSetup(counts[0], counts[1], yWidth) && !mayAllocate(file, (counts[0] + 1.0) * (counts[1] + 1.0), loadValues)) {
        return false;  // as when the values run out
    }
    setOrigin(vorn::Point2{header[1], header[0]});
    if (!setup(counts[0], counts[1], xWidth, yWidth, 0.0)) {
        AfxMessageBox("Error in setting up grid!");
        return false;
    }
    if (loadValues != 1) return true;

    vorn::statusMeterStart("Loading grid ...", 0, yNum);
    for (int j = 0; j <= yNum; ++j) {
        vorn::statusMeterPos(j);
        for (int i = 0; i <= xNum; ++i) {
            if (!file.readLine(line)) {
                vorn::statusMeterRestore();
                return false;
            }
            values[i][j] = readGrdValue(line);
        }
    }
    vorn::statusMeterRestore();

    if (file.readLine(line)) title = line;
    file.readLine(line);
    if (!vorn::iequals(line, kGridApplicationMark) && !vorn::iequals(title, kGridApplicationMark)) {
        averageForeignNodes(*this);
    }
    return true;
}

bool myGrid::writeGrd(const std::string& path) const
{
    if (!isDefined()) {
        AfxMessageBox("Grid is not defined!");
        return false;
    }
    vorn::TextWriter file;
    if (!openForWriting(file, path, "File could not be opened to write")) return false;
    file.printf("%f\n", origin.y);
    file.printf("%f\n", origin.x);
    file.printf("%f\n", yNum * yCellW + origin.y);
    file.printf("%f\n", xNum * xCellW + origin.x);
    file.printf("%d\n", xNum);
    file.printf("%d\n", yNum);
    for (int j = 0; j <= yNum; ++j) {
        for (int i = 0; i <= xNum; ++i) {
            double value = values[i][j];
            if (value > NULL_VALUE) file.writeFixed6(value);
            else file.writeRaw("N");
            file.writeRaw("\r\n");
        }
    }
    file.write(title);
    file.write("\n");
    file.write(kGridApplicationMark);
    return file.close();
}

bool myGrid::readTop(const std::string& path, int loadValues)
{
    vorn::TextReader file;
    if (!openForReading(file, path)) return false;
    std::string line;
    if (!file.readLine(line)) {
        AfxMessageBox("Could not read from input file.");
        return false;
    }
    int lead = 0, cellCount = 0, xCount = 0, yCount = 0;
    float width = 0.0f, originX = 0.0f, originY = 0.0f, average = 0.0f;
    if (line.compare(0, 2, "1,") == 0) {
        std::sscanf(line.c_str(), "%d,%d,%f,%d,%d,%f,%f,%f", &lead, &cellCount, &width, &xCount, &yCount, &originX,
                    &originY, &average);
        file.readLine(line);
        file.readLine(line);
    } else {
        std::sscanf(line.c_str(), "%d,%f,%d,%d,%f,%f,%f", &cellCount, &width, &xCount, &yCount, &originX, &originY,
                    &average);
    }
    if (xCount == 0 || yCount == 0 || static_cast<double>(width) < 0.0001 || xCount > cellCount) {
        AfxMessageBox(" bad grid definition -- 2!");
        return false;
    }
    if (xCount > kTopCountLimit || yCount > kTopCountLimit) {
        AfxMessageBox("bad grid definition -- 3!");
        return false;
    }
    if (!mayAllocate(file, static_cast<double>(xCount) * yCount, loadValues)) return false;  // as when the values run out
    setOrigin(vorn::Point2{originX, originY});
    if (!setup(xCount, yCount, width, width, 0.0)) return false;
    if (loadValues != 1) return true;
    for (int i = 0; i < xNum; ++i) {
        for (int j = 0; j < yNum; ++j) {
            if (!file.readLine(line)) return false;
            values[i][j] = _wtof(line);
        }
    }
    return true;
}

bool myGrid::writeTop(const std::string& path) const
{
    vorn::TextWriter file;
    if (!openForWriting(file, path, "File could not be opened ")) return false;
    file.printf("1,%d,%f,%d,%d,%f,%f,%f", xNum * yNum, xCellW, xNum, yNum, origin.x, origin.y, getAverage());
    if (title.empty()) file.write("\n1,NO TITLE");
    else file.printf("\n1,%s", title.c_str());
    file.write("\n1,Inches");
    for (int i = 0; i < xNum; ++i) {
        for (int j = 0; j < yNum; ++j) {
            file.writeRaw("\r\n");
            file.writeFixed6(getValue(i, j));
        }
    }
    return file.close();
}

namespace vorn {

GridFileKind gridFileKindOf(const std::string& path)
{
    std::string lower = toLower(path);
    size_t grd = lower.find(".grd");
    if (grd != std::string::npos && grd != 0) return GridFileKind::Grd;
    if (lower.find(".top") != std::string::npos || lower.find(".f") != std::string::npos) return GridFileKind::Top;
    return GridFileKind::Unknown;
}

bool readGridByName(myGrid& grid, const std::string& path, int loadValues)
{
    switch (gridFileKindOf(path)) {
    case GridFileKind::Grd: return grid.readGrd(path, loadValues);
    case GridFileKind::Top: return grid.readTop(path, loadValues);
    default: AfxMessageBox("Unknown grid file !"); return false;
    }
}

}  // namespace vorn
