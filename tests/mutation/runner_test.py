"""Tests of the mutation runner: `python3 -m unittest` in this folder, or scripts/test --mutation."""
from pathlib import Path
import json
import shutil
import subprocess
import sys
import tempfile
import unittest
import unittest.mock

HERE = Path(__file__).resolve().parent
RUNNER = HERE.parent.parent / "scripts" / "mutation"
sys.path.insert(0, str(RUNNER))

import equivalents
import programs
import rewrite
import sample
import scan
from mutant import Mutant


def mutants_of(source, name="file.cpp"):
    with tempfile.TemporaryDirectory() as folder:
        (Path(folder) / name).write_text(source)
        found, errors = scan.scan(Path(folder), name, ["-x", "c++", "-std=c++20"])
        assert errors == [], errors
        return found


def plain_sources(source, name="file.cpp"):
    """What each mutant makes of the source."""
    return [rewrite.with_plain(source.encode(), mutant).decode() for mutant in mutants_of(source, name)]


def mutant(folder, text):
    return Mutant(file=f"src/{folder}/file.cpp", kind="delete statement", change=text, line=1,
                  last_line=1, start=0, end=1, text=text, plain=[], folder=folder)


class Scan(unittest.TestCase):
    def test_finds_each_change_of_a_statement(self):
        rows = [
            ("void f(int* a) { *a = 7; }",
             ["void f(int* a) { {} }", "void f(int* a) { *a = (7 + 1); }"]),
            ("bool f(int a, bool b) { return a < 7u && b; }",
             ["bool f(int a, bool b) { return !static_cast<bool>(a < 7u && b); }",
              "bool f(int a, bool b) { return true && b; }",
              "bool f(int a, bool b) { return a < 7u && true; }",
              "bool f(int a, bool b) { return a <= 7u && b; }",
              "bool f(int a, bool b) { return a < (7u + 1) && b; }"]),
            ("int f(bool a, bool b) { if (a || b) return 1; return 2; }",
             ["int f(bool a, bool b) { if (!static_cast<bool>(a || b)) return 1; return 2; }",
              "int f(bool a, bool b) { if (false || b) return 1; return 2; }",
              "int f(bool a, bool b) { if (a || false) return 1; return 2; }",
              "int f(bool a, bool b) { if (a || b) return (1 + 1); return 2; }",
              "int f(bool a, bool b) { if (a || b) return 1; return (2 + 1); }"]),
            ("void f(bool a) { while (a) break; }",
             ["void f(bool a) { while (!static_cast<bool>(a)) break; }",
              "void f(bool a) { while (a) {} }"]),
            ("void f(int a) { for (; a; --a) continue; }",
             ["void f(int a) { for (; !static_cast<bool>(a); --a) continue; }",
              "void f(int a) { for (; a; --a) {} }"]),
            ("void f(int a) { do ++a; while (a); }",
             ["void f(int a) { do ++a; while (!static_cast<bool>(a)); }",
              "void f(int a) { do {} while (a); }"]),
            ("char f(bool a) { return a ? 'x' : 'y'; }",
             ["char f(bool a) { return !static_cast<bool>(a) ? 'x' : 'y'; }",
              "char f(bool a) { return a ? static_cast<char>('x' + 1) : 'y'; }",
              "char f(bool a) { return a ? 'x' : static_cast<char>('y' + 1); }"]),
            ("bool f() { return true; }", ["bool f() { return (!true); }"]),
            ("const char* f() { return \"a\" \"b\"; }",
             ["const char* f() { return \"a\" \"b~\"; }"]),
            ("enum E { A, B }; E f() { return A; }",
             ["enum E { A, B }; E f() { return static_cast<decltype(A)>(A + 1); }"]),
            ("constexpr int k[] = {1, 2};",
             ["constexpr int k[] = { 2};", "constexpr int k[] = {1};",
              "constexpr int k[] = {(1 + 1), 2};", "constexpr int k[] = {1, (2 + 1)};"]),
        ]
        for source, expected in rows:
            with self.subTest(source):
                self.assertEqual(plain_sources(source), expected)

    def test_leaves_alone_what_no_run_can_show(self):
        for source in ["static_assert(1 < 2);", "enum E { A = 1 };", "struct T { char text[7]; };",
                       "#define ONE 1\nint f() { return ONE; }",
                       "template <int N> int f(int a) { if constexpr (N) return a; return a; }"]:
            with self.subTest(source):
                self.assertEqual(plain_sources(source), [])

    def test_switches_what_need_not_be_constant(self):
        rows = [
            ("int f() { return 1; }", True),
            ("auto f = [] { return 1; };", True),
            ("struct T { int a = 1; };", True),
            ("int f(int a = 1);", True),
            ("constexpr int k = 1;", False),
            ("int f(int a) { switch (a) { case 1: return a; } return a; }", False),
            ("constexpr int f() { return 1; }", False),
            ("constexpr void f(int a) { switch (a) { default: break; } }", False),
            ("enum E { A, B }; constexpr E k = B;", False),
        ]
        for source, is_switched in rows:
            with self.subTest(source):
                self.assertEqual([found.switch is not None for found in mutants_of(source)],
                                 [is_switched])

    def test_switches_the_constants_of_functions_that_headers_let_the_compiler_evaluate(self):
        source = "#pragma once\nconstexpr int f() { return 1; }\n"
        [found] = mutants_of(source, "file.h")
        self.assertEqual(
            rewrite.with_switches(source.encode(), [found]).decode(),
            "#include <mutation_switch.h>\n#pragma once\nconstexpr int f() { return "
            f"(1 + mutation::OnAtRunTime({found.number}ul)); }}\n")

    def test_tells_apart_what_reads_the_same(self):
        found = mutants_of("int f() {\n    return 1 +\n        1;\n}\nint g() {\n    return 1 + 2;\n}\n")
        self.assertEqual([(each.change, each.text, each.occurrence) for each in found],
                         [("1 + 1", "return 1 +", 0), ("1 + 1", "1;", 0),
                          ("1 + 1", "return 1 + 2;", 0), ("2 + 1", "return 1 + 2;", 0)])
        found = mutants_of("int f() { return 1 + 1; }\n")
        self.assertEqual([each.occurrence for each in found], [0, 1])


class Rewrite(unittest.TestCase):
    def test_puts_nested_switches_into_one_source(self):
        source = "void f(bool a, int b) {\n    if (a && b < 2) f(true, b);\n}\n"
        found = mutants_of(source)
        first = found[0].number
        text = rewrite.with_switches(source.encode(), found).decode()
        for place in range(len(found)):
            text = text.replace(f"mutation::On({first + place}ul)", f"M{place}")
        self.assertEqual(
            [each.kind for each in found],
            ["negate condition", "delete statement", "drop operand", "drop operand",
             "move boundary", "change number", "change boolean"])
        self.assertEqual(
            text,
            "#include <mutation_switch.h>\n"
            "void f(bool a, int b) {\n"
            "    if ((M0 != static_cast<bool>((M2 || static_cast<bool>(a)) && "
            "(M3 || static_cast<bool>(mutation::Less(M4, b , (2 + M5))))))) "
            "{ if (!M1) { f((M6 != true), b); } }\n"
            "}\n")


class Sample(unittest.TestCase):
    def test_takes_of_every_folder_by_the_root_of_its_size(self):
        self.assertEqual(sample.shares({"a": 100, "b": 25, "c": 0}, 15), {"a": 10, "b": 5, "c": 0})
        self.assertEqual(sample.shares({"a": 100, "b": 1}, 50), {"a": 49, "b": 1})
        self.assertEqual(sample.shares({"a": 3, "b": 1}, 50), {"a": 3, "b": 1})

    def test_draws_the_same_mutants_whatever_another_folder_holds(self):
        own = [mutant("a", str(number)) for number in range(100)]
        chosen = sample.choose(own, 10, "1")
        others = [mutant("b", str(number)) for number in range(100)]
        both = sample.choose(own + others, 20, "1")
        self.assertEqual(len(chosen), 10)
        self.assertEqual([each for each in both if each.folder == "a"], chosen)
        self.assertNotEqual(sample.choose(own, 10, "2"), chosen)


class Equivalents(unittest.TestCase):
    def read(self, text):
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "list.txt"
            path.write_text(text)
            return equivalents.read(path)

    def test_covers_by_text_and_not_by_line(self):
        entries = self.read("file: src/a/file.cpp\nkind: delete ...\nchange: x...;\nline: x.y();\n"
                            "reason: No effect.\n")
        held = mutant("a", "x.y();")
        held.line = 17
        self.assertEqual(equivalents.reason_for(held, entries), "No effect.")
        self.assertEqual(equivalents.reason_for(mutant("b", "x.y();"), entries), None)
        self.assertEqual(equivalents.reason_for(mutant("a", "x.y(); "), entries), None)
        self.assertEqual(equivalents.without_mutant(entries, [held]), [])
        self.assertEqual(equivalents.without_mutant(entries, [mutant("b", "x.y();")]), entries)

    def test_refuses_entries_that_are_not_complete(self):
        rows = [
            ("file: a\nkind: b\nchange: c\nline: d\n", "the entry has no reason"),
            ("file: a\nfile: b\n", "not the next line of an entry: file: b"),
            ("file: a\nwhy: b\n", "not the next line of an entry: why: b"),
            ("file: a\nreason:\n", "not the next line of an entry: reason:"),
        ]
        for text, complaint in rows:
            with self.subTest(text), self.assertRaises(ValueError) as raised:
                self.read(text)
            self.assertEqual(str(raised.exception).split(": ", 1)[1], complaint)


class Programs(unittest.TestCase):
    def test_names_the_test_that_failed_or_ended(self):
        rows = [
            ("[ RUN      ] A.B\n[  FAILED  ] A.B (0 ms)\n[  FAILED  ] 1 test", 1, "A.B"),
            ("[ RUN      ] A.B\n[       OK ] A.B\n[ RUN      ] A.C\n", -11, "A.C (SIGSEGV)"),
            ("cannot begin\n", 127, "exit status 127"),
        ]
        for output, status, expected in rows:
            with self.subTest(output):
                self.assertEqual(programs.culprit(output, status), expected)


    def test_keeps_apart_what_takes_most_of_the_time(self):
        times = {"A.Quick": 90, "A.Slow": 101, "A.Slower": 400, "B.Quick": 9}
        output = "".join(f"[       OK ] {name} ({time} ms)\n" for name, time in times.items())
        output += "[       OK ] Not.ATest (x ms)\n[----------] 4 tests from A (600 ms total)\n"
        self.assertEqual(programs.slow_tests(output), (["A.Quick", "A.Slow", "A.Slower"], 591 / 600))
        self.assertEqual(programs.slow_tests(output.replace("(400 ms)", "(200 ms)")), ([], 0))
        self.assertEqual(programs.slow_tests(output.replace("A.Quick (90", "A.Quick (50")),
                         (["A.Slow", "A.Slower"], 501 / 560))

    def test_ends_only_what_no_longer_uses_the_processor(self):
        rows = [("exit 3", 3), ("sleep 60", None),
                ("for i in 1 2 3 4; do sleep 1; seq 3000000 >/dev/null; done; exit 4", 4)]
        for command, expected in rows:
            with self.subTest(command), unittest.mock.patch.object(programs, "PATIENCE", 3):
                process = subprocess.Popen(["bash", "-c", command], start_new_session=True)
                self.assertEqual(programs.wait(process), expected)
                self.assertEqual(subprocess.run(["pgrep", "-g", str(process.pid)],
                                                stdout=subprocess.PIPE).stdout, b"")


class Run(unittest.TestCase):
    """The whole runner over the project in the folder `sample`."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.project = Path(folder.name) / "sample"
        shutil.copytree(HERE / "sample", self.project, ignore=shutil.ignore_patterns("build"))

    def mutate(self, *arguments):
        return subprocess.run(
            [sys.executable, str(RUNNER / "main.py"), "--project",
             str(self.project / "mutation.json"), *arguments],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)

    def test_finds_what_no_test_notices(self):
        found = self.project / "found.json"
        done = self.mutate("--json", str(found))
        self.assertEqual((done.returncode, done.stdout), (1, (HERE / "sample_run.txt").read_text()))
        # A test for the three survivors of one line, and those alone again.
        with open(self.project / "tests/display/display_test.cpp", "a") as stream:
            stream.write("TEST(Display, IsNeverFullAtNothing) {\n"
                         "    EXPECT_EQ(TextOf(TCounter(0), 0), \"0\");\n"
                         "}\n")
        done = self.mutate("--again", str(found), "--json", str(found))
        self.assertEqual(done.returncode, 1)
        self.assertEqual(
            [(row["change"], row["outcome"]) for row in json.loads(found.read_text())],
            [("&& limit > 0", "caught"), ("limit > 0 with >=", "caught"),
             ("1 + 1", "survived"), ("2 + 1", "survived"), ("8 + 1", "survived")])

    def test_tries_nothing_when_tests_fail_without_a_mutant(self):
        test = self.project / "tests/counter/counter_test.cpp"
        test.write_text(test.read_text() + "TEST(Counter, Fails) { FAIL(); }\n")
        done = self.mutate("--folder", "counter")
        self.assertEqual(done.returncode, 3)
        self.assertEqual(done.stdout.splitlines()[-1],
                         "fails without a mutant: test_counter: Counter.Fails")

    def test_finds_listed_mutants_that_are_caught(self):
        with open(self.project / "equivalent.txt", "a") as stream:
            stream.write("\nfile: src/counter/counter.cpp\nkind: delete statement\nchange: ++bits\n"
                         "line: ++bits;\nreason: Wrong.\n")
        done = self.mutate("--check-equivalents")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stdout.splitlines()[-1],
                         "1 of the list of those that cannot show were caught.")


if __name__ == "__main__":
    unittest.main()
