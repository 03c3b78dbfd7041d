#!/usr/bin/python3
"""Times calculate_mesh (the mesh_bench program) against scikit-image's
marching_cubes on the same field and level, and prints both with their
ratio. Both are processor times, so that a busy machine disturbs the
comparison less.

Needs Debian's python3-skimage, which the project itself does not use:
    apt-get install python3-skimage
Usage: bench/mesh_vs_skimage.py [path/to/mesh_bench]
(default build/bench/mesh_bench; configure with -DQUELMORA_BENCH=ON).
"""
import json
import subprocess
import sys
import time

import numpy as np
from skimage.measure import marching_cubes

ATOMS = [(0.1, 0.2, 0.3), (0.6, 0.55, 0.4), (0.35, 0.8, 0.75), (0.8, 0.15, 0.7)]
WIDTH = 0.08
LEVEL = 0.3


def field(n):
    """The field of mesh_bench.cpp, indexed [i, j, k] (x, y, z)."""
    t = np.arange(n, dtype=np.float32) / np.float32(n)
    rho = np.zeros((n, n, n), dtype=np.float32)
    for a in ATOMS:
        g = []
        for c in a:
            d = np.abs(t - np.float32(c))
            d = np.minimum(d, 1 - d)
            g.append(np.exp(-d * d / np.float32(WIDTH * WIDTH)).astype(np.float32))
        rho += g[0][:, None, None] * g[1][None, :, None] * g[2][None, None, :]
    ripple = 0.05 * np.cos(2 * np.pi * 3 * t)[:, None] * np.cos(2 * np.pi * 2 * t)[None, :]
    rho += ripple[:, None, :].astype(np.float32)
    return rho


def skimage_ms(n, repeats=3):
    rho = field(n)
    best = float("inf")
    for _ in range(repeats):  # the best of several runs
        start = time.process_time()
        verts, faces, _, _ = marching_cubes(rho, LEVEL)
        best = min(best, time.process_time() - start)
    return best * 1000, len(faces)


def ours_ms(program):
    out = subprocess.run([program, "--benchmark_format=json", "--benchmark_min_time=0.5"],
                         check=True, capture_output=True, text=True).stdout
    result = {}
    for b in json.loads(out)["benchmarks"]:
        n = int(b["name"].split("/")[1])
        result[n] = (b["cpu_time"], int(b["records"]))
    return result


def main():
    program = sys.argv[1] if len(sys.argv) > 1 else "build/bench/mesh_bench"
    ours = ours_ms(program)
    print(f"{'grid':>5} {'calculate_mesh ms':>18} {'records':>8} {'skimage ms':>11} {'triangles':>10} {'ratio':>7}")
    for n in (128, 256):
        theirs, triangles = skimage_ms(n)
        ms, records = ours[n]
        print(f"{n:>4}^3 {ms:>18.1f} {records:>8} {theirs:>11.1f} {triangles:>10} {theirs / ms:>7.2f}")
    print("ratio: scikit-image time / calculate_mesh time (above 1: calculate_mesh is faster)")


if __name__ == "__main__":
    main()
