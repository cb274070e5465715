#include "stressmodel/arrays.h"

#include <cstdio>
#include <cstdlib>

#include "base/processend.h"

namespace vorn {

void allocationFailure(const char* message)
{
    std::fprintf(stderr, "%s\n", message);
    std::fprintf(stderr, "...now exiting to the system...\n");
    std::fflush(stderr);
    vorn::endProcess(1);
}

void dmatrix(DoubleMatrix& m, int lowX, int highX, int lowY, int highY)
{
    m.allocate(lowX, highX, lowY, highY, "allocation failure 1 in dmatrix()");
}

void dcubix(DoubleCube& c, int lowS, int highS, int lowX, int highX, int lowY, int highY)
{
    c.allocate(lowS, highS, lowX, highX, lowY, highY, "allocation failure 1 in dcubix()",
               "allocation failure 2 in dcubix()");
}

void ccubix(CharCube& c, int lowS, int highS, int lowX, int highX, int lowY, int highY)
{
    c.allocate(lowS, highS, lowX, highX, lowY, highY, "allocation failure 1 in ccubix()",
               "allocation failure 2 in ccubix()");
}

}  // namespace vorn
