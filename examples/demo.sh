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
echo "== Stress model: room-and-pillar panel with gob, 2 seams, 2 steps, surface effects"
rm -rf "$OUT/keldar" && mkdir -p "$OUT/keldar"
cp "$HERE/keldar/panel.inp" "$HERE/keldar/panel.top" "$OUT/keldar/"
"$VORNMARK" keldar "$OUT/keldar/panel.inp" </dev/null
echo
ls "$OUT/keldar"
echo
echo "== Total vertical stress of step 2 to a grid"
"$VORNMARK" transfer "$OUT/keldar/panel.f1" --list
echo
"$VORNMARK" transfer "$OUT/keldar/panel.f1" --step 2 --item 2 "$OUT/vertical_stress.grd"
echo
"$VORNMARK" grid info "$OUT/vertical_stress.grd"
echo
echo "== Normalise the stress (linear, inverse: high stress, low stability)"
"$VORNMARK" genfactor "$OUT/vertical_stress.grd" "$OUT/vertical_stress_index.grd" --function linear --tendency inverse
echo
echo "== Overburden stress under the uneven surface"
"$VORNMARK" topostress "$HERE/topo/surface.grd" "$OUT/surface_stress.grd" --seam-grid "$HERE/topo/seam.grd" </dev/null
echo
"$VORNMARK" grid info "$OUT/surface_stress.grd"
echo
"$HERE/stress/demo.sh" "$VORNMARK" "$OUT"
echo
echo "== The application in the stand-alone host: define the base grid of the example plan"
export VORNMARK_PROFILE="$OUT/profile.ini"
"$VORNMARK" run vorn_setGrid --drawing "$HERE/plan.dxf" --save "$OUT/plan_grid.dxf" \
    --script "$HERE/setgrid.scr" --transcript "$OUT/setgrid.txt"
echo
echo "-- the saved drawing keeps the definition in its dictionary:"
"$VORNMARK" drawing info "$OUT/plan_grid.dxf" | sed -n '/Dictionaries/,/Groups/p'
echo "-- and in the profile ($VORNMARK_PROFILE):"
cat "$VORNMARK_PROFILE"
echo
bash "$HERE/grid/demo.sh" "$VORNMARK" "$OUT"
bash "$HERE/rfri/demo.sh" "$VORNMARK" "$OUT"
bash "$HERE/polylines/demo.sh" "$VORNMARK"
bash "$HERE/stability/demo.sh" "$VORNMARK" "$OUT"
bash "$HERE/geology/demo.sh" "$VORNMARK" "$OUT"
bash "$HERE/areas/demo.sh" "$VORNMARK"
bash "$HERE/pictures/demo.sh" "$VORNMARK" "$OUT"
echo
echo "Results are in $OUT"
