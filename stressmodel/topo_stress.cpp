#include "stressmodel/topo_stress.h"

#include <cstdio>
#include <filesystem>

#include "base/report.h"
#include "base/textfile.h"
#include "base/textnum.h"
#include "grid/gisraster.h"
#include "stressmodel/topomodel.h"

namespace {
constexpr double kSmallestValue = 1e-10;

std::string replaceAll(std::string text, const std::string& from, const std::string& to)
{
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

bool printAndGoOn(const std::string& prompt)
{
    acutPrintf("%s", prompt.c_str());
    return true;
}
}  // namespace

CTopoProperties CTopoProperties::defaultsFor(int unitSystem)
{
    switch (unitSystem) {
    case 1: return {"3000000", "0.25", "600", "0.0917", "1.35", "0.00001", "5000"};
    case 3: return {"2.07E+10", "0.25", "15", "24900", "1.35", "0.0000001", "5000"};
    case 4: return {"20700", "0.25", "15", "0.0249", "1.35", "0.0000001", "5000"};
    default: return {"3000000", "0.25", "50", "1.1", "1.35", "0.00001", "5000"};
    }
}

std::string topoLengthText(int unitSystem)
{
    if (unitSystem == 2) return "ft.";
    if (unitSystem == 3 || unitSystem == 4) return "m";
    return "in.";
}

std::string topoStressText(int unitSystem)
{
    if (unitSystem == 3) return "Pa";
    if (unitSystem == 4) return "MPa";
    return "psi";
}

namespace vorn {

std::string topoInputPath(const std::string& outputPath)
{
    size_t slash = outputPath.find_last_of('/');
    size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
    std::string lowered = outputPath.substr(0, nameStart) + toLower(outputPath.substr(nameStart));
    return replaceAll(lowered, ".grd", ".tmp");
}

}  // namespace vorn

CTopoStressCommand::CTopoStressCommand() : confirmContinue(printAndGoOn), properties(CTopoProperties::defaultsFor(2)) {}

bool CTopoStressCommand::loadSurface(const std::string& path)
{
    // The choice of reader goes by the lower-cased name; the file itself is
    // opened under its own name.
    myGrid surface;
    bool loaded = vorn::rasterFormatOfFile(path) != vorn::RasterFormat::None ? vorn::readAnyGrid(surface, path)
                  : vorn::toLower(path).find(".grd") != std::string::npos ? surface.readGrd(path, 1)
                                                                          : surface.readTop(path, 1);
    if (!loaded) {
        AfxMessageBox("Grid file read failed! ");
        return false;
    }
    topoPath = path;
    acutPrintf("\nTopography grid file successfully loaded!");
    surfaceDescription = surface.describe(false);
    return true;
}

void CTopoStressCommand::activatePropertiesPage()
{
    if (unitSystem == propertiesUnits_) return;
    propertiesUnits_ = unitSystem;
    properties = CTopoProperties::defaultsFor(unitSystem);
}

bool CTopoStressCommand::defineSeamGrid(double originX, double originY, int xNum, int yNum, double xCellW, double yCellW,
                                        double rotationDegrees)
{
    seamGrid.setOrigin(originX, originY, 0.0);
    if (!seamGrid.setup(xNum, yNum, xCellW, yCellW, rotationDegrees)) return false;
    seamGrid.setAll(0.0);
    keepSeamGrid();
    return true;
}

bool CTopoStressCommand::loadSeamGrid(const std::string& path)
{
    if (!seamGrid.readGrd(path, 1)) {
        AfxMessageBox("Grid file reading failed! ");
        return false;
    }
    keepSeamGrid();
    return true;
}

bool CTopoStressCommand::takeSeamGrid(const myGrid& lattice)
{
    const double degrees = lattice.getRotation() * 180.0 / 3.14159265358979323846;
    return defineSeamGrid(lattice.getOrigin().x, lattice.getOrigin().y, lattice.getXNum(), lattice.getYNum(),
                          lattice.getXCellW(), lattice.getYCellW(), degrees);
}

void CTopoStressCommand::keepSeamGrid()
{
    seamGrid.setTitle("Seam Grid Defination");
    seamMean = seamGrid.getAverage();
    seamDescription = seamGrid.describe(false);
}

void CTopoStressCommand::activateSeamPage()
{
    levelLocked = surfaceType != 0;
    if (outputPath.empty()) {
        if (!topoPath.empty()) {
            outputPath = topoPath.substr(0, topoPath.size() >= 4 ? topoPath.size() - 4 : 0) + "_Stress.grd";
        } else {
            outputPath = drawingFolder + "Untitle.grd";
        }
    }
    seamLevel = useSeamAverage && !levelLocked ? seamMean : 0.0;
}

void CTopoStressCommand::changeOutputPath(const std::string& path)
{
    if (path == outputPath) return;
    if (std::filesystem::exists(path) && AfxMessageBox("File existes, Overwrite?", MB_YESNO) == IDNO) return;
    outputPath = path;
}

bool CTopoStressCommand::typeSeamLevel(double level)
{
    if (levelLocked) return false;
    seamLevel = level;
    return true;
}

int CTopoStressCommand::validate()
{
    if (topoPath.empty()) {
        AfxMessageBox("topo grid file name is missing!");
        return 1;
    }
    if (seamGrid.getXNum() % 10 != 0 || seamGrid.getYNum() % 10 != 0) {
        AfxMessageBox("Keldar requires the numbers of elements in X and Y are divisible by 10!");
        return 2;
    }
    return validateProperties();
}

int CTopoStressCommand::validateProperties()
{
    auto refuse = [](const char* message, std::string* field = nullptr, const char* reset = nullptr) {
        AfxMessageBox(message);
        if (field) *field = reset;
        return 3;
    };
    double poisson = _wtof(properties.poisson);
    if (poisson < kSmallestValue || poisson > 0.5) {
        return refuse("Poission Ratio should be larger than 0 and smaller than 0.5!", &properties.poisson, "0.25");
    }
    if (_wtof(properties.modulus) < kSmallestValue) return refuse("Elastic Modulus should be larger than 0 ");
    if (_wtof(properties.gradient) < kSmallestValue) return refuse("Vertical Stress gradient should be larger than 0 ");
    if (_wtof(properties.lamination) < kSmallestValue) return refuse("Lamination thickness should be larger than 0 ");
    if (_wtof(properties.relaxation) < kSmallestValue) {
        return refuse("OverRelax factor should be larger than 0 ", &properties.relaxation, "1.35");
    }
    if (_wtoi(properties.iterations) < 1) {
        return refuse("Maxmum iteration number should be larger than 0 ", &properties.iterations, "5000");
    }
    if (_wtof(properties.convergence) < kSmallestValue) return refuse("Convergence Level  should be larger than 0 ");
    return 0;
}

int CTopoStressCommand::run()
{
    if (!seamGrid.isDefined()) {
        AfxMessageBox("\nSeam grid is not defined!");
        return 1;
    }
    if (topoPath.empty() || outputPath.empty()) {
        acutPrintf("\ngrid file name is missing!");
        return 1;
    }
    // A GIS raster (a surveyed DEM as GeoTIFF, say) is read through GDAL.
    myGrid surface;
    bool gis = vorn::rasterFormatOfFile(topoPath) != vorn::RasterFormat::None;
    if (!(gis ? vorn::readAnyGrid(surface, topoPath) : surface.readGrd(topoPath, 1))) {
        acutPrintf("\ntopo grid file wrong!");
        return 1;
    }
    std::string tmpPath = vorn::topoInputPath(outputPath);
    if (!writeInputFile(surface, tmpPath)) return 1;

    CTopoModelDat model;
    model.SetInputPath(tmpPath);
    if (model.ReadInput() != 0) {
        AfxMessageBox("The Input File was not the Correct Format - OFO1");
        return 1;
    }
    if (!confirmContinue("\n The Input was Successfully Read, <Enter> to continue ...")) return 1;
    if (model.PrintInput() != 0) {
        AfxMessageBox("Could not Write the Output File - OFO2");
        return 1;
    }
    if (model.Run() != 0) {
        AfxMessageBox("TopoModel was finished unsuccessfully!");
        return 1;
    }
    if (!writeStressGrid(model)) return 1;
    acutPrintf("\nTopoStress are save to %s", outputPath.c_str());
    if (previewResult && showResult) showResult(outputPath);
    acutPrintf("\nTopoModel was finished successfully!");
    return 0;
}

bool CTopoStressCommand::writeInputFile(myGrid& surface, const std::string& tmpPath) const
{
    vorn::TextWriter file;
    if (!file.openReplacing(tmpPath)) {
        acutPrintf("\nFile can not open for write!");
        return false;
    }
    // Feet go to the model as inches.
    const int f = unitSystem == 2 ? 12 : 1;
    file.write("Overburden stress input file");
    file.printf("\n%f,%f,%f,%d", _wtof(properties.poisson), _wtof(properties.modulus), _wtof(properties.lamination) * f,
                unitSystem);
    file.printf("\n%f,%d,%d,%f", seamGrid.getXCellW() * f, seamGrid.getXNum(), seamGrid.getYNum(),
                _wtof(properties.gradient) / f);
    file.write("\n0.0,0.0");
    file.printf("\n%f,%f,%d", _wtof(properties.relaxation), _wtof(properties.convergence), _wtoi(properties.iterations));

    // The surface becomes the thickness of overburden above the seam.
    surface.addValue(-seamLevel);
    double mean = surface.getAverage();
    vorn::Point2 surfaceOrigin;
    vorn::Point2 seamOrigin;
    surface.getNodeXY(0, 0, surfaceOrigin);
    seamGrid.getNodeXY(0, 0, seamOrigin);
    file.printf("\n%f,%d,%d,%f,%f,%f", surface.getXCellW() * f, surface.getXNum(), surface.getYNum(),
                (surfaceOrigin.x - seamOrigin.x) * f, (surfaceOrigin.y - seamOrigin.y) * f, mean * f);
    for (int i = 0; i < surface.getXNum(); ++i) {
        for (int j = 0; j < surface.getYNum(); ++j) {
            file.write("\n");
            file.writeFixed6(surface.getValue(i, j) * f);
        }
    }
    if (file.close()) return true;
    acutPrintf("\nFile can not open for write!");
    return false;
}

bool CTopoStressCommand::writeStressGrid(const CTopoModelDat& model) const
{
    // Written under a temporary name beside the target and renamed over it
    // when complete, so that a failed write leaves no partial grid.
    vorn::TextWriter file;
    const std::string failure = "File <" + outputPath + "> could not be opened to write!";
    if (!file.openReplacing(outputPath)) {
        AfxMessageBox(failure);
        return false;
    }
    vorn::Point2 origin;
    seamGrid.getNodeXY(0, 0, origin);
    const double cell = seamGrid.getXCellW();
    file.printf("%f", origin.y);
    file.printf("\n%f", origin.x);
    file.printf("\n%f", seamGrid.getYNum() * cell + origin.y);
    file.printf("\n%f", seamGrid.getXNum() * cell + origin.x);
    file.printf("\n%d", seamGrid.getXNum());
    file.printf("\n%d", seamGrid.getYNum());
    model.WriteValues(file);
    file.write("\nOverburden Stress Calculation");
    file.write("\nVORN Stability Application");
    if (file.close()) return true;
    AfxMessageBox(failure);
    return false;
}
