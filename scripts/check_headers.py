#!/usr/bin/env python3
"""Checks that every header compiles on its own.

Where a source begins with it, the build has seen to that. The others are compiled in one run of the
compiler, each from a source of its own line.
"""
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


FOLDERS = ("host", "backend", "refhost", "fuzz")
INCLUDE = re.compile(r'^#include ["<]([^">]+)', re.MULTILINE)


def begun_with():
    """The headers that sources include before anything else."""
    for folder in (*FOLDERS, "tests"):
        for source in (ROOT / folder).rglob("*.cpp"):
            first = INCLUDE.search(source.read_text(encoding="utf-8"))
            if first:
                yield from (base / first[1] for base in (ROOT, ROOT / "backend/nonpar"))


def main():
    compiler = sys.argv[1] if len(sys.argv) > 1 else "c++"
    headers = {header for folder in FOLDERS for header in (ROOT / folder).rglob("*.h")}
    built = headers.intersection(begun_with())
    failed = []
    with tempfile.TemporaryDirectory() as folder:
        sources = []
        for number, header in enumerate(sorted(headers - built)):
            source = Path(folder) / f"header{number}.cpp"
            source.write_text(f'#include "{header}"\n#include "{header}"\n', encoding="utf-8")
            sources.append(str(source))
        options = ["-std=c++20", "-fsyntax-only", "-I", str(ROOT), "-I", str(ROOT / "backend/nonpar")]
        run = subprocess.run([compiler, *options, *sources], capture_output=True, text=True, check=False)
        if run.returncode != 0:
            failed.append(run.stderr)
    for text in failed:
        print(text)
    print(f"{len(headers)} headers, {'not all' if failed else 'all'} compile on their own")
    return 1 if failed or not headers else 0


if __name__ == "__main__":
    sys.exit(main())
