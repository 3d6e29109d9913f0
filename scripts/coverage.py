#!/usr/bin/env python3
"""Prints which lines and branches of the plug-in ran, for each of its files and in total:

    coverage.py BUILD PROFILES

PROFILES is the folder of raw profiles that programs of the coverage build in BUILD have left.
"""
import json
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
MEASURED = ROOT / "backend/nonpar"
KINDS = ("lines", "branches")
HEADER = ["file", "lines", "", "branches", "", "lines that did not run"]


def programs(build):
    """Everything that holds code of the plug-in."""
    found = [*sorted(build.glob("test_*")), build / "fuzz_replay", build / "lib/nonpar/nonpar.so"]
    return [file for file in found if file.is_file() and file.suffix in ("", ".so")]


def export(build, profile, *options):
    objects = [option for file in programs(build) for option in ("-object", file)]
    command = ["llvm-cov", "export", *options, f"-instr-profile={profile}", *objects[1:]]
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def ranges(numbers):
    """12 13 14 20 as "12-14 20"."""
    parts = []
    for number in sorted(numbers):
        if parts and number == parts[-1][1] + 1:
            parts[-1][1] = number
        else:
            parts.append([number, number])
    return " ".join(str(first) if first == last else f"{first}-{last}" for first, last in parts)


def missed_lines(lcov):
    """For each file the lines that never ran."""
    missed = {}
    file = None
    for line in lcov.splitlines():
        kind, _, rest = line.partition(":")
        if kind == "SF":
            file = Path(rest).resolve()
        elif kind == "DA":
            number, count = rest.split(",")[:2]
            if count == "0":
                missed.setdefault(file, set()).add(int(number))
    return missed


def total(summaries):
    added = {kind: {"covered": 0, "count": 0} for kind in KINDS}
    for summary in summaries:
        for kind in KINDS:
            for number in added[kind]:
                added[kind][number] += summary[kind][number]
    return added


def row(name, summary, missed=""):
    cells = [name]
    for kind in KINDS:
        covered, count = summary[kind]["covered"], summary[kind]["count"]
        cells += [f"{covered}/{count}", f"{100 * covered / count:.1f} %" if count else ""]
    return [*cells, missed]


def main():
    build, profiles = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
    merged = profiles / "merged.profdata"
    subprocess.run(["llvm-profdata", "merge", "-sparse", *profiles.glob("*.profraw"), "-o", merged], check=True)
    data = json.loads(export(build, merged, "-summary-only"))["data"][0]
    summaries = {Path(file["filename"]).resolve(): file["summary"] for file in data["files"]}
    missed = missed_lines(export(build, merged, "-format=lcov"))
    files = sorted(file for file in summaries if file.is_relative_to(MEASURED))
    rows = [HEADER]
    for file in files:
        rows.append(row(str(file.relative_to(MEASURED)), summaries[file], ranges(missed.get(file, ()))))
    rows.append(row("total", total(summaries[file] for file in files)))
    widths = [max(len(line[column]) for line in rows) for column in range(5)]
    for line in rows:
        cells = [line[0].ljust(widths[0]), *(cell.rjust(width) for cell, width in zip(line[1:5], widths[1:]))]
        print(*cells, line[5], sep="  ")


if __name__ == "__main__":
    main()
