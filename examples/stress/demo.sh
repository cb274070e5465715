#!/bin/bash
# The three stress panels driven by scripts in the stand-alone host, on the
# example data: "Keldar Stress Calculation", "Grid Transfer from Keldar
# Output" and "Overburden Stress Calculation". Each writes the same files as
# its command-line form.
set -euo pipefail
VORNMARK=${1:-build/app/vornmark}
HERE=$(cd "$(dirname "$0")/.." && pwd)
OUT=${2:-$(cd "$HERE/.." && pwd)/out}/panels
rm -rf "$OUT" && mkdir -p "$OUT"
cp "$HERE/keldar/panel.inp" "$HERE/keldar/panel.top" "$OUT/"

echo "== vorn_keldar: select the model, run it"
cat > "$OUT/keldar.scr" <<SCRIPT
press "&Select File"
file $OUT/panel.inp
box ok
press "&Run"
<enter>
box ok
SCRIPT
"$VORNMARK" run vorn_keldar --script "$OUT/keldar.scr" --transcript "$OUT/keldar.txt"
echo
echo "== vorn_convKelGrid: total vertical stress of step 2 to a grid"
cat > "$OUT/transfer.scr" <<SCRIPT
press "Select"
file $OUT/panel.f1
choose "Item# | Item Name | Unit | Step | Comments" 7 | Total Vertical Stress | psi | 2 | 300 X 300
press "Transfer..."
box ok
file $OUT/vertical_stress.grd
box ok
press "&Exit"
SCRIPT
"$VORNMARK" run vorn_convKelGrid --script "$OUT/transfer.scr" --transcript "$OUT/transfer.txt"
"$VORNMARK" grid info "$OUT/vertical_stress.grd"
echo
echo "== vorn_topoStressModel: the uneven surface over the seam grid"
cat > "$OUT/topo.scr" <<SCRIPT
press "Load Topographic File"
file $HERE/topo/surface.grd
tab " Seam Grid "
press "From File ..."
file $HERE/topo/seam.grd
set "Output File Name" $OUT/surface_stress.grd
ok
<enter>
SCRIPT
"$VORNMARK" run vorn_topoStressModel --script "$OUT/topo.scr" --transcript "$OUT/topo.txt"
echo
"$VORNMARK" grid info "$OUT/surface_stress.grd"
