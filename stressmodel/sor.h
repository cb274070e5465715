// One over-relaxed Gauss-Seidel sweep of the laminated plate equation, x
// outer and y inner, in place:
//   new = a (u(x+1,y) + u(x-1,y) + u(x,y-1) + u(x,y+1)) + b u(x,y) - g rhs(x,y)
// `u` points at rim element (0, 0) of a block of rows `stride` apart. The
// right-hand side is a callable rhs(x, y). Returns the first largest change.
#pragma once

#include <cmath>
#include <cstddef>

#include "stressmodel/kernels.h"

namespace vorn {

template <class RightHandSide>
SweepChange sorSweep(double* u, std::ptrdiff_t stride, int countX, int countY, double a, double b, double g,
                     RightHandSide rhs)
{
    SweepChange largest;
    for (int x = 1; x <= countX; ++x) {
        double* row = u + x * stride;
        const double* above = row + stride;
        const double* below = row - stride;
        for (int y = 1; y <= countY; ++y) {
            const double old = row[y];
            const double fresh = a * (above[y] + below[y] + row[y - 1] + row[y + 1]) + b * old - g * rhs(x, y);
            row[y] = fresh;
            const double change = fresh - old;
            if (std::fabs(change) > std::fabs(largest.change)) {
                largest.change = change;
                largest.x = x;
                largest.y = y;
            }
        }
    }
    return largest;
}

}  // namespace vorn
