"""What single splits of a running job take, told from its output as it comes through a pipe. All are done by one
process, which is watched."""
import os
import statistics
import subprocess
import time
from dataclasses import dataclass
from pathlib import Path

from timing import NONPAR

MARK = b'"text":"Part = '  # once for each split, in its heading


@dataclass
class Splits:
    """When each split began, by the clock and in processor time; memory at the 100th and at the end."""
    clock: list
    cpu: list
    peak_at_100: int
    peak: int

    def growth(self, times, window=100):
        """The median time of a split at the end over that of one around the 100th."""
        took = [after - before for before, after in zip(times, times[1:])]
        return statistics.median(took[-window:]) / statistics.median(took[100 - window // 2:100 + window // 2])


def processor_seconds(pid):
    """Of all threads; what Linux tells of the process itself is too coarse for a split."""
    threads = Path(f"/proc/{pid}/task").glob("*/schedstat")
    return sum(int(thread.read_text(encoding="ascii").split()[0]) for thread in threads) / 1e9


def peak_memory(pid):
    with open(f"/proc/{pid}/status", encoding="ascii") as file:
        return next(int(line.split()[1]) * 1024 for line in file if line.startswith("VmHWM"))


def watch_splits(job):
    process = subprocess.Popen([NONPAR, "run", job, "--quiet", "--language", "en", "--format", "json", "--jobs", "1"],
                               stdout=subprocess.PIPE, stdin=subprocess.DEVNULL)
    seen = Splits([], [], 0, 0)
    rest = b""
    while chunk := os.read(process.stdout.fileno(), 1 << 16):
        chunk = rest + chunk
        for _ in range(chunk.count(MARK)):
            seen.clock.append(time.perf_counter())
            seen.cpu.append(processor_seconds(process.pid))
            seen.peak = peak_memory(process.pid)
            if len(seen.clock) == 101:
                seen.peak_at_100 = seen.peak
        rest = chunk[-len(MARK) + 1:]
    if process.wait():
        raise RuntimeError(f"exit code {process.returncode}: {job}")
    return seen
