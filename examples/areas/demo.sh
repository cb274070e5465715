#!/bin/bash
# Factor grids from areas on the example room-and-pillar plan, each built by
# a script through its pages: the area boundary factor of the zones, the
# seam file of pillars, gob and entries, and the entries rated against the
# horizontal stress.
set -euo pipefail
VORNMARK=${1:-build/app/vornmark}
HERE=$(cd "$(dirname "$0")" && pwd)
OUT=$(cd "$HERE/../.." && pwd)/out/areas
mkdir -p "$OUT"
export VORNMARK_PROFILE="$OUT/profile.ini"
PLAN="$HERE/plan_zones.dxf"

# The base grid of the plan: origin (-60,-100), 104 by 53 square cells of 10.
GRID='set "X Coordinate of Grid Origin:" -60
set "Y Coordinate of Grid Origin:" -100
set "Cell Width in X Direction:" 10
set "Number of Cells in X Direction:" 104
set "Number of Cells in Y Direction:" 53'

echo "== Area boundary factor: boundaries from the layer Zones, 100 inside, 0 outside, Area Based at 50 %"
rm -f "$OUT/zones.grd"
cat >"$OUT/zones.scr" <<SCRIPT
$GRID
tab "Create Boundary"
choose "Layer list" Zones
set "Influence Range :" 0
press "< Create from Polylines in Layer "
Yes
tab "Build Grid"
set "Output File (.grd) :" $OUT/zones.grd
set "Grid Description" Valley, pond and stream bank
check "Remove Boundaries" on
press "< &Build Grid"
Yes
<enter>
press "< &Save Grid"
box ok
ok
SCRIPT
"$VORNMARK" run vorn_sFactorInArea --drawing "$PLAN" --script "$OUT/zones.scr" --transcript "$OUT/zones.txt" >/dev/null
"$VORNMARK" grid info "$OUT/zones.grd"
echo
echo "== Seam grid for the stress model: pillars (A), gob (S), entries (1)"
rm -f "$OUT/seam.txt"
cat >"$OUT/seam.scr" <<SCRIPT
$GRID
tab "Build Grid"
choose "Pillar Layer" Pillars
choose "Gob Layer" Gob
set "Output File (.txt) :" $OUT/seam.txt
press " &Build Grid ..."
Yes
Yes
<enter>
press " &Save Grid ..."
box ok
ok
SCRIPT
"$VORNMARK" run vorn_seamGrid --drawing "$PLAN" --script "$OUT/seam.scr" --transcript "$OUT/seam_run.txt" >/dev/null
tr -d '\r' <"$OUT/seam.txt"
echo
echo "== Horizontal stress: entries 20 wide against a maximum horizontal stress at 30 degrees"
rm -f "$OUT/horizontal_stress.grd"
cat >"$OUT/horizstress.scr" <<SCRIPT
$GRID
tab "Build Grid"
choose "Entry Projection Layers" Entries
set "Width of Entries" 20
press "Pick a orientation"
30
set "Output File (.grd) :" $OUT/horizontal_stress.grd
press "< &Build Grid"
<enter>
<enter>
press "< &Save Grid"
box ok
ok
SCRIPT
"$VORNMARK" run vorn_horizStress --drawing "$PLAN" --script "$OUT/horizstress.scr" --transcript "$OUT/horizstress.txt" >/dev/null
"$VORNMARK" grid info "$OUT/horizontal_stress.grd"
echo
