#!/usr/bin/python3
"""Times sintrel against gemmi's transform_f_phi_to_map and cctbx's fft_map on
the same reflections (10,000 and 100,000 unique ones in P 1, random amplitudes
and phases) to a 128 x 128 x 128 grid, and prints the times with their ratios.
All are processor times, the best of three, so that a busy machine disturbs
the comparison less. sintrel is timed twice: its whole run as a process (reading
the text file, expanding, transforming, statistics, writing the 8 MB map and
the listing, each run a fresh process that touches its memory for the first
time), and its synthesis alone (merging, expansion, transform, statistics),
as its listing reports it. The peers' time is their transform alone, from
arrays already in memory, in a process whose memory is warm from the run
before. The largest difference between sintrel's map and gemmi's is printed
too, as a check that both compute the same thing.

Needs Debian's python3-gemmi, python3-cctbx and python3-numpy, which the
project itself does not use:
    apt-get install python3-gemmi python3-cctbx python3-numpy
Usage: bench/sintrel_vs_peers.py [path/to/sintrel]   (default build/tools/sintrel)
"""
import os
import re
import resource
import struct
import subprocess
import sys
import tempfile
import time

import gemmi
import numpy as np
from cctbx import crystal, maptbx, miller
from cctbx.array_family import flex

CELL = 40.0
GRID = 128
REPEATS = 3


def reflections(count):
    """The count lowest-resolution reflections of one half of reciprocal
    space (one of each Friedel pair), with random amplitudes and phases."""
    r = 40
    h, k, l = np.mgrid[-r:r + 1, -r:r + 1, -r:r + 1].reshape(3, -1)
    half = (h > 0) | ((h == 0) & (k > 0)) | ((h == 0) & (k == 0) & (l > 0))
    hkl = np.stack([h[half], k[half], l[half]], axis=1)
    hkl = hkl[np.argsort((hkl ** 2).sum(axis=1), kind="stable")][:count]
    rng = np.random.default_rng(7)
    return hkl.astype(np.int32), rng.uniform(1, 100, count), rng.uniform(0, 360, count)


def children_cpu():
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime


def sintrel_seconds(program, folder, hkl, amplitude, phase):
    with open(os.path.join(folder, "b.fou"), "w") as out:
        for (h, k, l), f, p in zip(hkl, amplitude, phase):
            out.write(f"{h} {k} {l} {f:.4f} {p:.2f}\n")
    with open(os.path.join(folder, "b.inp"), "w") as out:
        out.write(f"Cell {CELL} {CELL} {CELL} 90 90 90\nSpgr P 1\nFourier fobs\nGrid {GRID} {GRID} {GRID}\n"
                  "F000 0 1\nForm h k l fo ph\nEnd\n")
    best, synthesis = float("inf"), float("inf")
    for _ in range(REPEATS):
        before = children_cpu()
        subprocess.run([program, "b.inp"], cwd=folder, check=True)
        best = min(best, children_cpu() - before)
        with open(os.path.join(folder, "b.out")) as listing:
            times = re.findall(r"Processor time of the synthesis: ([0-9.]+) ms", listing.read())
        synthesis = min(synthesis, float(times[0]) / 1000)
    with open(os.path.join(folder, "b.bin"), "rb") as f:
        data = f.read()
    n = GRID ** 3
    return best, synthesis, np.array(struct.unpack(f"<{n}f", data[len(data) - 4 * n:]), dtype=np.float32)


def gemmi_seconds(hkl, amplitude, phase):
    values = (amplitude * np.exp(1j * np.radians(phase))).astype(np.complex64)
    best, grid = float("inf"), None
    for _ in range(REPEATS):
        start = time.process_time()
        data = gemmi.ComplexAsuData(gemmi.UnitCell(CELL, CELL, CELL, 90, 90, 90), gemmi.SpaceGroup("P 1"), hkl, values)
        grid = data.transform_f_phi_to_map(exact_size=[GRID] * 3)
        best = min(best, time.process_time() - start)
    # gemmi's array is indexed [x][y][z]; sintrel's map has x fastest.
    return best, np.array(grid, copy=False).transpose(2, 1, 0).ravel()


def cctbx_seconds(hkl, amplitude, phase):
    symmetry = crystal.symmetry(unit_cell=(CELL, CELL, CELL, 90, 90, 90), space_group_symbol="P 1")
    indices = flex.miller_index([tuple(int(v) for v in row) for row in hkl])
    values = flex.complex_double(list(amplitude * np.exp(1j * np.radians(phase))))
    best = float("inf")
    for _ in range(REPEATS):
        start = time.process_time()
        array = miller.set(symmetry, indices, anomalous_flag=False).array(data=values)
        gridding = maptbx.crystal_gridding(symmetry.unit_cell(), space_group_info=symmetry.space_group_info(),
                                           pre_determined_n_real=(GRID, GRID, GRID))
        fft_map = array.fft_map(crystal_gridding=gridding)
        fft_map.apply_volume_scaling()
        fft_map.real_map_unpadded()
        best = min(best, time.process_time() - start)
    return best


def main():
    program = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else "build/tools/sintrel")
    print("ms: processor time, best of three; ratios: peer / sintrel, above 1 when sintrel is faster")
    print(f"{'reflections':>11} {'sintrel run':>12} {'synthesis':>10} {'gemmi':>8} {'cctbx':>8} "
          f"{'gemmi/run':>10} {'cctbx/run':>10} {'gemmi/synth':>12} {'cctbx/synth':>12} {'max|diff|/max':>14}")
    with tempfile.TemporaryDirectory() as folder:
        for count in (10000, 100000):
            hkl, amplitude, phase = reflections(count)
            ours, synthesis, our_map = sintrel_seconds(program, folder, hkl, amplitude, phase)
            theirs, their_map = gemmi_seconds(hkl, amplitude, phase)
            cctbx = cctbx_seconds(hkl, amplitude, phase)
            difference = float(np.abs(our_map - their_map).max() / np.abs(their_map).max())
            print(f"{count:>11} {1000 * ours:>12.1f} {1000 * synthesis:>10.1f} {1000 * theirs:>8.1f} "
                  f"{1000 * cctbx:>8.1f} {theirs / ours:>10.2f} {cctbx / ours:>10.2f} {theirs / synthesis:>12.2f} "
                  f"{cctbx / synthesis:>12.2f} {difference:>14.2e}")


if __name__ == "__main__":
    main()
