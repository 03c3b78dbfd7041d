#!/usr/bin/python3
"""Writes, with gemmi, the map coefficients of two Gaussian atoms in a P 21
cell twice: as an MTZ file (columns FWT/PHWT, and FC/PHIC at half the
amplitude) and as the equivalent text reflection file, with the control file
that sintrel runs on them. One reflection has no phase in the MTZ file and is
not in the text file.

    /usr/bin/python3 scripts/mtz_reference.py tests/data/synthesis

Needs Debian's python3-gemmi and python3-numpy; the tests do not.
"""
import cmath
import math
import sys

import gemmi
import numpy

out = sys.argv[1] if len(sys.argv) > 1 else "tests/data/synthesis"
cell = gemmi.UnitCell(7, 9, 11, 90, 104, 90)
group = gemmi.SpaceGroup("P 1 21 1")
atoms = [((0.12, 0.21, 0.33), 6.0), ((0.4, 0.1, 0.7), 8.0)]
sites = [(op.apply_to_xyz(list(x)), z) for x, z in atoms for op in group.operations()]


def coefficient(hkl):
    s2 = cell.calculate_1_d2(hkl) / 4  # (sin theta / lambda)^2
    f = sum(z * math.exp(-2 * s2) * cmath.exp(2j * math.pi * sum(h * c for h, c in zip(hkl, x))) for x, z in sites)
    return abs(f), math.degrees(cmath.phase(f)) % 360


hkls = gemmi.make_miller_array(cell, group, 1.5)
rows = []
for n, hkl in enumerate(hkls.tolist()):
    f, phi = coefficient(hkl)
    phi = float("nan") if n == 7 else phi
    rows.append(hkl + [f, phi, f / 2, phi])
mtz = gemmi.Mtz(with_base=True)
mtz.spacegroup = group
mtz.set_cell_for_all(cell)
mtz.add_dataset("gaussians")
for label, kind in (("FWT", "F"), ("PHWT", "P"), ("FC", "F"), ("PHIC", "P")):
    mtz.add_column(label, kind)
mtz.set_data(numpy.array(rows, dtype=numpy.float32))
mtz.write_to_file(out + "/p21.mtz")

with open(out + "/p21.fou", "w") as fou:
    fou.write("! h k l F phi: the FWT, PHWT columns of p21.mtz (gemmi %s)\n" % gemmi.__version__)
    for r in rows:
        if not math.isnan(r[4]):
            fou.write("%4d %4d %4d %12.5f %9.3f\n" % (r[0], r[1], r[2], numpy.float32(r[3]), numpy.float32(r[4])))
with open(out + "/p21.inp", "w") as inp:
    inp.write(" Title  Two Gaussian atoms in P 21, map coefficients from gemmi\n"
              " Cell   7.0000  9.0000 11.0000   90.00  104.00   90.00\n"
              " Spgr P 21\n"
              " Fourier fobs\n"
              " Grid   16  20  24\n"
              " F000   28.0000    1.0000\n"
              " File fou p21.mtz\n"
              " Form h k l fo ph\n"
              " End\n")
