#!/bin/bash
# The stability line on the example plan: factor grids normalised to
# indices (on the panel and on the command line), the indices weighted in a
# project, the composite index, and the index mapped onto the plan as
# coloured regions and solid hatches. Output goes to OUT/stability.
set -euo pipefail
VORNMARK=${1:-build/app/vornmark}
OUT=${2:-out}
HERE=$(cd "$(dirname "$0")" && pwd)
PLAN="$HERE/../plan.dxf"
DEST="$OUT/stability"
rm -rf "$DEST" && mkdir -p "$DEST"
DEST=$(cd "$DEST" && pwd)
export VORNMARK_PROFILE="$DEST/profile.ini"

echo "== Normalise the overburden depth on the panel \"Individual Factor Generation/Normalization\""
cat > "$DEST/genfactor.scr" <<SCR
press "Select a Grid File"
file $HERE/plan_depth.grd
press "Select a Output Grid File"
file $DEST/depth_index.grd
ok
check "Inverse" on
choose "Functions" Linear
check "Preview Final Grid" off
ok
box ok
SCR
"$VORNMARK" run vorn_genFactor --script "$DEST/genfactor.scr" --transcript "$DEST/genfactor.txt"
echo
echo "== Normalise stress (linear, inverse) and roof strength (exponential, normal) on the command line"
"$VORNMARK" genfactor "$HERE/plan_stress.grd" "$DEST/stress_index.grd" --function linear --tendency inverse
echo
"$VORNMARK" genfactor "$HERE/plan_roof.grd" "$DEST/roof_index.grd" --function exponential --tendency normal \
    --lower 20 --upper 60
echo
echo "== The project on the panel \"Stability Index Generation\": three factors with weights"
{
    for factor in depth:40 stress:35 roof:25; do
        name=${factor%%:*}
        cat <<SCR
press "< Select Index Grid"
file $DEST/${name}_index.grd
set "Name" $name
set "Weighting Factor" ${factor##*:}
press "Add"
SCR
    done
    echo 'press "Save and Exit"'
    echo "file $DEST/plan.prj"
} > "$DEST/project.scr"
"$VORNMARK" run vorn_StabilityIndex --script "$DEST/project.scr" --transcript "$DEST/project.txt"
echo
echo "-- $DEST/plan.prj:"
cat "$DEST/plan.prj"
echo
echo
echo "== The composite stability index of the project"
"$VORNMARK" stability "$DEST/plan.prj" "$DEST/composite.grd"
echo
"$VORNMARK" grid info "$DEST/composite.grd"
echo
echo "== The index mapped onto the plan: a region per cell, united by colour, hatched on VORN_Stability_Map"
"$VORNMARK" map "$DEST/composite.grd" "$DEST/plan_stability.dxf" --drawing "$PLAN" --pillars Pillars \
    --layer VORN_Stability_Map
echo
"$VORNMARK" drawing info "$DEST/plan_stability.dxf" | sed -n '/^Layers/,/^Dictionaries/p' | grep -v '^Dictionaries'
echo
echo "Stability outputs:"
echo "  index grids     $DEST/depth_index.grd, stress_index.grd, roof_index.grd"
echo "  project         $DEST/plan.prj"
echo "  composite index $DEST/composite.grd"
echo "  mapped plan     $DEST/plan_stability.dxf"
