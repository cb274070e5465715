#!/bin/bash
# Roof fall risk on the example drawing roof.dxf: the twelve defect grids
# from its defect features, the final RFRI grid, and the assessment
# polygons listed and mapped. Output goes to OUT/rfri.
#
# roof.dxf was made by the system itself on a new drawing:
#   vornmark run vorn_RFRI_Input --save step1.dxf --script assess.scr
#   vornmark run vorn_RFRI_Draw --drawing step1.dxf --save roof.dxf --script draw_features.scr
# three assessment polygons on layer 0, and defect features on nine of the
# twelve defect layers, each feature's level in its constant width.
set -euo pipefail
VORNMARK=$(cd "$(dirname "$1")" && pwd)/$(basename "$1")
OUT=$2
HERE=$(cd "$(dirname "$0")" && pwd)
WORK="$OUT/rfri"
rm -rf "$WORK" && mkdir -p "$WORK"
cp "$HERE/roof.dxf" "$WORK/"
# The grid files live in the drawing's folder, which is also the current
# directory, as the calculation expects it.
cd "$WORK"

echo "== Roof fall risk: defect grids from the features of roof.dxf"
"$VORNMARK" run vorn_RFRI_Draw --drawing roof.dxf --script "$HERE/make_grids.scr" --transcript make_grids.txt \
    | tr -s '\n' | grep -E "features found|saved to|Leaving" || true
echo
ls RFRI_*.grd
echo
echo "== The final RFRI grid (defaults for the pages without features)"
"$VORNMARK" rfri .
"$VORNMARK" grid info RFRI_FinalValue.grd
echo
echo "== The assessment polygons of roof.dxf"
"$VORNMARK" run vorn_RFRI_List --drawing roof.dxf --script "$HERE/list.scr"
echo
echo "== Their RFRI mapped as coloured hatches with labels"
"$VORNMARK" run vorn_RFRI_Mapping --drawing roof.dxf --save roof_mapped.dxf --script "$HERE/mapping.scr" \
    --transcript mapping.txt || true
echo
echo "Roof fall risk results are in $WORK"
