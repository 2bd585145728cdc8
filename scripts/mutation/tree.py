"""A copy of the project with the mutants in it, and its build."""
from pathlib import Path
import json
import os
import re
import shutil
import subprocess

import rewrite

NOT_COPIED = {"build", ".git"}  # of the root
MOST_ROUNDS = 20


class BuildFailed(Exception):
    pass


class Tree:
    """<build>/src is the copy, <build>/out its build. A file is written only when it changes, so that
    the next run compiles little."""

    def __init__(self, project, jobs):
        self.project = project
        self.jobs = jobs
        self.copy = project.build / "src"
        self.out = project.build / "out"
        self.home = Path(__file__).resolve().parent
        # The mutants that the compiler refused to have switched, from one run to the next.
        self.refused_file = project.build / "refused.json"
        self.refused = set()
        if self.refused_file.exists():
            self.refused = {tuple(key) for key in json.loads(self.refused_file.read_text())}
        self.mutants = {}  # by file
        self.sources = {}  # by file: what the mutants were found in

    @staticmethod
    def write(path, content):
        if path.exists() and path.read_bytes() == content:
            return
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)

    def switched_source(self, file):
        mutants = [mutant for mutant in self.mutants[file] if mutant.switch]
        return rewrite.with_switches(self.sources[file], mutants) if mutants else self.sources[file]

    def fill(self, mutants):
        """Copies the project and puts the switched mutants into the copy."""
        self.mutants = {}
        for mutant in mutants:
            if mutant.key() in self.refused:
                mutant.switch = None
            self.mutants.setdefault(mutant.file, []).append(mutant)
        self.sources = {file: (self.project.root / file).read_bytes() for file in self.mutants}
        kept = set()
        for folder, folders, names in os.walk(self.project.root):
            if Path(folder) == self.project.root:
                folders[:] = [name for name in folders if name not in NOT_COPIED]
            for name in names:
                path = Path(folder) / name
                file = path.relative_to(self.project.root).as_posix()
                if path.is_symlink() and not path.exists():
                    continue
                kept.add(file)
                self.write(self.copy / file, self.switched_source(file) if file in self.mutants
                           else path.read_bytes())
                shutil.copymode(path, self.copy / file)
        for path in list(self.copy.rglob("*")):
            if path.is_file() and path.relative_to(self.copy).as_posix() not in kept:
                path.unlink()

    def run(self, *command):
        done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              errors="replace", cwd=self.copy)
        return done.returncode == 0, done.stdout

    def configure(self):
        # Mutated code is full of conditions that never hold.
        flags = f"-w -I{self.home}"
        good, output = self.run("cmake", "--preset", self.project.preset, "-B", str(self.out),
                                f"-DCMAKE_CXX_FLAGS={flags}", "-DCMAKE_CXX_FLAGS_DEBUG=",
                                "-DHDLBUILDFILE_WERROR=OFF")
        if not good:
            raise BuildFailed(output)

    def build(self, *targets):
        return self.run("cmake", "--build", str(self.out), "--parallel", str(self.jobs),
                        "--target", *(targets or ("all",)), "--", "-k", "0")

    def programs(self):
        """The test programs that the build knows, from <out> on; none need be there yet."""
        _, output = self.run("ninja", "-C", str(self.out), "-t", "targets", "all")
        found = re.findall(r"^(tests/\S*test_\w+): \S*EXECUTABLE_LINKER", output, re.MULTILINE)
        return [path for path in sorted(found)
                if Path(path).name not in self.project.programs_left_out]

    def build_switched(self, targets, say):
        """Builds all switched mutants at once. Those whose lines the compiler refuses are left to be
        built one by one."""
        for _ in range(MOST_ROUNDS):
            good, output = self.build(*targets)
            if good:
                return
            refused = self.mutants_refused_by(output)
            if not refused:
                raise BuildFailed(output)
            for mutant in refused:
                say(f"to be built alone: {mutant.label()}")
                mutant.switch = None
                self.refused.add(mutant.key())
            for file in {mutant.file for mutant in refused}:
                self.write(self.copy / file, self.switched_source(file))
            self.refused_file.write_text(json.dumps(sorted(self.refused)))
        raise BuildFailed("The compiler refuses more and more lines.")

    def mutants_refused_by(self, output):
        """Those on lines with an error; without one, those on lines that lead to errors elsewhere."""
        for error in (" (?:fatal )?error:", ""):
            places = re.findall(r"(\S+\.(?:cpp|h)):(\d+)(?::\d+)?:" + error, output)
            refused = {}
            for path, line in sorted(set(places)):
                file = os.path.relpath(self.out / path, self.copy)  # the compiler may name it from <out>
                place = int(line) - rewrite.LINES_ADDED
                for mutant in self.mutants.get(file, []):
                    if mutant.switch and mutant.line <= place <= mutant.last_line:
                        refused[mutant.key()] = mutant
            if refused:
                return list(refused.values())
        return []

    def put(self, mutant):
        """Writes the one mutant into its source."""
        self.write(self.copy / mutant.file,
                   rewrite.with_plain(self.sources[mutant.file], mutant))

    def take_back(self, mutant):
        self.write(self.copy / mutant.file, self.switched_source(mutant.file))
