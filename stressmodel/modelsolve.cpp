// The run of a model: mining steps outside, detail levels 3 to 0 inside, the
// seam solver by over-relaxation, the material laws per element and the
// external stresses that the seams and their mirror images cause.
#include <cmath>
#include <ctime>

#include "base/report.h"
#include "base/textnum.h"
#include "stressmodel/modeldat.h"
#include "stressmodel/sor.h"

using vorn::formatString;

namespace {
constexpr int kLevelFactors[4] = {1, 2, 5, 10};
constexpr int kLevelThresholds[4] = {20, 100, 500, 1000};
constexpr int kFirstLevel = 3;

int64_t secondsSince(std::time_t start) { return static_cast<int64_t>(std::time(nullptr) - start); }

vorn::KernelField fieldOf(vorn::DoubleMatrix& m, int countX, int countY, double width, double x, double y)
{
    return {m.at(1, 1), m.stride(), countX, countY, width, x, y};
}

void negate(vorn::DoubleMatrix& m, int countX, int countY)
{
    for (int x = 1; x <= countX; ++x) {
        double* row = m.at(x, 1);
        for (int y = 0; y < countY; ++y) row[y] = -row[y];
    }
}
}  // namespace

int CModelDat::LevelFactor(int level) { return kLevelFactors[level]; }
int CModelDat::LevelThreshold(int level) { return kLevelThresholds[level]; }

void CModelDat::Show(const std::string& text)
{
    if (!progress) return;
    progress->setText(text);
    progress->peekAndPump();
}

bool CModelDat::UserCancelled()
{
    if (!progress) return false;
    progress->peekAndPump();
    return progress->cancelled();
}

void CModelDat::SetProgress(int percent)
{
    if (progress) progress->setPos(percent);
}

// ---------------------------------------------------------------- run

int CModelDat::Run()
{
    progress = std::make_unique<CProgressWnd>(nullptr, "Keldar in Progress ...");
    cancelled = 0;
    carriedIterations_ = kUnsettled;
    std::time_t start = std::time(nullptr);
    Show("Initializing Data");
    Initialize();
    vorn::TextWriter stream;
    if (!stream.openAppend(outPath)) {
        AfxMessageBox("Error in Opening Output File - M1\n");
        progress.reset();
        return 1;
    }
    if (topographicStress == 1) {
        Show("Topographic stress calculation");
        start = std::time(nullptr);
        if (TopographicStress() != 0) {
            progress.reset();
            return 1;
        }
        lastPhaseSeconds_ = secondsSince(start);
        profile[0].topographicSeconds += lastPhaseSeconds_;
        stream.printf("Total Time for Topographic Stress Calculations was %i secs.\n\n",
                      static_cast<int>(lastPhaseSeconds_));
    }
    const int result = RunSteps(stream);
    if (result != 0) return result;
    PrintFinalProfile(stream);
    stream.printf("Total program running time was %li secs\n\n", static_cast<long>(lastPhaseSeconds_));
    stream.close();
    progress.reset();
    offSeamResult.free();
    FreeArrays();
    return 0;
}

int CModelDat::RunSteps(vorn::TextWriter& stream)
{
    for (int step = 1; step <= stepCount; ++step) {
        if (ReadStepCodes(codes, step, stream) != 0) {
            progress.reset();
            return 1;
        }
        if (!SolveStepStart(step, stream) || !SolveStepLevels(step, stream)) return 1;
        PrintProfile(step, stream);
        WriteElementFiles(step);
        if (offSeamPlanes == 1) {
            Show("Calculating Off-Seam displacements ...");
            if (step == 1) vorn::dmatrix(offSeamResult, 1, offSeamCountX, 1, offSeamCountY);
            const std::time_t start = std::time(nullptr);
            OffSeamDisplacement(step);
            lastPhaseSeconds_ = secondsSince(start);
            stream.printf("Time for Off-Seam Disp. Calc. for Step %i was %li secs.\n\n", step,
                          static_cast<long>(lastPhaseSeconds_));
            profile[0].offSeamSeconds += lastPhaseSeconds_;
            profile[1].offSeamSeconds = lastPhaseSeconds_;
        }
    }
    return 0;
}

// The first solution of a step, at the coarsest level: any failure ends the run.
bool CModelDat::SolveStepStart(int step, vorn::TextWriter& stream)
{
    for (int s = 1; s <= seamCount; ++s) {
        const std::string entering = formatString("Entering SOR - Step %i, Seam %i, Level %i", step, s, kFirstLevel);
        Show(entering);
        stream.write(entering + "\n\n");
        const std::time_t start = std::time(nullptr);
        const int iterations = SolveSeamOf(s, stream);
        if (iterations == -1) return false;
        RecordSolution(step, s, kFirstLevel, iterations, start, stream);
    }
    return true;
}

int CModelDat::SolveSeamOf(int s, vorn::TextWriter& stream)
{
    return SolveSeam(convergence[s], codes[s], elementsX, elementsY, elementWidth, seamThickness[s], verticalStress[s],
                     overburdenStress[s], surfaceStress[s], interseamStress[s], stream);
}

// Adds a solution to the seam's profile at the level and logs it.
void CModelDat::RecordSolution(int step, int s, int level, int iterations, std::time_t start, vorn::TextWriter& stream)
{
    lastPhaseSeconds_ = secondsSince(start);
    profile[s].sorSeconds[level] += lastPhaseSeconds_;
    profile[s].iterations[level] += iterations;
    profile[s].loops[level] += 1;
    stream.printf("SOR took %i iterations %li secs to converge - Step %i, Seam %i, Level %i\n\n", iterations,
                  static_cast<long>(lastPhaseSeconds_), step, s, level);
}

// Levels 3 to 0: external stresses, then a pass over the seams, until the
// slowest seam of a pass needs no more than the level's threshold.
bool CModelDat::SolveStepLevels(int step, vorn::TextWriter& stream)
{
    int level = kFirstLevel;
    int threshold = LevelThreshold(level);
    int& largest = carriedIterations_;
    for (;;) {
        Show(formatString("Solving for external stresses stabilize -- Step %d, Level %d", step, level));
        if (largest > 1 && (seamCount >= 2 || surfaceEffects == 1)) CalculateExternalStresses(step, level, stream);
        if (!SolveLevel(step, level, largest, stream)) return false;
        if (largest > threshold) continue;
        if (level == 0) return true;
        --level;
        threshold = LevelThreshold(level);
        largest = threshold + 1;
    }
}

bool CModelDat::SolveLevel(int step, int level, int& largestIterations, vorn::TextWriter& stream)
{
    largestIterations = 0;
    for (int s = 1; s <= seamCount; ++s) {
        Show(formatString("Calculating Seam %i Displacements", s));
        stream.printf("Entering SOR - Step %i, Seam %i, Level %i\n\n", step, s, level);
        const std::time_t start = std::time(nullptr);
        const int iterations = SolveSeamOf(s, stream);
        if (cancelled) return false;
        RecordSolution(step, s, level, iterations, start, stream);
        if (iterations > largestIterations) largestIterations = iterations;
    }
    return true;
}

// ---------------------------------------------------------------- seam solver

int CModelDat::SolveSeam(vorn::DoubleMatrix& seamConvergence, const vorn::IndexedMatrix<char>& seamCodes, int countX,
                         int countY, double width, double thickness, vorn::DoubleMatrix& stress,
                         const vorn::DoubleMatrix& overburden, const vorn::DoubleMatrix& surface,
                         const vorn::DoubleMatrix& interseam, vorn::TextWriter& stream)
{
    const double a = overRelaxation * 0.25;
    const double b = 1.0 - overRelaxation;
    const float twoOverLE = 2 / (lamination * modulus);
    const double g = twoOverLE * (width * width * a);
    const double* s = stress.at(1, 1);
    const double* o = overburden.at(1, 1);
    const double* m = surface.at(1, 1);
    const double* i = interseam.at(1, 1);
    const std::ptrdiff_t rowStride = stress.stride();
    auto load = [=](int x, int y) {
        const std::ptrdiff_t k = (x - 1) * rowStride + (y - 1);
        return s[k] - o[k] - m[k] - i[k];
    };

    int counter = 1;
    double largest = tolerance + 1.0;
    while (counter <= maxIterations && std::fabs(largest) > tolerance) {
        if (UserCancelled()) {
            cancelled = 1;
            return -1;
        }
        if (ElementStress(seamConvergence, stress, seamCodes, thickness) != 0) return -1;
        MirrorBoundaries(seamConvergence);
        const vorn::SweepChange change =
            vorn::sorSweep(seamConvergence.at(0, 0), seamConvergence.stride(), countX, countY, a, b, g, load);
        largest = change.change;
        if (counter % 100 == 0) {
            SetProgress(static_cast<int>(static_cast<long long>(counter) * 100 / maxIterations));
            const std::string line =
                formatString("iteration number = %i, maximum displacement = %13.9lg\n", counter, largest);
            Show(line);
            stream.write(line);
            stream.printf("X grid location = %i, Y grid location = %i\n\n", change.x, change.y);
        }
        if (counter == maxIterations) {
            AfxMessageBox("Maximum Number of Iterations Reached - SOR1");
            return -1;
        }
        ++counter;
    }
    SetProgress(100);
    if (ElementStress(seamConvergence, stress, seamCodes, thickness) != 0) return -1;
    return counter - 1;
}

void CModelDat::MirrorBoundaries(vorn::DoubleMatrix& u)
{
    if (boundaryNorth == 1)
        for (int x = 0; x <= elementsX + 1; ++x) u(x, elementsY + 1) = u(x, elementsY);
    if (boundaryEast == 1)
        for (int y = 0; y <= elementsY + 1; ++y) u(elementsX + 1, y) = u(elementsX, y);
    if (boundarySouth == 1)
        for (int x = 0; x <= elementsX + 1; ++x) u(x, 0) = u(x, 1);
    if (boundaryWest == 1)
        for (int y = 0; y <= elementsY + 1; ++y) u(0, y) = u(1, y);
}

// ---------------------------------------------------------------- material laws

// Elements of one code in a row form a run: the law is chosen once per run,
// and a faulty code is reported at the run's first element, as the element
// by element order would find it.
int CModelDat::ElementStress(vorn::DoubleMatrix& seamConvergence, vorn::DoubleMatrix& stress,
                             const vorn::IndexedMatrix<char>& seamCodes, double thickness)
{
    for (int x = 1; x <= elementsX; ++x) {
        const double* u = seamConvergence.at(x, 1) - 1;
        double* s = stress.at(x, 1) - 1;
        const char* code = seamCodes.at(x, 1) - 1;
        for (int y = 1; y <= elementsY;) {
            int end = y;
            while (end < elementsY && code[end + 1] == code[y]) ++end;
            const int result = RunStress(u + y, s + y, end - y + 1, thickness, vorn::materialIndex(code[y]), x, y);
            if (result != 0) return result;
            y = end + 1;
        }
    }
    return 0;
}

// The stresses of `count` elements of material index `c` from element (x, y).
int CModelDat::RunStress(const double* u, double* s, int count, double thickness, int c, int x, int y)
{
    if (c >= 0 && c < kMaxMaterials) {
        const vorn::MaterialLaw& law = laws_[c];
        if (law.type < 1 || law.type > 6) {
            const char* message = "Material Code Out of Range in Element Stress Routine - ES5\n";
            consolePrintf("%s", message);
            AfxMessageBox(message);
            consolePrintf("i = %i, j = %i, integer code = %i\n", x, y, c);
            return 5;
        }
        law.stressRun(u, s, count, thickness);
    } else if (c == vorn::kCodeZero) {
        const char* message = "Material Code Out of Range in Element Stress Routine - ES1\n";
        consolePrintf("%s", message);
        consolePrintf("i = %i, j = %i, integer code = %i\n", x, y, c);
        AfxMessageBox(message);
        return 1;
    } else if (c == vorn::kCodeMined) {
        const double rockModulus = modulus;
        for (int k = 0; k < count; ++k) {
            const double e = u[k] / thickness;
            if (e <= 1) {
                s[k] = 0;
            } else {
                s[k] = rockModulus * (e - 1) * 0.1 + 0.9 * s[k];
                consolePrintf("Material Strain Greater Than 1 in Element Stress Routine - ES1a\n");
                consolePrintf("i = %i, j = %i, integer code = %i\n", x, y + k, c);
            }
        }
    } else {
        const char* message = "Material Code Out of Range in Element Stress Routine - ES2\n";
        const std::string where = formatString("i = %i, j = %i, integer code = %i\n", x, y, c);
        consolePrintf("%s", message);
        AfxMessageBox(message);
        consolePrintf("%s", where.c_str());
        AfxMessageBox(where);
        return 2;
    }
    return 0;
}

// ---------------------------------------------------------------- kernels

void CModelDat::PropagateStress(vorn::DoubleMatrix& source, int sourceCountX, int sourceCountY, double sourceWidth,
                                double sourceX, double sourceY, vorn::DoubleMatrix& target, int targetCountX,
                                int targetCountY, double targetWidth, double targetX, double targetY,
                                double distance, int mirror)
{
    if (mirror == 1) negate(source, sourceCountX, sourceCountY);
    const bool finished = vorn::propagateStress(
        fieldOf(source, sourceCountX, sourceCountY, sourceWidth, sourceX, sourceY),
        fieldOf(target, targetCountX, targetCountY, targetWidth, targetX, targetY), distance, Rock(),
        [this](int row, int rows) {
            SetProgress(100 * row / rows);
            if (!UserCancelled()) return true;
            cancelled = 1;
            return false;
        });
    if (finished && mirror == 1) negate(source, sourceCountX, sourceCountY);
}

void CModelDat::RemoteDisplacement(vorn::DoubleMatrix& source, int sourceCountX, int sourceCountY,
                                   double sourceWidth, double sourceX, double sourceY, vorn::DoubleMatrix& target,
                                   int targetCountX, int targetCountY, double targetWidth, double targetX,
                                   double targetY, double distance, int mirror)
{
    if (mirror == 1) negate(source, sourceCountX, sourceCountY);
    vorn::remoteDisplacement(fieldOf(source, sourceCountX, sourceCountY, sourceWidth, sourceX, sourceY),
                             fieldOf(target, targetCountX, targetCountY, targetWidth, targetX, targetY), distance,
                             Rock(), [](int row) {
                                 if (row % 10 == 0) consolePrintf("Calculating Remote Displacement for Row %i\n", row);
                             });
    consolePrintf("\n");
    if (mirror == 1) negate(source, sourceCountX, sourceCountY);
}

// ---------------------------------------------------------------- external stresses

void CModelDat::AverageConvergence(const vorn::DoubleMatrix& fine, int countX, int countY, vorn::DoubleMatrix& coarse,
                                   int coarseCountX, int coarseCountY, int factor)
{
    for (int x = 1; x <= coarseCountX; ++x)
        for (int y = 1; y <= coarseCountY; ++y) coarse(x, y) = 0;
    for (int x = 1; x <= countX; ++x)
        for (int y = 1; y <= countY; ++y) coarse((x + factor - 1) / factor, (y + factor - 1) / factor) += fine(x, y);
    const double area = static_cast<double>(factor * factor);
    for (int x = 1; x <= coarseCountX; ++x)
        for (int y = 1; y <= coarseCountY; ++y) coarse(x, y) /= area;
}

void CModelDat::CalculateExternalStresses(int step, int level, vorn::TextWriter& stream)
{
    const int factor = LevelFactor(level);
    coarseX = elementsX / factor;
    coarseY = elementsY / factor;
    coarseWidth = factor * elementWidth;
    for (int s = 1; s <= seamCount; ++s) {
        surfaceStress[s].fill(0);
        interseamStress[s].fill(0);
    }
    for (int i = 1; i <= seamCount; ++i) {
        AverageConvergence(convergence[i], elementsX, elementsY, coarseConvergence, coarseX, coarseY, factor);
        for (int j = 1; j <= seamCount; ++j) {
            if (j == i) continue;
            Show(formatString("Calculating Multi-Seam Stresses-  %i -> %i, Level %i", i, j, level));
            PropagateExternal(step, level, i, j, false, stream);
            if (cancelled) return;
        }
        if (progress) progress->setText("");
        if (surfaceEffects != 1) continue;
        Show("Calculating Surface Effect Stresses");
        for (int j = 1; j <= seamCount; ++j) {
            if (progress) progress->setStatus("Mirror-Image Stresses");
            Show(formatString("Calculating Mirror-Image Stresses, %i -> %i", i, j));
            PropagateExternal(step, level, i, j, true, stream);
        }
    }
}

// The stress of source seam i (or its mirror image) on seam j at a level.
void CModelDat::PropagateExternal(int step, int level, int i, int j, bool mirror, vorn::TextWriter& stream)
{
    const char* kind = mirror ? "Mirror-Image" : "Interseam";
    stream.printf("Calculating %s Stresses - Step %i, Seam %i on Seam %i, Level %i\n\n", kind, step, i, j, level);
    const float distance = mirror ? seamZ[i] + seamZ[j] : seamZ[i] - seamZ[j];
    vorn::DoubleMatrix& target = mirror ? surfaceStress[j] : interseamStress[j];
    const std::time_t start = std::time(nullptr);
    PropagateStress(coarseConvergence, coarseX, coarseY, coarseWidth, seamX[i], seamY[i], target, elementsX, elementsY,
                    elementWidth, seamX[j], seamY[j], distance, mirror ? 1 : 0);
    lastPhaseSeconds_ = secondsSince(start);
    (mirror ? profile[i].surfaceSeconds : profile[i].interseamSeconds)[level] += lastPhaseSeconds_;
    stream.printf("%s Stress Calculation - Step %i, Seam %i on Seam %i, Level %i took %li secs.\n\n",
                  mirror ? "Mirror" : "Interseam", step, i, j, level, static_cast<long>(lastPhaseSeconds_));
}
