#!/bin/bash
# Factor grids from the example geology (geology.dxf, drillholes.txt): the
# topography .top of the surface contours, a grid from the drill holes of
# the point file, and the influence of the faults. Each command runs in the
# stand-alone host with a script that answers its panel; the transcripts
# go beside the results in OUT.
set -euo pipefail
VORNMARK=${1:-build/app/vornmark}
OUT=${2:-out}
HERE=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$OUT/geology"
OUT=$(cd "$OUT/geology" && pwd)
export VORNMARK_PROFILE="$OUT/profile.ini"

# The base grid: origin (-100,-100), 110 x 55 square cells of 10 ft.
LATTICE='set "X Coordinate of Grid Origin:" -100
set "Y Coordinate of Grid Origin:" -100
set "Cell Width in X Direction:" 10
set "Number of Cells in X Direction:" 110
set "Number of Cells in Y Direction:" 55
tab "Build Grid"'

run() {  # COMMAND NAME SCRIPT
    printf '%s\n' "$3" >"$OUT/$2.scr"
    "$VORNMARK" run "$1" --drawing "$HERE/geology.dxf" --script "$OUT/$2.scr" --transcript "$OUT/$2.txt" >"$OUT/$2.log" 2>&1
    grep -E 'found|imported|in search ranges|is going to be built|too few|not available' "$OUT/$2.log" | sort | uniq -c | sed 's/^ *[0-9]* //' || true
}

echo "== Topography grid for Keldar from the surface contours (feet, written in inches)"
run vorn_topoGrid topography "$LATTICE
choose \"Contour Layers\" Contours
check \"Feet\" on
set \"Output File <.top>\" $OUT/topography.top
press \"< &Build Grid\"
<enter>
<enter>
press \"< &Save Grid\"
box ok
ok"
head -n 4 "$OUT/topography.top"
echo
echo "== Point grid from the drill hole file (inverse distance, at least 3 points)"
run vorn_gridFromPoint drillholes "$LATTICE
check \"From External File\" on
set \"Min. Points:\" 3
set \"Grid Title\" Seam floor from drill holes
set \"Output File (.grd) :\" $OUT/drillholes.grd
press \"< &Build Grid\"
file $HERE/drillholes.txt
box ok
<enter>
<enter>
press \"< &Save Grid\"
box ok
ok"
"$VORNMARK" grid info "$OUT/drillholes.grd"
echo
echo "== Feature grid from the faults (influence 60 ft, accumulated)"
run vorn_geoFeatures faults "$LATTICE
choose \"Define Feature Layers\" Faults
set \"Influence Distance:\" 60
check \"Accumulation\" on
set \"Grid Title\" Faults
set \"Output File (.grd) :\" $OUT/faults.grd
press \"< &Build Grid\"
<enter>
<enter>
press \"< &Save Grid\"
box ok
ok"
"$VORNMARK" grid info "$OUT/faults.grd"
