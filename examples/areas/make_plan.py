#!/usr/bin/env python3
"""Writes plan_zones.dxf: the example room-and-pillar plan (pillars, gob,
entries) with a layer "Zones" of three closed boundaries (a valley, a pond
and a stream bank under the panel) for the area factor demo."""
import os

HERE = os.path.dirname(os.path.abspath(__file__))
ZONES = [
    [(-40, 250), (180, 300), (320, 410), (-40, 410)],          # valley
    [(560, -60), (700, -80), (760, 40), (640, 110), (540, 40)],  # pond
    [(820, 120), (960, 150), (960, 420), (860, 420)],           # stream bank
]


def pairs(lines):
    return [(lines[k].strip(), lines[k + 1].rstrip("\r\n")) for k in range(0, len(lines) - 1, 2)]


def main():
    with open(os.path.join(HERE, "..", "plan.dxf")) as f:
        items = pairs(f.read().split("\n"))
    out = []
    handle = 0x300
    in_layers = False
    section = None
    for k, (code, value) in enumerate(items):
        if code == "2" and items[k - 1] == ("0", "SECTION"):
            section = value
        if code == "2" and items[k - 1] == ("0", "TABLE"):
            in_layers = value == "LAYER"
        if in_layers and code == "70" and items[k - 1] == ("100", "AcDbSymbolTable"):
            value = str(int(value) + 1)
        if in_layers and (code, value) == ("0", "ENDTAB"):
            out += [("0", "LAYER"), ("5", "%X" % handle), ("330", "13E"), ("100", "AcDbSymbolTableRecord"),
                    ("100", "AcDbLayerTableRecord"), ("2", "Zones"), ("70", "0"), ("62", "5"),
                    ("6", "Continuous"), ("370", "-3")]
            handle += 1
            in_layers = False
        if section == "ENTITIES" and (code, value) == ("0", "ENDSEC"):
            for zone in ZONES:
                out += [("0", "LWPOLYLINE"), ("5", "%X" % handle), ("330", "145"), ("100", "AcDbEntity"),
                        ("8", "Zones"), ("100", "AcDbPolyline"), ("90", str(len(zone))), ("70", "1")]
                for x, y in zone:
                    out += [("10", "%.1f" % x), ("20", "%.1f" % y)]
                handle += 1
            section = None
        out.append((code, value))
    # The next free handle.
    for k, (code, value) in enumerate(out):
        if (code, value) == ("9", "$HANDSEED"):
            out[k + 1] = ("5", "%X" % handle)
    with open(os.path.join(HERE, "plan_zones.dxf"), "w", newline="\n") as f:
        for code, value in out:
            f.write("%3s\n%s\n" % (code, value))


if __name__ == "__main__":
    main()
