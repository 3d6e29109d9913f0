"""What the tests of the command line tool share: the tool itself, jobs and documents made by hand."""
import json
import os
import signal
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
BUILD = Path(os.environ.get("NONPAR_BUILD", ROOT / "build" / "release"))
TOOL = BUILD / "bin" / "nonpar"
EXAMPLES = sorted(ROOT.glob("examples/*/job.json"))

CONDITION = (
    '<StructuredTable name="Condition"><Attribute name="ConditionKey" value="O_WilcoxonSignedRanks_2"/>'
    '<Attribute name="%0" value="0"/>{second}</StructuredTable>'
)
STATISTICS = (
    '<StructuredTable name="StatisticsResult"><Attribute name="TotalN" value="{n}"/>'
    '<Attribute name="AsymptoticSig2Tailed" value="0.03125"/></StructuredTable>'
)


def document(n=12, second='<Attribute name="%1" value="7"/>', tests=None):
    """A result document with one field and one test of it."""
    if tests is None:
        condition = CONDITION.format(second=second)
        tests = (
            '<Algorithm name="OWilcoxonSignedRanks" classification="One_Sample" decision="reject">'
            f"{condition}{STATISTICS.format(n=n)}</Algorithm>"
        )
    return (
        '<?xml version="1.0" encoding="UTF-8"?><StatXML><PMMLModel modelType="NonParametricTests"/>'
        "<DescriptiveModel><DescriptiveSummary><Counts/></DescriptiveSummary></DescriptiveModel>"
        '<Extension><NPAROutput><DataDictionary><DataField index="0" name="weight"/>'
        '<DataField index="1" name="last"/></DataDictionary>'
        f'<NonParametricTests number="1" sigLevel="0.05" confidenceLevel="0.95">{tests}'
        "</NonParametricTests><FieldInfos/></NPAROutput></Extension></StatXML>"
    )


def job(splits, **further):
    variables = [{"name": "weight", "type": "numeric"}]
    return {"variables": variables, "splits": splits, **further}


class Case(unittest.TestCase):
    """A test with a folder of its own, in which the tool runs."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def write(self, name, content):
        path = self.folder / name
        if isinstance(content, (dict, list)):
            content = json.dumps(content)
        path.write_bytes(content if isinstance(content, bytes) else content.encode())
        return path

    def write_job(self, documents, **further):
        """A job of one split for each document; None names a file that isn't there."""
        splits = []
        for number, text in enumerate(documents):
            name = f"{number}.xml"
            if text is not None:
                self.write(name, text)
            splits.append({"document": name})
        return self.write("job.json", job(splits, **further))

    def run_tool(self, *arguments, environment=None, **options):
        clean = {key: value for key, value in os.environ.items() if not key.startswith(("LC_", "LANG"))}
        clean.pop("DEBUG_MODEL_VIEWER", None)
        options.setdefault("cwd", self.folder)
        options.setdefault("stdout", subprocess.PIPE)
        return subprocess.run(
            [TOOL, *map(str, arguments)],
            stderr=subprocess.PIPE,
            env={**clean, **(environment or {})},
            check=False,
            timeout=120,
            **options,
        )

    def run_json(self, path, *arguments, **options):
        run = self.run_tool("run", path, "--format", "json", *arguments, **options)
        self.assertEqual(run.returncode, 0, run.stderr)
        return json.loads(run.stdout)

    def start_tool(self, *arguments, **options):
        """A run that goes on by itself, in a process group of its own, as a terminal starts it."""
        options.setdefault("stderr", subprocess.PIPE)
        process = subprocess.Popen(
            [TOOL, *map(str, arguments)], cwd=self.folder, start_new_session=True, **options
        )
        self.addCleanup(end, process)
        return process

    def assert_one_line(self, run, *parts):
        """One line on standard error, which names what the parts say."""
        text = run.stderr.decode()
        self.assertEqual(len(text.strip().splitlines()), 1, text)
        for part in parts:
            self.assertIn(part, text)


def end(process):
    if process.poll() is None:
        os.killpg(process.pid, signal.SIGKILL)
    process.communicate()


def wait_for(condition, seconds=20):
    """What the condition gives as soon as it gives something."""
    deadline = time.monotonic() + seconds
    while not (found := condition()):
        if time.monotonic() > deadline:
            raise TimeoutError
        time.sleep(0.005)
    return found


def nodes(node_list, kind):
    """All nodes of a type, in order, whatever heading they stand under."""
    for node in node_list:
        if node["type"] == kind:
            yield node
        yield from nodes(node.get("children", []), kind)
