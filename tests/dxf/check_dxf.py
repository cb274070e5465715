#!/usr/bin/python3
"""Checks that DXF files open in independent readers.

Usage: check_dxf.py FILE.dxf [TYPE=COUNT ...]

ezdxf reads the file and audits it (structure, handles, owners, entity
rules); GDAL's ogrinfo must open it as a vector source. Optional TYPE=COUNT
arguments name the model space entity counts the file must hold
(e.g. HATCH=12). Exit status 0 when everything holds, 1 otherwise.
"""
import subprocess
import sys
from collections import Counter

import ezdxf


def main(argv):
    path = argv[1]
    problems = []
    doc = ezdxf.readfile(path)
    auditor = doc.audit()
    for error in auditor.errors:
        problems.append("ezdxf audit: %s" % error.message)
    counts = Counter(entity.dxftype() for entity in doc.modelspace())
    for wanted in argv[2:]:
        kind, count = wanted.split("=")
        if counts[kind] != int(count):
            problems.append("%s: %d in the file, %s expected" % (kind, counts[kind], count))
    info = subprocess.run(["ogrinfo", "-ro", "-so", "-al", path], capture_output=True, text=True)
    if info.returncode != 0 or "ERROR" in info.stderr:
        problems.append("ogrinfo: %s" % (info.stderr.strip() or "exit %d" % info.returncode))
    print("entities: " + ", ".join("%s %d" % item for item in sorted(counts.items())))
    for problem in problems:
        print(problem)
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
