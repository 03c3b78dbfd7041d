#!/usr/bin/python3
"""Times the contour lines of ipgcontour2 (the contour_bench program, drawn
into a recording canvas) against matplotlib's contour on the same field and
levels, and prints both with their ratio. Both are processor times, so that a busy
machine disturbs the comparison less.

Needs Debian's python3-matplotlib, which the project itself does not use:
    apt-get install python3-matplotlib
Usage: bench/contour_vs_matplotlib.py [path/to/contour_bench]
(default build/bench/contour_bench; configure with -DQUELMORA_BENCH=ON).
"""
import json
import subprocess
import sys
import time

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
import numpy as np  # noqa: E402


def field(n):
    """The field of contour_bench.cpp, first index (x) fastest."""
    x = np.linspace(0.0, 1.0, n)
    xx, yy = np.meshgrid(x, x)  # rows are y, columns x

    def bump(cx, cy, w, h):
        return h * np.exp(-((xx - cx) ** 2 + (yy - cy) ** 2) / (w * w))

    z = (bump(0.3, 0.35, 0.15, 1.0) + bump(0.7, 0.65, 0.2, 0.8) + bump(0.75, 0.2, 0.1, 0.6)
         - bump(0.25, 0.8, 0.12, 0.5) + 0.05 * np.sin(12 * xx) * np.cos(9 * yy))
    return x, z.astype(np.float32)


def levels_of(z):
    lo, hi = float(z.min()), float(z.max())
    return [np.float32(L * (hi - lo) / 21 + lo) for L in range(1, 21)]


def matplotlib_ms(n, repeats=10):
    x, z = field(n)
    levels = levels_of(z)
    fig, ax = plt.subplots()
    best = float("inf")
    for _ in range(repeats):  # the best of several runs
        start = time.process_time()
        ax.contour(x, x, z, levels=levels)
        best = min(best, time.process_time() - start)
        ax.cla()
    plt.close(fig)
    return best * 1000


def ours_ms(program):
    out = subprocess.run([program, "--benchmark_filter=BM_contour_recording/.*/0$",
                          "--benchmark_format=json", "--benchmark_min_time=0.2"],
                         check=True, capture_output=True, text=True).stdout
    result = {}
    for b in json.loads(out)["benchmarks"]:
        n = int(b["name"].split("/")[1])
        result[n] = b["cpu_time"] if b["time_unit"] == "ms" else b["cpu_time"] / 1e6
    return result


def main():
    program = sys.argv[1] if len(sys.argv) > 1 else "build/bench/contour_bench"
    ours = ours_ms(program)
    print(f"{'grid':>9} {'ipgcontour2 ms':>15} {'matplotlib ms':>14} {'ratio':>7}")
    for n in (65, 129, 257):
        theirs = matplotlib_ms(n)
        print(f"{n:>4} x {n:<3} {ours[n]:>15.3f} {theirs:>14.3f} {theirs / ours[n]:>7.2f}")
    print("ratio: matplotlib time / ipgcontour2 time (above 1: ipgcontour2 is faster)")


if __name__ == "__main__":
    main()
