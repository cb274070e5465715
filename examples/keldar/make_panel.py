#!/usr/bin/env python3
"""Writes the example Keldar model panel.inp and its relief panel.top.

A room-and-pillar panel 1500 ft square in 5 ft elements (300 x 300), two
seams 40 ft apart at about 600 ft depth, in feet and psi (unit code 1, so
the file holds inches and psi). Step 1 develops the panel in seam 1 and a
three-entry set in seam 2; step 2 retreats the south half of the panel and
leaves gob. Surface effects, an off-seam plane and the topographic stage
under a gentle hill are all on.

With --size N the same panel is scaled to N x N elements (a multiple of
10): the same element width, pillar pitch, materials and seams, the mined
areas scaled with the mesh. `make_panel.py --size 800 --out DIR` writes
DIR/panel.inp and DIR/panel.top for timing runs of the solver.
"""
import argparse
import math
import os

NX = NY = 300
WIDTH = 60.0                       # element width, inches
HERE = os.path.dirname(os.path.abspath(__file__))

SOLID, CORE, RIB, GOB, MINED = "D", "A", "B", "C", "1"


def scaled(index):
    """An index of the 300 x 300 panel on the present mesh."""
    return round(index * NX / 300)


def panel_codes(step):
    rows = [[SOLID] * (NY + 1) for _ in range(NX + 1)]
    for x in range(1, NX + 1):
        for y in range(1, NY + 1):
            if not (scaled(60) <= x < scaled(240) and scaled(40) <= y < scaled(260)):
                continue
            px, py = (x - 60) % 16, (y - 40) % 16
            if px < 4 or py < 4:
                code = MINED
            elif px in (4, 15) or py in (4, 15):
                code = RIB
            else:
                code = CORE
            if step == 2 and y < scaled(150):
                code = GOB
            rows[x][y] = code
    return rows


def entry_codes(step):
    rows = [[SOLID] * (NY + 1) for _ in range(NX + 1)]
    for x in range(scaled(120), scaled(184)):
        for y in range(scaled(20), scaled(280)):
            px, py = (x - 120) % 22, (y - 20) % 26
            if px < 4 or py < 4:
                rows[x][y] = MINED
            elif px in (4, 21) or py in (4, 25):
                rows[x][y] = RIB
            else:
                rows[x][y] = CORE
    return rows


def code_block(rows):
    """North row first, x running east along a line."""
    return ["".join(rows[x][y] for x in range(1, NX + 1)) for y in range(NY, 0, -1)]


def write_inp(path):
    lines = ["Example room-and-pillar panel with gob, two seams, two steps"]
    lines.append("%12.4f, %12.1f, %12.1f, %3d, %3d" % (0.25, 3000000.0, 600.0, 2, 1))
    lines.append("%3d" % 4)
    lines.append("%3d, %12.1f, %12.5f, %12.1f, %12.1f, %12.2f" % (3, 4000.0, 0.012, 0.0, 0.3, 0.0))     # A core
    lines.append("%3d, %12.1f, %12.5f, %12.1f, %12.5f, %12.2f" % (2, 2000.0, 0.008, 800.0, 0.03, 0.3))  # B rib
    lines.append("%3d, %12.1f, %12.1f, %12.1f, %12.2f, %12.2f" % (5, 200.0, 100000.0, 2000.0, 1.0, 0.3))  # C gob
    lines.append("%3d, %12.1f, %12.1f, %12.1f, %12.1f, %12.1f" % (1, 300000.0, 120000.0, 0.0, 0.0, 0.0))  # D coal
    lines.append("%12.1f, %3d, %3d, %12.5f" % (WIDTH, NX, NY, 1.1 / 12.0))
    lines.append("%f, %f, %f, %12.1f" % (0.0, 0.0, -7200.0, 72.0))
    lines.append("%f, %f, %f, %12.1f" % (0.0, 0.0, -7680.0, 60.0))
    lines.append("%12.2f, %12.6f, %7d, %3d, %3d, %3d, %3d, %3d" % (1.8, 0.00002, 5000, 1, 2, 1, 1, 1))
    lines.append("%3d, %3d, %3d, %3d" % (1, 1, 1, 1))
    lines.append("%7d, %12.1f, %3d, %3d, %f, %f, %f" % (900, 600.0, 30, 30, 0.0, 0.0, -7000.0))
    for step in (1, 2):
        lines += code_block(panel_codes(step))
        lines += code_block(entry_codes(step))
    with open(path, "w", newline="\r\n") as f:
        f.write("\n".join(lines) + "\n")


def write_top(path):
    count, width, x0, y0, datum = 100, 300.0, -6000.0, -6000.0, 7200.0
    lines = ["%d,%d, %f, %d, %d, %f, %f, %f" % (1, count * count, width, count, count, x0, y0, datum)]
    lines.append("  1,Surface Height")
    lines.append("  1,in")
    for i in range(1, count + 1):
        for j in range(1, count + 1):
            x = x0 + (i - 0.5) * width - 9000.0
            y = y0 + (j - 0.5) * width - 12000.0
            lines.append("%12.4f" % (datum + 1200.0 * math.exp(-(x * x + y * y) / (2 * 4000.0 ** 2))))
    with open(path, "w", newline="\r\n") as f:
        f.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--size", type=int, default=300, help="elements along X and Y (multiple of 10)")
    parser.add_argument("--out", default=HERE, help="folder of panel.inp and panel.top")
    args = parser.parse_args()
    if args.size < 10 or args.size % 10:
        parser.error("--size must be a positive multiple of 10")
    NX = NY = args.size
    os.makedirs(args.out, exist_ok=True)
    write_inp(os.path.join(args.out, "panel.inp"))
    write_top(os.path.join(args.out, "panel.top"))
