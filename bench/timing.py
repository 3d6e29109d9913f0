"""Whole processes, timed in turn."""
import os
import shutil
import statistics
import subprocess
import time
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FOLDER = ROOT / "build" / "bench"           # the documents, kept for the next time
MEMORY = Path("/dev/shm")                   # where there is one, a disk's moods don't count
SCRATCH = (MEMORY if MEMORY.is_dir() else FOLDER) / "nonpar-bench"  # what a run writes, removed behind it
NONPAR = ROOT / "build/release/bin/nonpar"
BASELINE = ROOT / "build/release/bench_baseline"
PEER = ROOT / "bench/peer.xsl"


@dataclass
class Cost:
    """Of a run, or the medians of some: seconds by the clock and of the processors, bytes of memory."""
    wall: float
    cpu: float
    peak: int


def nonpar(job, form, *options):
    """The command that turns a job into a format of output."""
    return [NONPAR, "run", job, "--quiet", "--language", "en", "--format", form, "-o", SCRATCH / f"out.{form}", *options]


def run_once(command):
    """The cost of one run; its standard output goes to a file as well.

    The peak that Linux tells holds that of the process that starts another, so whoever calls this
    stays small: what needs memory runs as a process of its own.
    """
    SCRATCH.mkdir(parents=True, exist_ok=True)
    with open(SCRATCH / "stdout", "wb") as out:
        start = time.perf_counter()
        process = subprocess.Popen(command, stdout=out, stdin=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        wall = time.perf_counter() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    shutil.rmtree(SCRATCH)
    if process.returncode:
        raise RuntimeError(f"exit code {process.returncode}: {' '.join(map(str, command[:5]))}")
    return Cost(wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024)


def run_in_turn(commands, rounds, middle=statistics.median):
    """What each of `commands`, a dict, costs in the middle: A B C, A B C, ... behind one round to warm up."""
    costs = {name: [] for name in commands}
    for at in range(rounds + 1):
        for name, command in commands.items():
            cost = run_once(command)
            if at:
                costs[name].append(cost)
    return {name: Cost(*(middle(getattr(cost, part) for cost in some) for part in ("wall", "cpu", "peak")))
            for name, some in costs.items()}


def large_job(name, fields, tests, bars, splits=1, files=1):
    """The folder of a job made by scale.py, which is run when the job isn't there yet or is older."""
    folder = FOLDER / f"{name}-{fields}-{tests}-{bars}-{splits}-{files}"
    job, maker = folder / "job.json", ROOT / "bench/scale.py"
    if not job.exists() or job.stat().st_mtime < maker.stat().st_mtime:
        subprocess.run([maker, *map(str, (fields, tests, bars, splits)), folder,
                        "--files", str(files)], check=True, stdout=subprocess.DEVNULL)
    return folder
