// Factor normalisation: turns a factor grid into an index grid of the same
// shape on the scale 0 to 100 by a linear, step or exponential function.
#pragma once

#include <string>

class myGrid;

enum FactorTendency : int { kTendencyInverse = 0, kTendencyNormal = 1 };
enum FactorFunction : int { kFunctionNone = -1, kFunctionLinear = 0, kFunctionStep = 1, kFunctionExponential = 2 };

struct FactorConversion {
    std::string inputPath;
    std::string outputPath;
    std::string description;
    int tendency = kTendencyNormal;
    int function = kFunctionNone;
    double lower = 0.0;
    double upper = 0.0;
    bool preview = false;
};

// What a conversion did: the reading and the writing of the grids.
struct FactorConversionResult {
    bool read = false;
    bool written = false;
};

// The index value of one stored value; the value itself when the function
// or tendency is none of the known ones, or the value is NaN.
double normaliseFactorValue(double v, const FactorConversion& settings);

// Converts every node, the row and column beyond the cells included.
void normaliseFactorGrid(myGrid& grid, const FactorConversion& settings);

// Reads the input grid, converts it and writes the index grid, reporting on
// the command line and in a message box.
FactorConversionResult runFactorConversion(const FactorConversion& settings);
