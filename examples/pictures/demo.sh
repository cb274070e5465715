#!/bin/bash
# Pictures and GIS exchange on the example data: the plan and a grid as
# pictures, the depth grid through GeoTIFF and back, a GeoTIFF surface as the
# input of the overburden stress, the plan as a GeoPackage.
# Usage: demo.sh VORNMARK OUT_FOLDER
set -euo pipefail
VORNMARK=$1
OUT=$2/pictures
HERE=$(cd "$(dirname "$0")/.." && pwd)
mkdir -p "$OUT"

echo "== Pictures and GIS exchange"
"$VORNMARK" render "$HERE/plan.dxf" "$OUT/plan.png" --width 1200
echo "plan picture: $OUT/plan.png"
"$VORNMARK" grid render "$HERE/depth.grd" "$OUT/depth.png" --legend --contours 50 --drawing "$HERE/plan.dxf"
echo "depth grid picture with legend, contours and the plan: $OUT/depth.png"
"$VORNMARK" grid convert "$HERE/depth.grd" "$OUT/depth.tif"
"$VORNMARK" grid convert "$OUT/depth.tif" "$OUT/depth_back.grd"
cmp -s "$HERE/depth.grd" "$OUT/depth_back.grd" && same="identical to" || same="DIFFERENT from"
echo "depth grid as GeoTIFF: $OUT/depth.tif; back as $OUT/depth_back.grd, $same the original"
"$VORNMARK" grid convert "$HERE/topo/surface.grd" "$OUT/surface_dem.tif"
"$VORNMARK" topostress "$OUT/surface_dem.tif" "$OUT/surface_dem_stress.grd" --seam-grid "$HERE/topo/seam.grd" \
    </dev/null >/dev/null
echo "overburden stress from the GeoTIFF surface $OUT/surface_dem.tif: $OUT/surface_dem_stress.grd"
"$VORNMARK" drawing export "$HERE/plan.dxf" "$OUT/plan.gpkg"
echo "plan as GeoPackage: $OUT/plan.gpkg"
