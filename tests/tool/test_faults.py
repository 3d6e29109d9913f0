"""Memory that runs out, allocation by allocation, and disks that are full.

NONPAR_FAULT_STRIDE=1 tries every allocation; the default tries every one of the smallest run, and of
the others some of each step.
"""
import collections
import json
import os
import re
import resource
import sys
import unittest

from tool_support import BUILD, EXAMPLES, TOOL, Case, document, job

LIBRARY = BUILD / "lib" / "fail_allocations.so"
IS_SANITIZED = b"__asan_init" in TOOL.read_bytes()

# What a run says where memory runs out, by its exit code. The linker and threads have reasons of their
# own.
LINES = {
    0: (),
    1: ("can't be read: the document is too large for the memory",),
    2: ("out of memory", "annot allocate memory", "the plug-in can't be loaded", "a thread can't be started"),
}


@unittest.skipIf(IS_SANITIZED, "sanitizers have an allocator of their own")
class Memory(Case):
    def setUp(self):
        super().setUp()
        example = next(path for path in EXAMPLES if path.parent.name == "mobility")
        content = json.loads(example.read_text())
        content["splits"][0]["document"] = str(example.parent / "mobility.xml")
        content["splits"] *= 2
        self.job = self.write("job.json", content)

    def try_each(self, output_format, stride, stays=False, jobs=1):
        """Goes through the allocations of a run of two splits; all that it writes stands in one folder.

        Workers count on from where they were made.
        """
        out = self.folder / output_format
        name = f"out.{output_format}"
        arguments = ["run", self.job, "--format", output_format, "-o", out / name, "--jobs", 1]
        environment = {"LD_PRELOAD": str(LIBRARY), "FAULT_COUNT": str(self.folder / "count")}
        out.mkdir(exist_ok=True)
        self.assertEqual(self.run_tool(*arguments, environment=environment).returncode, 0)
        whole = (out / name).read_bytes()
        count = int((self.folder / "count").read_text())
        self.assertGreater(count, 1000)
        arguments[-1] = jobs
        if stays:
            environment["FAULT_STAYS"] = "1"
        ends = collections.Counter()
        for number in range(0, count, int(os.environ.get("NONPAR_FAULT_STRIDE", stride))):
            (out / name).unlink(missing_ok=True)
            run = self.run_tool(*arguments, environment={**environment, "FAULT_AT": str(number)})
            code, errors = run.returncode, run.stderr.decode()
            ends[code, errors] += 1
            with self.subTest(allocation=number, format=output_format, stays=stays, jobs=jobs):
                self.assertIn(code, LINES, errors)
                self.assertEqual(len(errors.splitlines()), min(code, 1), errors)
                written = (out / name).read_bytes() if (out / name).exists() else None
                if code:
                    self.assertTrue(any(line in errors for line in LINES[code]), errors)
                else:
                    self.assertEqual(written, whole)
                self.assertLessEqual({path.name for path in out.iterdir()}, {name}, "half written")
                self.check(output_format, written, code)
        if "NONPAR_FAULT_STRIDE" in os.environ:
            print(output_format, "stays" if stays else "once", jobs, sum(ends.values()), file=sys.stderr)
            for (code, line), times in ends.most_common():
                print(f"  {times} {code} {line.strip()}", file=sys.stderr)

    def check(self, output_format, written, code):
        if written is None:
            return
        if output_format == "json":
            output = json.loads(written)
            self.assertIs(output["result"], code == 0)
        if output_format == "html":
            self.assertTrue(written.endswith(b"</html>"))
            for name in (b"section", b"ul", b"li"):
                self.assertEqual(written.count(b"<" + name), written.count(b"</" + name + b">"), name)

    def test_each_allocation_of_the_smallest_run_may_fail_once(self):
        self.job = self.write_job([document()])
        self.try_each("json", 1)

    def test_each_allocation_may_fail_once(self):
        for output_format, stride in (("json", 79), ("html", 199), ("text", 189)):
            self.try_each(output_format, stride)

    def test_each_allocation_of_workers_may_fail_once(self):
        for output_format, stride in (("json", 237), ("html", 399)):
            self.try_each(output_format, stride, jobs=2)

    def test_memory_may_be_gone_from_any_allocation_on(self):
        self.try_each("json", 161, stays=True)
        self.try_each("html", 499, stays=True, jobs=2)


def limit_files(size):
    """A write beyond it then fails as on a full disk."""
    resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))


class FullDisks(Case):
    def test_a_disk_that_fills_up_is_told_in_one_line(self):
        """The limit of a file's size stands for a disk: of every format some bytes find room."""
        self.write("0.xml", document())
        path = self.write("job.json", job([{"document": "0.xml"}] * 50))
        for output_format in ("json", "html", "text", "xlsx"):
            for size, jobs in ((0, 1), (1000, 1), (20000, 1), (20000, 2)):
                with self.subTest(output_format, size=size, jobs=jobs):
                    out = self.write(f"out.{output_format}", "earlier")
                    run = self.run_tool("run", path, "-o", out, "--jobs", jobs, preexec_fn=lambda: limit_files(size))
                    self.assertEqual(run.returncode, 2, run.stderr)
                    self.assert_one_line(run, str(out))
                    self.assertNotIn(b".part", run.stderr, "nobody gave that name")
                    self.assertEqual(out.read_text(), "earlier")
                    self.assertEqual(list(self.folder.glob("*.part")), [])

    def test_a_sheet_that_found_no_room_is_told_where_the_workbook_finds_it(self):
        """Sheets wait in files of their own, which are larger than the workbook is in the end."""
        key = '"ConditionKey" value="' + "x" * 30000 + '"'
        test = re.search("<Algorithm.*</Algorithm>", document())[0]
        self.write("0.xml", document(tests=re.sub('"ConditionKey" value="[^"]*"', key, test) * 20))
        path = self.write("job.json", job([{"document": "0.xml"}]))
        for size, code in ((300000, 2), (3000000, 0)):
            run = self.run_tool("run", path, "-o", "out.xlsx", preexec_fn=lambda: limit_files(size))
            self.assertEqual(run.returncode, code, run.stderr)
        self.assertLess((self.folder / "out.xlsx").stat().st_size, 300000)

    def test_an_outline_that_found_no_room_is_told(self):
        """It waits in a temporary file, while the report goes to a reader."""
        self.write("0.xml", document())
        path = self.write("job.json", job([{"document": "0.xml"}] * 2000))
        run = self.run_tool("run", path, "--format", "html", "-o", "/dev/stdout", preexec_fn=lambda: limit_files(1 << 19))
        self.assertEqual(run.returncode, 2, run.stderr)
        self.assert_one_line(run, "outline")

    def test_a_workbook_needs_a_file_for_each_sheet(self):
        limit = lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (16, 16))
        run = self.run_tool("run", EXAMPLES[0], "-o", "out.xlsx", preexec_fn=limit)
        self.assertEqual(run.returncode, 2)
        self.assert_one_line(run, "out.xlsx", "a file open for each table")


if __name__ == "__main__":
    unittest.main()
