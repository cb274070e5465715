#!/bin/bash
# The polyline utilities on the example plan: the checks of pillars and
# contours, and the open entries offered for closing and for joining (they
# do not meet end to end, so the joined copy of the plan keeps them all).
# Output goes to out/polylines in the project folder.
set -euo pipefail
VORNMARK=${1:-build/app/vornmark}
HERE=$(cd "$(dirname "$0")/.." && pwd)
OUT=$(cd "$HERE/.." && pwd)/out/polylines
mkdir -p "$OUT"

# run COMMAND DRAWING SCRIPT-TEXT [SAVED]: one command answered by the script.
run() {
    local command=$1 drawing=$2 script=$3 saved=${4:-}
    printf '%b' "$script" >"$OUT/$command.scr"
    echo "== $command"
    "$VORNMARK" run "$command" --drawing "$drawing" ${saved:+--save "$saved"} \
        --script "$OUT/$command.scr" --transcript "$OUT/$command.txt"
    echo
    echo
}

run vorn_checkOverlaps "$HERE/plan.dxf" 'select layer Pillars\n<enter>\n<enter>\n'
run vorn_checkDuplicates "$HERE/plan.dxf" 'select layer Pillars\n<enter>\n'
run vorn_checkContours "$HERE/plan.dxf" 'I\nSLayer\nContours\n'
run vorn_checkClosedPolylines "$HERE/plan.dxf" 'select layer Entries\nNo\n'
run vorn_joinPolylines "$HERE/plan.dxf" 'select layer Entries\nYes\n<enter>\n' "$OUT/plan_joined.dxf"
"$VORNMARK" drawing info "$OUT/plan_joined.dxf" | sed -n '/Entities by layer/,/Dictionaries/p'
