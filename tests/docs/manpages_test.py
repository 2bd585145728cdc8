#!/usr/bin/env python3
"""The manual pages as man shows them: without a warning of man or of groff.

  manpages_test.py TOOL
"""
import gzip
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

MAN_PAGES = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "man-pages"
TOOL = sys.argv.pop(1)


def complaints_of(page):
    """What man tells about a page that it formats as on a terminal of 80 columns; no words for a clean one."""
    environment = {**os.environ, "LC_ALL": "C.UTF-8", "MANROFFSEQ": "", "MANWIDTH": "80"}
    done = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page], env=environment, text=True,
                          stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
    return done.stderr + (f"status {done.returncode}" if done.returncode else "")


class ManPages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def test_have_no_warnings(self):
        subprocess.run([sys.executable, "-B", MAN_PAGES, TOOL, self.folder / "man"], check=True)
        pages = sorted((self.folder / "man").rglob("*.gz"))
        self.assertGreater(len(pages), 25)
        self.assertEqual({page.name: complaints for page in pages if (complaints := complaints_of(page))}, {})

    def test_have_no_markdown_in_headings(self):
        subprocess.run([sys.executable, "-B", MAN_PAGES, TOOL, self.folder / "man"], check=True)
        text = gzip.decompress((self.folder / "man/man5/hdlbuild-formats.5.gz").read_bytes()).decode("utf-8")
        headings = [line for line in text.splitlines() if line.startswith((".SH", ".SS"))]
        self.assertIn(".SS Attributes of HdlBuildFile", headings)
        self.assertEqual([heading for heading in headings if re.search(r"[`*\]]", heading)], [])

    def test_are_not_passed_over(self):
        page = self.folder / "a.1"
        page.write_text('.TH A 1\n.SH NAME\na \\- one\n.XX\n.SH OPTIONS\n\\fBno end\n', encoding="utf-8")
        self.assertIn("XX", complaints_of(page))


if __name__ == "__main__":
    unittest.main()
