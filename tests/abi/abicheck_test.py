#!/usr/bin/env python3
"""Tests of scripts/abi-check: which change of the tables needs which version and SONAME."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

ABI_CHECK = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "abi-check"

RELEASED = {
    "linux.txt": "TA::Run()\nTB::Run()\n",
    "windows.txt": "TA::Run()\nTB::Run()\n",
    "headers.txt": "a.h\nb.h\n",
    "slots.txt": "TA\n    0 destructor\n    1 destructor\n    2 TA::Run\n\nTB\n    0 TB::Run\n  table 1\n    0 TB::Stop\n",
    "soname.txt": "libhdlbuildfile.so.1\n",
}

# What is replaced in which table.
SAME = []
EXPORT_ADDED = [("linux.txt", "TB::Run()\n", "TB::Run()\nTB::Stop()\n"), ("windows.txt", "TA", "TA::New()\nTA")]
EXPORT_GONE = [("linux.txt", "TA::Run()\n", "")]
EXPORT_CHANGED = [("windows.txt", "TB::Run()", "TB::Run(int)")]
HEADER_ADDED = [("headers.txt", "b.h\n", "b.h\nc.h\n")]
HEADER_GONE = [("headers.txt", "b.h\n", "")]
SLOTS_SWAPPED = [("slots.txt", "1 destructor\n    2 TA::Run", "1 TA::Run\n    2 destructor")]
SLOT_AT_END = [("slots.txt", "2 TA::Run\n", "2 TA::Run\n    3 TA::Stop\n")]
SLOT_IN_MIDDLE = [("slots.txt", "2 TA::Run\n", "2 TA::Stop\n    3 TA::Run\n")]
SLOT_GONE = [("slots.txt", "    2 TA::Run\n", "")]
TABLE_CHANGED = [("slots.txt", "0 TB::Stop\n", "0 pure\n")]
CLASS_ADDED = [("slots.txt", "TB\n", "TAB\n    0 TAB::Run\n\nTB\n")]
CLASS_GONE = [("slots.txt", "\n\nTB\n    0 TB::Run\n  table 1\n    0 TB::Stop", "")]

ADDED_EXPORTS = "added: export on Linux: TB::Stop()\nadded: export on Windows: TA::New()\n"
OF_RELEASE = "the interface of 1.2.3 with libhdlbuildfile.so.1"

# Change, version, number in the SONAME, status, what is printed.
ROWS = [
    (SAME, "1.2.3", 1, 0, f"1.2.3 with libhdlbuildfile.so.1 is {OF_RELEASE}\n"),
    (SAME, "1.2.4", 1, 0, f"1.2.4 with libhdlbuildfile.so.1 is {OF_RELEASE}\n"),
    (SAME, "2.0.0", 2, 0, f"2.0.0 with libhdlbuildfile.so.2 is {OF_RELEASE}\n"),
    (SAME, "1.2.2", 1, 1, f"1.2.2 with libhdlbuildfile.so.1 is {OF_RELEASE}: needs a version from 1.2.3 on\n"),
    (SAME, "1.2.3", 0, 1, f"1.2.3 with libhdlbuildfile.so.0 is {OF_RELEASE}: needs SONAME libhdlbuildfile.so.1\n"),
    (EXPORT_ADDED, "1.2.3", 1, 1,
     f"{ADDED_EXPORTS}1.2.3 with libhdlbuildfile.so.1 adds to {OF_RELEASE}: needs version 1.3.0\n"),
    (EXPORT_ADDED, "1.2.4", 1, 1,
     f"{ADDED_EXPORTS}1.2.4 with libhdlbuildfile.so.1 adds to {OF_RELEASE}: needs version 1.3.0\n"),
    (EXPORT_ADDED, "1.3.0", 1, 0, f"{ADDED_EXPORTS}1.3.0 with libhdlbuildfile.so.1 adds to {OF_RELEASE}\n"),
    (EXPORT_ADDED, "1.10.0", 1, 0, f"{ADDED_EXPORTS}1.10.0 with libhdlbuildfile.so.1 adds to {OF_RELEASE}\n"),
    (EXPORT_ADDED, "2.0.0", 2, 0, f"{ADDED_EXPORTS}2.0.0 with libhdlbuildfile.so.2 adds to {OF_RELEASE}\n"),
    (EXPORT_GONE, "1.2.3", 1, 1,
     f"broken: export on Linux is gone: TA::Run()\n1.2.3 with libhdlbuildfile.so.1 breaks {OF_RELEASE}: "
     "needs version 1.3.0 and SONAME libhdlbuildfile.so.2\n"),
    (EXPORT_GONE, "1.3.0", 1, 1,
     f"broken: export on Linux is gone: TA::Run()\n1.3.0 with libhdlbuildfile.so.1 breaks {OF_RELEASE}: "
     "needs SONAME libhdlbuildfile.so.2\n"),
    (EXPORT_GONE, "1.2.4", 2, 1,
     f"broken: export on Linux is gone: TA::Run()\n1.2.4 with libhdlbuildfile.so.2 breaks {OF_RELEASE}: "
     "needs version 1.3.0\n"),
    (EXPORT_GONE, "1.3.0", 2, 0,
     f"broken: export on Linux is gone: TA::Run()\n1.3.0 with libhdlbuildfile.so.2 breaks {OF_RELEASE}\n"),
    (EXPORT_CHANGED, "1.3.0", 1, 1,
     "added: export on Windows: TB::Run(int)\nbroken: export on Windows is gone: TB::Run()\n"
     f"1.3.0 with libhdlbuildfile.so.1 breaks {OF_RELEASE}: needs SONAME libhdlbuildfile.so.2\n"),
    (HEADER_ADDED, "1.2.4", 1, 1,
     f"added: header: c.h\n1.2.4 with libhdlbuildfile.so.1 adds to {OF_RELEASE}: needs version 1.3.0\n"),
    (HEADER_GONE, "1.3.0", 1, 1,
     f"broken: header is gone: b.h\n1.3.0 with libhdlbuildfile.so.1 breaks {OF_RELEASE}: "
     "needs SONAME libhdlbuildfile.so.2\n"),
    (SLOTS_SWAPPED, "1.3.0", 1, 1,
     "broken: slots of TA: '1 TA::Run' where '1 destructor' was\n"
     f"1.3.0 with libhdlbuildfile.so.1 breaks {OF_RELEASE}: needs SONAME libhdlbuildfile.so.2\n"),
    (SLOT_AT_END, "1.3.0", 1, 1,
     "broken: slots of TA: added at the end: 3 TA::Stop\n"
     f"1.3.0 with libhdlbuildfile.so.1 breaks {OF_RELEASE}: needs SONAME libhdlbuildfile.so.2\n"),
    (SLOT_AT_END, "1.3.0", 2, 0,
     "broken: slots of TA: added at the end: 3 TA::Stop\n"
     f"1.3.0 with libhdlbuildfile.so.2 breaks {OF_RELEASE}\n"),
    (SLOT_IN_MIDDLE, "1.3.0", 1, 1,
     "broken: slots of TA: '2 TA::Stop' where '2 TA::Run' was\n"
     f"1.3.0 with libhdlbuildfile.so.1 breaks {OF_RELEASE}: needs SONAME libhdlbuildfile.so.2\n"),
    (SLOT_GONE, "1.3.0", 1, 1,
     "broken: slots of TA: gone at the end: 2 TA::Run\n"
     f"1.3.0 with libhdlbuildfile.so.1 breaks {OF_RELEASE}: needs SONAME libhdlbuildfile.so.2\n"),
    (TABLE_CHANGED, "1.3.0", 1, 1,
     "broken: slots of TB: '0 pure' where '0 TB::Stop' was\n"
     f"1.3.0 with libhdlbuildfile.so.1 breaks {OF_RELEASE}: needs SONAME libhdlbuildfile.so.2\n"),
    (CLASS_ADDED, "1.2.3", 1, 1,
     f"added: slots of TAB\n1.2.3 with libhdlbuildfile.so.1 adds to {OF_RELEASE}: needs version 1.3.0\n"),
    (CLASS_GONE, "1.3.0", 1, 1,
     f"broken: slots of TB are gone\n1.3.0 with libhdlbuildfile.so.1 breaks {OF_RELEASE}: "
     "needs SONAME libhdlbuildfile.so.2\n"),
]


class AbiCheck(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tables = pathlib.Path(folder.name)

    def write(self, folder, tables):
        folder.mkdir(parents=True, exist_ok=True)
        for name, text in tables.items():
            (folder / name).write_text(text, encoding="utf-8")

    def write_change(self, changes):
        tables = dict(RELEASED)
        for name, before, after in changes:
            self.assertEqual(tables[name].count(before), 1, (name, before))
            tables[name] = tables[name].replace(before, after)
        self.write(self.tables, tables)

    def run_check(self, *arguments):
        done = subprocess.run([sys.executable, "-B", ABI_CHECK, "--tables", self.tables, *arguments],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        return done.returncode, done.stdout.replace(str(self.tables), "abi")

    def test_says_what_a_change_needs(self):
        # Not the last one.
        self.write(self.tables / "released/0.9.0", {"soname.txt": "libhdlbuildfile.so.0\n"})
        self.write(self.tables / "released/1.2.3", RELEASED)
        for changes, version, abi, status, printed in ROWS:
            with self.subTest(changes=changes, version=version, abi=abi):
                self.write_change(changes)
                self.assertEqual(self.run_check("--version", version, "--abi", str(abi)), (status, printed))

    def test_needs_a_release(self):
        self.write_change(SAME)
        self.assertEqual(self.run_check(), (2, "abi-check: abi/released: no release\n"))

    def test_needs_every_table_of_the_release(self):
        self.write_change(SAME)
        self.write(self.tables / "released/1.2.3", {"soname.txt": "libhdlbuildfile.so.1\n"})
        self.assertEqual(self.run_check(), (2, "abi-check: abi/released/1.2.3/linux.txt: No such file or directory\n"))

    def test_stores_a_release_once(self):
        self.write_change(SAME)
        arguments = ("--store", "--version", "1.2.3", "--abi", "1")
        self.assertEqual(self.run_check(*arguments), (0, ""))
        stored = {path.name: path.read_text(encoding="utf-8") for path in (self.tables / "released/1.2.3").iterdir()}
        self.assertEqual(stored, RELEASED)
        self.assertEqual(self.run_check(*arguments), (2, "abi-check: abi/released/1.2.3: is released\n"))


if __name__ == "__main__":
    unittest.main()
