#!/usr/bin/env python3
"""Compares two builds of the benchmarks, run in turns on this machine.

usage: against.py BASE_BIN NEW_BIN [--rounds N] [--limit PERCENT] [NAME ...]

BASE_BIN and NEW_BIN are the bin folders of the two builds. Each program runs N times from either
build, base and new in turns, and the least time of each row counts. Prints base / new for each row
that both have (above 1 is faster now), and ends with 1 if a row of ours has become slower than the
limit allows.
"""

import argparse
import json
import pathlib
import subprocess
import sys

PREFIX = "orvel-bench-"


def rows_of(program):
    """The least CPU time in nanoseconds per row of one run of a benchmark program."""
    run = subprocess.run(
        [program, "--benchmark_format=json", "--benchmark_min_time=0.05"],
        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
    unit = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
    rows = {}
    for row in json.loads(run.stdout)["benchmarks"]:
        if row.get("run_type", "iteration") == "iteration" and "cpu_time" in row:
            rows[row["name"]] = row["cpu_time"] * unit[row["time_unit"]]
    return rows


def least(times, rows):
    for name, time in rows.items():
        times[name] = min(time, times.get(name, time))


def compare(base, new, rounds):
    """Least times of each row of a program in both builds."""
    before, after = {}, {}
    for turn in range(rounds):
        order = [(before, base), (after, new)]
        for times, program in order if turn % 2 == 0 else reversed(order):
            least(times, rows_of(program))
    return before, after


def main():
    parser = argparse.ArgumentParser(description="Compares two builds of the benchmarks.")
    parser.add_argument("base", type=pathlib.Path, help="bin folder of the base build")
    parser.add_argument("new", type=pathlib.Path, help="bin folder of the new build")
    parser.add_argument("--rounds", type=int, default=3, help="runs of each program (default 3)")
    parser.add_argument("--limit", type=float, default=5.0,
                        help="per cent that a row may become slower (default 5)")
    parser.add_argument("names", nargs="*", help="subsystems (default: all that both builds have)")
    arguments = parser.parse_args()

    known = sorted(p.name[len(PREFIX):] for p in arguments.new.glob(PREFIX + "*")
                   if (arguments.base / p.name).exists())
    missing = [name for name in arguments.names if name not in known]
    if missing:
        print(f"no such benchmark in both builds: {', '.join(missing)}; there are: "
              f"{', '.join(known)}", file=sys.stderr)
        return 2

    slower = []
    for name in arguments.names or known:
        before, after = compare(arguments.base / (PREFIX + name), arguments.new / (PREFIX + name),
                                arguments.rounds)
        print(f"== {name}: base / new, above 1 is faster now")
        for row in before:
            if row not in after:
                continue
            ratio = before[row] / after[row]
            print(f"{ratio:8.3f}  {row}")
            if "/orvel" in row and ratio < 1.0 - arguments.limit / 100.0:
                slower.append((ratio, row))
    if slower:
        print(f"\nslower by more than {arguments.limit:g} %:")
        for ratio, row in sorted(slower):
            print(f"{ratio:8.3f}  {row}")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
