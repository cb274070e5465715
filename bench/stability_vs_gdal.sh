#!/bin/bash
# Times the composite stability index of four N x N factor grids (default
# 2000) against gdal_calc.py computing the same weighted sum over the same
# values as GeoTIFF. Needs python3-gdal and numpy (Debian python3-gdal).
#   bench/stability_vs_gdal.sh [build/app/vornmark] [N]
set -euo pipefail
VORNMARK=${1:-build/app/vornmark}
N=${2:-2000}
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
PY=/usr/bin/python3

"$PY" - "$WORK" "$N" <<'PYEOF'
import sys, numpy as np
from osgeo import gdal
out, n = sys.argv[1], int(sys.argv[2])
x = np.arange(n + 1) * 1.0
X, Y = np.meshgrid(x, x, indexing="ij")
weights = [50, 30, 15, 5]
for k, w in enumerate(weights):
    v = 50 + 50 * np.sin(X / (40.0 + 7 * k)) * np.cos(Y / (55.0 + 5 * k))
    with open(f"{out}/f{k}.grd", "w", newline="") as f:
        f.write(f"0.000000\r\n0.000000\r\n{n:.6f}\r\n{n:.6f}\r\n{n}\r\n{n}\r\n")
        np.savetxt(f, v.T.reshape(-1), fmt="%f", newline="\r\n")
        f.write("factor %d\r\nVORN Stability Application" % k)
    ds = gdal.GetDriverByName("GTiff").Create(f"{out}/f{k}.tif", n + 1, n + 1, 1, gdal.GDT_Float64)
    ds.SetGeoTransform([0, 1, 0, n + 1, 0, -1])
    ds.GetRasterBand(1).WriteArray(v.T[::-1])
    ds = None
with open(f"{out}/p.prj", "w", newline="") as f:
    f.write("4" + "".join(f"\r\nf{k}\r\n{out}/f{k}.grd\r\nfactor {k}\r\n{w}" for k, w in enumerate(weights)))
PYEOF

measure() {
    local label=$1
    shift
    /usr/bin/time -f "$label: %e s elapsed, %U s user + %S s system" "$@" >/dev/null 2>"$WORK/time.txt" || true
    tail -1 "$WORK/time.txt"
}
echo "Four $N x $N factor grids, weights 50, 30, 15, 5 (load: $(cut -d' ' -f1-3 /proc/loadavg))"
measure "vornmark stability (.grd)" "$VORNMARK" stability "$WORK/p.prj" "$WORK/composite.grd"
measure "gdal_calc.py (GeoTIFF)   " "$PY" /usr/bin/gdal_calc.py -A "$WORK/f0.tif" -B "$WORK/f1.tif" -C "$WORK/f2.tif" \
    -D "$WORK/f3.tif" --calc="(50*A+30*B+15*C+5*D)/100" --outfile="$WORK/gdal.tif" --type=Float64 --quiet --overwrite
