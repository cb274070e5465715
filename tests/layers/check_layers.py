#!/usr/bin/env python3
"""Fails when a source file includes a header from a layer above its own.

Layers, bottom up: base < drawing < grid < shell < the subsystems
(generators, stressmodel, index, roofrisk, pictures, gis; these do not
include each other)
< commands < host < app. Tests and benchmarks may include anything.
"""
import os
import re
import sys

LEVEL = {"base": 0, "drawing": 1, "grid": 2, "shell": 3,
         "generators": 4, "stressmodel": 4, "index": 4, "roofrisk": 4, "pictures": 4, "gis": 4,
         "commands": 5, "host": 6, "app": 7}
INCLUDE = re.compile(r'\s*#\s*include\s+"([^/"]+)/')


def violations(root):
    for top, level in LEVEL.items():
        for folder, _, files in os.walk(os.path.join(root, top)):
            for name in sorted(files):
                if not name.endswith((".h", ".hpp", ".cpp")):
                    continue
                path = os.path.join(folder, name)
                with open(path, errors="replace") as source:
                    for number, line in enumerate(source, 1):
                        match = INCLUDE.match(line)
                        if not match or match.group(1) not in LEVEL:
                            continue
                        target = match.group(1)
                        upward = LEVEL[target] > level
                        sideways = LEVEL[target] == level and target != top
                        if upward or sideways:
                            yield f"{os.path.relpath(path, root)}:{number}: {top}/ includes {target}/"


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.getcwd()
    found = list(violations(root))
    for line in found:
        print(line)
    print(f"layers: {len(found)} include(s) against the layer order")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
