#!/usr/bin/env python3
"""Writes the seeds of the fuzzers from the examples, the jobs of the browser tests and a made document:

    make_seeds.py NONPAR FOLDER

FOLDER gets a folder for each target. A document is parted into one for each kind of test and one for
its fields, since small cases run fast; lists of numbers are cut for the same reason.
"""
import copy
import itertools
import json
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
DOCUMENTS = [*sorted(ROOT.glob("examples/*/*.xml")), *sorted(ROOT.glob("tests/browser/jobs/*.xml"))]
JOBS = [*sorted(ROOT.glob("examples/*/job.json")), *sorted(ROOT.glob("tests/browser/jobs/*.json"))]
LONGEST_LIST = 12
CHARTS_OF_A_TEMPLATE = 4

# The variables of targets/HostData.cpp that can stand for a field, by the kind of the field.
VARIABLES = {
    "string": ["region", "place"],
    "date": ["day", "moment"],
    "integer": ["grade", "group", "keep"],
    "double": ["score", "amount", "length"],
}


class Seeds:
    def __init__(self, folder):
        self.folder = folder
        self.count = 0

    def add(self, target, text):
        self.count += 1
        place = self.folder / target
        place.mkdir(parents=True, exist_ok=True)
        (place / f"seed-{self.count:03}").write_text(text, encoding="utf-8")


def cut(text):
    return " ".join((text or "").split()[:LONGEST_LIST])


def rename_fields(root):
    """Gives each field a variable of its kind; which one goes round."""
    names = {kind: itertools.cycle(names) for kind, names in VARIABLES.items()}
    for field in root.iter("DataField"):
        kind = field.get("dataType", "double")
        field.set("name", next(names.get(kind, names["double"])))


def frame(root, tests, infos):
    """The document with only these tests and field infos."""
    part = copy.deepcopy(root)
    for holder, kept in ((next(part.iter("NonParametricTests")), tests), (next(part.iter("FieldInfos")), infos)):
        for child in list(holder):
            holder.remove(child)
        holder.extend(kept)
    for element in part.iter():
        element.tail = None
        if element.tag in ("Row", "RowNames", "ColumnNames"):
            element.text = cut(element.text)
        elif not (element.text or "").strip():
            element.text = None
    return ET.tostring(part, encoding="unicode")


def infos_of(root, test):
    """Those of the fields that the test names first; some charts are drawn from them."""
    named = [a.get("value", "").split() for a in test.iter("Attribute") if a.get("name") == "%0"]
    return [info for info in root.iter("FieldInfo") if named and info.get("varIndex") in named[0]]


def all_kinds():
    """A document with a test of every kind and every table that it can have."""
    with tempfile.TemporaryDirectory() as folder:
        size = ["4", "22", "6", "1"]  # fields, tests, bars, splits
        subprocess.run([sys.executable, ROOT / "bench/scale.py", *size, folder], check=True, stdout=subprocess.DEVNULL)
        return ET.parse(Path(folder) / "large.xml")


def document_parts():
    seen = set()
    for tree in [*map(ET.parse, DOCUMENTS), all_kinds()]:
        root = tree.getroot()
        rename_fields(root)
        for test in root.iter("Algorithm"):
            keys = [a.get("value") for a in test.iter("Attribute") if a.get("name") == "ConditionKey"]
            blocks = [t.get("name") for t in test.iter("StructuredTable")]
            kind = (test.get("name"), *keys, *blocks)
            if kind not in seen:
                seen.add(kind)
                yield frame(root, [test], infos_of(root, test))
        infos = list(root.iter("FieldInfo"))
        kind = (len(infos), len(list(root.iter("DataField"))))
        if infos and kind not in seen:
            seen.add(kind)
            yield frame(root, [], infos[:4])


def charts_below(nodes):
    for node in nodes:
        if node["type"] == "heading":
            yield from charts_below(node["children"])
        elif node["type"] == "chart":
            yield node


def word(value):
    if value is None:
        return ""
    text = str(value) if isinstance(value, (int, float)) else "'" + value
    return text.replace("\t", " ").replace("\n", "\\n")


def plain(value):
    return "" if value is None else word(value).removeprefix("'")


def source_lines(source):
    yield f"source\t{source['name']}"
    for name in source["variables"]:
        values = [word(row.get(name)) for row in source["rows"][:LONGEST_LIST]]
        yield "\t".join(["column", name, *values])


# Calls of the chart contract that set something, and the line that says it.
CALLS = {
    "XGraph.setTitle": lambda text: ["title", plain(text)],
    "XGraph.setSubtitle": lambda text: ["subtitle", plain(text)],
    "XGraph.setFootnote": lambda text: ["footnote", plain(text)],
    "XGraph.setOuterFrameWidth": lambda width: ["size", str(width), "1"],
    "XVariable.setLabel": lambda name, text: ["label", name, plain(text)],
    "XVariable.SetFormatPrefix": lambda name, text: ["prefix", name, plain(text)],
    "XVariable.setCategorical": lambda name, flag: ["category", name, str(int(flag))],
    "XVariable.setQORTVariable": lambda name, variable: ["host", name, variable],
    "XVariable.setFormatBasedOnQORTVariable": lambda name, variable: ["format", name, "5", "8", "2"],
    "XVariable.SetNumberFormat": lambda name, decimals, grouping, prefix, suffix: [
        "numbers", name, str(decimals), str(int(grouping)), plain(prefix), plain(suffix)],
    "XVariable.addRelabel": lambda name, key, text: [
        "relabel", name, str(key), plain(text["value"] if isinstance(text, dict) else text)],
}


def chart_text(chart):
    lines = [line for source in chart["sources"] for line in source_lines(source)]
    for operation, *arguments in chart["calls"]:
        if operation in CALLS and None not in arguments[:1]:
            lines.append("\t".join(CALLS[operation](*arguments)))
    return chart["text"] + "\n%%data\n" + "\n".join(lines) + "\n"


def chart_parts(nonpar):
    count = {}
    for job in JOBS:
        run = subprocess.run([nonpar, "run", job, "--format", "json", "--quiet"], check=True, capture_output=True)
        for chart in charts_below(json.loads(run.stdout)["output"]):
            name = chart["template"]
            count[name] = count.get(name, 0) + 1
            if count[name] <= CHARTS_OF_A_TEMPLATE:
                yield chart_text(chart)
    for template in sorted(ROOT.glob("refhost/templates/*.viztemplate")):
        yield template.read_text(encoding="utf-8")


def job_parts():
    for file in JOBS:
        job = json.loads(file.read_text(encoding="utf-8"))
        job["variables"] = job["variables"][:6]
        names = {variable["name"] for variable in job["variables"]}
        job["splits"] = [s for s in job["splits"] if names.issuperset(s.get("variables", []))][:3] or job["splits"][:1]
        yield json.dumps(job, ensure_ascii=False)


def main():
    nonpar, folder = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    shutil.rmtree(folder, ignore_errors=True)
    seeds = Seeds(folder)
    for text in document_parts():
        seeds.add("document", text)
        seeds.add("tables", text)
    for text in chart_parts(nonpar):
        seeds.add("chart", text)
    for text in job_parts():
        seeds.add("job", text)
    print(f"{seeds.count} seeds")


if __name__ == "__main__":
    main()
