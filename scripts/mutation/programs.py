"""Runs the test programs, with limits that an endless loop reaches."""
from dataclasses import dataclass
from pathlib import Path
import os
import re
import resource
import shutil
import signal
import subprocess
import time

LARGEST_FILE = 512 << 20
LARGEST_MEMORY = 8 << 30
# So long may a program wait for the processor, as a multiple of what it may use of it.
PATIENCE = 10


@dataclass
class Outcome:
    passed: bool
    test: str = ""  # the test that failed, or what else happened


def culprit(output, status):
    """The first test that failed, else the test during which the program ended."""
    failed = re.search(r"^\[  FAILED  \] ([\w./]+)", output, re.MULTILINE)
    if failed:
        return failed.group(1)
    begun = re.findall(r"^\[ RUN      \] ([\w./]+)", output, re.MULTILINE)
    how = signal.Signals(-status).name if status < 0 else f"exit status {status}"
    return f"{begun[-1]} ({how})" if begun else how


class Programs:
    """Runs the test programs at `paths`. `scratch` is their temporary, home and working folder, and
    empty before each of them: what a mutant writes to a wrong place lands there."""

    def __init__(self, scratch):
        self.scratch = Path(scratch)
        self.seconds = {}  # of the processor, without a mutant

    def measure(self, paths):
        """Runs those that have not been measured without a mutant. Returns what failed."""
        failures = []
        for path in paths:
            if path in self.seconds:
                continue
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            outcome = self.run(path, 0, 600)
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            self.seconds[path] = (after.ru_utime + after.ru_stime
                                  - before.ru_utime - before.ru_stime)
            if not outcome.passed:
                failures.append(outcome.test)
        return failures

    def try_mutant(self, paths, number):
        """The quickest first; stops at the first one that fails."""
        for path in sorted(paths, key=lambda path: self.seconds[path]):
            outcome = self.run(path, number, int(5 + 4 * self.seconds[path]))
            if not outcome.passed:
                return outcome
        return Outcome(True)

    def run(self, path, number, seconds):
        """`seconds` of the processor for the program and for each one that it starts."""
        shutil.rmtree(self.scratch, ignore_errors=True)
        (self.scratch / "tmp").mkdir(parents=True)
        (self.scratch / "home").mkdir()
        environment = dict(os.environ, HDLBUILDFILE_MUTANT=str(number), LC_ALL="C.UTF-8",
                           TMPDIR=str(self.scratch / "tmp"), HOME=str(self.scratch / "home"))

        def limit():
            resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 1))
            resource.setrlimit(resource.RLIMIT_FSIZE, (LARGEST_FILE, LARGEST_FILE))
            resource.setrlimit(resource.RLIMIT_AS, (LARGEST_MEMORY, LARGEST_MEMORY))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        output = self.scratch / "output"
        with open(output, "wb") as stream:
            process = subprocess.Popen(
                [str(path), "--gtest_fail_fast", "--gtest_color=no"], cwd=self.scratch / "tmp",
                env=environment, stdin=subprocess.DEVNULL, stdout=stream, stderr=stream,
                start_new_session=True, preexec_fn=limit)
            status = self.wait(process, seconds * PATIENCE)
        if status == 0:
            return Outcome(True)
        text = output.read_bytes().decode("utf-8", "replace")
        if status is None or status in (-signal.SIGXCPU, -signal.SIGKILL):
            return Outcome(False, f"{path.name}: time limit")
        return Outcome(False, f"{path.name}: {culprit(text, status)}")

    @staticmethod
    def wait(process, seconds):
        """The exit status; None when the program had to be ended."""
        try:
            status = process.wait(seconds)
        except subprocess.TimeoutExpired:
            status = None
        # Also what the program started and left running.
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()
        return status
