#!/usr/bin/env python3
"""How the cost of a run grows with one measure of its job at a time:  growth.py [ROUNDS]

For each measure six jobs and a straight line through their processor times by least squares. A cost
that grows faster than its measure bends away from the line: the largest distance and R² tell. Of the
rounds the cheapest counts, as what else the machine does can only add.
"""
import statistics
import sys

from timing import large_job, nonpar, run_in_turn

STEPS = (1, 2, 4, 6, 8, 10)
FORMS = ("json", "html")
# What is varied, the unit of it, how many units a step is, and the job (fields, tests, bars, splits).
MEASURES = (
    ("size of the document", "MB", 1, lambda n: (207 * n, 414 * n, 20, 1)),
    ("tests", "1,000 tests", 0.4, lambda n: (100, 400 * n, 20, 1)),
    ("fields", "1,000 fields", 0.6, lambda n: (600 * n, 200, 20, 1)),
    ("bars of a distribution", "100 bars", 0.8, lambda n: (200, 400, 80 * n, 1)),
    ("splits", "100 splits", 0.1, lambda n: (22, 42, 20, 10 * n)),
)


def line_through(x, y):
    """Start, slope, R² and the largest distance of a point from the line, as a share of the highest point."""
    slope, start = statistics.linear_regression(x, y)
    farthest = max(abs(have - start - slope * at) for at, have in zip(x, y)) / max(y)
    return start, slope, statistics.correlation(x, y) ** 2, farthest


def main():
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 3
    print("""
| Cost over              | Output |   From |     To | of           |    Start |      Each |      R² | Farthest |
|------------------------|--------|-------:|-------:|--------------|---------:|----------:|--------:|---------:|""")
    for name, unit, step, shape in MEASURES:
        jobs = {n * step: large_job("growth", *shape(n)) / "job.json" for n in STEPS}
        costs = run_in_turn({(form, x): nonpar(job, form, "--jobs", "1") for x, job in jobs.items() for form in FORMS}, rounds, min)
        for form in FORMS:
            start, slope, r2, far = line_through(list(jobs), [costs[form, x].cpu for x in jobs])
            print(f"| {name:<22} | {form:<6} | {min(jobs):>6.1f} | {max(jobs):>6.1f} | {unit:<12} "
                  f"| {start * 1e3:>5.0f} ms | {slope * 1e3:>6.1f} ms | {r2:>7.4f} | {far:>7.1%}  |", flush=True)


if __name__ == "__main__":
    sys.exit(main())
