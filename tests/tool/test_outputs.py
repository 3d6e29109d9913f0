"""What the examples give: the record in JSON, and workbooks that a spreadsheet can read."""
import difflib
import itertools
import json
import os
import re
import unittest
import zipfile
from xml.etree import ElementTree

import jsonschema

from tool_support import EXAMPLES, ROOT, Case, nodes

GOLDEN = ["mobility", "insect-sprays", "department-ratings", "new-york-air", "tooth-growth", "infertility"]
SHEET = {"s": "http://schemas.openxmlformats.org/spreadsheetml/2006/main"}


def schema(name):
    return json.loads((ROOT / "docs" / name).read_text())


class Records(Case):
    def test_the_jobs_and_their_records_are_as_documented(self):
        jobs = jsonschema.Draft4Validator(schema("job.schema.json"))
        outputs = jsonschema.validators.validator_for(schema("output.schema.json"))(
            schema("output.schema.json")
        )
        self.assertGreaterEqual(len(EXAMPLES), 8)
        for path in EXAMPLES:
            with self.subTest(path.parent.name):
                jobs.validate(json.loads(path.read_text()))
                output = self.run_json(path)
                outputs.validate(output)
                self.assertIs(output["result"], True)
                self.assertIsNone(output["failure"])
                self.assertGreater(len(list(nodes(output["output"], "table"))), 5)
                for chart in nodes(output["output"], "chart"):
                    self.assertLessEqual(self.columns_held(chart), self.columns_asked_for(chart))
                    asked = re.findall(r' (?:variable|target|style)="([^"]+)"', chart["text"])
                    self.assertLessEqual(set(asked), set(re.findall(r' id="([^"]+)"', chart["text"])))

    def columns_held(self, chart):
        return {(source["name"], name) for source in chart["sources"] for name in source["variables"]}

    def columns_asked_for(self, chart):
        tags = re.findall("<sourceVariable[^>]*>", chart["text"])
        return {tuple(re.search(f'{key}="([^"]*)"', tag)[1] for key in ("source", "column")) for tag in tags}

    def test_the_same_bytes_come_out_anywhere(self):
        places = (
            {},
            {"environment": {"LC_ALL": "tr_TR.UTF-8", "TZ": "Asia/Kathmandu"}},
            {"environment": {"LANG": "de_DE.UTF-8"}, "cwd": "/"},
        )
        for path, output_format in itertools.product(EXAMPLES, ("json", "html", "text", "xlsx")):
            with self.subTest(path.parent.name, format=output_format):
                first, *others = (
                    self.bytes_of(path, output_format, number, place)
                    for number, place in enumerate(places)
                )
                self.assertGreater(len(first), 1)
                self.assertEqual([first] * len(others), others)

    def bytes_of(self, path, output_format, number, place):
        """The bytes of the output and of each chart's file, by name."""
        folder = self.folder / f"{path.parent.name}.{output_format}.{number}"
        folder.mkdir()
        out = folder / "out"
        run = self.run_tool(
            "run", path, "--format", output_format, "--language", "en",
            "-o", out, "--charts", folder / "charts", **place,
        )
        self.assertEqual(run.returncode, 0, run.stderr)
        return {str(f.relative_to(folder)): f.read_bytes() for f in folder.rglob("*") if f.is_file()}

    def test_the_golden_records_hold(self):
        for name in GOLDEN:
            file = ROOT / "tests" / "golden" / f"{name}.expected.json"
            with self.subTest(name):
                folder = ROOT / "examples" / name
                content = json.loads((folder / "job.json").read_text())
                split = content["splits"][0]
                content["splits"] = [{**split, "document": str(folder / split["document"])}]
                job = self.write("job.json", content)
                run = self.run_tool("run", job, "--format", "json", "--language", "en")
                self.assertEqual(run.returncode, 0, run.stderr)
                lines = run.stdout.decode().splitlines()
                if "NONPAR_REWRITE_GOLDEN" in os.environ:
                    file.write_text("\n".join(lines) + "\n")
                expected = file.read_text().splitlines()
                difference = list(difflib.unified_diff(expected, lines, "expected", "is", n=2))
                self.assertEqual(difference, [], "\n".join(difference[:60]))


class Workbooks(Case):
    def sheets(self, path):
        run = self.run_tool("run", path, "--format", "xlsx", "-o", "book.xlsx")
        self.assertEqual(run.returncode, 0, run.stderr)
        with zipfile.ZipFile(self.folder / "book.xlsx") as book:
            self.assertIsNone(book.testzip())
            self.assertIn(b">1980-01-01T00:00:00Z<", book.read("docProps/core.xml"), "no time of its own")
            names = [n for n in book.namelist() if re.fullmatch(r"xl/worksheets/sheet\d+\.xml", n)]
            return [ElementTree.fromstring(book.read(name)) for name in names]

    def test_every_table_and_chart_has_a_sheet_behind_the_outline(self):
        for path in EXAMPLES[:2]:
            output = self.run_json(path)["output"]
            expected = 1 + len(list(nodes(output, "table"))) + len(list(nodes(output, "chart")))
            sheets = self.sheets(path)
            self.assertEqual(len(sheets), expected)
            self.assertEqual(len(sheets[0].findall(".//s:hyperlink", SHEET)), expected - 1)
            numbers = [c for s in sheets for c in s.iterfind(".//s:c", SHEET) if c.get("t") is None]
            self.assertGreater(len([c for c in numbers if c.find("s:v", SHEET) is not None]), 100)
            self.assertTrue(any(s.find(".//s:mergeCell", SHEET) is not None for s in sheets[1:]))


if __name__ == "__main__":
    unittest.main()
