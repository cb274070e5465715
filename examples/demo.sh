#!/bin/bash
# The main job on the example data: each stage reads what the one before
# wrote. Output goes to out/ in the project folder.
set -euo pipefail
VORNMARK=${1:-build/app/vornmark}
HERE=$(cd "$(dirname "$0")" && pwd)
OUT=$(cd "$HERE/.." && pwd)/out
mkdir -p "$OUT"

echo "== Factor grid: overburden depth"
"$VORNMARK" grid info "$HERE/depth.grd"
echo
echo "== Normalise it (linear, normal) to an index grid of 0 to 100"
"$VORNMARK" genfactor "$HERE/depth.grd" "$OUT/depth_index.grd" --function linear --tendency normal
echo
echo "== The index grid"
"$VORNMARK" grid info "$OUT/depth_index.grd"
echo
