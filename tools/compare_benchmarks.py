#!/usr/bin/env python3
# SPDX-License-Identifier: BSL-1.0
"""Measures every benchmark with two programs in turns and prints how much slower or faster the second one is.

A row is the median of the ratios of its repetitions, new to old, with the lowest and the highest: what disturbs the machine
disturbs both programs of a repetition, and which of them begins alternates. A row that even its lowest ratio puts beyond the
gate has become slower.
"""

import argparse
import json
import re
import statistics
import subprocess
import sys

# How fast others are does not depend on us.
PEERS = re.compile("FromABoostTree")


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("old")
    parser.add_argument("new")
    parser.add_argument("--gate", type=float, metavar="PER_CENT", help="fail when a row is slower by more than this")
    parser.add_argument("--repetitions", type=int, default=5)
    parser.add_argument("--seconds", type=float, default=0.1, help="for one repetition of one row")
    parser.add_argument("rows", nargs="*", help="regular expressions of the rows; all if there are none")
    return parser.parse_intermixed_args()


def rows_of(program):
    listed = subprocess.run([program, "--benchmark_list_tests"], check=True, capture_output=True, text=True)
    return [row for row in listed.stdout.split() if not PEERS.search(row)]


def nanoseconds(program, row, seconds):
    """A process for each: memory that one row leaves behind would serve the next."""
    output = subprocess.run(
        [program, f"--benchmark_filter=^{row}$", f"--benchmark_min_time={seconds}", "--benchmark_format=json"],
        check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True).stdout
    run = next(run for run in json.loads(output)["benchmarks"] if run["run_type"] == "iteration")
    return run["cpu_time"] * {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}[run["time_unit"]]


def measure(programs, row, options):
    """The times of both programs, repetition by repetition."""
    times = ([], [])
    for repetition in range(options.repetitions):
        for which in (0, 1) if repetition % 2 == 0 else (1, 0):
            times[which].append(nanoseconds(programs[which], row, options.seconds))
    return times


def main():
    options = arguments()
    programs = (options.old, options.new)
    old_rows, new_rows = map(rows_of, programs)
    rows = [row for row in new_rows if not options.rows or any(re.search(rule, row) for rule in options.rows)]
    if not rows:
        sys.exit("No benchmark has such a name")
    slower = []
    print("| row | old, ns | new, ns | new / old | lowest | highest |\n|---|---|---|---|---|---|")
    for row in rows:
        if row not in old_rows:
            print(f"| {row} | | {nanoseconds(options.new, row, options.seconds):.4g} | | | |", flush=True)
            continue
        old, new = measure(programs, row, options)
        ratios = sorted(b / a for a, b in zip(old, new))
        print(f"| {row} | {min(old):.4g} | {min(new):.4g} | {statistics.median(ratios):.3f} | {ratios[0]:.3f} "
              f"| {ratios[-1]:.3f} |", flush=True)
        if options.gate is not None and ratios[0] > 1.0 + options.gate / 100.0:
            slower.append(row)
    for row in slower:
        print(f"{row} is slower by more than {options.gate:g} % in every repetition", file=sys.stderr)
    return 1 if slower else 0


if __name__ == "__main__":
    sys.exit(main())
