// The influence sums as plain double loops over source and target
// elements, one exponential per pair: the reference that the separable
// sums are checked and timed against.
#pragma once

#include <cmath>

#include "stressmodel/kernels.h"

namespace vorn {

// The plain loop: each source element over its square window of targets
// (the window rule has its own test), one exponential per pair.
inline void plainPropagate(const KernelField& s, const KernelField& t, double z, const KernelRock& rock)
{
    const double L = rock.lamination;
    const double A = rock.modulus / (L * kEightPi * z * z);
    const double D = static_cast<double>(rock.lamination * 4.0f) * std::fabs(z);
    const double w = t.width, c = s.width;
    const double R = std::fabs(z) * 10 / w, q = c / w;
    const double ox = (s.originX - t.originX) / w, oy = (s.originY - t.originY) / w;
    for (int i = 1; i <= s.countX; ++i) {
        const IndexWindow wx = stressWindow((i - 0.5) * q + 0.5 + ox, R, t.countX);
        for (int j = 1; j <= s.countY; ++j) {
            const IndexWindow wy = stressWindow((j - 0.5) * q + 0.5 + oy, R, t.countY);
            const double U = s.at(i, j);
            const double xs = s.originX + (i - 0.5) * c, ys = s.originY + (j - 0.5) * c;
            for (int k = wx.lo; k <= wx.hi; ++k) {
                for (int l = wy.lo; l <= wy.hi; ++l) {
                    const double dx = t.originX + (k - 0.5) * w - xs, dy = t.originY + (l - 0.5) * w - ys;
                    const double T = (dx * dx + dy * dy) / D;
                    t.at(k, l) += std::exp(-T) * ((T - 1) * (A * (c * c) * U));
                }
            }
        }
    }
}

inline void plainRemote(const KernelField& s, const KernelField& t, double z, const KernelRock& rock)
{
    const double c = s.width;
    const double P = (1 / (static_cast<double>(rock.lamination) * kEightPi * z)) * (c * c);
    const double D = static_cast<double>(rock.lamination * 4.0f) * std::fabs(z);
    for (int i = 1; i <= s.countX; ++i)
        for (int j = 1; j <= s.countY; ++j) {
            const double xs = s.originX + (i - 0.5) * c, ys = s.originY + (j - 0.5) * c;
            for (int k = 1; k <= t.countX; ++k)
                for (int l = 1; l <= t.countY; ++l) {
                    const double dx = t.originX + (k - 0.5) * t.width - xs, dy = t.originY + (l - 0.5) * t.width - ys;
                    t.at(k, l) += std::exp(-(dx * dx + dy * dy) / D) * (P * s.at(i, j));
                }
        }
}

}  // namespace vorn
