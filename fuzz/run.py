#!/usr/bin/env python3
"""Runs the fuzzers of a build folder, SECONDS each, and prints a table of what they did:

    run.py BUILD SECONDS [TARGET...]

Corpora stay in BUILD/fuzz/corpus and grow from run to run; logs lie in BUILD/fuzz/logs, faults in
BUILD/fuzz/found. Ends with 1 where a case fell out. A fuzzer that stopped at a fault is started
again for what is left of its time.
"""
import os
import re
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TARGETS = {"document": 16384, "tables": 16384, "chart": 8192, "job": 4096}  # and their longest cases
LIMITS = ["-timeout=10", "-rss_limit_mb=1024"]
MOST_FAULTS = 20
COLUMNS = ["target", "executions", "exec/s", "edges", "features", "corpus", "faults"]

ENVIRONMENT = {
    **os.environ,
    "ASAN_OPTIONS": "quarantine_size_mb=64:malloc_context_size=6:allocator_may_return_null=0",
    "UBSAN_OPTIONS": "print_stacktrace=1:halt_on_error=1",
}


class Run:
    def __init__(self, build, target, seconds):
        self.build, self.target, self.seconds = build, target, seconds
        self.corpus = build / "fuzz/corpus" / target
        self.found = build / "fuzz/found" / target
        self.log = build / "fuzz/logs" / f"{target}.log"
        for folder in (self.corpus, self.found, self.log.parent):
            folder.mkdir(parents=True, exist_ok=True)
        self.known_faults = self.fault_files()
        self.executions = self.edges = self.features = 0

    def fault_files(self):
        return {file for file in self.found.iterdir() if not file.name.startswith("slow-unit-")}

    def faults(self):
        return self.fault_files() - self.known_faults

    def drop_false_timeouts(self):
        """On a busy machine a case may time out that is quick by itself."""
        for file in self.faults():
            again = [self.build / f"fuzz_{self.target}", *LIMITS, file]
            if file.name.startswith("timeout-") and not subprocess.run(again, capture_output=True, check=False).returncode:
                file.unlink()

    def once(self, seconds):
        inputs = [self.corpus, self.build / "fuzz/seeds" / self.target, ROOT / "fuzz/regressions" / self.target]
        command = [self.build / f"fuzz_{self.target}", *LIMITS, f"-max_len={TARGETS[self.target]}",
                   f"-max_total_time={seconds}", f"-artifact_prefix={self.found}/", "-print_final_stats=1", *inputs]
        with self.log.open("a", encoding="utf-8", errors="replace") as log:
            start = log.tell()
            subprocess.run(command, stdout=log, stderr=log, env=ENVIRONMENT, check=False)
        with self.log.open(encoding="utf-8", errors="replace") as log:
            log.seek(start)
            self.count(log.read())

    def count(self, text):
        executions = re.findall(r"stat::number_of_executed_units: *(\d+)", text)
        self.executions += int(executions[-1]) if executions else 0
        state = re.findall(r" cov: (\d+) ft: (\d+)", text)
        if state:
            self.edges, self.features = (max(a, int(b)) for a, b in zip((self.edges, self.features), state[-1]))

    def run(self):
        self.log.unlink(missing_ok=True)
        start = time.monotonic()
        while (left := self.seconds - (time.monotonic() - start)) >= 1:
            self.once(int(left))
            self.drop_false_timeouts()
            if len(self.faults()) >= MOST_FAULTS:
                break
        elapsed = time.monotonic() - start
        corpus = sum(1 for _ in self.corpus.iterdir())
        return [self.target, self.executions, round(self.executions / elapsed), self.edges, self.features, corpus,
                len(self.faults())]


def table(rows):
    lines = [COLUMNS, *([str(cell) for cell in row] for row in rows)]
    widths = [max(len(line[column]) for line in lines) for column in range(len(COLUMNS))]
    for line in lines:
        print(line[0].ljust(widths[0]), *(cell.rjust(width) for cell, width in zip(line[1:], widths[1:])), sep="  ")


def main():
    build, seconds = Path(sys.argv[1]).resolve(), int(sys.argv[2])
    runs = [Run(build, target, seconds) for target in sys.argv[3:] or TARGETS]
    subprocess.run([ROOT / "fuzz/make_seeds.py", build / "bin/nonpar", build / "fuzz/seeds"], check=True)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        rows = list(pool.map(Run.run, runs))
    print()
    table(rows)
    faults = sorted(file for run in runs for file in run.faults())
    for file in faults:
        print(f"fault: {file}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
