#!/usr/bin/env python3
"""Checks that every header of the contract and the plug-in compiles on its own.

All of them are compiled in one run of the compiler, each from a source of its own line.
"""
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


def main():
    compiler = sys.argv[1] if len(sys.argv) > 1 else "c++"
    headers = sorted((ROOT / "host").rglob("*.h")) + sorted((ROOT / "backend").rglob("*.h"))
    failed = []
    with tempfile.TemporaryDirectory() as folder:
        sources = []
        for number, header in enumerate(headers):
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
