// The topographic stage: the relief above a datum loads a laminated plate,
// whose convergence is spread as stress onto every seam and replaces the
// flat overburden stress for the whole run.
#include "base/report.h"
#include "base/textnum.h"
#include "stressmodel/modeldat.h"

using vorn::formatString;

int CModelDat::TopographicStress()
{
    vorn::TextWriter stream;
    if (!stream.openAppend(outPath)) {
        AfxMessageBox("Error in Opening Output File - TS1\n");
        return 1;
    }
    stream.write("Entering Topographic SOR\n\n");
    const int read = ReadTopography();
    if (read == 1) return 1;
    if (read > 1) {
        topoConvergence.free();
        topoLoad.free();
        return 1;
    }
    PrintTopographicGrid();
    for (int x = 1; x <= topoCountX; ++x)
        for (int y = 1; y <= topoCountY; ++y) topoLoad(x, y) = (topoLoad(x, y) - topoZ) * density;
    topoConvergence.fill(0);
    TopographicSolve(topoConvergence, topoCountX, topoCountY, topoWidth, topoLoad, stream);
    for (int s = 1; s <= seamCount; ++s) {
        Show(formatString("Propogating Topographic Stress to Seam %i", s));
        const float datumAbove = topoZ - (seamZ[s] - seamZ[1]);
        overburdenStress[s].fill(density * datumAbove);
        Show(formatString("Propogating the topographic disp. to seam %i stresses!", s));
        stream.printf("Propogating the topo. disp. to seam %i stresses\n\n", s);
        PropagateStress(topoConvergence, topoCountX, topoCountY, topoWidth, topoX, topoY, overburdenStress[s],
                        elementsX, elementsY, elementWidth, seamX[s], seamY[s], datumAbove, 0);
    }
    if (progress) progress->setStatus("");
    topoConvergence.free();
    topoLoad.free();
    return 0;
}

int CModelDat::TopographicSolve(vorn::DoubleMatrix& plate, int countX, int countY, double width,
                                vorn::DoubleMatrix& load, vorn::TextWriter& stream)
{
    if (progress) progress->setStatus("Successive Over Relaxation Iterating");
    const vorn::PlateSettings settings{Rock(), overRelaxation, tolerance, maxIterations};
    const vorn::KernelField loadField{load.at(1, 1), load.stride(), countX, countY, width, 0, 0};
    const int counter = vorn::solveLoadedPlate(
        plate.at(0, 0), plate.stride(), loadField, settings, [&](int iteration, const vorn::SweepChange& change) {
            SetProgress(static_cast<int>(static_cast<long long>(iteration) * 100 / maxIterations));
            stream.printf("iteration number = %i, maximum displacement = %13.9lg\n", iteration, change.change);
            stream.printf("X grid location = %i, Y grid location = %i\n\n", change.x, change.y);
        });
    if (progress) progress->setStatus("");
    SetProgress(100);
    stream.printf("Topographic SOR took %i iterations to converge\n\n", counter);
    return counter - 1;
}

int CModelDat::PrintTopographicGrid()
{
    vorn::TextWriter out;
    if (!out.openAppend(outPath)) {
        AfxMessageBox("Error in Opening Output File - PTI1\n");
        return 1;
    }
    vorn::printTopographicGrid(out, {topoX, topoY, topoZ, topoWidth, topoCountX, topoCountY});
    return 0;
}

void vorn::printTopographicGrid(vorn::TextWriter& out, const TopographicGridPlacement& grid)
{
    out.write("  TOPOGRAPHIC GRID DETAILS\n\n");
    out.printf("  X COORDINATE OF TOPOGRAPHIC GRID ORIGIN    -- %f\n", grid.x);
    out.printf("  Y COORDINATE OF TOPOGRAPHIC GRID ORIGIN    -- %f\n", grid.y);
    out.printf("  Z DATUM OF TOPOGRAPHIC GRID                -- %f\n", grid.z);
    out.printf("  DISTANCE ABOVE SEAM 1 OF TOPOGRAPHIC DATUM -- %f\n", grid.z);
    out.printf("  WIDTH OF TOPOGRAPHIC BLOCKS                -- %f\n", grid.width);
    out.printf("  NO. OF TOPOGRAPHIC BLOCKS ALONG X AXIS     -- %i\n", grid.countX);
    out.printf("  NO. OF TOPOGRAPHIC BLOCKS ALONG Y AXIS     -- %i\n", grid.countY);
    out.write("\n");
}
