#!/usr/bin/env python3
"""Writes the factor grids of the stability example over the example plan:
44 x 22 cells of 25 drawing units from (-100, -100), the lattice of the
plan's base grid. Values are smooth made-up fields in the .grd format."""
import math
import os

NX, NY, W, X0, Y0 = 44, 22, 25.0, -100.0, -100.0


def write(name, title, value):
    path = os.path.join(os.path.dirname(os.path.abspath(__file__)), name)
    lines = ["%f" % Y0, "%f" % X0, "%f" % (Y0 + NY * W), "%f" % (X0 + NX * W), "%d" % NX, "%d" % NY]
    for j in range(NY + 1):
        for i in range(NX + 1):
            lines.append("%f" % value(X0 + (i + 0.5) * W, Y0 + (j + 0.5) * W))
    lines.append(title)
    with open(path, "w", newline="") as f:
        f.write("\r\n".join(lines) + "\r\nVORN Stability Application")


# Cover deepens towards the north-east under a ridge.
write("plan_depth.grd", "Overburden Depth",
      lambda x, y: 620.0 + 0.18 * x + 0.25 * y + 40.0 * math.sin(x / 160.0))
# Vertical stress peaks beside the gob at the east end of the panel.
write("plan_stress.grd", "Vertical Stress",
      lambda x, y: 900.0 + 1400.0 * math.exp(-((x - 820.0) ** 2 + (y - 180.0) ** 2) / 60000.0))
# Roof rock strength: a weaker channel runs across the panel.
write("plan_roof.grd", "Roof Strength",
      lambda x, y: 60.0 - 35.0 * math.exp(-((y - 0.35 * x - 40.0) ** 2) / 8000.0))
