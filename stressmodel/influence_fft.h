// The influence sum of propagateStress as FFT convolutions, for passes in
// which every source element reaches the whole target (the mirror seams of
// a deep panel, for instance). The kernel (a + b - 1) e^(-a-b) with
// a = dx^2 / D, b = dy^2 / D splits into a e^-a e^-b + e^-a (b - 1) e^-b,
// and with a source width that is a whole multiple of the target width each
// factor depends only on the index offset, so each of the two sums is a
// convolution along y and then along x: N^2 log N work instead of N^3.
#pragma once

#include "stressmodel/kernels.h"

namespace vorn {

// True when the pass of `source` onto `target` at `distance` has full
// windows in both directions and a source width that is a whole multiple
// of the target width, so that the convolution form applies.
bool fullWindowConvolution(const KernelField& source, const KernelField& target, double distance);

// True when the convolution form is also the faster one for these sizes.
bool convolutionPays(const KernelField& source, const KernelField& target);

// Adds the pass to `target` as propagateStress does, through FFTs.
// `beforeRow` is asked before each source row as there; false stops before
// anything was added to the target.
bool propagateStressByConvolution(const KernelField& source, const KernelField& target, double distance,
                                  const KernelRock& rock, const RowCallback& beforeRow = {});

}  // namespace vorn
