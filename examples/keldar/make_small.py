#!/usr/bin/env python3
"""Writes small.inp, a stress model small enough to read by eye.

One seam 20 by 10 elements of 5 ft (60 in) at 600 ft depth, in feet and
psi (unit code 1: the file holds inches and psi). Two entries 4 elements
wide cross the seam from south to north; between them stands a pillar of
coal with ribs of softer coal, and solid coal lies outside. One mining
step, no surface effects, no off-seam plane, no topographic stage, so the
model needs no other file.

Materials: A solid coal (linear elastic), B pillar rib (strain softening),
C pillar core (elastic-plastic). Code 1 is a mined element.
"""
import os

NX, NY, WIDTH = 20, 10, 60.0
HERE = os.path.dirname(os.path.abspath(__file__))


def code(x):
    """The code of column x (1-based): entries at 5-8 and 13-16."""
    if 5 <= x <= 8 or 13 <= x <= 16:
        return "1"
    if x in (9, 12):
        return "B"
    if 10 <= x <= 11:
        return "C"
    return "A"


def lines():
    out = ["Small example: one seam, two entries and a pillar, one step"]
    out.append("%12.4f, %12.1f, %12.1f, %3d, %3d" % (0.25, 3000000.0, 600.0, 1, 1))
    out.append("%3d" % 3)
    out.append("%3d, %12.1f, %12.1f, %12.1f, %12.1f, %12.1f" % (1, 300000.0, 120000.0, 0.0, 0.0, 0.0))
    out.append("%3d, %12.1f, %12.5f, %12.1f, %12.5f, %12.2f" % (2, 2000.0, 0.008, 800.0, 0.03, 0.3))
    out.append("%3d, %12.1f, %12.5f, %12.1f, %12.1f, %12.2f" % (3, 4000.0, 0.012, 0.0, 0.3, 0.0))
    out.append("%12.1f, %3d, %3d, %12.5f" % (WIDTH, NX, NY, 1.1 / 12.0))
    out.append("%f, %f, %f, %12.1f" % (0.0, 0.0, -7200.0, 72.0))
    out.append("%12.2f, %12.6f, %7d, %3d, %3d, %3d, %3d, %3d" % (1.8, 0.00002, 5000, 1, 1, 0, 0, 0))
    out.append("%3d, %3d, %3d, %3d" % (1, 1, 1, 1))
    row = "".join(code(x) for x in range(1, NX + 1))
    out += [row] * NY
    return out


if __name__ == "__main__":
    with open(os.path.join(HERE, "small.inp"), "w", newline="\r\n") as f:
        f.write("\n".join(lines()) + "\n")
