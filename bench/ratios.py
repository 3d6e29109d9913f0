#!/usr/bin/env python3
"""Measures whole runs against their goals:  ratios.py [--quick] [--shapes]

Every ratio is one of medians over runs in turn on this machine. A goal that is missed is said, and is
no failure; what can't be measured is.
"""
import argparse
import json
import os
import subprocess
import sys
from dataclasses import dataclass

from split_times import watch_splits
from timing import BASELINE, FOLDER, NONPAR, PEER, ROOT, large_job, nonpar, run_in_turn, run_once

# How many fields, each with two tests, make a document of 10 MB where a distribution has that many
# bars. The examples have two tests to a field and 17 bars to a distribution.
FIELDS_OF_10_MB = {5: 2350, 12: 2220, 20: 2070, 40: 1770, 100: 1370, 300: 790}
USUAL, MANY = 20, 300
SMALL = ROOT / "examples/tooth-growth"


@dataclass
class Row:
    """One measure; without a goal it is there to be compared with."""
    measure: str
    value: float
    unit: str = ""
    goal: float | None = None
    told: str = ""

    def text(self):
        number = f"{self.value:.2f}{self.unit}" if self.unit else f"{self.value:.3f}"
        goal, passed = ("", "") if self.goal is None else \
            (f"{self.goal:g}{self.unit}", "pass" if self.value <= self.goal else "MISSED")
        return f"| {self.measure:<62} | {number:>9} | {goal:>7} | {passed:<6} | {self.told}"


def document_rows(bars, rounds, goals):
    """JSON against the baseline and HTML against the peer, for one shape of 10 MB."""
    fields = FIELDS_OF_10_MB[bars]
    folder = large_job("shape", fields, 2 * fields, bars)
    document = folder / "large.xml"
    costs = run_in_turn({"json": nonpar(folder / "job.json", "json"), "baseline": [BASELINE, document],
                         "html": nonpar(folder / "job.json", "html"), "peer": ["xsltproc", PEER, document]}, rounds)
    size = document.stat().st_size
    for form, other, goal in (("json", "baseline", 0.85), ("html", "peer", 0.33)):
        ours, theirs = costs[form], costs[other]
        yield Row(f"{form.upper()} of {size / 1e6:.1f} MB, {bars} bars, over {other}", ours.wall / theirs.wall,
                  goal=goal if goals else None,
                  told=f"{ours.wall:.3f} s over {theirs.wall:.3f} s; processor {ours.cpu / theirs.cpu:.3f}; "
                       f"peak {ours.peak / size:.2f} and {theirs.peak / size:.2f} of the size")


def split_rows(rounds):
    folder = large_job("thousand", 22, 43, USUAL, splits=1000, files=1000)
    documents = [f"large-{n}.xml" if n > 1 else "large.xml" for n in range(1, 1001)]
    costs = run_in_turn({"as it comes": nonpar(folder / "job.json", "json"),
                         "--jobs 1": nonpar(folder / "job.json", "json", "--jobs", "1"),
                         "peer": ["xsltproc", PEER, *(folder / name for name in documents)]}, rounds)
    theirs = costs.pop("peer")
    for how, ours in costs.items():
        yield Row(f"JSON of 1,000 splits of 100 KB over one xsltproc, {how}", ours.wall / theirs.wall,
                  goal=0.33 if how == "as it comes" else None,
                  told=f"{ours.wall:.2f} s over {theirs.wall:.2f} s; processor {ours.cpu / theirs.cpu:.3f}")


def size_rows(rounds):
    """What ten times the document takes, in time and memory."""
    fields = FIELDS_OF_10_MB[USUAL]
    ten, hundred = (large_job("shape", fields * times, 2 * fields * times, USUAL) for times in (1, 10))
    size = (hundred / "large.xml").stat().st_size
    times = size / (ten / "large.xml").stat().st_size
    costs = run_in_turn({(form, folder): nonpar(folder / "job.json", form)
                         for form in ("json", "html") for folder in (ten, hundred)}, rounds)
    for form in ("json", "html"):
        small, large = costs[form, ten], costs[form, hundred]
        yield Row(f"{form.upper()}: time at 100 MB over time at 10 MB", large.wall / small.wall, goal=10.5,
                  told=f"{large.wall:.2f} s over {small.wall:.3f} s; processor {large.cpu / small.cpu:.2f}; "
                       f"{times:.2f} times the size")
        yield Row(f"{form.upper()}: peak memory at 100 MB, of the document's size", large.peak / size, goal=4.5,
                  told=f"{large.peak / 1e6:.0f} MB over {size / 1e6:.0f} MB")


def many_split_rows(rounds):
    few, many = (large_job("splits", 10, 22, USUAL, splits=splits) for splits in (100, 10_000))
    runs = [watch_splits(many / "job.json") for _ in range(rounds)]
    middle = sorted(runs, key=lambda run: run.growth(run.clock))[rounds // 2]
    mega = 1 << 20
    yield Row("JSON: peak after 10,000 splits less that after 100", (middle.peak - middle.peak_at_100) / mega, " MB", 1,
              f"in one run; {middle.peak / mega:.1f} MB at the end")
    for form in ("json", "html"):
        short, long = (run_once(nonpar(folder / "job.json", form)) for folder in (few, many))
        yield Row(f"{form.upper()}: peak of 10,000 splits less that of 100", (long.peak - short.peak) / mega, " MB", 1,
                  f"two runs; {long.peak / mega:.1f} MB less {short.peak / mega:.1f} MB, the job itself among it")
    yield Row("time of the 10,000th split over the 100th", middle.growth(middle.clock), goal=1.05,
              told=f"medians of 100 splits each; processor {middle.growth(middle.cpu):.3f}")


def small_rows(rounds):
    """A job of the first split of an example, from the start of the process to its end."""
    job = json.loads((SMALL / "job.json").read_text(encoding="utf-8"))
    document = SMALL / job["splits"][0]["document"]
    job["splits"] = [{"document": str(document)}]
    path = FOLDER / "small.json"
    path.write_text(json.dumps(job), encoding="utf-8")
    costs = run_in_turn({"html": nonpar(path, "html"), "json": nonpar(path, "json"),
                         "peer": ["xsltproc", PEER, document]}, rounds)
    for form in ("html", "json"):
        ours, theirs = costs[form], costs["peer"]
        yield Row(f"{form.upper()} of one job of {document.stat().st_size / 1e3:.0f} KB, more than xsltproc",
                  (ours.wall - theirs.wall) * 1e3, " ms", 8,
                  f"{ours.wall * 1e3:.1f} ms less {theirs.wall * 1e3:.1f} ms; "
                  f"processor {(ours.cpu - theirs.cpu) * 1e3:.1f} ms")


def page_rows(rounds):
    """The report in a browser; the page measures itself."""
    folder = large_job("page", 94, 190, 40)
    report = FOLDER / "page.html"
    subprocess.run([NONPAR, "run", folder / "job.json", "--quiet", "-o", report], check=True)
    told = subprocess.run(["node", ROOT / "bench/page.mjs", "page", str(rounds)], check=True, stdout=subprocess.PIPE,
                          env={**os.environ, "NONPAR_REPORTS": str(FOLDER),
                               "NONPAR_NODE_MODULES": str(ROOT / "build/release/web/node_modules")}).stdout
    page = {name: value / 1e3 for name, value in json.loads(told).items()}
    charts = round(page["charts"] * 1e3)
    yield Row(f"HTML of {charts} charts: first paint of its screen", page["paint"], " s", 1,
              f"{report.stat().st_size / 1e6:.1f} MB; whole page there after {page['loaded']:.2f} s")
    yield Row(f"HTML of {charts} charts: first chart drawn, where it is opened there", page["drawn"], " s", 1)
    yield Row("longest task of the page while scrolling through", page["task"], " s", 0.25,
              f"processor {page['processor']:.3f}; {round(page['steps'] * 1e3)} screens; "
              f"{round(page['left'] * 1e3)} charts left undrawn")
    yield Row("longest time between two frames while scrolling through", page["gap"], " s", 0.25,
              f"all charts in view drawn within {page['wait']:.2f} s")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--quick", action="store_true", help="one round of each, without runs above a few seconds")
    parser.add_argument("--shapes", action="store_true", help="only the 10 MB documents, with 5 to 300 bars")
    args = parser.parse_args()
    rounds = 1 if args.quick else 5
    parts = [document_rows(USUAL, rounds, True), document_rows(MANY, rounds, False),
             small_rows(4 * rounds), page_rows(min(3, rounds))]
    if args.shapes:
        parts = [document_rows(bars, rounds, False) for bars in FIELDS_OF_10_MB]
    elif not args.quick:
        parts[2:2] = [split_rows(3), size_rows(3), many_split_rows(3)]
    print(f"| {'Measure':<62} | {'Value':>9} | {'Goal':>7} |        |\n|{'-' * 64}|{'-' * 10}:|{'-' * 8}:|{'-' * 8}|---")
    missed = failed = 0
    for rows in parts:
        try:
            for row in rows:
                print(row.text(), flush=True)
                missed += row.goal is not None and row.value > row.goal
        except (OSError, RuntimeError, subprocess.CalledProcessError) as failure:
            failed += 1
            print(f"NOT MEASURED: {failure}", flush=True)
    print(f"{missed or 'no'} {'goal' if missed < 2 else 'goals'} missed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
