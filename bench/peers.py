#!/usr/bin/python3
"""Every step a user waits for, timed side by side with a peer tool on the
same data, in one run: each round times our benchmark and then the peer's,
row by row, so that a busy machine disturbs both sides alike. One line per
row: both medians over the rounds, their ratio and the goal for the ratio.

  load 128^3      load_map (binary_map_bench) against numpy reading the same
                  bytes and closing the planes (rho -> rhonew), in process
  load 256^3      load_map_once in a fresh process (its whole processor time)
                  against gemmi.read_ccp4_map of the same grid as CCP4, timed
                  inside a fresh Python process; the peak memory of our load
                  is printed beside the size of its two map arrays
  contour lines   ipgcontour2, 20 levels on 257 x 257, into a recording
                  canvas, against contourpy's lines of the same levels
  filled X11      the plot window's filled redraw of a 256 section into an X
                  pixmap, wall time, against a frame at 30 per second
  isosurface X11  the isosurface view's redraw of a full mesh (500,000
                  records) into an X pixmap, wall time, against a frame at 30/s
  filled record   filled contours on 257 x 257 into the recording canvas
                  against the same picture into an X pixmap, processor time
  spacegroups     set_spacegroup over the 612 symbols of the table against
                  cctbx's space_group_info on each symbol it accepts

The maps are made by sintrel (P 1, random reflections) and exist only for the
run. Needs Debian's python3-numpy, python3-gemmi, python3-contourpy and
python3-cctbx (the project itself uses none of them), the benchmarks built
with -DQUELMORA_BENCH=ON, and an X display (run it under xvfb-run -a):
    xvfb-run -a bench/peers.py [build-folder]      (default build-bench)
"""
import json
import os
import re
import resource
import statistics
import subprocess
import sys
import tempfile
import time

import contourpy
import gemmi
import numpy as np
from cctbx import sgtbx

ROUNDS = 5
HERE = os.path.dirname(os.path.abspath(__file__))


def children_cpu():
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime


def bench(build, program, name, field="cpu_time", env=None, min_time=0.2):
    """Seconds per iteration of one Google Benchmark, and its counters."""
    out = subprocess.run([os.path.join(build, "bench", program), f"--benchmark_filter=^{name}(/|$)",
                          "--benchmark_format=json", f"--benchmark_min_time={min_time}"],
                         check=True, capture_output=True, text=True, env=env).stdout
    result = json.loads(out)["benchmarks"][0]
    if "error_message" in result:
        sys.exit(f"{program} {name}: {result['error_message']}")
    scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}[result["time_unit"]]
    return result[field] * scale, result


def median_call(function, calls=10):
    """Median processor time of calls to function in this process."""
    seconds = []
    for _ in range(calls):
        start = time.process_time()
        function()
        seconds.append(time.process_time() - start)
    return statistics.median(seconds)


def make_map(build, folder, grid):
    """A grid^3 map in P 1 written by sintrel from random reflections; the
    path of the .bin file and the byte offset of its density."""
    rng = np.random.default_rng(grid)
    with open(os.path.join(folder, f"m{grid}.fou"), "w") as out:
        for h in range(-6, 7):
            for k in range(-6, 7):
                for l in range(1, 7):
                    out.write(f"{h} {k} {l} {rng.uniform(1, 100):.3f} {rng.uniform(0, 360):.1f}\n")
    with open(os.path.join(folder, f"m{grid}.inp"), "w") as out:
        out.write(f"Cell 40 40 40 90 90 90\nSpgr P 1\nFourier fobs\nGrid {grid} {grid} {grid}\n"
                  "F000 0 1\nForm h k l fo ph\nEnd\n")
    subprocess.run([os.path.join(build, "tools", "sintrel"), f"m{grid}.inp"], cwd=folder, check=True,
                   capture_output=True)
    path = os.path.join(folder, f"m{grid}.bin")
    return path, os.path.getsize(path) - 4 * grid ** 3


def numpy_load(path, offset, n):
    """The same bytes read, then the closing planes of a periodic cell."""
    rho = np.fromfile(path, dtype="<f4", count=n ** 3, offset=offset).reshape(n, n, n)
    closed = np.empty((n + 1, n + 1, n + 1), dtype=np.float32)
    closed[:n, :n, :n] = rho
    closed[n, :n, :n] = rho[0]
    closed[:, n, :n] = closed[:, 0, :n]
    closed[:, :, n] = closed[:, :, 0]
    return closed


def gemmi_fresh_seconds(ccp4):
    code = ("import gemmi, sys, time\nstart = time.process_time()\n"
            "m = gemmi.read_ccp4_map(sys.argv[1])\nm.setup(0.0)\nprint(time.process_time() - start)\n")
    return float(subprocess.run([sys.executable, "-c", code, ccp4], check=True, capture_output=True,
                                text=True).stdout)


def write_ccp4(path, offset, n, ccp4):
    rho = np.fromfile(path, dtype="<f4", count=n ** 3, offset=offset).reshape(n, n, n)
    m = gemmi.Ccp4Map()
    m.grid = gemmi.FloatGrid(np.ascontiguousarray(rho.transpose(2, 1, 0)), gemmi.UnitCell(40, 40, 40, 90, 90, 90),
                             gemmi.SpaceGroup("P 1"))
    m.update_ccp4_header()
    m.write_ccp4_map(ccp4)


def peaks_field(n):
    """The field of tests/toolkit/peaks_field.h, rows y, columns x."""
    x = np.linspace(0.0, 1.0, n)
    xx, yy = np.meshgrid(x, x)

    def bump(cx, cy, w, h):
        return h * np.exp(-((xx - cx) ** 2 + (yy - cy) ** 2) / (w * w))

    z = (bump(0.3, 0.35, 0.15, 1.0) + bump(0.7, 0.65, 0.2, 0.8) + bump(0.75, 0.2, 0.1, 0.6)
         - bump(0.25, 0.8, 0.12, 0.5) + 0.05 * np.sin(12 * xx) * np.cos(9 * yy))
    return x, z.astype(np.float32)


def contourpy_lines(x, z):
    lo, hi = float(z.min()), float(z.max())
    levels = [np.float32(L * (hi - lo) / 21 + lo) for L in range(1, 21)]
    generator = contourpy.contour_generator(x, x, z, name="serial")
    for level in levels:
        generator.lines(level)


def table_symbols():
    with open(os.path.join(HERE, "..", "crystal", "vant_symmetry_tables_spgr_data.cpp")) as f:
        return re.findall(r'^\s*\{\d+, "([^"]*)"', f.read(), re.M)


def cctbx_accepts(symbol):
    try:
        sgtbx.space_group_info(symbol=symbol)
        return True
    except RuntimeError:
        return False


def main():
    build = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else "build-bench")
    symbols = table_symbols()
    accepted = [s for s in symbols if cctbx_accepts(s)]
    x257, z257 = peaks_field(257)
    with tempfile.TemporaryDirectory() as folder:
        map128, offset128 = make_map(build, folder, 128)
        map256, offset256 = make_map(build, folder, 256)
        ccp4 = os.path.join(folder, "m256.ccp4")
        write_ccp4(map256, offset256, 256, ccp4)
        env128 = dict(os.environ, QUELMORA_BENCH_MAP=map128)
        env256 = dict(os.environ, QUELMORA_BENCH_MAP=map256)
        memory = {}

        def ours_fresh_256():
            before = children_cpu()
            _, result = bench(build, "binary_map_bench", "load_map_once", env=env256, min_time=0)
            memory.update(peak=result["peak_MB"], maps=result["maps_MB"])
            return children_cpu() - before

        rows = [
            ("load 128^3 map (read + close)", "numpy read+close",
             lambda: bench(build, "binary_map_bench", "load_map", env=env128)[0],
             lambda: median_call(lambda: numpy_load(map128, offset128, 128)), 1.0),
            ("load 256^3 map, fresh process, CPU", "gemmi read_ccp4_map",
             ours_fresh_256, lambda: gemmi_fresh_seconds(ccp4), 1.3),
            ("contour lines, 20 levels, 257 x 257", "contourpy lines",
             lambda: bench(build, "contour_bench", "BM_contour_recording/257/0")[0],
             lambda: median_call(lambda: contourpy_lines(x257, z257)), 1.0),
            ("filled redraw of a 256 section, X11", "a frame at 30/s",
             lambda: bench(build, "plot_redraw_bench", "BM_draw_plot_pg_x11_pixmap/256/2", "real_time")[0],
             lambda: 1 / 30, 16 / 33),
            ("isosurface redraw, 500,000 records, X11", "a frame at 30/s",
             lambda: bench(build, "isosurface_redraw_bench", "BM_draw_isosurface_x11_pixmap", "real_time")[0],
             lambda: 1 / 30, 16 / 33),
            ("filled contours, recording canvas", "the X11 path, CPU",
             lambda: bench(build, "contour_bench", "BM_contour_recording/257/1")[0],
             lambda: bench(build, "contour_bench", "BM_contour_x11_pixmap/257/1")[0], 3.0),
            (f"set_spacegroup, {len(symbols)} symbols", f"cctbx, {len(accepted)} symbols",
             lambda: bench(build, "set_spacegroup_bench", "set_spacegroup_by_symbol")[0],
             lambda: median_call(lambda: [sgtbx.space_group_info(symbol=s) for s in accepted], 3), 0.5),
        ]
        ours = [[] for _ in rows]
        theirs = [[] for _ in rows]
        for _ in range(ROUNDS):
            for r, (_, _, our_side, their_side, _) in enumerate(rows):
                ours[r].append(our_side())
                theirs[r].append(their_side())
    print(f"medians of {ROUNDS} interleaved rounds, ms; ratio = ours / anchor")
    print(f"{'work':<38} {'ours':>9} {'anchor':<22} {'its ms':>9} {'ratio':>6} {'goal':>6}")
    for r, (work, anchor, _, _, goal) in enumerate(rows):
        a, b = 1000 * statistics.median(ours[r]), 1000 * statistics.median(theirs[r])
        mark = "ok" if a / b <= goal else "NOT MET"
        print(f"{work:<38} {a:>9.2f} {anchor:<22} {b:>9.2f} {a / b:>6.2f} {goal:>6.2f} {mark}")
    print(f"peak memory of the 256^3 load: {memory['peak']:.1f} MB; rho and rhonew: {memory['maps']:.1f} MB")


if __name__ == "__main__":
    main()
