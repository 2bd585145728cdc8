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
# So many seconds of the processor more than so many times what they use without a mutant may tests
# use, and each program that they start.
ALLOWANCE = 4
ALLOWED_TIMES = 5
# So many seconds without any use of the processor are a deadlock.
PATIENCE = 20


@dataclass
class Outcome:
    passed: bool
    test: str = ""  # the test that failed, or what else happened
    output: str = ""


def culprit(output, status):
    """The first test that failed, else the test during which the program ended."""
    failed = re.search(r"^\[  FAILED  \] ([\w./]+)", output, re.MULTILINE)
    if failed:
        return failed.group(1)
    begun = re.findall(r"^\[ RUN      \] ([\w./]+)", output, re.MULTILINE)
    how = signal.Signals(-status).name if status < 0 else f"exit status {status}"
    return f"{begun[-1]} ({how})" if begun else how


def ticks_of(group):
    """The processor time of the processes of a group, and of those that they have waited for."""
    ticks = 0
    for path in Path("/proc").glob("[0-9]*/stat"):
        try:
            fields = path.read_text().rpartition(")")[2].split()
        except OSError:
            continue  # it has ended
        if int(fields[2]) == group:
            ticks += sum(int(field) for field in fields[11:15])
    return ticks


def wait(process):
    """The exit status; None after a deadlock. How long it takes is no matter: the machine may be busy."""
    status, ticks, since = None, 0, time.monotonic()
    while time.monotonic() - since < PATIENCE:
        try:
            status = process.wait(1)
            break
        except subprocess.TimeoutExpired:
            used = ticks_of(process.pid)
            if used != ticks:
                ticks, since = used, time.monotonic()
    # Also what the program started and left running.
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()
    return status


def slow_tests(output):
    """The tests that take more than a tenth of a program's time, where that is worth the second start,
    and their part of the time."""
    times = [(name, int(time)) for name, time in
             re.findall(r"^\[       OK \] ([\w./]+) \((\d+) ms\)", output, re.MULTILINE)]
    total = sum(time for _, time in times)
    slow = [(name, time) for name, time in times if total >= 500 and 10 * time > total]
    return [name for name, _ in slow], sum(time for _, time in slow) / max(total, 1)


@dataclass
class Part:
    """Tests of a program that are run together."""
    path: Path
    tests: str  # for --gtest_filter
    seconds: float  # of the processor, without a mutant


class Programs:
    """Runs the test programs at `paths`. `scratch` is their temporary, home and working folder, and
    empty before each of them: what a mutant writes to a wrong place lands there."""

    def __init__(self, scratch):
        self.scratch = Path(scratch)
        self.parts = {}  # by program: all but its slow tests, and these, if there are any

    def measure(self, paths):
        """Runs those that have not been measured without a mutant. Returns what failed."""
        failures = []
        for path in paths:
            if path in self.parts:
                continue
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            outcome = self.run(Part(path, "*", 300))
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            if not outcome.passed:
                failures.append(outcome.test)
            self.parts[path] = self.cut(path, outcome.output, after.ru_utime + after.ru_stime
                                        - before.ru_utime - before.ru_stime)
        return failures

    @staticmethod
    def cut(path, output, seconds):
        slow, share = slow_tests(output)
        quick = Part(path, "-" + ":".join(slow), seconds * (1 - share))
        return [quick] + ([Part(path, ":".join(slow), seconds * share)] if slow else [])

    def try_mutant(self, paths, number):
        """The quickest part first; stops at the first that fails."""
        parts = [part for path in paths for part in self.parts[path]]
        for part in sorted(parts, key=lambda part: part.seconds):
            outcome = self.run(part, number)
            if not outcome.passed:
                return outcome
        return Outcome(True)

    def run(self, part, number=0):
        seconds = int(ALLOWANCE + ALLOWED_TIMES * part.seconds)
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
                [str(part.path), "--gtest_fail_fast", "--gtest_color=no",
                 "--gtest_filter=" + part.tests],
                cwd=self.scratch / "tmp", env=environment, stdin=subprocess.DEVNULL, stdout=stream,
                stderr=stream, start_new_session=True, preexec_fn=limit)
            status = wait(process)
        text = output.read_bytes().decode("utf-8", "replace")
        if status == 0:
            return Outcome(True, output=text)
        if status is None or status in (-signal.SIGXCPU, -signal.SIGKILL):
            return Outcome(False, f"{part.path.name}: endless")
        return Outcome(False, f"{part.path.name}: {culprit(text, status)}")
