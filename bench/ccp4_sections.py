#!/usr/bin/python3
"""Three sections of a CCP4 map written by gemmi, as quelmora-info prints the
program's map (--section), against gemmi's own trilinear interpolation at the
same fractional coordinates.

The map: two Gaussian atoms and their images in a P 21 cell, written by gemmi
for one asymmetric unit only (y from 0 to 1/2), as maps often come; the
program fills the rest of the cell from the group and shows the file's box.
It is left in the current folder as p21_asu.map, to be opened in the program.

    /usr/bin/python3 bench/ccp4_sections.py [BUILD]

Needs Debian's python3-gemmi and python3-numpy, which the program does not use.
"""
import os
import subprocess
import sys

import gemmi
import numpy

build = sys.argv[1] if len(sys.argv) > 1 else "build"
info = os.path.join(build, "tools", "quelmora-info")

cell = gemmi.UnitCell(7, 9, 11, 90, 104, 90)
group = gemmi.SpaceGroup("P 1 21 1")
shape = (28, 36, 44)
atoms = [((0.12, 0.21, 0.33), 6.0), ((0.4, 0.1, 0.7), 8.0)]
orth = numpy.array(cell.orthogonalization_matrix.tolist())
frac = numpy.stack(numpy.meshgrid(*[numpy.arange(n) / n for n in shape], indexing="ij"), axis=-1)
density = numpy.zeros(shape, dtype=numpy.float32)
for x, z in atoms:
    for op in group.operations():
        d = frac - numpy.array(op.apply_to_xyz(list(x)))
        d -= numpy.round(d)
        r2 = numpy.sum((d @ orth.T) ** 2, axis=-1)
        density += z * numpy.exp(-r2 / 0.5)

whole = gemmi.FloatGrid(density, cell, group)
ccp4 = gemmi.Ccp4Map()
ccp4.grid = gemmi.FloatGrid(density, cell, group)
ccp4.update_ccp4_header(2, True)
box = gemmi.FractionalBox()
box.extend(gemmi.Fractional(0, 0, 0))
box.extend(gemmi.Fractional(1 - 1e-6, 0.5, 1 - 1e-6))
ccp4.set_extent(box)
path = "p21_asu.map"
ccp4.write_ccp4_map(path)
worst = 0.0
for plane in ("x5", "y7", "z12"):
    out = subprocess.run([info, path, "--section", plane], capture_output=True, text=True, check=True).stdout
    points = numpy.array([[float(w) for w in line.split()] for line in out.splitlines()])
    theirs = numpy.array([whole.interpolate_value(gemmi.Fractional(*p[:3])) for p in points])
    diff = numpy.abs(points[:, 3] - theirs).max()
    worst = max(worst, diff)
    print("section %-4s %5d points, values %.4f to %.4f, largest difference from gemmi %.2e"
          % (plane, len(points), theirs.min(), theirs.max(), diff))
print("map range %.4f; largest difference %.2e" % (density.max() - density.min(), worst))
sys.exit(0 if worst < 1e-4 * (density.max() - density.min()) else 1)
