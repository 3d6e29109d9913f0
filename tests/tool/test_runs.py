"""How a run ends: exit codes, the line on standard error, and what is written."""
import os
import unittest

from tool_support import BUILD, EXAMPLES, Case, document, job, nodes


class Endings(Case):
    def test_an_unreadable_split_ends_the_run_behind_the_splits_before_it(self):
        rows = [
            ("malformed", "<StatXML>\n  <Broken", ["1.xml", "line 2, column"]),
            ("a document type", "<!DOCTYPE x [<!ENTITY e 'x'>]><StatXML/>", ["DOCTYPE"]),
            ("not a result document", "<StatXML/>", ["1.xml"]),
            ("empty", "", ["1.xml"]),
            ("not there", None, ["1.xml", "can't be read"]),
        ]
        for reason, text, parts in rows:
            with self.subTest(reason):
                path = self.write_job([document(n=11), text, document(n=13)])
                run = self.run_tool("run", path, "-o", "out.txt")
                self.assertEqual(run.returncode, 1)
                self.assert_one_line(run, *parts)
                written = (self.folder / "out.txt").read_text()
                self.assertIn(" 11 ", written)
                self.assertNotIn(" 13 ", written)

    def test_a_broken_invariant_ends_the_run_with_its_text(self):
        broken = document(second="")
        path = self.write_job([document(n=11), broken, document(n=13)])
        run = self.run_tool("run", path, "-o", "out.json")
        self.assertEqual(run.returncode, 3)
        self.assert_one_line(run, "1.xml", "data.fParameters.size() == 2")
        written = (self.folder / "out.json").read_text()
        self.assertIn('"failure":"data.fParameters.size() == 2"', written.replace('": ', '":'))
        self.assertIn('"result":false', written.replace('": ', '":'))
        self.assertEqual(written.count("Hypothesis Test Summary") > 2, True, "what was written stays")

    def test_what_is_wrong_is_told_in_one_line_and_nothing_is_written(self):
        self.write("0.xml", document())
        good = self.write("good.json", job([{"document": "0.xml"}]))
        self.write("texts.json", "{")
        self.write("nul.json", {"pivot\0": {}})
        (self.folder / "link.xlsx").symlink_to(good)
        split = {"document": "0.xml"}
        rows = [
            ("no job", ["none.json"], ["none.json"]),
            ("no JSON", [self.write("no.json", "{")], ["no.json", "line 1"]),
            ("an unknown key", [self.write("a.json", job([split], titel="x"))], ["a.json", "titel"]),
            ("a key of two lines", [self.write("j.json", job([split], **{"two\nlines": 1}))], ["two lines"]),
            ("a name of two lines", [self.write("k.json", job([split], extraVariable="a\nb"))], ["a b"]),
            ("a name with more behind a zero byte", [self.write("l.json", job([split], extraVariable="weight\0"))], ["l.json", "U+0000"]),
            ("a format", [good, "--format", "pdf"], ["pdf"]),
            ("a language", [good, "--language", "xx"], ["xx"]),
            ("a language that is a path", [good, "--language", "../texts/en"], ["language"]),
            ("no plug-in", [good, "--plugin", "none.so"], ["none.so"]),
            ("a library that is no plug-in", [good, "--plugin", BUILD / "lib" / "librefhost.so"], ["GetCFProcCustom"]),
            ("no folder of templates", [good, "--templates", "none"], ["none"]),
            ("texts that are none", [good, "--texts", "texts.json"], ["texts.json"]),
            ("texts under a name with a zero byte", [good, "--texts", "nul.json"], ["nul.json", "charts"]),
            ("no folder to write into", [good, "-o", "none/out.html"], ["none/out.html"]),
            ("a document as the output", [good, "-o", "0.xml", "--format", "html"], ["0.xml", "reads it"]),
            ("the job by another name as the output", [good, "-o", "link.xlsx"], ["link.xlsx", "reads it"]),
            ("a job of the output's usual name", [self.write("m.html", job([split]))], ["m.html", "reads it"]),
            ("an unknown option", [good, "--form", "json"], ['"--form" is no option']),
            ("an unknown option and no job", ["--version"], ['"--version"']),
            ("two jobs", [good, "b.json"], ['"b.json"']),
            ("no jobs", [good, "--jobs", "0"], ["--jobs"]),
            ("jobs below none", [good, "--jobs", "-2"], ["--jobs"]),
            ("jobs that are no number", [good, "--jobs", "two"], ["--jobs"]),
            ("an empty name", [good, "--charts", ""], ["--charts"]),
            ("no job", [""], ["job"]),
        ]
        contents = lambda: {path: path.read_bytes() for path in self.folder.iterdir()}
        before = contents()
        for reason, arguments, parts in rows:
            with self.subTest(reason):
                run = self.run_tool("run", *arguments)
                self.assertEqual(run.returncode, 2, run.stderr)
                self.assert_one_line(run, *parts)
                self.assertEqual(run.stdout, b"")
        self.assertEqual(contents(), before)
        for arguments in (["rum", good], ["--version"], ["-q"], ["-q", "run", good]):
            run = self.run_tool(*arguments)
            self.assertEqual(run.returncode, 2, run.stderr)
            self.assert_one_line(run, f'"{arguments[0]}"', "subcommand", "run")

    def test_a_reader_that_is_gone_is_told_in_one_line(self):
        read_end, write_end = os.pipe()
        os.close(read_end)
        run = self.run_tool("run", EXAMPLES[0], "--format", "json", stdout=write_end)
        os.close(write_end)
        self.assertEqual(run.returncode, 2)
        self.assert_one_line(run)


class Options(Case):
    def test_the_output_goes_where_the_format_says(self):
        self.write_job([document()])
        for output_format in ("html", "xlsx"):
            run = self.run_tool("run", "job.json", "--format", output_format)
            self.assertEqual((run.returncode, run.stdout), (0, b""), run.stderr)
            self.assertTrue((self.folder / f"job.{output_format}").exists())
        for output_format in ("text", "json"):
            run = self.run_tool("run", "job.json", "--format", output_format)
            self.assertEqual(run.returncode, 0)
            self.assertIn(b"Hypothesis Test Summary", run.stdout)

    def test_the_language_is_that_of_the_option_or_the_environment(self):
        path = self.write_job([document()])
        english, german = b"Hypothesis Test Summary", "Hypothesentest".encode()
        rows = [
            ({}, [], english),
            ({"LANG": "de_DE.UTF-8"}, [], german),
            ({"LANG": "fr_FR.UTF-8"}, [], english),
            ({"LANG": "de_DE.UTF-8", "LC_ALL": "C"}, [], english),
            ({"LANG": "de_DE.UTF-8"}, ["--language", "en"], english),
            ({}, ["--language", "de"], german),
        ]
        for environment, arguments, words in rows:
            with self.subTest(environment=environment, arguments=arguments):
                run = self.run_tool("run", path, "--format", "text", *arguments, environment=environment)
                self.assertIn(words, run.stdout)

    def test_a_text_table_lies_over_the_installed_one(self):
        path = self.write_job([document()])
        self.write("mine.json", {"pivot": {"Decision": "Verdict"}})
        run = self.run_tool("run", path, "--format", "text", "--texts", "mine.json")
        self.assertIn(b"Verdict", run.stdout)
        self.assertIn(b"Hypothesis Test Summary", run.stdout)

    def test_the_view_switch_leaves_tables_and_the_network_of_pairs(self):
        chicks = next(path for path in EXAMPLES if path.parent.name == "chick-feed")
        others = ("02", "2 ", "22", "0", "")
        rows = [("2", {"GLMMPairwiseContrasts.viztemplate"}), *((value, None) for value in others)]
        for value, templates in rows:
            with self.subTest(value):
                output = self.run_json(chicks, environment={"DEBUG_MODEL_VIEWER": value})["output"]
                drawn = {chart["template"] for chart in nodes(output, "chart")}
                self.assertEqual(drawn == templates, templates is not None, drawn)
                self.assertGreater(len(list(nodes(output, "table"))), 10)

    def test_patterns_reach_the_template(self):
        ratings = next(path for path in EXAMPLES if path.parent.name == "department-ratings")
        for arguments, mark in ((["--patterns"], "<pattern"), ([], "<color")):
            output = self.run_json(ratings, *arguments)["output"]
            texts = [c["text"] for c in nodes(output, "chart") if "McNemar" in c["text"]]
            self.assertTrue(texts)
            self.assertTrue(all(mark in text for text in texts))

    def test_each_chart_is_written_as_a_document_of_its_own(self):
        chicks = next(path for path in EXAMPLES if path.parent.name == "chick-feed")
        output = self.run_json(chicks, "--charts", "charts")["output"]
        files = sorted((self.folder / "charts").glob("*.vl.json"))
        self.assertEqual(len(files), len(list(nodes(output, "chart"))))


if __name__ == "__main__":
    unittest.main()
