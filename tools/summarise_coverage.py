#!/usr/bin/env python3
# SPDX-License-Identifier: BSL-1.0
"""Sums up by folder what clang has counted, and fails when too little is reached."""

import collections
import json
import pathlib
import sys

LEAST = {"lines": 98.0, "branches": 93.0}
FOLDERS = ("include", "src", "apps")


def counts_by_folder(export):
    root = pathlib.Path(__file__).resolve().parent.parent
    counts = collections.defaultdict(lambda: collections.Counter())
    for file in export["data"][0]["files"]:
        path = pathlib.Path(file["filename"]).resolve()
        if not path.is_relative_to(root):
            continue
        folder = path.relative_to(root).parent
        if folder.parts[0] not in FOLDERS:
            continue
        for kind in LEAST:
            counts[str(folder)][kind, "count"] += file["summary"][kind]["count"]
            counts[str(folder)][kind, "covered"] += file["summary"][kind]["covered"]
    return counts


def share(counts, kind):
    total = counts[kind, "count"]
    return 100.0 * counts[kind, "covered"] / total if total else 100.0


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        counts = counts_by_folder(json.load(file))
    counts["all"] = sum(counts.values(), collections.Counter())
    print(f"{'folder':28}" + "".join(f"{kind:>12} reached" for kind in LEAST))
    for folder, of_folder in sorted(counts.items(), key=lambda item: (item[0] == "all", item[0])):
        print(f"{folder:28}" + "".join(
            f"{of_folder[kind, 'count']:12} {share(of_folder, kind):5.1f} %" for kind in LEAST))
    missed = [kind for kind in LEAST if share(counts["all"], kind) < LEAST[kind]]
    for kind in missed:
        print(f"Fewer than {LEAST[kind]:.0f} % of the {kind} are reached", file=sys.stderr)
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
