#!/usr/bin/env python3
"""Writes the example geology: geology.dxf (surface contours on layer
Contours, drill holes as points on layer DrillHoles, faults on layer Faults)
and drillholes.txt (the drill holes as a point import file).

The surface is z = 1400 + 0.25 y + 40 sin(x / 200) (feet), so its contours
are the curves y = (z - 1400 - 40 sin(x / 200)) / 0.25; the seam floor under
it dips gently to the east. Run it again to remake both files."""
import math
import os
import random

HERE = os.path.dirname(os.path.abspath(__file__))


def group(code, value):
    return f"{code:>3}\n{value}\n"


def lwpolyline(layer, points, elevation=0.0, closed=False):
    out = group(0, "LWPOLYLINE") + group(8, layer) + group(90, len(points)) + group(70, 1 if closed else 0)
    out += group(38, f"{elevation:.1f}")
    for x, y in points:
        out += group(10, f"{x:.3f}") + group(20, f"{y:.3f}")
    return out


def point(layer, x, y, z):
    return group(0, "POINT") + group(8, layer) + group(10, f"{x:.3f}") + group(20, f"{y:.3f}") + group(30, f"{z:.3f}")


def layer_record(name, color):
    return group(0, "LAYER") + group(2, name) + group(70, 0) + group(62, color) + group(6, "CONTINUOUS")


def contours():
    lines = []
    for level in range(1360, 1621, 10):
        pts = []
        for k in range(61):
            x = -150.0 + k * 1300.0 / 60
            y = (level - 1400.0 - 40.0 * math.sin(x / 200.0)) / 0.25
            pts.append((x, y))
        lines.append(lwpolyline("Contours", pts, float(level)))
    return lines


def drill_holes():
    rng = random.Random(11)
    holes = []
    for _ in range(40):
        x, y = rng.uniform(-80, 980), rng.uniform(-80, 430)
        z = round(820.0 + 0.05 * x - 0.03 * y + rng.uniform(-3, 3), 2)
        holes.append((round(x, 2), round(y, 2), z))
    return holes


FAULTS = [
    [(-120, 380), (150, 300), (420, 260), (700, 150), (1020, 60)],
    [(200, -120), (260, 100), (300, 320), (330, 480)],
    [(600, -120), (640, 60), (720, 240)],
    [(820, 200), (900, 330), (1050, 470)],
]


def main():
    holes = drill_holes()
    tables = group(0, "SECTION") + group(2, "TABLES") + group(0, "TABLE") + group(2, "LAYER")
    tables += layer_record("0", 7) + layer_record("Contours", 3) + layer_record("DrillHoles", 1) + layer_record("Faults", 6)
    tables += group(0, "ENDTAB") + group(0, "ENDSEC")
    entities = group(0, "SECTION") + group(2, "ENTITIES")
    entities += "".join(contours())
    entities += "".join(point("DrillHoles", *h) for h in holes)
    entities += "".join(lwpolyline("Faults", f) for f in FAULTS)
    entities += group(0, "ENDSEC")
    with open(os.path.join(HERE, "geology.dxf"), "w", newline="\r\n") as f:
        f.write(tables + entities + group(0, "EOF"))
    with open(os.path.join(HERE, "drillholes.txt"), "w", newline="\r\n") as f:
        for i, (x, y, z) in enumerate(holes):
            # Comma lines and blank-separated lines, as field logs come.
            f.write(f"{x},{y},{z}\n" if i % 2 == 0 else f"{x}   {y} {z}\n")


if __name__ == "__main__":
    main()
