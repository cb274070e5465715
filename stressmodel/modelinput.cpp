// Reading the `.inp` model, the step code files and the `.top` relief, and
// preparing the solution arrays.
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "base/report.h"
#include "base/textfile.h"
#include "base/textnum.h"
#include "base/processend.h"
#include "stressmodel/modeldat.h"

using vorn::formatString;

namespace {
struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};
using InputFile = std::unique_ptr<std::FILE, FileCloser>;

std::string stepFileName(int step) { return formatString("STEP%i.CHR", step); }
}  // namespace

void CModelDat::SetBaseName(std::string name)
{
    baseName = std::move(name);
    outPath = baseName + ".out";
    topPath = baseName + ".top";
    elementPath = baseName + ".f";
    offSeamPath = baseName + ".off";
}

int CModelDat::ReadFailure(int result, const std::string& message)
{
    AfxMessageBox(message);
    return result;
}

int CModelDat::ReadInput()
{
    InputFile in(std::fopen(inputPath.c_str(), "r"));
    if (!in) return ReadFailure(1, "Error in Opening Input File - RI1a\n");
    std::FILE* f = in.get();
    char line[80];
    if (!std::fgets(line, sizeof line, f)) return ReadFailure(1, "Error in Reading Title - RI1a\n");
    title = line;
    // The title keeps its line end as a text-mode read leaves it.
    if (title.size() >= 2 && title.compare(title.size() - 2, 2, "\r\n") == 0) title.replace(title.size() - 2, 2, "\n");

    if (std::fscanf(f, "%12f, %12f, %12f, %3i, %3i\n", &poisson, &modulus, &layerThickness, &seamCount, &unitCode) != 5)
        return ReadFailure(2, "Error reading the host properties - RI2a\n");
    if (seamCount >= kMaxSeams + 1) return ReadFailure(2, "Can Only Specify up to 4 Different Seams - RI2b\n");
    if (unitCode >= 4) return ReadFailure(2, "Can Only Specify a Unit Number up to 4 - RI2c\n");
    SetUnits();

    if (std::fscanf(f, "%3i\n", &materialCount) != 1)
        return ReadFailure(3, "Error reading the number of in seam materials - RI3a\n");
    if (static_cast<unsigned>(materialCount) == 0 || static_cast<unsigned>(materialCount) > kMaxMaterials)
        return ReadFailure(3, "The Number of In Seam Materials Must Be Between 1 and 26 - RI3b\n");
    for (int m = 0; m < materialCount; ++m) {
        float* p = materialProperty[m];
        if (std::fscanf(f, "%3i, %12f, %12f, %12f, %12f, %12f\n", &materialType[m], &p[0], &p[1], &p[2], &p[3], &p[4]) != 6)
            return ReadFailure(4, "Error reading the in seam material properties - RI4a\n");
        if (materialType[m] < 1 || materialType[m] > 6)
            return ReadFailure(4, "The Material Type Number Must Be Between 1 and 6 - RI4b\n");
    }

    if (std::fscanf(f, "%12f, %3i, %3i, %12f\n", &elementWidth, &elementsX, &elementsY, &density) != 4)
        return ReadFailure(5, "Error reading the general grid information - RI5a\n");
    if (elementsX % kMeshDivisor != 0 || elementsY % kMeshDivisor != 0)
        return ReadFailure(5, formatString("Fine mesh size must be divisible by %i - RI5b\n", kMeshDivisor));
    if (elementWidth == 0) return ReadFailure(5, "Element width must be non-zero - RI5c\n");
    if (elementsX == 0) return ReadFailure(5, "The number of X elements must be non-zero - RI5d\n");
    if (elementsY == 0) return ReadFailure(5, "The number of Y elements must be non-zero - RI5e\n");
    vorn::ccubix(codes, 1, seamCount, 1, elementsX, 1, elementsY);

    for (int s = 1; s <= seamCount; ++s) {
        if (std::fscanf(f, "%f, %f, %f, %12f\n", &seamX[s], &seamY[s], &seamZ[s], &seamThickness[s]) != 4) {
            FreeCodes();
            return ReadFailure(6, "Error reading the seam coordinate information - RI6\n");
        }
    }
    if (std::fscanf(f, "%12f, %12f, %7i, %3i, %3i, %3i, %3i, %3i\n", &overRelaxation, &tolerance, &maxIterations,
                    &startStep, &stepCount, &surfaceEffects, &offSeamPlanes, &topographicStress) != 8) {
        FreeCodes();
        return ReadFailure(7, "Error reading the program control parameters - RI7a\n");
    }
    if (stepCount >= kMaxSteps + 1) {
        FreeCodes();
        return ReadFailure(7, formatString("The Number of Steps Must be Less Than %i - RI7b\n", kMaxSteps));
    }
    if (std::fscanf(f, "%3i, %3i, %3i, %3i\n", &boundaryNorth, &boundaryEast, &boundarySouth, &boundaryWest) != 4) {
        FreeCodes();
        return ReadFailure(8, "Error reading the boundary condition parameters - RI8a\n");
    }
    if (boundaryNorth > 1 || boundaryEast > 1 || boundarySouth > 1 || boundaryWest > 1) {
        FreeCodes();
        return ReadFailure(8, "The Boundary Conditions must be either a '0' or a '1' - RI8b\n");
    }
    if (offSeamPlanes == 1) {
        if (std::fscanf(f, "%7i, %12f, %3i, %3i, %f, %f, %f\n", &offSeamTotal, &offSeamWidth, &offSeamCountX,
                        &offSeamCountY, &offSeamX, &offSeamY, &offSeamZ) != 7) {
            FreeCodes();
            return ReadFailure(9, "Error reading the off-seam grid details - RI9a\n");
        }
        if (offSeamTotal != offSeamCountX * offSeamCountY) {
            FreeCodes();
            return ReadFailure(9, "Inconsistent Data in the Offseam Input Line - RI9b\n");
        }
    }
    const int result = ReadMeshCodes(f);
    if (result != 0) FreeCodes();
    return result;
}

// Reads every step's codes, seam by seam and north row first, into `codes`
// and copies each step to its STEP<n>.CHR file.
int CModelDat::ReadMeshCodes(std::FILE* in)
{
    for (int step = 1; step <= stepCount; ++step) {
        // A step's file is written under a temporary name and takes its
        // own name only when complete: a model cut short leaves none.
        const std::string partial = stepFileName(step) + ".part";
        vorn::TextWriter copy;
        if (!copy.open(partial)) return ReadFailure(10, "Error writing the fine mesh codes - RI10c\n");
        for (int s = 1; s <= seamCount; ++s) {
            for (int y = elementsY; y >= 1; --y) {
                for (int x = 1; x <= elementsX; ++x) {
                    char& code = codes(s, x, y);
                    if (std::fscanf(in, "%c ", &code) != 1) {
                        copy.close();
                        std::remove(partial.c_str());
                        return ReadFailure(10, "Error reading the fine mesh codes - RI10b\n");
                    }
                    copy.writeRaw(std::string_view(&code, 1));
                }
                copy.write("\n");
            }
        }
        if (!copy.close() || std::rename(partial.c_str(), stepFileName(step).c_str()) != 0) {
            std::remove(partial.c_str());
            return ReadFailure(10, "Error writing the fine mesh codes - RI10c\n");
        }
    }
    return 0;
}

int CModelDat::ReadStepCodes(vorn::CharCube& stepCodes, int step, vorn::TextWriter& stream)
{
    InputFile in(std::fopen(stepFileName(step).c_str(), "r"));
    for (int s = 1; s <= seamCount; ++s) {
        stream.printf("Reading in material codes for Step %i, Seam %i\n\n", step, s);
        for (int y = elementsY; y >= 1; --y) {
            for (int x = 1; x <= elementsX; ++x) {
                if (!in || std::fscanf(in.get(), "%c ", &stepCodes(s, x, y)) != 1)
                    return ReadFailure(2, "Error reading the fine mesh codes - RC2\n");
            }
        }
    }
    return 0;
}

void CModelDat::SetUnits()
{
    struct UnitSystem {
        std::string length, stress;
        double lengthScale, stressScale;
    };
    static const UnitSystem systems[4] = {
        {"in", "psi", 1, 1}, {"ft", "psi", 1.0 / 12.0, 1}, {"m", "Pa", 1, 1}, {"m", "MPa", 1, 1e-6}};
    if (unitCode < 0 || unitCode > 3) {
        const char* message = "Unit Code Out of Range in Input File - PU1\n";
        AfxMessageBox(message);
        consolePrintf("%s", message);
        vorn::endProcess(1);
    }
    const UnitSystem& system = systems[unitCode];
    lengthUnit = system.length;
    stressUnit = system.stress;
    lengthScale = system.lengthScale;
    stressScale = system.stressScale;
    headerItems = formatString("%3d,Seam Convergence         ,Total Vertical Stress    ,Surface Effect Stress    "
                               ",Multiple Seam Stress     ,Overburden Stress        \n",
                               5);
    headerUnits = formatString("%3d,%25s,%25s,%25s,%25s,%25s\n", 5, lengthUnit.c_str(), stressUnit.c_str(),
                               stressUnit.c_str(), stressUnit.c_str(), stressUnit.c_str());
}

void CModelDat::BuildMaterialLaws()
{
    for (int m = 0; m < kMaxMaterials; ++m) laws_[m] = vorn::MaterialLaw::from(materialType[m], materialProperty[m]);
}

int CModelDat::ReadTopography()
{
    InputFile in(std::fopen(topPath.c_str(), "r"));
    if (!in) return ReadFailure(1, "Error in Opening Topographic Input File - RTI1a\n");
    std::FILE* f = in.get();
    int ignoredSteps = 0;
    if (std::fscanf(f, "%i,%i, %f, %i, %i, %f, %f, %f\n", &ignoredSteps, &topoTotal, &topoWidth, &topoCountX,
                    &topoCountY, &topoX, &topoY, &topoZ) != 8)
        return ReadFailure(2, "Error Reading the Topographic Header Line - RTI2a\n");
    char skipped[255];
    for (int line = 0; line < 2; ++line)
        if (!std::fgets(skipped, sizeof skipped, f)) break;
    // A surface has at least one value each way; without that the plate's
    // rim alone could claim any memory. A count of INT_MAX has no room for it.
    if (static_cast<long long>(topoCountX) * topoCountY != topoTotal || !vorn::isPlateCount(topoCountX) ||
        !vorn::isPlateCount(topoCountY))
        return ReadFailure(2, "Inconsistent Data in the Topographic Header Line - RTI2b\n");
    // Each value takes at least a byte: values that the file cannot hold are
    // missing ones, found before anything is allocated for them.
    if (static_cast<double>(topoTotal) > static_cast<double>(vorn::bytesLeft(f)))
        return ReadFailure(3, "Error reading the Topographic Grid Stress - RTI3\n");
    vorn::dmatrix(topoConvergence, 0, topoCountX + 1, 0, topoCountY + 1);
    vorn::dmatrix(topoLoad, 1, topoCountX, 1, topoCountY);
    for (int x = 1; x <= topoCountX; ++x)
        for (int y = 1; y <= topoCountY; ++y)
            if (std::fscanf(f, "%12lf\n", &topoLoad(x, y)) != 1)
                return ReadFailure(3, "Error reading the Topographic Grid Stress - RTI3\n");
    return 0;
}

void CModelDat::Initialize()
{
    const float squaredThickness = layerThickness * layerThickness;
    const float plateFactor = 12 * (1 - poisson * poisson);
    lamination = static_cast<float>(std::sqrt(static_cast<double>(squaredThickness / plateFactor)));
    BuildMaterialLaws();

    vorn::dcubix(convergence, 1, seamCount, 0, elementsX + 1, 0, elementsY + 1);
    vorn::dmatrix(coarseConvergence, 1, elementsX, 1, elementsY);
    vorn::dcubix(verticalStress, 1, seamCount, 1, elementsX, 1, elementsY);
    vorn::dcubix(overburdenStress, 1, seamCount, 1, elementsX, 1, elementsY);
    vorn::dcubix(surfaceStress, 1, seamCount, 1, elementsX, 1, elementsY);
    vorn::dcubix(interseamStress, 1, seamCount, 1, elementsX, 1, elementsY);
    for (int s = 0; s <= seamCount; ++s) profile[s] = ModelProfile{};
    for (int s = 1; s <= seamCount; ++s) {
        primitiveStress = -density * seamZ[s];
        if (topographicStress != 1) overburdenStress[s].fill(primitiveStress);
    }
}

void CModelDat::FreeArrays()
{
    convergence.free();
    coarseConvergence.free();
    verticalStress.free();
    overburdenStress.free();
    surfaceStress.free();
    interseamStress.free();
    offSeamResult.free();
    topoConvergence.free();
    topoLoad.free();
}
