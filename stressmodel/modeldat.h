// CModelDat: one run of the laminated displacement-discontinuity seam model.
// It reads the `.inp` model (and the `.top` relief for the topographic
// stage), prints it to `<baseName>.out`, solves every mining step by
// successive over-relaxation with the external stresses of the other seams
// and of the mirror seams recalculated at four levels of detail, and writes
// the element files `<baseName>.f1`.. and the off-seam file `<baseName>.off`.
// Output names carry no folder: results land in the process's current folder.
//
// Properties are floats as in the file; solution arrays are doubles indexed
// from 1, the convergence with a rim at 0 and N+1 that holds the boundary.
// Compression and closure count positive, Z is upward.
#pragma once

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <memory>
#include <string>

#include "base/progress.h"
#include "base/textfile.h"
#include "stressmodel/arrays.h"
#include "stressmodel/kernels.h"
#include "stressmodel/materials.h"

namespace vorn {
// The unit text block of the `.out` file for a unit code.
void printUnitSystem(TextWriter& out, int unitCode);
// The axes note and the first lines of "  ROCK MASS PROPERTIES" that open
// the `.out` file of both models.
void printRockMass(TextWriter& out, float poisson, float modulus, float layerThickness);
// The element grid lines of "  GENERAL MODEL DATA" and the heading of the
// seam table that follows them.
void printElementGrid(TextWriter& out, float width, int countX, int countY, float density);

// Origin, datum, block width and counts of a topographic grid.
struct TopographicGridPlacement {
    float x, y, z, width;
    int countX, countY;
};
// The block "  TOPOGRAPHIC GRID DETAILS" of the `.out` file.
void printTopographicGrid(TextWriter& out, const TopographicGridPlacement& grid);
}  // namespace vorn

// Timing and solution counts of one seam (slots 1..4) or of all (slot 0).
struct ModelProfile {
    int64_t topographicSeconds = 0;
    int64_t offSeamSeconds = 0;
    int loops[4] = {};
    int iterations[4] = {};
    int64_t sorSeconds[4] = {};
    int64_t surfaceSeconds[4] = {};
    int64_t interseamSeconds[4] = {};
};

class CModelDat {
public:
    static constexpr int kMaxSeams = 4;
    static constexpr int kMaxSteps = 20;
    static constexpr int kMaxMaterials = 26;
    static constexpr int kMeshDivisor = 10;

    CModelDat() = default;
    virtual ~CModelDat() = default;

    void SetInputPath(std::string path) { inputPath = std::move(path); }
    void SetInputFile(std::string file) { inputFile = std::move(file); }
    void SetBaseName(std::string name);
    int GetSeamCount() const { return seamCount; }
    const std::string& GetBaseName() const { return baseName; }

    // Input (modelinput.cpp).
    int ReadInput();
    void SetUnits();
    int ReadTopography();
    int ReadStepCodes(vorn::CharCube& stepCodes, int step, vorn::TextWriter& stream);
    void Initialize();
    void FreeArrays();
    void FreeCodes() { codes.free(); }

    // Material laws (modelsolve.cpp).
    int ElementStress(vorn::DoubleMatrix& seamConvergence, vorn::DoubleMatrix& stress,
                      const vorn::IndexedMatrix<char>& seamCodes, double thickness);

    // Influence kernels (modelsolve.cpp).
    void PropagateStress(vorn::DoubleMatrix& source, int sourceCountX, int sourceCountY, double sourceWidth,
                         double sourceX, double sourceY, vorn::DoubleMatrix& target, int targetCountX,
                         int targetCountY, double targetWidth, double targetX, double targetY, double distance,
                         int mirror);
    void RemoteDisplacement(vorn::DoubleMatrix& source, int sourceCountX, int sourceCountY, double sourceWidth,
                            double sourceX, double sourceY, vorn::DoubleMatrix& target, int targetCountX,
                            int targetCountY, double targetWidth, double targetX, double targetY, double distance,
                            int mirror);

    // The run and its seam solver (modelsolve.cpp).
    int Run();
    int SolveSeam(vorn::DoubleMatrix& seamConvergence, const vorn::IndexedMatrix<char>& seamCodes, int countX,
                  int countY, double width, double thickness, vorn::DoubleMatrix& stress,
                  const vorn::DoubleMatrix& overburden, const vorn::DoubleMatrix& surface,
                  const vorn::DoubleMatrix& interseam, vorn::TextWriter& stream);
    void MirrorBoundaries(vorn::DoubleMatrix& seamConvergence);
    // The iterations of one level pass: sets `largestIterations` (m) and
    // returns false when the run was cancelled.
    bool SolveLevel(int step, int level, int& largestIterations, vorn::TextWriter& stream);
    bool SolveStepLevels(int step, vorn::TextWriter& stream);

    // External stresses (modelsolve.cpp).
    void CalculateExternalStresses(int step, int level, vorn::TextWriter& stream);
    static void AverageConvergence(const vorn::DoubleMatrix& fine, int countX, int countY,
                                   vorn::DoubleMatrix& coarse, int coarseCountX, int coarseCountY, int factor);

    // Topographic stage (modeltopo.cpp).
    int TopographicStress();
    int TopographicSolve(vorn::DoubleMatrix& plate, int countX, int countY, double width,
                         vorn::DoubleMatrix& load, vorn::TextWriter& stream);
    int PrintTopographicGrid();

    // Result files (modelprint.cpp).
    int PrintInput();
    void PrintProfile(int step, vorn::TextWriter& stream);
    void PrintFinalProfile(vorn::TextWriter& stream);
    int WriteElementFiles(int step);
    void OffSeamDisplacement(int step);
    void ConvertUnits();

    // Averaging factor and iteration threshold of a detail level 0..3.
    static int LevelFactor(int level);
    static int LevelThreshold(int level);

    int cancelled = 0;
    std::string inputPath;
    std::string inputFile;
    std::string baseName;
    std::string outPath, topPath, elementPath, offSeamPath;
    std::string title;

    int seamCount = 0;
    int stepCount = 0;
    int unitCode = 0;
    int materialCount = 0;
    float modulus = 0;
    float poisson = 0;
    float layerThickness = 0;
    float lamination = 0;
    int materialType[kMaxMaterials] = {};
    float materialProperty[kMaxMaterials][5] = {};
    float density = 0;
    float primitiveStress = 0;
    int elementsX = 0, elementsY = 0;
    float elementWidth = 0;
    int coarseX = 0, coarseY = 0;
    float coarseWidth = 0;
    float seamX[kMaxSeams + 1] = {}, seamY[kMaxSeams + 1] = {}, seamZ[kMaxSeams + 1] = {};
    float seamThickness[kMaxSeams + 1] = {};
    float overRelaxation = 0;
    float tolerance = 0;
    int maxIterations = 0;
    int startStep = 0;
    int surfaceEffects = 0;
    int topographicStress = 0;
    int offSeamPlanes = 0;
    float offSeamX = 0, offSeamY = 0, offSeamZ = 0, offSeamWidth = 0;
    int offSeamTotal = 0, offSeamCountX = 0, offSeamCountY = 0;
    float topoX = 0, topoY = 0, topoZ = 0, topoWidth = 0;
    int topoTotal = 0, topoCountX = 0, topoCountY = 0;
    int boundaryNorth = 0, boundaryEast = 0, boundarySouth = 0, boundaryWest = 0;
    std::string headerItems, headerUnits;
    std::string lengthUnit, stressUnit;
    double lengthScale = 1, stressScale = 1;

    vorn::CharCube codes;
    vorn::DoubleCube convergence;
    vorn::DoubleMatrix coarseConvergence;
    vorn::DoubleCube verticalStress, overburdenStress, surfaceStress, interseamStress;
    vorn::DoubleMatrix offSeamResult;
    vorn::DoubleMatrix topoConvergence, topoLoad;
    ModelProfile profile[kMaxSeams + 1];
    std::unique_ptr<CProgressWnd> progress;

private:
    int ReadFailure(int result, const std::string& message);
    int ReadMeshCodes(std::FILE* in);
    void BuildMaterialLaws();
    int RunStress(const double* u, double* s, int count, double thickness, int material, int x, int y);
    vorn::KernelRock Rock() const { return {modulus, lamination}; }
    // The progress window's text line and a pump; a poll of its cancel.
    void Show(const std::string& text);
    bool UserCancelled();
    void SetProgress(int percent);
    int RunSteps(vorn::TextWriter& stream);
    bool SolveStepStart(int step, vorn::TextWriter& stream);
    int SolveSeamOf(int seam, vorn::TextWriter& stream);
    void RecordSolution(int step, int seam, int level, int iterations, std::time_t start, vorn::TextWriter& stream);
    void PropagateExternal(int step, int level, int source, int target, bool mirror, vorn::TextWriter& stream);
    void PrintMaterial(vorn::TextWriter& out, int material);
    int PrintStepCodes(vorn::TextWriter& out, int step);
    void PrintProfileTable(vorn::TextWriter& stream, const ModelProfile& record);

    vorn::MaterialLaw laws_[kMaxMaterials];
    int64_t lastPhaseSeconds_ = 0;
    // m of the level loop: more than any threshold until a pass has run.
    static constexpr int kUnsettled = 1001;
    int carriedIterations_ = kUnsettled;
};
