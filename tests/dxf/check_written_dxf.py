#!/usr/bin/env python3
"""Independent readers over the DXF files that vornmark writes.

check_written_dxf.py VORNMARK SOURCE_DIR WORK_DIR

vornmark saves drawings made by an independent writer (every entity kind it
reads, a 2-D heavy polyline at an elevation among them), the example plan,
and the plan after a command that stores its data in the drawing. Each saved
file must pass ezdxf's audit without errors and fixes, and GDAL's ogrinfo
must open it and find its features. The 2-D polyline must come back with its
elevation in its own record and its vertices at z 0.
"""
import os
import subprocess
import sys

import ezdxf

ELEVATION = 4.0


def independent_drawing(path):
    doc = ezdxf.new("R2010")
    msp = doc.modelspace()
    doc.layers.add("Gob", color=1)
    heavy = msp.add_polyline2d([(0, 0), (5, 0), (5, 5)], close=True, dxfattribs={"layer": "Gob"})
    heavy.dxf.elevation = (0, 0, ELEVATION)
    msp.add_lwpolyline([(0, 0), (5, 0), (5, 5)], dxfattribs={"elevation": 2.0})
    msp.add_polyline3d([(0, 0, 0), (1, 1, 1), (2, 0, 2)])
    msp.add_line((0, 0), (3, 4))
    msp.add_circle((1, 1), 2)
    msp.add_arc((1, 1), 2, 10, 200)
    msp.add_point((3, 3))
    msp.add_text("label", dxfattribs={"height": 2})
    hatch = msp.add_hatch(color=2)
    hatch.paths.add_polyline_path([(2, 2), (4, 2), (4, 4)], is_closed=True)
    doc.saveas(path)


def vornmark(binary, *args):
    done = subprocess.run([binary, *args], capture_output=True, text=True, stdin=subprocess.DEVNULL)
    if done.returncode != 0:
        raise SystemExit(f"vornmark {' '.join(args)} failed ({done.returncode}):\n{done.stdout}{done.stderr}")


def audit(path):
    doc = ezdxf.readfile(path)
    result = doc.audit()
    problems = [f"{e.code} {e.message}" for e in result.errors + result.fixes]
    return doc, problems


def ogr_features(path):
    done = subprocess.run(["ogrinfo", "-ro", "-al", "-so", path], capture_output=True, text=True)
    if done.returncode != 0:
        return None, done.stderr
    for line in done.stdout.splitlines():
        if line.startswith("Feature Count:"):
            return int(line.split(":")[1]), ""
    return None, done.stdout


def check_heavy_polyline(doc):
    heavies = [e for e in doc.modelspace().query("POLYLINE") if e.get_mode() == "AcDb2dPolyline"]
    if len(heavies) != 1:
        return [f"{len(heavies)} 2-D heavy polylines, expected 1"]
    heavy = heavies[0]
    failures = []
    if heavy.dxf.elevation.z != ELEVATION:
        failures.append(f"polyline elevation {heavy.dxf.elevation}, expected z {ELEVATION}")
    zs = [v.dxf.location.z for v in heavy.vertices]
    if any(z != 0.0 for z in zs):
        failures.append(f"vertex z values {zs}, expected all 0")
    return failures


def main():
    binary, source, work = sys.argv[1:4]
    os.makedirs(work, exist_ok=True)
    independent = os.path.join(work, "independent.dxf")
    independent_drawing(independent)
    written = {
        "copy of an independent drawing": os.path.join(work, "independent_copy.dxf"),
        "copy of the example plan": os.path.join(work, "plan_copy.dxf"),
        "plan saved after vorn_setGrid": os.path.join(work, "plan_grid.dxf"),
    }
    vornmark(binary, "drawing", "copy", independent, written["copy of an independent drawing"])
    plan = os.path.join(source, "examples", "plan.dxf")
    vornmark(binary, "drawing", "copy", plan, written["copy of the example plan"])
    vornmark(binary, "run", "vorn_setGrid", "--drawing", plan, "--save", written["plan saved after vorn_setGrid"],
             "--script", os.path.join(source, "examples", "setgrid.scr"))

    failures = []
    for what, path in written.items():
        doc, problems = audit(path)
        failures += [f"{what}: ezdxf audit: {p}" for p in problems]
        count, error = ogr_features(path)
        if not count:
            failures.append(f"{what}: ogrinfo finds no features: {error.strip()}")
        print(f"{what}: {len(doc.modelspace())} entities, audit {len(problems)} problems, ogrinfo {count} features")
    doc, _ = audit(written["copy of an independent drawing"])
    failures += [f"2-D polyline: {f}" for f in check_heavy_polyline(doc)]
    for failure in failures:
        print("FAILED", failure)
    print(f"dxf checks: {len(failures)} failure(s)")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
