#!/usr/bin/env python3
"""What each test covers that no other test does.

    scripts/unique-coverage.py [BUILD] [--tests REGEX] [--save FILE]

BUILD is a build folder configured with -DQUELMORA_COVERAGE=all (as
scripts/coverage.sh leaves build-cov) and already built. Every test that
ctest knows is run alone (GUI tests on the display in $DISPLAY, or on a
private Xvfb when there is none); after each, gcov reports the lines and
branches of the program that ran. At the end one line a test, fewest first:

    <unique lines> <unique branches> <test>

--save writes what each test covered as JSON, to weigh a group of tests
(what the others would miss without all of them). A test with 0 0 reaches nothing that the others miss: it earns its place
only by what it asserts, so it is the first to look at when the tests grow.
"""
import json
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
LIBRARIES = ("crystal", "maps", "plot", "toolkit", "app", "resources", "state", "tools")


def list_tests(build, pattern):
    out = subprocess.run(["ctest", "--test-dir", build, "-N"], capture_output=True, text=True, check=True).stdout
    names = re.findall(r"Test +#\d+: (\S+)", out)
    return [n for n in names if re.search(pattern, n)]


def covered_by_last_run(build):
    """(lines, branches) of the program that ran since the counters were cleared."""
    gcda = [str(p.resolve()) for p in Path(build).rglob("*.gcda")]
    lines, branches = set(), set()
    with tempfile.TemporaryDirectory() as scratch:
        for start in range(0, len(gcda), 50):
            run = subprocess.run(["gcov", "--json-format", "--stdout", "--branch-probabilities"] + gcda[start:start + 50],
                                 capture_output=True, text=True, cwd=scratch)
            for text in run.stdout.splitlines():
                if not text.startswith("{"):
                    continue
                for f in json.loads(text).get("files", []):
                    path = os.path.relpath(os.path.realpath(os.path.join(ROOT, f["file"])), ROOT)
                    if path.split("/")[0] not in LIBRARIES:
                        continue
                    for line in f["lines"]:
                        if line["count"] > 0:
                            lines.add((path, line["line_number"]))
                        for k, b in enumerate(line.get("branches", [])):
                            if b["count"] > 0:
                                branches.add((path, line["line_number"], k))
    return lines, branches


def clear_counters(build):
    for p in Path(build).rglob("*.gcda"):
        p.unlink()


def main():
    args = sys.argv[1:]
    pattern = "."
    if "--tests" in args:
        k = args.index("--tests")
        pattern = args[k + 1]
        del args[k:k + 2]
    save = None
    if "--save" in args:
        k = args.index("--save")
        save = args[k + 1]
        del args[k:k + 2]
    build = args[0] if args else "build-cov"
    xvfb = None
    if not os.environ.get("DISPLAY"):
        os.environ["DISPLAY"] = ":93"
        xvfb = subprocess.Popen(["Xvfb", ":93", "-screen", "0", "1280x1024x24", "-noreset"],
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    seen = {}
    try:
        tests = list_tests(build, pattern)
        for n, name in enumerate(tests, 1):
            clear_counters(build)
            subprocess.run(["ctest", "--test-dir", build, "-R", "^" + re.escape(name) + "$"],
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            seen[name] = covered_by_last_run(build)
            print(f"[{n}/{len(tests)}] {name}", file=sys.stderr, flush=True)
    finally:
        if xvfb:
            xvfb.terminate()
    if save:
        with open(save, "w") as out:
            json.dump({name: [sorted(map(list, l)), sorted(map(list, b))] for name, (l, b) in seen.items()}, out)
    all_lines, all_branches = {}, {}
    for name, (lines, branches) in seen.items():
        for l in lines:
            all_lines[l] = all_lines.get(l, 0) + 1
        for b in branches:
            all_branches[b] = all_branches.get(b, 0) + 1
    rows = []
    for name, (lines, branches) in seen.items():
        rows.append((sum(all_lines[l] == 1 for l in lines), sum(all_branches[b] == 1 for b in branches), name))
    for row in sorted(rows):
        print("%5d %5d %s" % row)


if __name__ == "__main__":
    main()
