#!/usr/bin/env python3
"""Drives real shells with the scripts that `hdlbuild completion` prints.

  shells_test.py TOOL
"""
import os
import pathlib
import pty
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

TOOL = os.path.abspath(sys.argv.pop(1))
BUILD = """<HdlBuildFileList><HdlBuildFile TopLevelLanguage="VHDL" DestinationLibrary="work">
<SourceFileGroup Language="VHDL"><SourceFile>rtl/a b.vhd</SourceFile><SourceFile>rtl/c.vhd</SourceFile>
</SourceFileGroup></HdlBuildFile></HdlBuildFileList>
"""
SECONDS = 20


class Shells(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="shells-")
        self.addCleanup(shutil.rmtree, self.folder)
        pathlib.Path(self.folder, "b.xml").write_text(BUILD, encoding="utf-8")
        programs = os.path.join(self.folder, ".programs")
        os.mkdir(programs)
        os.symlink(TOOL, os.path.join(programs, "hdlbuild"))
        self.environment = {"PATH": programs + ":" + os.environ["PATH"], "HOME": self.folder,
                            "TERM": "dumb", "LC_ALL": "C.UTF-8"}

    def run_shell(self, *words):
        if not shutil.which(words[0]):
            self.skipTest(f"{words[0]} is not installed")
        done = subprocess.run(words, cwd=self.folder, env=self.environment, text=True, check=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
        return done.stdout.splitlines()

    def bash(self, *words):
        line = " ".join(f"'{word}'" for word in words)
        return self.run_shell("bash", "--norc", "-c",
                              f"source <(hdlbuild completion bash); COMP_WORDS=(hdlbuild {line}); "
                              f"COMP_CWORD={len(words)}; _hdlbuild; printf '%s\\n' \"${{COMPREPLY[@]}}\"")

    def fish(self, line):
        return self.run_shell("fish", "--no-config", "-c",
                              f"hdlbuild completion fish | source; complete -C 'hdlbuild {line}'")

    def test_bash_completes(self):
        self.assertEqual(self.bash("ord"), ["order"])
        self.assertEqual(self.bash("order", "--language", "V"), ["Verilog", "VHDL"])
        self.assertEqual(self.bash("deps", "b.xml", "rtl/"), ["rtl/a\\ b.vhd", "rtl/c.vhd"])
        self.assertEqual(self.bash("order", "b"), ["b.xml"])

    def test_fish_completes(self):
        self.assertEqual(self.fish("ord"), ["order\tPrint the files to compile, one a line, in compile order"])
        self.assertEqual(sorted(self.fish("order --language V")), ["VHDL", "Verilog"])
        self.assertEqual(self.fish("deps b.xml rtl/"), ["rtl/a b.vhd", "rtl/c.vhd"])
        self.assertEqual(self.fish("order b."), ["b.xml"])

    def test_zsh_completes(self):
        if not shutil.which("zsh"):
            self.skipTest("zsh is not installed")
        self.assertEqual(self.zsh("hdlbuild ord"), "order ")
        self.assertEqual(self.zsh("hdlbuild deps b.xml rtl/c"), "deps b.xml rtl/c.vhd ")
        self.assertEqual(self.zsh("hdlbuild deps b.xml rtl/a"), "deps b.xml rtl/a\\ b.vhd ")
        self.assertEqual(self.zsh("hdlbuild order b."), "order b.xml ")

    def zsh(self, line):
        """What stands behind "hdlbuild " once a tabulator was typed: zsh completes on a terminal alone."""
        pid, terminal = pty.fork()
        if pid == 0:
            os.chdir(self.folder)
            os.execvpe("zsh", ["zsh", "-f", "-i"], self.environment)
        try:
            self.type(terminal, "PS1='READY>'; autoload -U compinit; compinit -u -D; bindkey -e; "
                                "source <(hdlbuild completion zsh); show() { print -r -- \"LINE[$BUFFER]\" }; "
                                "zle -N show; bindkey '^G' show\n", "READY>")
            self.type(terminal, line + "\t\x07", r"LINE\[hdlbuild ([^\]]*)\]")
            return self.found.group(1)
        finally:
            os.close(terminal)
            os.kill(pid, 9)
            os.waitpid(pid, 0)

    def type(self, terminal, text, wanted):
        """Types and waits for what comes back to hold the pattern."""
        os.write(terminal, text.encode())
        shown = ""
        end = time.monotonic() + SECONDS
        while time.monotonic() < end:
            if select.select([terminal], [], [], 0.2)[0]:
                shown += os.read(terminal, 4096).decode("utf-8", "replace")
            elif (found := list(re.finditer(wanted, shown))):
                self.found = found[-1]
                return
        self.fail(f"the shell shows {shown!r}")


if __name__ == "__main__":
    unittest.main()
