#!/usr/bin/env python3
"""Writes a page that links the reports of a folder:  write_index.py FOLDER"""
import html
import re
import sys
from pathlib import Path

PAGE = """<!doctype html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>Reports</title>
<style>
body {{ font: 1rem/1.6 system-ui, sans-serif; max-width: 40rem; margin: 3rem auto; padding: 0 1rem; color: #1f2933; }}
li {{ margin: .4rem 0; }}
a {{ color: #1d4ed8; }}
small {{ color: #52606d; }}
</style>
<h1>Reports</h1>
<ul>
{items}
</ul>
</html>
"""


def title(report):
    """The title element of a report, which stands near its start."""
    with report.open(encoding="utf-8") as file:
        found = re.search(r"<title>(.*?)</title>", file.read(20000), re.DOTALL)
    return found.group(1) if found else html.escape(report.stem)


def main():
    folder = Path(sys.argv[1])
    items = []
    for report in sorted(folder.glob("*.html")):
        if report.name == "index.html":
            continue
        name = html.escape(report.stem, quote=True)
        items.append(
            f'<li><a href="{name}.html">{title(report)}</a> <small>(<a href="{name}.txt">text</a>)</small></li>'
        )
    (folder / "index.html").write_text(PAGE.format(items="\n".join(items)), encoding="utf-8")


if __name__ == "__main__":
    main()
