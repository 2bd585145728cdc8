#!/usr/bin/env python3
"""Tests of scripts/run-pages: what it passes over, what it tells, what --update writes."""
import importlib.machinery
import importlib.util
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
RUN_PAGES = ROOT / "scripts" / "run-pages"
TOOL = sys.argv.pop(1)


class RunPages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.page = pathlib.Path(folder.name, "page.md")

    def run_page(self, text, *options):
        """The exit status and what was printed, with the page under its name alone."""
        self.page.write_text(text, encoding="utf-8")
        done = subprocess.run([sys.executable, "-B", RUN_PAGES, *options, TOOL, self.page],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        return done.returncode, done.stdout.replace(str(self.page), "page.md")

    def test_passes_what_is_printed(self):
        page = ("```text file=a/b.txt\nbye\n```\n"
                "```console\n$ cat a/b.txt\nbye\n$ echo one \\\n    two >&2; exit 3\none two\n[status 3]\n```\n")
        self.assertEqual(self.run_page(page), (0, "2 passed, 0 failed\n"))

    def test_passes_other_times_and_lines_left_out(self):
        page = '```console\n$ printf "1\\n2\\n3\\ntook  12.5 s\\n"\n1\n...\ntook 0.1 s\n```\n'
        self.assertEqual(self.run_page(page.replace("took 0", "took  0")), (0, "1 passed, 0 failed\n"))

    def test_tells_what_is_not_printed(self):
        page = "```console\n$ echo new\nold\n$ echo same\nsame\n```\n"
        self.assertEqual(self.run_page(page),
                         (1, "page.md: $ echo new\n-- the page shows\nold\n-- it prints\nnew\n1 passed, 1 failed\n"))

    def test_tells_a_line_too_many(self):
        page = "```console\n$ echo new\nnew\nnewer\n```\n"
        self.assertEqual(self.run_page(page),
                         (1, "page.md: $ echo new\n-- the page shows\nnew\nnewer\n-- it prints\nnew\n"
                             "0 passed, 1 failed\n"))

    def test_tells_a_status(self):
        page = "```console\n$ false\n```\n"
        self.assertEqual(self.run_page(page),
                         (1, "page.md: $ false\n-- the page shows\n\n-- it prints\n[status 1]\n0 passed, 1 failed\n"))

    def test_tells_a_plain_command_that_fails(self):
        page = "<!-- setup\ntouch b.xml\n-->\n```sh\nhdlbuild new b.xml\nhdlbuild help show\n```\n"
        self.assertEqual(self.run_page(page),
                         (1, "page.md: hdlbuild new b.xml\nhdlbuild: error: b.xml: the file exists already\n[status 3]\n"
                             "1 passed, 1 failed\n"))

    def test_tells_a_setup_that_fails(self):
        self.assertEqual(self.run_page("<!-- setup\nfalse\n-->\n"), (1, "page.md: the setup fails\n[status 1]\n"))

    def test_tells_a_page_without_commands(self):
        self.assertEqual(self.run_page("text\n"), (1, "page.md: no command\n0 passed, 1 failed\n"))

    def test_updates_what_differs(self):
        page = "a\n```console\n$ echo new\nold\n$ seq 3\n1\n...\n```\nb\n"
        self.assertEqual(self.run_page(page, "--update")[0], 1)
        self.assertEqual(self.page.read_text(encoding="utf-8"),
                         "a\n```console\n$ echo new\nnew\n$ seq 3\n1\n...\n```\nb\n")

    def test_notices_each_changed_line_of_a_page(self):
        loader = importlib.machinery.SourceFileLoader("run_pages", str(RUN_PAGES))
        run_pages = importlib.util.module_from_spec(importlib.util.spec_from_loader("run_pages", loader))
        loader.exec_module(run_pages)
        passing, changed = [], []

        class Page(run_pages.Page):
            def compare(self, command, lines):
                printed = self.call(command.replace("\\\n", ""))
                passing.append(run_pages.matches(lines, printed))
                for at, line in enumerate(lines):
                    # Beside a gap nothing is missed: it stands for any lines.
                    others = [] if "..." in lines[max(at - 1, 0):at + 2] else [[], ["x", line]]
                    for other in [[line + "x"], *others] if line != "..." else []:
                        changed.append((command, at, run_pages.matches(lines[:at] + other + lines[at + 1:], printed)))
                return ""

        Page(os.path.abspath(TOOL), ROOT / "docs" / "commands.md").run()
        self.assertEqual(set(passing), {True})
        self.assertGreater(len(changed), 300)
        self.assertEqual([(command, at) for command, at, passes in changed if passes], [])


if __name__ == "__main__":
    unittest.main()
