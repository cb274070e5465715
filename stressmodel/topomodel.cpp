#include "stressmodel/topomodel.h"

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "base/report.h"
#include "base/textfile.h"
#include "base/textnum.h"
#include "base/userbreak.h"
#include "stressmodel/kernels.h"
#include "stressmodel/modeldat.h"

namespace {
// Replaces every `from` in `text` by `to`.
std::string replaceAll(std::string text, const std::string& from, const std::string& to)
{
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

// Shows a read failure and gives its result code.
int readFailure(const char* message, int result)
{
    AfxMessageBox(message);
    return result;
}
}  // namespace

CTopoModelDat::CTopoModelDat() = default;
CTopoModelDat::~CTopoModelDat() = default;

void CTopoModelDat::SetInputPath(std::string path)
{
    inputPath = std::move(path);
    outPath = replaceAll(inputPath, ".tmp", ".out");
}

int CTopoModelDat::ReadInput()
{
    std::FILE* file = std::fopen(inputPath.c_str(), "r");
    if (!file) return readFailure("Error in Opening Input File - RI1a\n", 1);
    int result = ReadHeader(file);
    if (result == 0) result = ReadSurface(file);
    std::fclose(file);
    return result;
}

int CTopoModelDat::ReadHeader(std::FILE* file)
{
    if (!std::fgets(title, sizeof title, file)) return readFailure("Error in Reading Title - RI1a\n", 1);
    // The file is read as text: its CR LF line end is a line feed.
    size_t length = std::strlen(title);
    if (length >= 2 && title[length - 2] == '\r' && title[length - 1] == '\n') {
        title[length - 2] = '\n';
        title[length - 1] = '\0';
    }
    if (std::fscanf(file, "%f, %f, %f, %i\n", &poisson, &modulus, &layerThickness, &unitCode) != 4) {
        return readFailure("Error reading the host properties - RI2a\n", 2);
    }
    if (unitCode >= 4) return readFailure("Can Only Specify a Unit Number up to 4 - RI2c\n", 2);
    if (std::fscanf(file, "%12f, %3i, %3i,%12f\n", &elementWidth, &elementsX, &elementsY, &density) != 4) {
        return readFailure("Error reading the general grid information - RI5a\n", 5);
    }
    if (elementsX % 10 != 0 || elementsY % 10 != 0) {
        return readFailure(vorn::formatString("Fine mesh size must be divisible by %i - RI5b\n", 10).c_str(), 5);
    }
    if (elementWidth == 0) return readFailure("Element width must be non-zero - RI5c\n", 5);
    if (elementsX == 0) return readFailure("The number of X elements must be non-zero - RI5d\n", 5);
    if (elementsY == 0) return readFailure("The number of Y elements must be non-zero - RI5e\n", 5);
    if (std::fscanf(file, "%f, %f\n", &seamX, &seamY) != 2) {
        return readFailure("Error reading the seam coordinate information - RI6\n", 6);
    }
    if (std::fscanf(file, "%12f, %12f, %7i\n", &overRelaxation, &tolerance, &maxIterations) != 3) {
        return readFailure("Error reading the program control parameters - RI7a\n", 7);
    }
    if (std::fscanf(file, "%f, %i, %i, %f, %f, %f\n", &topoWidth, &topoCountX, &topoCountY, &topoX, &topoY, &topoZ) != 6) {
        return readFailure("Error Reading the Topographic Header Line - RTI2a\n", 2);
    }
    return 0;
}

int CTopoModelDat::ReadSurface(std::FILE* file)
{
    // Each value takes at least a byte: values that the file cannot hold are
    // missing ones, found before anything is allocated for them. A surface
    // has at least one value each way, and room for the plate's rim.
    if (!vorn::isPlateCount(topoCountX) || !vorn::isPlateCount(topoCountY) ||
        static_cast<double>(topoCountX) * topoCountY > static_cast<double>(vorn::bytesLeft(file))) {
        return readFailure("Error reading the Topographic Grid Stress - RTI3\n", 3);
    }
    vorn::dmatrix(overburdenStress, 1, elementsX, 1, elementsY);
    vorn::dmatrix(topoConvergence, 0, topoCountX + 1, 0, topoCountY + 1);
    vorn::dmatrix(topoLoad, 1, topoCountX, 1, topoCountY);
    const float squaredThickness = layerThickness * layerThickness;
    const float plateFactor = 12 * (1 - poisson * poisson);
    lamination = static_cast<float>(std::sqrt(static_cast<double>(squaredThickness / plateFactor)));
    for (int x = 1; x <= topoCountX; ++x) {
        for (int y = 1; y <= topoCountY; ++y) {
            if (std::fscanf(file, "%12lf\n", &topoLoad(x, y)) != 1) {
                return readFailure("Error reading the Topographic Grid Stress - RTI3\n", 3);
            }
        }
    }
    return 0;
}

void CTopoModelDat::WriteValues(vorn::TextWriter& stream) const
{
    auto writeRow = [&](int j) {
        for (int i = 1; i <= elementsX; ++i) {
            stream.write("\n");
            stream.writeFixed6(overburdenStress(i, j));
        }
        stream.write("\n");
        stream.writeFixed6(overburdenStress(elementsX, j));
    };
    for (int j = 1; j <= elementsY; ++j) writeRow(j);
    writeRow(elementsY);
}

int CTopoModelDat::PrintInput()
{
    vorn::TextWriter out;
    if (!out.open(outPath)) {
        AfxMessageBox("Error in Opening Output File - PI1\n");
        return 1;
    }
    out.printf("%s\n", title);
    PrintHeaderBlocks(out);
    if (!out.close()) {
        AfxMessageBox("Trouble Printing Input File - PI2\n");
        return 2;
    }
    return 0;
}

void CTopoModelDat::PrintHeaderBlocks(vorn::TextWriter& out) const
{
    vorn::printRockMass(out, poisson, modulus, layerThickness);
    out.printf("  SYSTEM OF UNITS       - %i\n", unitCode);
    out.write("\n");
    vorn::printUnitSystem(out, unitCode);
    out.write("  GENERAL MODEL DATA\n\n");
    vorn::printElementGrid(out, elementWidth, elementsX, elementsY, density);
    out.printf("%12.2f%12.2f\n", seamX, seamY);
    out.write("\n");
    out.write("  PROGRAM FLOW CONTROL PARAMETERS\n\n");
    out.printf("  OVER RELAXATION FACTOR          -- %f\n", overRelaxation);
    out.printf("  MAXIMUM NO. OF ITERATIONS       -- %i\n", maxIterations);
    out.printf("  STRESS CONVERGENCE CRITERION    -- %f\n", tolerance);
    out.write("\n");
    vorn::printTopographicGrid(out, {topoX, topoY, topoZ, topoWidth, topoCountX, topoCountY});
}

int CTopoModelDat::Run()
{
    progress = std::make_unique<CProgressWnd>(nullptr, "Overburden Stress in Progress ...");
    progress->setText("Topographic Stress Calculation");
    int result = Calculate();
    progress.reset();
    vorn::statusMeterRestore();
    return result;
}

int CTopoModelDat::Calculate()
{
    vorn::TextWriter out;
    if (!out.openAppend(outPath)) {
        AfxMessageBox("Error in Opening Output File - TS1\n");
        return 1;
    }
    for (int x = 1; x <= topoCountX; ++x) {
        for (int y = 1; y <= topoCountY; ++y) topoLoad(x, y) = (topoLoad(x, y) - topoZ) * density;
    }
    topoConvergence.fill(0.0);
    TopographicSolve(out);
    if (!cancelled) {
        progress->setText("Propogating Topographic Stress to Seam");
        overburdenStress.fill(density * topoZ);
        out.write("Propogating the topo. disp. to seam stresses\n\n");
        PropagateToSeam();
    }
    if (cancelled) {
        out.write("Operations are canceled by user\n\n");
        return 1;
    }
    return 0;
}

// The user break as the editor reports it: a pending break is taken up once.
bool CTopoModelDat::UserBreak()
{
    if (vorn::userBreakRequested()) {
        vorn::clearUserBreak();
        cancelled = 1;
    }
    return cancelled != 0;
}

void CTopoModelDat::TopographicSolve(vorn::TextWriter& out)
{
    vorn::statusMeterStart("Successive Over Relaxation Iterating", 0, 100);
    const vorn::PlateSettings settings{{modulus, lamination}, overRelaxation, tolerance, maxIterations};
    const vorn::KernelField load{topoLoad.at(1, 1), topoLoad.stride(), topoCountX, topoCountY, topoWidth, 0, 0};
    const int counter = vorn::solveLoadedPlate(
        topoConvergence.at(0, 0), topoConvergence.stride(), load, settings, [&](int iteration, const vorn::SweepChange& change) {
            const int percent = static_cast<int>(static_cast<long long>(iteration) * 100 / maxIterations);
            progress->setPos(percent);
            vorn::statusMeterPos(percent);
            std::string line = vorn::formatString("iteration number = %i, maximum displacement = %13.9lg", iteration, change.change);
            progress->setText(line);
            out.printf("%s\n", line.c_str());
            out.printf("X grid location = %i, Y grid location = %i\n\n", change.x, change.y);
        },
        [this] { return !UserBreak(); });
    progress->setPos(100);
    vorn::statusMeterPos(100);
    out.printf("Topographic SOR took %i iterations to converge\n\n", counter);
    acutPrintf("\nTopographic SOR took %i iterations to converge", counter);
}

bool CTopoModelDat::PropagateToSeam()
{
    vorn::statusMeterStart("Stress Propogating to Seam", 0, 100);
    const vorn::KernelField source{topoConvergence.at(1, 1), topoConvergence.stride(), topoCountX, topoCountY, topoWidth,
                                   topoX, topoY};
    const vorn::KernelField target{overburdenStress.at(1, 1), overburdenStress.stride(), elementsX, elementsY, elementWidth,
                                   seamX, seamY};
    return vorn::propagateStress(source, target, topoZ, {modulus, lamination}, [this](int row, int rowCount) {
        if (UserBreak()) return false;
        progress->setPos(100 * row / rowCount);
        vorn::statusMeterPos(100 * row / rowCount);
        return true;
    });
}
