#!/usr/bin/python3
"""Reads the CCP4 maps that tests/maps/ccp4_map_test.cpp writes (in the build
folder of its tests) with gemmi, which fills the cell from the space group as
a reader of the field does, and prints every point of the cell's grid:
case, i, j, k (from 0, x fastest) and the value, nan where nothing reaches.

    /usr/bin/python3 scripts/ccp4_reference.py [BUILD] > tests/data/maps/ccp4_p21.txt

Needs Debian's python3-gemmi; the tests do not.
"""
import math
import sys

import gemmi

build = sys.argv[1] if len(sys.argv) > 1 else "build"
print("# gemmi %s: the cell's grid of the P 21 maps of ccp4_map_test, filled by symmetry" % gemmi.__version__)
print("# case i j k value (nan: reached neither by the file nor by its symmetry)")
for case in ("asu", "short"):
    m = gemmi.read_ccp4_map("%s/tests/maps/ccp4_p21_%s.map" % (build, case))
    m.setup(float("nan"))
    g = m.grid
    for k in range(g.nw):
        for j in range(g.nv):
            for i in range(g.nu):
                v = g.get_value(i, j, k)
                print(case, i, j, k, "nan" if math.isnan(v) else "%g" % v)
