#!/bin/bash
# The grid workbench on the example depth grid: statistics, a hatched plot
# on the example plan, and the grid utility driven by a script.
set -euo pipefail
VORNMARK=${1:-build/app/vornmark}
HERE=$(cd "$(dirname "$0")" && pwd)
OUT=${2:-$(cd "$HERE/../.." && pwd)/out}
mkdir -p "$OUT"

echo "== Statistics of the depth grid"
"$VORNMARK" grid stats "$HERE/../depth.grd"
echo "== The depth grid hatched by colour runs on the example plan"
"$VORNMARK" grid plot "$HERE/../depth.grd" "$OUT/plan_depth.dxf" --drawing "$HERE/../plan.dxf" \
    --kind hatches --layer DEPTH --group --color
"$VORNMARK" drawing info "$OUT/plan_depth.dxf" | sed -n '/Entities by layer/,/Dictionaries/p'
echo "== The grid utility: load, add 10, statistics, save (script $HERE/utility.scr)"
sed "s|@GRID@|$HERE/../depth.grd|; s|@OUT@|$OUT|" "$HERE/utility.scr" >"$OUT/utility.scr"
"$VORNMARK" run vorn_gridUtility --script "$OUT/utility.scr" --transcript "$OUT/utility.txt"
echo
