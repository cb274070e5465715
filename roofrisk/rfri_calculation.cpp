#include "roofrisk/rfri_calculation.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "base/report.h"
#include "drawing/editor_port.h"

namespace vorn::rfri {

namespace {

constexpr const char* kNoBaseMessage = "\nYou need to build RFRI grids before running this command";

// The weight of each factor in the sum, and the meter after its step.
// Factor 2 joins factor 1 in the first step.
constexpr double kWeights[kFactorCount] = {1, 1, 1, 2, 2, 2, 2, 2, 1, 1, 1, 1};
constexpr int kMeterAfter[kFactorCount] = {0, 16, 24, 32, 40, 48, 56, 64, 72, 80, 88, 96};
// The factors after whose addition the sum so far is scaled by 1.11.
constexpr int kScaledThrough = 9;
constexpr double kScale = 1.11;

}  // namespace

bool canOpenForReading(const std::string& path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return false;
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return false;
    std::fclose(file);
    return true;
}

CRFRICalculation::CRFRICalculation(std::string folder) : folder_(std::move(folder))
{
    for (int k = 0; k < kFactorCount; ++k) rows[static_cast<size_t>(k)].gridFile = defectFactor(k).gridFile;
}

void CRFRICalculation::setFileNames(const CDefectRecords& records, bool defectsReady)
{
    for (int k = 0; k < kFactorCount; ++k) {
        rows[static_cast<size_t>(k)].gridFile = defectsReady ? records[static_cast<size_t>(k)].gridFile
                                                             : std::string(defectFactor(k).gridFile);
    }
}

void CRFRICalculation::takeBase(const std::string& path)
{
    baseXNum = workGrid.getXNum();
    baseYNum = workGrid.getYNum();
    baseXCellW = workGrid.getXCellW();
    baseYCellW = workGrid.getYCellW();
    baseRotation = workGrid.getRotation();
    Point2 node;
    workGrid.getNodeXY(0, 0, node);
    baseOriginX = node.x;
    baseOriginY = node.y;
    haveBase = true;
    acutPrintf("\nThe base grid definition was set from file %s ", path.c_str());
}

// Exact comparisons without a tolerance. The rotation is taken over into
// the base and must be 0, so a second file is never valid when rotated,
// even though a rotated first file sets the base.
bool CRFRICalculation::matchesBase()
{
    if (workGrid.getXNum() != baseXNum || workGrid.getYNum() != baseYNum) return false;
    if (workGrid.getXCellW() != baseXCellW || workGrid.getYCellW() != baseYCellW) return false;
    baseRotation = workGrid.getRotation();
    if (baseRotation != 0.0) return false;
    Point2 node;
    workGrid.getNodeXY(0, 0, node);
    return node.x == baseOriginX && node.y == baseOriginY;
}

// A file that cannot be opened is not read, which would only fail.
void CRFRICalculation::scanFiles()
{
    for (CalcRow& row : rows) {
        std::string path = pathOf(row.gridFile);
        row.found = canOpenForReading(path);
        if (!row.found || !workGrid.readGrd(path)) {
            row.valid = false;
            continue;
        }
        if (!haveBase) {
            takeBase(path);
            row.valid = true;
        } else {
            row.valid = matchesBase();
        }
    }
}

// A default takes the lattice of the file read last, placed at the base's
// origin, with every cell at the factor's "Unknown" rating.
void CRFRICalculation::writeDefault(int k)
{
    CalcRow& row = rows[static_cast<size_t>(k)];
    baseXNum = workGrid.getXNum();
    baseYNum = workGrid.getYNum();
    baseRotation = workGrid.getRotation();
    baseXCellW = workGrid.getXCellW();
    baseYCellW = workGrid.getYCellW();
    workGrid.setOrigin(baseOriginX, baseOriginY, 0.0);
    workGrid.setAll(defectFactor(k).defaultFill);
    workGrid.writeGrd(pathOf(row.gridFile));
    row.defaultMade = true;
    acutPrintf("%s", defectFactor(k).defaultMessage);
}

bool CRFRICalculation::makeDefaultFiles()
{
    if (!haveBase) {
        acutPrintf("%s", kNoBaseMessage);
        return false;
    }
    for (int k = 0; k < kFactorCount; ++k) {
        const CalcRow& row = rows[static_cast<size_t>(k)];
        if (!(row.found && row.valid)) writeDefault(k);
    }
    return true;
}

// RFRI = 1.11 * (G1 + G2 + G3 + 2 * (G4 + ... + G8) + G9 + G10) + G11 + G12,
// node by node, each file read afresh. A file that fails to read leaves the
// grid read before it in the sum.
bool CRFRICalculation::calculate()
{
    if (!haveBase) {
        acutPrintf("%s", kNoBaseMessage);
        return false;
    }
    acedSetStatusBarProgressMeter("Final RFRI Calculation...", 1, 100);
    finalGrid.readGrd(pathOf(rows[0].gridFile));
    for (int k = 1; k < kFactorCount; ++k) {
        workGrid.readGrd(pathOf(rows[static_cast<size_t>(k)].gridFile));
        if (kWeights[k] != 1.0) workGrid.multiplyValue(kWeights[k]);
        finalGrid.addGrid(workGrid);
        if (k == kScaledThrough) finalGrid.multiplyValue(kScale);
        acedSetStatusBarProgressMeterPos(kMeterAfter[k]);
    }
    calculated = true;
    acedRestoreStatusBar();
    acutPrintf("\nThe Final RFRI Grid has been Calculated");
    return true;
}

// The removal names the bare file, so it acts in the process's current
// directory, as the drawing's folder normally is. A same-named file there
// that is not the default this calculation wrote is left alone.
void CRFRICalculation::removeDefaultFiles()
{
    for (CalcRow& row : rows) {
        if (!row.defaultMade) continue;
        std::error_code error;
        if (std::filesystem::equivalent(row.gridFile, pathOf(row.gridFile), error)) {
            std::filesystem::remove(row.gridFile, error);
        }
        row.defaultMade = false;
    }
}

}  // namespace vorn::rfri
