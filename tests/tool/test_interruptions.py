"""What a person at a terminal sees of a long run, and how one ends it."""
import errno
import fcntl
import json
import os
import pty
import re
import signal
import struct
import subprocess
import termios
import time
import unittest

from tool_support import Case, document, job, wait_for

CLEAR = b"\r\x1b[K"


def large_document(tests=15000):
    """A split that takes a second, or longer."""
    test = re.search("<Algorithm.*</Algorithm>", document())[0]
    return document(tests=test * tests)


class Interruptions(Case):
    def part_of(self, size):
        """Waits until so much of the output is written."""
        return wait_for(lambda: [p for p in self.folder.glob("*.part") if p.stat().st_size > size])

    def test_a_killed_run_leaves_what_was_there(self):
        self.write("0.xml", document())
        self.write("job.json", job([{"document": "0.xml"}] * 20000))
        self.write("out.json", "earlier")
        process = self.start_tool("run", "job.json", "-o", "out.json")
        self.part_of(1000)
        process.kill()
        process.wait()
        self.assertEqual((self.folder / "out.json").read_text(), "earlier")

    def test_an_interrupted_run_keeps_what_it_has_written(self):
        notice = rb"interrupted after \d+ of (\d+) splits"
        self.write("0.xml", document())
        self.write("1.xml", large_document())
        rows = [
            ("many splits", ["0.xml"] * 20000, b""),
            ("within a split", ["1.xml"], b"; of the next, only a part is written"),
        ]
        for reason, documents, half in rows:
            path = self.write("job.json", job([{"document": name} for name in documents]))
            for output_format, mark in (("json", '"result": false'), ("html", "interrupted after"), ("text", "interrupted after")):
                with self.subTest(reason, output_format=output_format):
                    process = self.start_tool("run", path, "-o", f"out.{output_format}")
                    self.part_of(100000)
                    process.send_signal(signal.SIGINT)
                    process.send_signal(signal.SIGTERM)  # as programs do that end others
                    _, errors = process.communicate(timeout=60)
                    self.assertEqual(process.returncode, 130)
                    self.assertRegex(errors.strip(), b"^nonpar: " + notice + b"(" + half + b")?$")
                    self.assertTrue(errors.strip().endswith(half))
                    written = (self.folder / f"out.{output_format}").read_text()
                    self.assert_whole(output_format, written, mark)
                    self.assertEqual(list(self.folder.glob("*.part")), [])

    def assert_whole(self, output_format, written, mark):
        if output_format == "json":
            self.assertIs(json.loads(written)["result"], False)
            return
        self.assertIn(mark, written)
        if output_format == "html":
            self.assertTrue(written.rstrip().endswith("</html>"))
            for name in ("section", "figure", "table", "ul"):
                self.assertEqual(len(re.findall(f"<{name}[ >]", written)), written.count(f"</{name}>"), name)

    def end_at_once(self, process):
        """Two interruptions, so far apart that they count as two, of a run that waits and so has time for each."""
        process.send_signal(signal.SIGINT)
        time.sleep(0.5)
        self.assertIsNone(process.poll(), "the first lets it end by itself")
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=60), -signal.SIGINT)

    def writing_end(self, fifo):
        """Of a FIFO that somebody reads; None before."""
        try:
            return os.open(fifo, os.O_WRONLY | os.O_NONBLOCK)
        except OSError as error:
            self.assertEqual(error.errno, errno.ENXIO)
            return None

    def test_a_second_interruption_ends_at_once(self):
        fifo = self.folder / "0.xml"  # the run waits for a document that never comes
        os.mkfifo(fifo)
        self.write("job.json", job([{"document": "0.xml"}]))
        self.write("out.json", "earlier")
        process = self.start_tool("run", "job.json", "-o", "out.json")
        self.addCleanup(os.close, wait_for(lambda: self.writing_end(fifo)))
        self.end_at_once(process)
        self.assertEqual((self.folder / "out.json").read_text(), "earlier")
        self.assertEqual(list(self.folder.glob("*.part")), [])

    def test_a_signal_that_was_to_be_passed_over_is(self):
        self.write("0.xml", document())
        path = self.write("job.json", job([{"document": "0.xml"}] * 3000))
        passed_over = lambda: signal.signal(signal.SIGINT, signal.SIG_IGN)
        process = self.start_tool("run", path, "--jobs", 1, "-o", "out.json", preexec_fn=passed_over)
        self.part_of(1000)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(timeout=60), 0)

    def test_a_run_that_waits_for_its_reader_can_be_ended(self):
        self.write("0.xml", large_document())
        self.write("job.json", job([{"document": "0.xml"}] * 2))
        for jobs in (1, 2):
            with self.subTest(jobs):
                process = self.start_tool("run", "job.json", "--format", "json", "--jobs", jobs, stdout=subprocess.PIPE)
                process.stdout.read(1)  # and no more
                self.end_at_once(process)


class ProgressOfSplits(Case):
    def seen(self, *arguments, columns=80):
        """What the terminal gets on standard error."""
        ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        process = self.start_tool("run", "job.json", "-o", "out.json", *arguments, stderr=theirs)
        os.close(theirs)
        text = b""
        try:
            while piece := os.read(ours, 4096):
                text += piece
        except OSError:  # the terminal's other end is closed
            pass
        os.close(ours)
        process.wait()
        return text

    def test_one_line_tells_what_is_done_and_what_is_left(self):
        self.write("0.xml", document())
        self.write("job.json", job([{"document": "0.xml"}] * 8000))
        for columns, jobs, line in (
            (80, 1, rb"\[#+\.*\] \d+ of 8000 splits, \d+ s left"),
            (80, 2, rb"\[#+\.*\] \d+ of 8000 splits, \d+ s left"),
            (18, 1, rb"\d+ of 8000 [split]+"),
        ):
            with self.subTest(columns=columns, jobs=jobs):
                shown = self.seen("--jobs", jobs, columns=columns).split(CLEAR)
                self.assertEqual((shown[0], shown[-1]), (b"", b""), "it is cleared")
                self.assertGreater(len(shown), 3)
                self.assertLess(max(map(len, shown)), columns, "it would wrap")
                self.assertRegex(shown[-2], b"^" + line + b"$")

    def test_a_failure_stands_behind_the_cleared_line(self):
        self.write_job([document()] * 5 + [""])
        for jobs in (1, 2):
            shown = self.seen("--jobs", jobs).split(CLEAR)
            self.assertRegex(shown[-1], rb"^nonpar: .*5.xml can't be read: [^\r\n]*\r\n$")

    def test_a_terminal_that_goes_away_doesnt_end_the_run(self):
        self.write("0.xml", document())
        self.write("job.json", job([{"document": "0.xml"}] * 8000))
        ours, theirs = pty.openpty()
        process = self.start_tool("run", "job.json", "-o", "out.json", stderr=theirs)
        os.close(theirs)
        os.read(ours, 1)
        os.close(ours)
        self.assertEqual(process.wait(timeout=60), 0)

    def test_nothing_is_shown_where_nobody_wants_it(self):
        self.write_job([document()])
        self.assertEqual(self.seen(), b"", "one split")
        self.write_job([document()] * 5)
        self.assertEqual(self.seen("--quiet"), b"")
        self.assertNotEqual(self.seen(), b"")
        run = self.run_tool("run", "job.json", "-o", "out.json")
        self.assertEqual(run.stderr, b"", "no terminal")


if __name__ == "__main__":
    unittest.main()
