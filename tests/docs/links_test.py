#!/usr/bin/env python3
"""Links of the pages that packages hold lead to what packages hold: the sources around them are not there.

  links_test.py BUILD-FOLDER
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

BUILD = sys.argv.pop(1)


def links_of(page):
    """The links of a page of Markdown to files, without anchors."""
    text = re.sub(r"^```.*?^```$", "", page.read_text(encoding="utf-8"), flags=re.MULTILINE | re.DOTALL)
    links = re.findall(r"\]\(([^)\s]+)\)", re.sub(r"`[^`\n]*`", "", text))
    return [name for link in links if (name := link.partition("#")[0]) and not re.match(r"(https?|mailto):", link)]


class Links(unittest.TestCase):
    def test_lead_to_what_is_installed(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["cmake", "--install", BUILD, "--component", "documentation", "--prefix", folder],
                           check=True, stdout=subprocess.DEVNULL)
            # Installed pages of the site have links of their own, which scripts/check-links follows.
            pages = sorted(pathlib.Path(folder).rglob("*.md"))
            links = [(page, link) for page in pages for link in links_of(page)]
            self.assertGreater(len(links), 30)
            self.assertEqual([f"{page.name}: {link}" for page, link in links
                              if not os.path.exists(os.path.join(page.parent, link))], [])


if __name__ == "__main__":
    unittest.main()
