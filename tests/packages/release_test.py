#!/usr/bin/env python3
"""Tests of scripts/release in a small project of its own, whose other scripts only tell that they were called."""
import hashlib
import os
import pathlib
import shutil
import subprocess
import sys
import tarfile
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]

CALL = "#!/bin/sh\necho \"$(basename $0) $*\" >>build/calls\n"
# What each script of the small project does besides telling of its call.
SCRIPTS = {
    "test": "mkdir -p build/release/bin\n",
    "docs": "mkdir -p build/docs/html; echo manual >build/docs/html/index.html\n",
    "package": "mkdir -p build/packages; echo \"$SOURCE_DATE_EPOCH\" >build/packages/$([ $# = 0 ] && echo a.deb || echo b.zip)\n",
    "check-reproducible": "",
    "sbom": "echo bill of $1\n",
}
TABLES = ["linux.txt", "windows.txt", "slots.txt", "headers.txt"]
DAY = 1700000000
ALL_CALLS = ["test ", "docs ", "package ", "package --python", "package --windows", "check-reproducible ", "sbom build/package",
             "sbom build/windows"]
IS_THE_LAST = "1.2.3 with libhdlbuildfile.so.1 is the interface of 1.2.3 with libhdlbuildfile.so.1\n"


class Release(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.project = pathlib.Path(folder.name, "project")
        self.write("CMakeLists.txt", "project(hdlbuildfile VERSION 1.2.3 DESCRIPTION)\nset(HDLBUILDFILE_ABI 1)\n")
        self.write("vcpkg.json", '{"version-semver": "1.2.3"}\n')
        self.write("CHANGELOG.md", "# Changelog\n\n## [Unreleased]\n\n## [1.2.3] - 2026-01-31\n")
        self.write(".gitignore", "/build/\n")
        for table in TABLES:
            self.write(f"abi/{table}", f"{table}\n")
            self.write(f"abi/released/1.2.3/{table}", f"{table}\n")
        self.write("abi/released/1.2.3/soname.txt", "libhdlbuildfile.so.1\n")
        for name, text in SCRIPTS.items():
            self.write(f"scripts/{name}", CALL + text)
        for name in ("release", "abi-check"):
            shutil.copy(ROOT / "scripts" / name, self.project / "scripts" / name)
        (self.project / "build").mkdir()
        for path in (self.project / "scripts").iterdir():
            path.chmod(0o755)
        self.git("init", "--quiet")
        self.commit()

    def write(self, name, text):
        path = self.project / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def git(self, *arguments):
        environment = dict(os.environ, GIT_AUTHOR_DATE=f"{DAY} +0000", GIT_COMMITTER_DATE=f"{DAY} +0000")
        return subprocess.run(["git", "-c", "user.name=you", "-c", "user.email=you@example.invalid", *arguments],
                              cwd=self.project, env=environment, stdout=subprocess.PIPE, text=True, check=True).stdout

    def commit(self):
        self.git("add", "--all")
        self.git("commit", "--quiet", "--message", "All")

    def release(self, *arguments):
        """The exit status, and what was printed."""
        done = subprocess.run(["scripts/release", *arguments], cwd=self.project, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, check=False)
        return done.returncode, done.stdout

    def calls(self):
        path = self.project / "build/calls"
        return path.read_text(encoding="utf-8").splitlines() if path.exists() else []

    def released(self):
        """The files of the release by name."""
        paths = sorted((self.project / "build/release").glob("*"))
        return {path.name: path.read_bytes() for path in paths if path.is_file()}

    def test_makes_everything_and_sums(self):
        status, printed = self.release("1.2.3")
        self.assertEqual((status, self.calls()), (0, ALL_CALLS))
        files = self.released()
        sums = files.pop("SHA256SUMS").decode()
        self.assertEqual(list(files), ["a.deb", "b.zip", "hdlbuildfile-1.2.3-linux.cdx.json",
                                       "hdlbuildfile-1.2.3-manual.tar.gz", "hdlbuildfile-1.2.3-windows.cdx.json",
                                       "hdlbuildfile-1.2.3.tar.gz"])
        self.assertEqual(files["a.deb"], f"{DAY}\n".encode())
        self.assertEqual(files["hdlbuildfile-1.2.3-linux.cdx.json"], b"bill of build/package\n")
        self.assertEqual(files["hdlbuildfile-1.2.3-windows.cdx.json"], b"bill of build/windows\n")
        self.assertEqual(sums, "".join(f"{hashlib.sha256(data).hexdigest()}  {name}\n" for name, data in files.items()))
        self.assertEqual(printed, IS_THE_LAST + sums)
        self.assertEqual(self.git("status", "--porcelain"), "")

    def test_packs_sources_and_manual(self):
        self.release("1.2.3")
        folder = self.project / "build/release"
        with tarfile.open(folder / "hdlbuildfile-1.2.3-manual.tar.gz") as archive:
            self.assertEqual([(member.name, member.mtime, member.uid) for member in archive.getmembers()],
                             [(f"hdlbuildfile-1.2.3-manual{name}", DAY, 0) for name in ("", "/html", "/html/index.html")])
        with tarfile.open(folder / "hdlbuildfile-1.2.3.tar.gz") as archive:
            files = [member.name.removeprefix("hdlbuildfile-1.2.3/") for member in archive.getmembers() if member.isfile()]
        self.assertEqual(sorted(files), sorted(self.git("ls-files").splitlines()))

    def test_makes_the_same_twice(self):
        self.release("1.2.3")
        first = self.released()
        self.write("build/release/from-an-earlier-run", "")
        self.release("1.2.3")
        self.assertEqual(self.released(), first)

    def test_leaves_out_tests_for_a_trial(self):
        status, _ = self.release("--no-tests", "1.2.3")
        self.assertEqual((status, self.calls()),
                         (0, [call for call in ALL_CALLS if call not in ("test ", "check-reproducible ")]))

    def test_ends_with_the_first_script_that_fails(self):
        for script, calls in (("test", 1), ("docs", 2), ("package", 3), ("check-reproducible", 6), ("sbom", 7)):
            with self.subTest(script=script):
                self.write(f"scripts/{script}", CALL + "exit 7\n")
                self.commit()
                (self.project / "build/calls").unlink(missing_ok=True)
                self.assertEqual(self.release("1.2.3"), (7, IS_THE_LAST))
                self.assertEqual((self.calls(), "SHA256SUMS" in self.released()), (ALL_CALLS[:calls], False))
                self.write(f"scripts/{script}", CALL + SCRIPTS[script])
                self.commit()

    def test_tells_what_is_not_prepared(self):
        rows = [
            ("CMakeLists.txt", "1.2.3", "1.2.4", "CMakeLists.txt tells another version"),
            ("vcpkg.json", "1.2.3", "1.2.4", "vcpkg.json tells another version"),
            ("CHANGELOG.md", "1.2.3", "1.2.4", "CHANGELOG.md has no section of 1.2.3"),
            ("CHANGELOG.md", " - 2026-01-31", "", "CHANGELOG.md has no section of 1.2.3"),
            ("abi/slots.txt", "slots", "other", "abi/released/1.2.3/slots.txt is not abi/slots.txt"),
        ]
        for name, before, after, complaint in rows:
            with self.subTest(name=name, after=after):
                text = (self.project / name).read_text(encoding="utf-8")
                self.write(name, text.replace(before, after))
                self.commit()
                self.assertEqual(self.release("1.2.3"), (1, f"release: {complaint}\n"))
                self.write(name, text)
                self.commit()
        self.assertEqual(self.calls(), [])

    def test_needs_the_tables_of_the_release(self):
        shutil.move(self.project / "abi/released/1.2.3", self.project / "abi/released/1.2.2")
        self.commit()
        self.assertEqual(self.release("1.2.3"),
                         (1, "release: abi/released has no tables of 1.2.3: scripts/abi-check --store\n"))

    def test_needs_a_tree_without_changes(self):
        for name in ("CHANGELOG.md", "new.txt"):
            self.write(name, "changed\n")
            self.assertEqual(self.release("1.2.3"), (1, "release: the working tree has changes\n"))
            self.git("checkout", "--quiet", "CHANGELOG.md")
        self.assertEqual(self.calls(), [])

    def test_tells_when_a_script_changes_the_tree(self):
        self.write("scripts/package", CALL + "mkdir -p build/packages; touch build/packages/a.deb stray\n")
        self.commit()
        self.assertEqual(self.release("1.2.3"), (1, f"{IS_THE_LAST}release: the release has changed the working tree\n"))

    def test_takes_one_version(self):
        for arguments in ([], ["1.2.3", "1.2.4"], ["--no-tests"]):
            self.assertEqual(self.release(*arguments), (2, "usage: release [--no-tests] VERSION\n"))


if __name__ == "__main__":
    unittest.main()
