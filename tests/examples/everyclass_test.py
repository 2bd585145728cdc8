#!/usr/bin/env python3
"""Every exported class has an example that uses it, and every example a text of what it prints."""
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
from classexamples import FOLDER, classes_shown, example_by_class
from exportedclasses import scan_headers

# What an example has to include for the names that it uses.
HEADERS = {"iostream": r"std::c(out|err)\b", "fstream": r"std::[io]fstream\b", "hdlbuildfile.h": r"\b[TI][A-Z]\w+"}


class EveryClass(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.exported = {name.rpartition("::")[2] for name in scan_headers()}
        self.examples = {path.stem: path.read_text(encoding="utf-8") for path in sorted(FOLDER.glob("*.cpp"))}

    def test_has_an_example(self):
        self.assertEqual(sorted(self.exported - example_by_class().keys()), [])

    def test_examples_use_what_they_show(self):
        for name, text in self.examples.items():
            body = re.sub(r"//.*", "", text)
            self.assertNotEqual(classes_shown(text), [], name)
            for shown in classes_shown(text):
                self.assertIn(shown, self.exported, name)
                self.assertRegex(body, rf"\b{shown}\b", name)

    def test_examples_are_short_programs_that_print(self):
        for name, text in self.examples.items():
            self.assertLessEqual(text.count("\n"), 45, name)
            self.assertIn("\nint main() {\n", text, name)
            self.assertNotEqual((FOLDER / f"{name}.txt").read_text(encoding="utf-8"), "", name)
            included = re.findall(r"^#include <(.+)>$", text, re.MULTILINE)
            used = [header for header, names in HEADERS.items() if re.search(names, text)]
            self.assertEqual(sorted(included), sorted(used), name)

    def test_outputs_have_examples(self):
        self.assertEqual(sorted(path.stem for path in FOLDER.glob("*.txt")), sorted(self.examples))


if __name__ == "__main__":
    unittest.main()
