"""Splits in several processes: the same output, the same endings, and nothing left behind."""
import json
import os
import re
import signal
import unittest
from pathlib import Path

from tool_support import EXAMPLES, ROOT, Case, document, job, wait_for

FORMATS = ("json", "text", "html")
MANY = 20000  # splits, so that a run lasts until it is met


def example(name):
    return next(path for path in EXAMPLES if path.parent.name == name)


def children(process):
    """The ids of a process's living children."""
    try:
        return [int(child) for child in Path(f"/proc/{process}/task/{process}/children").read_text().split()]
    except FileNotFoundError:
        return []


def is_there(process):
    try:
        return Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()[0] != "Z"
    except FileNotFoundError:
        return False


class Jobs(Case):
    def outcome(self, path, output_format, jobs):
        """All that a run leaves: exit code, standard error, the bytes of its output."""
        output = self.folder / f"{jobs}.{output_format}"
        how = [] if jobs is None else ["--jobs", jobs]
        run = self.run_tool("run", path, *how, "-o", output.name)
        return run.returncode, run.stderr, output.read_bytes()

    def forty_splits(self, **different):
        """Forty splits of examples, but for those named "at_" and their number."""
        documents = sorted((ROOT / "examples" / "infertility").glob("*.xml"))
        texts = [documents[number % len(documents)].read_text() for number in range(40)]
        for place, text in different.items():
            texts[int(place.removeprefix("at_"))] = text
        variables = json.loads(example("infertility").read_text())["variables"]
        return self.write_job(texts, variables=variables)

    def test_several_processes_write_what_one_writes(self):
        broken = document(second="")
        large = document(tests=re.search("<Algorithm.*</Algorithm>", document())[0] * 4500)
        rows = [
            ("few splits", lambda: example("infertility"), 0, (2, 3, 7)),
            ("splits as headings", lambda: example("tooth-growth"), 0, (2, 3, 7)),
            ("many splits", self.forty_splits, 0, (None, 2, 3, 7, 1000)),
            ("splits of many megabytes among small ones", lambda: self.write_job([document(), large] * 3), 0, (2, 7)),
            ("an unreadable split", lambda: self.forty_splits(at_17="<StatXML>"), 1, (2, 7)),
            ("a broken invariant", lambda: self.forty_splits(at_17=broken), 3, (2, 7)),
            ("several that fail", lambda: self.forty_splits(at_17=broken, at_18="", at_19=""), 3, (3,)),
            ("the last fails", lambda: self.forty_splits(at_39=""), 1, (3,)),
            ("splits without tests", lambda: self.write_job([document(tests="")] * 5), 0, (3,)),
        ]
        for reason, make, code, processes in rows:
            path = make()
            for output_format in FORMATS:
                alone = self.outcome(path, output_format, 1)
                self.assertEqual(alone[0], code, alone[1])
                for jobs in processes:
                    with self.subTest(reason, output_format=output_format, jobs=jobs):
                        apart = self.outcome(path, output_format, jobs)
                        self.assertEqual(apart[:2], alone[:2])
                        self.assertTrue(apart[2] == alone[2], "other bytes")
        self.assertEqual(list(self.folder.glob("*.part")), [])

    def test_a_workbook_and_files_of_charts_are_written_by_one_process(self):
        path = example("tooth-growth")
        self.assertEqual(self.outcome(path, "xlsx", 3)[:2], (0, b""))
        runs = {}
        for jobs in (1, 3):
            folder = self.folder / f"charts{jobs}"
            self.run_tool("run", path, "--jobs", jobs, "--charts", folder, "-o", "out.json")
            runs[jobs] = {file.name: file.read_bytes() for file in folder.iterdir()}
        self.assertGreater(len(runs[1]), 5)
        self.assertEqual(runs[1], runs[3])


class Ends(Case):
    def start(self, *options, workers=3, output_format="json", last="0.xml"):
        """A long run over an earlier output, and the ids of its processes."""
        self.write("0.xml", document())
        self.write("job.json", job([{"document": "0.xml"}] * MANY + [{"document": last}]))
        self.write(f"out.{output_format}", "earlier")
        process = self.start_tool("run", "job.json", *options or ("--jobs", workers), "-o", f"out.{output_format}")
        wait_for(lambda: any(file.stat().st_size > 50000 for file in self.folder.glob("*.part")))
        found = children(process.pid)
        self.assertEqual(len(found), workers)
        return process, found

    def assert_nothing_is_left(self, workers):
        wait_for(lambda: not any(map(is_there, workers)))
        self.assertEqual(list(self.folder.glob("*.part")), [])

    def test_a_killed_worker_ends_the_run_in_one_line(self):
        for which in (0, 2):
            with self.subTest(which):
                process, workers = self.start()
                os.kill(workers[which], signal.SIGKILL)
                _, errors = process.communicate(timeout=60)
                self.assertEqual(process.returncode, 2)
                self.assertEqual(len(errors.strip().splitlines()), 1, errors)
                self.assertRegex(errors, rb"(process at work on split \d+|process of the run) was ended by signal 9")
                self.assertEqual((self.folder / "out.json").read_text(), "earlier")
                self.assert_nothing_is_left(workers)

    def test_where_nobody_says_the_processors_do_unless_a_document_is_large(self):
        processors = len(os.sched_getaffinity(0))
        usual = min(processors, 8) if processors > 1 else 0
        self.write("large.xml", " " * (17 << 20))
        for last, workers in (("0.xml", usual), ("missing.xml", usual), ("large.xml", 0)):
            with self.subTest(last):
                process, found = self.start("--quiet", workers=workers, last=last)
                process.send_signal(signal.SIGINT)
                process.communicate(timeout=60)
                self.assert_nothing_is_left(found)

    def test_workers_end_with_the_run(self):
        process, workers = self.start()
        process.kill()
        wait_for(lambda: not any(map(is_there, workers)))

    def test_an_interruption_reaches_all_and_keeps_what_was_done(self):
        for output_format, last in (("json", "}"), ("html", "</html>"), ("text", "")):
            with self.subTest(output_format):
                process, workers = self.start(output_format=output_format)
                os.killpg(process.pid, signal.SIGINT)  # as a terminal does
                _, errors = process.communicate(timeout=60)
                self.assertEqual(process.returncode, 130, errors)
                done = int(errors.split(b"interrupted after ")[1].split()[0])
                self.assertTrue(0 < done < MANY)
                written = (self.folder / f"out.{output_format}").read_text()
                self.assertTrue(written.rstrip().endswith(last))
                self.run_tool("run", self.write("one.json", job([{"document": "0.xml"}])), "-o", f"alone.{output_format}")
                each = (self.folder / f"alone.{output_format}").read_text().count("Summary")
                self.assertEqual(written.count("Summary"), done * each)
                self.assert_nothing_is_left(workers)


if __name__ == "__main__":
    unittest.main()
