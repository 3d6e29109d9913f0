"""What a change of an example's document, its variables or a template changes in the record.

Each case keeps one test of an example (or what is told of one field), changes something and tells
what then comes (+) and what goes without another fact in its place (-): a part of each line. What the
examples show unchanged is held by the golden records.
"""
import difflib
import functools
import json
import re
import unittest
from xml.etree import ElementTree

from tool_support import ROOT, Case
from variant_cases import CASES

TEMPLATES = ROOT / "refhost" / "templates"


def label(text):
    return text["text"] if text else "none"


def item_labels(items, before=""):
    """Labels of categories, groups before them; and the notes that labels bear."""
    for item in items:
        shown = before + label(item.get("category") or item["group"])
        yield shown if "category" in item else None, [f"note {shown}: {label(note)}" for note in item["notes"]]
        yield from item_labels(item.get("items", []), shown + "/")


def facts(node_list):
    """A record as short lines: headings, cells and notes of tables, calls, rows and tags of charts."""
    for node in node_list:
        if node["type"] == "heading":
            yield f"heading {label(node['label'])}"
            yield from facts(node["children"])
        elif node["type"] == "table":
            yield f"table {label(node['title'])}"
            yield f"caption {label(node['caption'])}"
            places = []
            for dimension in node["dimensions"]:
                labels = list(item_labels(dimension["items"]))
                yield from (note for _, notes in labels for note in notes)
                places.append([shown for shown, _ in labels if shown is not None])
            for cell in node["cells"]:
                at = " | ".join(place[number] for place, number in zip(places, cell["at"]))
                yield " ".join([f"{at} = {label(cell['content'])}", *(f"[{label(note)}]" for note in cell["notes"])])
        elif node["type"] == "chart":
            yield f"chart {node['template']}"
            rows = [row for source in node["sources"] for row in source["rows"]]
            lines = [" ".join(map(str, call)) for call in node["calls"]]
            lines += [" ".join(f"{name}={value}" for name, value in row.items()) for row in rows]
            yield from (line.replace("\n", "\\n") for line in lines)
            yield from (part for part in map(str.strip, re.split("(?=<)", node["text"])) if part)
        else:
            yield f"report {node['text']}"


class Variant:
    """A job of one test of an example's first split, to be changed and written."""

    def __init__(self, example, wanted):
        folder = ROOT / "examples" / example
        self.job = json.loads((folder / "job.json").read_text())
        self.job = {key: part for key, part in self.job.items() if key in ("variables", "splits")}
        self.split = self.job["splits"][0]
        self.tree = ElementTree.parse(folder / self.split["document"])
        self.templates = {file.name: file.read_bytes() for file in TEMPLATES.iterdir()}
        self.keep(*wanted.partition(" ")[::2])

    def keep(self, name, number):
        """Takes away all other tests, and what is told of other fields where one field is wanted."""
        tests, infos = next(self.tree.iter("NonParametricTests")), next(self.tree.iter("FieldInfos"))
        named = [e for e in [*tests, *infos] if name in (e.get("name"), f"field{e.get('varIndex')}")]
        self.kept = named[int(number or 0)]
        for parent in (tests, infos) if self.kept in infos else (tests,):  # a test may draw its field
            parent[:] = [child for child in parent if child is self.kept]

    def change(self, key, value):
        kind, _, what = key.rpartition(":")
        {
            "": self.put,
            "table": self.rename,
            "message": self.add_message,
            "template": self.put_template,
            "variable": self.put_variable,
            "field": self.put_field,
            "value": self.put_value,
            "test": self.kept.set,
            "tests": next(self.tree.iter("NonParametricTests")).set,
            "counts": lambda name, text: next(self.tree.iter("Counts")).set(name, text),
        }[kind](what, value)

    def put(self, name, value):
        """Sets an attribute or the rows of a table, of another table's where that is named; None takes it away."""
        table, _, last = name.rpartition("/")
        place = self.table(table) if table else self.kept
        parents = {child: parent for parent in place.iter() for child in parent}
        found = next((child for child in parents if last in (child.get("name"), child.tag)), None)
        if value is None:
            parents[found].remove(found)
        elif found is None:
            ElementTree.SubElement(place, "Attribute", name=last, value=value)
        elif found.tag == "Attribute":
            found.set("value", value)
        elif found.tag == "SimpleTable":
            found[:] = [child for child in found if child.tag != "Row"]
            for row in value.split("|") if value else []:
                ElementTree.SubElement(found, "Row").text = row
        else:
            found.text = value

    def table(self, name):
        return next((e for e in self.kept.iter() if e.get("name") == name), None)

    def rename(self, name, value):
        self.table(name).set("name", value)

    def add_message(self, _, value):
        code, kind, group, *parameters = value.split(" ")
        messages = self.table("WarningMessages")
        if messages is None:
            messages = ElementTree.SubElement(self.kept, "StructuredTable", name="WarningMessages")
        message = ElementTree.SubElement(messages, "StructuredTable", name="M")
        attributes = {"code": code, "type": kind, "group": group, "paramNum": str(len(parameters))}
        attributes |= {f"%{at}": text for at, text in enumerate(parameters)}
        for name, text in attributes.items():
            ElementTree.SubElement(message, "Attribute", name=name, value=text)

    def put_template(self, name, text):
        self.templates[f"{name}.viztemplate"] = text.encode()

    def put_variable(self, name, value):
        variable = next(v for v in self.job["variables"] if v["name"] == name)
        if value is None:
            self.job["variables"].remove(variable)
        else:
            variable.update(value)

    def field(self, index):
        return next(e for e in self.tree.iter("DataField") if e.get("index") == index)

    def put_field(self, what, text):
        index, name = what.split("/")
        self.field(index).set(name, text)

    def put_value(self, what, text):
        index, number, name = what.split("/")
        self.field(index)[int(number)].set(name, text)

    def write(self, folder):
        """Writes document, templates and job; gives the job's file."""
        (folder / "templates").mkdir(exist_ok=True)
        for name, text in self.templates.items():
            (folder / "templates" / name).write_bytes(text)
        self.tree.write(folder / "0.xml")
        self.job["splits"] = [{**self.split, "document": "0.xml"}]
        (folder / "job.json").write_text(json.dumps(self.job))
        return folder / "job.json"


class Variants(Case):
    def record(self, example, wanted, changes):
        variant = Variant(example, wanted)
        for key, value in changes.items():
            variant.change(key, value)
        job = variant.write(self.folder)
        output = self.run_json(job, "--language", "en", "--templates", self.folder / "templates")
        return list(facts(output["output"]))

    @functools.cache
    def unchanged(self, example, wanted):
        return self.record(example, wanted, {})

    def test_a_change_changes_these_facts_and_no_others(self):
        for why, example, wanted, changes, *expected in CASES:
            with self.subTest(why, example=example, test=wanted):
                lines = self.unchanged(example, wanted), self.record(example, wanted, changes)
                difference = [line for line in difflib.unified_diff(*lines, n=0) if line[:2] not in ("--", "++", "@@")]
                told = lambda line: any(line[0] == fact[0] and fact[1:] in line for fact in expected)
                come = [line for line in difference if line[0] == "+"]
                gone = [line for line in difference if line[0] == "-" and not told(line)]
                self.assertEqual([line for line in come if not told(line)], [], "came and isn't told")
                silent = [f for f in expected if not any(f[0] == line[0] and f[1:] in line for line in difference)]
                self.assertEqual(silent, [], "is told and isn't there")
                if not any(fact.startswith("-chart") for fact in expected):
                    self.assertLessEqual(len(gone), len(come), gone)


if __name__ == "__main__":
    unittest.main()
