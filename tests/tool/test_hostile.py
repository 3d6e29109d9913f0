"""Documents that are huge or broken as a whole, through the real tool, which may take 1 GB and 10 s.

What one value, cell or table can do is tried by tests/hostile. Documents are made when they are
needed and go with the folder of their test.
"""
import html
import json
import re
import resource
import unittest
import zipfile
from html.parser import HTMLParser
from xml.etree import ElementTree

from tool_support import CONDITION, EXAMPLES, STATISTICS, TOOL, Case, document

FORMATS = ("json", "html", "text", "xlsx")
SECONDS = 10
MEMORY = 1 << 30
# Sanitizers take memory of their own, and a build of theirs is no measure of time.
IS_MEASURED = b"__asan_init" not in TOOL.read_bytes()
MB = 1_000_000
EVIL = "=1+1</script><evil x=\"'>&--> ]]>"


def limit():
    if IS_MEASURED:
        resource.setrlimit(resource.RLIMIT_AS, (4 * MEMORY, 4 * MEMORY))  # also what isn't touched
        resource.setrlimit(resource.RLIMIT_CPU, (SECONDS, SECONDS))


def field(name):
    """The document with another name of its field: shown in headings, tables and charts."""
    return document().replace('name="weight"', f'name="{name}"')


def in_test(content):
    condition = CONDITION.format(second='<Attribute name="%1" value="7"/>')
    return document(
        tests='<Algorithm name="OWilcoxonSignedRanks" classification="One_Sample" decision="reject">'
        f"{condition}{STATISTICS.format(n=12)}{content}</Algorithm>"
    )


def table(rows, columns="Count Value", names="0 1"):
    return in_test(
        '<StructuredTable name="ContinuousDistribution"><SimpleTable name="Interval">'
        f"<RowNames>{columns}</RowNames><ColumnNames>{names}</ColumnNames>{rows}"
        "</SimpleTable></StructuredTable>"
    )


def changed(example, old, new, count=1):
    """An example's first document with something else in place of what a pattern finds."""
    folder = next(path.parent for path in EXAMPLES if path.parent.name == example)
    name = json.loads((folder / "job.json").read_text())["splits"][0]["document"]
    text, found = re.subn(old, lambda match: new, (folder / name).read_text(), count=count, flags=re.S)
    assert found, old
    return text


def wide(columns, rows):
    """The shares of the values of a field, as many values as asked: a stacked bar for each row."""
    names = " ".join(map(str, range(columns)))
    row = "<Row>" + " ".join(["1.5"] * columns) + "</Row>"
    return changed(
        "department-ratings",
        r'(?<=<StructuredTable name="TwoClassComparison">).*?</SimpleTable>',
        '<SimpleTable name="Content"><RowNames>' + " ".join(map(str, range(rows)))
        + f"</RowNames><ColumnNames>{names}</ColumnNames>{row * rows}</SimpleTable>",
    )


def nested(depth):
    return in_test('<StructuredTable name="x">' * depth + "</StructuredTable>" * depth)


BOMB = "<!DOCTYPE a [<!ENTITY e0 'lol'>" + "".join(
    f"<!ENTITY e{n} '{f'&e{n - 1};' * 10}'>" for n in range(1, 10)
) + "]>"

# What it is, the exit code, and how it is made.
CASES = [
    ("an entity bomb", 1, lambda: document().replace("<StatXML>", BOMB + "<StatXML>").replace('name="weight"', 'name="&e9;"')),
    ("100,000 levels", 1, lambda: nested(100_000)),
    ("900 levels", 0, lambda: nested(900)),
    ("100 MB of an attribute", 0, lambda: in_test(f'<Attribute name="x" value="{"x" * 100 * MB}"/>')),
    ("100 MB of a number", 0, lambda: in_test(f'<Attribute name="%1" value="{"1" * 100 * MB}"/>')),
    ("100 MB of a name of a field", 0, lambda: field("x" * 100 * MB)),
    ("30 MB of label to be escaped", 0, lambda: field("&lt;" * 7 * MB)),
    ("100 MB of text", 0, lambda: in_test("x" * 100 * MB)),
    ("100 MB of a comment", 0, lambda: in_test("<!--" + "x" * 100 * MB + "-->")),
    ("100 MB of a name", None, lambda: in_test(f"<{'x' * 100 * MB}/>")),
    ("100 MB of a cell", 0, lambda: table(f"<Row>{'1' * 100 * MB}</Row>")),
    ("100 MB of a quoted cell", 0, lambda: table(f"<Row>&quot;{'x' * 100 * MB}</Row>")),
    ("20 million cells in a row", 0, lambda: table(f"<Row>{'1 ' * 20 * MB}</Row>")),
    ("a million rows", 0, lambda: table("<Row>1 2</Row>" * MB)),
    ("a million empty elements", 0, lambda: in_test("<a/>" * MB)),
    ("a million attributes of no use", 0, lambda: in_test('<Attribute name="x" value="1"/>' * MB)),
    ("a million names reported", 0, lambda: document().replace("<Counts/>", "<Counts/>" + "<x/>" * MB)),
    ("10,000 columns in stacked bars", 0, lambda: wide(10_000, 2)),
    ("2,000 columns in stacked bars", 0, lambda: wide(2_000, 3)),
    ("100 columns in 100 stacked bars", 0, lambda: wide(100, 100)),
    ("a wide label in all places", 0, lambda: changed("chick-feed", r'displayName="[^"]*"', f'displayName="{"x" * MB}"', 0)),
    ("a long label of a value", 0, lambda: changed("tooth-growth", 'displayValue="[^"]*"', f'displayValue="{"x" * MB}"', 1)),
    ("markup as a label", 0, lambda: field(EVIL.replace("&", "&amp;").replace("<", "&lt;").replace('"', "&quot;"))),
]


def variables_of(text):
    """What the host knows of: "weight" and the document's fields under their labels, but for endless names."""
    fields = re.findall('<DataField[^>]* name="([^"]*)"(?: displayName="([^"]*)")?', text)
    labels = {"weight": ""} | {html.unescape(name): html.unescape(label) for name, label in fields if len(name) < 50 * MB}
    return [{"name": name, "label": label, "type": "numeric"} for name, label in labels.items()]


class Elements(HTMLParser):
    """The names of all elements of a page."""

    def __init__(self, page):
        super().__init__()
        self.names = set()
        self.feed(page)

    def handle_starttag(self, tag, attrs):
        self.names.add(tag)


class HostileDocuments(Case):
    def check_json(self, path):
        json.loads(path.read_bytes().decode())

    def check_html(self, path):
        page = path.read_bytes().decode()
        self.assertNotIn("<evil", page)
        self.assertTrue(page.rstrip().endswith("</html>"))
        if len(page) < 3 * MB:
            self.assertNotIn("evil", Elements(page).names)

    def check_text(self, path):
        path.read_bytes().decode()

    def check_xlsx(self, path):
        with zipfile.ZipFile(path) as book:
            for name in book.namelist():
                if name.endswith(".xml"):
                    root = ElementTree.fromstring(book.read(name))
                    self.assertEqual([e for e in root.iter() if e.tag.endswith("}f")], [], "a formula")

    def test_none_crashes_or_takes_more_than_it_may(self):
        for what, code, make in CASES:
            text = make()
            job = self.write_job([text], variables=variables_of(text))
            for output_format in FORMATS if code == 0 else FORMATS[:1]:
                with self.subTest(what, format=output_format):
                    out = self.folder / f"out.{output_format}"
                    run = self.run_tool("run", job, "--format", output_format, "-o", out, preexec_fn=limit)
                    if code is not None:
                        self.assertEqual(run.returncode, code, run.stderr[:500])
                    self.assertIn(run.returncode, (0, 1), run.stderr[:500])
                    self.assertEqual(len(run.stderr.splitlines()), run.returncode, run.stderr[:500])
                    self.assertLess(len(run.stderr), 2000)
                    if IS_MEASURED:
                        most = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss * 1024
                        self.assertLess(most, MEMORY, "of all so far")
                    getattr(self, f"check_{output_format}")(out)


if __name__ == "__main__":
    unittest.main()
