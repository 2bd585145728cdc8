#!/usr/bin/env python3
"""Tests of what makes the site: the filters of pages and headers, and the check of links."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"


class SiteTools(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_script(self, script, *files):
        """The exit status and what was printed."""
        done = subprocess.run([sys.executable, "-B", SCRIPTS / script, *files], stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, check=False)
        return done.returncode, done.stdout

    def write(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path

    def test_links_that_lead_somewhere_pass(self):
        self.write("a.html", '<a href="b/c.html#there">c</a><a href="#top">t</a><h1 id="top"></h1><img src="p.png">'
                             '<a href="https://example.org/x#y">out</a>')
        self.write("b/c.html", '<a name="there" href="../a.html">a</a>')
        self.write("tree.js", 'var tree = [["A", "a.html#top"]];')
        self.write("p.png", "")
        self.assertEqual(self.run_script("check-links", self.folder), (0, "1 other sites\n5 links, 0 broken\n"))
        self.assertEqual(self.run_script("check-links", "--external", self.folder),
                         (0, "https://example.org/x#y\n1 other sites\n5 links, 0 broken\n"))

    def test_links_that_lead_nowhere_are_told(self):
        self.write("a.html", '<a href="b.html">b</a><a href="a.html#no">n</a><img src="no.png"><a href="../x">x</a>')
        self.write("tree.js", 'var tree = [["A", "c.html"]];')
        self.assertEqual(self.run_script("check-links", self.folder),
                         (1, "a.html: ../x: no such file\na.html: a.html#no: no such anchor\na.html: b.html: no such file\n"
                             "a.html: no.png: no such file\ntree.js: c.html: no such file\n"
                             "0 other sites\n5 links, 5 broken\n"))

    def test_a_folder_without_pages_is_no_site(self):
        self.assertEqual(self.run_script("check-links", self.folder), (1, f"{self.folder}: no page\n"))

    def test_headers_get_comments_and_numbers(self):
        header = self.write("a.h", "#pragma once\n/// What \\t is.\nint First();\nint Second(int a,\n           int b);\n\n"
                                   "int Third();\n/// Kinds.\nenum TKind : int { KIND_A = 4, KIND_B };\n")
        self.assertEqual(self.run_script("site/header-filter", header),
                         (0, "/** @file */ #pragma once\n/// What \\\\t is.\nint First();\n/// What \\\\t is.\n"
                             "int Second(int a,\n           int b);\n\nint Third();\n/// Kinds.\nenum TKind : int {\n"
                             "KIND_A = 4, ///< 4\nKIND_B, ///< 5\n};\n"))


if __name__ == "__main__":
    unittest.main()
