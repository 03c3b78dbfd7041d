#!/usr/bin/python3
"""Times sintrel against gemmi's transform_f_phi_to_map and cctbx's fft_map on
the same reflections (10,000 and 100,000 unique ones in P 1, random amplitudes
and phases) to a 128 x 128 x 128 grid, and prints the times with their ratios.
All are processor times, the best of three, so that a busy machine disturbs
the comparison less.

Like is compared with like: sintrel is a fresh process on every run, whose
grids are memory touched for the first time, so each peer's transform is
timed as the first call in a fresh process too ("first"). sintrel's time is
its synthesis (merging, expansion, transform, statistics) as its listing
reports it; its whole run (reading the text file, writing the 8 MB map and
the listing) is shown beside it, and so is each peer's transform repeated in
a process whose memory is warm ("warm"). The largest difference between
sintrel's map and gemmi's is printed too, as a check that both compute the
same thing.

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
    """Whole runs and the synthesis alone, best of three, and the map."""
    with open(os.path.join(folder, "b.fou"), "w") as out:
        for (h, k, l), f, p in zip(hkl, amplitude, phase):
            out.write(f"{h} {k} {l} {f:.4f} {p:.2f}\n")
    with open(os.path.join(folder, "b.inp"), "w") as out:
        out.write(f"Cell {CELL} {CELL} {CELL} 90 90 90\nSpgr P 1\nFourier fobs\nGrid {GRID} {GRID} {GRID}\n"
                  "F000 0 1\nForm h k l fo ph\nEnd\n")
    run, synthesis = float("inf"), float("inf")
    for _ in range(REPEATS):
        before = children_cpu()
        subprocess.run([program, "b.inp"], cwd=folder, check=True)
        run = min(run, children_cpu() - before)
        with open(os.path.join(folder, "b.out")) as listing:
            times = re.findall(r"Processor time of the synthesis: ([0-9.]+) ms", listing.read())
        synthesis = min(synthesis, float(times[0]) / 1000)
    with open(os.path.join(folder, "b.bin"), "rb") as f:
        data = f.read()
    n = GRID ** 3
    return run, synthesis, np.array(struct.unpack(f"<{n}f", data[len(data) - 4 * n:]), dtype=np.float32)


def gemmi_map(hkl, amplitude, phase):
    values = (amplitude * np.exp(1j * np.radians(phase))).astype(np.complex64)
    data = gemmi.ComplexAsuData(gemmi.UnitCell(CELL, CELL, CELL, 90, 90, 90), gemmi.SpaceGroup("P 1"), hkl, values)
    return data.transform_f_phi_to_map(exact_size=[GRID] * 3)


def cctbx_map(hkl, amplitude, phase):
    symmetry = crystal.symmetry(unit_cell=(CELL, CELL, CELL, 90, 90, 90), space_group_symbol="P 1")
    indices = flex.miller_index([tuple(int(v) for v in row) for row in hkl])
    array = miller.set(symmetry, indices, anomalous_flag=False).array(
        data=flex.complex_double(list(amplitude * np.exp(1j * np.radians(phase)))))
    gridding = maptbx.crystal_gridding(symmetry.unit_cell(), space_group_info=symmetry.space_group_info(),
                                       pre_determined_n_real=(GRID, GRID, GRID))
    fft_map = array.fft_map(crystal_gridding=gridding)
    fft_map.apply_volume_scaling()
    return fft_map.real_map_unpadded()


PEERS = {"gemmi": gemmi_map, "cctbx": cctbx_map}


def timed(peer, count, calls):
    """The processor time of each of calls transforms in this process."""
    hkl, amplitude, phase = reflections(count)
    seconds = []
    for _ in range(calls):
        start = time.process_time()
        PEERS[peer](hkl, amplitude, phase)
        seconds.append(time.process_time() - start)
    return seconds


def first_call_seconds(peer, count):
    """The first transform of a fresh process, best of three processes."""
    best = float("inf")
    for _ in range(REPEATS):
        out = subprocess.run([sys.executable, __file__, "--first", peer, str(count)], check=True,
                             capture_output=True, text=True).stdout
        best = min(best, float(out))
    return best


def main():
    if sys.argv[1:2] == ["--first"]:
        print(timed(sys.argv[2], int(sys.argv[3]), 1)[0])
        return
    program = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else "build/tools/sintrel")
    print("ms of processor time, best of three; ratios: peer's first call / sintrel's synthesis")
    print(f"{'reflections':>11} {'sintrel run':>12} {'synthesis':>10} {'gemmi first':>12} {'cctbx first':>12} "
          f"{'gemmi warm':>11} {'cctbx warm':>11} {'gemmi ratio':>12} {'cctbx ratio':>12} {'max|diff|/max':>14}")
    with tempfile.TemporaryDirectory() as folder:
        for count in (10000, 100000):
            hkl, amplitude, phase = reflections(count)
            run, synthesis, our_map = sintrel_seconds(program, folder, hkl, amplitude, phase)
            first = {peer: first_call_seconds(peer, count) for peer in PEERS}
            warm = {peer: min(timed(peer, count, REPEATS + 1)[1:]) for peer in PEERS}
            # gemmi's array is indexed [x][y][z]; sintrel's map has x fastest.
            their_map = np.array(gemmi_map(hkl, amplitude, phase), copy=False).transpose(2, 1, 0).ravel()
            difference = float(np.abs(our_map - their_map).max() / np.abs(their_map).max())
            print(f"{count:>11} {1000 * run:>12.1f} {1000 * synthesis:>10.1f} {1000 * first['gemmi']:>12.1f} "
                  f"{1000 * first['cctbx']:>12.1f} {1000 * warm['gemmi']:>11.1f} {1000 * warm['cctbx']:>11.1f} "
                  f"{first['gemmi'] / synthesis:>12.2f} {first['cctbx'] / synthesis:>12.2f} {difference:>14.2e}")


if __name__ == "__main__":
    main()
