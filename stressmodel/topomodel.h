// The overburden stress model of one seam under an uneven surface: the
// sibling of CModelDat that the command vorn_topoStressModel runs. It reads
// the `.tmp` file the command writes, prints the start of its `.out` file,
// solves the laminated plate under the surface relief and propagates the
// plate's convergence to the seam.
//
// The `.tmp` file, line by line as it is read:
//   1  title (whole line)
//   2  poisson, modulus, layerThickness, unitCode          "%f, %f, %f, %i"
//   3  elementWidth, elementsX, elementsY, density         "%12f, %3i, %3i,%12f"
//   4  seamX, seamY                                        "%f, %f"
//   5  overRelaxation, tolerance, maxIterations            "%12f, %12f, %7i"
//   6  topoWidth, topoCountX, topoCountY, topoX, topoY, topoZ
//                                                          "%f, %i, %i, %f, %f, %f"
//   7+ the surface values, x outer and y inner            "%12lf"
#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "base/progress.h"
#include "stressmodel/arrays.h"

namespace vorn {
class TextWriter;
}

class CTopoModelDat {
public:
    CTopoModelDat();
    virtual ~CTopoModelDat();
    CTopoModelDat(const CTopoModelDat&) = delete;
    CTopoModelDat& operator=(const CTopoModelDat&) = delete;

    // Stores the path and derives `outPath` by replacing ".tmp" with ".out".
    void SetInputPath(std::string path);
    // 0, or the code of the first failing read (the message is in a box).
    int ReadInput();
    // Writes the start of the `.out` file: 0, or 1 (no file), 2 (no title).
    int PrintInput();
    // Solves and propagates: 0, or 1 for a failure or a cancel.
    int Run();
    // The stress as the node values of a `.grd` file: rows j outer, the last
    // value of a row doubled, the last row repeated.
    void WriteValues(vorn::TextWriter& stream) const;

    int cancelled = 0;
    std::string inputPath;
    std::string outPath;
    char title[80] = {};
    int unitCode = 0;
    float modulus = 0;
    float poisson = 0;
    float layerThickness = 0;
    float lamination = 0;
    float density = 0;
    int elementsX = 0;
    int elementsY = 0;
    float elementWidth = 0;
    float seamX = 0;
    float seamY = 0;
    float overRelaxation = 0;
    float tolerance = 0;
    int maxIterations = 0;
    float topoX = 0;
    float topoY = 0;
    float topoZ = 0;
    float topoWidth = 0;
    int topoCountX = 0;
    int topoCountY = 0;
    vorn::DoubleMatrix overburdenStress;  // [1..elementsX][1..elementsY]
    vorn::DoubleMatrix topoConvergence;   // [0..topoCountX+1][0..topoCountY+1]
    vorn::DoubleMatrix topoLoad;          // [1..topoCountX][1..topoCountY]
    std::unique_ptr<CProgressWnd> progress;

private:
    int ReadHeader(std::FILE* file);
    int ReadSurface(std::FILE* file);
    void PrintHeaderBlocks(vorn::TextWriter& out) const;
    int Calculate();
    void TopographicSolve(vorn::TextWriter& out);
    bool PropagateToSeam();
    // Takes up a user break: true, with `cancelled` set, once there was one.
    bool UserBreak();
};
